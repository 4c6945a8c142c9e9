#include "core/number_text.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace quillon {

namespace {

std::size_t SkipBlanks(std::string_view text, std::size_t position) {
    while (position < text.size() && text[position] == ' ') ++position;
    return position;
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool DigitsBegin(std::string_view text) {
    if (text.empty()) return false;
    return IsDigit(text[0]) || (text[0] == '.' && text.size() > 1 && IsDigit(text[1]));
}

}  // namespace

std::optional<LeadingNumber> ReadLeadingNumber(std::string_view text) {
    std::size_t position = SkipBlanks(text, 0);
    bool negative = false;
    if (position < text.size() && (text[position] == '-' || text[position] == '+')) {
        negative = text[position] == '-';
        position = SkipBlanks(text, position + 1);
    }
    const std::string_view digits = text.substr(position);
    if (!DigitsBegin(digits)) return std::nullopt;
    double value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error != std::errc()) return std::nullopt;
    return LeadingNumber{negative ? -value : value, position + static_cast<std::size_t>(end - digits.data())};
}

std::int64_t RoundToLong(double value) {
    using Limits = std::numeric_limits<std::int64_t>;
    constexpr double beyond = 9223372036854775808.0;
    if (std::isnan(value)) return 0;
    if (value >= beyond) return Limits::max();
    if (value < -beyond) return Limits::min();
    return static_cast<std::int64_t>(std::nearbyint(value));
}

}  // namespace quillon
