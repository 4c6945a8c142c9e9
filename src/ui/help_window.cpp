#include "ui/help_window.h"

#include <QtWidgets>
#include <algorithm>
#include <numeric>

#include "ui/guard.h"
#include "ui/help_style.h"
#include "ui/icons.h"

namespace quillon::ui {

namespace {

constexpr int kPageRole = Qt::UserRole;
enum Column { Title, Hits };

// Dark text on it is readable in every palette.
const QColor kHitColour(255, 224, 138);
const QColor kCurrentHitColour(255, 157, 60);

QTextEdit::ExtraSelection Mark(QTextDocument* document, const HelpHit& hit, bool isCurrent) {
    QTextEdit::ExtraSelection mark;
    mark.cursor = QTextCursor(document);
    mark.cursor.setPosition(hit.start);
    mark.cursor.setPosition(hit.start + hit.length, QTextCursor::KeepAnchor);
    mark.format.setBackground(isCurrent ? kCurrentHitColour : kHitColour);
    mark.format.setForeground(Qt::black);
    return mark;
}

QString Counted(qsizetype number, const char* one, const char* many) {
    return QString("%1 %2").arg(number).arg(number == 1 ? one : many);
}

bool HasShownChild(const QTreeWidgetItem& item) {
    for (int i = 0; i < item.childCount(); ++i)
        if (!item.child(i)->isHidden()) return true;
    return false;
}

}  // namespace

HelpWindow::HelpWindow(QWidget* parent) : QWidget(parent, Qt::Window) {
    setObjectName("HelpWindow");
    setWindowTitle("Taxonomic Quillon - Help");
    setWindowIcon(Icon("quillon"));
    auto* splitter = new QSplitter(this);
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(BuildLeft());
    splitter->addWidget(BuildRight());
    splitter->setStretchFactor(1, 1);
    const int character = fontMetrics().averageCharWidth();
    splitter->setSizes({character * 42, character * 108});
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(splitter);
    BuildActions();
    FillContents();
    ConnectAll();
    resize(character * 150, character * 100);
    ShowPage(kFirstHelpPage);
}

QWidget* HelpWindow::BuildLeft() {
    auto* left = new QWidget(this);
    search_ = new QLineEdit(left);
    search_->setObjectName("txtSearch");
    search_->setAccessibleName(tr("Search"));
    search_->setPlaceholderText(tr("Search all pages"));
    search_->setClearButtonEnabled(true);
    contents_ = new QTreeWidget(left);
    contents_->setObjectName("treContents");
    contents_->setAccessibleName(tr("Contents"));
    contents_->setColumnCount(2);
    contents_->setHeaderHidden(true);
    contents_->setRootIsDecorated(false);
    contents_->header()->setStretchLastSection(false);
    contents_->header()->setSectionResizeMode(Title, QHeaderView::Stretch);
    contents_->header()->setSectionResizeMode(Hits, QHeaderView::ResizeToContents);
    found_ = new QLabel(left);
    found_->setObjectName("lblFound");
    found_->hide();
    auto* layout = new QVBoxLayout(left);
    layout->setContentsMargins(6, 6, 0, 6);
    layout->addWidget(search_);
    layout->addWidget(contents_, 1);
    layout->addWidget(found_);
    return left;
}

QWidget* HelpWindow::BuildRight() {
    auto* right = new QWidget(this);
    auto* bar = new QToolBar(right);
    bar->setObjectName("TBarHelp");
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    page_ = new QTextBrowser(right);
    page_->setObjectName("txtPage");
    page_->setAccessibleName(tr("Page"));
    page_->setOpenExternalLinks(false);
    auto* layout = new QVBoxLayout(right);
    layout->setContentsMargins(0, 6, 6, 6);
    layout->setSpacing(4);
    layout->addWidget(bar);
    layout->addWidget(page_, 1);
    return right;
}

QAction* HelpWindow::MakeAction(const char* name, const char* icon, const QString& text,
                                const QKeySequence& keys) {
    auto* action = new QAction(Icon(icon), text, this);
    action->setObjectName(name);
    action->setShortcut(keys);
    action->setToolTip(QString("%1 (%2)").arg(text, keys.toString(QKeySequence::NativeText)));
    findChild<QToolBar*>("TBarHelp")->addAction(action);
    return action;
}

void HelpWindow::BuildActions() {
    back_ = MakeAction("back", "moveprev", tr("Back"), Qt::ALT | Qt::Key_Left);
    forward_ = MakeAction("forward", "movenext", tr("Forward"), Qt::ALT | Qt::Key_Right);
    first_ = MakeAction("first", "hierarchy", tr("Contents"), Qt::ALT | Qt::Key_Home);
    const auto shortcut = [this](const QKeySequence& keys, const std::function<void()>& act) {
        Connect(new QShortcut(keys, this), &QShortcut::activated, this, act);
    };
    shortcut(Qt::CTRL | Qt::Key_F, [this] { FocusSearch(); });
    shortcut(Qt::Key_F3, [this] { Step(true); });
    shortcut(Qt::SHIFT | Qt::Key_F3, [this] { Step(false); });
    shortcut(Qt::Key_F6, [this] { SwitchSides(); });
    shortcut(Qt::Key_Escape, [this] { Escape(); });
}

void HelpWindow::FillContents() {
    QList<QTreeWidgetItem*> above = {contents_->invisibleRootItem()};
    for (const HelpEntry& entry : pages_.Contents()) {
        above.resize(std::min<qsizetype>(entry.level + 1, above.size()));
        auto* item = new QTreeWidgetItem(above.back(), {entry.title});
        item->setData(Title, kPageRole, entry.page);
        item->setSizeHint(Title, {0, contents_->fontMetrics().height() * 4 / 3});
        item->setTextAlignment(Hits, Qt::AlignRight | Qt::AlignVCenter);
        if (entry.page.isEmpty()) {
            item->setFlags(Qt::ItemIsEnabled);
            QFont bold = contents_->font();
            bold.setBold(true);
            item->setFont(Title, bold);
        }
        above.append(item);
    }
    contents_->expandAll();
}

void HelpWindow::ConnectAll() {
    Connect(page_, &QTextBrowser::sourceChanged, this, &HelpWindow::PageShown);
    Connect(page_, &QTextBrowser::backwardAvailable, back_, &QAction::setEnabled);
    Connect(page_, &QTextBrowser::forwardAvailable, forward_, &QAction::setEnabled);
    Connect(back_, &QAction::triggered, page_, &QTextBrowser::backward);
    Connect(forward_, &QAction::triggered, page_, &QTextBrowser::forward);
    Connect(first_, &QAction::triggered, this, [this] { ShowPage(kFirstHelpPage); });
    Connect(contents_, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem* item) {
        if (item == nullptr) return;
        const QString page = item->data(Title, kPageRole).toString();
        if (!page.isEmpty()) ShowPage(page);
    });
    Connect(search_, &QLineEdit::textChanged, this, &HelpWindow::Search);
    Connect(search_, &QLineEdit::returnPressed, this, [this] { Step(true); });
    back_->setEnabled(false);
    forward_->setEnabled(false);
}

