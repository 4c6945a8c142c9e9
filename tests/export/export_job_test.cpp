// The job around the writing: the encoding, the target, the Cancel, the gauge, and the validation before it.

#include "export/export_job.h"

#include <algorithm>
#include <filesystem>
#include <new>

#include "export_fixture.h"
#include "testkit/limits.h"

namespace quillon::exporting {
namespace {

using Texts = std::vector<std::string>;

class Job : public ExportTest {};

ExportOrder Online() {
    ExportOrder order;
    order.kind = ExportKind::Online;
    return order;
}

TEST_F(Job, WritesTheFileAndCounts) {
    AddTaxon(2, "Alpha");
    EXPECT_EQ(RunJob().outcome, ExportOutcome::Done);
    EXPECT_EQ(OutFile(), Lines({kRootLine, TaxonLine(2, "Alpha", "100", 1)}));
    EXPECT_EQ(EndText(set.state, ExportKind::DataSet), "A Total of 2 Records were Exported.");
    EXPECT_TRUE(set.prompter.messages.empty());
    EXPECT_FALSE(set.prompter.waitCursor);
}

TEST_F(Job, ForeignTextIsAskedAboutBeforeAnythingIsWritten) {
    AddTaxon(2, "Жук");
    AddTaxon(3, "Ωmega");
    testkit::WriteFile(set.state.gExportFile, "old");
    set.prompter.yesNo = {false};
    EXPECT_EQ(RunJob().outcome, ExportOutcome::Refused);
    EXPECT_EQ(OutFile(), "old");
    EXPECT_EQ(
        set.prompter.questions,
        Texts{"2 values hold characters that CP1252, the code page of the file, does not have.  The first is "
              "unit_name1 of [TU]2: Жук.  Write the file as UTF-8 with a byte order mark instead?"});
    set.prompter.yesNo = {true};
    EXPECT_EQ(RunJob().outcome, ExportOutcome::Done);
    EXPECT_EQ(OutFile(), "\xEF\xBB\xBF" + Lines({kRootLine, TaxonLine(2, "Жук", "100", 1),
                                                 TaxonLine(3, "Ωmega", "100", 1)}));
}

TEST_F(Job, ForeignTextOfRowsThatStayOutDoesNotCount) {
    AddTaxon(2, "Жук");
    AddTaxon(3, "Beta");
    AddToJournal({3});
    FilterByJournal();
    EXPECT_EQ(RunJob().outcome, ExportOutcome::Done);
    EXPECT_TRUE(set.prompter.questions.empty());
}

TEST_F(Job, ListOfNamesIsAskedAboutToo) {
    AddTaxon(2, "Жук");
    ExportOrder order;
    order.kind = ExportKind::List;
    set.prompter.yesNo = {true};
    EXPECT_EQ(RunJob(order).outcome, ExportOutcome::Done);
    EXPECT_EQ(OutFile(), "\xEF\xBB\xBF" + Lines({"name", "Animalia", "Жук"}));
    EXPECT_NE(set.prompter.questions.at(0).find("1 value holds characters"), std::string::npos);
}

TEST_F(Job, Utf8FromTheStartAsksNothing) {
    AddTaxon(2, "Жук");
    ExportOrder order;
    order.encoding = Encoding::Utf8;
    EXPECT_EQ(RunJob(order).outcome, ExportOutcome::Done);
    EXPECT_EQ(OutFile(), "\xEF\xBB\xBF" + Lines({kRootLine, TaxonLine(2, "Жук", "100", 1)}));
}

TEST_F(Job, BreakingValuesAreReportedWithTheFirst) {
    AddTaxon(2, "Al|pha");
    const ExportResult result = RunJob();
    EXPECT_EQ(OutFile(), Lines({kRootLine, TaxonLine(2, "Al|pha", "100", 1)}));
    ReportBreaking(set.prompter, result.breaking);
    EXPECT_EQ(set.prompter.messages,
              Texts{"1 value holds the separator or a line break, and a reader of the file will break "
                    "the record there.  The first is unit_name1 of [TU]2: Al|pha"});
    set.prompter.messages.clear();
    ReportBreaking(set.prompter, {});
    EXPECT_TRUE(set.prompter.messages.empty());
}

TEST_F(Job, CancelLeavesTheOldFileAndNothingElse) {
    AddTaxon(2, "Alpha");
    AddTaxon(3, "Beta");
    testkit::WriteFile(set.state.gExportFile, "old");
    pump.cancelAt = TurnsBeforeRows(3) + 3;
    EXPECT_EQ(RunJob().outcome, ExportOutcome::Canceled);
    EXPECT_EQ(OutFile(), "old");
    EXPECT_EQ(OtherFiles(), Texts{"out.qln"});
    EXPECT_FALSE(set.state.gBatchRunning);
}

TEST_F(Job, RunThatIsCanceledAtOnceMakesNoFile) {
    set.state.gBatchCancel = true;
    EXPECT_EQ(RunJob().outcome, ExportOutcome::Canceled);
    EXPECT_EQ(OtherFiles(), Texts{});
    EXPECT_EQ(set.state.gExportedCount, 0);
}

TEST_F(Job, TaxonWithoutAKingdomLeavesTheOldFile) {
    AddTaxon(2, "Alpha");
    SetTaxon(2, "kingdom_id", "Null");
    testkit::WriteFile(set.state.gExportFile, "old");
    EXPECT_EQ(RunJob().outcome, ExportOutcome::Canceled);
    EXPECT_EQ(OutFile(), "old");
}

TEST_F(Job, ShortMemoryIsReportedAndLeavesTheOldFile) {
    testkit::WriteFile(set.state.gExportFile, "old");
    testkit::ActingPump exhausted([](int) { throw std::bad_alloc(); });
    ExportJob job(set.state, set.engine, {set.prompter, exhausted, clock, [](double) {}, set.dir.path()});
    EXPECT_EQ(job.Run({}).outcome, ExportOutcome::Failed);
    EXPECT_EQ(set.prompter.messages, Texts{"Not enough memory."});
    EXPECT_EQ(OutFile(), "old");
    EXPECT_EQ(OtherFiles(), Texts{"out.qln"});
    EXPECT_FALSE(set.state.gBatchRunning);
    EXPECT_FALSE(set.prompter.waitCursor);
}

TEST_F(Job, GaugeRisesAndEndsFull) {
    for (int qb_id = 2; qb_id < 6; ++qb_id) AddTaxon(qb_id, "Alpha");
    RunJob();
    EXPECT_EQ(set.state.gRecordsTotal, 5);
    EXPECT_EQ(set.state.gRecordsDone, 5);
    EXPECT_EQ(gauge, (std::vector<double>{20, 40, 60, 80, 100}));
}

TEST_F(Job, FilterThatMayNotRunIsReportedAndNothingIsWritten) {
    FilterBy("wings", "=", "2");
    EXPECT_EQ(RunJob().outcome, ExportOutcome::Failed);
    FilterBy("tsn", "=", "1\" OR \"1\" = \"1");
    EXPECT_EQ(RunJob().outcome, ExportOutcome::Failed);
    EXPECT_EQ(set.prompter.messages, (Texts{"The column 'wings' is no field of qb_taxonomic_units.",
                                            "The value of a filter may not hold a double quote."}));
    EXPECT_FALSE(std::filesystem::exists(set.state.gExportFile));
}

TEST_F(Job, OpenDataSetIsNotWrittenOver) {
    const std::string path = set.state.gDataSetPath;
    const std::string link = set.dir.File("link.qln"), hardLink = set.dir.File("hard.qln");
    std::filesystem::create_symlink(path, link);
    std::filesystem::create_hard_link(path, hardLink);
    for (const std::string& target : {path, link, hardLink}) {
        set.state.gExportFile = target;
        EXPECT_EQ(RunJob().outcome, ExportOutcome::Failed);
        EXPECT_EQ(set.prompter.messages.back(),
                  "'" + target + "' is an open DataSet, and cannot be overwritten.");
    }
    EXPECT_EQ(set.Dump("SELECT unit_name1 FROM qb_taxonomic_units"), "Animalia\n");
}

TEST_F(Job, FailuresOfFilesAreReported) {
    set.state.gExportFile = set.dir.File("none/out.qln");
    EXPECT_EQ(RunJob().outcome, ExportOutcome::Failed);
    set.state.gExportFile = set.dir.File("out.qln");
    set.state.gExportPath = set.dir.File("none.mdb");
    EXPECT_EQ(RunJob().outcome, ExportOutcome::Failed);
    ASSERT_EQ(set.prompter.messages.size(), 2u);
    EXPECT_EQ(set.prompter.messages[0],
              "Failed Opening '" + set.dir.File("none/out.qln") + "' failed: No such file or directory.");
    EXPECT_EQ(set.prompter.messages[1].substr(0, 7), "Failed ");
    EXPECT_FALSE(set.prompter.waitCursor);
}

TEST_F(Job, AnotherDataSetIsExportedBesideTheOpenOne) {
    AddTaxon(2, "Alpha");
    set.lifecycle.CloseDataSet();
    testkit::DataSetFixture other;
    other.Make("Plantae");
    ExportJob job(other.state, other.engine, {other.prompter, pump, clock, [](double) {}, other.dir.path()});
    other.state.gExportPath = set.state.gExportPath;
    other.state.gExportFile = set.state.gExportFile;
    EXPECT_EQ(job.Run({}).outcome, ExportOutcome::Done);
    EXPECT_EQ(OutFile(), Lines({kRootLine, TaxonLine(2, "Alpha", "100", 1)}));
}

TEST_F(Job, PlainExportForgetsWhatWasRejected) {
    AddTaxon(2, "Alpha");
    set.state.gRejectedTaxa = {2};
    set.state.gRejectedDocs = {{"PUB", 1}};
    RunJob();
    EXPECT_EQ(OutFile(), Lines({kRootLine, TaxonLine(2, "Alpha", "100", 1)}));
    EXPECT_TRUE(set.state.gRejectedTaxa.empty());
    EXPECT_TRUE(set.state.gRejectedDocs.empty());
    EXPECT_FALSE(set.state.gValidatingForExport);
}

// A genus and its species without faults, below a root that the validation accepts.
class OnlineJob : public ExportTest {
protected:
    void SetUp() override {
        set.Make("Animalia");
        set.state.gExportPath = set.state.gDataSetPath;
        set.state.gExportFile = set.dir.File("out.qln");
        Insert("qb_taxon_authors_lookup", "qb_taxon_author_id, taxon_author, kingdom_id",
               {"1, 'Smith, 1900', 5"});
        Insert("qb_publications",
               "publication_id_prefix, qb_publication_id, publication_name, title, actual_pub_date",
               {"'PUB', 1, 'Journal', 'Moths', '01/02/1900'"});
        Insert("qb_taxonomic_units",
               "qb_id, unit_name1, unit_name2, usage, taxonomic_credibility_rating, "
               "taxonomic_completeness_rating, "
               "currency_rating, parent_qb_id, qb_taxon_author_id, kingdom_id, rank_id",
               {"2, 'Alpha', Null, 'valid', 'KSP standards met', 'partial', '2000', 1, 1, 5, 180",
                "3, 'Alpha', 'beta', 'valid', 'KSP standards met', 'partial', '2000', 2, 1, 5, 220"});
        Refer(2);
        Refer(3);
    }
    void Refer(int qb_id) {
        Insert("qb_reference_links", "qb_id, qb_documentation_id_prefix, qb_documentation_id",
               {fmt::format("{}, 'PUB', 1", qb_id)});
    }
    void SpoilSpecies() { Run("DELETE * FROM qb_reference_links WHERE qb_id = 3"); }

