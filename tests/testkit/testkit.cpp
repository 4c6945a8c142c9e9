#include "testkit/testkit.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <utility>

#include "core/version.h"
#include "store/lifecycle/create.h"

namespace quillon::testkit {

ScriptedPrompter::~ScriptedPrompter() = default;

void ScriptedPrompter::Message(std::string_view text, std::string_view title) {
    messages.emplace_back(text);
    titles.emplace_back(title);
}

void ScriptedPrompter::WarningMessage(std::string_view text, std::string_view title) {
    warnings.emplace_back(text);
    Message(text, title);
}

void ScriptedPrompter::StopMessage(std::string_view text, std::string_view title) {
    stops.emplace_back(text);
    Message(text, title);
}

bool ScriptedPrompter::AskBeforeLoss(std::string_view text, std::string_view title) {
    losses.emplace_back(text);
    return AskYesNo(text, title);
}

bool ScriptedPrompter::AskYesNo(std::string_view text, std::string_view title) {
    questions.emplace_back(text);
    titles.emplace_back(title);
    if (yesNo.empty()) {
        ADD_FAILURE() << "unexpected question: " << text;
        return false;
    }
    const bool answer = yesNo.front();
    yesNo.pop_front();
    return answer;
}

std::optional<std::string> ScriptedPrompter::FileToOpen(std::string_view title, std::string_view filter) {
    fileTitles.emplace_back(title);
    fileFilters.emplace_back(filter);
    if (filesToOpen.empty()) {
        ADD_FAILURE() << "unexpected file dialog: " << title;
        return {};
    }
    const auto answer = filesToOpen.front();
    filesToOpen.pop_front();
    return answer;
}

std::optional<std::string> ScriptedPrompter::FileToSave(std::string_view title, std::string_view filter, bool,
                                                        std::string_view suggested) {
    fileTitles.emplace_back(title);
    fileFilters.emplace_back(filter);
    filesOffered.emplace_back(suggested);
    if (filesToSave.empty()) {
        ADD_FAILURE() << "unexpected file dialog: " << title;
        return {};
    }
    const auto answer = filesToSave.front();
    filesToSave.pop_front();
    return answer;
}

TempDir::TempDir() {
    std::string pattern = std::filesystem::temp_directory_path() / "quillon-XXXXXX";
    path_ = mkdtemp(pattern.data());
}

TempDir::~TempDir() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string TempDir::File(std::string_view name) const {
    return std::filesystem::path(path_) / name;
}

// Making a DataSet costs fifty times as much as copying one. The build has made those of the kingdoms that
// tests use most; any other is made once a process.
static const std::string& NewDataSetBytes(store::Engine& engine, const std::string& kingdom,
                                          const std::string& version) {
    static std::map<std::pair<std::string, std::string>, std::string> made;
    std::string& bytes = made[{kingdom, version}];
    if (bytes.empty() && version == kProgramVersion)
        bytes = ReadFile(QUILLON_TEMPLATES "/" + kingdom + ".mdb");
    if (bytes.empty()) {
        const TempDir folder;
        store::MakeDataSetFile(engine, folder.File("new.mdb"), kingdom, version);
        bytes = ReadFile(folder.File("new.mdb"));
    }
    return bytes;
}

void DataSetFixture::Make(const std::string& kingdom, std::string_view file) {
    state.gKingdomName = kingdom;
    state.gPrefRank = "Kingdom";
    state.gOldKingdomName.clear();
    state.gOldPrefRank.clear();
    const std::string path = dir.File(file);
    if (state.gDataSetOpen) lifecycle.CloseDataSet();
    WriteFile(path, NewDataSetBytes(engine, kingdom, state.gVersion));
    lifecycle.OpenNewDataSet(path);
    prompter.fileTitles.clear();
    prompter.fileFilters.clear();
}

std::string Lines(std::initializer_list<std::string_view> lines) {
    std::string text;
    for (const std::string_view line : lines) text.append(line).append("\r\n");
    return text;
}

std::string DumpRows(store::Recordset& rows) {
    std::string text;
    for (; !rows.Eof(); rows.MoveNext()) {
        for (std::size_t i = 0; i < rows.ColumnCount(); ++i) {
            const Value value = rows.At(i);
            text += (i == 0 ? "" : "\t") + (value.IsNull() ? "\\N" : value.AsText());
        }
        text += '\n';
    }
    return text;
}

std::string DataSetFixture::Dump(std::string_view sql) {
    const auto rows = db().CreateSnapshot(sql);
    return DumpRows(*rows);
}

std::string DataSetFixture::DumpEverything() {
    std::string text;
    for (const store::TableDef& table : db().TableDefs())
        text += table.name + ":\n" + Dump("SELECT * FROM " + table.name);
    return text;
}

std::string ReadFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

void WriteFile(const std::string& path, std::string_view content) {
    std::ofstream(path, std::ios::binary).write(content.data(), static_cast<std::streamsize>(content.size()));
}

}  // namespace quillon::testkit
