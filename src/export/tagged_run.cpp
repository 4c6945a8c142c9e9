#include "export/tagged_run.h"

#include <algorithm>

#include "selection/record_filter.h"

namespace quillon::exporting {

namespace {

// Up to this many ids are looked up one by one; for more the whole table is read.
constexpr std::size_t kFewIds = 10000;

}  // namespace

void ExportTools::CountRow() {
    const int done = ++state.gRecordsDone;
    const bool full = done >= state.gRecordsTotal;
    gauge(full ? 100 : static_cast<double>(done) / state.gRecordsTotal * 100);
}

TaggedRun::TaggedRun(ExportTools& exportTools)
    : tools(exportTools),
      exclusion(tools.state, tools.database, tools.turns),
      taxa(tools.database, tools.state.gRecordFilter, tools.turns),
      filtered(tools.state.gRecordFilter != selection::kNoFilter),
      journal(tools.state.gRecordFilter == selection::kJournalFilter) {}

store::TableRows TaggedRun::RowsAmong(std::string_view column, const IdSet& ids) const {
    if (!filtered || ids.Count() > kFewIds) return {};
    return {store::TableRows::Order::Key, column, ids.Ids()};
}

void TaggedRun::AddField(const RecordLayout& layout, const store::RowStream& rows, std::size_t place) {
    LineWriter& line = tools.line;
    switch (layout.fields[place].form) {
        case FieldForm::Number:
            return line.Number(rows.Long(place));
        case FieldForm::YesNo:
            return line.YesNo(rows.Long(place) != 0);
        case FieldForm::Date:
            return line.Date(rows.Text(place));
        case FieldForm::Stamp:
            return line.Stamp(rows.Text(place));
        case FieldForm::Text:
            return line.Text(rows.Text(place));
    }
}

void TaggedRun::WriteRow(const RecordLayout& layout, const store::RowStream& rows) {
    tools.line.Begin(layout);
    for (std::size_t i = 0; i < layout.fields.size(); ++i) AddField(layout, rows, i);
    EndLine();
}

void TaggedRun::EndLine() {
    if (tools.line.End()) ++tools.state.gExportedCount;
}

}  // namespace quillon::exporting
