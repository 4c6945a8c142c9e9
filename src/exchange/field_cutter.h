// One line of an exchange file cut into its fields. Positions are bytes of the line's UTF-8; a delimiter
// never lies inside a character.
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
    // Stands before the field that begins at byte `begin`. The line and the delimiter, which is not empty,
    // must outlive the cutter.
    FieldCutter(std::string_view line, std::size_t begin, std::string_view delimiter = kTaggedDelimiter)
        : line_(line), delimiter_(delimiter), start_(begin) {}

    // True when a delimiter follows the next character: a line without one holds no field. The next character
    // itself is not tested.
    bool HasLaterDelimiter() const;
    // Goes to the next field; false when no delimiter closes it.
    bool NextField();
    // Without the blanks at both ends.
    std::string_view Field() const { return field_; }
    // True when nothing stands after the delimiter of the current field.
    bool AtEnd() const { return start_ >= line_.size(); }
    // What stands after the delimiter of the current field.
    std::string_view Rest() const { return AtEnd() ? std::string_view() : line_.substr(start_); }
    // True when a delimiter closes one more field.
    bool HasNext() const { return line_.find(delimiter_, start_) != std::string_view::npos; }

private:
    std::string_view line_;
    std::string_view delimiter_;
    std::size_t start_;
    std::string_view field_;
};

}  // namespace quillon::exchange
