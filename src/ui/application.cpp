#include "ui/application.h"

#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QScopedValueRollback>
#include <cstdio>

#include "core/attempt.h"
#include "ui/guard.h"
#include "ui/text_convert.h"

namespace quillon::ui {

namespace {

std::string TextOfException() {
    try {
        throw;
    } catch (const std::exception& failure) {
        return FailureText(failure);
    } catch (...) {
        return "Failed for a reason that is not known.";
    }
}

// Alt with a letter whose button is disabled or hidden. The toolkit would type the letter into the field that
// has the focus; in a menu the letter chooses an item.
bool IsLostAccessKey(const QObject& receiver, const QEvent& event) {
    if (event.type() != QEvent::KeyPress || !receiver.isWidgetType()) return false;
    if (qobject_cast<const QMenu*>(&receiver) || qobject_cast<const QMenuBar*>(&receiver)) return false;
    const auto& key = static_cast<const QKeyEvent&>(event);
    return key.modifiers() == Qt::AltModifier && !key.text().isEmpty() && key.text().front().isPrint();
}

}  // namespace

bool Application::notify(QObject* receiver, QEvent* event) {
    if (IsLostAccessKey(*receiver, *event)) return true;
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        ReportException();
        return true;
    }
}

void Application::Report(const std::string& text) {
    if (reporting_) {
        std::fprintf(stderr, "%s\n", text.c_str());
        return;
    }
    const QScopedValueRollback<bool> scope(reporting_, true);
    if (report_) return report_(text);
    QMessageBox::warning(activeModalWidget(), "Taxonomic Quillon", ToQt(text));
}

void ReportException() noexcept {
    try {
        const std::string text = TextOfException();
        if (auto* application = dynamic_cast<Application*>(QCoreApplication::instance()))
            application->Report(text);
        else
            std::fprintf(stderr, "%s\n", text.c_str());
    } catch (...) {
        std::fputs("A failure could not be shown.\n", stderr);
    }
}

}  // namespace quillon::ui
