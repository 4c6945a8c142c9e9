// The interface of the store: opens and creates DataSets, and manages the single level of transactions that
// they share.
//
// Only one process can open a DataSet: a second process gets FileInUse. Within the process there can be any
// number of handles on the same file. Every failure is a StoreError, except for short memory, which is
// std::bad_alloc. Destructors never throw.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "store/error.h"
#include "store/query_def.h"
#include "store/recordset.h"
#include "store/schema/table_def.h"

namespace quillon::store {

class Connection;
struct EngineState;
struct Handle;

inline constexpr std::string_view kLocale = ";LANGID=0x0809;CP=1252;COUNTRY=0";

// One handle on a DataSet.
class Database {
public:
    Database(std::shared_ptr<Connection> connection, std::string path);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    // The path that it was opened with.
    const std::string& Name() const { return path_; }
    // Every recordset and query of this handle fails with ObjectClosed afterwards. Closing twice is allowed.
    // Throws when the last changes could not be written; the handle is closed nevertheless.
    void Close();
    bool IsOpen() const;
    // True when the file, or its folder, cannot be written. ObjectClosed when closed.
    bool IsReadOnly() const;

    // Runs one action statement in the dialect and returns the number of rows affected.
    int Execute(std::string_view sql);

    QueryDef OpenQueryDef(std::string_view name);
    // With a name the query is stored in the file (3012 when the name exists); with "" it is temporary.
    QueryDef CreateQueryDef(std::string_view name, std::string_view sql);
    void DeleteQueryDef(std::string_view name);
    // Names and texts of all named queries, in the order of creation.
    std::vector<std::pair<std::string, std::string>> QueryDefs();

    // A `source` is a table, a named query, or a text of SQL.
    std::unique_ptr<Recordset> OpenTable(std::string_view table);
    std::unique_ptr<Recordset> OpenRecordset(std::string_view source,
                                             RecordsetType type = RecordsetType::Dynaset);
    std::unique_ptr<Recordset> CreateDynaset(std::string_view source) { return OpenRecordset(source); }
    std::unique_ptr<Recordset> CreateSnapshot(std::string_view source) {
        return OpenRecordset(source, RecordsetType::Snapshot);
    }

    // The tables in the order of creation, without the store's own.
    std::vector<TableDef> TableDefs() const;
    // Ignores case; nullptr when there is none. Valid until the schema changes.
    const TableDef* FindTableDef(std::string_view name) const;
    // A linked table needs only its name, SourceTableName and Connect. It is read-only, exists until it is
    // deleted or the DataSet is closed, and is not stored in the file. Errors as for OpenDatabase on the
    // other DataSet, and 3078 when that has no such table.
    void AppendTable(const TableDef& table);
    void DeleteTable(std::string_view name);

    // The connection behind the handle, for the files of store/; ObjectClosed when closed.
    std::shared_ptr<Connection> Shared() const;
    const std::shared_ptr<Handle>& Hold() const { return handle_; }

private:
    std::shared_ptr<Handle> handle_;
    std::string path_;
};

using DatabaseHandle = std::shared_ptr<Database>;

class Engine {
public:
    Engine();
    ~Engine();
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    // Creates an empty DataSet; 3204 when the file exists.
    DatabaseHandle CreateDatabase(const std::string& path, std::string_view locale = kLocale);
    // The same in an empty file made by the caller, who removes it and its journal after a failure.
    DatabaseHandle CreateDatabaseIn(const std::string& emptyFile);
    // A file on a read-only medium or without write permission is opened for reading. Errors: 3024 no such
    // file, 3343 not a DataSet, 3045 open in another process, 3049 damaged.
    DatabaseHandle OpenDatabase(const std::string& path);

    // One level, over every open DataSet; nesting is an error (3034 without a begin).
    void BeginTrans();
    void CommitTrans();
    void Rollback();
    // Rolls back in a destructor or a handler: never throws, and does nothing without a transaction.
    void Abandon() noexcept;
    bool InTransaction() const;
    bool IsJobRunning() const;
    // Finishes background work; called after closing.
    void FreeLocks();

    // Between BeginJob and EndJob, committed units are grouped into durable commits at least twice a second:
    // a crash loses at most the last second, and never part of a unit. After a disk error all later writes of
    // the job fail at once with that error (StoreError::EndsJob), and so does EndJob.
    void BeginJob();
    void EndJob();

    // Between BeginCommand and CommitCommand everything is one durable commit, whose units are savepoints:
    // after a crash none of it is stored. 3034 inside a transaction, a job or another command. After a disk
    // error all later writes fail with that error, and so does CommitCommand, which then stores nothing.
    void BeginCommand();
    void CommitCommand();
    // Rolls back the command. Never throws, and does nothing without a command.
    void AbandonCommand() noexcept;
    bool IsCommandRunning() const;

    // For the files of store/.
    const EngineState& State() const { return *state_; }

private:
    std::unique_ptr<EngineState> state_;  // connections keep its address
    std::vector<std::weak_ptr<Connection>> connections_;
    std::shared_ptr<Connection> FindOpen(const std::string& path) const;
    DatabaseHandle Adopt(std::shared_ptr<Connection> connection, const std::string& path);
    template <typename Action>
    void OnEach(Action action);
};

// Calls BeginJob and EndJob.
class Job {
public:
    explicit Job(Engine& engine) : engine_(engine) { engine_.BeginJob(); }
    ~Job();
    Job(const Job&) = delete;
    Job& operator=(const Job&) = delete;
    // Ends the job now, so that the caller gets the error when it could not be made durable.
    void End();

private:
    Engine& engine_;
    bool ended_ = false;
};

}  // namespace quillon::store
