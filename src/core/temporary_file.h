// A file that is written beside its target and then replaces it in one step. Its name cannot be guessed, and
// it is locked while its run lives. Copies, working copies, new DataSets and preferences are written through
// it. Failures are FileErrors.
//
// The name is the target's, "~new-" and ten letters. What a killed run leaves has such a name, a content that
// its kind of run writes, and no lock; the next run on the same target removes it. Nothing else beside a
// target is ever removed.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace quillon {

// "Writing 'NAME' failed: No space left on device.", and the system's number for it.
class FileError : public std::runtime_error {
public:
    FileError(std::string_view step, const std::string& path, int number);
    int Number() const { return number_; }

private:
    int number_;
};

// Whether a file that begins with these bytes can be the work of a run of this kind.
using Recognise = bool (*)(std::string_view firstBytes);
inline bool AnyContent(std::string_view) {
    return true;
}

class TemporaryFile {
public:
    // An empty file beside the file that `target` leads to, open for reading and writing. What earlier runs
    // left there is removed.
    explicit TemporaryFile(const std::string& target, Recognise leftover = AnyContent);
    // Removes the file, unless it was published.
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::string& Path() const { return path_; }
    // Where Publish puts the file: the target with its symbolic links followed.
    const std::string& Target() const { return target_; }
    // Open until the file is published or the object goes: closing it would take along the locks that SQLite
    // has on the file in this process. So SQLite must have closed the file by then.
    int Descriptor() const { return descriptor_; }

    // Appends all of `bytes`.
    void Write(std::string_view bytes);
    // For a copy: the owner and the permissions that Publish gives the file where there is no target to take
    // them from.
    void TakePermissionsOf(const std::string& original) { original_ = original; }
    void Sync();
    // Makes the file durable and puts it in the target's place, with the owner and the permissions of the
    // file that it replaces. After a failure the target is as it was.
    void Publish();

private:
    bool Make();
    void TakePermissions();
    void Discard() noexcept;

    std::string target_, path_, original_;
    int descriptor_ = -1;
};

// Removes what killed runs left beside the real path `target`. A file that a process holds stays.
void RemoveLeftovers(const std::string& target, Recognise leftover = AnyContent) noexcept;

// Writes all of `bytes`; a failure names `path`.
void WriteAll(int descriptor, std::string_view bytes, const std::string& path);

// Makes the entries of the folder of `path` durable, where the file system can.
void SyncFolderOf(const std::string& path) noexcept;

}  // namespace quillon
