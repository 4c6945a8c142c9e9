// Turns a statement of the dialect into one of SQLite: names found in the schema, texts compared by the
// program's collation, functions and joins written as SQLite has them.
//
// Names without a qualifier mean a column of the tables in scope first, then a parameter: a parameter with
// the name of a column in scope is never seen. A name that is neither is TooFewParameters. A stored query may
// take the place of a table.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/dialect/ast.h"
#include "store/schema/physical_table.h"

namespace quillon::store::dialect {

// What the translation asks about the DataSet. Names compare without regard to case.
class Schema {
public:
    virtual ~Schema() = default;
    virtual const PhysicalTable* Table(std::string_view name) const = 0;
    // The text of a stored query; nullptr when there is none.
    virtual const std::string* Query(std::string_view name) const = 0;
};

enum class ValueType { Any, Text, Number, Boolean, Date };

struct OutputColumn {
    std::string name;
    ValueType type = ValueType::Any;
    std::string field;  // of the one table behind an updatable select; empty for an expression
};

// One place of the SQLite statement that takes a value.
struct Slot {
    int parameter = -1;  // place among the declared ones, or -1 for the constant
    Value constant;
    std::optional<FieldDef> field;  // the value is stored in it, so it is converted and checked on the way
};

struct Translation {
    StatementKind kind = StatementKind::Select;
    std::vector<Declaration> parameters;
    std::string sql;
    std::vector<Slot> slots;
    std::vector<OutputColumn> columns;
    std::string table;  // that an INSERT, UPDATE or DELETE changes
    // An updatable select: its table, and behind the output columns those that find the row again.
    std::string updatableTable;
    std::size_t keyColumns = 0;
};

// Of SELECT, INSERT, UPDATE and DELETE. Errors of the statement are thrown as StoreError.
Translation Translate(const Statement& statement, std::string_view text, const Schema& schema);

}  // namespace quillon::store::dialect
