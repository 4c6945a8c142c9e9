// The driver: its logs, totals, gauge, refusals, the end of a run, and what a run for an export leaves
// behind.

#include "validation/validate_data_set.h"

#include <filesystem>

#include <sys/stat.h>

#include "testkit/golden.h"
#include "testkit/limits.h"
#include "validation_fixture.h"

namespace quillon::validation {

namespace {

class Driver : public ValidationTest {
protected:
    std::string TimeLog() { return testkit::ReadFile(set.dir.File(kTimeLogName)); }
    std::vector<int> RejectedTaxa() { return set.state.gRejectedTaxa; }
    using Docs = std::vector<std::pair<std::string, int>>;
    // Validates as the form does, with the questions of its own.
    ValidationResult ValidateAsking() {
        set.state.gRecordFilter = "none";
        return ValidateDataSet(set.state, set.engine,
                               {set.prompter, pump, clock, [](double) {}, set.dir.path()});
    }
    void ForExport() {
        set.state.gValidatingForExport = true;
        set.state.gExportPath = set.state.gDataSetPath;
    }
};

TEST_F(Driver, RunWithoutFindingsLeavesAnEmptyLogAndSaysSo) {
    EXPECT_TRUE(ValidateAsking().ran);
    EXPECT_EQ(testkit::ReadFile(set.dir.File("validate.log")), "");
    EXPECT_TRUE(std::filesystem::exists(set.dir.File("validate.log")));
    EXPECT_EQ(set.prompter.messages, (std::vector<std::string>{"Validation Complete -- No Errors!"}));
    EXPECT_FALSE(set.state.gErrorsOccurred);
}

TEST_F(Driver, TimesOfBeginningAndEndAreLogged) {
    Validate();
    EXPECT_EQ(TimeLog(), "Begin Validation: 12:34:56\r\nEnd Validation: 12:34:56\r\n");
}

TEST_F(Driver, RunWithFindingsOffersTheLog) {
    Unrefer(3);
    for (const bool answer : {false, true}) {
        set.prompter.yesNo.push_back(answer);
        EXPECT_TRUE(ValidateAsking().errors);
    }
    EXPECT_EQ(set.prompter.questions,
              (std::vector<std::string>(2, "Validation Complete -- Errors Occurred.  View error Log?")));
    EXPECT_EQ(set.prompter.titles, (std::vector<std::string>(2, "Validation Complete")));
    EXPECT_EQ(set.prompter.forms, (std::vector<std::string>{"FrmVError"}));
    EXPECT_TRUE(set.prompter.messages.empty());
}

TEST_F(Driver, FindingsOfAnEarlierRunAreForgotten) {
    Unrefer(3);
    EXPECT_TRUE(ValidateInto().errors);
    Refer(3, "PUB", 1);
    EXPECT_FALSE(ValidateInto().errors);
    EXPECT_EQ(marks.size(), 0u);
    EXPECT_EQ(Validate(), "");
}

TEST_F(Driver, ValidatingTwiceGivesTheSameLog) {
    Unrefer(3);
    Set(2, "usage", "Null");
    const std::string once = Validate();
    EXPECT_EQ(Validate(), once);
    EXPECT_NE(once, "");
}

TEST_F(Driver, RunChangesNoData) {
    Unrefer(3);
    MakeSynonym(3, 2, "synonym");
    Run("INSERT INTO journal (qb_id) VALUES (3)");
    const std::string before = set.DumpEverything();
    for (const std::string_view filter : {selection::kNoFilter, std::string_view("journal")}) {
        EXPECT_NE(Validate(filter), "");
        EXPECT_EQ(set.DumpEverything(), before) << filter;
    }
}

TEST_F(Driver, KingdomOfThePreferencesMustBeTheDataSets) {
    set.state.gKingdomName = "Plantae";
    const ValidationResult result = ValidateAsking();
    EXPECT_FALSE(result.ran);
    EXPECT_TRUE(result.wrongKingdom);
    EXPECT_FALSE(result.logFailed);
    EXPECT_EQ(set.prompter.messages,
              (std::vector<std::string>{"The Kingdom in the Validate Dataset, " + set.state.gDataSetPath +
                                        ", must match that in the 'Preferences'."}));
    EXPECT_EQ(TimeLog(), "Begin Validation: 12:34:56\r\n");
    EXPECT_EQ(testkit::ReadFile(set.dir.File("validate.log")), "");
}

TEST_F(Driver, BadConditionIsAMessageAndNoRun) {
    set.state.gRecordFilter = selection::ColumnClause("nothing", "=", "x");
    EXPECT_FALSE(
        ValidateDataSet(set.state, set.engine, {set.prompter, pump, clock, [](double) {}, set.dir.path()})
            .ran);
    EXPECT_EQ(set.prompter.messages,
              (std::vector<std::string>{"The column 'nothing' is no field of qb_taxonomic_units."}));
    EXPECT_FALSE(std::filesystem::exists(set.dir.File("validate.log")));
}

TEST_F(Driver, UnwritableLogIsReportedAndNothingRuns) {
    for (const char* log : {"validate.log", "vtime.log"}) {
        set.prompter.messages.clear();
        for (const char* earlier : {"validate.log", "vtime.log"})
            std::filesystem::remove(set.dir.File(earlier));
        std::filesystem::create_directory(set.dir.File(log));
        const ValidationResult result = ValidateAsking();
        EXPECT_FALSE(result.ran) << log;
        EXPECT_FALSE(result.wrongKingdom) << log;
        EXPECT_TRUE(result.logFailed) << log;
        EXPECT_EQ(set.prompter.messages,
                  (std::vector<std::string>{set.dir.File(log) + " is not an ordinary file."}));
    }
}

// The findings do not fit on the disk: there is no whole log to offer.
TEST_F(Driver, LogThatIsNotWholeIsReportedOnceAndNotOffered) {
    Unrefer(3);
    ValidationResult result;
    {
        const testkit::FilesStopAt limit(16);
        result = ValidateAsking();
    }
    EXPECT_TRUE(result.ran);
    EXPECT_TRUE(result.errors);
    EXPECT_TRUE(result.logFailed);
    EXPECT_EQ(set.prompter.messages, (std::vector<std::string>{set.dir.File("validate.log") +
                                                               " cannot be written: File too large."}));
    EXPECT_TRUE(set.prompter.questions.empty());
}

TEST_F(Driver, TimesThatCannotBeWrittenAreReportedAfterTheEnd) {
    {
        const testkit::FilesStopAt limit(16);
        EXPECT_TRUE(ValidateAsking().logFailed);
    }
    EXPECT_EQ(set.prompter.messages,
              (std::vector<std::string>{"Validation Complete -- No Errors!",
                                        set.dir.File("vtime.log") + " cannot be written: File too large."}));
}

// By another name, too.
TEST_F(Driver, LogNeverReplacesTheDataSet) {
    for (const char* log : {"validate.log", "vtime.log"}) {
        set.prompter.messages.clear();
        for (const char* earlier : {"validate.log", "vtime.log"})
            std::filesystem::remove(set.dir.File(earlier));
        std::filesystem::create_hard_link(set.state.gDataSetPath, set.dir.File(log));
        const ValidationResult result = ValidateAsking();
        EXPECT_FALSE(result.ran) << log;
        EXPECT_EQ(set.prompter.messages,
                  (std::vector<std::string>{set.dir.File(log) + " is in use by this job."}));
        EXPECT_EQ(set.Dump("SELECT unit_name1 FROM qb_taxonomic_units WHERE qb_id = 3"), "Alpha\n");
        std::filesystem::remove(set.dir.File(log));
    }
}

TEST_F(Driver, LogsAreNeitherPipesNorDevices) {
    ASSERT_EQ(mkfifo(set.dir.File("validate.log").c_str(), 0600), 0);
    EXPECT_FALSE(ValidateAsking().ran);
    std::filesystem::create_symlink("/dev/null", set.dir.File("vtime.log.link"));
    std::filesystem::remove(set.dir.File("validate.log"));
    std::filesystem::remove(set.dir.File("vtime.log"));
    std::filesystem::rename(set.dir.File("vtime.log.link"), set.dir.File("vtime.log"));
    EXPECT_FALSE(ValidateAsking().ran);
    EXPECT_EQ(set.prompter.messages,
              (std::vector<std::string>{set.dir.File("validate.log") + " is not an ordinary file.",
                                        set.dir.File("vtime.log") + " is not an ordinary file."}));
}

TEST_F(Driver, FindingsAreThereWhileTheLogHoldsThem) {
    EXPECT_FALSE(HasFindings(set.dir.path())) << "no log yet";
    Validate();
    EXPECT_FALSE(HasFindings(set.dir.path())) << "an empty log";
    Unrefer(3);
    Validate();
    EXPECT_TRUE(HasFindings(set.dir.path()));
}

// 3 taxa, 1 author and 1 publication count; the 2 reference links are visited but not counted.
TEST_F(Driver, GaugeReachesTheEndEarlyAndStaysThere) {
    Validate();
    EXPECT_EQ(set.state.gRecordsTotal, 5);
    EXPECT_EQ(set.state.gRecordsDone, 7);
    EXPECT_EQ(gauge, (std::vector<double>{20, 40, 60, 80, 100, 100, 100}));
    EXPECT_EQ(completions, 1);
}

TEST_F(Driver, GaugeOfARunForExportLeavesRoomForTheExport) {
    ForExport();
    Run("INSERT INTO qb_comments (qb_comment_id) VALUES (1)");
    Validate();
    EXPECT_EQ(set.state.gRecordsTotal, 11);
    EXPECT_EQ(set.state.gValidatedTotal, 5);
    EXPECT_EQ(set.state.gRecordsDone, 7);
    EXPECT_EQ(gauge.back(), 100.0 * 7 / 11);
}

TEST_F(Driver, RunForExportSaysNothingAtTheEnd) {
    ForExport();
    Unrefer(3);
    EXPECT_TRUE(ValidateInto().errors);
    EXPECT_EQ(completions, 0);
    EXPECT_EQ(TimeLog(), "Begin Validation: 12:34:56\r\nEnd Validation: 12:34:56\r\n");
}

TEST_F(Driver, CancelledRunSkipsTheRestAndSaysNothing) {
    Unrefer(2);
    Unrefer(3);
    // 16 tables are counted; the look-ups read 3 taxa, 1 author and 1 publication; then come the root, the
    // genus, and the end.
    testkit::CancelingPump cancelling(set.state, 16 + 5 + 3);
    const ValidationResult result = ValidateDataSet(
        set.state, set.engine,
        {set.prompter, cancelling, clock, [](double) {}, set.dir.path(), [this] { ++completions; }});
    EXPECT_TRUE(result.canceled);
    EXPECT_EQ(testkit::ReadFile(result.logPath),
              Lines({"ID =  2   Name = Alpha", "     at least one reference is required"}));
    EXPECT_EQ(TimeLog(), "Begin Validation: 12:34:56\r\nEnd Validation: 12:34:56\r\n");
    EXPECT_EQ(completions, 0);
    EXPECT_EQ(set.state.gRecordsDone, 2);
}

TEST_F(Driver, TablesAreVisitedInOrder) {
    Unrefer(3);
    Run("INSERT INTO qb_jurisdiction (qb_id, jurisdiction_value) VALUES (3, 'Alaska')");
    Run("INSERT INTO qb_vernaculars (qb_id, qb_vern_id, vernacular_name) VALUES (3, 7, 'Beta moth')");
    Run("INSERT INTO qb_publications (publication_id_prefix, qb_publication_id, actual_pub_date) "
        "VALUES ('PUB', 2, '01/01/2000')");
    Run("INSERT INTO qb_other_sources (source_id_prefix, qb_source_id, source_type, source, "
        "acquisition_date) "
        "VALUES ('SRC', 5, 'list', 'List', '01/02/2000')");
    Run("INSERT INTO qb_experts (expert_id_prefix, qb_expert_id) VALUES ('EXP', 4)");
    Run("INSERT INTO qb_taxon_authors_lookup (qb_taxon_author_id, taxon_author) VALUES (2, 'Jones')");
    EXPECT_EQ(Validate(), testkit::Golden("validation/TablesAreVisitedInOrder.log"));
}

TEST_F(Driver, FiltersNarrowTheRun) {
    Unrefer(2);
    Unrefer(3);
    Run("INSERT INTO journal (qb_id) VALUES (3)");
    const std::string species = OnSpecies({"     at least one reference is required"});
    EXPECT_EQ(Validate("journal"), species);
    EXPECT_EQ(Validate(selection::ColumnClause("rank_id", "=", "220")), species);
    EXPECT_EQ(Validate(selection::ColumnClause("unit_name2", "Like", "b*")), species);
    EXPECT_EQ(Validate(selection::ColumnClause("unit_name2", "=", "none")), "");
}

// Few taxa have look-ups of their own, many share those of all.
TEST_F(Driver, FewTaxaAreReportedAsAmongMany) {
    for (int qb_id = 4; qb_id <= 20; ++qb_id) {
        AddTaxon(qb_id, "Gamma", 220, 2);
        MakeSynonym(qb_id, qb_id - 1, "junior synonym");
        Run(fmt::format("INSERT INTO qb_jurisdiction (qb_id, jurisdiction_value) VALUES ({}, 'Alaska')",
                        qb_id));
        Run(fmt::format(
            "INSERT INTO qb_vernaculars (qb_id, qb_vern_id, vernacular_name, language, approved_ind) "
            "VALUES ({}, {}, 'Moth', 'English', True)",
            qb_id, qb_id));
    }
    const std::string of17 =
        Lines({"ID =  17   Name = Gamma",
               "     an 'invalid'/'not accepted' taxon canot be linked to one that is also "
               "'invalid'/'not accepted'",
               "Vernaculars:  QBID = <17> Vernacular Name = <Moth>  Language = <English>",
               "     a reference is required for an approved vernacular", "ID = 17  Name = Gamma",
               "     origin is required for jurisdiction 'Alaska'"});
    EXPECT_EQ(Validate(selection::ColumnClause("qb_id", "=", "17")), of17);
    Run("INSERT INTO journal (qb_id) VALUES (17)");
    EXPECT_EQ(Validate("journal"), of17);
    for (int qb_id = 1; qb_id <= 20; ++qb_id) {
        if (qb_id == 17) continue;
        Run(fmt::format("DELETE * FROM qb_jurisdiction WHERE qb_id = {}", qb_id));
        Run(fmt::format("DELETE * FROM qb_vernaculars WHERE qb_id = {}", qb_id));
        Run(fmt::format("UPDATE qb_synonym_links SET qb_id_accepted = 2 WHERE qb_id = {}", qb_id));
    }
    EXPECT_EQ(Validate(), of17);
}

TEST_F(Driver, AuthorIsReportedOnceATaxonUnderAFilter) {
    Run("UPDATE qb_taxon_authors_lookup SET kingdom_id = Null");
    const std::string finding = Lines({"Author ID = 1  Name = Smith, 1900", "     a kingdom is required"});
    EXPECT_EQ(Validate(), finding);
    EXPECT_EQ(Validate(selection::ColumnClause("rank_id", ">", "10")), finding + finding);
}

TEST_F(Driver, FindingsKnowTheirRecordAndTheirLine) {
    Unrefer(3);
    Set(2, "usage", "Null");
    Run("INSERT INTO qb_experts (expert_id_prefix, qb_expert_id) VALUES ('EXP', 4)");
    Validate();
    ASSERT_EQ(marks.size(), 5u);
    EXPECT_EQ(marks[0].rule, Rule::UsageMissing);
    EXPECT_EQ(marks[0].id, 2);
    EXPECT_EQ(marks[0].line, 1u);
    EXPECT_EQ(marks[1].rule, Rule::ParentOfUnusableName);
    EXPECT_EQ(marks[1].line, 2u);
    EXPECT_EQ(marks[2].rule, Rule::ParentUnusable);
    EXPECT_EQ(marks[2].line, 4u);
    EXPECT_EQ(marks[3].rule, Rule::ReferenceMissing);
    EXPECT_EQ(marks[3].line, 5u);
    EXPECT_EQ(marks[4].kind, RecordKind::Expert);
    EXPECT_EQ(marks[4].id, 4);
    EXPECT_EQ(marks[4].line, 7u);
    EXPECT_EQ(marks[4].Prefix(), "EXP");
}

class RunForExport : public Driver {
protected:
    void SetUp() override {
        Driver::SetUp();
        ForExport();
    }
};

TEST_F(RunForExport, RejectsATaxonOnceForItsOwnFindings) {
    Unrefer(3);
    Set(3, "usage", "Null");
    Validate();
    EXPECT_EQ(RejectedTaxa(), (std::vector<int>{3}));
    EXPECT_EQ(set.state.gRejectedDocs, Docs{});
}

TEST_F(RunForExport, ReadsTheDataSetToExport) {
    testkit::DataSetFixture other;
    other.Make("Animalia", "other.mdb");
    const std::string path = other.state.gDataSetPath;
    other.lifecycle.CloseDataSet();
    set.state.gExportPath = path;
    Unrefer(3);
    EXPECT_EQ(Validate(), "");
    EXPECT_EQ(set.state.gRecordsDone, 1);
}

// The last taxon seen is the one whose turn came last, with or without findings.
TEST_F(RunForExport, DocumentRejectsItselfAndTheTaxonSeenLast) {
    Run("INSERT INTO qb_publications (publication_id_prefix, qb_publication_id, actual_pub_date) "
        "VALUES ('PUB', 2, '1999')");
    Run("INSERT INTO qb_experts (expert_id_prefix, qb_expert_id) VALUES ('EXP', 4)");
    Run("INSERT INTO qb_other_sources (source_id_prefix, qb_source_id) VALUES ('SRC', 5)");
    Validate();
    EXPECT_EQ(RejectedTaxa(), (std::vector<int>{3}));
    EXPECT_EQ(set.state.gRejectedDocs, (Docs{{"EXP", 4}, {"SRC", 5}, {"PUB", 2}}));
}

TEST_F(RunForExport, AuthorRejectsNothing) {
    Run("UPDATE qb_taxon_authors_lookup SET kingdom_id = Null");
    EXPECT_TRUE(ValidateInto().errors);
    EXPECT_EQ(RejectedTaxa(), std::vector<int>{});
    EXPECT_EQ(set.state.gRejectedDocs, Docs{});
}

TEST_F(RunForExport, PublicationThatAppearedInALaterYearIsRejectedWithoutAFinding) {
    Run("UPDATE qb_publications SET listed_pub_date = '01/01/1900', actual_pub_date = '01/01/1901'");
    EXPECT_EQ(Validate(), "");
    EXPECT_EQ(set.state.gRejectedDocs, (Docs{{"PUB", 1}}));
    EXPECT_EQ(RejectedTaxa(), std::vector<int>{});
}

TEST_F(RunForExport, VernacularWithoutALanguageRejectsThePrecedingTaxon) {
    AddTaxon(4, "Gamma", 220, 2);
    Run("INSERT INTO qb_vernaculars (qb_id, qb_vern_id, vernacular_name) VALUES (3, 7, 'Beta moth')");
    Run("UPDATE qb_vernaculars SET approved_ind = True");
    Validate();
    EXPECT_EQ(RejectedTaxa(), (std::vector<int>{4}));
}

TEST_F(RunForExport, VernacularWithoutAReferenceRejectsItsTaxon) {
    AddTaxon(4, "Gamma", 220, 2);
    Run("INSERT INTO qb_vernaculars (qb_id, qb_vern_id, vernacular_name, language, approved_ind) "
        "VALUES (3, 7, 'Beta moth', 'English', True)");
    Run("INSERT INTO qb_jurisdiction (qb_id, jurisdiction_value) VALUES (2, 'Alaska')");
    Validate();
    EXPECT_EQ(RejectedTaxa(), (std::vector<int>{3, 2}));
}

TEST_F(RunForExport, OrdinaryRunRejectsNothing) {
    set.state.gValidatingForExport = false;
    Unrefer(3);
    Run("INSERT INTO qb_experts (expert_id_prefix, qb_expert_id) VALUES ('EXP', 4)");
    Validate();
    EXPECT_EQ(RejectedTaxa(), std::vector<int>{});
    EXPECT_EQ(set.state.gRejectedDocs, Docs{});
}

TEST_F(RunForExport, SamePairIsRememberedOnce) {
    ValidationLog log(set.state, [](const Finding&) {});
    log.RememberRejectedDoc("PUB", 1);
    log.RememberRejectedDoc("PUB", 1);
    log.RememberRejectedDoc("EXP", 1);
    ValidationLog next(set.state, [](const Finding&) {});
    next.RememberRejectedDoc("PUB", 1);
    EXPECT_EQ(set.state.gRejectedDocs, (Docs{{"PUB", 1}, {"EXP", 1}}));
}

TEST(KingdomNameOfDataSet, FollowsTheRootOfTheDataSet) {
    for (const std::string_view kingdom : kKingdomNames) {
        testkit::DataSetFixture set;
        set.Make(std::string(kingdom));
        EXPECT_EQ(KingdomNameOfDataSet(set.db()), kingdom);
        set.db().Execute("UPDATE qb_taxonomic_units SET kingdom_id = 9");
        EXPECT_EQ(KingdomNameOfDataSet(set.db()), "");
        set.db().Execute("DELETE * FROM qb_taxonomic_units");
        EXPECT_EQ(KingdomNameOfDataSet(set.db()), "");
    }
}

}  // namespace

}  // namespace quillon::validation
