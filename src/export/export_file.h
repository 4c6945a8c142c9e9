// The file that an export writes: created beside its target, written through a large buffer, and moved into
// place when it is complete. Until Publish() the target does not change; a file that is not published is
// removed, as are leftovers of killed runs for the same target.
//
// It is CP1252 at first. For a text that CP1252 cannot hold, what was written is converted to UTF-8 with a
// byte order mark, and the caller continues in UTF-8; the caller decides whether such a file is acceptable.
// Every failure, including a full disk, is a StoreError.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "core/temporary_file.h"

namespace quillon::exporting {

enum class Encoding { Cp1252, Utf8 };

class ExportFile {
public:
    // `target` must not exist or must be a regular file; a symbolic link stays a link.
    ExportFile(const std::string& target, Encoding encoding);

    Encoding CurrentEncoding() const { return encoding_; }
    // The unwritten text in the current encoding. Callers append lines to it.
    std::string& Buffer() { return buffer_; }
    // Call it after each line. Writes the buffer when it is full.
    void LineDone() {
        if (buffer_.size() >= kBufferSize) Flush();
    }
    // Converts everything written, including the buffer, from CP1252 to UTF-8. `goOn`, which may be empty, is
    // called for each block; when it returns false, nothing changes and the result is false.
    bool SwitchToUtf8(const std::function<bool()>& goOn = {});
    // Writes the rest, makes the file durable, and replaces the target.
    void Publish();

private:
    static constexpr std::size_t kBufferSize = std::size_t{1} << 20;
    void Flush();

    std::string target_;  // with symbolic links followed
    std::unique_ptr<TemporaryFile> file_;
    Encoding encoding_;
    std::string buffer_;
};

}  // namespace quillon::exporting
