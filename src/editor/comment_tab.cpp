#include "editor/comment_tab.h"

#include "documentation/association.h"

namespace quillon::editor {

using Column = CommentColumn;

namespace {

constexpr std::size_t kCommentatorSize = 100;  // of the field in the store

CommentRow CommentOf(const store::Recordset& row) {
    return {row["commentator"].AsText(), row["comment_detail"].AsText(),
            static_cast<int>(row["qb_comment_id"].AsLong()), static_cast<int>(row["comment_id"].AsLong()),
            row["comment_time_stamp"].AsText()};
}

}  // namespace

CommentTab::CommentTab(Form& form)
    : grdComments(form, "grdComments",
                  {{"Commentator"}, {"Comment"}, {"QB ID", true}, {"ID", true}, {"Timestamp", true}}),
      lblCommentator(form, "lblCommentator", "Comme&ntator"),
      txtCommentator(form, "txtCommentator", kCommentatorSize),
      lblComment(form, "lblComment", "&Comment"),
      txtComment(form, "txtComment"),
      cmdCAdd(form, "cmdCAdd", "&Add"),
      cmdCDelete(form, "cmdCDelete", "&Delete") {
    for (ButtonControl* command : {&cmdCAdd, &cmdCDelete}) command->SetEnabled(false);
    grdComments.OnEdit([this] { ShowCommentRow(*this); });
    documentation::InitGrid(grdComments);
}

void SetupCommentGrid(CommentTab& tab) {
    documentation::InitGrid(tab.grdComments);
    tab.removed.clear();
    ClearCommentFields(tab);
}

void ClearCommentFields(CommentTab& tab) {
    tab.txtCommentator.SetText("");
    tab.txtComment.SetText("");
}

void LoadComments(CommentTab& tab, store::Database& database, int qb_id) {
    SetupCommentGrid(tab);
    const auto comments = database.OpenQueryDef("Get Comments").Set("QBid", qb_id).CreateSnapshot();
    for (; !comments->Eof(); comments->MoveNext()) AddCommentRow(tab, CommentOf(*comments));
}

void AddCommentRow(CommentTab& tab, const CommentRow& comment) {
    tab.grdComments.RemoveRow(tab.grdComments.Rows().size() - 1);
    tab.grdComments.AddRow({comment.commentator, comment.comment, std::to_string(comment.qb_comment_id),
                            std::to_string(comment.comment_id), comment.comment_time_stamp});
    tab.grdComments.AddRow({});
}

void ShowCommentRow(CommentTab& tab) {
    const int selected = tab.grdComments.SelectedRow();
    if (!documentation::IsDataRow(tab.grdComments, selected)) return ClearCommentFields(tab);
    const auto& row = tab.grdComments.Rows()[static_cast<std::size_t>(selected)];
    tab.txtCommentator.SetText(row[Column::kCommentator]);
    tab.txtComment.SetText(row[Column::kComment]);
}

}  // namespace quillon::editor
