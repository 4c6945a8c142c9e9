// Every stage of an import takes turns, with files of any size, and responds to Cancel at each.
#include <gmock/gmock.h>

#include <map>

#include "import_fixture.h"
#include "testkit/turn_meter.h"

namespace quillon::importing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr int kTaxa = 4000;
// A turn is due after ten thousand instructions of SQLite's machine, which is about a millisecond.
constexpr int kInstructions = 10'000;

// A Kingdom record, species below it, and for each a synonym link and a reference to one publication.
std::string ManyTaxa() {
    std::string text = std::string(TaxonLine{.tsn = "1", .unit_name1 = "Animalia", .rank_id = "10"}) + "\r\n";
    for (int i = 2; i < kTaxa; ++i) {
        const std::string tsn = std::to_string(i);
        text += std::string(TaxonLine{.tsn = tsn, .unit_name1 = "Name" + tsn, .parent_tsn = "1"}) + "\r\n";
        text += "[SY]||" + tsn + "|" + std::to_string(i + 1) + "|\r\n";
        text += "[RF]|PUB|7|" + tsn + "|||||||\r\n";
    }
    return text;
}

// Counts the turns of each stage, and cancels at the first turn of one.
class StagePump : public EventPump {
public:
    explicit StagePump(ApplicationState& state) : state_(state) {}
    void Yield() override {
        if (stage == cancelIn) state_.gBatchCancel = true;
        ++turns[stage];
    }

    std::string stage, cancelIn;
    std::map<std::string, int> turns;

private:
    ApplicationState& state_;
};

class ImportTurns : public ImportTest {
protected:
    ImportResult Run(StagePump& stages) {
        TaggedImport tagged(set.state, set.engine, set.prompter, stages, [](double) {});
        tagged.Stage = [&](std::string_view stage) { stages.stage = stage; };
        return tagged.Run(set.dir.File("in.qln"), set.dir.path());
    }
};

TEST_F(ImportTurns, OccurInEveryStageAndEachCanBeCanceled) {
    testkit::WriteFile(set.dir.File("in.qln"), ManyTaxa());
    StagePump whole(set.state);
    ASSERT_TRUE(Run(whole).completed);
    std::vector<std::string> stages;
    for (const auto& [stage, turns] : whole.turns) stages.push_back(stage);
    EXPECT_THAT(stages, ElementsAre("Building indexes", "Checking the DataSet", "Copying the DataSet",
                                    "Reading the file", "Removing what has no record",
                                    "Resolving parents and authors", "Resolving synonyms"));
    EXPECT_GT(whole.turns["Building indexes"], 10);
    EXPECT_GE(whole.turns["Resolving parents and authors"], kTaxa);
    EXPECT_GE(whole.turns["Resolving synonyms"], kTaxa - 2);
    const std::string names = "SELECT count(*) FROM qb_taxonomic_units";
    const std::string before = Dump(names);
    for (const std::string& stage : stages) {
        StagePump canceling(set.state);
        canceling.cancelIn = stage;
        const ImportResult result = Run(canceling);
        EXPECT_TRUE(result.canceled) << stage;
        EXPECT_EQ(Dump(names), before) << stage;
        set.state.gBatchCancel = false;
        // The check runs in a thread of its own, which is waited for.
        if (stage != "Checking the DataSet") {
            EXPECT_EQ(canceling.turns[stage], 1) << stage;
        }
    }
    EXPECT_THAT(set.prompter.messages, IsEmpty());
}

TEST_F(ImportTurns, AreNoFurtherApartWhenALinkNamesOneOfManyVernaculars) {
    std::string text = std::string(TaxonLine{.tsn = "100"}) + "\r\n";
    for (int i = 1; i < kTaxa; ++i) {
        const std::string id = std::to_string(i);
        text += "[VR]100|" + id + "|" + id + "|Whale" + id + "||English|Yes|\r\n";
        text += "[RF]100|PUB|7|||||||Shark" + id + "|\r\n";
    }
    testkit::TurnMeter meter(set.state);
    meter.Watch();
    MemorySource source(text);
    TaggedImport tagged(set.state, set.engine, set.prompter, meter, [](double) {});
    int refused = 0;
    tagged.ReadTaggedFile(source, [&](const Finding&) { ++refused; });
    EXPECT_EQ(refused, kTaxa);
    EXPECT_LT(meter.Longest(), kInstructions);
}

TEST(SortWithTurns, SortsAndHearsCancelWithinTheSort) {
    ApplicationState state;
    testkit::TurnMeter meter(state);
    Turns turns(state, meter);
    std::vector<int> values;
    for (int i = 0; i < 20'000; ++i) values.push_back(i * 7919 % 20'011);
    std::vector<int> sorted = values;
    SortWithTurns(sorted, turns, std::less<>());
    EXPECT_TRUE(std::is_sorted(sorted.begin(), sorted.end()));
    EXPECT_GT(meter.turns, 100);
    meter.cancelAt = meter.turns + 2;
    EXPECT_THROW(SortWithTurns(values, turns, std::less<>()), ImportCanceled);
}

}  // namespace
}  // namespace quillon::importing
