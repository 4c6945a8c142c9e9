// Catches exceptions in windows: none leaves a slot, a timer, an observer or an event handler. They are
// reported in a message box, and the event loop continues.
//
// Every connection of src/ui to a function is made with Connect, every delayed call with Later, and overrides
// of the toolkit's handlers wrap calls into the logic in Guard. The toolkit is not exception safe, so
// exceptions are caught before they reach it; Application::notify catches the rest.
#pragma once

#include <QObject>
#include <QTimer>
#include <concepts>
#include <functional>
#include <string>
#include <type_traits>
#include <utility>

namespace quillon::ui {

// Reports the exception that is being handled; call it from a catch block. A failure while another one is
// being shown goes to standard error.
void ReportException() noexcept;

// Runs `act` and reports what it throws.
template <std::invocable Act>
void Guard(const Act& act) noexcept {
    try {
        act();
    } catch (...) {
        ReportException();
    }
}

// A slot that reports what `Act` throws. It takes the arguments that `Act` takes.
template <typename Act>
class Guarded {
public:
    explicit Guarded(Act act) : act_(std::move(act)) {}
    template <typename... Arguments>
    requires std::invocable<Act&, Arguments...>
    void operator()(Arguments&&... arguments) {
        Guard([&] { act_(std::forward<Arguments>(arguments)...); });
    }

private:
    Act act_;
};

// QObject::connect with a guarded slot: a function object, or a member function of `receiver`.
template <typename Sender, typename Signal, typename Receiver, typename Act>
QMetaObject::Connection Connect(const Sender* sender, Signal signal, Receiver* receiver, Act act) {
    if constexpr (std::is_member_function_pointer_v<Act>)
        return QObject::connect(sender, signal, receiver, Guarded(std::bind_front(act, receiver)));
    else
        return QObject::connect(sender, signal, receiver, Guarded(std::move(act)));
}

// Runs `act` from the event loop, unless `context` has been destroyed by then.
template <typename Act>
void Later(const QObject* context, Act act) {
    QTimer::singleShot(0, context, Guarded(std::move(act)));
}

}  // namespace quillon::ui
