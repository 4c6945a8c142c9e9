// One line of a tagged file, read field by field by the handler of its tag.
//
// The first field that cannot be read logs its finding; from then on every field is empty, Good() is false,
// and the handler stores and marks nothing. A handler therefore reads all its fields first.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "exchange/field_cutter.h"
#include "exchange/field_values.h"
#include "exchange/tagged_format.h"
#include "import/import_run.h"

namespace quillon::importing {

// The id of the DataSet when the file gives it, otherwise the authority's.
inline std::int32_t KeyOf(std::int32_t qbId, std::int32_t authorityId) {
    return qbId != 0 ? qbId : authorityId;
}

class Record {
public:
    // `layout` is that of the line's tag. Reports a line without a field.
    Record(ImportRun& run, std::string_view line, const exchange::RecordLayout& layout);

    // True when every field could be read. Asked once, after the last field: a line with more fields is
    // noted.
    bool Good();
    // Each reads the next field, which must have the form in the layout. Text is valid as long as the line.
    std::string_view Text() { return Next(exchange::FieldForm::Text); }
    std::int32_t Number() { return exchange::ReadNumber(Next(exchange::FieldForm::Number)); }
    bool Indicator() { return exchange::ReadIndicator(Next(exchange::FieldForm::YesNo)); }
    std::optional<bool> IndicatorOrNull();
    // A date or a time stamp as it is stored; empty for an empty field.
    std::string Date();
    // Nothing stands after the field read last.
    bool AtEnd() const { return cutter_.AtEnd(); }
    bool HasNext() const { return cutter_.HasNext(); }

    const ImportRun& Run() const { return run_; }
    const exchange::RecordLayout& Layout() const { return layout_; }
    std::string_view Letters() const { return layout_.Letters(); }
    // Logs `what` with " in the following <XX> data line of import file!" and the line. The letters are the
    // tag's unless given.
    void Refuse(std::string_view what, std::string_view letters = {});
    // Logs a whole sentence, and the line.
    void Report(std::string sentence) { run_.Report(std::move(sentence), line_); }

    // The taxon's row by `qb_id`, else `tsn`; with neither, nothing, and that is logged.
    std::optional<RowPlace> Taxon(std::int32_t qb_id, std::int32_t tsn, std::string_view letters = {});

private:
    exchange::FieldForm NextForm() const { return layout_.fields[place_].form; }
    std::string_view Next(exchange::FieldForm form);

    ImportRun& run_;
    std::string_view line_;
    const exchange::RecordLayout& layout_;
    std::size_t place_ = 0;  // of the next field
    exchange::FieldCutter cutter_;
    bool good_ = true;
};

}  // namespace quillon::importing
