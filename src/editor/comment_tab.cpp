#include "editor/comment_tab.h"

#include "core/attempt.h"
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

void CommentTab::Clear() {
    grdComments.ClearRows();
    removed.clear();
    ShowRow();
}

void CommentTab::ClearForNextEntry() {
    if (!KeptForNextEntry(State().gPrefSaveComments)) Clear();
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

}  // namespace quillon::editor
