#include "navigation/taxon_list.h"

#include "core/text.h"
#include "navigation/taxa_fixture.h"
#include "testkit/turn_meter.h"

namespace quillon::navigation {
namespace {

using std::chrono::microseconds;

// The shortest slice: as many turns as there can be.
TEST_F(TaxaFixture, TheWholeListIsLoadedWithTurns) {
    {
        const store::Job job(data.engine);
        for (int id = 2; id <= 3000; ++id) Add({.qb_id = id, .name1 = fmt::format("Genus{:04}", id)});
    }
    testkit::TurnMeter meter(data.state);
    meter.Watch();
    TaxonList list;
    list.Open(data.state.gDatabase, TaxonList::kMarkedQuery);
    list.LoadAll(meter, microseconds(0));
    EXPECT_EQ(list.RowCount(), 3000u);
    EXPECT_GE(meter.turns, 10);
    EXPECT_LT(meter.Longest(), store::NativeTurns::kInstructions);
}

class List : public TaxaFixture {
protected:
    TaxonList& Open(std::string_view query) {
        list.Open(data.state.gDatabase, query);
        list.LoadAll();
        return list;
    }
    std::string Lines() {
        std::string text;
        for (std::size_t row = 0; row < list.RowCount(); ++row) text += list.Line(row) + "\n";
        return text;
    }
    std::string LinesOfQuery(std::string_view query) {
        std::string text;
        for (const auto rows = data.db().OpenRecordset(query); !rows->Eof(); rows->MoveNext()) {
            text += rows->Get("line").AsText() + "\n";
        }
        return text;
    }
    void AddGenera(int last) {
        data.engine.BeginTrans();
        for (int id = 2; id <= last; ++id) Add({.qb_id = id, .name1 = fmt::format("Genus{:04}", id)});
        data.engine.CommitTrans();
    }
    // What the rule says: the first line of the query from `from` on that is like the typed text.
    std::size_t FindByWalking(std::string_view typed, std::size_t from) {
        for (std::size_t row = from; row < list.RowCount(); ++row) {
            if (LikeText(list.Line(row), std::string(typed) + "*")) return row;
        }
        return TaxonList::kNone;
    }
    // The row that the list finds from a row on.
    std::size_t Find(std::string_view typed, std::size_t from) {
        const auto found = list.FindFrom(typed, list.IdAt(from));
        return found ? list.RowOf(*found) : TaxonList::kNone;
    }
    void ExpectFindsAsWalking(const std::vector<std::string>& typedTexts) {
        for (const std::string& typed : typedTexts) {
            const std::size_t first = FindByWalking(typed, 0);
            const auto found = list.Find(typed);
            EXPECT_EQ(found ? list.RowOf(*found) : TaxonList::kNone, first) << '"' << typed << '"';
            for (std::size_t from = 0; from < list.RowCount(); ++from) {
                EXPECT_EQ(Find(typed, from), FindByWalking(typed, from))
                    << '"' << typed << "\" from " << from;
                const auto before = list.FindBefore(typed, list.IdAt(from));
                EXPECT_EQ(before ? list.RowOf(*before) : TaxonList::kNone,
                          first < from ? first : TaxonList::kNone)
                    << '"' << typed << "\" before " << from;
            }
        }
    }

