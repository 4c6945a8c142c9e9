// Which rows a validation or an export visits: all of them, those of the journal, or those of taxa that meet
// a condition which the user typed. frmValidate, the export form and quillon-batch build the filter here; the
// rows themselves are read by SelectedTaxa and SelectedRows.
//
// A filter is a text (gRecordFilter): "none", "journal", or a clause ` WHERE <column> <operator> "<value>"`
// on a field of qb_taxonomic_units. A clause is checked before it runs, so that nothing but one condition
// else gets into a statement.
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

// The clause of a condition, as it stands in gRecordFilter. It checks nothing.
std::string ColumnClause(std::string_view column, std::string_view comparison, std::string_view value);

// What is wrong with a condition, as a message for the user; nothing when it may run. The column is a field
// of qb_taxonomic_units in any case of letters; the operator one of = <> < > <= >= Like; the value holds no
// double quote, and suits a field that is no text.
std::optional<std::string> CheckColumnClause(store::Database& database, std::string_view column,
                                             std::string_view comparison, std::string_view value);
// The same for a whole filter, from wherever it came.
std::optional<std::string> CheckRecordFilter(store::Database& database, std::string_view filter);

// The filter that a text of the command line means: "none", "journal", or the column, the operator and the
// value, with blanks between them. Returns a message and leaves `filter` alone when the text means none.
std::optional<std::string> ReadFilterText(store::Database& database, std::string_view text,
                                          std::string& filter);

// The rows, or the count, of one of the tables that validation visits, in the dialect; with the filter "none"
// the rows are the table's name. Empty for any other table. It says which rows they are; it does not run
// fast.
std::string BuildValidationSelect(std::string_view table, std::string_view filter, bool countOnly);
// The filter with its column qualified: fields of the joined tables may have the same name, and the column is
// the taxon's. A select that is to run is built with this one.
std::string RunnableFilter(std::string_view filter);

// The condition of a clause, ready to stand in a select.
std::string ConditionOf(std::string_view filter);

}  // namespace quillon::selection
