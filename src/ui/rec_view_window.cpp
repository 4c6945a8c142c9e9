#include "ui/rec_view_window.h"

#include <QtWidgets>

#include "ui/alpha_view.h"
#include "ui/binder.h"
#include "ui/icons.h"
#include "ui/list_model.h"
#include "ui/rec_view_commands.h"
#include "ui/text_convert.h"
#include "ui/tree_model.h"

namespace quillon::ui {

namespace {

constexpr int kExplorerMinimum = 24;  // average characters
constexpr int kEditorMinimum = 44;
constexpr int kModeWidth = 48;  // 720 twips
constexpr std::chrono::milliseconds kTypedTextEnds(1500);

// A little air between the lines of the explorer.
class AiryLines : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, option.fontMetrics.height() / 3);
    }
};

}  // namespace

RecViewWindow::RecViewWindow(editor::RecView& recView, navigation::cExplorer& explorer)
    : recView_(recView), explorer_(explorer) {
    setObjectName("RecView");
    setWindowIcon(Icon("quillon"));
    BuildCommands(*this);
    BuildBody();
    BuildStatusBar();
    ConnectTree();
    ConnectList();
    Bind(recView_.Controls().form, *this);
    ConnectForm();
    ShowView();
    const int character = fontMetrics().averageCharWidth();
    resize(character * 196, character * 115);
}

// The explorer and the form outlive the window and must not call it any more.
RecViewWindow::~RecViewWindow() {
    explorer_.ItemSelected = nullptr;
    explorer_.ListMoved = nullptr;
    explorer_.StartListTimer = nullptr;
    recView_.ReselectLater = nullptr;
    recView_.Controls().form.OnClosed(nullptr);
}

void RecViewWindow::BuildStatusBar() {
    const auto panel = [this](const char* name, int stretch) {
        auto* label = new QLabel(this);
        label->setObjectName(name);
        label->setTextFormat(Qt::PlainText);
        label->setContentsMargins(6, 0, 6, 0);
        statusBar()->addPermanentWidget(label, stretch);
        return label;
    };
    statusBar()->setObjectName("StatusBar1");
    QLabel* name = panel("name", 1);
    name->setMinimumWidth(33);
    name->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    panel("taxa", 0);
    QLabel* mode = panel("mode", 0);
    mode->setAlignment(Qt::AlignCenter);
    mode->setFixedWidth(std::max(kModeWidth, mode->fontMetrics().horizontalAdvance("INPUT") + 16));
}

void RecViewWindow::BuildBody() {
    auto* splitter = new QSplitter(this);
    splitter->setObjectName("Splitter");
    splitter->setChildrenCollapsible(false);
    QWidget* explorer = BuildExplorer();
    QWidget* editor = BuildEditor();
    const int character = fontMetrics().averageCharWidth();
    explorer->setMinimumWidth(character * kExplorerMinimum);
    editor->setMinimumWidth(character * kEditorMinimum);
    splitter->addWidget(explorer);
    splitter->addWidget(editor);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({character * 68, character * 128});
    setCentralWidget(splitter);
}

QWidget* RecViewWindow::BuildExplorer() {
    views_ = new QStackedWidget(this);
    tree_ = new QTreeView(views_);
    tree_->setObjectName("HierView");
    tree_->setAccessibleName(tr("Hierarchy"));
    tree_->setHeaderHidden(true);
    tree_->setUniformRowHeights(true);
    tree_->header()->setStretchLastSection(false);
    tree_->header()->setResizeContentsPrecision(0);  // as wide as the rows on show
    tree_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    tree_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list_ = new AlphaView(views_);
    list_->setObjectName("AlphaView");
    list_->setAccessibleName(tr("Alphabetical List"));
    tree_->setItemDelegate(new AiryLines(tree_));
    list_->setItemDelegate(new AiryLines(list_));
    views_->addWidget(tree_);
    views_->addWidget(list_);
    return views_;
}

QWidget* RecViewWindow::BuildEditor() {
    auto* editor = new QWidget(this);
    tabs_ = new QTabBar(editor);
    tabs_->setObjectName("TabStrip1");
    tabs_->setAccessibleName(tr("Record"));
    tabs_->setDrawBase(false);
    tabs_->setExpanding(false);
    pages_ = new QStackedWidget(editor);
    pages_->setFrameShape(QFrame::StyledPanel);
    const std::size_t count = recView_.Controls().TabStrip1.Tabs().size();
    pages_->addWidget(BuildTaxonTab());
    for (std::size_t i = 2; i <= count; ++i) {
        auto* page = new QWidget(pages_);
        page->setObjectName(QString("RVPanel%1").arg(i));
        pages_->addWidget(page);
    }
    auto* layout = new QVBoxLayout(editor);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->setSpacing(0);
    layout->addWidget(tabs_);
    layout->addWidget(pages_, 1);
    auto* save = new QPushButton(editor);
    save->setObjectName("cmdOK");
    layout->addSpacing(4);
    layout->addWidget(save, 0, Qt::AlignRight);
    return editor;
}

QWidget* RecViewWindow::BuildTaxonTab() {
    auto* panel = new QWidget;
    panel->setObjectName("RVPanel1");
    auto* layout = new QFormLayout(panel);
    layout->setContentsMargins(20, 20, 20, 20);
    layout->setHorizontalSpacing(16);
    layout->setVerticalSpacing(10);
    layout->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    layout->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    for (const char* field : {"SciName", "Rank", "Author", "Usage", "Parent"}) {
        auto* edit = new QLineEdit(panel);
        edit->setObjectName(QString("txt") + field);
        auto* label = new QLabel(panel);
        label->setObjectName(QString("lbl") + field);
        label->setBuddy(edit);
        layout->addRow(label, edit);
    }
    auto* name = panel->findChild<QLineEdit*>("txtSciName");
    QFont font = name->font();
    font.setItalic(true);
    font.setPointSizeF(font.pointSizeF() * 1.2);
    name->setFont(font);
    auto* scroller = new QScrollArea(pages_);
    scroller->setWidget(panel);
    scroller->setWidgetResizable(true);
    scroller->setFrameShape(QFrame::NoFrame);
    scroller->setFocusPolicy(Qt::NoFocus);
    return scroller;
}

