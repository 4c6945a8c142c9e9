// Builds the records of an export, field by field, at the end of the file's buffer, and checks each finished
// line once: for characters outside the file's code page, and for values that a reader would split. It counts
// such values and keeps the first of each kind, but replaces and escapes nothing.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/field_values.h"
#include "exchange/tagged_format.h"
#include "export/export_file.h"

namespace quillon::exporting {

using exchange::FieldForm;
using exchange::FieldLayout;
using exchange::RecordLayout;

// A value to report to the user.
struct OddValue {
    std::string record;  // its tag and first field: "[TU]12"
    std::string field;   // the column
    std::string value;
};

// "unit_name1 of [TU]12: Abc"; line breaks are shown as blanks.
std::string Describe(const OddValue& value);

struct OddValues {
    std::int64_t count = 0;
    OddValue first;
};

class LineWriter {
public:
    // Receives each value that CP1252 cannot hold.
    using Listener = std::function<void(const OddValue&)>;

    // `goOn`, which may be empty, is called for each block while the file is converted to UTF-8; false
    // cancels.
    LineWriter(ExportFile& file, Listener onForeign, std::function<bool()> goOn = {})
        : file_(file), out_(file.Buffer()), onForeign_(std::move(onForeign)), goOn_(std::move(goOn)) {}

    // Begins a record. Then write one value for each field, in the order of the layout, and call End.
    void Begin(const RecordLayout& layout);
    void Text(std::string_view value);
    void Number(std::int64_t value);  // 0 is written as an empty field
    void YesNo(bool value) { Text(exchange::WrittenIndicator(value)); }
    void Empty() { Text({}); }
    // A stored date in written form; an empty field when it does not have the length of a date.
    void Date(std::string_view stored);
    void Stamp(std::string_view stored);
    // False when the line was not written because the conversion to UTF-8 was canceled.
    bool End();

    // Writes a line that is not a record, such as the header of a list.
    void Header(std::string_view line);

    const OddValues& Foreign() const { return foreign_; }    // not in CP1252
    const OddValues& Breaking() const { return breaking_; }  // containing a separator or a line break

private:
    struct Look {
        bool plain = true;  // ASCII
        bool breaks = false;
        int separators = 0;
    };
    static Look LookAt(std::string_view line);
    std::string_view Field(std::size_t index, std::string_view line) const;
    OddValue Odd(std::size_t index, std::string_view line) const;
    void Note(OddValues& values, OddValue value);
    void NoteBreaking(std::string_view line);
    void NoteForeign(std::string_view line);
    bool Encode();

    ExportFile& file_;
    std::string& out_;
    Listener onForeign_;
    std::function<bool()> goOn_;
    const RecordLayout* layout_ = nullptr;
    std::size_t start_ = 0;            // of the line, in the buffer
    std::vector<std::size_t> fields_;  // their starts within the line
    OddValues foreign_, breaking_;
};

}  // namespace quillon::exporting
