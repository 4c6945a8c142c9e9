#include "store/schema/coerce.h"

#include <fmt/format.h>

#include <cmath>
#include <cstdlib>
#include <limits>

#include "core/text.h"
#include "store/schema/names.h"

namespace quillon::store {

namespace {

constexpr std::size_t kMemoSize = 65535;

struct Range {
    std::int64_t least, most;
};

Range RangeOf(FieldType type) {
    if (type == FieldType::Byte) return {0, 255};
    if (type == FieldType::Integer)
        return {std::numeric_limits<std::int16_t>::min(), std::numeric_limits<std::int16_t>::max()};
    return {std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()};
}

[[noreturn]] void FailConversion(const FieldDef& field) {
    throw StoreError(ErrorNumber::ConversionError,
                     fmt::format("Data type conversion error in the field '{}'.", field.name));
}

Value CoerceText(const FieldDef& field, const Value& value) {
    std::string text = value.AsText();
    if (text.empty())
        throw StoreError(ErrorNumber::EmptyText,
                         fmt::format("The field '{}' can't be a zero-length text.", field.name));
    const std::size_t size = field.type == FieldType::Memo ? kMemoSize : static_cast<std::size_t>(field.size);
    if (text.size() > size && CharacterCount(text) > size)
        throw StoreError(
            ErrorNumber::FieldTooSmall,
            fmt::format("The field '{}' is too small to accept the text: it holds {} characters.", field.name,
                        size));
    return text;
}

double NumberIn(const FieldDef& field, const Value& value) {
    if (value.IsReal()) return value.Real();
    if (!value.IsText()) return static_cast<double>(value.AsLong());
    if (!IsNumericText(value.Text())) FailConversion(field);
    return std::strtod(value.Text().c_str(), nullptr);
}

Value CoerceNumber(const FieldDef& field, const Value& value) {
    const Range range = RangeOf(field.type);
    const double number = std::nearbyint(NumberIn(field, value));
    if (!(number >= static_cast<double>(range.least) && number <= static_cast<double>(range.most)))
        throw StoreError(ErrorNumber::NumericOverflow,
                         fmt::format("Numeric field overflow in the field '{}'.", field.name));
    return static_cast<std::int64_t>(number);
}

Value CoerceBoolean(const FieldDef& field, const Value& value) {
    if (!value.IsText()) return value.AsBoolean();
    const std::string_view text = Trim(value.Text());
    for (const std::string_view word : {"True", "Yes", "-1", "1"})
        if (SameWord(text, word)) return true;
    for (const std::string_view word : {"False", "No", "0"})
        if (SameWord(text, word)) return false;
    FailConversion(field);
}

bool MatchesStamp(std::string_view text, std::string_view pattern) {
    if (text.size() != pattern.size()) return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool digit = text[i] >= '0' && text[i] <= '9';
        if (pattern[i] == '0' ? !digit : text[i] != pattern[i]) return false;
    }
    return true;
}

Value CoerceDateTime(const FieldDef& field, const Value& value) {
    const std::string text = value.AsText();
    if (MatchesStamp(text, "0000-00-00 00:00:00")) return text;
    if (MatchesStamp(text, "0000-00-00")) return text + " 00:00:00";
    FailConversion(field);
}

}  // namespace

Value Coerce(const FieldDef& field, const Value& value) {
    if (value.IsNull()) return value;
    switch (field.type) {
        case FieldType::Text:
        case FieldType::Memo:
            return CoerceText(field, value);
        case FieldType::Boolean:
            return CoerceBoolean(field, value);
        case FieldType::DateTime:
            return CoerceDateTime(field, value);
        default:
            return CoerceNumber(field, value);
    }
}

StoreError RequiredError(const FieldDef& field, bool inKey) {
    if (inKey)
        return {
            ErrorNumber::KeyIsNull,
            fmt::format("The primary key can't contain a Null value: the field '{}' needs one.", field.name)};
    return {ErrorNumber::FieldIsRequired,
            fmt::format("The field '{}' can't contain a Null value because it is required.", field.name)};
}

}  // namespace quillon::store
