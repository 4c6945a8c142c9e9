#include "store/engine/connection.h"

#include <fmt/format.h>
#include <sqlite3.h>

#include <exception>

#include "store/dialect/parser.h"
#include "store/engine/definitions.h"
#include "store/engine/id_ranges.h"
#include "store/engine/read_tables.h"
#include "store/engine/result_set.h"

namespace quillon::store {

namespace {

[[noreturn]] void FailClosed() {
    throw StoreError(ErrorNumber::ObjectClosed, "The DataSet of this object has been closed.");
}

bool IsDefinition(const dialect::Statement& statement) {
    using Kind = dialect::StatementKind;
    return statement.kind != Kind::Select && statement.kind != Kind::Insert &&
           statement.kind != Kind::Update && statement.kind != Kind::Delete;
}

}  // namespace

Connection& Handle::Require() const {
    if (!open || connection == nullptr) FailClosed();
    connection->RequireOpen();
    return *connection;
}

Connection::Connection(const EngineState& engine, const std::string& path, bool create)
    : file_(path, create, autoNumbers_), units_(engine, results_, *this), links_(engine, *this) {
    try {
        units_.Attach(Native(), file_.RealPath(), file_.Identity(), IsReadOnly());
        statements_.Attach(Native());
        links_.Attach(Native());
        LoadSchema();
        if (!IsReadOnly()) BuildLookupIndexes();
        RequireOpen();
        autoNumbers_.Attach(Native());
        RequireIdsInRange(Native(), tables_);
    } catch (...) {
        if (create) Abandon();
        throw;
    }
}

Connection::~Connection() {
    try {
        Close();
    } catch (...) {
        // Committed data is in the file.
    }
}

void Connection::RequireOpen() {
    if (Native() == nullptr) FailClosed();
    units_.Recover();
    if (schemaStale_) LoadSchema();
}

void Connection::Close() {
    if (Native() == nullptr) return;
    results_.CloseAll();
    std::exception_ptr failure;
    try {
        WritePending();
    } catch (...) {
        failure = std::current_exception();
    }
    statements_.FinalizeIdle();
    file_.Close();
    if (failure) std::rethrow_exception(failure);
}

void Connection::Abandon() noexcept {
    results_.CloseAll();
    statements_.FinalizeIdle();
    file_.Close();
    file_.Remove();
}

void Connection::WritePending() {
    if (units_.IsUnitOpen()) units_.Rollback();
    if (IsReadOnly()) return;
    units_.Recover();
    // In a file that was moved away only counters would be left to save.
    if (!units_.IsDurableOpen() && !file_.IsInPlace()) return;
    autoNumbers_.SaveAll();
    units_.CommitDurable();
}

// The schema.

// Numbers are not reused, so the counters are kept after a rollback.
void Connection::RolledBack(bool definitions) noexcept {
    autoNumbers_.ForgetSaved();
    schemaStale_ = schemaStale_ || definitions;
}

void Connection::LoadSchema() {
    tables_.Replace(ReadTables(Native()), links_.Links());
    queries_.Load(Native());
    statements_.Forget();
    autoNumbers_.KeepExisting();
    schemaStale_ = false;
}

void Connection::DefinitionsChanged() {
    units_.DefinitionsChanged();
    schemaStale_ = true;
}

void Connection::AppendTable(const TableDef& def) {
    if (Table(def.name) != nullptr)
        throw StoreError(ErrorNumber::ObjectExists, fmt::format("The table '{}' already exists.", def.name));
    if (def.IsLinked()) return AppendLink(def);
    RequireIndexedFields(def);
    Write([&] {
        CreateTable(Native(), def);
        DefinitionsChanged();
    });
}

void Connection::DeleteTable(std::string_view name) {
    const TableDef& def = RequireTable(name).def;
    const std::string own = def.name;
    if (def.IsLinked()) return DropLink(own);
    Write([&] {
        DropTable(Native(), own);
        autoNumbers_.Remove(own);
        DefinitionsChanged();
    });
}

// Pending writes are committed first, because attaching and detaching require that no transaction is open.
void Connection::AppendLink(const TableDef& def) {
    if (!units_.IsUnitOpen()) units_.CommitDurable();
    links_.Add(def);
    schemaStale_ = true;
}

void Connection::DropLink(std::string_view name) {
    if (!units_.IsUnitOpen()) units_.CommitDurable();
    links_.Remove(name);
    schemaStale_ = true;
}

int Connection::ExecuteDefinition(const dialect::Statement& statement) {
    const PhysicalTable table = RequireTable(statement.table);
    if (table.def.IsLinked())
        throw StoreError(ErrorNumber::NotInThisKind,
                         fmt::format("The table '{}' belongs to another DataSet.", table.def.name));
    Write([&] {
        ChangeTable(Native(), table, statement);
        DefinitionsChanged();
    });
    return 0;
}

void Connection::DropLookupIndexes() {
    Write([&] { store::DropLookupIndexes(Native(), tables_); });
}

// The schema in memory still lists the deferred indexes.
void Connection::BuildLookupIndexes() {
    const std::vector<std::string> waiting = WaitingIndexes(Native());
    if (waiting.empty()) return;
    Write([&] {
        store::BuildLookupIndexes(Native(), tables_, waiting);
        DefinitionsChanged();
    });
}

void Connection::RenewLookupIndexes() {
    Write([&] {
        if (store::RenewLookupIndexes(Native(), tables_)) DefinitionsChanged();
    });
}

// Stored queries.

std::shared_ptr<Compiled> Connection::CompileQuery(std::string_view name) {
    RequireOpen();
    const std::string* text = queries_.Text(name);
    return text == nullptr ? nullptr : statements_.CompileQuery(name, *text);
}

void Connection::StoreQuery(std::string_view name, std::string_view sql) {
    if (queries_.Text(name) != nullptr)
        throw StoreError(ErrorNumber::QueryExists, fmt::format("The query '{}' already exists.", name));
    Write([&] {
        queries_.Add(Native(), name, sql);
        units_.DefinitionsChanged();
    });
}

void Connection::ReplaceQuery(std::string_view name, std::string_view sql) {
    dialect::ParseStatement(sql);
    Write([&] {
        StoredQueries::Replace(Native(), name, sql);
        DefinitionsChanged();
    });
}

void Connection::DropQuery(std::string_view name) {
    if (queries_.Text(name) == nullptr)
        throw StoreError(ErrorNumber::ItemNotFound,
                         fmt::format("There is no query '{}' in the DataSet.", name));
    Write([&] {
        StoredQueries::Drop(Native(), name);
        DefinitionsChanged();
    });
}

// Statements.

std::shared_ptr<Compiled> Connection::Compile(std::string_view text) {
    RequireOpen();
    return statements_.Compile(text);
}

Lease Connection::Borrow(std::shared_ptr<Compiled> compiled) {
    return {statements_, std::move(compiled)};
}

int Connection::Execute(const std::shared_ptr<Compiled>& compiled, const std::vector<Value>& values) {
    const dialect::Translation& translation = compiled->translation;
    if (translation.kind == dialect::StatementKind::Select)
        throw StoreError(ErrorNumber::CannotExecuteSelect,
                         "A select query cannot be executed; open it instead.");
    int changes = 0;
    Write([&] {
        if (translation.kind == dialect::StatementKind::Delete) autoNumbers_.Save(translation.table);
        const Lease lease = Borrow(compiled);
        Statements::Bind(*compiled, lease.Statement(), values);
        StepNative(lease.Statement());
        changes = sqlite3_changes(Native());
    });
    return changes;
}

int Connection::ExecuteText(std::string_view text) {
    RequireOpen();
    std::shared_ptr<Compiled> compiled = statements_.Find(text);
    if (compiled == nullptr) {
        const dialect::Statement statement = dialect::ParseStatement(text);
        if (IsDefinition(statement)) return ExecuteDefinition(statement);
        compiled = statements_.Prepare(text, statement);
    }
    return Execute(compiled, std::vector<Value>(compiled->parameterNames.size()));
}

int Connection::ExecuteNative(std::string_view sql) {
    int changes = 0;
    Write([&] {
        NativeStatement statement(Native(), sql);
        statement.Step();
        changes = sqlite3_changes(Native());
    });
    return changes;
}

std::int64_t Connection::WriteCount() const {
    return sqlite3_total_changes64(Native());
}

void Connection::EndJob() {
    if (Native() == nullptr || IsReadOnly()) return;
    std::exception_ptr failure;
    try {
        units_.Recover();
        if (units_.IsDurableOpen()) autoNumbers_.SaveAll();
    } catch (...) {
        failure = std::current_exception();
    }
    units_.EndJob();
    if (failure) std::rethrow_exception(failure);
}

void Connection::CommitCommand() {
    if (Native() == nullptr || IsReadOnly()) return;
    try {
        units_.RequireUnit();
        if (units_.IsDurableOpen()) autoNumbers_.SaveAll();
        units_.CommitDurable();
    } catch (...) {
        units_.AbandonJob();
        throw;
    }
}

}  // namespace quillon::store
