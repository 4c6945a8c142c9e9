#include "store/engine.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <exception>

#include "store/dialect/parser.h"
#include "store/engine/connection.h"
#include "store/engine/result_set.h"

namespace quillon::store {

namespace {

// An exclusive creation, so that two programs cannot make the same file, and no existing one is touched.
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

}  // namespace

Database::Database(std::shared_ptr<Connection> connection, std::string path)
    : handle_(std::make_shared<Handle>(Handle{std::move(connection), true})), path_(std::move(path)) {}

Database::~Database() {
    try {
        Close();
    } catch (const StoreError&) {
        // What was committed is in the file; there is nobody left to tell.
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
    connection->CloseResultsOf(*handle_);
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
    auto compiled = connection.Compile(fmt::format("SELECT * FROM [{}];", name));
    return std::make_unique<Recordset>(std::make_shared<ResultSet>(
        handle_, std::move(compiled), std::vector<Value>(), RecordsetType::Table));
}

std::unique_ptr<Recordset> Database::OpenRecordset(std::string_view source, RecordsetType type) {
    Connection& connection = handle_->Require();
    if (IsSelectText(source)) return CreateQueryDef("", source).OpenRecordset(type);
    if (connection.Table(source) != nullptr)
        return CreateQueryDef("", fmt::format("SELECT * FROM [{}];", source)).OpenRecordset(type);
    return OpenQueryDef(source).OpenRecordset(type);
}

std::vector<TableDef> Database::TableDefs() const {
    std::vector<TableDef> defs;
    for (const auto& table : handle_->Require().Tables()) defs.push_back(table->def);
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

Engine::Engine() = default;
Engine::~Engine() = default;

std::vector<std::shared_ptr<Connection>> Engine::Live() {
    std::vector<std::shared_ptr<Connection>> live;
    std::erase_if(connections_, [](const std::weak_ptr<Connection>& weak) { return weak.expired(); });
    for (const auto& weak : connections_) {
        std::shared_ptr<Connection> connection = weak.lock();
        if (connection != nullptr && connection->handles > 0) live.push_back(std::move(connection));
    }
    return live;
}

// One that fails does not keep the others from it.
template <typename Action>
void Engine::OnEach(Action action) {
    std::exception_ptr failure;
    for (const auto& connection : Live()) {
        try {
            action(*connection);
        } catch (...) {
            failure = std::current_exception();
        }
    }
    if (failure) std::rethrow_exception(failure);
}

DatabaseHandle Engine::CreateDatabase(const std::string& path, std::string_view) {
    MakeEmptyFile(path);
    return CreateDatabaseIn(path);
}

DatabaseHandle Engine::CreateDatabaseIn(const std::string& emptyFile) {
    auto connection = std::make_shared<Connection>(*this, emptyFile, true);
    connections_.push_back(connection);
    connection->handles = 1;
    return std::make_shared<Database>(connection, emptyFile);
}

DatabaseHandle Engine::OpenDatabase(const std::string& path) {
    struct stat info {};
    if (stat(path.c_str(), &info) == 0) {
        const FileIdentity identity{static_cast<std::uint64_t>(info.st_dev),
                                    static_cast<std::uint64_t>(info.st_ino)};
        for (const auto& connection : Live()) {
            if (!(connection->Identity() == identity)) continue;
            ++connection->handles;
            return std::make_shared<Database>(connection, path);
        }
    }
    auto connection = std::make_shared<Connection>(*this, path, false);
    connections_.push_back(connection);
    connection->handles = 1;
    return std::make_shared<Database>(connection, path);
}

void Engine::BeginTrans() {
    if (inTransaction_) throw StoreError(ErrorNumber::NoTransaction, "A transaction is open already.");
    inTransaction_ = true;
}

void Engine::CommitTrans() {
    if (!inTransaction_) throw StoreError(ErrorNumber::NoTransaction, "There is no transaction to commit.");
    inTransaction_ = false;
    OnEach([](Connection& connection) { connection.CommitUnit(); });
}

void Engine::Rollback() {
    if (!inTransaction_)
        throw StoreError(ErrorNumber::NoTransaction, "There is no transaction to roll back.");
    inTransaction_ = false;
    OnEach([](Connection& connection) { connection.RollbackUnit(); });
}

void Engine::FreeLocks() {
    Live();
}

void Engine::BeginJob() {
    inJob_ = true;
}

void Engine::EndJob() {
    inJob_ = false;
    OnEach([](Connection& connection) { connection.EndJob(); });
}

Job::~Job() {
    if (ended_) return;
    try {
        engine_.EndJob();
    } catch (const StoreError&) {
        // A destructor cannot tell; a job that matters calls End().
    }
}

void Job::End() {
    ended_ = true;
    engine_.EndJob();
}

}  // namespace quillon::store
