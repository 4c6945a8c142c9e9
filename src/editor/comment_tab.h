// The comments tab of the main form: the comments of a taxon in a grid, and the fields in which one is
// entered. A comment may belong to many taxa.
//
// RecView makes the tab and calls the procedures while it loads a record. Nothing here writes to the DataSet:
// the commands of the tab change the grid, and the save stores what stands there.
#pragma once

#include <string>
#include <vector>

#include "core/controls.h"
#include "store/engine.h"

namespace quillon::editor {

// The columns of grdComments, whose last row is always the empty one. "QB ID" is "0" for a comment that is
// not stored yet, "ID" for one that the authority does not know.
struct CommentColumn {
    static constexpr std::size_t kCommentator = 0, kComment = 1;
    static constexpr std::size_t kQbId = 2, kId = 3, kTimeStamp = 4;
};

struct CommentTab {
    GridControl grdComments;
    LabelControl lblCommentator;
    TextControl txtCommentator;
    LabelControl lblComment;
    TextControl txtComment;
    ButtonControl cmdCAdd, cmdCDelete;

    // The qb_comment_id of the comments that were taken from the grid since the record was loaded.
    std::vector<int> removed;

    // Choosing a row shows it in the fields.
    explicit CommentTab(Form& form);
};

struct CommentRow {
    std::string commentator, comment;
    int qb_comment_id = 0;
    int comment_id = 0;
    std::string comment_time_stamp;
};

// Empties the grid, the list of removed comments and the fields.
void SetupCommentGrid(CommentTab& tab);
void ClearCommentFields(CommentTab& tab);
// The comments of the taxon on an emptied tab. The errors of the store pass through.
void LoadComments(CommentTab& tab, store::Database& database, int qb_id);
// One more row, before the empty one.
void AddCommentRow(CommentTab& tab, const CommentRow& comment);
// The chosen row in the fields; the empty row, and none, empties them.
void ShowCommentRow(CommentTab& tab);

}  // namespace quillon::editor
