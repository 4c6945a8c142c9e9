#include "import/record.h"

#include <cassert>
#include <utility>

namespace quillon::importing {

Record::Record(ImportRun& run, std::string_view line, const exchange::RecordLayout& layout)
    : run_(run), line_(line), layout_(layout), cutter_(line, layout.tag.size()) {
    if (cutter_.HasLaterDelimiter()) return;
    good_ = false;
    Refuse("Unexpected end-of-line");
}

bool Record::Good() {
    if (!good_) return false;
    if (cutter_.Rest().find_first_not_of(" |") != std::string_view::npos) run_.NoteMoreFields();
    if (oddNumber_) run_.NoteOddNumber();
    return true;
}

std::int32_t Record::Number() {
    const exchange::NumberField number = exchange::ReadNumberField(Next(exchange::FieldForm::Number));
    oddNumber_ = oddNumber_ || !number.exact;
    return number.value;
}

std::string_view Record::Next([[maybe_unused]] exchange::FieldForm form) {
    if (!good_) return {};
    assert(place_ < layout_.fields.size() && NextForm() == form);
    ++place_;
    if (cutter_.NextField()) return cutter_.Field();
    good_ = false;
    Report("Unexpected end-of-line in the following data line of import file!");
    return {};
}

std::optional<bool> Record::IndicatorOrNull() {
    const std::string_view text = Next(exchange::FieldForm::YesNo);
    if (text.empty()) return std::nullopt;
    return exchange::ReadIndicator(text);
}

std::string Record::Date() {
    if (!good_) return {};
    const exchange::FieldForm form = NextForm();
    const std::string_view text = Next(form);
    if (text.empty()) return {};
    if (auto stored = exchange::ReadDate(text, form)) return *stored;
    good_ = false;
    std::string sentence = "A time value <";
    sentence += text;
    sentence += "> is not the correct format <";
    sentence += exchange::PatternOf(form);
    sentence += "> in the following data line of import file!";
    Report(std::move(sentence));
    return {};
}

void Record::Refuse(std::string_view what, std::string_view letters) {
    Report(std::string(what) + " in the following <" + std::string(letters.empty() ? Letters() : letters) +
           "> data line of import file!");
}

std::optional<RowPlace> Record::Taxon(std::int32_t qb_id, std::int32_t tsn, std::string_view letters) {
    const std::int32_t key = KeyOf(qb_id, tsn);
    if (key != 0) return run_.SeeTaxon(key);
    Refuse("Neither qb_id nor tsn is present", letters);
    return std::nullopt;
}

}  // namespace quillon::importing
