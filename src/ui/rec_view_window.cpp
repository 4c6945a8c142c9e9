#include "ui/rec_view_window.h"

#include <QtWidgets>
#include <algorithm>

#include "ui/access_keys.h"
#include "ui/binder.h"
#include "ui/explorer_view.h"
#include "ui/guard.h"
#include "ui/icons.h"
#include "ui/pages/comment_page.h"
#include "ui/pages/distribution_page.h"
#include "ui/pages/documentation_page.h"
#include "ui/pages/synonym_page.h"
#include "ui/pages/taxon_page.h"
#include "ui/pages/vernacular_page.h"
#include "ui/rec_view_commands.h"
#include "ui/text_convert.h"

namespace quillon::ui {

namespace {

constexpr int kExplorerMinimum = 24;  // average characters
constexpr int kEditorMinimum = 44;
constexpr int kExplorerWidth = 76;
constexpr int kEditorWidth = 128;
constexpr int kHeight = 124;
constexpr int kModeWidth = 48;     // 720 twips
constexpr int kNoteLasts = 10000;  // milliseconds

// In the order of the tabs.
using BuildPage = QWidget* (*)(QWidget*);
constexpr BuildPage kPages[] = {BuildTaxonPage,        BuildVernacularPage, BuildSynonymPage,
                                BuildDistributionPage, BuildCommentPage,    BuildPublicationPage,
                                BuildExpertPage,       BuildOtherSourcePage};

// The commands of the explorer's context menu; "-" for a separator.
constexpr const char* kExplorerMenu[] = {"mnuAdd",   "mnuCopy", "-",          "mnuECut", "mnuPaste",
                                         "mnuEUndo", "-",       "mnuEDelete", "-",       "mnuParent"};

}  // namespace

RecViewWindow::RecViewWindow(editor::RecView& recView, navigation::cExplorer& explorer)
    : recView_(recView), explorer_(explorer) {
    setObjectName("RecView");
    setWindowIcon(Icon("quillon"));
    BuildCommands(*this);
    BuildBody();
    BuildStatusBar();
    Bind(recView_.Controls().form, *this);
    AssignAccessKeys(*this);
    recView_.Attach(explorer_);
    ConnectForm();
    ConnectKeys();
    ShowView();
    ShowPage();
    const int character = fontMetrics().averageCharWidth();
    resize((QSize(kExplorerWidth + kEditorWidth, kHeight) * character).boundedTo(Room()));
    // On a narrow screen the explorer starts smaller.
    const int most = character * kExplorerWidth;
    const int beside = std::clamp(width() - EditorWidth(), explorerView_->minimumWidth(), most);
    splitter_->setSizes({beside, width() - beside});
}

// The width at which the editor shows the page without horizontal scrolling.
int RecViewWindow::EditorWidth() const {
    const QMargins margins = editor_->layout()->contentsMargins();
    return scroller_->widget()->minimumSizeHint().width() + 2 * scroller_->frameWidth() +
           scroller_->verticalScrollBar()->sizeHint().width() + margins.left() + margins.right();
}

// The size of the screen without the frame and title bar of the window.
QSize RecViewWindow::Room() const {
    const int frame = style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
    const int title = style()->pixelMetric(QStyle::PM_TitleBarHeight);
    return screen()->availableSize() - QSize(2 * frame, title + frame);
}

// The form outlives the window and must no longer call it.
RecViewWindow::~RecViewWindow() {
    recView_.ReselectLater.Disconnect(reselection_);
    recView_.Controls().form.RemoveClosedObserver(closing_);
}

// A note covers the name for a while; the other panels stay visible.
void RecViewWindow::BuildStatusBar() {
    const auto panel = [this](const char* name, int stretch) {
        auto* label = new QLabel(this);
        label->setObjectName(name);
        label->setTextFormat(Qt::PlainText);
        label->setContentsMargins(6, 0, 6, 0);
        if (stretch > 0) {
            statusBar()->addWidget(label, stretch);
        } else {
            statusBar()->addPermanentWidget(label);
        }
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
    splitter_ = new QSplitter(this);
    splitter_->setObjectName("Splitter");
    splitter_->setChildrenCollapsible(false);
    BuildExplorer();
    editor_ = BuildEditor();
    const int character = fontMetrics().averageCharWidth();
    explorerView_->setMinimumWidth(character * kExplorerMinimum);
    editor_->setMinimumWidth(character * kEditorMinimum);
    splitter_->addWidget(explorerView_);
    splitter_->addWidget(editor_);
    splitter_->setStretchFactor(1, 1);
    setCentralWidget(splitter_);
}

// A narrower window shrinks the explorer while the page would otherwise have to scroll.
void RecViewWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    const QList<int> widths = splitter_->sizes();
    const int missing = std::min(EditorWidth() - widths[1], widths[0] - explorerView_->minimumWidth());
    if (missing > 0) splitter_->setSizes({widths[0] - missing, widths[1] + missing});
}

void RecViewWindow::BuildExplorer() {
    explorerView_ = new ExplorerView(explorer_, this);
    QList<QAction*> commands;
    for (const QString name : kExplorerMenu) commands << (name == "-" ? nullptr : findChild<QAction*>(name));
    explorerView_->SetContextActions(commands);
    recView_.Note.Connect(
        [this](const std::string& text) { statusBar()->showMessage(ToQt(text), kNoteLasts); });
    Connect(explorerView_, &ExplorerView::Noted, this,
            [this](const QString& text) { statusBar()->showMessage(text, kNoteLasts); });
}

QWidget* RecViewWindow::BuildEditor() {
    auto* editor = new QWidget(this);
    tabs_ = new QTabBar(editor);
    tabs_->setObjectName("TabStrip1");
    tabs_->setAccessibleName(tr("Record"));
    tabs_->setDrawBase(false);
    tabs_->setExpanding(false);
    QWidget* pages = BuildPages();
    auto* save = new QPushButton(editor);  // after the pages, as in the order of the Tab key
    save->setObjectName("cmdOK");
    auto* layout = new QVBoxLayout(editor);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->setSpacing(0);
    layout->addWidget(tabs_);
    layout->addWidget(pages, 1);
    layout->addSpacing(4);
    layout->addWidget(save, 0, Qt::AlignRight);
    return editor;
}

// All pages are in one scrolling area, which shows one of them.
QWidget* RecViewWindow::BuildPages() {
    scroller_ = new QScrollArea(this);
    scroller_->setFrameShape(QFrame::StyledPanel);
    scroller_->setFocusPolicy(Qt::NoFocus);
    scroller_->setWidgetResizable(true);
    scroller_->horizontalScrollBar()->setObjectName("HScroll1");
    scroller_->verticalScrollBar()->setObjectName("VScroll1");
    auto* area = new QWidget;
    auto* layout = new QVBoxLayout(area);
    layout->setContentsMargins(0, 0, 0, 0);
    for (const BuildPage build : kPages) {
        QWidget* page = build(area);
        pages_.push_back(page);
        page->setObjectName(QString("RVPanel%1").arg(pages_.size()));
        MarkAsPage(*page);
        page->hide();
        layout->addWidget(page);
    }
    scroller_->setWidget(area);
    return scroller_;
}

void RecViewWindow::ConnectForm() {
    editor::RecViewForm& form = recView_.Controls();
    reselection_ = recView_.ReselectLater.Connect(
        [this](int id) { Later(this, [this, id] { explorer_.Reselect(id); }); });
    form.hierarchy.Observe([guard = QPointer<RecViewWindow>(this)] {
        if (guard) Guard([&] { guard->ShowView(); });
    });
    form.TabStrip1.Observe([guard = QPointer<RecViewWindow>(this)] {
        if (guard) Guard([&] { guard->ShowPage(); });
    });
    closing_ = form.form.OnClosed([this] {
        mayClose_ = true;
        close();
    });
}

void RecViewWindow::ConnectKeys() {
    const auto key = [this](const QKeySequence& keys, auto run) {
        Connect(new QShortcut(keys, this), &QShortcut::activated, this, run);
    };
    key(Qt::Key_F6, [this] { MoveFocus(); });
    key(Qt::Key_F2, [this] { Guard([this] { recView_.GoToName(); }); });
    for (int tab = 0; tab < tabs_->count(); ++tab)
        key(QKeySequence(Qt::ALT | static_cast<Qt::Key>(Qt::Key_1 + tab)),
            [this, tab] { tabs_->setCurrentIndex(tab); });
    key(Qt::CTRL | Qt::Key_PageUp, [this] { TurnTab(-1); });
    key(Qt::CTRL | Qt::Key_PageDown, [this] { TurnTab(1); });
}

void RecViewWindow::ShowView() {
    explorerView_->ShowHierarchy(recView_.Controls().hierarchy.Value());
}

// A page is never smaller than its size hint: the area scrolls instead.
void RecViewWindow::ShowPage() {
    const int index = recView_.Controls().TabStrip1.SelectedIndex();
    if (std::exchange(page_, index) == index) return;
    for (QWidget* page : pages_) page->setVisible(page == pages_[static_cast<std::size_t>(index - 1)]);
    QWidget* page = pages_[static_cast<std::size_t>(index - 1)];
    page->setMinimumSize(page->minimumSize().expandedTo(page->sizeHint()));
    scroller_->horizontalScrollBar()->setValue(0);
    scroller_->verticalScrollBar()->setValue(0);
}

void RecViewWindow::TurnTab(int step) {
    const int wanted = tabs_->currentIndex() + step;
    if (wanted >= 0 && wanted < tabs_->count()) tabs_->setCurrentIndex(wanted);
}

// Moves the focus from the explorer to the editor and back.
void RecViewWindow::MoveFocus() {
    QWidget* view = explorerView_->CurrentView();
    if (!view->hasFocus()) return view->setFocus(Qt::ShortcutFocusReason);
    QWidget* field = FirstField();
    (field != nullptr ? field : tabs_)->setFocus(Qt::ShortcutFocusReason);
}

// The first field of the page in tab order; nullptr when there is none.
QWidget* RecViewWindow::FirstField() const {
    QWidget* page = pages_[static_cast<std::size_t>(page_ - 1)];
    for (QWidget* at = page->nextInFocusChain(); at != page; at = at->nextInFocusChain()) {
        const bool takesTab = (at->focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
        if (page->isAncestorOf(at) && takesTab && at->isVisible() && at->isEnabled()) return at;
    }
    return nullptr;
}

bool RecViewWindow::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate && !std::exchange(activated_, true))
        explorerView_->CurrentView()->setFocus(Qt::ActiveWindowFocusReason);
    return QMainWindow::event(event);
}

void RecViewWindow::closeEvent(QCloseEvent* event) {
    if (!mayClose_) {
        Guard([this] { recView_.Controls().form.UserClose(); });
        if (!mayClose_) return event->ignore();
    }
    event->accept();
}

}  // namespace quillon::ui
