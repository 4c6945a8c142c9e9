#include "curation/alike.h"

#include <algorithm>
#include <utility>

#include "core/collation.h"

namespace quillon::curation {

namespace {

// The lowest base weight of a digit; symbols and blanks are below it, letters above.
const BaseWeight kFirstDigit = kAsciiWeights['0'];

void Append(BaseWeight weight, std::string& key) {
    for (int shift = 24; shift >= 0; shift -= 8) key += static_cast<char>(weight >> shift & 0xFF);
}

}  // namespace

std::string LikenessKey(std::string_view text) {
    std::string key;
    for (std::size_t at = 0; at < text.size();) {
        const Character character = DecodeCharacter(text, at);
        at += character.length;
        const CollationElements elements = ElementsOf(character.code);
        for (std::size_t i = 0; i < elements.baseCount; ++i)
            if (elements.bases[i] >= kFirstDigit) Append(elements.bases[i], key);
    }
    return key;
}

std::vector<ChoiceControl::Choice> AlikeOnly(std::vector<ChoiceControl::Choice> authors) {
    using Keyed = std::pair<std::string, ChoiceControl::Choice>;
    std::vector<Keyed> keyed;
    keyed.reserve(authors.size());
    for (auto& author : authors) {
        std::string key = LikenessKey(author.text);
        if (!key.empty()) keyed.emplace_back(std::move(key), std::move(author));
    }
    std::stable_sort(keyed.begin(), keyed.end(),
                     [](const Keyed& left, const Keyed& right) { return left.first < right.first; });
    std::vector<ChoiceControl::Choice> alike;
    for (std::size_t i = 0; i < keyed.size(); ++i) {
        const bool hasTwin = (i > 0 && keyed[i - 1].first == keyed[i].first) ||
                             (i + 1 < keyed.size() && keyed[i + 1].first == keyed[i].first);
        if (hasTwin) alike.push_back(std::move(keyed[i].second));
    }
    return alike;
}

}  // namespace quillon::curation
