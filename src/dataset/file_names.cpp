#include "dataset/file_names.h"

#include <fmt/format.h>

#include <filesystem>

#include "core/file_identity.h"
#include "dataset/lifecycle.h"
#include "store/lifecycle/file_copy.h"

namespace quillon::dataset {

std::string WithExtension(std::string path) {
    if (path.find('.') == std::string::npos) path += ".MDB";
    return path;
}

std::string FindDataSetFile(const std::string& path) {
    if (FileExists(path) || !std::filesystem::path(path).extension().empty()) return path;
    for (const char* ending : {".mdb", ".MDB"})
        if (FileExists(path + ending)) return path + ending;
    return WithExtension(path);
}

bool AskToOverwrite(Prompter& prompter, const std::string& path) {
    return prompter.AskBeforeLoss(fmt::format("DataSet '{}' already exists.  Overwrite?", path),
                                  "Duplicate DataSet Name");
}

std::optional<std::string> AskNewDataSetFile(Prompter& prompter, std::string_view title) {
    for (;;) {
        const auto chosen = prompter.FileToSave(title, kDataSetFilter, true);
        if (!chosen || chosen->empty()) return std::nullopt;
        const std::string path = WithExtension(*chosen);
        const bool dialogAsked = path == *chosen && FileExists(path);
        if (dialogAsked || !store::IsDataSetPlaceTaken(path) || AskToOverwrite(prompter, path)) return path;
    }
}

}  // namespace quillon::dataset
