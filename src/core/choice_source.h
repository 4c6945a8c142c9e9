// Choices for a list that is too long to be read: they are read in slices, in the order of the list.
//
// A combo takes one by ComboControl::SetSource. Its window reads the slice around the text when the list
// drops down, and the first choices from a typed text on. The errors of the store pass through.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

struct Choice {
    std::string text;
    std::int64_t itemData = 0;
    bool operator==(const Choice&) const = default;
};
using Choices = std::vector<Choice>;

class ChoiceSource {
public:
    static constexpr std::size_t kAll = static_cast<std::size_t>(-1);

    ChoiceSource() = default;
    virtual ~ChoiceSource() = default;
    ChoiceSource(const ChoiceSource&) = delete;
    ChoiceSource& operator=(const ChoiceSource&) = delete;

    // At most `count` choices, from the first one that begins with `text` or, when there is none, that comes
    // after it; "" begins with the first of all.
    virtual Choices From(std::string_view text, std::size_t count) = 0;
    // At most `count` choices that follow one of the list, or that precede it, the nearest one last.
    virtual Choices After(const Choice& choice, std::size_t count) = 0;
    virtual Choices Before(const Choice& choice, std::size_t count) = 0;
};

}  // namespace quillon
