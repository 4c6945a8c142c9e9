// The SQLite file of a DataSet: making, checking and opening it, and closing it so that nothing is left
// beside it. A connection has one. A DataSet may come from anywhere, so it is opened in defensive mode and
// refused in plain words when it is damaged or something else.
#pragma once

#include <string>

#include "store/engine/file_identity.h"

struct sqlite3;

namespace quillon::store {

class AutoNumbers;

class DataSetFile {
public:
    // Opens an existing DataSet, or with `create` makes one in an empty file; the exclusive lock is taken
    // here and kept. A creation that fails leaves no file. Statements take their AutoNumbers from
    // `autoNumbers`.
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
    // A transaction that is open is rolled back. Closing twice is allowed.
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
    std::string journalPath_;  // made ahead: closing must not need memory
    bool readOnly_ = false;
};

}  // namespace quillon::store
