// A file in the making: written beside its target under a random name, and renamed over the target at its
// end. Until then nothing under the target's name changes, and a file that is given up leaves nothing.
//
// It is locked as long as its run lives, so that a later run can tell what a killed run has left from what
// another run is still writing. Every failure is a StoreError.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace quillon::exporting {

class UnfinishedFile {
public:
    // Makes an empty file in the folder of `target`, which is a real path.
    explicit UnfinishedFile(const std::string& target);
    // Removes the file unless it has taken its target's place.
    ~UnfinishedFile();
    UnfinishedFile(UnfinishedFile&& other) noexcept;
    UnfinishedFile& operator=(UnfinishedFile&& other) noexcept;

    // Adds the bytes at the end.
    void Write(std::string_view bytes);
    // Passes on what was written so far in blocks of at most `blockSize` bytes, until `take` returns false;
    // false then. Writing goes on at the end in either case.
    bool ReadBack(std::size_t blockSize, const std::function<bool(std::string_view)>& take);
    // Makes the file durable and renames it over the target. It takes the target's permissions.
    void TakePlace();

    // Removes what killed runs left for the target: files named like one of ours that nobody holds and whose
    // first bytes `isOurs` accepts. Nothing else is touched, and failures are passed over.
    static void RemoveAbandoned(const std::string& target,
                                const std::function<bool(std::string_view)>& isOurs);

private:
    void Discard() noexcept;

    std::string target_, path_;
    int descriptor_ = -1;
};

}  // namespace quillon::exporting
