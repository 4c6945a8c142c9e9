#include "exchange/field_cutter.h"

#include "core/text.h"

namespace quillon::exchange {

std::string_view TagOfLine(std::string_view line) {
    const std::string_view fourth = LeftCharacters(line, 4);
    return !fourth.empty() && CharacterCount(fourth) == 4 && fourth.back() == ']' ? fourth
                                                                                  : LeftCharacters(line, 5);
}

bool FieldCutter::HasLaterDelimiter() const {
    return line_.find(delimiter_, start_ + 1) != std::string_view::npos;
}

bool FieldCutter::NextField() {
    const std::size_t end = line_.find(delimiter_, start_);
    if (end == std::string_view::npos) return false;
    field_ = line_.substr(start_, end - start_);
    if (!field_.empty() && (field_.front() == ' ' || field_.back() == ' ')) field_ = Trim(field_);
    start_ = end + delimiter_.size();
    return true;
}

}  // namespace quillon::exchange
