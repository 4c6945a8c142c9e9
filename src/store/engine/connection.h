// The one SQLite connection behind all handles of this process on a DataSet. It brings its parts together:
// the file, the tables and stored queries in memory, statements, units, AutoNumbers, and the results that are
// open.
//
// Only store/ uses it. A file has one connection however many Database handles are open on it, so none of
// them locks another out, and SQLite's locks on the file are never dropped by a second descriptor of this
// process.
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
    // Opens an existing DataSet, or with `create` makes one in an empty file, which goes when that fails.
    // Throws StoreError.
    Connection(const EngineState& engine, const std::string& path, bool create);
    ~Connection() override;
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    sqlite3* Native() const { return file_.Native(); }
    const FileIdentity& Identity() const { return file_.Identity(); }
    bool IsReadOnly() const { return file_.IsReadOnly(); }
    // Writes out what is pending and leaves one file with nothing beside it, also when it throws. Later calls
    // throw ObjectClosed.
    void Close();
    // Closes a file that was just made, and deletes it.
    void Abandon() noexcept;
    // ObjectClosed once closed. What a rollback has taken back is read again here.
    void RequireOpen();
    int handles = 0;  // Database objects on this connection

    // The schema. References to tables are valid until it changes.
    const PhysicalTable* Table(std::string_view name) const override { return tables_.Find(name); }
    const PhysicalTable& RequireTable(std::string_view name) const { return tables_.Require(name); }
    const std::vector<std::unique_ptr<PhysicalTable>>& AllTables() const { return tables_.All(); }
    void AppendTable(const TableDef& def);
    void DeleteTable(std::string_view name);
    void DropLookupIndexes();
    void BuildLookupIndexes();

    // The stored queries.
    const std::vector<std::pair<std::string, std::string>>& Queries() const { return queries_.All(); }
    // nullptr when there is no such query.
    std::shared_ptr<Compiled> CompileQuery(std::string_view name);
    void StoreQuery(std::string_view name, std::string_view sql);
    void ReplaceQuery(std::string_view name, std::string_view sql);
    void DropQuery(std::string_view name);

    // Statements in the dialect. Executing one gives the rows affected.
    std::shared_ptr<Compiled> Compile(std::string_view text);
    Lease Borrow(std::shared_ptr<Compiled> compiled);
    int Execute(const std::shared_ptr<Compiled>& compiled, const std::vector<Value>& values);
    int ExecuteText(std::string_view text);
    // One statement of SQLite's own SQL.
    int ExecuteNative(std::string_view sql);
    // Rows written since the opening.
    std::int64_t WriteCount() const;

    // Every writer goes through this; see Units::Write.
    template <typename Action>
    void Write(const Action& write) {
        RequireOpen();
        units_.Write(write);
    }
    void CommitUnit() { units_.Commit(); }
    void RollbackUnit() { units_.Rollback(); }
    void EndJob();
    // Everything of the command, or nothing of it when this throws.
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

// One Database object's hold on the connection; its recordsets and queries share it, and fail once it is
// closed.
struct Handle {
    std::shared_ptr<Connection> connection;
    bool open = true;

    Connection& Require() const;  // ObjectClosed when closed
};

}  // namespace quillon::store