void HelpWindow::ShowPage(const QString& page) {
    const QString wanted = pages_.TitleOf(page).isEmpty() ? kFirstHelpPage : page;
    if (wanted != shownPage_) page_->setSource(HelpUrl(wanted));
}

void HelpWindow::FocusContents() {
    contents_->setFocus(Qt::OtherFocusReason);
}

void HelpWindow::FocusSearch() {
    search_->setFocus(Qt::OtherFocusReason);
    search_->selectAll();
}

// A page must be styled again after a change of the palette.
void HelpWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && page_ != nullptr) page_->reload();
}

QTreeWidgetItem* HelpWindow::ItemOf(const QString& page) const {
    for (QTreeWidgetItemIterator item(contents_); *item != nullptr; ++item)
        if ((*item)->data(Title, kPageRole).toString() == page) return *item;
    return nullptr;
}

void HelpWindow::PageShown(const QUrl& address) {
    shownPage_ = HelpPageAt(address);  // the browser's own source() follows later
    StylePage(*page_->document(), palette());
    const QSignalBlocker quiet(contents_);
    contents_->setCurrentItem(ItemOf(shownPage_));
    hit_ = -1;
    MarkHits();
}

void HelpWindow::Search() {
    const QStringList words = HelpWords(search_->text());
    QList<qsizetype> counts;
    for (const HelpEntry& entry : pages_.Contents())
        counts.append(entry.page.isEmpty() ? 0 : HelpHits(pages_.TextOf(entry.page), words).size());
    ShowCounts(counts);
    hit_ = -1;
    MarkHits();
}

