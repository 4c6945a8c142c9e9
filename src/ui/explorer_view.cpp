#include "ui/explorer_view.h"

#include <QtWidgets>
#include <utility>

#include "ui/alpha_view.h"
#include "ui/guard.h"
#include "ui/hier_view.h"
#include "ui/list_model.h"
#include "ui/text_convert.h"
#include "ui/tree_model.h"

namespace quillon::ui {

namespace {

constexpr std::chrono::milliseconds kTypedTextEnds(1500);

// Adds space between the lines.
class AiryLines : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, option.fontMetrics.height() / 3);
    }
};

}  // namespace

ExplorerView::ExplorerView(navigation::cExplorer& explorer, QWidget* parent)
    : QWidget(parent), explorer_(explorer) {
    BuildViews();
    ConnectTree();
    ConnectTreeSelection();
    ConnectList();
    ConnectListRows();
    ShowHierarchy(true);
}

// The explorer outlives the view and must not call it any more.
ExplorerView::~ExplorerView() {
    explorer_.ListMoved = nullptr;
    explorer_.StartListTimer = nullptr;
    explorer_.Note = nullptr;
}

void ExplorerView::BuildViews() {
    tree_ = new HierView(explorer_, this);
    list_ = new AlphaView(this);
    list_->setObjectName("AlphaView");
    list_->setAccessibleName(tr("Alphabetical List"));
    list_->setItemDelegate(new AiryLines(list_));
    views_ = new QStackedLayout(this);
    views_->setContentsMargins(0, 0, 0, 0);
    views_->addWidget(tree_);
    views_->addWidget(list_);
}

void ExplorerView::ConnectTree() {
    treeModel_ = new TreeModel(explorer_.TreeV(), this);
    tree_->SetTreeModel(treeModel_);
    Connect(tree_, &QTreeView::expanded, this, [this](const QModelIndex& index) {
        navigation::TreeNode* node = treeModel_->NodeOf(index);
        if (!node->Expanded()) explorer_.ExpandNode(node);
    });
    Connect(tree_, &QTreeView::collapsed, this, [this](const QModelIndex& index) {
        navigation::TreeNode* node = treeModel_->NodeOf(index);
        if (node->Expanded()) explorer_.CollapseNode(node);
    });
    Connect(treeModel_, &TreeModel::NodeExpanded, tree_, &HierView::SetOpen);
    explorer_.Note = [this](std::string_view text) { emit Noted(ToQt(text)); };
    Connect(treeModel_, &TreeModel::NodeMadeVisible, tree_,
            [this](const QModelIndex& index) { tree_->Reveal(index); });
}

void ExplorerView::ConnectTreeSelection() {
    Connect(treeModel_, &TreeModel::NodeSelected, this, [this](const QModelIndex& index) {
        tree_->setCurrentIndex(index);
        if (index.isValid()) tree_->Reveal(index);
    });
    Connect(tree_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& index) {
                navigation::TreeNode* node = treeModel_->NodeOf(index);
                if (node == nullptr || treeModel_->IsChanging() || node == explorer_.TreeV().Selected())
                    return;
                clicked_ = node;
                explorer_.NodeClick(node);
            });
    Connect(tree_, &QTreeView::clicked, this, [this](const QModelIndex& index) {
        navigation::TreeNode* node = treeModel_->NodeOf(index);
        if (std::exchange(clicked_, nullptr) != node) explorer_.NodeClick(node);
    });
}

void ExplorerView::ConnectList() {
    listModel_ = new ListModel(explorer_.ListV(), this);
    list_->setModel(listModel_);
    listTimer_.setSingleShot(true);
    listTimer_.setInterval(kTypedTextEnds);
    Connect(&listTimer_, &QTimer::timeout, this, [this] { explorer_.ListTimer(); });
    explorer_.StartListTimer = [this] { listTimer_.start(); };
    explorer_.ListMoved = [this](int id) { ShowListRow(id); };
    Connect(list_, &AlphaView::KeyTyped, this,
            [this](const QString& key) { explorer_.ListKeyPress(FromQt(key)); });
    Connect(list_, &QListView::clicked, this, [this](const QModelIndex& index) {
        explorer_.ListClick(navigation::cExplorer::ListArea::List, listModel_->IdAt(index));
    });
    Connect(list_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& index) {
                if (index.isValid() && listModel_->IdAt(index) != explorer_.ListId())
                    explorer_.SetListId(listModel_->IdAt(index));
            });
}

