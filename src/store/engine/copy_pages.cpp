#include "store/engine/copy_pages.h"

#include <sqlite3.h>

namespace quillon::store {

namespace {

constexpr int kPagesAtOnce = 500;

class Backup {
public:
    Backup(const Connection& from, const std::string& to) {
        const int code =
            sqlite3_open_v2(to.c_str(), &to_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
        if (code == SQLITE_OK) {
            sqlite3_exec(to_, "PRAGMA synchronous = OFF; PRAGMA journal_mode = OFF", nullptr, nullptr,
                         nullptr);
            backup_ = sqlite3_backup_init(to_, "main", from.Native(), "main");
        }
        if (backup_ != nullptr) return;
        const int failed = sqlite3_extended_errcode(to_);
        sqlite3_close(to_);
        ThrowCode(failed);
    }
    ~Backup() {
        sqlite3_backup_finish(backup_);
        sqlite3_close(to_);
    }
    Backup(const Backup&) = delete;
    Backup& operator=(const Backup&) = delete;

    // False when all pages are copied.
    bool Step() {
        const int code = sqlite3_backup_step(backup_, kPagesAtOnce);
        if (code == SQLITE_DONE) return false;
        if (code != SQLITE_OK) ThrowCode(code, sqlite3_errmsg(to_));
        return true;
    }

private:
    sqlite3* to_ = nullptr;
    sqlite3_backup* backup_ = nullptr;
};

}  // namespace

void CopyPages(const Connection& from, const std::string& to, const std::function<bool()>& goOn) {
    Backup backup(from, to);
    while (backup.Step())
        if (!goOn()) ThrowCode(SQLITE_INTERRUPT, "interrupted");
}

}  // namespace quillon::store
