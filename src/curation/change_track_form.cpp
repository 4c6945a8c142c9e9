#include "curation/change_track_form.h"

#include <fmt/format.h>

#include <array>
#include <string>

#include "core/attempt.h"
#include "store/command.h"

namespace quillon::curation {

namespace {

constexpr std::array<std::string_view, 5> kReasons = {
    "Taxonomic description",
    "Taxonomic revision",
    "Nomenclatural ruling",
    "Data entry correction",
    "New record information (non-taxonomic)",
};

std::vector<ChoiceControl::Choice> ReadVernaculars(store::Database& database, int qb_id) {
    std::vector<ChoiceControl::Choice> names;
    const auto rows =
        database.CreateSnapshot(fmt::format("SELECT qb_vern_id, vernacular_name, language FROM "
                                            "qb_vernaculars WHERE qb_id = {} ORDER BY qb_vern_id",
                                            qb_id));
    for (; !rows->Eof(); rows->MoveNext())
        names.push_back(
            {fmt::format("{} [{}]", rows->Get("vernacular_name").AsText(), rows->Get("language").AsText()),
             rows->Get("qb_vern_id").AsLong()});
    return names;
}

int IdOf(const std::string& cell) {
    return static_cast<int>(Value(cell).AsLong());
}

}  // namespace

FrmChgTrk::FrmChgTrk(ApplicationState& state, store::Engine& engine, Prompter& prompter)
    : state_(state), engine_(engine), prompter_(prompter) {
    form.SetTitle("Change Tracking");
    for (TextControl* id : {&txtID, &txtQBID, &txtCTID}) id->SetLocked(true);
    for (const std::string_view reason : kReasons) cboReason.AddItem(reason);
    cmdCAdd.OnClick([this] { AddComment(); });
    cmdCDelete.OnClick([this] { DeleteComment(); });
    grdComments.OnEdit([this] { ShowComment(); });
    cmdOK.OnClick([this] { OK(); });
    cmdCancel.OnClick([this] { form.Close(); });
    for (auto* documents : Documents()) documents->Connect(state, prompter);
    Attempt(prompter_, [this] {
        cboOperation.SetChoices(ReadChangeOperations(*state_.gDatabase));
        OfferVernaculars();
        for (auto* documents : Documents()) documents->OfferLists();
    });
    ShowTrack();
    ShowDocuments();
}

std::array<documentation::DocumentationTab*, 3> FrmChgTrk::Documents() {
    return {&publications, &experts, &otherSources};
}

void FrmChgTrk::OfferVernaculars() {
    const auto names = ReadVernaculars(*state_.gDatabase, state_.currentTaxon.qb_id);
    for (auto* documents : Documents()) documents->OfferVernaculars(names);
}

bool FrmChgTrk::Load(int qb_change_track_id) {
    const ChangeScope scope(form);
    std::optional<ChangeTrack> track;
    std::vector<GridControl::Row> comments;
    const bool read = Attempt(prompter_, [&] {
        track = ReadChangeTrack(*state_.gDatabase, qb_change_track_id);
        comments = ReadChangeComments(*state_.gDatabase, qb_change_track_id);
    });
    if (!read || !track) return false;
    track_ = *track;
    storedOperation_ = track_.chg_op_id;
    ShowTrack();
    grdComments.SetDataRows(std::move(comments));
    removedComments_.clear();
    ShowDocuments();
    return true;
}

// A stored reason that is not one of the list is shown as it is.
void FrmChgTrk::ShowTrack() {
    txtID.SetText(std::to_string(state_.currentTaxon.qb_id));
    txtQBID.SetText(std::to_string(track_.qb_change_track_id));
    txtCTID.SetText(std::to_string(track_.change_track_id));
    cboOperation.SetListIndex(cboOperation.FindItemData(track_.chg_op_id));
    if (!track_.change_reason.empty() && cboReason.FindText(track_.change_reason) < 0)
        cboReason.AddItem(track_.change_reason);
    cboReason.SetText(track_.change_reason);
    txtInitiator.SetText(track_.change_initiator);
    txtReviewer.SetText(track_.change_reviewer);
    txtCertifier.SetText(track_.change_certifier);
}

void FrmChgTrk::ShowDocuments() {
    for (auto* documents : Documents())
        documents->LoadOfChangeTrack(state_.currentTaxon.qb_id, track_.qb_change_track_id);
}

void FrmChgTrk::ShowComment() {
    const GridControl::Row* row = grdComments.SelectedData();
    txtComment.SetText(row == nullptr ? std::string() : (*row)[ChangeCommentColumn::kComment]);
}

void FrmChgTrk::AddComment() {
    if (txtComment.Text().empty()) return txtComment.TakeFocus();
    grdComments.AddDataRow({txtComment.Text(), "0", "0"});
    grdComments.SetSelectedRow(static_cast<int>(grdComments.DataCount()) - 1);
}

void FrmChgTrk::DeleteComment() {
    const GridControl::Row* row = grdComments.SelectedData();
    if (row == nullptr) return;
    if (const int id = IdOf((*row)[ChangeCommentColumn::kQbId]); id != 0) removedComments_.push_back(id);
    grdComments.RemoveSelectedData();
    ShowComment();
}

bool FrmChgTrk::Refuse(std::string_view message, Control& field) {
    prompter_.Message(message);
    TabStrip1.SetSelectedIndex(TabStrip1.IndexOf("track"));
    field.TakeFocus();
    return false;
}

void FrmChgTrk::TakeTrack() {
    track_.chg_op_id = static_cast<int>(cboOperation.ItemData(cboOperation.ListIndex()));
    track_.change_reason = cboReason.Text();
    track_.change_initiator = txtInitiator.Text();
    track_.change_reviewer = txtReviewer.Text();
    track_.change_certifier = txtCertifier.Text();
}

// After an error of the whole file nothing is stored, and the track is as new as it was.
void FrmChgTrk::OK() {
    if (cboOperation.Text().empty()) {
        Refuse("A Change Operation is required!", cboOperation);
        return;
    }
    if (cboReason.Text().empty()) {
        Refuse("A Change Reason is required!", cboReason);
        return;
    }
    TakeTrack();
    const ChangeTrack before = track_;
    const int operationBefore = storedOperation_;
    bool stored = false;
    const bool committed = Attempt(prompter_, [&] {
        store::Command command(engine_);
        stored = Store({engine_, *state_.gDatabase, prompter_});
        command.Commit();
    });
    if (!committed) {
        track_ = before;
        storedOperation_ = operationBefore;
        return;
    }
    if (before.qb_change_track_id == 0 && track_.qb_change_track_id != 0)
        state_.gNewChangeTrackIds.push_back(track_.qb_change_track_id);
    if (!stored) return;
    Stored();
    form.Close();
}

bool FrmChgTrk::Store(const records::RecordStore& records) {
    return track_.qb_change_track_id == 0 ? StoreNew(records) : StoreChanges(records);
}

bool FrmChgTrk::StoreNew(const records::RecordStore& records) {
    if (!InsertChangeTrack(records, state_.currentTaxon, track_)) {
        prompter_.Message("Error inserting Change Track");
        return false;
    }
    storedOperation_ = track_.chg_op_id;
    for (auto* documents : Documents())
        if (!documents->InsertAllRows(records, track_.qb_change_track_id)) return false;
    return StoreComments(records);
}

bool FrmChgTrk::StoreChanges(const records::RecordStore& records) {
    if (!UpdateChangeTrack(records, track_, storedOperation_)) return false;
    storedOperation_ = track_.chg_op_id;
    for (auto* documents : Documents())
        if (!documents->SaveGrid(records, track_.qb_change_track_id)) return false;
    return StoreComments(records);
}

bool FrmChgTrk::StoreComments(const records::RecordStore& records) {
    std::vector<GridControl::Row> rows = grdComments.Rows();
    rows.pop_back();
    return SaveChangeComments(records, track_, removedComments_, rows);
}

}  // namespace quillon::curation
