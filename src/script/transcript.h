// The lines that a script produces: results, messages, questions with their answers, and remarks about the
// script itself. quillon-batch prints them; a test collects them.
#pragma once

#include <string_view>

namespace quillon::script {

class Transcript {
public:
    virtual ~Transcript() = default;
    // A line of the results, without its end.
    virtual void Print(std::string_view line) = 0;
    virtual void Message(std::string_view text) = 0;
    virtual void Question(std::string_view text, std::string_view answer) = 0;
    // Why a line cannot be played, or an answer that no question took.
    virtual void Remark(std::string_view line) = 0;
};

}  // namespace quillon::script
