// Cuts a line of an exchange file into fields. Positions are bytes of the line's UTF-8; a delimiter is never
// part of another character.
#pragma once

#include <cstddef>
#include <string_view>

namespace quillon::exchange {

inline constexpr std::string_view kTaggedDelimiter = "|";

// The first four characters when the fourth is "]", otherwise the first five; the whole line when it is
// shorter.
std::string_view TagOfLine(std::string_view line);

class FieldCutter {
public:
    // Starts before the field at byte `begin`. The line and the delimiter, which is not empty, must outlive
    // the cutter.
    FieldCutter(std::string_view line, std::size_t begin, std::string_view delimiter = kTaggedDelimiter)
        : line_(line), delimiter_(delimiter), start_(begin) {}

    // True when there is a delimiter after the next character, which is not tested itself. A line without one
    // has no fields.
    bool HasLaterDelimiter() const;
    // Moves to the next field; false when no delimiter ends it.
    bool NextField();
    // The current field without blanks at both ends.
    std::string_view Field() const { return field_; }
    // True when the line ends after the delimiter of the current field.
    bool AtEnd() const { return start_ >= line_.size(); }
    // The text after the delimiter of the current field.
    std::string_view Rest() const { return AtEnd() ? std::string_view() : line_.substr(start_); }
    // True when a delimiter ends another field.
    bool HasNext() const { return line_.find(delimiter_, start_) != std::string_view::npos; }

private:
    std::string_view line_;
    std::string_view delimiter_;
    std::size_t start_;
    std::string_view field_;
};

}  // namespace quillon::exchange
