// The SQLite connection behind all handles of this process on one DataSet: its schema, its stored queries,
// its prepared statements, its part in the transaction, and the open results that must not see what is
// written under them.
//
// Only store/ uses it. A file has one connection however many Database handles are open on it, so none of
// them locks another out, and SQLite's locks on the file are never dropped by a second descriptor of this
// process.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "store/dialect/translation.h"
#include "store/engine/native.h"
#include "store/engine/physical_table.h"

namespace quillon::store {

class Engine;
class ResultSet;
struct Handle;

// A statement ready to run again and again.
struct Compiled {
    std::string text;  // in the dialect
    dialect::Translation translation;
    std::vector<std::string> parameterNames;
    std::vector<sqlite3_stmt*> idle;  // prepared and reset

    Compiled() = default;
    ~Compiled() { FinalizeIdle(); }
    Compiled(const Compiled&) = delete;
    Compiled& operator=(const Compiled&) = delete;
    void FinalizeIdle();
};

// Names without regard to the case of ASCII letters, for hash tables.
struct NameHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view name) const;
};
struct NameEqual {
    using is_transparent = void;
    bool operator()(std::string_view left, std::string_view right) const;
};
template <typename T>
using NameMap = std::unordered_map<std::string, T, NameHash, NameEqual>;

// What makes two paths the same file.
struct FileIdentity {
    std::uint64_t device = 0, number = 0;
    bool operator==(const FileIdentity&) const = default;
};

class Connection : public std::enable_shared_from_this<Connection>, private dialect::Schema {
public:
    // Opens an existing DataSet, or with `create` makes one in an empty file, which goes when that fails.
    // Throws StoreError.
    Connection(Engine& engine, const std::string& path, bool create);
    ~Connection() override;
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    sqlite3* Native() const { return db_; }
    const FileIdentity& Identity() const { return identity_; }
    bool IsReadOnly() const { return readOnly_; }
    // Writes out what is pending and leaves one file with nothing beside it. Later calls throw ObjectClosed.
    void Close();
    void RequireOpen() const;

    // The schema.
    const PhysicalTable* Table(std::string_view name) const override;
    const PhysicalTable& RequireTable(std::string_view name) const;
    const std::vector<std::unique_ptr<PhysicalTable>>& Tables() const { return tables_; }
    void AppendTable(const TableDef& def);
    void DeleteTable(std::string_view name);
    int ExecuteDefinition(const dialect::Statement& statement);

    // The stored queries.
    const std::string* Query(std::string_view name) const override;
    const std::vector<std::pair<std::string, std::string>>& Queries() const { return queries_; }
    // nullptr when there is no such query.
    std::shared_ptr<Compiled> CompileQuery(std::string_view name);
    void StoreQuery(std::string_view name, std::string_view sql);
    void ReplaceQuery(std::string_view name, std::string_view sql);
    void DropQuery(std::string_view name);

    // Translates and keeps; the same text gives the same object until the schema changes.
    std::shared_ptr<Compiled> Compile(std::string_view text);
    sqlite3_stmt* Lease(Compiled& compiled);
    void GiveBack(Compiled& compiled, sqlite3_stmt* statement);
    void Bind(const Compiled& compiled, sqlite3_stmt* statement, const std::vector<Value>& values) const;
    int Execute(Compiled& compiled, const std::vector<Value>& values);
    int ExecuteText(std::string_view text);

    // Every writer calls BeforeWrite first and AfterWrite when its statement is through.
    void BeforeWrite();
    void AfterWrite();
    // In place of AfterWrite when the statement failed.
    void WriteFailed() { LostTransaction(); }
    void CommitUnit();
    void RollbackUnit();
    void EndJob();

    void Register(ResultSet* result) { results_.push_back(result); }
    void Unregister(ResultSet* result);
    void CloseResultsOf(const Handle& handle);
    int handles = 0;  // Database objects on this connection

    // AutoNumbers. NextAutoNumber gives a fresh one; NoteAutoNumber hears of one given by hand.
    std::int64_t NextAutoNumber(std::string_view table);
    void NoteAutoNumber(std::string_view table, std::int64_t given);
    // Before rows of the table go: their numbers are not given again.
    void KeepAutoNumber(std::string_view table) { SaveCounter(table); }

    // Look-up indexes: dropped for a bulk load, remembered in the file, built again.
    void DropLookupIndexes();
    void BuildLookupIndexes();

private:
    void OpenFile(const std::string& path, bool create);
    void Configure();
    void CheckFile(bool unclean);
    void Harden();
    void LoadSchema();
    void SchemaChanged();
    static void RequireFields(const TableDef& def);
    void BeginDurable();
    void CommitDurable();
    void LostTransaction();
    void RequireUnit();
    void WentBack();
    std::int64_t& Counter(std::string_view table);
    void SaveCounter(std::string_view table);
    void SaveCounters();
    void LoadQueries();
    bool EndedUncleanly() const;
    std::shared_ptr<Compiled> Prepare(std::string_view text, dialect::Statement statement);
    void RebuildTable(const PhysicalTable& old, const TableDef& wanted);
    void AppendLink(const TableDef& def);
    void DropLink(std::string_view name);
    struct AttachedFile {
        std::string schema;  // the name that statements know it by
        std::string path;
        std::vector<TableDef> tables;
    };
    const AttachedFile& Attach(const std::string& path);
    void DetachUnused();

    Engine& engine_;
    sqlite3* db_ = nullptr;
    std::string path_;
    FileIdentity identity_;
    std::string realPath_;  // with symbolic links followed: the journal stands beside it
    bool readOnly_ = false;
    std::vector<std::unique_ptr<PhysicalTable>> tables_;
    NameMap<const PhysicalTable*> tableByName_;
    std::vector<PhysicalTable> links_;    // tables of other DataSets
    std::vector<AttachedFile> attached_;  // the files of the links
    std::vector<std::pair<std::string, std::string>> queries_;
    NameMap<std::size_t> queryByName_;
    NameMap<std::shared_ptr<Compiled>> compiledQueries_;
    std::unordered_map<std::string, std::shared_ptr<Compiled>> compiled_;
    std::vector<std::weak_ptr<Compiled>> allCompiled_;  // those let go by the tables above, too
    std::vector<ResultSet*> results_;
    NameMap<std::int64_t> counters_;       // the next number, by table
    NameMap<std::int64_t> savedCounters_;  // as the file has them
    bool durableOpen_ = false;             // BEGIN was said
    bool unitOpen_ = false;                // the engine's transaction has written here
    bool unitIsSavepoint_ = false;
    bool unitLost_ = false;  // what the engine's transaction wrote here is gone: no more may be written
    bool definitionsChanged_ = false;  // tables or queries, since the last durable commit
    std::chrono::steady_clock::time_point lastCommit_;
};

// One Database object's hold on the connection; its recordsets and queries share it, and fail once it is
// closed.
struct Handle {
    std::shared_ptr<Connection> connection;
    bool open = true;

    Connection& Require() const;  // 3420 when closed
};

// The functions and the collation that translated statements use. The pointer is handed to qln_auto.
void RegisterFunctions(sqlite3* db, Connection& connection);

}  // namespace quillon::store
