// One value of a field, a parameter or a form: Null, a Boolean, a whole number, a number with a fraction, or
// a text.
//
// The store and the procedures above it exchange Values. Conversions are explicit; for Null the As...
// functions return 0, false or the empty text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace quillon {

class Value {
public:
    Value() = default;
    // Not defaulted: the copy constructor of std::variant here destroys a text whose copy ran out of memory.
    Value(const Value& other) { content_ = other.content_; }
    Value(Value&&) = default;
    Value& operator=(const Value&) = default;
    Value& operator=(Value&&) = default;
    ~Value() = default;
    Value(std::nullptr_t) {}                                         // NOLINT(google-explicit-constructor)
    Value(bool value) : content_(value) {}                           // NOLINT(google-explicit-constructor)
    Value(int value) : content_(std::int64_t{value}) {}              // NOLINT(google-explicit-constructor)
    Value(std::int64_t value) : content_(value) {}                   // NOLINT(google-explicit-constructor)
    Value(double value) : content_(value) {}                         // NOLINT(google-explicit-constructor)
    Value(std::string value) : content_(std::move(value)) {}         // NOLINT(google-explicit-constructor)
    Value(std::string_view value) : content_(std::string(value)) {}  // NOLINT(google-explicit-constructor)
    Value(const char* value) : content_(std::string(value)) {}       // NOLINT(google-explicit-constructor)

    // Null for the empty text and for 0, which in memory stand for "none".
    static Value TextOrNull(std::string_view text) { return text.empty() ? Value() : Value(text); }
    static Value IdOrNull(std::int64_t id) { return id == 0 ? Value() : Value(id); }

    bool IsNull() const { return std::holds_alternative<std::monostate>(content_); }
    bool IsBoolean() const { return std::holds_alternative<bool>(content_); }
    bool IsInteger() const { return std::holds_alternative<std::int64_t>(content_); }
    bool IsReal() const { return std::holds_alternative<double>(content_); }
    bool IsText() const { return std::holds_alternative<std::string>(content_); }

    // The text, numbers in decimal, True and False for a Boolean, "" for Null.
    std::string AsText() const;
    // A number as a whole number, -1 or 0 for a Boolean, the leading number of a text, 0 for Null.
    std::int64_t AsLong() const;
    // False for Null, 0 and any text but "True", "Yes", "Y" and numbers other than 0.
    bool AsBoolean() const;
    // The stored text; only when IsText().
    const std::string& Text() const { return std::get<std::string>(content_); }
    double Real() const { return std::get<double>(content_); }

    // Exact equality of kind and content; Null equals Null here.
    bool operator==(const Value&) const = default;

private:
    std::variant<std::monostate, bool, std::int64_t, double, std::string> content_;
};

}  // namespace quillon
