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
        importing::TaggedImport import(into.state, into.engine, into.prompter, pump, [](double) {});
        const importing::ImportResult result = import.Run(path, into.dir.path());
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
    FixedClock clock;
};

// The ids are those that the import gives: taxa by their line, the seed root being the first; authors and
// vernaculars by their lines; documents as they are first named.
std::string Changes() {
    return Lines(
        {"[TU]2|900001||Animalia||||||||valid||KSP standards met|unknown|unknown||2023-03-01 "
         "08:00:00|900001|2||||5|10|No|",
         "[TU]124|900123||Lipotes||vexillifer||||||valid||Minimum taxonomic/nomenclature "
         "review|complete|2022||"
         "2023-04-13 13:14:26|900054|2|920029|29||5|220|No|",
         "[TA]29|920029|Miller, 1918|5|",
         "[VR]124|251|960251|Baiji|900123|English|Yes|",
         "[VR]124|252|960252|Yangtze river dolphin|900123|English|No|",
         "[VR]124|253|960253|Dauphin de Chine|900123|French|Yes|",
         "[VR]124|254|960254|Baiji|900123|Spanish|Yes|",
         "[VR]124|255|960255|Chinesischer Flussdelfin|900123|German|Yes|",
         "[VR]124|256|960256|Baiji|900123|Portuguese|Yes|",
         "[VR]124|257|960257|Yosuko-kawa-iruka|900123|Japanese|Yes|",
         "[GD]124|Southern Asia|900123|",
         "[RF]124|PUB|9|900123|PUB|930105|No|No|||",
         "[RF]124|PUB|28|900123|PUB|930082|Yes|No|||",
         "[PB]PUB|9|930105|Rice, D.W.|Marine mammals of the world: systematics and distribution|Society for "
         "Marine Mammalogy, "
         "Special Publication, 4|01/01/1998|01/01/1998|Society for Marine "
         "Mammalogy|Lawrence|1-891276-03-4||1-231||",
         "[PB]PUB|28|930082|Miller, G.S.|A new river-dolphin from China|Smithsonian Miscellaneous "
         "Collections, "
         "68|01/01/1918|"
         "01/01/1918||Washington|||1-12||",
         "[PB]PUB|114|930100|Jefferson, T.A., Leatherwood, S. & Webber, M.A.|FAO species identification "
         "guide. "
         "Marine mammals of "
         "the world|FAO species identification guide. Marine mammals of the world|01/01/1993|01/01/1993|Food "
         "and "
         "Agriculture "
         "Organization|Rome|92-5-103292-0||1-320|Gives an English, a French and a Spanish name for each "
         "species.|",
         "[PB]PUB|117|930113|Jefferson, T.A., Webber, M.A. & Pitman, R.L.|Marine mammals of the world: a "
         "comprehensive guide to "
         "their identification|Marine mammals of the world: a comprehensive guide to their "
         "identification|01/01/2008|01/01/2008|"
         "Academic Press|Amsterdam|||1-573||",
         "[EX]EXP|3|931003|In\xEAs Falc\xE3o Brand\xE3o|Invented person. Stands for an adviser on Portuguese "
         "and "
         "Japanese names.|",
         "[OS]SRC|2|932002|database|Sample catalogue of whale and dolphin names|1.2|10/02/2023|Invented "
         "source, "
         "for the sake of "
         "the sample.|",
         "[VL]124|256|960256|EXP|3|900123|EXP|931003|",
         "[VL]124|257|960257|EXP|3|900123|EXP|931003|",
         "[VL]124|253|960253|PUB|114|900123|PUB|930100|",
         "[VL]124|254|960254|PUB|114|900123|PUB|930100|",
         "[VL]124|251|960251|PUB|117|900123|PUB|930113|",
         "[VL]124|255|960255|SRC|2|900123|SRC|932002|",
         "[CM-]970004|",
         "[CL-]900123|970004|"});
}

