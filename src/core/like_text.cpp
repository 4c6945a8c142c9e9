// LikeText: matches a text against a pattern with *, ?, # and sets in brackets, character by character and
// without regard to case.
#include <optional>

#include "core/letter_case.h"
#include "core/text.h"
#include "core/utf8.h"

namespace quillon {

namespace {

Character FoldedCharacter(std::string_view text, std::size_t position) {
    Character character = DecodeCharacter(text, position);
    if (character.IsValid()) character.code = LowerCaseOf(character.code);
    return character;
}

std::string_view CharacterAt(std::string_view text, std::size_t position) {
    return text.substr(position, DecodeCharacter(text, position).length);
}

bool IsInRange(std::string_view character, std::string_view first, std::string_view last) {
    return CompareText(first, character) <= 0 && CompareText(character, last) <= 0;
}

// True when `character` is in the characters or ranges between the brackets of a set.
bool IsListed(std::string_view character, std::string_view body) {
    for (std::size_t position = 0; position < body.size();) {
        const std::string_view first = CharacterAt(body, position);
        position += first.size();
        if (position + 1 < body.size() && body[position] == '-') {
            const std::string_view last = CharacterAt(body, position + 1);
            position += 1 + last.size();
            if (IsInRange(character, first, last)) return true;
        } else if (FoldedCharacter(character, 0).code == FoldedCharacter(first, 0).code) {
            return true;
        }
    }
    return false;
}

// One element of a pattern other than the asterisk.
struct PatternItem {
    std::string_view set;  // the part between the brackets of a set
    bool isSet = false;
    char32_t literal = 0;    // the character when it is not a set
    std::size_t length = 0;  // bytes of the pattern
};

PatternItem ReadItem(std::string_view pattern, std::size_t position) {
    if (pattern[position] == '[') {
        const std::size_t close = pattern.find(']', position);
        return {pattern.substr(position + 1, close - position - 1), true, 0, close - position + 1};
    }
    const Character character = FoldedCharacter(pattern, position);
    return {{}, false, character.code, character.length};
}

bool SetMatches(std::string_view character, std::string_view body) {
    const bool excludes = body.size() > 1 && body.front() == '!';
    return IsListed(character, excludes ? body.substr(1) : body) != excludes;
}

// The number of bytes that the item matches at `position`; empty when it does not match.
std::optional<std::size_t> MatchItem(const PatternItem& item, std::string_view text, std::size_t position) {
    if (item.isSet && item.set.empty()) return 0;
    if (position == text.size()) return std::nullopt;
    const Character character = FoldedCharacter(text, position);
    bool matches = item.literal == character.code;
    if (item.isSet) {
        matches = SetMatches(text.substr(position, character.length), item.set);
    } else if (item.literal == U'?') {
        matches = true;
    } else if (item.literal == U'#') {
        matches = character.code >= U'0' && character.code <= U'9';
    }
    return matches ? std::optional(character.length) : std::nullopt;
}

bool HasOpenBracket(std::string_view pattern) {
    for (std::size_t open = pattern.find('['); open != std::string_view::npos;) {
        const std::size_t close = pattern.find(']', open);
        if (close == std::string_view::npos) return true;
        open = pattern.find('[', close);
    }
    return false;
}

// Matches text and pattern in parallel. When an item fails, the last asterisk takes one more character and
// the items after it are tried again; earlier asterisks never need a retry.
class LikeMatcher {
public:
    LikeMatcher(std::string_view text, std::string_view pattern) : text_(text), pattern_(pattern) {}

    bool Matches() {
        while (textPosition_ < text_.size() || patternPosition_ < pattern_.size()) {
            if (!Advance() && !WidenAsterisk()) return false;
        }
        return true;
    }

private:
    bool Advance() {
        if (patternPosition_ == pattern_.size()) return false;
        if (pattern_[patternPosition_] == '*') {
            asteriskEnd_ = ++patternPosition_;
            taken_ = textPosition_;
            return true;
        }
        const PatternItem item = ReadItem(pattern_, patternPosition_);
        const auto length = MatchItem(item, text_, textPosition_);
        if (!length) return false;
        textPosition_ += *length;
        patternPosition_ += item.length;
        return true;
    }

    bool WidenAsterisk() {
        if (!asteriskEnd_ || taken_ == text_.size()) return false;
        taken_ += DecodeCharacter(text_, taken_).length;
        textPosition_ = taken_;
        patternPosition_ = *asteriskEnd_;
        return true;
    }

    std::string_view text_;
    std::string_view pattern_;
    std::size_t textPosition_ = 0;
    std::size_t patternPosition_ = 0;
    std::optional<std::size_t> asteriskEnd_;
    std::size_t taken_ = 0;
};

}  // namespace

bool LikeText(std::string_view text, std::string_view pattern) {
    return !HasOpenBracket(pattern) && LikeMatcher(text, pattern).Matches();
}

}  // namespace quillon
