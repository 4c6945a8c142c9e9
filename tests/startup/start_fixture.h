// A start with scripted answers. What was shown and said is recorded in order, as a list of texts.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "core/ini_profile.h"
#include "startup/start_up.h"
#include "testkit/testkit.h"

namespace quillon::startup {

using Story = std::vector<std::string>;

// Records its boxes and forms; a form does what the test has set for it in onForm.
class RecordingPrompter : public testkit::ScriptedPrompter {
public:
    explicit RecordingPrompter(Story& story) : story_(story) {}

    std::map<std::string, std::function<void()>, std::less<>> onForm;

    void Message(std::string_view text, std::string_view title) override {
        ScriptedPrompter::Message(text, title);
        story_.push_back("message: " + std::string(text));
    }
    bool AskYesNo(std::string_view text, std::string_view title) override {
        story_.push_back("question: " + std::string(text));
        return ScriptedPrompter::AskYesNo(text, title);
    }
    void ShowModal(std::string_view formName) override {
        story_.push_back("form: " + std::string(formName));
        const auto act = onForm.find(formName);
        if (act == onForm.end()) {
            ADD_FAILURE() << "unexpected form: " << formName;
        } else {
            act->second();
        }
    }

private:
    Story& story_;
};

class RecordingStage : public Stage {
public:
    explicit RecordingStage(Story& story) : story_(story) {}
    void ShowSplash() override { Record("splash"); }
    void CloseSplash() override { Record("splash closes"); }
    void ShowDataSet() override { Record("DataSet"); }
    void ShowMainForm() override { Record("main form"); }

    // The step that fails, after it has been recorded.
    std::string failing;

private:
    void Record(const std::string& step) {
        story_.push_back(step);
        if (step == failing) throw std::runtime_error(step);
    }
    Story& story_;
};

// Restores the current directory.
class KeptDirectory {
public:
    KeptDirectory() : path_(std::filesystem::current_path()) {}
    ~KeptDirectory() { std::filesystem::current_path(path_); }
    KeptDirectory(const KeptDirectory&) = delete;
    KeptDirectory& operator=(const KeptDirectory&) = delete;

private:
    std::filesystem::path path_;
};

class StartFixture : public testing::Test {
protected:
    // A closed DataSet of that version; "" for one without a version row.
    std::string MakeDataSet(std::string_view file, const std::string& version = "4.0.6",
                            const std::string& kingdom = "Animalia") const {
        testkit::DataSetFixture data;
        data.Make(kingdom);
        data.db().Execute(version.empty() ? "DELETE * FROM db_control"
                                          : "UPDATE db_control SET [value] = '" + version + "'");
        data.lifecycle.CloseDataSet();
        std::filesystem::copy_file(data.dir.File("test.mdb"), dir.File(file));
        return dir.File(file);
    }
    void WritePreferencesFile(std::string_view lines) const {
        testkit::WriteFile(iniPath, "[Taxonomic Quillon]\r\n" + std::string(lines));
    }
    void Prefer(const std::string& dataSet) const {
        WritePreferencesFile("Kingdom=Animalia\r\nRank=Species\r\nDataSet=" + dataSet + "\r\n");
    }

    testkit::TempDir dir;
    KeptDirectory kept;
    const std::string iniPath = dir.File("Qln.Ini");
    Story story;
    RecordingPrompter prompter{story};
    RecordingStage stage{story};
    ApplicationState state;
    store::Engine engine;
    dataset::Lifecycle lifecycle{state, engine, prompter};
    IniProfile profile{prompter};
    StartUp start{state, lifecycle, profile, prompter, stage, {iniPath, dir.File("data")}};
};

}  // namespace quillon::startup
