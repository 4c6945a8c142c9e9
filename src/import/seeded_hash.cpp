#include "import/seeded_hash.h"

#include <cstring>
#include <random>

namespace quillon::importing {

namespace {

struct Seed {
    std::uint64_t before, between;
};

std::uint64_t Draw(std::random_device& source) {
    return (std::uint64_t{source()} << 32) | source();
}

const Seed& TheSeed() {
    static const Seed seed = [] {
        std::random_device source;
        return Seed{Draw(source), Draw(source) | 1};
    }();
    return seed;
}

// Every bit of the number reaches every bit of the result.
std::uint64_t Mix(std::uint64_t number) {
    number = (number ^ (number >> 30)) * std::uint64_t{0xBF58476D1CE4E5B9};
    number = (number ^ (number >> 27)) * std::uint64_t{0x94D049BB133111EB};
    return number ^ (number >> 31);
}

}  // namespace

std::uint64_t SeededHash(std::uint64_t number) {
    const Seed& seed = TheSeed();
    return Mix(Mix(number ^ seed.before) * seed.between);
}

std::uint64_t SeededHash(std::string_view text) {
    const Seed& seed = TheSeed();
    std::uint64_t hash = seed.before ^ text.size();
    while (!text.empty()) {
        std::uint64_t word = 0;
        const std::size_t length = text.size() < sizeof word ? text.size() : sizeof word;
        std::memcpy(&word, text.data(), length);
        hash = Mix((hash ^ word) * seed.between + seed.before);
        text.remove_prefix(length);
    }
    return hash;
}

}  // namespace quillon::importing
