#include "store/engine.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <exception>

#include "store/dialect/lexer.h"
#include "store/dialect/parser.h"
#include "store/engine/connection.h"
#include "store/engine/result_set.h"

namespace quillon::store {

namespace {

// Creates the file exclusively, so that two programs cannot make the same file, and no existing file is
// changed.
void MakeEmptyFile(const std::string& path) {
    const int file = open(path.c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, 0666);
    if (file >= 0) {
        close(file);
        return;
    }
    if (errno == EEXIST)
        throw StoreError(ErrorNumber::DatabaseExists, fmt::format("There is already a file '{}'.", path));
    if (errno == ENOSPC) throw StoreError(ErrorNumber::DiskFull, "Not enough space on disk.");
    throw StoreError(ErrorNumber::CannotOpenFile,
                     fmt::format("The file cannot be made ({}): '{}'.", std::strerror(errno), path));
}

bool IsSelectText(std::string_view source) {
    std::size_t at = source.find_first_not_of(" \t\r\n");
    if (at == std::string_view::npos) return false;
    const std::string_view word = source.substr(at, source.find_first_of(" \t\r\n", at) - at);
    return NameEqual()(word, "select") || NameEqual()(word, "parameters");
}

std::string SelectAll(std::string_view table) {
    return fmt::format("SELECT * FROM {};", dialect::BracketName(table));
}

}  // namespace

Database::Database(std::shared_ptr<Connection> connection, std::string path)
    : handle_(std::make_shared<Handle>(Handle{std::move(connection), true})), path_(std::move(path)) {
    ++handle_->connection->handles;
}

Database::~Database() {
    try {
        Close();
    } catch (...) {
        // Committed data is in the file.
    }
}

bool Database::IsOpen() const {
    return handle_->open;
}

bool Database::IsReadOnly() const {
    return Shared()->IsReadOnly();
}

std::shared_ptr<Connection> Database::Shared() const {
    handle_->Require();
    return handle_->connection;
}

void Database::Close() {
    if (!handle_->open) return;
    handle_->open = false;
    std::shared_ptr<Connection> connection = std::move(handle_->connection);
    handle_->connection = nullptr;
    connection->Results().CloseOf(*handle_);
    if (--connection->handles == 0) connection->Close();
}

int Database::Execute(std::string_view sql) {
    return handle_->Require().ExecuteText(sql);
}

QueryDef Database::OpenQueryDef(std::string_view name) {
    std::shared_ptr<Compiled> compiled = handle_->Require().CompileQuery(name);
    if (compiled == nullptr)
        throw StoreError(ErrorNumber::ItemNotFound,
                         fmt::format("There is no query '{}' in the DataSet.", name));
    return {handle_, name, std::move(compiled)};
}

QueryDef Database::CreateQueryDef(std::string_view name, std::string_view sql) {
    Connection& connection = handle_->Require();
    if (name.empty()) return {handle_, name, connection.Compile(sql)};
    dialect::ParseStatement(sql);
    connection.StoreQuery(name, sql);
    return OpenQueryDef(name);
}

void Database::DeleteQueryDef(std::string_view name) {
    handle_->Require().DropQuery(name);
}

std::vector<std::pair<std::string, std::string>> Database::QueryDefs() {
    return handle_->Require().Queries();
}

std::unique_ptr<Recordset> Database::OpenTable(std::string_view table) {
    Connection& connection = handle_->Require();
    const std::string& name = connection.RequireTable(table).def.name;
    auto compiled = connection.Compile(SelectAll(name));
    return std::make_unique<Recordset>(std::make_shared<ResultSet>(
        handle_, std::move(compiled), std::vector<Value>(), RecordsetType::Table));
}

std::unique_ptr<Recordset> Database::OpenRecordset(std::string_view source, RecordsetType type) {
    Connection& connection = handle_->Require();
    if (IsSelectText(source)) return CreateQueryDef("", source).OpenRecordset(type);
    if (connection.Table(source) != nullptr) return CreateQueryDef("", SelectAll(source)).OpenRecordset(type);
    return OpenQueryDef(source).OpenRecordset(type);
}

std::vector<TableDef> Database::TableDefs() const {
    std::vector<TableDef> defs;
    for (const auto& table : handle_->Require().AllTables()) defs.push_back(table->def);
    return defs;
}

const TableDef* Database::FindTableDef(std::string_view name) const {
    const PhysicalTable* table = handle_->Require().Table(name);
    return table == nullptr ? nullptr : &table->def;
}

void Database::AppendTable(const TableDef& table) {
    handle_->Require().AppendTable(table);
}
void Database::DeleteTable(std::string_view name) {
    handle_->Require().DeleteTable(name);
}

Engine::Engine() : state_(std::make_unique<EngineState>()) {
    state_->look = [this](const std::string& path) {
        const DatabaseHandle other = OpenDatabase(path);
        return OtherDataSet{other->Shared().get(), other->TableDefs()};
    };
}

Engine::~Engine() = default;

// Runs the action for each connection, also after a failure of one. Allocates nothing, because rollbacks use
// it.
template <typename Action>
void Engine::OnEach(Action action) {
    std::exception_ptr failure;
    for (const std::weak_ptr<Connection>& weak : connections_) {
        const std::shared_ptr<Connection> connection = weak.lock();
        if (connection == nullptr || connection->handles == 0) continue;
        try {
            action(*connection);
        } catch (...) {
            failure = std::current_exception();
        }
    }
    if (failure) std::rethrow_exception(failure);
}

std::shared_ptr<Connection> Engine::FindOpen(const std::string& path) const {
    const FileIdentity identity = IdentityOf(path);
    if (identity == FileIdentity()) return nullptr;
    for (const std::weak_ptr<Connection>& weak : connections_) {
        std::shared_ptr<Connection> connection = weak.lock();
        if (connection != nullptr && connection->handles > 0 && connection->Identity() == identity)
            return connection;
    }
    return nullptr;
}

DatabaseHandle Engine::Adopt(std::shared_ptr<Connection> connection, const std::string& path) {
    FreeLocks();
    connections_.push_back(connection);
    return std::make_shared<Database>(std::move(connection), path);
}

DatabaseHandle Engine::CreateDatabase(const std::string& path, std::string_view) {
    MakeEmptyFile(path);
    try {
        return CreateDatabaseIn(path);
    } catch (...) {
        unlink((path + "-journal").c_str());
        unlink(path.c_str());
        throw;
    }
}

DatabaseHandle Engine::CreateDatabaseIn(const std::string& emptyFile) {
    std::shared_ptr<Connection> connection;
    try {
        connection = std::make_shared<Connection>(*state_, emptyFile, true);
        return Adopt(connection, emptyFile);
    } catch (...) {
        if (connection != nullptr) connection->Abandon();
        throw;
    }
}

DatabaseHandle Engine::OpenDatabase(const std::string& path) {
    if (std::shared_ptr<Connection> open = FindOpen(path))
        return std::make_shared<Database>(std::move(open), path);
    return Adopt(std::make_shared<Connection>(*state_, path, false), path);
}

bool Engine::InTransaction() const {
    return state_->inTransaction;
}
bool Engine::IsJobRunning() const {
    return state_->inJob;
}

void Engine::BeginTrans() {
    if (state_->inTransaction) throw StoreError(ErrorNumber::NoTransaction, "A transaction is open already.");
    state_->inTransaction = true;
}

void Engine::CommitTrans() {
    if (!state_->inTransaction)
        throw StoreError(ErrorNumber::NoTransaction, "There is no transaction to commit.");
    state_->inTransaction = false;
    OnEach([](Connection& connection) { connection.CommitUnit(); });
}

void Engine::Rollback() {
    if (!state_->inTransaction)
        throw StoreError(ErrorNumber::NoTransaction, "There is no transaction to roll back.");
    state_->inTransaction = false;
    OnEach([](Connection& connection) { connection.RollbackUnit(); });
}

void Engine::Abandon() noexcept {
    try {
        if (state_->inTransaction) Rollback();
    } catch (...) {
        // The caller already has an error to report.
    }
}

void Engine::FreeLocks() {
    std::erase_if(connections_, [](const std::weak_ptr<Connection>& weak) { return weak.expired(); });
}

void Engine::BeginJob() {
    state_->inJob = true;
}

void Engine::EndJob() {
    state_->inJob = false;
    OnEach([](Connection& connection) { connection.EndJob(); });
}

void Engine::BeginCommand() {
    if (state_->inTransaction || state_->inJob)
        throw StoreError(ErrorNumber::NoTransaction, "A transaction is open already.");
    state_->inJob = state_->inCommand = true;
}

void Engine::CommitCommand() {
    if (!state_->inCommand) throw StoreError(ErrorNumber::NoTransaction, "There is no command to commit.");
    state_->inJob = state_->inCommand = false;
    OnEach([](Connection& connection) { connection.CommitCommand(); });
}

void Engine::AbandonCommand() noexcept {
    if (!state_->inCommand) return;
    Abandon();
    state_->inJob = state_->inCommand = false;
    try {
        OnEach([](Connection& connection) { connection.AbandonCommand(); });
    } catch (...) {
        // Only collecting the connections can fail, when memory is short.
    }
}

bool Engine::IsCommandRunning() const {
    return state_->inCommand;
}

Job::~Job() {
    if (ended_) return;
    try {
        engine_.EndJob();
    } catch (...) {
        // A job that needs the error calls End().
    }
}

void Job::End() {
    ended_ = true;
    engine_.EndJob();
}

}  // namespace quillon::store
