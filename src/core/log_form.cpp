#include "core/log_form.h"

#include <fmt/format.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>
#include <utility>

#include "core/file_identity.h"
#include "core/file_replace.h"
#include "core/target_check.h"

namespace quillon {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kSaveTitle = "Save Error Log As";
constexpr std::string_view kLogFilter = "Taxonomic Files (*.LOG)|*.log|All Files (*.*)|*.*";

bool LacksEnding(const std::string& path) {
    return fs::path(path).filename().string().find('.') == std::string::npos;
}

bool HasFolder(const std::string& path) {
    const fs::path folder = fs::path(path).parent_path();
    std::error_code error;
    return folder.empty() || fs::is_directory(folder, error);
}

bool IsOrdinaryFile(const std::string& path) {
    std::error_code error;
    return fs::is_regular_file(path, error);
}

}  // namespace

LogForm::LogForm(std::string name, std::string_view title, const ApplicationState& state, Prompter& prompter,
                 std::string logPath, std::string removedPath)
    : form(std::move(name)),
      state_(state),
      prompter_(prompter),
      logPath_(std::move(logPath)),
      removedPath_(std::move(removedPath)) {
    form.SetTitle(title);
    cmdSave.OnClick([this] { SaveLogAs(); });
    cmdOK.OnClick([this] { Exit(); });
    form.OnUserClose([this] { Exit(); });
}

// The dialog has asked about the name as typed.
void LogForm::SaveLogAs() {
    auto path = prompter_.FileToSave(kSaveTitle, kLogFilter, true);
    if (!path) return;
    if (LacksEnding(*path)) {
        *path += ".LOG";
        if (FileExists(*path) &&
            !prompter_.AskBeforeLoss(fmt::format("File '{}' already exists.  Overwrite?", *path), kSaveTitle))
            return;
    }
    const std::string refusal = Refusal(*path);
    refusal.empty() ? MoveLogTo(*path) : prompter_.WarningMessage(refusal, kSaveTitle);
}

std::string LogForm::Refusal(const std::string& path) const {
    if (!IsOrdinaryFile(logPath_)) return fmt::format("The log '{}' is no longer there.", logPath_);
    if (IsSameFile(path, logPath_)) return fmt::format("'{}' is the log itself.", path);
    switch (FaultOfTarget(path, {state_.gDataSetPath, state_.gExportPath})) {
        case TargetFault::InUse:
            return fmt::format("'{}' is an open DataSet, and cannot be overwritten.", path);
        case TargetFault::NotOrdinary:
            return fmt::format("'{}' is not an ordinary file.", path);
        case TargetFault::DataSet:
            return fmt::format("'{}' is a DataSet, and cannot be overwritten.", path);
        case TargetFault::None:
            break;
    }
    return {};
}

void LogForm::MoveLogTo(const std::string& path) {
    const std::string failure =
        HasFolder(path) ? ReplaceFile(path, ReadLog(logPath_)) : "there is no such folder";
    if (!failure.empty())
        return prompter_.WarningMessage(fmt::format("Failed '{}' cannot be written: {}.", path, failure),
                                        kSaveTitle);
    std::error_code error;
    fs::remove(logPath_, error);
}

void LogForm::Exit() {
    std::error_code error;
    if (IsOrdinaryFile(removedPath_)) fs::remove(removedPath_, error);
    form.Close();
}

std::string ReadLog(const std::string& path) {
    if (!IsOrdinaryFile(path)) return {};
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace quillon
