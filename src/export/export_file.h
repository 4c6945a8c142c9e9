// The file that an export writes: made beside its target, in one large buffer, and put in its place when it
// is complete. Until Publish() nothing under the target's name changes; a file that is not published leaves
// nothing behind, and what a killed run left for the same target is removed.
//
// It is CP1252 at first. When a text comes that CP1252 cannot hold, what was written becomes UTF-8 with a
// byte order mark, and the caller goes on in UTF-8; whether such a file is acceptable is for the caller to
// ask. Every failure is a StoreError, a full disk among them.
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
    // `target` must not exist or be a regular file; a symbolic link stays a link.
    ExportFile(const std::string& target, Encoding encoding);

    Encoding CurrentEncoding() const { return encoding_; }
    // What has not been written yet, in the current encoding: lines are put together at its end.
    std::string& Buffer() { return buffer_; }
    // After each line: writes the buffer out when it is full.
    void LineDone() {
        if (buffer_.size() >= kBufferSize) Flush();
    }
    // Turns all that was written, buffer included, from CP1252 into UTF-8. `goOn` is called for each block;
    // where it returns false everything stays as it was, and so does the result. It may be empty.
    bool SwitchToUtf8(const std::function<bool()>& goOn = {});
    // Writes the rest, makes the file durable, and puts it in the target's place.
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