// The tables of the DataSet that took the changes; those not named are as a new DataSet has them, or empty.
const std::vector<std::pair<std::string, std::string>> kTables = {
    {"qb_taxonomic_units",
     "2\t900001\t\\N\tAnimalia\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\tvalid\t\\N\tKSP standards "
     "met\tunknown\tunknown\t\\N\t"
     "2023-03-01 08:00:00\t900001\t2\t\\N\t\\N\t5\t10\tFalse\n"
     "3\t900123\t\\N\tLipotes\t\\N\tvexillifer\t\\N\t\\N\t\\N\t\\N\t\\N\tvalid\t\\N\tMinimum "
     "taxonomic/nomenclature review\t"
     "complete\t2022\t\\N\t2023-04-13 13:14:26\t900054\t2\t1\t\\N\t5\t220\tFalse\n"},
    {"qb_taxon_authors_lookup", "1\t920029\tMiller, 1918\t5\n"},
    {"qb_vernaculars",
     "3\t1\t960251\tBaiji\t900123\tEnglish\tTrue\t4261696A69\n"
     "3\t2\t960252\tYangtze river "
     "dolphin\t900123\tEnglish\tFalse\t59616E67747A6520726976657220646F6C7068696E\n"
     "3\t3\t960253\tDauphin de Chine\t900123\tFrench\tTrue\t4461757068696E206465204368696E65\n"
     "3\t4\t960254\tBaiji\t900123\tSpanish\tTrue\t4261696A69\n"
     "3\t5\t960255\tChinesischer "
     "Flussdelfin\t900123\tGerman\tTrue\t4368696E657369736368657220466C75737364656C66696E\n"
     "3\t6\t960256\tBaiji\t900123\tPortuguese\tTrue\t4261696A69\n"
     "3\t7\t960257\tYosuko-kawa-iruka\t900123\tJapanese\tTrue\t596F73756B6F2D6B6177612D6972756B61\n"},
    {"qb_geographic_division", "3\tSouthern Asia\t900123\n"},
    {"qb_reference_links",
     "3\tPUB\t1\t900123\t930105\tFalse\tFalse\t\\N\t\\N\n"
     "3\tPUB\t2\t900123\t930082\tTrue\tFalse\t\\N\t\\N\n"},
    {"qb_publications",
     "PUB\t1\t930105\tRice, D.W.\tMarine mammals of the world: systematics and distribution\tSociety for "
     "Marine Mammalogy, "
     "Special Publication, 4\t01/01/1998\t01/01/1998\tSociety for Marine "
     "Mammalogy\tLawrence\t1-891276-03-4\t\\N\t1-231\t\\N\n"
     "PUB\t2\t930082\tMiller, G.S.\tA new river-dolphin from China\tSmithsonian Miscellaneous Collections, "
     "68\t01/01/1918\t"
     "01/01/1918\t\\N\tWashington\t\\N\t\\N\t1-12\t\\N\n"
     "PUB\t3\t930100\tJefferson, T.A., Leatherwood, S. & Webber, M.A.\tFAO species identification guide. "
     "Marine mammals of the "
     "world\tFAO species identification guide. Marine mammals of the world\t01/01/1993\t01/01/1993\tFood and "
     "Agriculture "
     "Organization\tRome\t92-5-103292-0\t\\N\t1-320\tGives an English, a French and a Spanish name for each "
     "species.\n"
     "PUB\t4\t930113\tJefferson, T.A., Webber, M.A. & Pitman, R.L.\tMarine mammals of the world: a "
     "comprehensive guide to "
     "their identification\tMarine mammals of the world: a comprehensive guide to their "
     "identification\t01/01/2008\t"
     "01/01/2008\tAcademic Press\tAmsterdam\t\\N\t\\N\t1-573\t\\N\n"},
    {"qb_experts",
     "EXP\t1\t931003\tInês Falcão Brandão\tInvented person. Stands for an adviser on Portuguese and Japanese "
     "names.\n"},
    {"qb_other_sources",
     "SRC\t1\t932002\tdatabase\tSample catalogue of whale and dolphin names\t1.2\t02/10/2023\tInvented "
     "source, for the sake of "
     "the sample.\n"},
    {"qb_vern_ref_links",
     "3\t6\t960256\tEXP\t1\t900123\t931003\tBaiji\n"
     "3\t7\t960257\tEXP\t1\t900123\t931003\tYosuko-kawa-iruka\n"
     "3\t3\t960253\tPUB\t3\t900123\t930100\tDauphin de Chine\n"
     "3\t4\t960254\tPUB\t3\t900123\t930100\tBaiji\n"
     "3\t1\t960251\tPUB\t4\t900123\t930113\tBaiji\n"
     "3\t5\t960255\tSRC\t1\t900123\t932002\tChinesischer Flussdelfin\n"},
    {"db_tombstone", "comments\t970004\t\\N\t\\N\t\\N\ntu_comments_link\t900123\t970004\t\\N\t\\N\n"},
};
const std::vector<std::string> kTablesOfANewDataSet = {"change_operations_lookup", "db_control", "kingdoms",
                                                       "taxonomic_unit_types"};

TEST_F(Road, OfAChange) {
    EditTaxon();
    EXPECT_EQ(Validated(), "");
    EXPECT_EQ(Exported(), Changes());
    EXPECT_TRUE(set.prompter.messages.empty());

    other.Make("Animalia", "other.mdb");
    std::map<std::string, std::string> expected;
    for (const store::TableDef& table : other.db().TableDefs()) expected[table.name];
    for (const std::string& table : kTablesOfANewDataSet)
        expected[table] = other.Dump("SELECT * FROM " + table);
    for (const auto& [table, rows] : kTables) expected[table] = rows;
    Import(other, set.dir.File("changes.qln"));
    for (const auto& [table, rows] : expected) EXPECT_EQ(other.Dump("SELECT * FROM " + table), rows) << table;
}

}  // namespace
}  // namespace quillon::exporting
