// The application object of the desktop program and of the tests of windows: it catches the last exceptions
// (ui/guard.h) and handles keyboard input for all windows.
#pragma once

#include <QApplication>
#include <functional>
#include <string>

namespace quillon::ui {

class Application : public QApplication {
    Q_OBJECT
public:
    using QApplication::QApplication;
    // Receives the text of each failure; by default a message box shows it.
    void OnFailure(std::function<void(const std::string&)> report) { report_ = std::move(report); }
    bool notify(QObject* receiver, QEvent* event) override;

private:
    friend void ReportException() noexcept;
    void Report(const std::string& text);

    std::function<void(const std::string&)> report_;
    bool reporting_ = false;
};

}  // namespace quillon::ui
