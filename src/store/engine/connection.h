// The one SQLite connection behind all handles of this process on a DataSet. It combines the file, the tables
// and stored queries in memory, statements, units, AutoNumbers, and the open results.
//
// Only store/ uses it. A file has one connection for any number of Database handles, so they do not lock each
// other out, and no second descriptor of this process drops SQLite's locks on the file.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "store/engine/auto_numbers.h"
#include "store/engine/data_set_file.h"
#include "store/engine/engine_state.h"
#include "store/engine/linked_files.h"
#include "store/engine/native.h"
#include "store/engine/open_results.h"
#include "store/engine/statements.h"
#include "store/engine/stored_queries.h"
#include "store/engine/tables.h"
#include "store/engine/units.h"

namespace quillon::store {

class Connection : private dialect::Schema, private Units::Listener {
public:
    // Opens an existing DataSet, or with `create` makes one in an empty file, which is removed when that
    // fails. Throws StoreError.
    Connection(const EngineState& engine, const std::string& path, bool create);
    ~Connection() override;
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    sqlite3* Native() const { return file_.Native(); }
    const FileIdentity& Identity() const { return file_.Identity(); }
    bool IsReadOnly() const { return file_.IsReadOnly(); }
    // Writes pending data and removes the journal, also when it throws. Later calls throw ObjectClosed.
    void Close();
    // Closes and deletes a new file.
    void Abandon() noexcept;
    // Throws ObjectClosed once closed. Reads the schema again after a rollback.
    void RequireOpen();
    int handles = 0;                      // Database objects on this connection
    NativeTurns* currentTurns = nullptr;  // the innermost of those at work

    // The schema. References to tables are valid until it changes.
    const PhysicalTable* Table(std::string_view name) const override { return tables_.Find(name); }
    const PhysicalTable& RequireTable(std::string_view name) const { return tables_.Require(name); }
    const std::vector<std::unique_ptr<PhysicalTable>>& AllTables() const { return tables_.All(); }
    void AppendTable(const TableDef& def);
    void DeleteTable(std::string_view name);
    void DropLookupIndexes();
    void BuildLookupIndexes();
    void RenewLookupIndexes();

    // The stored queries.
    const std::vector<std::pair<std::string, std::string>>& Queries() const { return queries_.All(); }
    // nullptr when there is no such query.
    std::shared_ptr<Compiled> CompileQuery(std::string_view name);
    void StoreQuery(std::string_view name, std::string_view sql);
    void ReplaceQuery(std::string_view name, std::string_view sql);
    void DropQuery(std::string_view name);

    // Statements in the dialect. Execute returns the number of rows affected.
    std::shared_ptr<Compiled> Compile(std::string_view text);
    Lease Borrow(std::shared_ptr<Compiled> compiled);
    int Execute(const std::shared_ptr<Compiled>& compiled, const std::vector<Value>& values);
    int ExecuteText(std::string_view text);
    // Runs one statement of SQLite's SQL.
    int ExecuteNative(std::string_view sql);
    // The number of rows written since the opening.
    std::int64_t WriteCount() const;

    // All writes go through this; see Units::Write.
    template <typename Action>
    void Write(const Action& write) {
        RequireOpen();
        units_.Write(write);
    }
    void CommitUnit() { units_.Commit(); }
    void RollbackUnit() { units_.Rollback(); }
    void EndJob();
    // Commits all of the command, or nothing when it throws.
    void CommitCommand();
    void AbandonCommand() noexcept { units_.AbandonJob(); }

    AutoNumbers& Numbers() { return autoNumbers_; }
    OpenResults& Results() { return results_; }

private:
    const std::string* Query(std::string_view name) const override { return queries_.Text(name); }
    void RolledBack(bool definitions) noexcept override;
    void LoadSchema();
    void DefinitionsChanged();
    int ExecuteDefinition(const dialect::Statement& statement);
    void AppendLink(const TableDef& def);
    void DropLink(std::string_view name);
    void WritePending();

    Tables tables_;
    AutoNumbers autoNumbers_{tables_};
    OpenResults results_;
    DataSetFile file_;
    Statements statements_{*this};
    StoredQueries queries_;
    Units units_;
    LinkedFiles links_;
    bool schemaStale_ = true;  // tables and queries in memory may differ from the file
};

// The connection of one Database object, shared by its recordsets and queries, which fail once it is closed.
struct Handle {
    std::shared_ptr<Connection> connection;
    bool open = true;

    Connection& Require() const;  // ObjectClosed when closed
};

}  // namespace quillon::store
