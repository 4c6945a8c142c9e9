// The search for a typed text. A line begins with the first unit of the name, before which a plant's line has
// a mark where the name has one; the list is sorted by the first unit. So the rows that can match stand
// together: those whose first unit begins with the text, and those whose first unit is the text up to one of
// its blanks. They are found by halving, and each is tested on its line. Where a mark stands before the unit,
// the same is done among the rows with that mark.
#include <fmt/format.h>

#include <unordered_set>

#include "core/text.h"
#include "navigation/taxon_list.h"

namespace quillon::navigation {

using store::RecordsetType;

namespace {

constexpr std::string_view kMarkedQuery = "Get Data";
constexpr std::string_view kFirstUnitSql =
    "PARAMETERS theId Long; SELECT unit_name1 FROM qb_taxonomic_units WHERE qb_id = [theId]";
constexpr std::string_view kWholeUnitSql =
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

}  // namespace

struct TaxonList::Rows {
    const std::vector<std::size_t>* places;  // nullptr for all rows
    std::size_t count;
    std::size_t At(std::size_t i) const { return places == nullptr ? i : (*places)[i]; }
    // The first of them that is at or after a row of the list.
    std::size_t From(std::size_t row) const {
        if (places == nullptr) return std::min(row, count);
        return static_cast<std::size_t>(std::lower_bound(places->begin(), places->end(), row) -
                                        places->begin());
    }
};

struct TaxonList::Search {
    std::string pattern;
    std::size_t from;
    std::size_t best = kNone;
    void Offer(std::size_t row) { best = std::min(best, row); }
};

std::size_t TaxonList::Find(std::string_view typed, std::size_t from) {
    std::size_t found = FindLoaded(typed, from);
    if (found != kNone || IsComplete()) return found;
    LoadAll();
    return FindLoaded(typed, from);
}

std::size_t TaxonList::FindLoaded(std::string_view typed, std::size_t from) {
    if (!database_ || from >= ids_.size()) return kNone;
    Search search{std::string(typed) + "*", from};
    const std::string_view literal = typed.substr(0, typed.find_first_of("*?#["));
    try {
        if (literal.empty() && !typed.empty()) {
            Walk(search);
        } else {
            FindAmong({nullptr, ids_.size()}, literal, search);
            if (query_ == kMarkedQuery) FindUnderMarks(literal, search);
        }
    } catch (const store::StoreError&) {
    }
    return search.best;
}

void TaxonList::FindUnderMarks(std::string_view literal, Search& search) {
    for (const auto& [mark, places] : marked_) {
        const std::string before = std::string(TrimStart(mark)) + " ";
        const std::size_t common = std::min(CharacterCount(before), CharacterCount(literal));
        const std::string_view head = LeftCharacters(literal, common);
        if (LowerCase(head) != LowerCase(LeftCharacters(before, common))) continue;
        FindAmong({&places, places.size()}, literal.substr(head.size()), search);
    }
}

void TaxonList::FindAmong(const Rows& rows, std::string_view rest, Search& search) {
    FindOddNames(rows, search);
    if (!rest.empty() && rest.front() == ' ') return;
    for (std::size_t blank = rest.find(' '); blank != std::string_view::npos;
         blank = rest.find(' ', blank + 1)) {
        if (rest[blank - 1] != ' ') FindWholeUnit(rows, rest.substr(0, blank), search);
    }
    const std::string behind = std::string(rest) + std::string(kBehindAll);
    FindBetween(rows, Bound(rows, rest, false), Bound(rows, behind, false), search);
}

// The place among `rows` of the first whose first unit is not before `name`, or is after it. A row whose
// taxon is gone counts with the next one.
std::size_t TaxonList::Bound(const Rows& rows, std::string_view name, bool after) {
    std::size_t low = 0;
    for (std::size_t high = rows.count; low < high;) {
        const std::size_t middle = low + (high - low) / 2;
        std::size_t at = middle;
        std::optional<std::string> unit;
        while (at < high && !(unit = FirstUnit(IdAt(rows.At(at))))) ++at;
        const int order = unit ? CompareText(*unit, name) : 1;
        if (order < 0 || (after && order == 0)) {
            low = at + 1;
        } else {
            high = middle;
        }
    }
    return low;
}

// Names that are Null or begin with a blank stand first, and their lines begin with something else.
void TaxonList::FindOddNames(const Rows& rows, Search& search) {
    std::size_t last = 0;
    while (last < rows.count && IsOddName(FirstUnit(IdAt(rows.At(last))).value_or(""))) ++last;
    FindBetween(rows, 0, last, search);
}

// All lines of one first unit are read at once: a genus may have thousands of species.
void TaxonList::FindWholeUnit(const Rows& rows, std::string_view unit, Search& search) {
    const std::size_t last = Bound(rows, unit, true);
    std::size_t i = std::max(Bound(rows, unit, false), rows.From(search.from));
    if (i >= last) return;
    std::unordered_set<int> matches;
    auto query = database_->CreateQueryDef("", fmt::format(fmt::runtime(kWholeUnitSql), query_));
    for (const auto row = query.Set("theName", unit).OpenRecordset(RecordsetType::ForwardOnly); !row->Eof();
         row->MoveNext()) {
        if (LikeText(row->At(1).AsText(), search.pattern))
            matches.insert(static_cast<int>(row->At(0).AsLong()));
    }
    while (i < last && !matches.contains(IdAt(rows.At(i)))) ++i;
    if (i < last) search.Offer(rows.At(i));
}

void TaxonList::FindBetween(const Rows& rows, std::size_t first, std::size_t last, Search& search) {
    for (std::size_t i = std::max(first, rows.From(search.from)); i < last && rows.At(i) < search.best; ++i) {
        if (LikeText(LineOf(IdAt(rows.At(i))), search.pattern)) search.Offer(rows.At(i));
    }
}

// A pattern that begins with a wildcard can match anywhere: all lines are read, in their order.
void TaxonList::Walk(Search& search) {
    const auto all =
        database_->OpenRecordset(fmt::format(fmt::runtime(kAllLinesSql), query_), RecordsetType::ForwardOnly);
    std::unordered_set<int> matches;
    for (; !all->Eof(); all->MoveNext()) {
        if (LikeText(all->At(1).AsText(), search.pattern))
            matches.insert(static_cast<int>(all->At(0).AsLong()));
    }
    if (matches.empty()) return;
    std::size_t row = search.from;
    while (row < ids_.size() && !matches.contains(ids_[row])) ++row;
    if (row < ids_.size()) search.Offer(row);
}

std::optional<std::string> TaxonList::FirstUnit(int qb_id) {
    if (!firstUnitQuery_) firstUnitQuery_ = database_->CreateQueryDef("", kFirstUnitSql);
    const auto row = firstUnitQuery_->Set("theId", qb_id).OpenRecordset(RecordsetType::ForwardOnly);
    if (row->Eof()) return std::nullopt;
    return row->At(0).AsText();
}

}  // namespace quillon::navigation
