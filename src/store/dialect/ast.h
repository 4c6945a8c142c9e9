// The syntax tree of a statement of the dialect. Plain data: the parser creates it; the emitter and the
// criteria of recordsets read it recursively. The parser therefore limits the depth: a chain of And, Or or &
// is one node of any length, and other chains are limited.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "core/value.h"

namespace quillon::store::dialect {

struct Expression;
struct Select;
using ExpressionPtr = std::unique_ptr<Expression>;

enum class ExpressionKind {
    Literal,   // value
    Column,    // name, possibly with a qualifier; or the name of a parameter
    Missing,   // the empty third part of an IIf
    Star,      // count(*)
    Not,       // arguments[0]
    Negate,    // arguments[0]
    Binary,    // name is an operator with two arguments: = <> < > <= >= + - * /
    Chain,     // name is the operator between all arguments, two or more: & and or
    IsNull,    // arguments[0]; `negated` for Is Not Null
    Like,      // arguments[0] Like arguments[1]
    Between,   // arguments[0] Between arguments[1] And arguments[2]
    In,        // arguments[0] In (the other arguments), or In (select)
    Call,      // name(arguments)
    Subselect  // a select with one value
};

struct Expression {
    ExpressionKind kind = ExpressionKind::Literal;
    std::string name;
    std::string qualifier;
    bool bracketed = false;
    bool negated = false;
    Value value;
    std::vector<ExpressionPtr> arguments;
    std::unique_ptr<Select> select;
    std::size_t place = 0;
    std::size_t depth = 1;  // height of the subtree
};

struct SelectItem {
    bool star = false;      // * or qualifier.*
    std::string qualifier;  // of the star
    ExpressionPtr expression;
    std::string alias;
};

enum class JoinKind { Inner, Left, Right };

struct TableRef {
    bool isJoin = false;
    std::string table, alias;  // a table or a stored query, and its alias
    std::size_t place = 0;
    JoinKind join = JoinKind::Inner;
    std::unique_ptr<TableRef> left, right;
    ExpressionPtr on;
    std::size_t depth = 1;

    const std::string& Alias() const { return alias.empty() ? table : alias; }
};

struct OrderItem {
    ExpressionPtr expression;
    bool descending = false;
};

struct Select {
    bool distinct = false;
    bool distinctRow = false;
    std::vector<SelectItem> items;
    std::vector<std::unique_ptr<TableRef>> from;  // more than one: all combinations
    ExpressionPtr where;
    std::vector<ExpressionPtr> groupBy;
    ExpressionPtr having;
    std::unique_ptr<Select> unionWith;  // the next select of a UNION
    bool unionAll = false;
    std::vector<OrderItem> orderBy;  // of the whole union when there is one
    std::size_t depth = 1;
};

enum class StatementKind { Select, Insert, Update, Delete, AddColumn, DropColumn, CreateIndex, DropIndex };

struct Declaration {
    std::string name;
    bool text = false;  // Text, otherwise Long
};

struct Statement {
    StatementKind kind = StatementKind::Select;
    std::vector<Declaration> parameters;
    std::unique_ptr<Select> select;  // a select, or the source of an insert
    std::string table;               // for every other kind
    std::vector<std::string> columns;
    std::vector<ExpressionPtr> values;  // INSERT ... VALUES
    std::unique_ptr<TableRef> target;   // of an update
    std::vector<std::pair<ExpressionPtr, ExpressionPtr>> assignments;
    ExpressionPtr where;
    std::string name;        // of a column or an index
    std::string columnType;  // LONG, TEXT, ...
    int columnSize = 0;
    bool required = false;
    bool primary = false;
    std::size_t place = 0;
};

}  // namespace quillon::store::dialect