    TaxonList list;
};

TEST_F(List, ShowsTheRowsOfTheAnimalQueryInItsOrder) {
    AddAuthor(1, "Linnaeus, 1758");
    AddAuthor(2, "Gray, 1846");
    Add({.qb_id = 5, .name1 = "Orca", .name2 = "beta", .author = 1});
    Add({.qb_id = 4, .name1 = "orca", .name2 = "alpha", .name3 = "minor", .ind3 = "ssp."});
    Add({.qb_id = 3, .name1 = "Orca", .author = 1});
    Add({.qb_id = 2, .name1 = "Orca", .usage = "invalid", .author = 2});
    Open("Get Animal Data");
    EXPECT_EQ(Lines(),
              "Animalia (valid)\n"
              "Orca Gray, 1846 (invalid)\n"
              "Orca Linnaeus, 1758 (valid)\n"
              "orca alpha minor (valid)\n"
              "Orca beta Linnaeus, 1758 (valid)\n");
    EXPECT_EQ(list.IdAt(1), 2);
    EXPECT_EQ(list.RowOf(5), 4u);
    EXPECT_EQ(list.RowOf(77), TaxonList::kNone);
    EXPECT_EQ(Lines(), LinesOfQuery("Get Animal Data"));
}

TEST_F(List, ShowsTheRowsOfThePlantQuery) {
    Add({.qb_id = 2,
         .name1 = "Quercus",
         .name2 = "alba",
         .name3 = "minor",
         .usage = "accepted",
         .ind3 = "var."});
    Add({.qb_id = 3, .name1 = "Mentha", .name2 = "piperita", .usage = "accepted", .ind1 = "X"});
    Open("Get Data");
    EXPECT_EQ(Lines(),
              "Animalia (valid)\n"
              "X Mentha piperita (accepted)\n"
              "Quercus alba var. minor (accepted)\n");
    EXPECT_EQ(Lines(), LinesOfQuery("Get Data"));
}

// Writes down what it is notified of.
class Listener : public ListObserver {
public:
    explicit Listener(TaxonList& list) : list_(list) { list_.SetObserver(this); }
    ~Listener() override { list_.SetObserver(nullptr); }
    std::string log;
    int added = 0;
    void BeforeReset() override { log += "reset;"; }
    void AfterReset() override { log += "done;"; }
    void RowsAdded() override { ++added; }
    void BeforeInsert(std::size_t row) override { log += fmt::format("insert {};", row); }
    void AfterInsert() override { log += "inserted;"; }
    void BeforeRemove(std::size_t row) override { log += fmt::format("remove {};", row); }
    void AfterRemove() override { log += "removed;"; }
    void LinesChanged() override { log += "lines;"; }

private:
    TaxonList& list_;
};

TEST_F(List, LoadsInSlices) {
    AddGenera(999);
    Listener listener(list);
    list.Open(data.state.gDatabase, "Get Animal Data");
    EXPECT_EQ(listener.log, "reset;done;");
    EXPECT_EQ(list.RowCount(), 0u);
    EXPECT_FALSE(list.Load(microseconds(0)));
    EXPECT_GT(list.RowCount(), 0u);
    EXPECT_LT(list.RowCount(), 999u);
    EXPECT_EQ(list.Line(0), "Animalia (valid)");
    while (!list.Load(microseconds(0))) continue;
    EXPECT_EQ(list.RowCount(), 999u);
    EXPECT_TRUE(list.IsComplete());
    EXPECT_GT(listener.added, 2);
    EXPECT_EQ(listener.log, "reset;done;");
}

TEST_F(List, SlicesGiveTheRowsOfTheQuery) {
    AddAuthor(1, "Gray, 1846");
    data.engine.BeginTrans();
    for (int id = 2; id <= 900; ++id) {
        const int genus = id * 7 % 5;
        Add({.qb_id = id,
             .name1 = genus == 0 ? "" : fmt::format("Genus{}", genus),
             .name2 = id % 3 == 0 ? "" : fmt::format("s{}", id * 31 % 97),
             .author = id % 2});
    }
    data.engine.CommitTrans();
    list.Open(data.state.gDatabase, "Get Animal Data");
    while (!list.Load(microseconds(0))) continue;
    EXPECT_EQ(Lines(), LinesOfQuery("Get Animal Data"));
}

TEST_F(List, FindsWhatIsNotLoadedYetAndShowsItsSurroundings) {
    AddGenera(1999);
    list.Open(data.state.gDatabase, "Get Animal Data");
    list.Load(microseconds(0));
    ASSERT_FALSE(list.IsComplete());
    EXPECT_EQ(list.Find("Genus1500"), 1500);
    EXPECT_EQ(list.RowOf(1500), TaxonList::kNone);
    Listener listener(list);
    list.ShowAround(1500);
    EXPECT_EQ(listener.log, "reset;done;");
    ASSERT_EQ(list.RowCount(), 400u);
    EXPECT_EQ(list.IdAt(0), 1300);
    EXPECT_EQ(list.RowOf(1500), 200u);
    EXPECT_EQ(list.IdAt(399), 1699);
    list.Load(microseconds(0));
    EXPECT_EQ(list.RowCount(), 400u) << "what is on show stays until all rows are there";
    list.LoadAll();
    EXPECT_EQ(listener.log, "reset;done;reset;done;");
    EXPECT_EQ(list.RowCount(), 1999u);
    EXPECT_EQ(list.RowOf(1500), 1499u);
    list.ShowAround(1500);
    EXPECT_EQ(list.RowCount(), 1999u);
}

TEST_F(List, ShowsTheSurroundingsOfTheEnds) {
    AddGenera(1999);
    list.Open(data.state.gDatabase, "Get Animal Data");
    list.ShowAround(1999);
    EXPECT_EQ(list.IdAt(list.RowCount() - 1), 1999);
    EXPECT_EQ(list.RowCount(), 201u);
    list.ShowAround(1);
    EXPECT_EQ(list.IdAt(0), 1);
    EXPECT_EQ(list.RowCount(), 200u);
    list.ShowAround(5000);
    EXPECT_EQ(list.IdAt(0), 1);
}

TEST_F(List, StepsFromRowToRow) {
    AddGenera(1999);
    list.Open(data.state.gDatabase, "Get Animal Data");
    EXPECT_EQ(list.FirstId(), 1);
    EXPECT_EQ(list.LastId(), 1999);
    EXPECT_EQ(list.NextId(1000), 1001);
    EXPECT_EQ(list.PreviousId(1000), 999);
    EXPECT_FALSE(list.IsComplete());
    EXPECT_EQ(list.NextId(1999), 0);
    EXPECT_EQ(list.PreviousId(1), 0);
    EXPECT_TRUE(list.IsComplete());
    EXPECT_EQ(list.NextId(1), 2);
    EXPECT_EQ(list.PreviousId(1999), 1998);
    EXPECT_EQ(list.LastId(), 1999);
    EXPECT_EQ(list.NextId(5000), 0);
}

TEST_F(List, PutsAWrittenTaxonInItsPlace) {
    for (int id = 2; id < 6; ++id) Add({.qb_id = id, .name1 = fmt::format("Genus{}", id)});
    Open("Get Animal Data");
    EXPECT_EQ(list.Line(2), "Genus3 (valid)");
    Listener listener(list);
    data.db().Execute("UPDATE qb_taxonomic_units SET unit_name1 = 'Hylas' WHERE qb_id = 3");
    list.Update(3);
    EXPECT_EQ(listener.log, "remove 2;removed;insert 4;inserted;");
    Add({.qb_id = 9, .name1 = "Genus4", .name2 = "minor"});
    list.Update(9);
    data.db().Execute("DELETE * FROM qb_taxonomic_units WHERE qb_id = 5");
    list.Update(5);
    list.Update(77);
    EXPECT_EQ(Lines(), LinesOfQuery("Get Animal Data"));
    EXPECT_EQ(Lines(),
              "Animalia (valid)\n"
              "Genus2 (valid)\n"
              "Genus4 (valid)\n"
              "Genus4 minor (valid)\n"
              "Hylas (valid)\n");
}

TEST_F(List, AWrittenTaxonBeginsAListAgainThatIsStillRead) {
    AddGenera(999);
    list.Open(data.state.gDatabase, "Get Animal Data");
    list.Load(microseconds(0));
    data.db().Execute("UPDATE qb_taxonomic_units SET unit_name1 = 'Zea' WHERE qb_id = 2");
    list.Update(2);
    list.LoadAll();
    EXPECT_EQ(list.RowCount(), 999u);
    EXPECT_EQ(list.RowOf(2), 998u);
}

TEST_F(List, ReadsLinesAgainWhenAsked) {
    Add({.qb_id = 2, .name1 = "Orca"});
    Open("Get Animal Data");
    EXPECT_EQ(list.Line(1), "Orca (valid)");
    data.db().Execute("UPDATE qb_taxonomic_units SET usage = 'invalid' WHERE qb_id = 2");
    EXPECT_EQ(list.Line(1), "Orca (valid)");
    Listener listener(list);
    list.ForgetLines();
    EXPECT_EQ(listener.log, "lines;");
    EXPECT_EQ(list.Line(1), "Orca (invalid)");
}

TEST_F(List, FindsTheFirstRowThatBeginsAsTyped) {
    Add({.qb_id = 2, .name1 = "Alucita", .name2 = "hexadactyla"});
    Add({.qb_id = 3, .name1 = "Alucita"});
    Add({.qb_id = 4, .name1 = "Agdistis", .name2 = "adactyla"});
    Add({.qb_id = 5, .name1 = "Alucitana"});
    Add({.qb_id = 6, .name1 = "alucita", .name2 = "montana"});
    Open("Get Animal Data");
    EXPECT_EQ(list.Line(Find("a", 0)), "Agdistis adactyla (valid)");
    EXPECT_EQ(list.Line(Find("AL", 0)), "Alucita (valid)");
    EXPECT_EQ(list.Line(Find("alucita h", 0)), "Alucita hexadactyla (valid)");
    EXPECT_EQ(list.Line(Find("alucita m", 0)), "alucita montana (valid)");
    EXPECT_EQ(list.Line(Find("alucitan", 0)), "Alucitana (valid)");
    EXPECT_EQ(Find("alucita x", 0), TaxonList::kNone);
    EXPECT_EQ(Find("ag", list.RowOf(3)), TaxonList::kNone);
    EXPECT_EQ(Find("", 2), 2u);
}

TEST_F(List, FindsTheSameRowsAsWalkingDoes) {
    AddAuthor(1, "Linnaeus, 1758");
    int id = 1;
    for (const char* name :
         {"Alca", "Alça", "Alca torda", "Alc\xC3\xA1n", "ALCA", "Alcb", "Al ca", "alca  ", "Ålca", "Zoe",
          "Zo\xC3\xAB", "(Alca)", "9alca", "X Alca", "Al", " Alca", "Straße"}) {
        Add({.qb_id = ++id, .name1 = name});
        Add({.qb_id = ++id, .name1 = name, .name2 = "torda", .author = 1});
        Add({.qb_id = ++id,
             .name1 = name,
             .name2 = "(Torda)",
             .name3 = "X",
             .usage = "invalid",
             .ind3 = "X"});
    }
    Add({.qb_id = ++id, .name1 = "", .name2 = "torda"});
    Open("Get Animal Data");
    ExpectFindsAsWalking(
        {"alca   t", "a",      "al",  "alc", "alca", "alca ",  "alca t", "alca torda", "alca torda t",
         "alça",     "Á",      "å",   "z",   "zo",   "zoë",    "zoe t",  "(",          "(alca) ",
         "9",        "x",      "x a", "t",   "to",   " ",      "straß",  "strass",     "Alca L",
         "Alca (v",  "q",      "",    "a*t", "?l",   "*torda", "[ab]",   "[",          "#a",
         "alca  t",  "alca?t", "#",   "[z",  "[á]",  "[à-ç]",  "[(]",    "[!a]",       "[!a-x]o",
         "[x]",      "[ ]",    "[]a", "al[", "[é]",  "[s-z]t"});
}

TEST_F(List, FindsMarkedNamesOfPlants) {
    int id = 1;
    for (const char* name : {"Abelia", "Mentha", "Xylia", "Zea", " Odd"}) {
        Add({.qb_id = ++id, .name1 = name, .usage = "accepted"});
        Add({.qb_id = ++id, .name1 = name, .usage = "accepted", .ind1 = "X"});
        Add({.qb_id = ++id, .name1 = name, .name2 = "alba", .usage = "accepted", .ind1 = "X"});
        Add({.qb_id = ++id, .name1 = name, .name2 = "alba", .usage = "accepted", .ind1 = "+"});
    }
    Open("Get Data");
    EXPECT_EQ(list.Line(Find("x m", 0)), "X Mentha (accepted)");
    ExpectFindsAsWalking({"x",          "x ",  "x m", "X mentha a", "xy", "x x",   "+",    "+ z",
                          "+ zea alba", "m",   "a",   "x*a",        "",   "o",     "x  o", "x o",
                          "[x] m",      "[x]", "[+]", "[!x]",       "#",  "[xz]e", "[o]"});
}

TEST_F(List, FindsMarkedSpeciesOfALargeGenus) {
    data.engine.BeginTrans();
    for (int id = 2; id < 300; ++id) Add({.qb_id = id, .name1 = "Salix", .name2 = fmt::format("s{:03}", id)});
    data.db().Execute("UPDATE qb_taxonomic_units SET unit_ind2 = 'X' WHERE qb_id In (50, 280)");
    data.engine.CommitTrans();
    Open("Get Data");
    for (const char* typed : {"salix x", "salix s2", "salix s299", "salix q"}) {
        for (const std::size_t from : {0u, 48u, 49u, 50u, 150u, 278u, 279u, 290u}) {
            EXPECT_EQ(Find(typed, from), FindByWalking(typed, from)) << typed << " from " << from;
        }
    }
}

TEST_F(List, ALineOfADeletedTaxonIsEmptyAndTheSearchContinues) {
    for (int id = 2; id < 12; ++id) Add({.qb_id = id, .name1 = fmt::format("Genus{:02}", id)});
    Open("Get Animal Data");
    data.db().Execute("DELETE * FROM qb_taxonomic_units WHERE qb_id In (4, 5, 6)");
    EXPECT_EQ(list.Line(list.RowOf(5)), "");
    EXPECT_EQ(list.Find("Genus07"), 7);
    EXPECT_EQ(list.FindFrom("Genus", 5), 7) << "from the next row that is there";
    EXPECT_EQ(list.Find("Genus05"), std::nullopt);
}

TEST_F(List, KeepsItsRowsWhenTheDataSetIsReopened) {
    Add({.qb_id = 2, .name1 = "Orca"});
    Open("Get Animal Data");
    const std::string path = data.state.gDataSetPath;
    ASSERT_EQ(data.lifecycle.OpenDataSetFile(path), path);
    list.Reattach(data.state.gDatabase);
    EXPECT_EQ(list.Line(1), "Orca (valid)");
    EXPECT_EQ(list.Find("o"), 2);
}

TEST_F(List, IsEmptyWithoutADataSet) {
    Open("Get Animal Data");
    list.Close();
    EXPECT_EQ(list.RowCount(), 0u);
    EXPECT_TRUE(list.Load(microseconds(0)));
    EXPECT_EQ(list.Find("a"), std::nullopt);
    EXPECT_EQ(list.FirstId(), 0);
    EXPECT_EQ(list.LastId(), 0);
    EXPECT_EQ(list.NextId(1), 0);
}

TEST_F(List, KeepsWhatItHasWhenTheDataSetCloses) {
    AddGenera(599);
    list.Open(data.state.gDatabase, "Get Animal Data");
    list.Load(microseconds(0));
    const std::size_t rows = list.RowCount();
    data.lifecycle.CloseDataSet();
    EXPECT_TRUE(list.Load(microseconds(0)));
    EXPECT_EQ(list.RowCount(), rows);
    EXPECT_EQ(list.Line(0), "");
    EXPECT_EQ(list.Find("Genus"), std::nullopt);
    EXPECT_EQ(list.FindFrom("Genus", 1), std::nullopt);
    EXPECT_EQ(list.FindBefore("Genus", 9), std::nullopt);
}

}  // namespace
}  // namespace quillon::navigation