void RecViewWindow::ConnectTree() {
    treeModel_ = new TreeModel(explorer_.TreeV(), this);
    tree_->setModel(treeModel_);
    connect(tree_, &QTreeView::expanded, this, [this](const QModelIndex& index) {
        navigation::TreeNode* node = treeModel_->NodeOf(index);
        if (!node->Expanded()) explorer_.ExpandNode(node);
    });
    connect(tree_, &QTreeView::collapsed, this, [this](const QModelIndex& index) {
        explorer_.TreeV().SetExpanded(treeModel_->NodeOf(index), false);
    });
    connect(treeModel_, &TreeModel::NodeExpanded, tree_, &QTreeView::setExpanded);
    connect(treeModel_, &TreeModel::NodeSelected, this, [this](const QModelIndex& index) {
        tree_->setCurrentIndex(index);
        if (index.isValid()) tree_->scrollTo(index);
    });
    connect(tree_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& index) {
                navigation::TreeNode* node = treeModel_->NodeOf(index);
                if (node == nullptr || treeModel_->IsChanging() || node == explorer_.TreeV().Selected())
                    return;
                clicked_ = node;
                explorer_.NodeClick(node);
            });
    connect(tree_, &QTreeView::clicked, this, [this](const QModelIndex& index) {
        navigation::TreeNode* node = treeModel_->NodeOf(index);
        if (std::exchange(clicked_, nullptr) != node) explorer_.NodeClick(node);
    });
}

void RecViewWindow::ConnectList() {
    listModel_ = new ListModel(explorer_.ListV(), this);
    list_->setModel(listModel_);
    listTimer_.setSingleShot(true);
    listTimer_.setInterval(kTypedTextEnds);
    connect(&listTimer_, &QTimer::timeout, this, [this] { explorer_.ListTimer(); });
    explorer_.StartListTimer = [this] { listTimer_.start(); };
    explorer_.ListMoved = [this](int id) { ShowListRow(id); };
    connect(listModel_, &ListModel::RowsArrived, this, [this] {
        if (!list_->currentIndex().isValid()) ShowListRow(explorer_.ListId());
    });
    connect(list_, &AlphaView::KeyTyped, this,
            [this](const QString& key) { explorer_.ListKeyPress(FromQt(key)); });
    connect(list_, &QListView::clicked, this, [this](const QModelIndex& index) {
        explorer_.ListClick(navigation::cExplorer::ListArea::List, listModel_->IdAt(index));
    });
    connect(list_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& index) {
                if (index.isValid()) explorer_.SetListId(listModel_->IdAt(index));
            });
}

void RecViewWindow::ConnectForm() {
    editor::RecViewForm& form = recView_.Controls();
    explorer_.ItemSelected = [this](const navigation::cExplorer::Item& item) {
        recView_.SelectExplorerItem({item->qb_id(), item->NumChildren(), item->NumDescendants()}, true);
    };
    recView_.ReselectLater = [this](int id) { QTimer::singleShot(0, this, [this, id] { Reselect(id); }); };
    form.hierarchy.Observe([guard = QPointer<RecViewWindow>(this)] {
        if (guard) guard->ShowView();
    });
    form.TabStrip1.Observe([guard = QPointer<RecViewWindow>(this)] {
        if (guard) guard->pages_->setCurrentIndex(guard->recView_.Controls().TabStrip1.SelectedIndex() - 1);
    });
    form.form.OnClosed([this] {
        mayClose_ = true;
        close();
    });
    auto* other = new QShortcut(QKeySequence(Qt::Key_F6), this);
    connect(other, &QShortcut::activated, this, &RecViewWindow::MoveFocus);
    QWidget::setTabOrder(list_, tabs_);
}

void RecViewWindow::ShowView() {
    const bool isTree = recView_.Controls().hierarchy.Value();
    views_->setCurrentWidget(isTree ? static_cast<QWidget*>(tree_) : list_);
    if (!isTree) ShowListRow(explorer_.ListId());
}

void RecViewWindow::ShowListRow(int qb_id) {
    if (qb_id == 0 || !list_->isVisible()) return;
    const QModelIndex index = listModel_->IndexOf(qb_id);
    if (!index.isValid()) return;
    list_->setCurrentIndex(index);
    list_->scrollTo(index, QAbstractItemView::EnsureVisible);
}

// From the explorer to the editor and back.
void RecViewWindow::MoveFocus() {
    QWidget* view = views_->currentWidget();
    if (!view->hasFocus()) return view->setFocus(Qt::ShortcutFocusReason);
    QWidget* field = pages_->currentWidget()->findChild<QLineEdit*>();
    (field != nullptr ? field : tabs_)->setFocus(Qt::ShortcutFocusReason);
}

void RecViewWindow::Reselect(int qb_id) {
    if (navigation::TreeNode* node = explorer_.ExpandContainingSubtree(qb_id)) explorer_.HiliteNode(node);
}

void RecViewWindow::closeEvent(QCloseEvent* event) {
    if (!mayClose_) {
        recView_.Controls().form.UserClose();
        if (!mayClose_) return event->ignore();
    }
    event->accept();
}

}  // namespace quillon::ui
