// The comments tab of a record: the comments of a taxon in a grid, and the fields in which one is entered. A
// comment may belong to many taxa.
//
// Nothing here writes to the DataSet: the commands of the tab change the grid, and a save stores its rows.
#pragma once

#include <string>
#include <vector>

#include "core/entry_grid.h"
#include "core/record_tab.h"

namespace quillon::editor {

// The columns of grdComments. "QB ID" is "0" for a comment that is not stored yet; "ID" is "0" for one
// without an id from the authority.
struct CommentColumn {
    static constexpr std::size_t kCommentator = 0, kComment = 1;
    static constexpr std::size_t kQbId = 2, kId = 3, kTimeStamp = 4;
};

class CommentTab : public RecordTab {
public:
    explicit CommentTab(Form& form);

    const Control& FirstControl() const override { return grdComments; }
    void OfferLists() override {}  // the tab has none
    void Clear() override;
    void ClearForNextEntry() override;
    void Load(int qb_id) override;

    EntryGridControl grdComments;
    LabelControl lblCommentator;
    TextControl txtCommentator;
    LabelControl lblComment;
    TextControl txtComment;
    ButtonControl cmdCAdd, cmdCDelete;

    // The qb_comment_id of the comments removed from the grid since the record was loaded.
    std::vector<int> removed;

private:
    // Shows the selected row in the fields; empties them for the empty row or none.
    void ShowRow();
};

}  // namespace quillon::editor
