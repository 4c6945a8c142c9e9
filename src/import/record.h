// Reads one line of a tagged file field by field, for the handler of its tag.
//
// The first field that cannot be read is reported; after that every field is empty and Good() is false, and
// the handler must store nothing. A handler therefore reads all its fields first.
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

// The id of the DataSet if the file has it, otherwise the authority's.
inline std::int32_t KeyOf(std::int32_t qbId, std::int32_t authorityId) {
    return qbId != 0 ? qbId : authorityId;
}

class Record {
public:
    // `layout` is that of the line's tag. Reports a line without fields.
    Record(ImportRun& run, std::string_view line, const exchange::RecordLayout& layout);

    // True when every field could be read. Call it once, after the last field: it notes a line with more
    // fields, or with a number that was not read as it is written.
    bool Good();
    // Each reads the next field, which must have the form in the layout. Text is valid as long as the line.
    std::string_view Text() { return Next(exchange::FieldForm::Text); }
    std::int32_t Number();
    bool Indicator() { return exchange::ReadIndicator(Next(exchange::FieldForm::YesNo)); }
    std::optional<bool> IndicatorOrNull();
    // A date or a time stamp in stored form; empty for an empty field.
    std::string Date();
    // True when the line ends after the last field read.
    bool AtEnd() const { return cutter_.AtEnd(); }
    bool HasNext() const { return cutter_.HasNext(); }

    const ImportRun& Run() const { return run_; }
    const exchange::RecordLayout& Layout() const { return layout_; }
    std::string_view Letters() const { return layout_.Letters(); }
    // Reports `what` with " in the following <XX> data line of import file!" and the line. The default
    // letters are the tag's.
    void Refuse(std::string_view what, std::string_view letters = {});
    // Reports a complete sentence and the line.
    void Report(std::string sentence) { run_.Report(std::move(sentence), line_); }

    // The taxon's row by `qb_id`, else by `tsn`; without either, reports that and returns nothing.
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
    bool oddNumber_ = false;
};

}  // namespace quillon::importing
