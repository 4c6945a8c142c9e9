#include "import/import_error_form.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "import/import_log.h"

namespace quillon::importing {

namespace {

constexpr std::string_view kSaveTitle = "Save Error Log As";
constexpr std::string_view kLogFilter = "Taxonomic Files (*.LOG)|*.log|All Files (*.*)|*.*";

std::string WholeFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace

FrmIError::FrmIError(Prompter& prompter, const std::string& workDirectory)
    : prompter_(prompter), logPath_(PathIn(workDirectory, kLogName)) {
    form.SetTitle("Import Error Log");
    txtError.SetText(WholeFile(logPath_));
    txtError.SetLocked(true);
    cmdSave.OnClick([this] { SaveLogAs(); });
    cmdOK.OnClick([this] { Exit(); });
    form.OnUserClose([this] { Exit(); });
}

void FrmIError::SaveLogAs() {
    auto path = prompter_.FileToSave(kSaveTitle, kLogFilter, true);
    if (!path) return;
    if (std::filesystem::path(*path).filename().string().find('.') == std::string::npos) *path += ".LOG";
    std::error_code error;
    std::filesystem::copy_file(logPath_, *path, std::filesystem::copy_options::overwrite_existing, error);
    if (error) {
        prompter_.Message("Failed " + error.message());
        return;
    }
    std::filesystem::remove(logPath_, error);
}

void FrmIError::Exit() {
    std::error_code error;
    std::filesystem::remove(logPath_, error);
    form.Close();
}

}  // namespace quillon::importing
