// The queries that walk the names of a rank in alphabetic order, and those that find the taxon by its names.
#include <gtest/gtest.h>

#include "query_fixture.h"

namespace quillon::store {
namespace {

// At rank 10 alpha, Beta, Écho, Gamma and one without a name; at rank 20 others, to be passed over.
class WalkQueries : public QueryTest {
protected:
    WalkQueries() {
        for (const char* name : {"Beta", "Gamma", "", "Écho", "alpha"})
            AddTaxon({.qb_id = ++id, .name1 = name, .rank = 10});
        AddTaxon({.qb_id = ++id, .name1 = "Aaa", .rank = 20});
        AddTaxon({.qb_id = ++id, .name1 = "Zzz"});
        // Species 220, subspecies 230 and varieties 240 under Canis; Vulpes to be passed over.
        for (const char* name : {"lupus", "Aureus", "", "niger"})
            AddTaxon({.qb_id = ++id, .name1 = "Canis", .name2 = name, .rank = 220});
        AddTaxon({.qb_id = ++id, .name1 = "Vulpes", .name2 = "zz", .rank = 220});
        AddTaxon({.qb_id = ++id, .name1 = "Canis", .name2 = "zz", .rank = 230});
        for (const char* name : {"minor", "", "Ater", "rex"})
            AddTaxon({.qb_id = ++id, .name1 = "Canis", .name2 = "lupus", .name3 = name, .rank = 230});
        AddTaxon({.qb_id = ++id, .name1 = "Canis", .name2 = "niger", .name3 = "zz", .rank = 230});
        for (const char* name : {"x", "b", "", "M"})
            AddTaxon({.qb_id = ++id,
                      .name1 = "Canis",
                      .name2 = "lupus",
                      .name3 = "rex",
                      .name4 = name,
                      .rank = 240});
        AddTaxon(
            {.qb_id = ++id, .name1 = "Canis", .name2 = "lupus", .name3 = "ater", .name4 = "zz", .rank = 240});
    }
    int id = 0;
};

TEST_F(WalkQueries, FirstAndLast) {
    EXPECT_EQ(Rows("Get First Equal", {{"rank", 10}}), "alpha\n");
    EXPECT_EQ(Rows("Get Last Equal", {{"rank", 10}}), "Gamma\n");
    EXPECT_EQ(Rows("Get First Species", {{"name1", "canis"}, {"rank", 220}}), "Aureus\n");
    EXPECT_EQ(Rows("Get Last Species", {{"name1", "canis"}, {"rank", 220}}), "niger\n");
    EXPECT_EQ(Rows("Get First SubSpecies", {{"name1", "Canis"}, {"name2", "LUPUS"}, {"rank", 230}}),
              "Ater\n");
    EXPECT_EQ(Rows("Get Last SubSpecies", {{"name1", "Canis"}, {"name2", "LUPUS"}, {"rank", 230}}), "rex\n");
    const Parameters rex = {{"name1", "Canis"}, {"name2", "lupus"}, {"name3", "Rex"}, {"rank", 240}};
    EXPECT_EQ(Rows("Get First Variety", rex), "b\n");
    EXPECT_EQ(Rows("Get Last Variety", rex), "x\n");
}

TEST_F(WalkQueries, NextAndPreviousGoByTheOrderOfNames) {
    const auto next = [&](const Value& name) {
        return Rows("Get Next Equal", {{"name", name}, {"rank", 10}});
    };
    const auto previous = [&](const Value& name) {
        return Rows("Get Previous Equal", {{"name", name}, {"rank", 10}});
    };
    EXPECT_EQ(next("ALPHA") + next("beta ") + next("Echo") + next("écho"), "Beta\nÉcho\nÉcho\nGamma\n");
    EXPECT_EQ(previous("gamma") + previous("Écho") + previous("Echo") + previous("Beta"),
              "Écho\nBeta\nBeta\nalpha\n");
    EXPECT_EQ(next("Gamma") + previous("alpha") + next(Value()) + previous(Value()), "\\N\n\\N\n\\N\n\\N\n");
}

TEST_F(WalkQueries, NextAndPreviousSpecies) {
    const auto walk = [&](const char* query, const Value& name) {
        return Rows(query, {{"name1", "Canis"}, {"name2", name}, {"rank", 220}});
    };
    EXPECT_EQ(walk("Get Next Species", "aureus") + walk("Get Next Species", "lupus"), "lupus\nniger\n");
    EXPECT_EQ(walk("Get Previous Species", "niger") + walk("Get Previous Species", "LUPUS"),
              "lupus\nAureus\n");
    EXPECT_EQ(walk("Get Next Species", "niger") + walk("Get Previous Species", "Aureus"), "\\N\n\\N\n");
    EXPECT_EQ(Rows("Get Next Species", {{"name1", "Canis"}, {"name2", "lupus"}, {"rank", 220}}), "niger\n");
    EXPECT_EQ(Rows("Get Previous Species", {{"name1", "Canis"}, {"name2", "m"}, {"rank", 220}}), "lupus\n");
}

TEST_F(WalkQueries, NextAndPreviousSubspecies) {
    const auto at = [&](const Value& name) {
        return Parameters{{"name1", "Canis"}, {"name2", "lupus"}, {"name3", name}, {"rank", 230}};
    };
    EXPECT_EQ(Rows("Get Next SubSpecies", at("ater")) + Rows("Get Next SubSpecies", at("rex")),
              "minor\n\\N\n");
    EXPECT_EQ(Rows("Get Previous SubSpecies", at("rex")) + Rows("Get Previous SubSpecies", at("ATER")),
              "minor\n\\N\n");
}

TEST_F(WalkQueries, NextAndPreviousVariety) {
    const auto at = [&](const Value& name) {
        return Parameters{
            {"name1", "Canis"}, {"name2", "lupus"}, {"name3", "rex"}, {"name4", name}, {"rank", 240}};
    };
    EXPECT_EQ(Rows("Get Next Variety", at("b")) + Rows("Get Next Variety", at("x")), "M\n\\N\n");
    EXPECT_EQ(Rows("Get Previous Variety", at("x")) + Rows("Get Previous Variety", at("m")), "M\nb\n");
    EXPECT_EQ(Rows("Get Previous Variety", at(Value())), "\\N\n");
}

TEST_F(WalkQueries, AHigherUnitThatIsNullFindsNothing) {
    EXPECT_EQ(Rows("Get First Species", {{"name1", Value()}, {"rank", 220}}), "\\N\n");
    EXPECT_EQ(Rows("Get First Equal", {{"rank", Value()}}), "\\N\n");
    EXPECT_EQ(Rows("Get First Equal", {{"rank", 99}}), "\\N\n");
}

TEST_F(WalkQueries, TheResultIsReadAsEXPR1000) {
    const auto rows = db().OpenQueryDef("Get First Equal").Set("rank", 10).CreateSnapshot();
    EXPECT_EQ(rows->Get("EXPR1000"), Value("alpha"));
    EXPECT_EQ(rows->RecordCount(), 1U);
}

// Ids in the order of the constructor: 1 Beta, 2 Gamma, 3 none, 4 Écho, 5 alpha, 6 Aaa, 7 Zzz, 8 to 11
// species, 12 Vulpes, 13 zz, 14 to 17 subspecies, 18 niger zz, 19 to 22 varieties, 23 ater zz.
TEST_F(WalkQueries, ATaxonIsFoundByItsNames) {
    EXPECT_EQ(Rows("Get ID", {{"name", "BETA"}, {"rank", 10}}), "1\n");
    EXPECT_EQ(Rows("Get ID", {{"name", "Beta"}, {"rank", 20}}), "");
    EXPECT_EQ(Rows("Get ID", {{"name", Value()}, {"rank", 10}}), "");
    EXPECT_EQ(Rows("Get ID2", {{"name1", "Canis"}, {"name2", "aureus"}, {"rank", 220}}), "9\n");
    EXPECT_EQ(Rows("Get ID2", {{"name1", "Canis"}, {"name2", Value()}, {"rank", 220}}), "");
    EXPECT_EQ(Rows("Get ID3", {{"name1", "Canis"}, {"name2", "lupus"}, {"name3", "ater"}, {"rank", 230}}),
              "16\n");
    EXPECT_EQ(Rows("Get ID4",
                   {{"name1", "Canis"}, {"name2", "lupus"}, {"name3", "rex"}, {"name4", "m"}, {"rank", 240}}),
              "22\n");
    EXPECT_EQ(Rows("Get ID4",
                   {{"name1", "Canis"}, {"name2", "lupus"}, {"name3", "rex"}, {"name4", "m"}, {"rank", 230}}),
              "");
}

}  // namespace
}  // namespace quillon::store
