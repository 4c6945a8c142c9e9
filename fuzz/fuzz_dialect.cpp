// Any text as a statement of the dialect, or after a question mark as the criteria of a search: it runs, or
// it is refused with a StoreError; what it changed is rolled back.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz_data_set.h"

namespace {

constexpr int kMostSteps = 200'000;
constexpr int kMostRows = 200;

void Walk(quillon::store::Recordset& rows) {
    for (int row = 0; !rows.Eof() && row < kMostRows; ++row, rows.MoveNext())
        for (std::size_t i = 0; i < rows.ColumnCount(); ++i) rows.At(i).AsText();
}

void RunStatement(quillon::fuzz::FuzzDataSet& set, std::string_view text) {
    quillon::store::Database& database = set.Db();
    try {
        quillon::store::QueryDef query = database.CreateQueryDef("", text);
        for (const std::string& parameter : query.Parameters()) query.Set(parameter, 1);
        if (query.IsSelect()) return Walk(*query.OpenRecordset());
        query.Execute();
    } catch (const quillon::store::StoreError&) {
        // Also what Execute alone takes: a change of the schema.
        database.Execute(text);
    }
}

void Search(quillon::fuzz::FuzzDataSet& set, std::string_view criteria) {
    const auto rows = set.Db().CreateDynaset("SELECT * FROM qb_taxonomic_units;");
    rows->FindFirst(criteria);
    rows->FindNext(criteria);
}

void Undo(quillon::store::Engine& engine) {
    try {
        engine.Rollback();
    } catch (const quillon::store::StoreError&) {
        // It was lost already.
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static quillon::fuzz::FuzzDataSet set;
    static const bool filled = (set.Reset(true), true);
    const std::string text(reinterpret_cast<const char*>(data), filled ? size : 0);
    set.LimitSteps(kMostSteps);
    set.engine.BeginTrans();
    try {
        if (!text.empty() && text[0] == '?')
            Search(set, std::string_view(text).substr(1));
        else
            RunStatement(set, text);
    } catch (const quillon::store::StoreError&) {
        // Refused.
    }
    Undo(set.engine);
    return 0;
}
