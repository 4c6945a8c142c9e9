// Turns SIGHUP, SIGINT and SIGTERM into a call from the event loop, so that a running job is canceled and
// cleans up instead of leaving half a file behind.
#pragma once

#include <QObject>
#include <functional>

class QSocketNotifier;

namespace quillon::ui {

// Only one object may exist at a time. Its destructor restores the previous handlers.
class QuitSignals : public QObject {
    Q_OBJECT
public:
    explicit QuitSignals(std::function<void()> quit);
    ~QuitSignals() override;

    // True when a signal has come that the event loop has not handled yet. Processes no events.
    bool IsWaiting() const;

private:
    void Take();

    std::function<void()> quit_;
    QSocketNotifier* notifier_ = nullptr;
};

}  // namespace quillon::ui
