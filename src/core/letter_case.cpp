#include "core/letter_case.h"

#include <algorithm>
#include <iterator>

namespace quillon {

namespace {

// Every `step`th letter from first to last is upper case; its lower-case letter is `toLower` further on.
struct CaseRange {
    char32_t first;
    char32_t last;
    int toLower;
    unsigned step;

    bool Holds(char32_t code) const { return code >= first && code <= last && (code - first) % step == 0; }
};

// In ascending order.
// clang-format off
constexpr CaseRange kCaseRanges[] = {
    {0x41, 0x5A, 32, 1}, {0xC0, 0xD6, 32, 1}, {0xD8, 0xDE, 32, 1}, {0x100, 0x12E, 1, 2},
    {0x132, 0x136, 1, 2}, {0x139, 0x147, 1, 2}, {0x14A, 0x176, 1, 2}, {0x178, 0x178, -121, 1},
    {0x179, 0x17D, 1, 2}, {0x181, 0x181, 210, 1}, {0x182, 0x184, 1, 2}, {0x186, 0x186, 206, 1},
    {0x187, 0x187, 1, 1}, {0x189, 0x18A, 205, 1}, {0x18B, 0x18B, 1, 1}, {0x18E, 0x18E, 79, 1},
    {0x18F, 0x18F, 202, 1}, {0x190, 0x190, 203, 1}, {0x193, 0x193, 205, 1}, {0x194, 0x194, 207, 1},
    {0x196, 0x196, 211, 1}, {0x197, 0x197, 209, 1}, {0x198, 0x198, 1, 1}, {0x19C, 0x19C, 211, 1},
    {0x19D, 0x19D, 213, 1}, {0x19F, 0x19F, 214, 1}, {0x1A0, 0x1A4, 1, 2}, {0x1A6, 0x1A6, 218, 1},
    {0x1A7, 0x1A7, 1, 1}, {0x1A9, 0x1A9, 218, 1}, {0x1AC, 0x1AC, 1, 1}, {0x1AE, 0x1AE, 218, 1},
    {0x1AF, 0x1AF, 1, 1}, {0x1B1, 0x1B2, 217, 1}, {0x1B3, 0x1B5, 1, 2}, {0x1B7, 0x1B7, 219, 1},
    {0x1B8, 0x1B8, 1, 1}, {0x1BC, 0x1BC, 1, 1}, {0x1C4, 0x1C4, 2, 1}, {0x1C7, 0x1C7, 2, 1},
    {0x1CA, 0x1CA, 2, 1}, {0x1CD, 0x1DB, 1, 2}, {0x1DE, 0x1EE, 1, 2}, {0x1F1, 0x1F1, 2, 1},
    {0x1F4, 0x1F4, 1, 1}, {0x1F6, 0x1F6, -97, 1}, {0x1F7, 0x1F7, -56, 1}, {0x1F8, 0x21E, 1, 2},
    {0x220, 0x220, -130, 1}, {0x222, 0x232, 1, 2}, {0x23A, 0x23A, 10795, 1}, {0x23B, 0x23B, 1, 1},
    {0x23D, 0x23D, -163, 1}, {0x23E, 0x23E, 10792, 1}, {0x241, 0x241, 1, 1}, {0x243, 0x243, -195, 1},
    {0x244, 0x244, 69, 1}, {0x245, 0x245, 71, 1}, {0x246, 0x24E, 1, 2}, {0x370, 0x372, 1, 2},
    {0x376, 0x376, 1, 1}, {0x37F, 0x37F, 116, 1}, {0x386, 0x386, 38, 1}, {0x388, 0x38A, 37, 1},
    {0x38C, 0x38C, 64, 1}, {0x38E, 0x38F, 63, 1}, {0x391, 0x3A1, 32, 1}, {0x3A3, 0x3AB, 32, 1},
    {0x3CF, 0x3CF, 8, 1}, {0x3D8, 0x3EE, 1, 2}, {0x3F7, 0x3F7, 1, 1}, {0x3F9, 0x3F9, -7, 1},
    {0x3FA, 0x3FA, 1, 1}, {0x3FD, 0x3FF, -130, 1}, {0x400, 0x40F, 80, 1}, {0x410, 0x42F, 32, 1},
    {0x460, 0x480, 1, 2}, {0x48A, 0x4BE, 1, 2}, {0x4C0, 0x4C0, 15, 1}, {0x4C1, 0x4CD, 1, 2},
    {0x4D0, 0x52E, 1, 2}, {0x1E00, 0x1E94, 1, 2}, {0x1EA0, 0x1EFE, 1, 2},
};
// clang-format on

constexpr char32_t kFinalSigma = 0x3C2;
constexpr char32_t kCapitalSigma = 0x3A3;

char32_t Moved(char32_t code, int distance) {
    return static_cast<char32_t>(static_cast<int>(code) + distance);
}

}  // namespace

char32_t LowerCaseOf(char32_t code) {
    if (code < 0x80) return code >= U'A' && code <= U'Z' ? code + 32 : code;
    const auto* next =
        std::upper_bound(std::begin(kCaseRanges), std::end(kCaseRanges), code,
                         [](char32_t value, const CaseRange& range) { return value < range.first; });
    const CaseRange& range = *std::prev(next);
    return range.Holds(code) ? Moved(code, range.toLower) : code;
}

char32_t UpperCaseOf(char32_t code) {
    if (code < 0x80) return code >= U'a' && code <= U'z' ? code - 32 : code;
    if (code == kFinalSigma) return kCapitalSigma;
    for (const CaseRange& range : kCaseRanges) {
        if (range.Holds(Moved(code, -range.toLower))) return Moved(code, -range.toLower);
    }
    return code;
}

}  // namespace quillon
