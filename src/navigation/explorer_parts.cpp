// Work done in parts: reading children, opening whole branches, reading names again, and long searches.
#include <algorithm>

#include <fmt/format.h>

#include "navigation/explorer.h"

namespace quillon::navigation {

namespace {

// A window lays out all its rows when some are added, so many children are added in few, growing groups.
constexpr std::size_t kLargestGroup = 8000;
constexpr std::size_t kOpeningsInAPart = 32;
constexpr std::size_t kChildrenLikeAnOpening = 64;  // take as long as opening one node
constexpr std::size_t kNamesInAPart = 1000;

}  // namespace

bool cExplorer::IsBusy() const {
    return isSearching_ || quest_ || !loads_.empty() || !openings_.empty() || !stale_.empty();
}

bool cExplorer::MayRead() const {
    return state_.gDatabase && state_.gDatabase->IsOpen() && !source_.engine.IsJobRunning();
}

void cExplorer::DoRestLater() {
    if (IsBusy() && StartIdleTimer) StartIdleTimer();
}

// Starts with what the user is waiting for.
bool cExplorer::Continue() {
    if (!IsBusy() || !MayRead()) return IsBusy();
    if (isSearching_) {
        if (list_.SearchOn(kRowsInAPart)) EndSearch();
    } else if (quest_ && Follow(*quest_, kOpeningsInAPart)) {
        EndQuest(*std::exchange(quest_, {}));
    } else if (!loads_.empty()) {
        const bool wasLast = IsLastSelected();
        LoadPart(loads_.size() - 1);
        if (wasLast && !IsLastSelected()) RaiseCurrentPos();
    } else if (!openings_.empty()) {
        OpenPart();
    } else if (!stale_.empty()) {
        RefreshPart();
    }
    return IsBusy();
}

void cExplorer::BeginLoad(TreeNode* node, const Item& item) {
    const auto level = node == nullptr ? ChildReader::Level::Top : ChildReader::Level::UnderTaxon;
    loads_.push_back({node, item, std::make_unique<ChildReader>(*item, level), {}});
    LoadPart(loads_.size() - 1);
}

bool cExplorer::IsLoading(const TreeNode* node) const {
    return std::any_of(loads_.begin(), loads_.end(), [=](const Load& load) { return load.node == node; });
}

void cExplorer::LoadPart(std::size_t place) {
    Load& load = loads_[place];
    const bool hasMore = load.reader->Step(kRowsInAPart, load.waiting);
    const std::size_t there = tree_.CountUnder(load.node);
    const std::size_t group = std::clamp(there / 2, std::size_t{1}, kLargestGroup);
    if (!hasMore || load.waiting.size() >= group) InsertWaiting(load);
    if (!hasMore) loads_.erase(loads_.begin() + static_cast<std::ptrdiff_t>(place));
}

// Skips a node that was moved there meanwhile.
void cExplorer::InsertWaiting(Load& load) {
    if (load.node != nullptr && load.node->HasPlaceholder()) tree_.Remove(load.node->Child(0));
    std::vector<TreeControl::NewNode> added;
    std::vector<Item> items;
    for (Item& item : load.waiting) {
        const TreeNode* there = FindNodeWithId(item->qb_id(), item->accepted());
        if (there != nullptr && there->Parent() == load.node) continue;
        added.push_back({item->Sciname(), PlaceholderOf(*item, load.node)});
        items.push_back(std::move(item));
    }
    load.waiting.clear();
    const std::size_t first = tree_.Append(load.node, added);
    for (std::size_t i = 0; i < items.size(); ++i)
        nodes_.Add(tree_.Under(load.node, first + i), std::move(items[i]));
}

// A taxon that is its own ancestor gets no placeholder there, because opening it would never end.
std::string_view cExplorer::PlaceholderOf(const cBioList& item, const TreeNode* parent) const {
    if (item.NumChildren() == 0) return {};
    if (FindNodeWithId(item.qb_id()) == nullptr) return kPlaceholder;
    while (parent != nullptr && FindIdOfNode(parent) != item.qb_id()) parent = parent->Parent();
    return parent == nullptr ? kPlaceholder : std::string_view();
}

void cExplorer::FinishLoads() {
    while (!loads_.empty()) LoadPart(loads_.size() - 1);
}

void cExplorer::ExpandBelow(TreeNode* node) {
    openings_ = {node};
    opened_ = 0;
    openedBelow_ = node->Text();
    OpenPart();
    RaiseCurrentPos();
    DoRestLater();
}

// A node whose children are still being read is tried again later.
void cExplorer::OpenPart() {
    for (std::size_t looked = 0; looked < kOpeningsInAPart && !openings_.empty(); ++looked) {
        TreeNode* node = openings_.front();
        if (!node->Expanded() && opened_ == kMostOpened) {
            openings_.clear();
            if (!Note) return;
            return Note(
                fmt::format("{} branches below {} were opened; there are more.", opened_, openedBelow_));
        }
        openings_.pop_front();
        if (!node->Expanded()) {
            if (!Open(node)) continue;
            ++opened_;
        }
        if (IsLoading(node)) {
            openings_.push_front(node);
            return;
        }
        looked += node->ChildCount() / kChildrenLikeAnOpening;
        for (std::size_t row = 0; row < node->ChildCount(); ++row)
            if (node->Child(row)->ChildCount() > 0) openings_.push_back(node->Child(row));
    }
    if (openings_.empty()) RaiseCurrentPos();
}

void cExplorer::RefreshNames() {
    list_.ForgetLines();
    if (!root_) return;
    stale_ = nodes_.Taxa();
    RefreshPart();
    DoRestLater();
}

void cExplorer::RefreshPart() {
    const std::size_t rest = stale_.size() - std::min(stale_.size(), kNamesInAPart);
    const std::vector<int> ids(stale_.begin() + static_cast<std::ptrdiff_t>(rest), stale_.end());
    stale_.resize(rest);
    std::vector<std::pair<TreeNode*, std::string>> texts;
    for (const auto& [id, name] : cBioList::NodeNames(source_, root_->dbname(), ids)) {
        for (TreeNode* node : nodes_.NodesOf(id)) {
            nodes_.ItemOf(node)->SetSciname(name);
            texts.emplace_back(node, name);
        }
    }
    tree_.SetTexts(texts);
}

}  // namespace quillon::navigation
