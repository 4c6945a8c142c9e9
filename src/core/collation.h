// What one character counts for in the order of texts: base weights, compared first over the whole text, and
// mark weights, compared only between texts whose base weights are all equal. CompareText and SortKey read
// it; it decides the order of characters and nothing about texts.
//
// A base weight holds its byte form: the lead byte on top, then the bytes that follow it, so that comparing
// weights and comparing keys give the same order. Marks are weighed in the order in which they stand.
#pragma once

#include <array>
#include <cstdint>

#include "core/utf8.h"

namespace quillon {

using BaseWeight = std::uint32_t;
using MarkWeight = std::uint8_t;

// The mark weight of every base letter itself; all marks weigh more.
inline constexpr MarkWeight kPlainMark = 1;

struct CollationElements {
    std::array<BaseWeight, 2> bases{};
    std::array<MarkWeight, 4> marks{};
    std::uint8_t baseCount = 0;
    std::uint8_t markCount = 0;
};

// The weights of a character; an invalid byte has one too. A combining mark has no base weight.
CollationElements ElementsOf(char32_t code);

// How many bytes follow the lead byte of a base weight: 0 to 3.
int FollowingBytes(BaseWeight weight);

// The base weight of each ASCII character by its byte, 0 for every other byte. Each has kPlainMark.
extern const std::array<BaseWeight, 256> kAsciiWeights;

}  // namespace quillon
