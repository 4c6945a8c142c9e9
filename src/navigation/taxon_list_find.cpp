// The search for a typed text. A line begins with the first unit of the name, before which a plant's line has
// a mark where the name has one, and the list is sorted by the units. So the rows that can match stand
// together: those whose unit begins with the text, and those whose unit is the text up to one of its blanks,
// among which the next unit goes on with the rest. They are found by halving, and each is tested on its line.
// Where a mark stands before the first unit, the same is done among the rows with that mark; where one may
// stand before the second, the lines are read.
#include <fmt/format.h>

#include <unordered_set>

#include "core/text.h"
#include "navigation/taxon_list.h"

namespace quillon::navigation {

using store::RecordsetType;

namespace {

constexpr std::size_t kRowsWorthTesting = 100;
constexpr std::chrono::milliseconds kSlice(20);
constexpr std::string_view kUnitsSql =
    "PARAMETERS theId Long; SELECT unit_name1, unit_name2 FROM qb_taxonomic_units WHERE qb_id = [theId]";
constexpr std::string_view kFirstUnitLinesSql =
    "PARAMETERS theName Text; SELECT qb_id, line FROM [{}] WHERE unit_name1 = [theName]";
constexpr std::string_view kAllLinesSql = "SELECT qb_id, line FROM [{}]";
// Behind every text that begins with the text before it: no such byte stands in a text, and it sorts last.
constexpr std::string_view kBehindAll = "\xFF\xFF";

std::string_view TrimStart(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}

// What sorts before every text that begins with something other than a blank.
bool IsOddName(std::string_view unit) {
    return unit.empty() || static_cast<unsigned char>(unit.front()) <= ' ';
}

std::string Behind(std::string_view text) {
    return std::string(text) + std::string(kBehindAll);
}

// The text as far as it stands for itself in a pattern.
std::string_view LiteralPart(std::string_view typed) {
    return typed.substr(0, typed.find_first_of("*?#["));
}

}  // namespace

struct TaxonList::Rows {
    const std::vector<std::size_t>* places;  // nullptr for all rows
    std::size_t first, last;                 // from the first up to, and without, the last

