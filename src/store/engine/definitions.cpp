#include "store/engine/definitions.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <utility>

#include "store/engine/native.h"

namespace quillon::store {

namespace {

constexpr const char* kDefinition = "qln_definition";

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
        if (SameWord(name.name, statement.columnType)) return name.type;
    throw StoreError(ErrorNumber::SyntaxError,
                     fmt::format("There is no field type '{}'.", statement.columnType));
}

// SQLite cannot change a table's key, so the rows are copied to a new table with the key.
void RebuildTable(sqlite3* db, const std::string& name, const TableDef& wanted) {
    const PhysicalTable table = PhysicalTableOf(wanted);
    const std::string temporary = name + "~new";
    std::string columns;
    for (const FieldDef& field : wanted.fields)
        columns += (columns.empty() ? "" : ", ") + QuoteName(field.name);
    ExecNative(db, CreateTableSql(table, temporary));
    ExecNative(db, fmt::format("INSERT INTO {} ({}) SELECT {} FROM {}", QuoteName(temporary), columns,
                               columns, QuoteName(name)));
    ExecNative(db, "DROP TABLE " + QuoteName(name));
    ExecNative(db, fmt::format("ALTER TABLE {} RENAME TO {}", QuoteName(temporary), QuoteName(name)));
    for (const IndexSql& index : CreateIndexSql(table)) ExecNative(db, index.sql);
}

// Existing rows have no value for a new required column; it is checked only for new rows.
void AddColumn(sqlite3* db, const TableDef& def, const dialect::Statement& statement) {
    constexpr int kTextSize = 255;
    const FieldType type = TypeNamed(statement);
    const int size =
        type == FieldType::Text ? (statement.columnSize == 0 ? kTextSize : statement.columnSize) : 0;
    const FieldDef field{statement.name, type, size, false, false};
    ExecNative(db, fmt::format("ALTER TABLE {} ADD COLUMN {}", QuoteName(def.name), ColumnSql(field, false)));
}

void DropColumn(sqlite3* db, const TableDef& def, std::string_view name) {
    const FieldDef* field = def.Field(name);
    if (field == nullptr)
        throw StoreError(ErrorNumber::ItemNotFound, fmt::format("The table has no field '{}'.", name));
    ExecNative(db, fmt::format("ALTER TABLE {} DROP COLUMN {}", QuoteName(def.name), QuoteName(field->name)));
}

void CreateIndex(sqlite3* db, TableDef wanted, const dialect::Statement& statement) {
    if (wanted.Index(statement.name) != nullptr)
        throw StoreError(ErrorNumber::ObjectExists,
                         fmt::format("The index '{}' already exists.", statement.name));
    wanted.indexes.push_back({statement.name, statement.columns, statement.primary});
    RequireIndexedFields(wanted);
    if (statement.primary) return RebuildTable(db, wanted.name, wanted);
    const std::string name = IndexName(wanted.name, statement.name);
    for (const IndexSql& index : CreateIndexSql(PhysicalTableOf(wanted)))
        if (index.name == name) ExecNative(db, index.sql);
}

void DropIndex(sqlite3* db, TableDef wanted, std::string_view wantedName) {
    const auto index = std::find_if(wanted.indexes.begin(), wanted.indexes.end(),
                                    [&](const IndexDef& item) { return SameWord(item.name, wantedName); });
    if (index == wanted.indexes.end())
        throw StoreError(ErrorNumber::IndexMissing, fmt::format("The table has no index '{}'.", wantedName));
    const bool primary = index->primary;
    const std::string name = IndexName(wanted.name, index->name);
    wanted.indexes.erase(index);
    if (primary) return RebuildTable(db, wanted.name, wanted);
    ExecNative(db, "DROP INDEX " + QuoteName(name));
}

// A large sort is done in parts of the size of the page cache. Small parts fit into the processor's cache,
// and a second thread sorts one while the next is read.
constexpr const char* kSortInParts = "PRAGMA cache_size = -4096; PRAGMA threads = 1";
constexpr const char* kSortWhole = "PRAGMA cache_size = -65536; PRAGMA threads = 0";

// Empty when there is no such index.
std::string DefinitionOf(sqlite3* db, const std::string& index) {
    NativeStatement find(db, "SELECT sql FROM sqlite_master WHERE type = 'index' AND name = ?1");
    find.Bind(1, std::string_view(index));
    return find.Step() ? std::string(find.Text(0)) : std::string();
}

// BuildLookupIndexes builds only the indexes of the schema; others must not be dropped.
bool IsBuiltLater(const std::string& name) {
    for (const TableSpec& table : DataSetTables())
        for (const IndexSql& index : CreateIndexSql(PhysicalTableOf(TableDefOf(table))))
            if (index.name == name) return true;
    return false;
}

}  // namespace

