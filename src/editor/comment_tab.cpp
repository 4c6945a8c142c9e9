#include "editor/comment_tab.h"

#include <algorithm>

#include "core/attempt.h"
#include "core/text.h"
#include "records/comments.h"
#include "records/links.h"
#include "store/engine.h"

namespace quillon::editor {

using Column = CommentColumn;

namespace {

constexpr std::size_t kCommentatorSize = 100;  // of the field in the store

GridControl::Row RowOf(const store::Recordset& comment) {
    return {comment["commentator"].AsText(), comment["comment_detail"].AsText(),
            std::to_string(comment["qb_comment_id"].AsLong()), std::to_string(comment["comment_id"].AsLong()),
            comment["comment_time_stamp"].AsText()};
}

std::vector<GridControl::Row> ReadComments(store::Database& database, int qb_id) {
    std::vector<GridControl::Row> rows;
    const auto comments = database.OpenQueryDef("Get Comments").Set("QBid", qb_id).CreateSnapshot();
    for (; !comments->Eof(); comments->MoveNext()) rows.push_back(RowOf(*comments));
    return rows;
}

int IdOf(const std::string& cell) {
    return static_cast<int>(Value(cell).AsLong());
}

records::Comment CommentOf(const GridControl::Row& row) {
    return {IdOf(row[Column::kQbId]), IdOf(row[Column::kId]), row[Column::kCommentator],
            row[Column::kComment], row[Column::kTimeStamp]};
}

GridControl::Row RowOf(const records::Comment& comment) {
    return {comment.commentator, comment.detail, std::to_string(comment.qb_comment_id),
            std::to_string(comment.comment_id), comment.timeStamp};
}

}  // namespace

CommentTab::CommentTab(Form& form)
    : grdComments(
          form, "grdComments",
          {{"Commentator", false, 28}, {"Comment"}, {"QB ID", true}, {"ID", true}, {"Timestamp", true}}),
      lblCommentator(form, "lblCommentator", "Comme&ntator"),
      txtCommentator(form, "txtCommentator", kCommentatorSize),
      lblComment(form, "lblComment", "&Comment"),
      txtComment(form, "txtComment"),
      cmdCAdd(form, "cmdCAdd", "&Add"),
      cmdCDelete(form, "cmdCDelete", "&Delete") {
    for (ButtonControl* command : {&cmdCAdd, &cmdCDelete}) command->SetEnabled(false);
    grdComments.OnEdit([this] { ShowRow(); });
}

void CommentTab::Connect(ApplicationState& state, Prompter& prompter) {
    RecordTab::Connect(state, prompter);
    cmdCAdd.OnClick([this] { Attempt(Outside(), [this] { Add(); }); });
    cmdCDelete.OnClick([this] { Attempt(Outside(), [this] { Delete(); }); });
}

void CommentTab::EnterMode(EditorMode mode) {
    for (ButtonControl* command : {&cmdCAdd, &cmdCDelete}) command->SetEnabled(mode != EditorMode::None);
    if (mode == EditorMode::Input) removed.clear();
}

void CommentTab::Clear() {
    grdComments.ClearRows();
    removed.clear();
    ShowRow();
}

void CommentTab::ClearForNextEntry() {
    if (!KeptForNextEntry(State().gPrefSaveComments)) Clear();
    removed.clear();
}

void CommentTab::Load(int qb_id) {
    Clear();
    Attempt(Outside(), [&] { grdComments.SetDataRows(ReadComments(*State().gDatabase, qb_id)); });
}

void CommentTab::ShowRow() {
    const GridControl::Row* row = grdComments.SelectedData();
    txtCommentator.SetText(row == nullptr ? "" : (*row)[Column::kCommentator]);
    txtComment.SetText(row == nullptr ? "" : (*row)[Column::kComment]);
}

void CommentTab::Add() {
    State().RecordDirty = true;
    if (!Require(txtCommentator, "A Commentator is required!")) return;
    if (!Require(txtComment, "A Comment is required!")) return;
    if (HoldsRow(txtCommentator.Text(), txtComment.Text()))
        return Outside().Message("Attempting to insert a duplicate Comment");
    grdComments.AddDataRow({txtCommentator.Text(), txtComment.Text(), "0", "0", ""});
    grdComments.SetSelectedRow(static_cast<int>(grdComments.DataCount()));
    ShowRow();
}

bool CommentTab::Require(TextControl& field, std::string_view message) {
    if (!Trim(field.Text()).empty()) return true;
    Outside().Message(message);
    field.TakeFocus();
    return false;
}

bool CommentTab::HoldsRow(const std::string& commentator, const std::string& comment) const {
    const auto& rows = grdComments.Rows();
    return std::any_of(rows.begin(), rows.end(), [&](const GridControl::Row& row) {
        return row[Column::kCommentator] == commentator && row[Column::kComment] == comment;
    });
}

void CommentTab::Delete() {
    const GridControl::Row* row = grdComments.SelectedData();
    if (row == nullptr) return;
    if (const int id = IdOf((*row)[Column::kQbId]); id != 0) removed.push_back(id);
    grdComments.RemoveSelectedData();
    State().RecordDirty = true;
    ShowRow();
}

bool CommentTab::SaveNew(const records::RecordStore& records) {
    if (State().currentTaxon.qb_id == 0) return false;
    bool saved = true;
    for (std::size_t row = 0; row < grdComments.DataCount(); ++row) saved = SaveRow(records, row) && saved;
    return saved;
}

// The grid gets the id and the time stamp of a new comment: the next new record may keep the row.
bool CommentTab::SaveRow(const records::RecordStore& records, std::size_t row) {
    const records::TaxonKey taxon = records::KeyOf(State().currentTaxon);
    records::Comment comment = CommentOf(grdComments.Rows()[row]);
    bool stored = false;
    records.Reporting([&] { stored = records::IsCommentStored(records.database, comment.qb_comment_id); });
    if (stored) return records::LinkComment(records, taxon, comment);
    const bool added = records::AddComment(records, taxon, comment, clock_->Now());
    grdComments.ReplaceRow(row, RowOf(comment));
    return added;
}

void CommentTab::SaveChanges(const records::RecordStore& records) {
    const records::TaxonKey taxon = records::KeyOf(State().currentTaxon);
    for (const int id : removed) records::DeleteCommentLink(records, taxon.qb_id, id);
    for (std::size_t row = 0; row < grdComments.DataCount(); ++row) {
        const records::Comment comment = CommentOf(grdComments.Rows()[row]);
        if (comment.qb_comment_id == 0)
            SaveRow(records, row);
        else
            records::UpdateComment(records, taxon, comment);
    }
}

}  // namespace quillon::editor
