#include "store/engine/connection.h"

#include <fmt/format.h>
#include <sqlite3.h>

#include <algorithm>

#include "core/text.h"
#include "store/coerce.h"
#include "store/dialect/parser.h"
#include "store/dialect/token_stream.h"
#include "store/engine.h"
#include "store/engine/result_set.h"

namespace quillon::store {

namespace {

constexpr std::size_t kMostCompiled = 512;
constexpr std::size_t kMostIdle = 4;
constexpr auto kJobCommitInterval = std::chrono::milliseconds(400);

char LowerAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

// A Text parameter takes the text of any value, a Long the number of any numeric one.
Value AsDeclared(const dialect::Declaration& parameter, const Value& value) {
    if (value.IsNull()) return value;
    if (parameter.text) return value.AsText();
    if (value.IsText() && !IsNumericText(value.Text()))
        throw StoreError(ErrorNumber::ConversionError,
                         fmt::format("Data type conversion error in the parameter '{}'.", parameter.name));
    return value.AsLong();
}

void BindNative(sqlite3_stmt* statement, int place, const Value& value) {
    if (value.IsNull()) {
        sqlite3_bind_null(statement, place);
    } else if (value.IsText()) {
        sqlite3_bind_text64(statement, place, value.Text().data(), value.Text().size(), SQLITE_TRANSIENT,
                            SQLITE_UTF8);
    } else if (value.IsReal()) {
        sqlite3_bind_double(statement, place, value.Real());
    } else {
        sqlite3_bind_int64(statement, place,
                           value.IsBoolean() ? std::int64_t{value.AsBoolean()} : value.AsLong());
    }
}

}  // namespace

std::size_t NameHash::operator()(std::string_view name) const {
    std::size_t hash = 14695981039346656037ULL;
    for (const char c : name) hash = (hash ^ static_cast<unsigned char>(LowerAscii(c))) * 1099511628211ULL;
    return hash;
}

bool NameEqual::operator()(std::string_view left, std::string_view right) const {
    return dialect::SameWord(left, right);
}

Connection& Handle::Require() const {
    if (!open || connection == nullptr)
        throw StoreError(ErrorNumber::ObjectClosed, "The DataSet of this object has been closed.");
    connection->RequireOpen();
    return *connection;
}

void Compiled::FinalizeIdle() {
    for (sqlite3_stmt* statement : idle) sqlite3_finalize(statement);
    idle.clear();
}

void Connection::RequireOpen() const {
    if (db_ == nullptr)
        throw StoreError(ErrorNumber::ObjectClosed, "The DataSet of this object has been closed.");
}

void Connection::Unregister(ResultSet* result) {
    const auto found = std::find(results_.rbegin(), results_.rend(), result);
    if (found == results_.rend()) return;
    *found = results_.back();
    results_.pop_back();
}

void Connection::CloseResultsOf(const Handle& handle) {
    for (ResultSet* result : std::vector<ResultSet*>(results_))
        if (result->IsOf(handle)) result->Close();
}

// Statements.

std::shared_ptr<Compiled> Connection::Prepare(std::string_view text, dialect::Statement statement) {
    auto compiled = std::make_shared<Compiled>();
    compiled->text = text;
    compiled->translation = dialect::Translate(statement, text, *this);
    for (const auto& parameter : compiled->translation.parameters)
        compiled->parameterNames.push_back(parameter.name);
    if (allCompiled_.size() >= 2 * kMostCompiled)
        std::erase_if(allCompiled_, [](const std::weak_ptr<Compiled>& weak) { return weak.expired(); });
    allCompiled_.push_back(compiled);
    return compiled;
}

std::shared_ptr<Compiled> Connection::Compile(std::string_view text) {
    RequireOpen();
    const auto found = compiled_.find(std::string(text));
    if (found != compiled_.end()) return found->second;
    auto compiled = Prepare(text, dialect::ParseStatement(text));
    if (compiled_.size() >= kMostCompiled) compiled_.clear();
    compiled_.emplace(compiled->text, compiled);
    return compiled;
}

std::shared_ptr<Compiled> Connection::CompileQuery(std::string_view name) {
    RequireOpen();
    const auto found = compiledQueries_.find(name);
    if (found != compiledQueries_.end()) return found->second;
    const std::string* text = Query(name);
    if (text == nullptr) return nullptr;
    auto compiled = Prepare(*text, dialect::ParseStatement(*text));
    compiledQueries_.emplace(name, compiled);
    return compiled;
}

sqlite3_stmt* Connection::Lease(Compiled& compiled) {
    if (compiled.idle.empty()) return PrepareNative(db_, compiled.translation.sql, true);
    sqlite3_stmt* statement = compiled.idle.back();
    compiled.idle.pop_back();
    return statement;
}

void Connection::GiveBack(Compiled& compiled, sqlite3_stmt* statement) {
    sqlite3_reset(statement);
    if (db_ != nullptr && compiled.idle.size() < kMostIdle) {
        compiled.idle.push_back(statement);
    } else {
        sqlite3_finalize(statement);
    }
}

void Connection::Bind(const Compiled& compiled, sqlite3_stmt* statement,
                      const std::vector<Value>& values) const {
    const dialect::Translation& translation = compiled.translation;
    for (std::size_t i = 0; i < translation.slots.size(); ++i) {
        const dialect::Slot& slot = translation.slots[i];
        const auto parameter = static_cast<std::size_t>(slot.parameter);
        Value value = slot.parameter < 0 ? slot.constant
                                         : AsDeclared(translation.parameters[parameter], values[parameter]);
        if (slot.field) value = Coerce(*slot.field, value);
        BindNative(statement, static_cast<int>(i + 1), value);
    }
}

int Connection::Execute(Compiled& compiled, const std::vector<Value>& values) {
    RequireOpen();
    const dialect::Translation& translation = compiled.translation;
    if (translation.kind == dialect::StatementKind::Select)
        throw StoreError(ErrorNumber::CannotExecuteSelect,
                         "A select query cannot be executed; open it instead.");
    BeforeWrite();
    if (translation.kind == dialect::StatementKind::Delete) KeepAutoNumber(translation.table);
    sqlite3_stmt* statement = Lease(compiled);
    try {
        Bind(compiled, statement, values);
        const int code = sqlite3_step(statement);
        if (code != SQLITE_DONE && code != SQLITE_ROW) ThrowNative(db_, code);
    } catch (...) {
        GiveBack(compiled, statement);
        LostTransaction();
        throw;
    }
    GiveBack(compiled, statement);
    const int changes = sqlite3_changes(db_);
    AfterWrite();
    return changes;
}

int Connection::ExecuteText(std::string_view text) {
    const auto found = compiled_.find(std::string(text));
    if (found != compiled_.end()) {
        const std::shared_ptr<Compiled> known = found->second;
        return Execute(*known, std::vector<Value>(known->parameterNames.size()));
    }
    dialect::Statement statement = dialect::ParseStatement(text);
    using Kind = dialect::StatementKind;
    const bool definition = statement.kind != Kind::Select && statement.kind != Kind::Insert &&
                            statement.kind != Kind::Update && statement.kind != Kind::Delete;
    if (definition) return ExecuteDefinition(statement);
    const std::shared_ptr<Compiled> compiled = Prepare(text, std::move(statement));
    return Execute(*compiled, std::vector<Value>(compiled->parameterNames.size()));
}

// Transactions.

void Connection::BeginDurable() {
    if (durableOpen_) return;
    ExecNative(db_, "BEGIN IMMEDIATE");
    durableOpen_ = true;
    lastCommit_ = std::chrono::steady_clock::now();
}

void Connection::CommitDurable() {
    LostTransaction();
    if (!durableOpen_) return;
    try {
        ExecNative(db_, "COMMIT");
    } catch (...) {
        sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
        durableOpen_ = false;
        unitOpen_ = false;
        WentBack();
        throw;
    }
    durableOpen_ = false;
    definitionsChanged_ = false;
}

// After some failures (a full disk) SQLite has rolled back by itself what the program thinks is open. What is
// left of the unit must not be stored then.
void Connection::LostTransaction() {
    if (!durableOpen_ || sqlite3_get_autocommit(db_) == 0) return;
    durableOpen_ = false;
    unitLost_ = unitLost_ || unitOpen_;
    unitOpen_ = false;
    WentBack();
}

void Connection::RequireUnit() {
    LostTransaction();
    if (unitLost_) throw ErrorOf(SQLITE_IOERR, "");
}

// What the program remembers of the file is read again where a rollback may have taken it away. Numbers once
// given stay given, so the counters themselves are kept.
void Connection::WentBack() {
    savedCounters_.clear();
    if (!definitionsChanged_) return;
    definitionsChanged_ = false;
    try {
        LoadSchema();
        std::erase_if(counters_, [&](const auto& counter) { return Table(counter.first) == nullptr; });
    } catch (const StoreError&) {
        // The failure that led here is the one to tell.
    }
}

void Connection::BeforeWrite() {
    RequireOpen();
    if (readOnly_) throw StoreError(ErrorNumber::ReadOnly, "Can't update. The DataSet is read-only.");
    RequireUnit();
    for (std::size_t i = 0; i < results_.size(); ++i) results_[i]->Freeze();
    if (engine_.IsJobRunning()) BeginDurable();
    if (!engine_.InTransaction() || unitOpen_) return;
    unitIsSavepoint_ = engine_.IsJobRunning();
    if (unitIsSavepoint_) {
        ExecNative(db_, "SAVEPOINT qln_unit");
    } else {
        BeginDurable();
    }
    unitOpen_ = true;
}

void Connection::AfterWrite() {
    if (unitOpen_ || !engine_.IsJobRunning()) return;
    if (std::chrono::steady_clock::now() - lastCommit_ >= kJobCommitInterval) CommitDurable();
}

void Connection::CommitUnit() {
    LostTransaction();
    if (std::exchange(unitLost_, false)) throw ErrorOf(SQLITE_IOERR, "");
    if (!unitOpen_) return;
    unitOpen_ = false;
    if (unitIsSavepoint_) {
        ExecNative(db_, "RELEASE qln_unit");
        if (engine_.IsJobRunning()) return AfterWrite();
    }
    CommitDurable();
}

void Connection::RollbackUnit() {
    LostTransaction();
    unitLost_ = false;
    if (!unitOpen_) return;
    unitOpen_ = false;
    for (ResultSet* result : results_) result->Freeze();
    if (unitIsSavepoint_) {
        ExecNative(db_, "ROLLBACK TO qln_unit; RELEASE qln_unit");
    } else {
        durableOpen_ = false;
        ExecNative(db_, "ROLLBACK");
    }
    WentBack();
    if (unitIsSavepoint_ && !engine_.IsJobRunning()) CommitDurable();
}

void Connection::EndJob() {
    if (db_ == nullptr || readOnly_) return;
    if (durableOpen_) SaveCounters();
    // A unit that is open decides for itself, and takes the units before it along.
    if (!unitOpen_) CommitDurable();
}

// AutoNumbers.

std::int64_t& Connection::Counter(std::string_view table) {
    const auto found = counters_.find(table);
    if (found != counters_.end()) return found->second;
    const PhysicalTable& physical = RequireTable(table);
    std::int64_t saved = 1;
    NativeStatement stored(db_, "SELECT next FROM qln_autonumber WHERE table_name = ?1");
    stored.Bind(1, std::string_view(physical.def.name));
    if (stored.Step()) saved = stored.Long(0);
    savedCounters_[physical.def.name] = saved;
    NativeStatement highest(db_, fmt::format("SELECT max({}) FROM {}", QuoteName(physical.autoField),
                                             QuoteName(physical.def.name)));
    const std::int64_t used = highest.Step() ? highest.Long(0) : 0;
    return counters_[physical.def.name] = std::max(saved, used + 1);
}

std::int64_t Connection::NextAutoNumber(std::string_view table) {
    return Counter(table)++;
}

void Connection::NoteAutoNumber(std::string_view table, std::int64_t given) {
    std::int64_t& next = Counter(table);
    next = std::max(next, given + 1);
}

void Connection::SaveCounter(std::string_view table) {
    const PhysicalTable& physical = RequireTable(table);
    if (physical.autoField.empty()) return;
    const std::int64_t next = Counter(physical.def.name);
    const auto saved = savedCounters_.find(physical.def.name);
    if (saved != savedCounters_.end() && saved->second == next) return;
    NativeStatement store(db_, "INSERT OR REPLACE INTO qln_autonumber (table_name, next) VALUES (?1, ?2)");
    store.Bind(1, std::string_view(physical.def.name));
    store.Bind(2, next);
    store.Step();
    savedCounters_[physical.def.name] = next;
}

void Connection::SaveCounters() {
    std::vector<std::string> names;
    for (const auto& [name, next] : counters_) names.push_back(name);
    for (const std::string& name : names)
        if (Table(name) != nullptr) SaveCounter(name);
}

// Stored queries.

const std::string* Connection::Query(std::string_view name) const {
    const auto found = queryByName_.find(name);
    return found == queryByName_.end() ? nullptr : &queries_[found->second].second;
}

void Connection::LoadQueries() {
    queries_.clear();
    queryByName_.clear();
    NativeStatement stored(db_, "SELECT name, sql FROM qln_queries ORDER BY position");
    while (stored.Step()) {
        queryByName_.emplace(stored.Text(0), queries_.size());
        queries_.emplace_back(stored.Text(0), stored.Text(1));
    }
    compiledQueries_.clear();
    compiled_.clear();
}

void Connection::StoreQuery(std::string_view name, std::string_view sql) {
    if (Query(name) != nullptr)
        throw StoreError(ErrorNumber::QueryExists, fmt::format("The query '{}' already exists.", name));
    BeforeWrite();
    NativeStatement store(db_, "INSERT INTO qln_queries (name, sql) VALUES (?1, ?2)");
    store.Bind(1, name);
    store.Bind(2, sql);
    store.Step();
    queryByName_.emplace(name, queries_.size());
    queries_.emplace_back(name, sql);
    definitionsChanged_ = true;
    AfterWrite();
}

void Connection::ReplaceQuery(std::string_view name, std::string_view sql) {
    dialect::ParseStatement(sql);
    BeforeWrite();
    NativeStatement store(db_, "UPDATE qln_queries SET sql = ?2 WHERE name = ?1 COLLATE NOCASE");
    store.Bind(1, name);
    store.Bind(2, sql);
    store.Step();
    definitionsChanged_ = true;
    LoadQueries();
    AfterWrite();
}

void Connection::DropQuery(std::string_view name) {
    if (Query(name) == nullptr)
        throw StoreError(ErrorNumber::ItemNotFound,
                         fmt::format("There is no query '{}' in the DataSet.", name));
    BeforeWrite();
    NativeStatement drop(db_, "DELETE FROM qln_queries WHERE name = ?1 COLLATE NOCASE");
    drop.Bind(1, name);
    drop.Step();
    definitionsChanged_ = true;
    LoadQueries();
    AfterWrite();
}

}  // namespace quillon::store
