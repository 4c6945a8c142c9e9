// The command script: plays a file of actions on the forms of the program, with standard output and standard
// error in the place of a screen.
#include <sys/stat.h>

#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>

#include "batch/commands.h"
#include "script/script_program.h"

namespace quillon::batch {

namespace {

// Results are printed at once, so that they stand between the messages where both go to one file.
class ConsoleTranscript : public script::Transcript {
public:
    void Print(std::string_view line) override {
        if (!failure_.empty()) return;
        try {
            PrintResult(std::string(line) + "\n");
            FlushResults();
        } catch (const std::runtime_error& failure) {
            failure_ = failure.what();
        }
    }
    void Message(std::string_view text) override { console_.Message(text, ""); }
    void Question(std::string_view text, std::string_view answer) override { PrintQuestion(text, answer); }
    void Remark(std::string_view line) override { PrintRemark(line); }

    // Throws what has kept a result from being printed.
    void Check() const {
        if (!failure_.empty()) throw std::runtime_error(failure_);
    }

private:
    ConsolePrompter console_{Answer::No};
    std::string failure_;
};

bool IsFile(const std::string& path) {
    struct stat info {};
    return stat(path.c_str(), &info) == 0 && !S_ISDIR(info.st_mode);
}

}  // namespace

ExitStatus RunScript(const CommonOptions& options, const std::string& path, const std::string& file,
                     const std::string& preferencesFile) {
    const bool fromInput = file == "-";
    for (const std::string& needed : {fromInput ? std::string() : file, preferencesFile}) {
        if (needed.empty() || IsFile(needed)) continue;
        PrintMessage("File " + needed + " not found!");
        return ExitStatus::Failed;
    }
    WatchSignals();
    ConsoleTranscript transcript;
    script::ScriptProgram program(
        transcript, {options.workDir, preferencesFile, options.kingdom, options.answer == Answer::Yes},
        IsSignalled);
    program.Open(path);
    std::ifstream input;
    if (!fromInput) input.open(file, std::ios::binary);
    const bool played = program.Play(fromInput ? std::cin : input);
    transcript.Check();
    return played ? ExitStatus::Done : ExitStatus::Failed;
}

}  // namespace quillon::batch
