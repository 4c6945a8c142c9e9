#include "selection/record_filter.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <vector>

#include "core/text.h"

namespace quillon::selection {

namespace {

constexpr std::string_view kTaxa = "qb_taxonomic_units";
constexpr std::string_view kWhere = " WHERE ";

struct Condition {
    std::string_view column, comparison, value;
};

bool IsOperator(std::string_view word) {
    return std::any_of(kOperators.begin(), kOperators.end(), [&](std::string_view known) {
        return EqualText(known, word) && known.size() == word.size();
    });
}

// Removes and returns the text up to the next blank, which is removed too.
std::string_view TakeWord(std::string_view& text) {
    const std::size_t blank = std::min(text.find(' '), text.size());
    const std::string_view word = text.substr(0, blank);
    text.remove_prefix(std::min(blank + 1, text.size()));
    return word;
}

// The parts of a clause made by ColumnClause; empty for a text of another form.
std::optional<Condition> ParseClause(std::string_view clause) {
    if (!clause.starts_with(kWhere)) return std::nullopt;
    clause.remove_prefix(kWhere.size());
    Condition condition;
    condition.column = TakeWord(clause);
    condition.comparison = TakeWord(clause);
    if (clause.size() < 2 || clause.front() != '"' || clause.back() != '"') return std::nullopt;
    condition.value = clause.substr(1, clause.size() - 2);
    return condition;
}

bool IsTruthWord(std::string_view value) {
    static constexpr std::array<std::string_view, 4> words = {"True", "False", "Yes", "No"};
    return std::any_of(words.begin(), words.end(),
                       [&](std::string_view word) { return EqualText(word, value); });
}

// True for a value that can be compared with a field of this type.
bool FitsType(store::FieldType type, std::string_view comparison, std::string_view value) {
    if (type == store::FieldType::Text || type == store::FieldType::Memo || EqualText(comparison, "Like"))
        return true;
    if (type == store::FieldType::Boolean && IsTruthWord(value)) return true;
    return IsNumericText(value);
}

const store::FieldSpec* SpecOf(std::string_view column) {
    for (const store::TableSpec& table : store::DataSetTables()) {
        if (table.name != kTaxa) continue;
        for (const store::FieldSpec& field : table.fields)
            if (EqualText(field.name, column)) return &field;
    }
    return nullptr;
}

}  // namespace

std::string ColumnClause(std::string_view column, std::string_view comparison, std::string_view value) {
    return fmt::format(" WHERE {} {} \"{}\"", column, comparison, value);
}

std::optional<std::string> CheckColumnClause(store::Database& database, std::string_view column,
                                             std::string_view comparison, std::string_view value) {
    const store::TableDef* taxa = database.FindTableDef(kTaxa);
    const store::FieldDef* field = taxa == nullptr ? nullptr : taxa->Field(column);
    if (field == nullptr) return fmt::format("The column '{}' is no field of {}.", column, kTaxa);
    if (!IsOperator(comparison))
        return fmt::format("'{}' is no operator: it is one of {}.", comparison, fmt::join(kOperators, ", "));
    if (value.find('"') != std::string_view::npos)
        return "The value of a filter may not hold a double quote.";
    if (!FitsType(field->type, comparison, value))
        return fmt::format("The column '{}' holds no texts, so it cannot be compared with '{}'.", field->name,
                           value);
    return std::nullopt;
}

std::optional<std::string> CheckRecordFilter(store::Database& database, std::string_view filter) {
    if (filter == kNoFilter || filter == kJournalFilter) return std::nullopt;
    const auto condition = ParseClause(filter);
    if (!condition) return fmt::format("'{}' is no filter.", Trim(filter));
    return CheckColumnClause(database, condition->column, condition->comparison, condition->value);
}

std::optional<std::string> ReadFilterText(store::Database& database, std::string_view text,
                                          std::string& filter) {
    if (text == kNoFilter || text == kJournalFilter) {
        filter = text;
        return std::nullopt;
    }
    std::string_view rest = Trim(text);
    const std::string_view column = TakeWord(rest);
    rest = Trim(rest);
    const std::string_view comparison = TakeWord(rest);
    if (comparison.empty())
        return fmt::format("'{}' is no filter: it is none, journal, or a column, an operator and a value.",
                           text);
    if (auto message = CheckColumnClause(database, column, comparison, rest)) return message;
    filter = ColumnClause(column, comparison, rest);
    return std::nullopt;
}

std::string RunnableFilter(std::string_view filter) {
    const auto condition = ParseClause(filter);
    const store::FieldSpec* field = condition ? SpecOf(condition->column) : nullptr;
    if (field == nullptr) return std::string(filter);
    const std::string column = fmt::format("{}.{}", kTaxa, field->name);
    if (field->type != store::FieldType::Boolean || EqualText(condition->comparison, "Like"))
        return ColumnClause(column, condition->comparison, condition->value);
    return fmt::format(" WHERE {} {} {}", column, condition->comparison, Value(condition->value).AsBoolean());
}

std::string ConditionOf(std::string_view filter) {
    return RunnableFilter(filter).substr(kWhere.size());
}

}  // namespace quillon::selection
