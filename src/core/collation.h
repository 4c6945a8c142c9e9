// The weights of single characters for ordering texts: base weights, compared first over the whole text, and
// mark weights, compared only between texts whose base weights are all equal. Used by CompareText and
// SortKey.
//
// A base weight is its key bytes as a number: the lead byte on top, then the bytes that follow it, so that
// weights and keys compare alike. Marks are compared in the order of the text.
#pragma once

#include <array>
#include <cstdint>

#include "core/utf8.h"

namespace quillon {

using BaseWeight = std::uint32_t;
using MarkWeight = std::uint8_t;

// The mark weight of a base letter without marks; all marks weigh more.
inline constexpr MarkWeight kPlainMark = 1;

struct CollationElements {
    std::array<BaseWeight, 2> bases{};
    std::array<MarkWeight, 4> marks{};
    std::uint8_t baseCount = 0;
    std::uint8_t markCount = 0;
};

// The weights of a character or an invalid byte. A combining mark has no base weight.
CollationElements ElementsOf(char32_t code);

// The number of bytes after the lead byte of a base weight: 0 to 3.
int FollowingBytes(BaseWeight weight);

// The base weight of each ASCII character by its byte, 0 for every other byte. Each has kPlainMark.
extern const std::array<BaseWeight, 256> kAsciiWeights;

}  // namespace quillon