// When rows change during reading, keeps the current taxon at the same place in the view.
void ExplorerView::ConnectListRows() {
    Connect(listModel_, &QAbstractItemModel::modelAboutToBeReset, this, [this] {
        const QModelIndex current = list_->currentIndex(), top = list_->indexAt(QPoint(0, 0));
        rowsAboveCurrent_ = current.isValid() && top.isValid() ? current.row() - top.row() : -1;
    });
    Connect(listModel_, &ListModel::RowsArrived, this, [this] {
        if (list_->currentIndex().isValid()) return;
        ShowListRow(explorer_.ListId());
        const int above = std::exchange(rowsAboveCurrent_, -1);
        const QModelIndex current = list_->currentIndex();
        if (above < 0 || above > current.row()) return;
        list_->scrollTo(listModel_->index(current.row() - above), QAbstractItemView::PositionAtTop);
    });
}

void ExplorerView::ShowHierarchy(bool hierarchy) {
    const int current = explorer_.ListId();  // a list without a current row would select its first on focus
    explorer_.SetTreeVisible(hierarchy);
    const bool hadFocus = CurrentView()->hasFocus();
    views_->setCurrentWidget(hierarchy ? static_cast<QWidget*>(tree_) : list_);
    setFocusProxy(CurrentView());
    if (hadFocus) CurrentView()->setFocus();
    if (!hierarchy) ShowListRow(current);
}

QWidget* ExplorerView::CurrentView() const {
    return views_->currentWidget();
}

void ExplorerView::SetContextActions(const QList<QAction*>& actions) {
    actions_ = actions;
}

// The menu key opens the menu at the current row, not at the mouse.
void ExplorerView::contextMenuEvent(QContextMenuEvent* event) {
    if (!ChooseForMenu(*event)) return;
    QMenu menu(this);
    menu.setObjectName("ExplorerMenu");
    FillMenu(menu);
    if (menu.isEmpty()) return;
    const auto* view = static_cast<const QAbstractItemView*>(CurrentView());
    QPoint at = event->globalPos();
    if (event->reason() != QContextMenuEvent::Mouse && view->currentIndex().isValid())
        at = view->viewport()->mapToGlobal(view->visualRect(view->currentIndex()).bottomLeft());
    menu.exec(at);
}

// The commands work on the current record, so the row under the mouse, or the current row, becomes the record
// first. In the tree the press has already selected the node. False when the user stays on an unsaved record:
// a command would then work on another name than the marked one.
bool ExplorerView::ChooseForMenu(const QContextMenuEvent& event) {
    if (CurrentView() != list_) return true;
    const QModelIndex index = event.reason() == QContextMenuEvent::Mouse
                                  ? list_->indexAt(list_->viewport()->mapFromGlobal(event.globalPos()))
                                  : list_->currentIndex();
    if (!index.isValid()) return true;
    const int id = listModel_->IdAt(index);
    if (!explorer_.IsRecord(id)) explorer_.ListClick(navigation::cExplorer::ListArea::List, id);
    return explorer_.IsRecord(id);
}

void ExplorerView::FillMenu(QMenu& menu) const {
    for (QAction* action : actions_) {
        if (action == nullptr) {
            menu.addSeparator();
        } else if (action->isEnabled()) {
            menu.addAction(action);
        }
    }
}

void ExplorerView::ShowListRow(int qb_id) {
    if (qb_id == 0 || !list_->isVisible()) return;
    const QModelIndex index = listModel_->IndexOf(qb_id);
    if (!index.isValid()) return;
    list_->setCurrentIndex(index);
    list_->scrollTo(index, QAbstractItemView::EnsureVisible);
}

}  // namespace quillon::ui
