// One line of a tagged file, read field by field by the handler of its tag.
//
// The first field that cannot be read logs its finding; from then on every field is empty, Good() is false,
// and the handler stores and marks nothing. A handler therefore reads all its fields first.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "import/field_cutter.h"
#include "import/import_run.h"

namespace quillon::importing {

// A whole number, or a number with a fraction rounded to the nearest; 0 for the empty text, for what is no
// number, and for what does not fit 32 bits.
std::int32_t ReadNumber(std::string_view text);
// "Yes" and "Y" in any case.
bool ReadIndicator(std::string_view text);

enum class ImportDate {
    Day,    // mm/dd/yyyy becomes dd/mm/yyyy
    Stamp,  // yyyy-mm-dd hh:nn:ss becomes ddmmyyyyhhnnss
};
// Only the length is tested; nothing for a text of any other length.
std::optional<std::string> DateFromImport(std::string_view text, ImportDate kind);

// The id of the DataSet when the file gives it, otherwise the authority's.
inline std::int32_t KeyOf(std::int32_t qbId, std::int32_t authorityId) {
    return qbId != 0 ? qbId : authorityId;
}

class Record {
public:
    // Makes the end-of-line test of the tag.
    Record(ImportRun& run, std::string_view line);

    // True when every field could be read. Asked once, after the last field: a line with more fields is
    // noted.
    bool Good();
    // Each reads the next field. Text is valid as long as the line.
    std::string_view Text();
    std::int32_t Number() { return ReadNumber(Text()); }
    bool Indicator() { return ReadIndicator(Text()); }
    // As it is stored; empty for an empty field.
    std::string Date(ImportDate kind);
    // Nothing stands after the field read last.
    bool AtEnd() const { return cutter_.AtEnd(); }
    bool HasNext() const { return cutter_.HasNext(); }

    const ImportRun& Run() const { return run_; }
    std::string_view Letters() const { return letters_; }
    // Logs `what` with " in the following <XX> data line of import file!" and the line. The letters are the
    // tag's unless given.
    void Refuse(std::string_view what, std::string_view letters = {});
    // Logs a whole sentence, and the line.
    void Report(std::string sentence) { run_.Report(std::move(sentence), line_); }

    // The taxon's row by `qb_id`, else `tsn`; with neither, nothing, and that is logged.
    std::optional<RowPlace> Taxon(std::int32_t qb_id, std::int32_t tsn, std::string_view letters = {});

private:
    ImportRun& run_;
    std::string_view line_;
    std::string_view letters_;
    FieldCutter cutter_;
    bool good_ = true;
};

}  // namespace quillon::importing
