// A file that is written beside its target and then replaces it in one step. Its name cannot be guessed, and
// it is locked while its process runs. Copies, working copies, new DataSets and preferences are written
// through it. Failures are FileErrors.
//
// The name is the target's, "~new-" and ten letters. The next run on the same target removes files that
// killed runs left: those with such a name, the content of such a run, and no lock. It never removes anything
// else.
#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace quillon {

// "Writing 'NAME' failed: No space left on device.", and its errno.
class FileError : public std::runtime_error {
public:
    FileError(std::string_view step, const std::string& path, int number);
    int Number() const { return number_; }

private:
    int number_;
};

// True when a run of this kind can have written a file that begins with these bytes.
using Recognise = std::function<bool(std::string_view firstBytes)>;

class TemporaryFile {
public:
    // Creates an empty file beside the file that `target` leads to, open for reading and writing, and removes
    // what killed runs left there.
    TemporaryFile(const std::string& target, const Recognise& leftover);
    // Removes the file, unless it was published.
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::string& Path() const { return path_; }
    // The path that Publish replaces: the target with its symbolic links followed.
    const std::string& Target() const { return target_; }
    // Open until the file is published or the object is destroyed. Closing it drops the locks that SQLite
    // holds on the file in this process, so SQLite must have closed the file by then.
    int Descriptor() const { return descriptor_; }

    // Appends all of `bytes`.
    void Write(std::string_view bytes);
    // For a copy: Publish takes the owner and permissions from `original` when the target does not exist.
    void TakePermissionsOf(const std::string& original) { original_ = original; }
    void Sync();
    // Makes the file durable and replaces the target with it, keeping the target's owner and permissions.
    // After a failure the target is unchanged.
    void Publish();

private:
    bool Make();
    void TakePermissions();
    void Discard() noexcept;

    std::string target_, path_, original_;
    int descriptor_ = -1;
};

// Removes files that killed runs left beside the real path `target`, but none that a process holds.
void RemoveLeftovers(const std::string& target, const Recognise& leftover) noexcept;

// Writes all of `bytes`; `path` is for the error text.
void WriteAll(int descriptor, std::string_view bytes, const std::string& path);

// Makes the entries of the folder of `path` durable, if the file system supports it.
void SyncFolderOf(const std::string& path) noexcept;

}  // namespace quillon
