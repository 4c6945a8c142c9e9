#include "editor/name_source.h"

#include <fmt/format.h>

#include <algorithm>
#include <functional>
#include <utility>

#include "core/attempt.h"
#include "core/text.h"
#include "core/vocabulary.h"
#include "store/engine.h"
#include "store/row_stream.h"
#include "store/write_count.h"

namespace quillon::editor {

using navigation::NameWalk;
using store::RecordsetType;

namespace {

bool BeginsWith(std::string_view text, std::string_view beginning) {
    return EqualText(LeftCharacters(text, CharacterCount(beginning)), beginning);
}

std::size_t PlaceOf(const Choices& list, const Choice& choice) {
    return static_cast<std::size_t>(std::find(list.begin(), list.end(), choice) - list.begin());
}

Choices Slice(const Choices& list, std::size_t first, std::size_t count) {
    first = std::min(first, list.size());
    const auto begin = list.begin() + static_cast<std::ptrdiff_t>(first);
    return {begin, begin + static_cast<std::ptrdiff_t>(std::min(count, list.size() - first))};
}

std::size_t FirstFrom(const Choices& list, std::string_view text) {
    const auto begins = std::find_if(list.begin(), list.end(),
                                     [&](const Choice& choice) { return BeginsWith(choice.text, text); });
    if (begins != list.end()) return static_cast<std::size_t>(begins - list.begin());
    const auto follows = std::find_if(
        list.begin(), list.end(), [&](const Choice& choice) { return CompareText(choice.text, text) >= 0; });
    return static_cast<std::size_t>(follows - list.begin());
}

}  // namespace

Choices AuthorSource::From(std::string_view text, std::size_t count) {
    return text.empty() ? Read("Is Not Null", {}, false, count) : Read(">=", text, false, count);
}

Choices AuthorSource::After(const Choice& choice, std::size_t count) {
    return Read(">", choice.text, false, count);
}

Choices AuthorSource::Before(const Choice& choice, std::size_t count) {
    Choices choices = Read("<", choice.text, true, count);
    std::reverse(choices.begin(), choices.end());
    return choices;
}

// Of equal texts the one stored first stands for all.
Choices AuthorSource::Read(std::string_view where, std::string_view text, bool descending,
                           std::size_t count) {
    Choices choices;
    if (!state_.gDatabase) return choices;
    const std::string operand = text.empty() ? "" : fmt::format(" \"{}\"", QuoteDoubleQuotes(text));
    Attempt(prompter_, [&] {
        store::RowStream rows(
            *state_.gDatabase,
            fmt::format("SELECT taxon_author FROM qb_taxon_authors_lookup WHERE taxon_author {}{} ORDER BY "
                        "taxon_author{}",
                        where, operand, descending ? " DESC" : ""));
        while (rows.Next()) {
            ++rowsRead_;
            const std::string_view author = rows.Text(0);
            const bool isSame = !choices.empty() && EqualText(choices.back().text, author);
            if (!isSame && choices.size() == count) break;
            if (!isSame) choices.push_back({std::string(author), 0});
            if (isSame && descending) choices.back().text = author;
        }
    });
    return choices;
}

NameSource::NameSource(ApplicationState& state, Prompter& prompter, NamesOfRank names, std::size_t few)
    : state_(state), prompter_(prompter), names_(std::move(names)), few_(few) {}

Choices NameSource::Reported(const std::function<Choices()>& read) {
    Choices choices;
    if (state_.gDatabase) Attempt(prompter_, [&] { choices = read(); });
    const int leftOut = leftOut_ ? leftOut_() : 0;
    if (leftOut != 0)
        std::erase_if(choices, [leftOut](const Choice& choice) { return choice.itemData == leftOut; });
    return choices;
}

Choices NameSource::From(std::string_view text, std::size_t count) {
    return Reported([&] {
        const Choices* list = Few();
        if (list != nullptr) return Slice(*list, text.empty() ? 0 : FirstFrom(*list, text), count);
        return count == kAll && text.empty() ? ReadAll() : WalkFrom(text, count);
    });
}

Choices NameSource::After(const Choice& choice, std::size_t count) {
    return Reported([&] {
        const Choices* list = Few();
        return list != nullptr ? Slice(*list, PlaceOf(*list, choice) + 1, count)
                               : WalkBeside(choice, Direction::Forward, count);
    });
}

Choices NameSource::Before(const Choice& choice, std::size_t count) {
    return Reported([&] {
        const Choices* list = Few();
        if (list == nullptr) return WalkBeside(choice, Direction::Backward, count);
        const std::size_t end = PlaceOf(*list, choice);
        return Slice(*list, end - std::min(end, count), std::min(end, count));
    });
}

Choices NameSource::ReadAll() {
    Choices choices;
    const auto rows = state_.gDatabase->OpenRecordset(names_.all, RecordsetType::ForwardOnly);
    const bool hasId = rows->ColumnCount() > 1;
    for (; !rows->Eof(); rows->MoveNext()) {
        ++rowsRead_;
        const Value& text = rows->At(names_.textColumn);
        if (!text.IsNull()) choices.push_back({text.AsText(), hasId ? rows->At(1).AsLong() : 0});
    }
    return choices;
}

const Choices* NameSource::Few() {
    const std::int64_t writeCount = store::WriteCount(*state_.gDatabase);
    if (!isDecided_ || writeCount_ != writeCount || database_.lock() != state_.gDatabase) {
        shortList_.reset();
        if (IsFew()) shortList_ = ReadAll();
        isDecided_ = true;
        writeCount_ = writeCount;
        database_ = state_.gDatabase;
    }
    return shortList_ ? &*shortList_ : nullptr;
}

// Reads the index on the rank, as far as needed.
bool NameSource::IsFew() {
    store::RowStream rows(
        *state_.gDatabase,
        fmt::format("SELECT qb_id FROM qb_taxonomic_units WHERE rank_id = {}", names_.rank_id));
    for (std::size_t i = 0; i <= few_; ++i) {
        if (!rows.Next()) return true;
        ++rowsRead_;
    }
    return false;
}

// The words of the text that are units of a name: no mark, no indicator, no author.
NameSource::Units NameSource::UnitsIn(std::string_view text) const {
    Units units;
    std::size_t unit = 0;
    while (unit < names_.units && !(text = Trim(text)).empty()) {
        const std::string_view word = text.substr(0, text.find(' '));
        text.remove_prefix(word.size());
        if (word != "X" && GetRankFromIndicator(LowerCase(word)).empty()) units[unit++] = word;
    }
    return units;
}

Choices NameSource::WalkFrom(std::string_view text, std::size_t count) {
    const Units units = UnitsIn(text);
    const bool isEmpty = units[0].empty();
    Choices choices = Walk(Direction::Forward, isEmpty ? nullptr : &units, nullptr, count);
    const auto begins = std::find_if(choices.begin(), choices.end(),
                                     [&](const Choice& choice) { return BeginsWith(choice.text, text); });
    if (begins != choices.end()) choices.erase(choices.begin(), begins);
    return choices;
}

Choices NameSource::WalkBeside(const Choice& choice, Direction direction, std::size_t count) {
    Units units;
    units[0] = choice.text;
    if (choice.itemData != 0) {
        const auto key = navigation::KeyOf(*state_.gDatabase, static_cast<int>(choice.itemData));
        if (!key) return {};
        units = key->units;
    }
    Choices choices = Walk(direction, &units, &choice, count);
    if (direction == Direction::Backward) std::reverse(choices.begin(), choices.end());
    return choices;
}

// The names from `from` on; those behind `beside` when it is given, which has the name `from`.
Choices NameSource::Walk(Direction direction, const Units* from, const Choice* beside, std::size_t count) {
    Choices choices;
    NameWalk walk(*state_.gDatabase, direction, from, NameWalk::Begin::With);
    auto one = state_.gDatabase->CreateQueryDef("", names_.one);
    std::vector<std::int32_t> ids;
    while (choices.size() < count && walk.Next(ids)) {
        ++rowsRead_;
        const std::string& genus = walk.Name()[0];
        if (names_.isDistinct) {
            if (beside != nullptr && EqualText(genus, beside->text)) continue;
            if (!choices.empty() && EqualText(genus, choices.back().text)) continue;
        } else if (beside != nullptr) {
            const auto place = std::find(ids.begin(), ids.end(), static_cast<std::int32_t>(beside->itemData));
            if (place != ids.end()) ids.erase(ids.begin(), place + 1);
            beside = nullptr;
        }
        for (const std::int32_t qb_id : ids) {
            if (choices.size() == count) break;
            const auto row = one.Set("theId", qb_id).OpenRecordset(RecordsetType::ForwardOnly);
            if (row->Eof() || row->At(names_.textColumn).IsNull()) continue;
            choices.push_back({row->At(names_.textColumn).AsText(), names_.isDistinct ? 0 : qb_id});
            if (names_.isDistinct) break;
        }
    }
    return choices;
}

}  // namespace quillon::editor
