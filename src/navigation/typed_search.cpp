// Finds the ranges of the index on the names that can match a typed text, and tests the rows in them.
#include "navigation/typed_search.h"

#include <fmt/format.h>

#include <algorithm>

#include "core/text.h"
#include "navigation/taxon_list.h"

namespace quillon::navigation {

using store::RecordsetType;

namespace {

// Sorting up to this many marked names is faster than finding them in name order.
constexpr std::int64_t kFewMarked = 1000;

constexpr std::string_view kParameters =
    "PARAMETERS theName Text, theFirst Text, theLast Text, theMark Text; ";
constexpr std::string_view kLinesSql =
    "{}SELECT qb_id, unit_name1, unit_name2, unit_name3, unit_name4, taxon_author, line FROM [{}] WHERE {} "
    "ORDER BY unit_name1, unit_name2, unit_name3, unit_name4, taxon_author";
constexpr std::string_view kTaxaSql =
    "{}SELECT t.qb_id, t.unit_name1, t.unit_name2, t.unit_name3, t.unit_name4, a.taxon_author FROM "
    "qb_taxonomic_units AS t LEFT JOIN qb_taxon_authors_lookup AS a ON t.qb_taxon_author_id = "
    "a.qb_taxon_author_id WHERE {} "
    "ORDER BY t.unit_name1, t.unit_name2, t.unit_name3, t.unit_name4, a.taxon_author";
constexpr std::string_view kLineSql = "PARAMETERS theId Long; SELECT line FROM [{}] WHERE qb_id = [theId]";
constexpr std::string_view kMarksSql =
    "SELECT unit_ind1, count(*) AS HowMany FROM qb_taxonomic_units WHERE unit_ind1 Is Not Null "
    "GROUP BY unit_ind1";

constexpr std::string_view kFirstNull = "unit_name1 Is Null";
constexpr std::string_view kFirstBetween = "unit_name1 >= [theFirst] AND unit_name1 < [theLast]";
constexpr std::string_view kSecondNull = "unit_name1 = [theName] AND unit_name2 Is Null";
constexpr std::string_view kSecondBetween =
    "unit_name1 = [theName] AND unit_name2 >= [theFirst] AND unit_name2 < [theLast]";
constexpr std::string_view kSecondEqual = "unit_name1 = [theName] AND unit_name2 = [theFirst]";
constexpr std::string_view kSecondMarked = "unit_name1 = [theName] AND unit_ind2 Is Not Null";
constexpr std::string_view kMarked = " AND unit_ind1 = [theMark]";
// The same without use of the index on the marks.
constexpr std::string_view kMarkedAlongNames = " AND unit_ind1 & '' = [theMark]";

// Appended to a text, sorts after every text that begins with that text: no text contains this byte, which
// sorts last.
constexpr std::string_view kBehindAll = "\xFF\xFF";
// Sorts after every name that is empty or begins with a blank; the line of such a name begins with something
// else.
constexpr std::string_view kBehindBlanks = "!";

std::string_view TrimStart(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}

std::string Behind(std::string_view text) {
    return std::string(text) + std::string(kBehindAll);
}

NameKey KeyOfRow(const store::Recordset& row) {
    NameKey key;
    key.qb_id = static_cast<int>(row.At(0).AsLong());
    for (std::size_t i = 0; i < 4; ++i) key.units[i] = row.At(i + 1).AsText();
    key.author = row.At(5).AsText();
    return key;
}

// Splits a text at each of its blanks and calls `behind` with both parts.
template <typename Procedure>
void AtEachBlank(std::string_view text, Procedure behind) {
    for (std::size_t blank = text.find(' '); blank != std::string_view::npos;
         blank = text.find(' ', blank + 1)) {
        behind(TrimEnd(text.substr(0, blank)), text.substr(blank + 1));
    }
}

}  // namespace

struct TypedSearch::Rows {
    std::string_view mark = {};  // empty for the rows of the list
    bool alongNames = false;
};

TypedSearch::TypedSearch(store::Database& database, std::string_view query, std::string_view typed,
                         const NameKey* from)
    : database_(database),
      query_(query),
      from_(from),
      typed_(typed),
      pattern_(std::string(typed) + "*"),
      withMarks_(query == TaxonList::kMarkedQuery) {}

std::optional<NameKey> TypedSearch::Run() {
    SearchFirstUnit({}, typed_);
    if (withMarks_) SearchMarks(typed_);
    return best_;
}

// `rest` is how the first unit must begin.
void TypedSearch::SearchFirstUnit(const Rows& rows, std::string_view rest) {
    const bool fromIsNamed = from_ != nullptr && !from_->units[0].empty();
    if (!fromIsNamed) ScanAmong(rows, {kFirstNull});
    SearchFirstUnitBetween(rows, {}, kBehindBlanks);
    if (!rest.empty() && rest.front() == ' ') return;
    SearchFirstUnitBetween(rows, rest, Behind(rest));
    AtEachBlank(rest, [&](std::string_view name, std::string_view next) {
        if (rows.mark.empty()) {
            SearchSecondUnit(name, next);
        } else {
            SearchFirstUnitBetween(rows, name, std::string(name) + std::string(kBehindBlanks));
        }
    });
}

void TypedSearch::SearchFirstUnitBetween(const Rows& rows, std::string_view first, std::string_view last) {
    if (from_ != nullptr && CompareText(from_->units[0], first) > 0) first = from_->units[0];
    if (CompareText(first, last) >= 0) return;
    ScanAmong(rows, {kFirstBetween, {}, std::string(first), std::string(last)});
}

// The first unit is `name`; the second must begin with `rest`, or have a mark before it.
void TypedSearch::SearchSecondUnit(std::string_view name, std::string_view rest) {
    const int order = from_ == nullptr ? -1 : CompareText(from_->units[0], name);
    if (order > 0) return;
    if (order < 0 || from_->units[1].empty()) Scan({kSecondNull, std::string(name)});
    if (withMarks_) ScanMarked({kSecondMarked, std::string(name)});
    SearchSecondUnitBetween(name, {}, kBehindBlanks);
    if (!rest.empty() && rest.front() == ' ') return;
    SearchSecondUnitBetween(name, rest, Behind(rest));
    AtEachBlank(rest, [&](std::string_view second, std::string_view) {
        Scan({kSecondEqual, std::string(name), std::string(second)});
    });
}

void TypedSearch::SearchSecondUnitBetween(std::string_view name, std::string_view first,
                                          std::string_view last) {
    const bool inFromsGenus = from_ != nullptr && EqualText(from_->units[0], name);
    if (inFromsGenus && CompareText(from_->units[1], first) > 0) first = from_->units[1];
    if (CompareText(first, last) >= 0) return;
    Scan({kSecondBetween, std::string(name), std::string(first), std::string(last)});
}

// A mark and a blank come before the first unit; the text must match as much of them as it is long.
void TypedSearch::SearchMarks(std::string_view typed) {
    for (const auto marks = database_.OpenRecordset(kMarksSql); !marks->Eof(); marks->MoveNext()) {
        const std::string mark = marks->At(0).AsText();
        const std::string before = std::string(TrimStart(mark)) + " ";
        const std::size_t common = std::min(CharacterCount(before), CharacterCount(typed));
        const std::string_view head = LeftCharacters(typed, common);
        if (LowerCase(head) != LowerCase(LeftCharacters(before, common))) continue;
        SearchFirstUnit({mark, marks->At(1).AsLong() > kFewMarked}, typed.substr(head.size()));
    }
}

std::unique_ptr<store::Recordset> TypedSearch::Open(const std::string& sql, const Range& range) {
    auto query = database_.CreateQueryDef("", sql);
    query.Set("theName", range.name).Set("theFirst", range.first).Set("theLast", range.last);
    return query.Set("theMark", range.mark).OpenRecordset(RecordsetType::ForwardOnly);
}

void TypedSearch::ScanAmong(const Rows& rows, Range range) {
    if (rows.mark.empty()) return Scan(range);
    const std::string where =
        std::string(range.where) + std::string(rows.alongNames ? kMarkedAlongNames : kMarked);
    range.where = where;
    range.mark = rows.mark;
    ScanMarked(range);
}

void TypedSearch::Scan(const Range& range) {
    const std::string sql = fmt::format(fmt::runtime(kLinesSql), kParameters, query_, range.where);
    for (const auto row = Open(sql, range); !row->Eof(); row->MoveNext()) {
        const NameKey key = KeyOfRow(*row);
        if (IsBehindBest(key)) return;
        Test(key, row->At(6).AsText());
    }
}

// The list's query has no columns for the marks, so the taxa are found first, then their lines.
void TypedSearch::ScanMarked(const Range& range) {
    const std::string sql = fmt::format(fmt::runtime(kTaxaSql), kParameters, range.where);
    for (const auto row = Open(sql, range); !row->Eof(); row->MoveNext()) {
        const NameKey key = KeyOfRow(*row);
        if (IsBehindBest(key)) return;
        if (from_ == nullptr || CompareKeys(key, *from_) >= 0) Test(key, LineOf(key.qb_id));
    }
}

bool TypedSearch::IsBehindBest(const NameKey& key) const {
    return best_ && CompareUnits(key.units, best_->units) > 0;
}

void TypedSearch::Test(const NameKey& key, std::string_view line) {
    if (from_ != nullptr && CompareKeys(key, *from_) < 0) return;
    if (best_ && CompareKeys(key, *best_) > 0) return;
    if (LikeText(line, pattern_)) best_ = key;
}

std::string TypedSearch::LineOf(int qb_id) {
    auto query = database_.CreateQueryDef("", fmt::format(fmt::runtime(kLineSql), query_));
    const auto row = query.Set("theId", qb_id).OpenRecordset(RecordsetType::ForwardOnly);
    return row->Eof() ? std::string() : row->At(0).AsText();
}

}  // namespace quillon::navigation
