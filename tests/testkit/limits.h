// Simulates disk errors for the lifetime of an object: files that cannot grow, a folder that cannot be
// written.
#pragma once

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>

namespace quillon::testkit {

// No file of this process grows beyond `bytes`, as on a disk that fills up. Nothing may be printed during its
// lifetime.
class FilesStopAt {
public:
    explicit FilesStopAt(rlim_t bytes) : old_(signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &limit_);
        const rlimit low{bytes, limit_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &low);
    }
    ~FilesStopAt() {
        setrlimit(RLIMIT_FSIZE, &limit_);
        signal(SIGXFSZ, old_);
    }
    FilesStopAt(const FilesStopAt&) = delete;
    FilesStopAt& operator=(const FilesStopAt&) = delete;

private:
    rlimit limit_{};
    sighandler_t old_;
};

// No file can be created in the folder. Permissions do not restrict root, so root becomes another user
// meanwhile.
class ReadOnlyFolder {
public:
    explicit ReadOnlyFolder(std::string folder) : folder_(std::move(folder)), user_(geteuid()) {
        chmod(folder_.c_str(), 0555);
        if (user_ == 0 && seteuid(kNobody) != 0) ADD_FAILURE() << "still the administrator";
    }
    ~ReadOnlyFolder() {
        if (user_ == 0 && seteuid(user_) != 0) ADD_FAILURE() << "no longer the administrator";
        chmod(folder_.c_str(), 0755);
    }
    ReadOnlyFolder(const ReadOnlyFolder&) = delete;
    ReadOnlyFolder& operator=(const ReadOnlyFolder&) = delete;

private:
    static constexpr uid_t kNobody = 65534;
    std::string folder_;
    uid_t user_;
};

}  // namespace quillon::testkit
