// An event of one object that others follow. Any number of listeners may be connected; each is called, in the
// order in which they came, and none takes another's place.
//
// A procedure that must give an answer is a std::function with one owner instead.
#pragma once

#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

namespace quillon {

template <typename... Args>
class Signal {
public:
    using Listener = std::function<void(Args...)>;

    Signal() = default;
    Signal(const Signal&) = delete;
    Signal& operator=(const Signal&) = delete;

    // Gives the number to disconnect by. A listener that lives shorter than the signal must disconnect.
    std::uint64_t Connect(Listener listener) {
        listeners_.emplace_back(++last_, std::move(listener));
        return last_;
    }
    void Disconnect(std::uint64_t number) {
        std::erase_if(listeners_, [number](const auto& each) { return each.first == number; });
    }
    // Listeners that are connected or disconnected meanwhile count from the next time on.
    void operator()(Args... args) const {
        const auto listeners = listeners_;
        for (const auto& [number, listener] : listeners) listener(args...);
    }

private:
    std::vector<std::pair<std::uint64_t, Listener>> listeners_;
    std::uint64_t last_ = 0;
};

}  // namespace quillon
