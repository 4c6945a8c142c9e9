// Walks over the lines, and finds which first letters a pattern allows.
#include "navigation/pattern_search.h"

#include <algorithm>
#include <unordered_map>

#include "core/text.h"
#include "core/utf8.h"
#include "navigation/many_ids.h"
#include "navigation/taxon_list.h"

namespace quillon::navigation {

namespace {

constexpr std::string_view kWildcards = "*?#[";
constexpr std::string_view kLinesSql = "PARAMETERS {0}; SELECT qb_id, line FROM [{2}] WHERE qb_id In ({1})";
constexpr std::string_view kNamesFromSql =
    "PARAMETERS theFirst Text; SELECT unit_name1 FROM qb_taxonomic_units WHERE unit_name1 >= [theFirst] "
    "ORDER BY unit_name1";

// Appended to a text, sorts after every text that begins with that text: no text contains this byte, which
// sorts last.
constexpr std::string_view kBehindAll = "\xFF\xFF";
// Sorts after every name that is empty or begins with a blank; the line of such a name begins with something
// else.
constexpr std::string_view kBehindBlanks = "!";

std::string Behind(std::string_view text) {
    return std::string(text) + std::string(kBehindAll);
}

// An open set matches nothing.
bool HasOpenSet(std::string_view pattern) {
    for (std::size_t open = pattern.find('['); open != std::string_view::npos;) {
        const std::size_t close = pattern.find(']', open);
        if (close == std::string_view::npos) return true;
        open = pattern.find('[', close);
    }
    return false;
}

// The element that the first character of a line must match: a character, a wildcard, or a set with its
// brackets. Empty when any character will do.
std::string_view FirstElement(std::string_view pattern) {
    if (pattern.front() == '*' || pattern.front() == '?' || pattern.starts_with("[]")) return {};
    return pattern.front() == '[' ? pattern.substr(0, pattern.find(']') + 1) : LeftCharacters(pattern, 1);
}

// True when a name that sorts under `letter` may begin with a matching character: the letter, or one that
// differs from it only in case or accent.
bool LetsThrough(std::string_view element, std::string_view letter) {
    if (LikeText(letter, element)) return true;
    for (char32_t code = U' '; code < 0x180; ++code) {
        std::string character;
        AppendUtf8(code, character);
        const bool sortsThere =
            CompareText(Behind(character), letter) > 0 && CompareText(character, Behind(letter)) < 0;
        if (sortsThere && LikeText(character, element)) return true;
    }
    return false;
}

std::optional<NameKey> Copy(const NameKey* key) {
    return key == nullptr ? std::nullopt : std::optional(*key);
}

}  // namespace

bool PatternSearch::IsNeededFor(std::string_view typed) {
    return typed.empty() || typed.find_first_of(kWildcards) != std::string_view::npos;
}

// When lines have marks before names, the first letter of a name is not that of its line.
PatternSearch::PatternSearch(std::shared_ptr<store::Database> database, std::string_view query,
                             std::string_view typed, const NameKey* from, const NameKey* before)
    : database_(std::move(database)),
      query_(query),
      pattern_(std::string(typed) + "*"),
      from_(Copy(from)),
      before_(Copy(before)),
      ended_(HasOpenSet(pattern_)) {
    if (!ended_ && query != TaxonList::kMarkedQuery) first_ = FirstElement(pattern_);
    if (from_) at_ = from_->units;
}

bool PatternSearch::Step(std::size_t rows) {
    for (std::size_t looked = 0; !ended_ && looked < rows;) looked += Walk(rows - looked);
    return ended_;
}

// Counts at least one row, so that a step always ends.
std::size_t PatternSearch::Walk(std::size_t rows) {
    NameWalk walk(*database_, NameWalk::Direction::Forward, at_ ? &*at_ : nullptr, begin_);
    std::vector<std::int32_t> ids, sameName;
    std::size_t looked = 0;
    bool hasMore = true, mayMatch = true;
    while (looked < rows && mayMatch && !reachedBefore_ && (hasMore = walk.Next(sameName))) {
        looked += sameName.size();
        at_ = walk.Name();
        begin_ = NameWalk::Begin::Beside;
        CutToRange(walk.Name(), sameName);
        mayMatch = CanMatch(walk.Name()[0]);
        if (mayMatch) ids.insert(ids.end(), sameName.begin(), sameName.end());
        if (ids.size() < ManyIds::kAtOnce) continue;
        TestLines(ids);
        ids.clear();
        if (ended_) return looked;
    }
    TestLines(ids);
    if (!hasMore || reachedBefore_) ended_ = true;
    if (!ended_ && !mayMatch) PassOver(LeftCharacters(walk.Name()[0], 1));
    return std::max<std::size_t>(looked, 1);
}

// Continues after the names of a letter.
void PatternSearch::PassOver(std::string_view letter) {
    auto query = database_->CreateQueryDef("", kNamesFromSql);
    const auto row = query.Set("theFirst", Behind(letter)).OpenRecordset(store::RecordsetType::ForwardOnly);
    if (row->Eof()) {
        ended_ = true;
        return;
    }
    at_ = NameWalk::Units{row->At(0).AsText()};
    begin_ = NameWalk::Begin::With;
}

bool PatternSearch::CanMatch(const std::string& firstUnit) const {
    if (first_.empty() || CompareText(firstUnit, kBehindBlanks) < 0) return true;
    return LetsThrough(first_, LeftCharacters(firstUnit, 1));
}

// Keeps those taxa of one name that are neither before `from` nor at or after `before`.
void PatternSearch::CutToRange(const NameWalk::Units& name, std::vector<std::int32_t>& ids) {
    if (from_) {
        const auto first = std::find(ids.begin(), ids.end(), from_->qb_id);
        if (first != ids.end()) ids.erase(ids.begin(), first);
        from_.reset();
    }
    if (!before_) return;
    const int order = CompareUnits(name, before_->units);
    const auto end = order > 0 ? ids.begin() : std::find(ids.begin(), ids.end(), before_->qb_id);
    reachedBefore_ = order > 0 || end != ids.end();
    ids.erase(end, ids.end());
}

void PatternSearch::TestLines(const std::vector<std::int32_t>& ids) {
    if (ids.empty()) return;
    ManyIds query(*database_, kLinesSql, query_);
    const std::span<const std::int32_t> all(ids);
    for (std::size_t first = 0; first < ids.size(); first += ManyIds::kAtOnce) {
        const auto some = all.subspan(first, std::min(ManyIds::kAtOnce, ids.size() - first));
        std::unordered_map<std::int32_t, std::string> lines;
        for (const auto row = query.Open(some); !row->Eof(); row->MoveNext())
            lines[static_cast<std::int32_t>(row->At(0).AsLong())] = row->At(1).AsText();
        for (const std::int32_t id : some) {
            const auto line = lines.find(id);
            if (line == lines.end() || !LikeText(line->second, pattern_)) continue;
            found_ = id;
            ended_ = true;
            return;
        }
    }
}

}  // namespace quillon::navigation
