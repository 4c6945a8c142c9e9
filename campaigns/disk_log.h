// A log of everything that this process does to the files below one folder: what is made, written, cut,
// synced, renamed and removed, in order. The calls are recorded at the C library's border, so that those of
// SQLite and those of the store's own copies are in it alike.
//
// From the log PowerLoss makes what a disk may hold after the power failed at any moment: what was synced is
// there, of the rest any part may be.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "support.h"

namespace quillon::campaign {

struct DiskCall {
    enum class Kind { Make, Write, Truncate, Sync, SyncFolder, Rename, Remove, Acknowledge };
    Kind kind = Kind::Write;
    std::uint64_t file = 0;     // its inode number
    std::string name, newName;  // in the folder; of Make, Rename and Remove
    std::uint64_t offset = 0;   // of Write; the new length of Truncate
    std::string data;           // of Write
    int number = 0;             // of Acknowledge
};

// Records from here on, for files in `folder` itself. The log of before is forgotten.
void StartDiskLog(const std::string& folder);
std::vector<DiskCall> StopDiskLog();
// Notes that unit `number` was acknowledged to its writer.
void Acknowledge(int number);

// The files of a folder by name.
using FolderContent = std::map<std::string, std::string>;

// What the disk may hold when the power fails before call number `moment` of the log (from 0), on a folder
// that held `before`, all of it durable. Of what was not synced `random` keeps any writes, the last of them
// torn at a sector, and the first so many of the changes to the folder.
class PowerLoss {
public:
    PowerLoss(const std::vector<DiskCall>& log, const FolderContent& before,
              const std::map<std::string, std::uint64_t>& files);
    FolderContent After(std::size_t moment, Random& random) const;
    // The highest number acknowledged before the moment; 0 for none.
    int AcknowledgedBefore(std::size_t moment) const;

private:
    const std::vector<DiskCall>& log_;
    const FolderContent& before_;
    const std::map<std::string, std::uint64_t>& files_;
};

// Reads and writes all files of a folder.
FolderContent ReadFolder(const std::string& folder);
void WriteFolder(const std::string& folder, const FolderContent& content);
std::map<std::string, std::uint64_t> FilesOf(const std::string& folder);

}  // namespace quillon::campaign
