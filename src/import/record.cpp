#include "import/record.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "core/text.h"

namespace quillon::importing {

namespace {

// Characters `first` (from 1) onward, `count` of them.
std::string_view Part(std::string_view text, std::size_t first, std::size_t count) {
    text.remove_prefix(LeftCharacters(text, first - 1).size());
    return LeftCharacters(text, count);
}

void AppendParts(std::string& out, std::string_view text,
                 std::initializer_list<std::pair<std::size_t, std::size_t>> parts) {
    for (const auto& [first, count] : parts) out += Part(text, first, count);
}

}  // namespace

std::int32_t ReadNumber(std::string_view text) {
    if (text.empty()) return 0;
    if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
    const char* const end = text.data() + text.size();
    std::int32_t number = 0;
    const auto whole = std::from_chars(text.data(), end, number);
    if (whole.ec == std::errc() && whole.ptr == end) return number;
    double real = 0;
    const auto read = std::from_chars(text.data(), end, real);
    if (read.ec != std::errc() || read.ptr != end) return 0;
    real = std::nearbyint(real);
    // Also false for what is not a number at all, as "nan" is read.
    const bool fits =
        real >= std::numeric_limits<std::int32_t>::min() && real <= std::numeric_limits<std::int32_t>::max();
    return fits ? static_cast<std::int32_t>(real) : 0;
}

bool ReadIndicator(std::string_view text) {
    if (text.empty() || text.size() > 3) return false;
    const std::string upper = UpperCase(text);
    return upper == "YES" || upper == "Y";
}

std::optional<std::string> DateFromImport(std::string_view text, ImportDate kind) {
    std::string stored;
    if (CharacterCount(text) != (kind == ImportDate::Day ? 10U : 19U)) return std::nullopt;
    if (kind == ImportDate::Day)
        AppendParts(stored, text, {{4, 3}, {1, 3}, {7, 4}});
    else
        AppendParts(stored, text, {{9, 2}, {6, 2}, {1, 4}, {12, 2}, {15, 2}, {18, 2}});
    return stored;
}

Record::Record(ImportRun& run, std::string_view line)
    : run_(run), line_(line), cutter_(line, TagOfLine(line).size()) {
    const std::string_view tag = TagOfLine(line);
    letters_ = tag.substr(1, tag.size() - 2);
    if (cutter_.HasLaterDelimiter()) return;
    good_ = false;
    Refuse("Unexpected end-of-line");
}

bool Record::Good() {
    if (good_ && cutter_.Rest().find_first_not_of(" |") != std::string_view::npos) run_.NoteMoreFields();
    return good_;
}

std::string_view Record::Text() {
    if (!good_) return {};
    if (cutter_.NextField()) return cutter_.Field();
    good_ = false;
    Report("Unexpected end-of-line in the following data line of import file!");
    return {};
}

std::string Record::Date(ImportDate kind) {
    const std::string_view text = Text();
    if (text.empty()) return {};
    if (auto stored = DateFromImport(text, kind)) return *stored;
    good_ = false;
    std::string sentence = "A time value <";
    sentence += text;
    sentence += "> is not the correct format <";
    sentence += kind == ImportDate::Day ? "mm/dd/yyyy" : "yyyy-mm-dd hh:mm:ss";
    sentence += "> in the following data line of import file!";
    Report(std::move(sentence));
    return {};
}

void Record::Refuse(std::string_view what, std::string_view letters) {
    Report(std::string(what) + " in the following <" + std::string(letters.empty() ? letters_ : letters) +
           "> data line of import file!");
}

std::optional<RowPlace> Record::Taxon(std::int32_t qb_id, std::int32_t tsn, std::string_view letters) {
    const std::int32_t key = KeyOf(qb_id, tsn);
    if (key != 0) return run_.SeeTaxon(key);
    Refuse("Neither qb_id nor tsn is present", letters);
    return std::nullopt;
}

}  // namespace quillon::importing
