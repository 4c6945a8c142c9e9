#include "disk_log.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>

namespace quillon::campaign {

namespace {

constexpr std::size_t kSector = 512;

// A file as the disk has it, and what was written to it since its last sync.
struct DiskFile {
    std::string durable;
    std::vector<const DiskCall*> pending;
};

void Apply(const DiskCall& call, std::size_t length, std::string& content) {
    if (call.kind == DiskCall::Kind::Truncate) {
        content.resize(call.offset);
        return;
    }
    if (content.size() < call.offset + length) content.resize(call.offset + length);
    content.replace(call.offset, length, call.data, 0, length);
}

void ApplyToFolder(const DiskCall& call, std::map<std::string, std::uint64_t>& names) {
    if (call.kind == DiskCall::Kind::Make) {
        names[call.name] = call.file;
        return;
    }
    const auto found = names.find(call.name);
    if (found == names.end()) return;
    const std::uint64_t file = found->second;
    names.erase(found);
    if (call.kind == DiskCall::Kind::Rename) names[call.newName] = file;
}

// Any of the pending writes may have reached the disk, and one of them in part.
std::string Surviving(const DiskFile& file, Random& random) {
    std::string content = file.durable;
    const bool mostly = random() % 2 == 0;
    for (const DiskCall* call : file.pending) {
        const std::uint64_t chance = random() % 16;
        if (mostly ? chance == 0 : chance >= 4) continue;
        std::size_t length = call->data.size();
        if (random() % 16 == 0 && length > kSector) length = random() % (length / kSector) * kSector;
        Apply(*call, length, content);
    }
    return content;
}

}  // namespace

PowerLoss::PowerLoss(const std::vector<DiskCall>& log, const FolderContent& before,
                     const std::map<std::string, std::uint64_t>& files)
    : log_(log), before_(before), files_(files) {}

FolderContent PowerLoss::After(std::size_t moment, Random& random) const {
    std::map<std::uint64_t, DiskFile> disk;
    std::map<std::string, std::uint64_t> names = files_;
    for (const auto& [name, file] : files_) disk[file].durable = before_.at(name);
    std::vector<const DiskCall*> folderCalls;
    for (std::size_t i = 0; i < moment; ++i) {
        const DiskCall& call = log_[i];
        switch (call.kind) {
            case DiskCall::Kind::Write:
            case DiskCall::Kind::Truncate:
                disk[call.file].pending.push_back(&call);
                break;
            case DiskCall::Kind::Sync:
                for (const DiskCall* written : disk[call.file].pending)
                    Apply(*written, written->data.size(), disk[call.file].durable);
                disk[call.file].pending.clear();
                break;
            case DiskCall::Kind::Make:
                disk[call.file] = {};
                folderCalls.push_back(&call);
                break;
            case DiskCall::Kind::Rename:
            case DiskCall::Kind::Remove:
                folderCalls.push_back(&call);
                break;
            case DiskCall::Kind::SyncFolder:
                for (const DiskCall* changed : folderCalls) ApplyToFolder(*changed, names);
                folderCalls.clear();
                break;
            case DiskCall::Kind::Acknowledge:
                break;
        }
    }
    const std::size_t kept = random() % (folderCalls.size() + 1);
    for (std::size_t i = 0; i < kept; ++i) ApplyToFolder(*folderCalls[i], names);
    FolderContent content;
    for (const auto& [name, file] : names) content[name] = Surviving(disk[file], random);
    return content;
}

int PowerLoss::AcknowledgedBefore(std::size_t moment) const {
    int highest = 0;
    for (std::size_t i = 0; i < moment; ++i)
        if (log_[i].kind == DiskCall::Kind::Acknowledge) highest = std::max(highest, log_[i].number);
    return highest;
}

FolderContent ReadFolder(const std::string& folder) {
    FolderContent content;
    std::error_code ignored;  // of a link that leads nowhere
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (entry.is_regular_file(ignored)) content[entry.path().filename()] = ReadFile(entry.path());
    return content;
}

void WriteFolder(const std::string& folder, const FolderContent& content) {
    std::filesystem::remove_all(folder);
    std::filesystem::create_directory(folder);
    for (const auto& [name, bytes] : content) WriteFile(folder + "/" + name, bytes);
}

std::map<std::string, std::uint64_t> FilesOf(const std::string& folder) {
    std::map<std::string, std::uint64_t> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        struct stat info {};
        if (stat(entry.path().c_str(), &info) == 0 && S_ISREG(info.st_mode))
            files[entry.path().filename()] = info.st_ino;
    }
    return files;
}

}  // namespace quillon::campaign
