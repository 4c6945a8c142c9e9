#include "script/script_line.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>

namespace quillon::script {

namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

struct Escape {
    char character, letter;
};
constexpr Escape kEscapes[] = {{'\n', 'n'}, {'\t', 't'}, {'\r', 'r'}, {'\\', '\\'}};

}  // namespace

std::optional<ScriptLine> ScriptReader::Next() {
    for (std::string line; std::getline(input_, line);) {
        ++number_;
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (number_ == 1 && line.compare(0, kByteOrderMark.size(), kByteOrderMark) == 0)
            line.erase(0, kByteOrderMark.size());
        auto [action, rest] = SplitFirstWord(line);
        if (!action.empty() && action.front() != '#')
            return ScriptLine{number_, std::move(action), std::move(rest)};
    }
    return std::nullopt;
}

std::pair<std::string, std::string> SplitFirstWord(std::string_view rest) {
    rest.remove_prefix(std::min(rest.find_first_not_of(kBlanks), rest.size()));
    const std::size_t end = std::min(rest.find_first_of(kBlanks), rest.size());
    return {std::string(rest.substr(0, end)), std::string(rest.substr(std::min(end + 1, rest.size())))};
}

std::vector<std::string> WordsOf(std::string_view rest) {
    std::vector<std::string> words;
    for (auto [word, after] = SplitFirstWord(rest); !word.empty();) {
        words.push_back(word);
        std::tie(word, after) = SplitFirstWord(after);
    }
    return words;
}

std::string Unescaped(std::string_view text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto* escape = std::find_if(std::begin(kEscapes), std::end(kEscapes), [&](const Escape& each) {
            return text[i] == '\\' && i + 1 < text.size() && text[i + 1] == each.letter;
        });
        if (escape == std::end(kEscapes)) {
            plain += text[i];
        } else {
            plain += escape->character;
            ++i;
        }
    }
    return plain;
}

std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        const auto* escape = std::find_if(std::begin(kEscapes), std::end(kEscapes),
                                          [c](const Escape& each) { return c == each.character; });
        if (escape != std::end(kEscapes)) escaped += '\\';
        escaped += escape != std::end(kEscapes) ? escape->letter : c;
    }
    return escaped;
}

int NumberOf(const std::string& word, int least) {
    int number = 0;
    const char* end = word.data() + word.size();
    const auto [stop, failure] = std::from_chars(word.data(), end, number);
    if (failure != std::errc() || stop != end || number < least)
        throw CannotPlay(fmt::format("'{}' is no number from {}", word, least));
    return number;
}

}  // namespace quillon::script
