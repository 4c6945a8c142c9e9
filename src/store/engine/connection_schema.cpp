#include <fmt/format.h>
#include <sqlite3.h>

#include <algorithm>
#include <array>

#include "store/dialect/token_stream.h"
#include "store/engine/connection.h"
#include "store/engine/result_set.h"

namespace quillon::store {

namespace {

FieldType TypeNamed(const dialect::Statement& statement) {
    struct TypeName {
        std::string_view name;
        FieldType type;
    };
    constexpr std::array<TypeName, 9> names = {{{"TEXT", FieldType::Text},
                                                {"LONG", FieldType::Long},
                                                {"INTEGER", FieldType::Long},
                                                {"SHORT", FieldType::Integer},
                                                {"BYTE", FieldType::Byte},
                                                {"LOGICAL", FieldType::Boolean},
                                                {"DATETIME", FieldType::DateTime},
                                                {"MEMO", FieldType::Memo},
                                                {"LONGTEXT", FieldType::Memo}}};
    for (const TypeName& name : names)
        if (dialect::SameWord(name.name, statement.columnType)) return name.type;
    throw StoreError(ErrorNumber::SyntaxError,
                     fmt::format("There is no field type '{}'.", statement.columnType));
}

// A change of the schema of several statements: all of them, or none when it is not kept.
class Definition {
public:
    explicit Definition(sqlite3* db) : db_(db) { ExecNative(db_, "SAVEPOINT qln_definition"); }
    ~Definition() {
        if (!kept_)
            sqlite3_exec(db_, "ROLLBACK TO qln_definition; RELEASE qln_definition", nullptr, nullptr,
                         nullptr);
    }
    Definition(const Definition&) = delete;
    Definition& operator=(const Definition&) = delete;
    void Keep() {
        ExecNative(db_, "RELEASE qln_definition");
        kept_ = true;
    }

private:
    sqlite3* db_;
    bool kept_ = false;
};

// A large sort is done in parts as big as the page cache. Small ones stay near the processor, and a second
// thread sorts one while the next is read.
constexpr const char* kSortInParts = "PRAGMA cache_size = -4096; PRAGMA threads = 1";
constexpr const char* kSortWhole = "PRAGMA cache_size = -65536; PRAGMA threads = 0";

// BuildLookupIndexes knows the indexes of the schema; one that was made besides has to stay.
bool IsBuiltLater(const std::string& name) {
    for (const TableSpec& table : DataSetTables())
        for (const IndexSql& index : CreateIndexSql(PhysicalTableOf(TableDefOf(table))))
            if (index.name == name) return true;
    return false;
}

}  // namespace

const PhysicalTable* Connection::Table(std::string_view name) const {
    const auto found = tableByName_.find(name);
    return found == tableByName_.end() ? nullptr : found->second;
}

const PhysicalTable& Connection::RequireTable(std::string_view name) const {
    const PhysicalTable* table = Table(name);
    if (table == nullptr)
        throw StoreError(ErrorNumber::UnknownTable,
                         fmt::format("There is no table '{}' in the DataSet.", name));
    return *table;
}

void Connection::SchemaChanged() {
    definitionsChanged_ = true;
    LoadSchema();
}

void Connection::RequireFields(const TableDef& def) {
    for (const IndexDef& index : def.indexes)
        for (const std::string& name : index.fields)
            if (def.Field(name) == nullptr)
                throw StoreError(ErrorNumber::ItemNotFound,
                                 fmt::format("The table has no field '{}'.", name));
}

void Connection::AppendTable(const TableDef& def) {
    if (Table(def.name) != nullptr)
        throw StoreError(ErrorNumber::ObjectExists, fmt::format("The table '{}' already exists.", def.name));
    if (def.IsLinked()) return AppendLink(def);
    RequireFields(def);
    BeforeWrite();
    const PhysicalTable table = PhysicalTableOf(def);
    Definition definition(db_);
    ExecNative(db_, CreateTableSql(table, def.name));
    for (const IndexSql& index : CreateIndexSql(table)) ExecNative(db_, index.sql);
    definition.Keep();
    SchemaChanged();
    AfterWrite();
}

void Connection::DeleteTable(std::string_view name) {
    const TableDef& def = RequireTable(name).def;
    const std::string own = def.name;
    if (def.IsLinked()) return DropLink(own);
    BeforeWrite();
    Definition definition(db_);
    ExecNative(db_, "DROP TABLE " + QuoteName(own));
    // A new table of this name counts from 1.
    ExecNative(db_, "DELETE FROM qln_autonumber WHERE table_name = " + QuoteLiteral(own));
    definition.Keep();
    counters_.erase(own);
    savedCounters_.erase(own);
    SchemaChanged();
    AfterWrite();
}

// SQLite cannot change a table's key in place: the rows move to a table of the wanted shape.
void Connection::RebuildTable(const PhysicalTable& old, const TableDef& wanted) {
    const PhysicalTable table = PhysicalTableOf(wanted);
    const std::string name = old.def.name, temporary = name + "~new";
    std::string columns;
    for (const FieldDef& field : wanted.fields)
        columns += (columns.empty() ? "" : ", ") + QuoteName(field.name);
    ExecNative(db_, CreateTableSql(table, temporary));
    ExecNative(db_, fmt::format("INSERT INTO {} ({}) SELECT {} FROM {}", QuoteName(temporary), columns,
                                columns, QuoteName(name)));
    ExecNative(db_, "DROP TABLE " + QuoteName(name));
    ExecNative(db_, fmt::format("ALTER TABLE {} RENAME TO {}", QuoteName(temporary), QuoteName(name)));
    for (const IndexSql& index : CreateIndexSql(table)) ExecNative(db_, index.sql);
}

int Connection::ExecuteDefinition(const dialect::Statement& statement) {
    using Kind = dialect::StatementKind;
    const PhysicalTable table = RequireTable(statement.table);
    if (table.def.IsLinked())
        throw StoreError(ErrorNumber::NotInThisKind,
                         fmt::format("The table '{}' belongs to another DataSet.", table.def.name));
    TableDef wanted = table.def;
    const auto sameName = [&](const auto& item) { return dialect::SameWord(item.name, statement.name); };
    BeforeWrite();
    ExecNative(db_, "SAVEPOINT qln_definition");
    try {
        if (statement.kind == Kind::AddColumn) {
            const FieldType type = TypeNamed(statement);
            const int size =
                type == FieldType::Text ? (statement.columnSize == 0 ? 255 : statement.columnSize) : 0;
            // A required column of a table with rows has no value for them yet; it is checked for new rows
            // only.
            const FieldDef field{statement.name, type, size, false, false};
            ExecNative(db_, fmt::format("ALTER TABLE {} ADD COLUMN {}", QuoteName(table.def.name),
                                        ColumnSql(field, false)));
        } else if (statement.kind == Kind::DropColumn) {
            const FieldDef* field = table.def.Field(statement.name);
            if (field == nullptr)
                throw StoreError(ErrorNumber::ItemNotFound,
                                 fmt::format("The table has no field '{}'.", statement.name));
            ExecNative(db_, fmt::format("ALTER TABLE {} DROP COLUMN {}", QuoteName(table.def.name),
                                        QuoteName(field->name)));
        } else if (statement.kind == Kind::CreateIndex) {
            if (table.def.Index(statement.name) != nullptr)
                throw StoreError(ErrorNumber::ObjectExists,
                                 fmt::format("The index '{}' already exists.", statement.name));
            wanted.indexes.push_back({statement.name, statement.columns, statement.primary});
            RequireFields(wanted);
            if (statement.primary) {
                RebuildTable(table, wanted);
            } else {
                const std::string name = IndexName(table.def.name, statement.name);
                for (const IndexSql& index : CreateIndexSql(PhysicalTableOf(wanted)))
                    if (index.name == name) ExecNative(db_, index.sql);
            }
        } else {
            const auto index = std::find_if(wanted.indexes.begin(), wanted.indexes.end(), sameName);
            if (index == wanted.indexes.end())
                throw StoreError(ErrorNumber::IndexMissing,
                                 fmt::format("The table has no index '{}'.", statement.name));
            const bool primary = index->primary;
            const std::string name = IndexName(table.def.name, index->name);
            wanted.indexes.erase(index);
            if (primary) {
                RebuildTable(table, wanted);
            } else {
                ExecNative(db_, "DROP INDEX " + QuoteName(name));
            }
        }
    } catch (...) {
        sqlite3_exec(db_, "ROLLBACK TO qln_definition; RELEASE qln_definition", nullptr, nullptr, nullptr);
        throw;
    }
    ExecNative(db_, "RELEASE qln_definition");
    SchemaChanged();
    AfterWrite();
    return 0;
}

void Connection::DropLookupIndexes() {
    BeforeWrite();
    Definition definition(db_);
    for (const auto& table : tables_) {
        for (const IndexSql& index : CreateIndexSql(*table)) {
            if (!index.deferrable || !IsBuiltLater(index.name)) continue;
            NativeStatement wait(db_, "INSERT OR IGNORE INTO qln_waiting_indexes (name) VALUES (?1)");
            wait.Bind(1, std::string_view(index.name));
            wait.Step();
            ExecNative(db_, "DROP INDEX IF EXISTS " + QuoteName(index.name));
        }
    }
    definition.Keep();
    AfterWrite();
}

// The schema in memory keeps the indexes while they wait, so it tells which they are.
void Connection::BuildLookupIndexes() {
    std::vector<std::string> waiting;
    {
        NativeStatement names(db_, "SELECT name FROM qln_waiting_indexes");
        while (names.Step()) waiting.emplace_back(names.Text(0));
    }
    if (waiting.empty()) return;
    BeforeWrite();
    Definition definition(db_);
    ExecNative(db_, kSortInParts);
    for (const TableSpec& table : DataSetTables()) {
        if (Table(table.name) == nullptr) continue;
        for (const IndexSql& index : CreateIndexSql(PhysicalTableOf(TableDefOf(table))))
            if (std::find(waiting.begin(), waiting.end(), index.name) != waiting.end())
                ExecNative(db_, fmt::format("DROP INDEX IF EXISTS {}; {}", QuoteName(index.name), index.sql));
    }
    ExecNative(db_, kSortWhole);
    ExecNative(db_, "DELETE FROM qln_waiting_indexes");
    definition.Keep();
    SchemaChanged();
    AfterWrite();
}

}  // namespace quillon::store
