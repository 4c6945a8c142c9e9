#include "ui/guard.h"

#include <QMessageBox>
#include <QScopedValueRollback>
#include <cstdio>
#include <new>

#include "ui/text_convert.h"

namespace quillon::ui {

namespace {

std::string TextOfException() {
    try {
        throw;
    } catch (const std::bad_alloc&) {
        return "Not enough memory.";
    } catch (const std::exception& error) {
        return std::string("Failed ") + error.what();
    } catch (...) {
        return "Failed for a reason that is not known.";
    }
}

}  // namespace

bool Application::notify(QObject* receiver, QEvent* event) {
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
