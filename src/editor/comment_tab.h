// The comments tab of a record: the comments of a taxon in a grid, and the fields in which one is entered. A
// comment may belong to many taxa.
//
// The commands change only the grid and the list of removed comments; a save stores them.
#pragma once

#include <string>
#include <string_view>
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

    void Connect(ApplicationState& state, Prompter& prompter) override;
    // The clock that dates new comments. Must be called before the first save; the clock outlives the tab.
    void UseClock(const Clock& clock) { clock_ = &clock; }
    const Control& FirstControl() const override { return grdComments; }
    void OfferLists() override {}  // the tab has none
    void Clear() override;
    void ClearForNextEntry() override;
    void Load(int qb_id) override;
    void EnterMode(EditorMode mode) override;
    // A comment that a new record keeps from another one is linked to both.
    bool SaveNew(const records::RecordStore& records) override;
    void SaveChanges(const records::RecordStore& records) override;

    EntryGridControl grdComments;
    LabelControl lblCommentator;
    TextControl txtCommentator;
    LabelControl lblComment;
    TextControl txtComment;
    ButtonControl cmdCAdd, cmdCDelete;

    // The qb_comment_id of the comments removed from the grid since the record was loaded.
    std::vector<int> removed;

private:
    void Add();
    void Delete();
    // When the field is empty: shows the message, moves the focus to the field and returns false.
    bool Require(TextControl& field, std::string_view message);
    bool HoldsRow(const std::string& commentator, const std::string& comment) const;
    bool SaveRow(const records::RecordStore& records, std::size_t row);
    // Shows the selected row in the fields; empties them for the empty row or none.
    void ShowRow();

    const Clock* clock_ = nullptr;
};

}  // namespace quillon::editor
