// frmValidate and FrmVError, worked without a window.

#include <sys/stat.h>

#include <filesystem>
#include <new>

#include "testkit/turn_meter.h"
#include "validation/validate_form.h"
#include "validation/validation_error_form.h"
#include "validation_fixture.h"

namespace quillon::validation {

namespace {

class ValidateForm : public ValidationTest {
protected:
    void SetUp() override {
        ValidationTest::SetUp();
        set.state.gBatchRunning = true;
        set.state.gBatchCancel = true;
        form = std::make_unique<frmValidate>(set.state, set.engine, set.prompter, pump, clock, set.dir.path(),
                                             marks);
        form->form.OnClosed([this] { ++closed; });
    }
    std::unique_ptr<frmValidate> form;
    int closed = 0;
};

TEST_F(ValidateForm, LoadsReadyToRun) {
    EXPECT_FALSE(set.state.gBatchRunning);
    EXPECT_FALSE(set.state.gBatchCancel);
    EXPECT_EQ(form->form.Title(), "DataSetValidation");
    EXPECT_EQ(form->txtValidate.Text(), set.state.gDataSetPath);
    EXPECT_EQ(form->cboFields.Text(), "taxonomic_credibility_rating");
    EXPECT_EQ(form->cboOperators.Text(), "=");
    EXPECT_EQ(form->cboValues.Text(), "KSP Standards Met");
    EXPECT_EQ(form->cboFields.ListIndex(), 0);
    EXPECT_EQ(form->cboFields.ListCount(), 25u);
    EXPECT_EQ(form->cboOperators.ListCount(), 7u);
    EXPECT_EQ(form->cboValues.ListCount(), 1u);
}

TEST_F(ValidateForm, ConditionIsEnabledByItsOption) {
    const auto enabled = [&] {
        return std::vector{form->cboFields.Enabled(), form->cboOperators.Enabled(),
                           form->cboValues.Enabled()};
    };
    EXPECT_EQ(enabled(), (std::vector{false, false, false}));
    form->optColumn.UserChoose();
    EXPECT_EQ(enabled(), (std::vector{true, true, true}));
    form->optModified.UserChoose();
    EXPECT_EQ(enabled(), (std::vector{false, false, false}));
    form->optColumn.UserChoose();
    form->optNoFilter.UserChoose();
    EXPECT_EQ(enabled(), (std::vector{false, false, false}));
}

TEST_F(ValidateForm, EveryChoiceOfItsListsMakesAFilterThatRuns) {
    form->optColumn.UserChoose();
    form->cboValues.UserSetText("1");
    for (int field = 0; field < static_cast<int>(form->cboFields.ListCount()); ++field) {
        for (int comparison = 0; comparison < static_cast<int>(form->cboOperators.ListCount());
             ++comparison) {
            form->cboFields.UserChoose(field);
            form->cboOperators.UserChoose(comparison);
            EXPECT_EQ(selection::CheckRecordFilter(set.db(), form->Filter()), std::nullopt) << form->Filter();
        }
    }
}

TEST_F(ValidateForm, OptionsMakeTheFilter) {
    EXPECT_EQ(form->Filter(), "none");
    form->optModified.UserChoose();
    EXPECT_EQ(form->Filter(), "journal");
    form->optColumn.UserChoose();
    EXPECT_EQ(form->Filter(), " WHERE taxonomic_credibility_rating = \"KSP Standards Met\"");
    form->optColumn.SetValue(false);
    EXPECT_EQ(form->Filter(), "none");
}

TEST_F(ValidateForm, ContinueValidatesAndCloses) {
    set.state.gRecordsDone = 99;
    set.state.gValidatingForExport = true;
    set.state.gRejectedTaxa = {1};
    set.state.gRejectedDocs = {{"PUB", 1}};
    form->cmdContinue.UserClick();
    EXPECT_EQ(set.prompter.messages, (std::vector<std::string>{"Validation Complete -- No Errors!"}));
    EXPECT_EQ(set.state.gRecordsDone, 7);
    EXPECT_FALSE(set.state.gValidatingForExport);
    EXPECT_TRUE(set.state.gRejectedTaxa.empty());
    EXPECT_TRUE(set.state.gRejectedDocs.empty());
    EXPECT_TRUE(set.state.gBatchRunning);
    EXPECT_FALSE(set.prompter.waitCursor);
    EXPECT_EQ(form->Gauge1.Value(), 100);
    EXPECT_EQ(closed, 1);
}

TEST_F(ValidateForm, SecondContinueDoesNothingWhileARunIsActive) {
    set.state.gBatchRunning = true;
    form->cmdContinue.UserClick();
    EXPECT_TRUE(set.prompter.messages.empty());
    EXPECT_EQ(closed, 0);
    EXPECT_FALSE(std::filesystem::exists(set.dir.File("validate.log")));
}

TEST_F(ValidateForm, BadConditionIsReportedAndTheFormStays) {
    form->optColumn.UserChoose();
    form->cboValues.UserSetText("a\"b");
    form->cmdContinue.UserClick();
    EXPECT_EQ(set.prompter.messages,
              (std::vector<std::string>{"The value of a filter may not hold a double quote."}));
    EXPECT_EQ(closed, 0);
    EXPECT_FALSE(set.state.gBatchRunning);
    EXPECT_FALSE(std::filesystem::exists(set.dir.File("validate.log")));
}

TEST_F(ValidateForm, TypedConditionNarrowsTheRun) {
    Unrefer(2);
    form->optColumn.UserChoose();
    form->cboFields.UserSetText(" rank_id ");
    form->cboOperators.UserSetText("=");
    form->cboValues.UserSetText("220");
    form->cmdContinue.UserClick();
    EXPECT_EQ(set.prompter.messages, (std::vector<std::string>{"Validation Complete -- No Errors!"}));
}

TEST_F(ValidateForm, CancelStopsARunAndClosesAnIdleForm) {
    set.state.gBatchRunning = true;
    form->cmdCancel.UserClick();
    EXPECT_TRUE(set.state.gBatchCancel);
    EXPECT_EQ(closed, 0);
    set.state.gBatchRunning = false;
    form->form.UserClose();
    EXPECT_EQ(closed, 1);
}

TEST_F(ValidateForm, RunOutOfMemorySaysSoAndLeavesNothingBehind) {
    testkit::TurnMeter meter(set.state);
    Unrefer(3);
    ValidateDataSet(set.state, set.engine,
                    {set.prompter, meter, clock, [](double) {}, set.dir.path(), [] {}});
    ASSERT_GT(meter.turns, 10);
    for (int turn = 1; turn <= meter.turns; ++turn) {
        testkit::ActingPump failing([turn](int now) {
            if (now == turn) throw std::bad_alloc();
        });
        set.prompter.messages.clear();
        frmValidate out(set.state, set.engine, set.prompter, failing, clock, set.dir.path(), marks);
        out.Continue();
        EXPECT_EQ(set.prompter.messages, std::vector<std::string>{"Not enough memory."}) << "turn " << turn;
        EXPECT_FALSE(set.prompter.waitCursor);
        EXPECT_TRUE(set.state.gRejectedTaxa.empty());
    }
    Run("UPDATE qb_taxonomic_units SET unit_name2 = 'gamma' WHERE qb_id = 3");
    EXPECT_EQ(Validate(), "ID =  3   Name = Alpha gamma\r\n     at least one reference is required\r\n");
}

class ErrorForm : public ValidationTest {
protected:
    // A log on the genus (2 findings), the species and an expert.
    void SetUp() override {
        ValidationTest::SetUp();
        Set(2, "taxonomic_credibility_rating", "Null");
        Set(2, "currency_rating", "'soon'");
        Unrefer(3);
        Run("INSERT INTO qb_experts (expert_id_prefix, qb_expert_id) VALUES ('EXP', 4)");
        Validate();
    }
    std::unique_ptr<FrmVError> Load() {
        return std::make_unique<FrmVError>(
            set.state, set.prompter, pump, set.dir.path(), marks,
            [this](int qb_id, std::string_view tab) { visited.push_back(fmt::format("{} {}", qb_id, tab)); });
    }
    static std::vector<std::string> Shown(const FrmVError& form) {
        std::vector<std::string> lines;
        for (const auto& choice : form.lstError.Choices()) lines.push_back(choice.text);
        return lines;
    }
    std::vector<std::string> visited;
};

using Texts = std::vector<std::string>;

TEST_F(ErrorForm, ShowsTheLinesOfTheLog) {
    const auto form = Load();
    EXPECT_EQ(form->form.Title(), "Validation Error Log");
    EXPECT_EQ(Shown(*form), (Texts{"ID =  2   Name = Alpha",
                                   "     a taxonomic credibility rating is required for all records",
                                   "     <soon> is an invalid currency rating", "ID =  3   Name = Alpha beta",
                                   "     at least one reference is required",
                                   "Experts:  EXPID = <4>  Expert = <>", "     an expert is required"}));
}

TEST_F(ErrorForm, CountsFindingsByRule) {
    Unrefer(2);
    Validate();
    EXPECT_EQ(Load()->lblCounts.Caption(),
              "5 findings: 2 reference missing, 1 credibility missing, 1 currency wrong, 1 expert missing");
}

// The log is there still, and what its lines are about is not known.
TEST_F(ErrorForm, LogOfAnEarlierDayHasNoCounts) {
    marks.clear();
    const auto form = Load();
    EXPECT_EQ(form->lstError.ListCount(), 7u);
    EXPECT_EQ(form->lblCounts.Caption(), "");
    form->lstError.UserActivate(1);
    EXPECT_TRUE(visited.empty());
}

TEST_F(ErrorForm, FilterFindsLettersOfAnyCaseAndAlphabet) {
    Set(3, "unit_name2", "'élégans'");
    Validate();
    const auto form = Load();
    for (const char* wanted : {"ÉLÉG", "élég", "alpha É"}) {
        form->txtFilter.UserSetText(wanted);
        EXPECT_EQ(Shown(*form),
                  (Texts{"ID =  3   Name = Alpha élégans", "     at least one reference is required"}))
            << wanted;
    }
}

TEST_F(ErrorForm, FilterKeepsFindingsWithTheirHeadings) {
    const auto form = Load();
    form->txtFilter.UserSetText("CURRENCY");
    EXPECT_EQ(Shown(*form), (Texts{"ID =  2   Name = Alpha", "     <soon> is an invalid currency rating"}));
    EXPECT_EQ(form->lblCounts.Caption(), "1 finding: 1 currency wrong");
    form->txtFilter.UserSetText("alpha beta");
    EXPECT_EQ(Shown(*form),
              (Texts{"ID =  3   Name = Alpha beta", "     at least one reference is required"}));
    form->txtFilter.UserSetText("nothing of it");
    EXPECT_EQ(Shown(*form), Texts{});
    EXPECT_EQ(form->lblCounts.Caption(), "0 findings");
    form->txtFilter.UserSetText("");
    EXPECT_EQ(form->lstError.ListCount(), 7u);
}

TEST_F(ErrorForm, RuleOrItsCodeNarrowsTheFindings) {
    Unrefer(2);
    Validate();
    const auto form = Load();
    Texts rules;
    for (const auto& choice : form->cboRules.Choices()) rules.push_back(choice.text);
    EXPECT_EQ(rules, (Texts{"All rules", "T20 credibility missing (1)", "T25 currency wrong (1)",
                            "T35 reference missing (2)", "E03 expert missing (1)"}));
    const Texts references = {"ID =  2   Name = Alpha", "     at least one reference is required",
                              "ID =  3   Name = Alpha beta", "     at least one reference is required"};
    form->cboRules.UserChoose(3);
    EXPECT_EQ(Shown(*form), references);
    EXPECT_EQ(form->lblCounts.Caption(), "2 findings: 2 reference missing");
    form->txtFilter.UserSetText("beta");
    EXPECT_EQ(Shown(*form), (Texts{references[2], references[3]}));
    form->cboRules.UserChoose(0);
    form->txtFilter.UserSetText("t35");
    EXPECT_EQ(Shown(*form), references);
}

TEST_F(ErrorForm, SelectedFindingShowsItsRule) {
    const auto form = Load();
    form->lstError.UserSelect(1);
    EXPECT_EQ(form->lblRule.Caption(), "T20 (error): A taxon has a credibility rating.");
    form->lstError.UserSelect(0);
    EXPECT_EQ(form->lblRule.Caption(), "");
}

TEST_F(ErrorForm, ActivatedLineShowsItsTaxon) {
    const auto form = Load();
    for (const int line : {0, 2, 4}) form->lstError.UserActivate(line);
    EXPECT_EQ(visited, (Texts{"2 taxon", "2 taxon", "3 publications"}));
    form->txtFilter.UserSetText("reference");
    form->lstError.UserActivate(1);
    EXPECT_EQ(visited.back(), "3 publications");
}

TEST_F(ErrorForm, RecordOfAnotherDataSetShowsNothing) {
    const auto form = Load();
    set.state.gDataSetPath = set.dir.File("other.mdb");
    form->lstError.UserActivate(2);
    for (FindingMark& mark : marks) mark.id = 0;
    Load()->lstError.UserActivate(2);
    const std::string message = "This record is not in the DataSet that is open.";
    EXPECT_EQ(set.prompter.messages, (Texts{message, message}));
    EXPECT_EQ(visited, Texts{});
}

TEST_F(ErrorForm, DocumentShowsATaxonThatRefersToIt) {
    const auto form = Load();
    form->lstError.UserActivate(6);
    EXPECT_TRUE(visited.empty());
    EXPECT_EQ(set.prompter.messages, (Texts{"No taxon refers to this record."}));
    Refer(3, "EXP", 4);
    Refer(2, "EXP", 4);
    form->lstError.UserActivate(6);
    EXPECT_EQ(visited, (Texts{"2 experts"}));
}

TEST_F(ErrorForm, AuthorShowsItsFirstTaxon) {
    Run("UPDATE qb_taxon_authors_lookup SET kingdom_id = Null");
    Validate();
    const auto form = Load();
    form->lstError.UserActivate(6);
    EXPECT_EQ(form->lstError.Text(), "     a kingdom is required");
    EXPECT_EQ(visited, (Texts{"2 taxon"}));
}

TEST_F(ErrorForm, SaveMovesTheLogAndCompletesItsName) {
    const auto form = Load();
    const std::string log = testkit::ReadFile(set.dir.File("validate.log"));
    set.prompter.filesToSave.push_back(std::nullopt);
    form->cmdSave.UserClick();
    EXPECT_TRUE(std::filesystem::exists(set.dir.File("validate.log")));
    set.prompter.filesToSave.push_back(set.dir.File("mine"));
    form->cmdSave.UserClick();
    EXPECT_EQ(testkit::ReadFile(set.dir.File("mine.LOG")), log);
    EXPECT_FALSE(std::filesystem::exists(set.dir.File("validate.log")));
    EXPECT_EQ(set.prompter.fileTitles, (Texts{"Save Error Log As", "Save Error Log As"}));
    EXPECT_EQ(set.prompter.fileFilters[0], "Taxonomic Files (*.LOG)|*.log|All Files (*.*)|*.*");
}

TEST_F(ErrorForm, SaveAsksAgainWhereItCompletedTheName) {
    testkit::WriteFile(set.dir.File("mine.LOG"), "old");
    set.prompter.filesToSave = {set.dir.File("mine"), set.dir.File("mine")};
    set.prompter.yesNo = {false, true};
    const auto form = Load();
    form->cmdSave.UserClick();
    EXPECT_EQ(testkit::ReadFile(set.dir.File("mine.LOG")), "old");
    EXPECT_TRUE(std::filesystem::exists(set.dir.File("validate.log")));
    form->cmdSave.UserClick();
    EXPECT_NE(testkit::ReadFile(set.dir.File("mine.LOG")), "old");
    const std::string question = "File '" + set.dir.File("mine.LOG") + "' already exists.  Overwrite?";
    EXPECT_EQ(set.prompter.questions, (Texts{question, question}));
}

TEST_F(ErrorForm, ALongLogIsReadAndNarrowedWithTurns) {
    constexpr int lots = 10;
    std::string log;
    for (std::size_t i = 0; i < lots * LogLines::kLinesOfATurn; ++i) log += "     a finding\r\n";
    testkit::WriteFile(set.dir.File("validate.log"), log);
    testkit::TurnMeter meter(set.state);
    FrmVError form(set.state, set.prompter, meter, set.dir.path(), {}, [](int, std::string_view) {});
    EXPECT_GE(meter.turns, 3 * lots) << "while it is split, narrowed and shown";
    meter.turns = 0;
    form.txtFilter.UserSetText("nothing");
    EXPECT_GE(meter.turns, lots);
    EXPECT_EQ(form.lstError.ListCount(), 0u);
}

// By another name, too; and the log itself stays.
TEST_F(ErrorForm, SaveReplacesNeitherTheDataSetNorTheLogNorAPipe) {
    std::filesystem::create_hard_link(set.state.gDataSetPath, set.dir.File("linked.log"));
    const std::string log = testkit::ReadFile(set.dir.File("validate.log"));
    const auto form = Load();
    ASSERT_EQ(mkfifo(set.dir.File("pipe.log").c_str(), 0600), 0);
    const Texts paths = {set.state.gDataSetPath, set.dir.File("linked.log"), set.dir.File("validate.log"),
                         set.dir.File("pipe.log")};
    for (const std::string& path : paths) {
        set.prompter.filesToSave.push_back(path);
        form->cmdSave.UserClick();
    }
    EXPECT_EQ(
        set.prompter.messages,
        (Texts{"'" + paths[0] + "' is an open DataSet, and cannot be overwritten.",
               "'" + paths[1] + "' is an open DataSet, and cannot be overwritten.",
               "'" + paths[2] + "' is the log itself.", "'" + paths[3] + "' is not an ordinary file."}));
    EXPECT_EQ(testkit::ReadFile(set.dir.File("validate.log")), log);
    EXPECT_EQ(set.Dump("SELECT unit_name1 FROM qb_taxonomic_units WHERE qb_id = 3"), "Alpha\n");
}

TEST_F(ErrorForm, SaveKeepsANameWithAFullStop) {
    set.prompter.filesToSave.push_back(set.dir.File("mine.txt"));
    Load()->cmdSave.UserClick();
    EXPECT_TRUE(std::filesystem::exists(set.dir.File("mine.txt")));
}

TEST_F(ErrorForm, ClosingDeletesALogInTheCurrentDirectory) {
    const auto form = Load();
    int closed = 0;
    form->form.OnClosed([&] { ++closed; });
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(set.dir.path());
    form->cmdOK.UserClick();
    std::filesystem::current_path(before);
    EXPECT_FALSE(std::filesystem::exists(set.dir.File("validate.log")));
    EXPECT_EQ(closed, 1);
}

TEST_F(ErrorForm, IsEmptyWithoutALog) {
    std::filesystem::remove(set.dir.File("validate.log"));
    const auto form = Load();
    EXPECT_EQ(form->lstError.ListCount(), 0u);
    form->lstError.UserActivate(0);
    EXPECT_TRUE(visited.empty());
}

}  // namespace

}  // namespace quillon::validation
