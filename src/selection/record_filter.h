// Which rows a validation or an export visits: all of them, those of the journal, or those of taxa that meet
// a condition of the user. frmValidate, the export form and quillon-batch build the filter here; SelectedTaxa
// and SelectedRows read the rows.
//
// A filter is a text (gRecordFilter): "none", "journal", or a clause ` WHERE <column> <operator> "<value>"`
// on a field of qb_taxonomic_units. A clause is checked before it runs, so that only a single condition gets
// into a statement.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "store/engine.h"

namespace quillon::selection {

inline constexpr std::string_view kNoFilter = "none";
inline constexpr std::string_view kJournalFilter = "journal";
inline constexpr std::array<std::string_view, 7> kOperators = {"=", "<>", "<", ">", "<=", ">=", "Like"};

// The clause of a condition, as in gRecordFilter. Checks nothing.
std::string ColumnClause(std::string_view column, std::string_view comparison, std::string_view value);

// Checks a condition. Returns a message for the user, or nothing when the condition may run. The column must
// be a field of qb_taxonomic_units, in upper or lower case; the operator one of = <> < > <= >= Like; the
// value must have no double quote, and fit the type of the field.
std::optional<std::string> CheckColumnClause(store::Database& database, std::string_view column,
                                             std::string_view comparison, std::string_view value);
// The same for a whole filter.
std::optional<std::string> CheckRecordFilter(store::Database& database, std::string_view filter);

// Parses the filter of a command line: "none", "journal", or the column, the operator and the value,
// separated by blanks. For an invalid text returns a message and leaves `filter` alone.
std::optional<std::string> ReadFilterText(store::Database& database, std::string_view text,
                                          std::string& filter);

// A statement for the rows, or the count, of one of the tables that validation visits; with the filter "none"
// the rows are the table's name. Empty for any other table. It defines the rows but is slow.
std::string BuildValidationSelect(std::string_view table, std::string_view filter, bool countOnly);
// The filter with its column qualified as the taxon's, because joined tables may have a field of the same
// name. Use it to build a select that runs.
std::string RunnableFilter(std::string_view filter);

// The condition of a clause, for use in a select.
std::string ConditionOf(std::string_view filter);

}  // namespace quillon::selection
