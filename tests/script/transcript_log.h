// Collects what a script prints, one line each, with the kind in front of it.
#pragma once

#include <string>

#include "script/transcript.h"

namespace quillon::script {

class TranscriptLog : public Transcript {
public:
    std::string log;

    void Print(std::string_view line) override { Add("", line); }
    void Message(std::string_view text) override { Add("message: ", text); }
    void Question(std::string_view text, std::string_view answer) override {
        Add("question: ", std::string(text) + " [" + std::string(answer) + "]");
    }
    void Remark(std::string_view line) override { Add("", line); }

private:
    void Add(std::string_view kind, std::string_view line) {
        log += std::string(kind) + std::string(line) + "\n";
    }
};

}  // namespace quillon::script
