#include "editor/synonym_tab.h"

#include <fmt/format.h>

#include <algorithm>

#include "core/attempt.h"
#include "core/names.h"
#include "core/vocabulary.h"
#include "core/wait_cursor.h"
#include "editor/rec_view_load.h"
#include "records/links.h"
#include "store/write_count.h"

namespace quillon::editor {

using Choice = ChoiceControl::Choice;
using Column = SynonymColumn;
using store::Recordset;
using store::RecordsetType;

namespace {

constexpr std::string_view kAccepted = "A", kSynonym = "S";
constexpr std::string_view kRanks =
    "SELECT rank_name, rank_id FROM taxonomic_unit_types WHERE kingdom_id IN (SELECT kingdom_id FROM "
    "kingdoms) "
    "ORDER BY rank_id";

std::string NameOfRow(const Recordset& row) {
    return NameAndAuthor(BuildSciName(NameFieldsOf(row)), row["taxon_author"].AsText());
}

std::unique_ptr<Recordset> RowsOf(store::Database& database, std::string_view query,
                                  std::string_view parameter, int qb_id) {
    return database.OpenQueryDef(query).Set(parameter, qb_id).CreateSnapshot();
}

// The stored query ends in rank 0, its first "0"; `rank_id` replaces it.
NamesOfRank AcceptedNamesOf(store::Database& database, int rank_id) {
    const std::string sql = database.OpenQueryDef("Get Accepted Names").SQL();
    const std::string select = fmt::format("{}{}", sql.substr(0, sql.find('0')), rank_id);
    return {rank_id,
            fmt::format("{} ORDER BY t.unit_name1, t.unit_name2;", select),
            fmt::format("PARAMETERS theId Long; {} AND t.qb_id = [theId]", select),
            2,
            false,
            2};
}

// -1 when the grid has no row of that taxon.
int PlaceOf(const GridControl& grid, int qb_id) {
    const std::string id = std::to_string(qb_id);
    for (std::size_t row = 0; row < grid.Rows().size(); ++row)
        if (grid.Cell(row, Column::kQbId) == id) return static_cast<int>(row);
    return -1;
}

GridControl::Row RowOf(const SynonymTab::Accepted& name) {
    return {name.nameAndAuthor, "", std::to_string(name.qb_id),
            name.tsn == 0 ? std::string() : std::to_string(name.tsn), std::string(kAccepted)};
}

}  // namespace

SynonymTab::SynonymTab(Form& form)
    : lblSynonyms(form, "lblSynonyms", "Synonyms"),
      grdSynonyms(form, "grdSynonyms",
                  {{"Scientific Name / Author", false, 60},
                   {"Invalid Reason"},
                   {"ID", true},
                   {"TSN", true},
                   {"Type", true}}),
      lblSRank(form, "lblSRank", "Ran&k"),
      cboSRank(form, "cboSRank", ComboControl::Style::ListOnly),
      lblSRName(form, "lblSRName", AcceptedNameLabel(KingdomFamily::Animal)),
      cboSRName(form, "cboSRName"),
      lblSSciName(form, "lblSSciName", "Scientific &Name"),
      cboSSciName(form, "cboSSciName"),
      cmdSAdd(form, "cmdSAdd", "&Add"),
      cmdSDelete(form, "cmdSDelete", "&Delete") {
    SetFieldsEnabled(false);
    cboSRName.OnEdit([this] { TakeCandidate(); });
    grdSynonyms.OnEdit([this] { ShowRow(); });
}

void SynonymTab::Connect(ApplicationState& state, Prompter& prompter) {
    RecordTab::Connect(state, prompter);
    cboSRank.OnEdit([this] {
        cboSRName.SetText("");
        OfferCandidates();
    });
    cmdSAdd.OnClick([this] { Attempt(Outside(), [this] { Add(); }); });
    cmdSDelete.OnClick([this] { Attempt(Outside(), [this] { Delete(); }); });
}

void SynonymTab::OfferLists() {
    SetAcceptedNameCaptions();
    FillRankList(State().gPrefRank);
    OfferCandidates();
}

void SynonymTab::Clear() {
    grdSynonyms.ClearRows();
    cboSRName.SetText("");
    ClearSciName();
    SetFieldsEnabled(false);
}

void SynonymTab::ClearForNextEntry() {
    if (!KeptForNextEntry(State().gPrefSaveOtherFields)) Clear();
}

void SynonymTab::Load(int qb_id) {
    Clear();
    const CurrentTaxon& taxon = State().currentTaxon;
    cboSRank.SetText(taxon.rank_name);
    Attempt(Outside(), [&] { FillRankList(taxon.rank_name); });
    OfferCandidates();
    Attempt(Outside(), [&] {
        if (UsageIsAccepted(taxon.usage)) {
            LoadSynonyms(qb_id);
        } else if (UsageIsInvalid(taxon.usage)) {
            LoadAcceptedNames(qb_id);
        }
    });
}

void SynonymTab::EnterMode(EditorMode mode) {
    if (mode != EditorMode::Input) return;
    for (std::size_t row = grdSynonyms.DataCount(); row-- > 0;)
        if (grdSynonyms.Cell(row, Column::kType) == kSynonym) grdSynonyms.RemoveRow(row);
    OfferCandidates();
}

void SynonymTab::ApplyPreferences(EditorMode mode) {
    const std::string heading = lblSynonyms.Caption();
    SetAcceptedNameCaptions();
    if (mode == EditorMode::Edit) lblSynonyms.SetCaption(heading);
}

void SynonymTab::LoadSynonyms(int qb_id) {
    lblSynonyms.SetCaption("Synonyms");
    std::vector<GridControl::Row> rows;
    const auto names = RowsOf(*State().gDatabase, "Get Synonyms of Accepted Name", "Accepted_Id", qb_id);
    for (; !names->Eof(); names->MoveNext()) {
        rows.push_back({NameOfRow(*names), names->Get("unacceptability_reason").AsText(),
                        names->Get("qb_id").AsText(), "", std::string(kSynonym)});
    }
    grdSynonyms.SetDataRows(std::move(rows));
}

void SynonymTab::LoadAcceptedNames(int qb_id) {
    SetAcceptedNameCaptions();
    std::vector<GridControl::Row> rows;
    const auto names = RowsOf(*State().gDatabase, "Get Accepted Names of Synonym", "Synonym_Id", qb_id);
    for (; !names->Eof(); names->MoveNext()) {
        rows.push_back({NameOfRow(*names), "", names->Get("qb_id_accepted").AsText(),
                        names->Get("tsn_accepted").AsText(), std::string(kAccepted)});
    }
    grdSynonyms.SetDataRows(std::move(rows));
    SetFieldsEnabled(true);
}

void SynonymTab::SetAcceptedNameCaptions() {
    const KingdomFamily family = FamilyOfKingdom(State().gKingdomName);
    lblSynonyms.SetCaption(AcceptedNamesHeading(family));
    lblSRName.SetCaption(AcceptedNameLabel(family));
}

void SynonymTab::SetFieldsEnabled(bool enabled) {
    for (ComboControl* field : {&cboSRank, &cboSRName, &cboSSciName}) field->SetEnabled(enabled);
    for (ButtonControl* command : {&cmdSAdd, &cmdSDelete}) command->SetEnabled(enabled);
}

void SynonymTab::FillRankList(std::string_view rankName) {
    std::vector<Choice> ranks;
    const auto rows = State().gDatabase->OpenRecordset(kRanks, RecordsetType::ForwardOnly);
    for (; !rows->Eof(); rows->MoveNext()) ranks.push_back({rows->At(0).AsText(), rows->At(1).AsLong()});
    cboSRank.SetChoices(std::move(ranks));
    cboSRank.SetText(rankName);
}

void SynonymTab::OfferCandidates() {
    cboSRName.Clear();
    const auto rank_id = static_cast<int>(cboSRank.ItemData(cboSRank.ListIndex()));
    if (!State().gDatabase || rank_id == 0) return;
    Attempt(Outside(), [&] {
        NamesOfRank names = AcceptedNamesOf(*State().gDatabase, rank_id);
        if (!candidates_ || candidates_->Names() != names)
            candidates_ = std::make_shared<NameSource>(State(), Outside(), std::move(names));
        candidates_->LeaveOut([this] { return State().currentTaxon.qb_id; });
        cboSRName.SetSource(candidates_);
    });
}

void SynonymTab::ReplaceAccepted(int oldQbId, const Accepted* name) {
    const int oldRow = oldQbId == 0 ? -1 : PlaceOf(grdSynonyms, oldQbId);
    if (oldRow >= 0) grdSynonyms.RemoveRow(static_cast<std::size_t>(oldRow));
    if (name == nullptr) return;
    const int place = PlaceOf(grdSynonyms, name->qb_id);
    if (place >= 0) return grdSynonyms.ReplaceRow(static_cast<std::size_t>(place), RowOf(*name));
    const std::size_t end = grdSynonyms.DataCount();
    grdSynonyms.InsertRow(oldRow >= 0 ? static_cast<std::size_t>(oldRow) : end, RowOf(*name));
}

void SynonymTab::Add() {
    State().RecordDirty = true;
    const auto qb_id = static_cast<int>(cboSSciName.ItemData(cboSSciName.ListIndex()));
    if (qb_id == 0) {
        Outside().Message("A Scientific Name is required!");
        return cboSSciName.TakeFocus();
    }
    const Accepted name{qb_id, GetTSN(*State().gDatabase, qb_id), cboSSciName.Text()};
    ReplaceAccepted(0, &name);
    grdSynonyms.SetSelectedRow(PlaceOf(grdSynonyms, qb_id));
    ShowRow();
}

void SynonymTab::Delete() {
    if (grdSynonyms.SelectedRow() < 0) return Outside().Message("You must select the value to delete.");
    State().RecordDirty = true;
    grdSynonyms.RemoveSelectedData();
    ShowRow();
}

bool SynonymTab::SaveNew(const records::RecordStore& records) {
    return State().currentTaxon.qb_id != 0 && SaveLinks(records);
}

void SynonymTab::SaveChanges(const records::RecordStore& records) {
    records::DeleteSynonymLinks(records, State().currentTaxon.qb_id);
    SaveLinks(records);
}

bool SynonymTab::SaveLinks(const records::RecordStore& records) {
    const records::TaxonKey synonym = records::KeyOf(State().currentTaxon);
    for (const GridControl::Row& row : grdSynonyms.Rows()) {
        if (row[Column::kType] != kAccepted) continue;
        const auto id = [&](std::size_t column) { return static_cast<int>(Value(row[column]).AsLong()); };
        if (!records::AddSynonymLink(records, synonym, {id(Column::kQbId), id(Column::kTsn)})) return false;
    }
    return true;
}

void SynonymTab::UsageChosen(bool rejected) {
    Clear();
    SetAcceptedNameCaptions();
    SetFieldsEnabled(rejected);
    if (rejected) return;
    lblSynonyms.SetCaption("Synonyms");
    const CurrentTaxon& taxon = State().currentTaxon;
    if (taxon.qb_id != 0 && UsageIsAccepted(taxon.usage))
        Attempt(Outside(), [&] { LoadSynonyms(taxon.qb_id); });
}

void SynonymTab::ShowRow() {
    cboSRName.SetText("");
    const GridControl::Row* row = grdSynonyms.SelectedData();
    if (row == nullptr) return ClearSciName();
    SetSciName((*row)[Column::kName], Value((*row)[Column::kQbId]).AsLong());
}

void SynonymTab::SetSciName(const std::string& name, std::int64_t qb_id) {
    cboSSciName.SetChoices({{name, qb_id}});
    cboSSciName.SetListIndex(0);
}

void SynonymTab::ClearSciName() {
    cboSSciName.Clear();
    cboSSciName.SetText("");
}

void SynonymTab::TakeCandidate() {
    const int index = cboSRName.ListIndex();
    if (index >= 0) SetSciName(cboSRName.Text(), cboSRName.ItemData(index));
}

std::string NameAndAuthor(const std::string& name, const std::string& author) {
    return author.empty() ? name : name + " " + author;
}

}  // namespace quillon::editor
