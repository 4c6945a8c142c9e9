// What the main form and the explorer tell one another: the commands that are handed over, and the form's
// answer to a move in the tree. A move writes nothing: the new place is on the form until it is saved.
#include <fmt/format.h>

#include "core/names.h"
#include "core/vocabulary.h"
#include "editor/rec_view.h"
#include "editor/rec_view_load.h"

namespace quillon::editor {

using navigation::cBioList;
using navigation::TreeNode;

namespace {

ExplorerItem AsItem(const cBioList& item) {
    return {item.qb_id(), item.NumChildren(), item.NumDescendants(), item.IsInTree()};
}

struct NameAndTsn {
    std::string name, nameAndAuthor;
    int tsn = 0;
};

NameFields FieldsOf(const store::Recordset& row) {
    return {row["unit_ind1"], row["unit_name1"], row["unit_ind2"], row["unit_name2"],
            row["unit_ind3"], row["unit_name3"], row["unit_ind4"], row["unit_name4"]};
}

NameAndTsn ReadName(store::Database& database, int qb_id) {
    auto query = database.OpenQueryDef("Get Taxon Data");
    const auto row = query.Set("qbid", qb_id).CreateSnapshot();
    if (row->Eof()) return {};
    const std::string name = BuildSciName(FieldsOf(*row));
    auto authorQuery = database.OpenQueryDef("Get Author Name");
    const auto author = authorQuery.Set("authorid", row->Get("qb_taxon_author_id")).CreateSnapshot();
    const std::string authorName = author->Eof() ? "" : author->Get("taxon_author").AsText();
    return {name, NameAndAuthor(name, authorName), static_cast<int>(row->Get("tsn").AsLong())};
}

// A flag that is up as long as the object lives.
class Raised {
public:
    explicit Raised(bool& flag) : flag_(flag) { flag_ = true; }
    ~Raised() { flag_ = false; }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;

private:
    bool& flag_;
};

// -1 when the grid has no row of that taxon.
int RowOf(const GridControl& grid, int qb_id) {
    const std::string id = std::to_string(qb_id);
    for (std::size_t row = 0; row < grid.Rows().size(); ++row)
        if (grid.Cell(row, SynonymColumn::kQbId) == id) return static_cast<int>(row);
    return -1;
}

}  // namespace

void RecView::Attach(navigation::cExplorer& explorer) {
    explorer_ = &explorer;
    explorer.ItemSelected = [this](const navigation::cExplorer::Item& item) {
        SelectExplorerItem(AsItem(*item), !asked_);
    };
    explorer.CurrentPos = [this](bool first, bool last) {
        SetEnabled("moveprev", !first);
        SetEnabled("movenext", !last);
    };
    explorer.Dropped = [this](TreeNode* moved, TreeNode* newParent, TreeNode* oldParent, bool& cancel) {
        cancel = Dropped(moved, newParent, oldParent);
    };
}

void RecView::MoveBy(Move move) {
    WithDataSet([this, move] {
        if (explorer_ == nullptr || AskLoseChanges()) return;
        const Raised asked(asked_);
        (explorer_->*move)();
    });
}

void RecView::Cut() {
    if (explorer_ == nullptr) return;
    explorer_->Cut();
    SetEnabled("paste", true);
    SetEnabled("undo", false);
}

void RecView::Paste() {
    if (explorer_ != nullptr && !explorer_->Paste()) SetEnabled("undo", true);
}

void RecView::Undo() {
    if (explorer_ != nullptr) explorer_->Undo();
}

void RecView::EnableMoves() {
    if (explorer_ == nullptr) return;
    SetEnabled("moveprev", !explorer_->IsFirstSelected());
    SetEnabled("movenext", !explorer_->IsLastSelected());
}

void RecView::ReflectRealNodePosition() {
    if (explorer_ == nullptr) return;
    explorer_->ReflectRealNodePosition(state_.currentTaxon.qb_id);
    if (!explorer_->CanUndo()) SetEnabled("undo", false);
}

bool RecView::Dropped(const TreeNode* moved, TreeNode* newParent, const TreeNode* oldParent) {
    if (moved == newParent) return true;
    const auto item = explorer_->GetNodeData(moved), target = explorer_->GetNodeData(newParent),
               source = explorer_->GetNodeData(oldParent);
    if (!item || (newParent != nullptr && !target)) return true;
    const ChangeScope scope(controls_.form);
    try {
        if (newParent != nullptr && !newParent->Expanded()) explorer_->ExpandNode(newParent);
        editing_.dropInProgress = false;
        if (target && !ConfirmRanks(*item, *target)) return true;
        if (!BringUp(*item)) return true;
        if (cBioList::UsageIsInvalid(item->usage())) {
            UpdateSynonymLink(target.get(), source.get());
        } else {
            ChangeTaxonParent(target.get());
        }
    } catch (const store::StoreError& error) {
        prompter_.Message("Failed " + error.Description());
        return true;
    }
    SetEnabled("undo", true);
    SetEnabled("paste", true);
    return false;
}

bool RecView::ConfirmRanks(const cBioList& moved, const cBioList& target) {
    if (moved.rank() > target.rank()) return true;
    store::Database& database = *state_.gDatabase;
    return prompter_.AskYesNo(
        fmt::format("Do you really want to move a name of rank '{}' under a name of rank '{}'?",
                    GetRankName(database, moved.rank()), GetRankName(database, target.rank())),
        "Confirm Drop");
}

// The form must show the name that moves: what was cut need not be the current record any more. False when
// the user stays on the unsaved one.
bool RecView::BringUp(const cBioList& moved) {
    if (moved.qb_id() == state_.currentTaxon.qb_id) return true;
    if (AskLoseChanges()) return false;
    SelectExplorerItem(AsItem(moved), false);
    return true;
}

void RecView::ChangeTaxonParent(const cBioList* newParent) {
    TaxonTab& tab = controls_.taxon;
    if (UsageIsInvalid(state_.currentTaxon.usage)) return;
    const std::string rank = newParent == nullptr ? "" : GetRankName(*state_.gDatabase, newParent->rank());
    // A rank that the record's own rank does not allow was confirmed before.
    if (!rank.empty() && tab.cboDPRank.FindText(rank) < 0) tab.cboDPRank.AddItem(rank, newParent->rank());
    tab.cboDPRank.SetText(rank);
    if (!rank.empty()) lists_.FillParentNameList();
    tab.cboParentName.SetText(newParent == nullptr ? ""
                                                   : ReadName(*state_.gDatabase, newParent->qb_id()).name);
    state_.RecordDirty = true;
}

void RecView::UpdateSynonymLink(const cBioList* newAccepted, const cBioList* oldAccepted) {
    GridControl& grid = controls_.synonyms.grdSynonyms;
    const int oldRow = oldAccepted == nullptr ? -1 : RowOf(grid, oldAccepted->qb_id());
    if (oldRow >= 0) grid.RemoveRow(static_cast<std::size_t>(oldRow));
    if (newAccepted != nullptr) {
        const NameAndTsn accepted = ReadName(*state_.gDatabase, newAccepted->qb_id());
        GridControl::Row row(grid.Columns().size());
        row[SynonymColumn::kName] = accepted.nameAndAuthor;
        row[SynonymColumn::kQbId] = std::to_string(newAccepted->qb_id());
        row[SynonymColumn::kTsn] = accepted.tsn == 0 ? "" : std::to_string(accepted.tsn);
        row[SynonymColumn::kType] = "A";
        std::vector<GridControl::Row> rows = grid.Rows();
        const int place = RowOf(grid, newAccepted->qb_id());
        if (place >= 0) {
            rows[static_cast<std::size_t>(place)] = std::move(row);
        } else {
            // The grid's last row is the empty one.
            const auto end = static_cast<std::ptrdiff_t>(rows.size()) - 1;
            rows.insert(rows.begin() + (oldRow >= 0 ? oldRow : end), std::move(row));
        }
        grid.SetRows(std::move(rows));
    }
    state_.RecordDirty = true;
}

}  // namespace quillon::editor
