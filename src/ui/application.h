// The application object of the desktop program and of the tests of windows: the last border of exceptions
// (ui/guard.h), and what keyboard input means everywhere.
#pragma once

#include <QApplication>
#include <functional>
#include <string>

namespace quillon::ui {

class Application : public QApplication {
    Q_OBJECT
public:
    using QApplication::QApplication;
    // Takes the text of each failure; without one a message box shows it.
    void OnFailure(std::function<void(const std::string&)> report) { report_ = std::move(report); }
    bool notify(QObject* receiver, QEvent* event) override;

private:
    friend void ReportException() noexcept;
    void Report(const std::string& text);

    std::function<void(const std::string&)> report_;
    bool reporting_ = false;
};

}  // namespace quillon::ui