    std::size_t At(std::size_t i) const { return places == nullptr ? i : (*places)[i]; }
    Rows Between(std::size_t from, std::size_t to) const { return {places, from, to}; }
    // Those at or after a row of the list.
    Rows From(std::size_t row) const {
        if (places == nullptr) return {places, std::clamp(row, first, last), last};
        const auto begin = places->begin();
        const auto found = std::lower_bound(begin + static_cast<std::ptrdiff_t>(first),
                                            begin + static_cast<std::ptrdiff_t>(last), row);
        return {places, static_cast<std::size_t>(found - begin), last};
    }
};

struct TaxonList::Search {
    std::string pattern;
    std::size_t from;
    std::size_t best = kNone;
};

std::size_t TaxonList::Find(std::string_view typed, std::size_t from) {
    LoadUpTo(LiteralPart(typed));
    std::size_t found = FindLoaded(typed, from);
    if (found != kNone || IsComplete()) return found;
    LoadAll();
    return FindLoaded(typed, from);
}

// Only so far as the names that begin with the text; but all, where a mark may stand before the name.
void TaxonList::LoadUpTo(std::string_view literal) {
    if (query_ == kMarkedQuery || literal.empty()) return LoadAll();
    const std::string behind = Behind(literal);
    while (!IsComplete() && CompareText(order_->LastName(), behind) < 0) Load(kSlice);
}

std::size_t TaxonList::FindLoaded(std::string_view typed, std::size_t from) {
    if (!database_ || from >= RowCount()) return kNone;
    Search search{std::string(typed) + "*", from};
    const std::string_view literal = LiteralPart(typed);
    try {
        if (literal.empty() && !typed.empty()) {
            FindInAll(search);
        } else {
            FindAmong({nullptr, 0, RowCount()}, 0, literal, search);
            if (query_ == kMarkedQuery) FindUnderMarks(literal, search);
        }
    } catch (const store::StoreError&) {
    }
    return search.best;
}

void TaxonList::FindUnderMarks(std::string_view literal, Search& search) {
    for (const auto& [mark, places] : order_->Marked()) {
        const std::string before = std::string(TrimStart(mark)) + " ";
        const std::size_t common = std::min(CharacterCount(before), CharacterCount(literal));
        const std::string_view head = LeftCharacters(literal, common);
        if (LowerCase(head) != LowerCase(LeftCharacters(before, common))) continue;
        FindAmong({&places, 0, places.size()}, 0, literal.substr(head.size()), search);
    }
}

void TaxonList::FindAmong(const Rows& rows, std::size_t unit, std::string_view rest, Search& search) {
    std::size_t odd = rows.first;
    while (odd < rows.last && IsOddName(Unit(IdAt(rows.At(odd)), unit).value_or(""))) ++odd;
    FindIn(rows.Between(rows.first, odd), search);
    if (!rest.empty() && rest.front() == ' ') return;
    const Rows named = rows.Between(odd, rows.last);
    FindBehindUnit(named, unit, rest, search);
    FindIn(named.Between(Bound(named, unit, rest, false), Bound(named, unit, Behind(rest), false)), search);
}

// The rows whose unit is the text up to a blank.
void TaxonList::FindBehindUnit(const Rows& rows, std::size_t unit, std::string_view rest, Search& search) {
    for (std::size_t blank = rest.find(' '); blank != std::string_view::npos;
         blank = rest.find(' ', blank + 1)) {
        if (rest[blank - 1] == ' ') continue;
        const std::string_view name = rest.substr(0, blank);
        const Rows equal = rows.Between(Bound(rows, unit, name, false), Bound(rows, unit, name, true));
        if (unit == 1) {
            FindIn(equal, search);
        } else if (query_ == kMarkedQuery) {
            FindByReading(equal.From(search.from), name, search);
        } else {
            FindAmong(equal, 1, rest.substr(blank + 1), search);
        }
    }
}

// The place of the first whose unit is not before `name`, or is after it. A row whose taxon is gone counts
// with the next.
std::size_t TaxonList::Bound(const Rows& rows, std::size_t unit, std::string_view name, bool after) {
    std::size_t low = rows.first;
    for (std::size_t high = rows.last; low < high;) {
        const std::size_t middle = low + (high - low) / 2;
        std::size_t at = middle;
        std::optional<std::string> found;
        while (at < high && !(found = Unit(IdAt(rows.At(at)), unit))) ++at;
        const int order = found ? CompareText(*found, name) : 1;
        if (order < 0 || (after && order == 0)) {
            low = at + 1;
        } else {
            high = middle;
        }
    }
    return low;
}

// A genus may have thousands of species: when the first rows do not match, all its lines are read at once.
void TaxonList::FindByReading(const Rows& rows, std::string_view firstUnit, Search& search) {
    const std::size_t first = std::min(rows.first + kRowsWorthTesting, rows.last);
    FindIn(rows.Between(rows.first, first), search);
    if (first == rows.last || search.best <= rows.At(first)) return;
    std::unordered_set<int> matches;
    auto query = database_->CreateQueryDef("", fmt::format(fmt::runtime(kFirstUnitLinesSql), query_));
    for (const auto row = query.Set("theName", firstUnit).OpenRecordset(RecordsetType::ForwardOnly);
         !row->Eof(); row->MoveNext()) {
        if (LikeText(row->At(1).AsText(), search.pattern))
            matches.insert(static_cast<int>(row->At(0).AsLong()));
    }
    std::size_t i = first;
    while (i < rows.last && !matches.contains(IdAt(rows.At(i)))) ++i;
    if (i < rows.last) search.best = std::min(search.best, rows.At(i));
}

void TaxonList::FindIn(const Rows& rows, Search& search) {
    const Rows left = rows.From(search.from);
    for (std::size_t i = left.first; i < left.last && left.At(i) < search.best; ++i) {
        if (LikeText(LineOf(IdAt(left.At(i))), search.pattern)) search.best = left.At(i);
    }
}

// A pattern that begins with a wildcard can match anywhere: all lines are read.
void TaxonList::FindInAll(Search& search) {
    const auto all =
        database_->OpenRecordset(fmt::format(fmt::runtime(kAllLinesSql), query_), RecordsetType::ForwardOnly);
    std::unordered_set<int> matches;
    for (; !all->Eof(); all->MoveNext()) {
        if (LikeText(all->At(1).AsText(), search.pattern))
            matches.insert(static_cast<int>(all->At(0).AsLong()));
    }
    if (matches.empty()) return;
    std::size_t row = search.from;
    while (row < RowCount() && !matches.contains(IdAt(row))) ++row;
    if (row < RowCount()) search.best = row;
}

std::optional<std::string> TaxonList::Unit(int qb_id, std::size_t unit) {
    if (!unitsQuery_) unitsQuery_ = database_->CreateQueryDef("", kUnitsSql);
    const auto row = unitsQuery_->Set("theId", qb_id).OpenRecordset(RecordsetType::ForwardOnly);
    if (row->Eof()) return std::nullopt;
    return row->At(unit).AsText();
}

}  // namespace quillon::navigation
