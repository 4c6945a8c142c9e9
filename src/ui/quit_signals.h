// SIGHUP, SIGINT and SIGTERM of the desktop program, as a call from the event loop: a job that runs is
// canceled and cleans up after itself, where the signal's own way would leave half of a file behind.
#pragma once

#include <QObject>
#include <functional>

class QSocketNotifier;

namespace quillon::ui {

// Only one object may exist at a time. The signals are as before when it goes.
class QuitSignals : public QObject {
    Q_OBJECT
public:
    explicit QuitSignals(std::function<void()> quit);
    ~QuitSignals() override;

private:
    void Take();

    std::function<void()> quit_;
    QSocketNotifier* notifier_ = nullptr;
};

}  // namespace quillon::ui