    static constexpr std::string_view kRoot =
        "[TU]1|202423||Animalia  ||||||||valid||KSP standards met|unknown|unknown||1996-06-13 "
        "14:51:08|202423|1||||5|10|No|";
    static constexpr std::string_view kGenus =
        "[TU]2|||Alpha||||||||valid||KSP standards met|partial|2000|||202423|1||1||5|180|No|";
    static constexpr std::string_view kSpecies =
        "[TU]3|||Alpha||beta||||||valid||KSP standards met|partial|2000||||2||1||5|220|No|";
    static constexpr std::string_view kRest = "[TA]1||Smith, 1900|5|\r\n[RF]2|PUB|1||PUB||No|No|||\r\n";
    static constexpr std::string_view kPublication = "[PB]PUB|1|||Moths|Journal||02/01/1900|||||||\r\n";
};

TEST_F(OnlineJob, FaultlessDataSetIsWrittenWhole) {
    EXPECT_EQ(RunJob(Online()).outcome, ExportOutcome::Done);
    EXPECT_EQ(OutFile(), Lines({kRoot, kGenus, kSpecies}) + std::string(kRest) +
                             "[RF]3|PUB|1||PUB||No|No|||\r\n" + std::string(kPublication));
    EXPECT_FALSE(set.state.gErrorsOccurred);
    EXPECT_EQ(testkit::ReadFile(set.dir.File("validate.log")), "");
    EXPECT_TRUE(set.prompter.messages.empty()) << "the export's own message is the only one";
}

TEST_F(OnlineJob, RefusedTaxonStaysOut) {
    SpoilSpecies();
    EXPECT_EQ(RunJob(Online()).outcome, ExportOutcome::Done);
    EXPECT_EQ(OutFile(), Lines({kRoot, kGenus}) + std::string(kRest) + std::string(kPublication));
    EXPECT_TRUE(set.state.gErrorsOccurred);
    EXPECT_NE(testkit::ReadFile(set.dir.File("validate.log")), "");
    EXPECT_TRUE(set.state.gRejectedTaxa.empty());
}

TEST_F(OnlineJob, GaugeCoversValidationAndExport) {
    RunJob(Online());
    // Three taxa, an author, two links and a publication are visited twice; the links count in no total.
    EXPECT_EQ(set.state.gRecordsTotal, 10);
    EXPECT_TRUE(std::is_sorted(gauge.begin(), gauge.end()));
    EXPECT_EQ(gauge.front(), 10);
    EXPECT_EQ(gauge.back(), 100);
}

TEST_F(OnlineJob, WrongKingdomIsReportedAndEverythingIsWritten) {
    SpoilSpecies();
    set.state.gKingdomName = "Plantae";
    EXPECT_EQ(RunJob(Online()).outcome, ExportOutcome::Done);
    EXPECT_EQ(OutFile(), Lines({kRoot, kGenus, kSpecies}) + std::string(kRest) + std::string(kPublication));
    EXPECT_EQ(set.prompter.messages, Texts{"The Kingdom in the Validate Dataset, " + set.state.gExportPath +
                                           ", must match that in the 'Preferences'."});
}

TEST_F(OnlineJob, LogThatCannotBeOpenedFailsAndWritesNothing) {
    SpoilSpecies();
    for (const char* log : {"validate.log", "vtime.log"}) {
        testkit::WriteFile(set.state.gExportFile, "old");
        for (const char* earlier : {"validate.log", "vtime.log"})
            std::filesystem::remove(set.dir.File(earlier));
        std::filesystem::create_directory(set.dir.File(log));
        EXPECT_EQ(RunJob(Online()).outcome, ExportOutcome::Failed) << log;
        EXPECT_EQ(OutFile(), "old") << log;
    }
    EXPECT_EQ(set.prompter.messages, (Texts{set.dir.File("validate.log") + " is not an ordinary file.",
                                            set.dir.File("vtime.log") + " is not an ordinary file."}));
}

TEST_F(OnlineJob, LogThatIsNotWholeFailsAndWritesNothing) {
    SpoilSpecies();
    {
        const testkit::FilesStopAt limit(16);
        EXPECT_EQ(RunJob(Online()).outcome, ExportOutcome::Failed);
    }
    EXPECT_FALSE(std::filesystem::exists(set.state.gExportFile));
    EXPECT_TRUE(set.state.gRejectedTaxa.empty());
    EXPECT_EQ(set.prompter.messages,
              Texts{set.dir.File("validate.log") + " cannot be written: File too large."});
}

TEST_F(OnlineJob, LogIsNotWrittenOver) {
    for (const char* log : {"validate.log", "vtime.log"}) {
        set.state.gExportFile = set.dir.File(log);
        EXPECT_EQ(RunJob(Online()).outcome, ExportOutcome::Failed);
        EXPECT_EQ(set.prompter.messages.back(),
                  "'" + set.dir.File(log) + "' is a log of the validation, and cannot be overwritten.");
    }
    EXPECT_EQ(OtherFiles(), Texts{});
}

TEST_F(OnlineJob, CancelWhileValidatingMakesNoFile) {
    pump.cancelAt = 1;
    EXPECT_EQ(RunJob(Online()).outcome, ExportOutcome::Canceled);
    EXPECT_FALSE(std::filesystem::exists(set.state.gExportFile));
}

TEST_F(OnlineJob, NeedsAnOpenDataSet) {
    set.lifecycle.CloseDataSet();
    set.state.gDatabase = nullptr;
    EXPECT_EQ(RunJob(Online()).outcome, ExportOutcome::Failed);
    EXPECT_EQ(set.prompter.messages, Texts{"A DataSet must be open to export for the online system!"});
}

}  // namespace
}  // namespace quillon::exporting
