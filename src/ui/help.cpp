#include "ui/help.h"

#include <QtWidgets>
#include <utility>

#include "ui/guard.h"

namespace quillon::ui {

namespace {

// The page for message boxes and dialogs without a page.
const QString kDialogsPage = QStringLiteral("dialogs.md");

bool IsHelpKey(const QEvent& event) {
    if (event.type() != QEvent::KeyPress) return false;
    const auto& key = static_cast<const QKeyEvent&>(event);
    return key.key() == Qt::Key_F1 && key.modifiers() == Qt::NoModifier;
}

}  // namespace

Help::Help(QWidget& window, std::function<QString()> tabKey) : window_(window), tabKey_(std::move(tabKey)) {
    qApp->installEventFilter(this);
}

void Help::ShowContents() {
    OpenAbove(*Front()).FocusContents();
}

void Help::ShowSearch() {
    OpenAbove(*Front()).FocusSearch();
}

// F1 in the main window is handled by its menu.
bool Help::eventFilter(QObject* watched, QEvent* event) {
    if (!IsHelpKey(*event) || !watched->isWidgetType()) return false;
    QWidget* front = static_cast<QWidget*>(watched)->window();
    if (front == help_) {
        help_->ShowPage(PageFor(*front));
        return true;
    }
    if (qobject_cast<QDialog*>(front) == nullptr) return false;
    OpenAbove(*front).FocusContents();
    return true;
}

QWidget* Help::Front() const {
    QWidget* modal = QApplication::activeModalWidget();
    return modal != nullptr ? modal : &window_;
}

QString Help::PageFor(const QWidget& front) const {
    if (&front == &window_) return HelpPageFor(tabKey_());
    const QString page = HelpPageFor(front.objectName());
    return page.isEmpty() ? kDialogsPage : page;
}

HelpWindow& Help::OpenAbove(QWidget& front) {
    if (help_ == nullptr) help_ = new HelpWindow(&window_);
    help_->ShowPage(PageFor(front));
    BelongTo(front);
    help_->show();
    help_->raise();
    help_->activateWindow();
    return *help_;
}

void Help::BelongTo(QWidget& front) {
    help_->winId();  // creates the native window
    if (help_->windowHandle()->transientParent() == front.windowHandle()) return;
    help_->hide();
    help_->windowHandle()->setTransientParent(front.windowHandle());
    if (&front == &window_) return;
    Connect(&front, &QObject::destroyed, help_.data(), [this] {
        if (help_ != nullptr) help_->windowHandle()->setTransientParent(window_.windowHandle());
    });
}

}  // namespace quillon::ui
