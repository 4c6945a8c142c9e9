#include "export/form_parts.h"

#include <filesystem>

#include "core/text.h"

namespace quillon::exporting {

namespace {

constexpr std::size_t kExtensionLength = 4;

}  // namespace

std::string WithQln(const std::string& path) {
    if (path.empty()) return {};
    const std::size_t length = CharacterCount(path);
    const std::size_t kept = length > kExtensionLength ? length - kExtensionLength : 0;
    return std::string(LeftCharacters(path, kept)) + ".qln";
}

std::string WithExtension(const std::string& path, std::string_view extension) {
    const bool complete = std::filesystem::path(path).filename().string().find('.') != std::string::npos;
    return complete ? path : path + std::string(extension);
}

ListType ChosenListType(const OptionControl& optAuthority, const OptionControl& optRank) {
    if (optRank.Value()) return ListType::NameAuthorRank;
    return optAuthority.Value() ? ListType::NameAuthor : ListType::Name;
}

}  // namespace quillon::exporting
