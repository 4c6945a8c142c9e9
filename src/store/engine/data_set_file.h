// The SQLite file of a DataSet: creates, checks, opens and closes it, without leaving a journal. Each
// connection has one. A DataSet is not trusted, so it is opened in defensive mode and refused with a clear
// message when it is damaged or not a DataSet.
#pragma once

#include <string>

#include "store/engine/file_identity.h"

struct sqlite3;

namespace quillon::store {

class AutoNumbers;

class DataSetFile {
public:
    // Opens an existing DataSet, or with `create` makes one in an empty file; takes and keeps the exclusive
    // lock. A failed creation leaves no file. Statements use `autoNumbers`.
    DataSetFile(const std::string& path, bool create, AutoNumbers& autoNumbers);
    ~DataSetFile() { Close(); }
    DataSetFile(const DataSetFile&) = delete;
    DataSetFile& operator=(const DataSetFile&) = delete;

    sqlite3* Native() const { return db_; }
    const FileIdentity& Identity() const { return identity_; }
    // With symbolic links followed.
    const std::string& RealPath() const { return realPath_; }
    bool IsReadOnly() const { return readOnly_; }
    // False once the path leads to another file, or to none.
    bool IsInPlace() const noexcept { return IdentityOf(realPath_) == identity_; }
    // Rolls back an open transaction. Closing twice is allowed.
    void Close() noexcept;
    // Deletes the file, after Close().
    void Remove() noexcept;

private:
    void Open(const std::string& path, bool create, AutoNumbers& autoNumbers);
    void Abandon() noexcept;
    void TakeLock();
    void MakeOwnTables();
    void Check(bool unclean);
    void LeaveNothingBeside() noexcept;
    bool EndedUncleanly() const;

    sqlite3* db_ = nullptr;
    FileIdentity identity_;
    std::string realPath_;
    std::string journalPath_;  // set at the opening, because closing must not allocate
    bool readOnly_ = false;
};

}  // namespace quillon::store