void RequireIndexedFields(const TableDef& def) {
    for (const IndexDef& index : def.indexes)
        for (const std::string& name : index.fields)
            if (def.Field(name) == nullptr)
                throw StoreError(ErrorNumber::ItemNotFound,
                                 fmt::format("The table has no field '{}'.", name));
}

void CreateTable(sqlite3* db, const TableDef& def) {
    const PhysicalTable table = PhysicalTableOf(def);
    Savepoint definition(db, kDefinition);
    ExecNative(db, CreateTableSql(table, def.name));
    for (const IndexSql& index : CreateIndexSql(table)) ExecNative(db, index.sql);
    definition.Keep();
}

void DropTable(sqlite3* db, std::string_view name) {
    Savepoint definition(db, kDefinition);
    ExecNative(db, "DROP TABLE " + QuoteName(name));
    ExecNative(db, "DELETE FROM qln_autonumber WHERE table_name = " + QuoteLiteral(name));
    definition.Keep();
}

void ChangeTable(sqlite3* db, const PhysicalTable& table, const dialect::Statement& statement) {
    using Kind = dialect::StatementKind;
    Savepoint definition(db, kDefinition);
    if (statement.kind == Kind::AddColumn) {
        AddColumn(db, table.def, statement);
    } else if (statement.kind == Kind::DropColumn) {
        DropColumn(db, table.def, statement.name);
    } else if (statement.kind == Kind::CreateIndex) {
        CreateIndex(db, table.def, statement);
    } else {
        DropIndex(db, table.def, statement.name);
    }
    definition.Keep();
}

void DropLookupIndexes(sqlite3* db, const Tables& tables) {
    Savepoint definition(db, kDefinition);
    for (const auto& table : tables.All()) {
        for (const IndexSql& index : CreateIndexSql(*table)) {
            if (!index.deferrable || !IsBuiltLater(index.name)) continue;
            NativeStatement wait(db, "INSERT OR IGNORE INTO qln_waiting_indexes (name) VALUES (?1)");
            wait.Bind(1, std::string_view(index.name));
            wait.Step();
            ExecNative(db, "DROP INDEX IF EXISTS " + QuoteName(index.name));
        }
    }
    definition.Keep();
}

std::vector<std::string> WaitingIndexes(sqlite3* db) {
    std::vector<std::string> waiting;
    NativeStatement names(db, "SELECT name FROM qln_waiting_indexes");
    while (names.Step()) waiting.emplace_back(names.Text(0));
    return waiting;
}

void BuildLookupIndexes(sqlite3* db, const Tables& tables, const std::vector<std::string>& waiting) {
    Savepoint definition(db, kDefinition);
    ExecNative(db, kSortInParts);
    for (const TableSpec& table : DataSetTables()) {
        if (tables.Find(table.name) == nullptr) continue;
        for (const IndexSql& index : CreateIndexSql(PhysicalTableOf(TableDefOf(table))))
            if (std::find(waiting.begin(), waiting.end(), index.name) != waiting.end())
                ExecNative(db, fmt::format("DROP INDEX IF EXISTS {}; {}", QuoteName(index.name), index.sql));
    }
    ExecNative(db, kSortWhole);
    ExecNative(db, "DELETE FROM qln_waiting_indexes");
    definition.Keep();
}

bool RenewLookupIndexes(sqlite3* db, const Tables& tables) {
    Savepoint definition(db, kDefinition);
    bool renewed = false;
    for (const TableSpec& table : DataSetTables()) {
        if (tables.Find(table.name) == nullptr) continue;
        for (const IndexSql& index : CreateIndexSql(PhysicalTableOf(TableDefOf(table)))) {
            if (!index.forLookups || DefinitionOf(db, index.name) == index.sql) continue;
            ExecNative(db, fmt::format("DROP INDEX IF EXISTS {}; {}", QuoteName(index.name), index.sql));
            renewed = true;
        }
    }
    definition.Keep();
    return renewed;
}

}  // namespace quillon::store
