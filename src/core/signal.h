// An event with any number of listeners, which are called in the order in which they were connected.
//
// For a callback with a result use a std::function.
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

    // Returns the number to disconnect with. A listener that does not outlive the signal must disconnect.
    std::uint64_t Connect(Listener listener) {
        listeners_.emplace_back(++last_, std::move(listener));
        return last_;
    }
    void Disconnect(std::uint64_t number) {
        std::erase_if(listeners_, [number](const auto& each) { return each.first == number; });
    }
    // Listeners that are connected or disconnected during a call take effect at the next one.
    void operator()(Args... args) const {
        const auto listeners = listeners_;
        for (const auto& [number, listener] : listeners) listener(args...);
    }

private:
    std::vector<std::pair<std::uint64_t, Listener>> listeners_;
    std::uint64_t last_ = 0;
};

}  // namespace quillon
