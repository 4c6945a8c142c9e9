// Compares texts by the weights of the collation: the base letters of the whole texts, then their marks.
// SortKey writes the same weights as bytes.
#include <algorithm>
#include <cstring>

#include "core/collation.h"
#include "core/text.h"
#include "core/utf8.h"

namespace quillon {

namespace {

// Returns the weights of a text one after the other, then 0. It reads the text once for bases and once for
// marks, so that a comparison allocates nothing.
class WeightReader {
public:
    explicit WeightReader(std::string_view text) : text_(text) {}

    BaseWeight NextBase() {
        while (next_ == elements_.baseCount) {
            if (!Load()) return 0;
        }
        return elements_.bases[next_++];
    }

    MarkWeight NextMark() {
        while (next_ == elements_.markCount) {
            if (!Load()) return 0;
        }
        return elements_.marks[next_++];
    }

private:
    bool Load() {
        if (position_ == text_.size()) return false;
        const Character character = DecodeCharacter(text_, position_);
        position_ += character.length;
        elements_ = ElementsOf(character.code);
        next_ = 0;
        return true;
    }

    std::string_view text_;
    std::size_t position_ = 0;
    CollationElements elements_;
    unsigned next_ = 0;
};

template <typename Weight>
int CompareWeights(std::string_view left, std::string_view right, Weight (WeightReader::*next)()) {
    WeightReader leftReader(left);
    WeightReader rightReader(right);
    while (true) {
        const Weight leftWeight = (leftReader.*next)();
        const Weight rightWeight = (rightReader.*next)();
        if (leftWeight != rightWeight) return leftWeight < rightWeight ? -1 : 1;
        if (leftWeight == 0) return 0;
    }
}

int CompareWithMarks(std::string_view left, std::string_view right) {
    const int order = CompareWeights(left, right, &WeightReader::NextBase);
    return order != 0 ? order : CompareWeights(left, right, &WeightReader::NextMark);
}

BaseWeight AsciiWeight(std::string_view text, std::size_t position) {
    return kAsciiWeights[static_cast<unsigned char>(text[position])];
}

// The length of the common ASCII beginning of two texts, in whole words: names of one genus begin alike.
std::size_t SameAsciiWords(std::string_view left, std::string_view right, std::size_t size) {
    constexpr std::uint64_t highBits = 0x8080808080808080u;
    std::size_t position = 0;
    for (; position + sizeof(std::uint64_t) <= size; position += sizeof(std::uint64_t)) {
        std::uint64_t leftWord = 0;
        std::uint64_t rightWord = 0;
        std::memcpy(&leftWord, left.data() + position, sizeof leftWord);
        std::memcpy(&rightWord, right.data() + position, sizeof rightWord);
        if (leftWord != rightWord || (leftWord & highBits) != 0) break;
    }
    return position;
}

void AppendBase(BaseWeight weight, std::string& key) {
    const int following = FollowingBytes(weight);
    for (int byte = 0; byte <= following; ++byte) key.push_back(static_cast<char>(weight >> (24 - 8 * byte)));
}

void AppendMarks(std::string_view text, std::string& key) {
    const std::size_t basesEnd = key.size();
    key.push_back('\0');
    WeightReader reader(text);
    while (const MarkWeight mark = reader.NextMark()) key.push_back(static_cast<char>(mark));
    // Most texts end in letters without marks; equal weights dropped at the end of both keys do not change
    // the order.
    while (key.size() > basesEnd + 1 && key.back() == static_cast<char>(kPlainMark)) key.pop_back();
    if (key.size() == basesEnd + 1) key.pop_back();
}

}  // namespace

int CompareText(std::string_view left, std::string_view right) {
    left = TrimEnd(left);
    right = TrimEnd(right);
    const std::size_t size = std::min(left.size(), right.size());
    std::size_t position = SameAsciiWords(left, right, size);
    for (; position < size; ++position) {
        const BaseWeight leftWeight = AsciiWeight(left, position);
        const BaseWeight rightWeight = AsciiWeight(right, position);
        if (leftWeight == rightWeight && leftWeight != 0) continue;
        if (leftWeight != 0 && rightWeight != 0) return leftWeight < rightWeight ? -1 : 1;
        break;
    }
    // Everything before this position has equal bases and no marks on either side, so it is skipped.
    return CompareWithMarks(left.substr(position), right.substr(position));
}

std::string SortKey(std::string_view text) {
    text = TrimEnd(text);
    std::string key;
    key.reserve(text.size() + 2);
    std::size_t position = 0;
    for (; position < text.size() && AsciiWeight(text, position) != 0; ++position) {
        AppendBase(AsciiWeight(text, position), key);
    }
    if (position == text.size()) return key;
    WeightReader reader(text.substr(position));
    while (const BaseWeight weight = reader.NextBase()) AppendBase(weight, key);
    AppendMarks(text, key);
    return key;
}

}  // namespace quillon