void HelpWindow::ShowCounts(const QList<qsizetype>& counts) {
    const bool isSearch = !HelpWords(search_->text()).isEmpty();
    QList<QTreeWidgetItem*> items;
    for (QTreeWidgetItemIterator item(contents_); *item != nullptr; ++item) items.append(*item);
    for (qsizetype i = items.size() - 1; i >= 0; --i) {
        items[i]->setText(Hits, counts[i] > 0 ? QString::number(counts[i]) : QString());
        items[i]->setHidden(isSearch && counts[i] == 0 && !HasShownChild(*items[i]));
    }
    const qsizetype total = std::accumulate(counts.begin(), counts.end(), qsizetype(0));
    const auto withHits =
        std::count_if(counts.begin(), counts.end(), [](qsizetype count) { return count > 0; });
    found_->setVisible(isSearch);
    found_->setText(!isSearch ? QString()
                    : total == 0
                        ? tr("Nothing found")
                        : Counted(total, "hit", "hits") + " on " + Counted(withHits, "page", "pages"));
}

void HelpWindow::MarkHits() {
    hits_ = HelpHits(page_->document()->toPlainText(), HelpWords(search_->text()));
    QList<QTextEdit::ExtraSelection> marks;
    for (qsizetype i = 0; i < hits_.size(); ++i) marks.append(Mark(page_->document(), hits_[i], i == hit_));
    page_->setExtraSelections(marks);
}

void HelpWindow::ShowHit(qsizetype hit) {
    hit_ = hit;
    MarkHits();
    QTextCursor cursor(page_->document());
    cursor.setPosition(hits_[hit].start);
    page_->setTextCursor(cursor);
    page_->ensureCursorVisible();
}

void HelpWindow::Step(bool forward) {
    const qsizetype next = forward ? hit_ + 1 : hit_ - 1;
    if (next >= 0 && next < hits_.size()) return ShowHit(next);
    StepToPage(forward);
}

void HelpWindow::StepToPage(bool forward) {
    const QStringList words = HelpWords(search_->text());
    const QStringList pages = pages_.Pages();
    const qsizetype count = pages.size();
    const qsizetype here = std::max<qsizetype>(pages.indexOf(shownPage_), 0);
    for (qsizetype step = 1; step <= count; ++step) {
        const QString& page = pages[(here + (forward ? step : count - step)) % count];
        if (HelpHits(pages_.TextOf(page), words).isEmpty()) continue;
        ShowPage(page);
        return ShowHit(forward ? 0 : hits_.size() - 1);
    }
}

void HelpWindow::SwitchSides() {
    QWidget* other = page_->hasFocus() ? static_cast<QWidget*>(contents_) : page_;
    other->setFocus(Qt::ShortcutFocusReason);
}

void HelpWindow::Escape() {
    if (search_->text().isEmpty()) {
        close();
    } else {
        search_->clear();
    }
}

}  // namespace quillon::ui
