// The lines of a script: one action each, as a word and what follows it. The player reads them; nothing here
// knows what an action does.
//
// A line that is empty or begins with # is skipped, also after blanks. A line may end with CR LF.
#pragma once

#include <istream>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillon::script {

// Why a line cannot be played, as a clause without a full stop.
class CannotPlay : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

struct ScriptLine {
    int number = 0;  // from 1, skipped lines included
    std::string action;
    std::string rest;  // after one blank, as written
};

class ScriptReader {
public:
    // `input` must outlive the reader.
    explicit ScriptReader(std::istream& input) : input_(input) {}
    // The next action; empty at the end.
    std::optional<ScriptLine> Next();
    // The line that was read last.
    int Number() const { return number_; }

private:
    std::istream& input_;
    int number_ = 0;
};

// The first word, and what follows it after one blank.
std::pair<std::string, std::string> SplitFirstWord(std::string_view rest);
std::vector<std::string> WordsOf(std::string_view rest);
// The text with "\n", "\t", "\r" and "\\" for line feed, tab, carriage return and backslash. A backslash
// before any other character stands for itself.
std::string Unescaped(std::string_view text);
// The same the other way.
std::string Escaped(std::string_view text);
// A whole number of at least `least`. Throws CannotPlay.
int NumberOf(const std::string& word, int least = 0);

}  // namespace quillon::script
