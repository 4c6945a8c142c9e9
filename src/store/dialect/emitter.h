// Implements Translate: one object for each statement, which collects the slots in the order of the SQLite
// text. Used only in this folder.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "store/dialect/scope.h"
#include "store/dialect/translation.h"

namespace quillon::store::dialect {

// SQLite text of an expression, and the type of its value.
struct Emitted {
    std::string sql;
    ValueType type = ValueType::Any;
};

class Emitter {
public:
    Emitter(std::string_view text, const Schema& schema, Translation& out)
        : text_(text), schema_(schema), out_(out) {}

    void EmitStatement(const Statement& statement);

private:
    struct SelectText {
        std::string sql;
        std::vector<OutputColumn> columns;
    };
    enum class Use { Top, Nested };

    // emit_expression.cpp
    Emitted EmitExpression(const Expression& expression, const Scope* scope);
    Emitted EmitColumn(const Expression& expression, const Scope* scope);
    Emitted EmitLiteral(const Value& value);
    Emitted EmitBinary(const Expression& expression, const Scope* scope);
    Emitted EmitConcatenation(const Expression& expression, const Scope* scope);
    Emitted EmitChain(const Expression& expression, const Scope* scope);
    Emitted EmitComparison(const Expression& expression, const Scope* scope);
    bool EmitExactComparison(const Expression& expression, const Scope* scope, Emitted& result);
    Emitted EmitLike(const Expression& expression, const Scope* scope);
    Emitted EmitBetween(const Expression& expression, const Scope* scope);
    Emitted EmitIn(const Expression& expression, const Scope* scope);
    int AddSlot(Slot slot);
    int ParameterPlace(std::string_view name) const;

    // emit_function.cpp
    Emitted EmitCall(const Expression& expression, const Scope* scope);
    Emitted EmitIIf(const Expression& expression, const Scope* scope);
    std::string EmitArguments(const Expression& expression, const Scope* scope);
    Emitted EmitAggregate(const Expression& expression, const Scope* scope, std::string_view function);

    // emit_select.cpp
    SelectText EmitSelect(const Select& select, const Scope* outer, Use use);
    SelectText EmitCore(const Select& select, const Scope* outer, Scope& scope, bool collated, bool withKey);
    void AddItem(const SelectItem& item, const Scope& scope, bool collated, SelectText& result,
                 std::string& list);
    void AddStar(const SelectItem& item, const Scope& scope, bool collated, SelectText& result,
                 std::string& list);
    std::string EmitOrderBy(const Select& select, const Scope& scope, const SelectText& text);
    std::string EmitUnionOrderBy(const Select& select, const SelectText& text);
    std::string RowIdentity(const Select& select, const Scope& scope);
    void AddRowKey(const Select& select, const Scope& scope, std::string& list);

    // emit_from.cpp
    std::string EmitTableRef(const TableRef& ref, Scope& scope);
    std::string EmitSource(const TableRef& ref, Scope& scope);
    void DeclareSources(const TableRef& ref, Scope& scope);
    Source SourceOf(const TableRef& ref);
    const PhysicalTable& RequireTable(std::string_view name, std::size_t place) const;

    // emit_action.cpp
    void EmitInsert(const Statement& statement);
    void RequirePlain(const Statement& statement) const;
    std::string EmitInsertedRows(const Statement& statement, Scope& scope);
    void EmitUpdate(const Statement& statement);
    void EmitDelete(const Statement& statement);
    std::string EmitAssigned(const Expression& expression, const FieldDef& field, const Scope* scope);
    const FieldDef& RequireField(const PhysicalTable& table, std::string_view name, std::size_t place) const;
    void CollectJoined(const TableRef& ref, std::vector<const TableRef*>& tables,
                       std::vector<const Expression*>& conditions) const;

    [[noreturn]] void Fail(std::size_t place, std::string_view what) const;

    std::string_view text_;
    const Schema& schema_;
    Translation& out_;
    int depth_ = 0;
    int expanded_ = 0;  // number of stored queries in the statement so far
    std::vector<std::pair<std::string, SelectText>> storedQueries_;  // translated ahead, by alias
};

// `sql COLLATE QLN` where the value may be a text.
std::string Collate(const Emitted& emitted);
bool IsAggregate(const Select& select);

}  // namespace quillon::store::dialect
