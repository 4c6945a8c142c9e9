// The whole road of a change: a sample is imported, one taxon is edited as the editor does it, the change is
// validated and exported for the online system, and the file is imported into another DataSet.

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "export_fixture.h"
#include "import/tagged_import.h"
#include "records/journal.h"
#include "records/links.h"
#include "store/unit.h"
#include "testkit/golden.h"
#include "validation/validate_data_set.h"

namespace quillon::exporting {
namespace {

class Road : public ::testing::Test {
protected:
    void SetUp() override {
        set.Make("Animalia");
        Import(set, QUILLON_SOURCE_DIR "/samples/cetacea.qln");
    }

    void Import(testkit::DataSetFixture& into, const std::string& path) {
        importing::TaggedImport tagged(into.state, into.engine, into.prompter, pump, [](double) {});
        const importing::ImportResult result = tagged.Run(path, into.dir.path());
        EXPECT_TRUE(result.completed);
        EXPECT_FALSE(result.errors) << testkit::ReadFile(result.logPath);
    }

    // Lipotes vexillifer gets another currency and loses its comment.
    void EditTaxon() {
        const auto row = set.db().CreateDynaset("SELECT * FROM qb_taxonomic_units WHERE tsn = 900123;");
        const int qb_id = static_cast<int>(row->Get("qb_id").AsLong());
        {
            store::Unit unit(set.engine);
            row->Edit();
            row->Set("currency_rating", "2022");
            row->Update();
            records::AddToJournal(set.db(), qb_id);
            unit.Commit();
        }
        const auto comment =
            set.db().CreateSnapshot("SELECT qb_comment_id FROM qb_comments WHERE comment_id = 970004;");
        records::DeleteCommentLink({set.engine, set.db(), set.prompter}, qb_id,
                                   static_cast<int>(comment->At(0).AsLong()));
    }

    std::string Validated() {
        set.state.gRecordFilter = "journal";
        set.state.gValidatingForExport = false;
        const auto result = validation::ValidateDataSet(
            set.state, set.engine, {set.prompter, pump, clock, [](double) {}, set.dir.path(), [] {}});
        EXPECT_TRUE(result.ran);
        return testkit::ReadFile(result.logPath);
    }

    std::string Exported() {
        set.state.gRecordFilter = "journal";
        set.state.gExportPath = set.state.gDataSetPath;
        set.state.gExportFile = set.dir.File("changes.qln");
        ExportJob job(set.state, set.engine, {set.prompter, pump, clock, [](double) {}, set.dir.path()});
        ExportOrder order;
        order.kind = ExportKind::Online;
        EXPECT_EQ(job.Run(order).outcome, ExportOutcome::Done);
        return testkit::ReadFile(set.state.gExportFile);
    }

    testkit::DataSetFixture set, other;
    testkit::NullPump pump;
    testkit::FixedClock clock;
};

// The rows of a DataSet, by table. Tables that every new DataSet fills alike are left out, and so are empty
// ones.
std::string Tables(testkit::DataSetFixture& from) {
    std::map<std::string, std::string> tables;
    for (const store::TableDef& table : from.db().TableDefs())
        tables[table.name] = from.Dump("SELECT * FROM " + table.name);
    for (const char* seeded : {"change_operations_lookup", "db_control", "kingdoms", "taxonomic_unit_types"})
        tables.erase(seeded);
    std::string text;
    for (const auto& [table, rows] : tables)
        if (!rows.empty()) text.append("== ").append(table).append("\n").append(rows);
    return text;
}

// The ids of the exported file are those that the import gave: taxa by their line, the seed root being the
// first; authors and vernaculars by their lines; documents as they are first named.
TEST_F(Road, OfAChange) {
    EditTaxon();
    EXPECT_EQ(Validated(), "");
    EXPECT_EQ(Exported(), testkit::Golden("export/RoadOfAChange.qln"));
    EXPECT_EQ(set.prompter.messages, std::vector<std::string>{});

    other.Make("Animalia", "other.mdb");
    Import(other, set.dir.File("changes.qln"));
    EXPECT_EQ(Tables(other), testkit::Golden("export/RoadOfAChange.tables.txt"));
}

}  // namespace
}  // namespace quillon::exporting
