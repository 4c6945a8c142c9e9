#include "navigation/bio_list.h"

#include "navigation/taxa_fixture.h"

namespace quillon::navigation {
namespace {

class BioList : public TaxaFixture {
protected:
    cBioList At(int id) {
        cBioList item(source);
        item.SetDbname(data.state.gDataSetPath);
        item.SetQbId(id);
        return item;
    }
    // One line an item: qb_id, text, usage, rank, tsn, IsSyn, accepted, children, descendants.
    static std::string Describe(const cBioList& item) {
        return fmt::format("{}|{}|{}|{}|{}|{}|{}|{}|{}\n", item.qb_id(), item.Sciname(), item.usage(),
                           item.rank(), item.tsn(), item.IsSyn(), item.accepted(), item.NumChildren(),
                           item.NumDescendants());
    }
    static std::string Describe(const cBioList::Collection& items) {
        std::string text;
        for (const auto& item : items) text += Describe(*item);
        return text;
    }
};

TEST_F(BioList, SettingDbnameGivesTheRoot) {
    Add({.qb_id = 2, .parent = 1, .rank = 30, .name1 = "Chordata"});
    cBioList root(source);
    root.SetDbname(data.state.gDataSetPath);
    EXPECT_EQ(Describe(root), "1|Animalia|valid|10|202423|false|0|1|1\n");
}

TEST_F(BioList, OfTwoUsableRowsOfTheLowestRankTheFirstIsTheRoot) {
    Add({.qb_id = 7, .parent = 7, .rank = 10, .name1 = "Another", .tsn = 5});
    Add({.qb_id = 8, .rank = 10, .name1 = "Rejected", .usage = "invalid"});
    cBioList root(source);
    root.SetDbname(data.state.gDataSetPath);
    EXPECT_EQ(root.qb_id(), 1);
    EXPECT_EQ(data.Dump("SELECT count(*) FROM qb_taxonomic_units WHERE rank_id = 10"), "3\n");
}

TEST_F(BioList, TheRootIsAnAcceptedOneOfTheLowestRank) {
    data.db().Execute("UPDATE qb_taxonomic_units SET usage = 'invalid'");
    Add({.qb_id = 9, .rank = 10, .name1 = "Second", .usage = "accepted"});
    cBioList root(source);
    root.SetDbname(data.state.gDataSetPath);
    EXPECT_EQ(root.qb_id(), 9);
}

TEST_F(BioList, TheRootIsBlankWithoutAUsableRowOfTheLowestRank) {
    data.db().Execute("UPDATE qb_taxonomic_units SET usage = 'invalid'");
    cBioList root(source);
    root.SetDbname(data.state.gDataSetPath);
    EXPECT_EQ(Describe(root), "0| ||0|0|false|0|0|0\n");
}

TEST_F(BioList, ADataSetWithoutTaxaGivesAnEmptyRoot) {
    data.db().Execute("DELETE * FROM qb_taxonomic_units");
    cBioList root(source);
    root.SetDbname(data.state.gDataSetPath);
    EXPECT_EQ(Describe(root), "0|||0|0|false|0|0|0\n");
}

TEST_F(BioList, NoOrUnreadablePathGivesNothing) {
    cBioList item(source);
    item.SetDbname("");
    item.SetQbId(1);
    EXPECT_EQ(Describe(item), "0|||0|0|false|0|0|0\n");
    EXPECT_TRUE(item.Children().empty());
    item.SetDbname(data.dir.File("missing.mdb"));
    item.SetQbId(1);
    item.GetOneRecord(1);
    EXPECT_EQ(Describe(item), "0|||0|0|false|0|0|0\n");
    EXPECT_EQ(item.dbname(), data.dir.File("missing.mdb"));
}

TEST_F(BioList, ReadsAFileOtherThanTheOpenDataSet) {
    const std::string first = data.state.gDataSetPath;
    Add({.qb_id = 2, .parent = 1, .rank = 30, .name1 = "Chordata"});
    data.Make("Animalia", "second.mdb");
    ASSERT_NE(data.state.gDataSetPath, first);
    cBioList root(source);
    root.SetDbname(first);
    EXPECT_EQ(root.NumChildren(), 1);
    const auto children = root.Children();
    ASSERT_EQ(children.size(), 1u);
    EXPECT_EQ(children[0]->Sciname(), "Chordata");
    EXPECT_EQ(children[0]->dbname(), first);
}

TEST_F(BioList, TheRootIsNotItsOwnChild) {
    Add({.qb_id = 2, .parent = 1, .rank = 30, .name1 = "Chordata"});
    const auto children = At(1).Children();
    ASSERT_EQ(children.size(), 1u);
    EXPECT_EQ(children[0]->qb_id(), 2);
}

TEST_F(BioList, CountsChildrenAndSynonymsTogether) {
    Add({.qb_id = 2, .parent = 1, .rank = 180, .name1 = "Orca"});
    Add({.qb_id = 3, .parent = 2, .name1 = "Orca", .name2 = "alpha"});
    Add({.qb_id = 4, .rank = 180, .name1 = "Gladiator", .usage = "invalid"});
    Link(4, 2);
    const cBioList item = At(2);
    EXPECT_EQ(item.NumChildren(), 2);
    EXPECT_EQ(item.NumDescendants(), 2);
}

TEST_F(BioList, ChildrenAreOrderedByRankSequenceAndNameBeforeSynonyms) {
    AddAuthor(1, "Gray, 1846");
    Add({.qb_id = 2, .parent = 1, .rank = 140, .name1 = "Delphinidae"});
    Add({.qb_id = 3, .parent = 2, .rank = 180, .name1 = "Tursiops", .tsn = 33});
    Add({.qb_id = 4, .parent = 2, .rank = 180, .name1 = "orcinus", .sequence = 1});
    Add({.qb_id = 5, .parent = 2, .rank = 180, .name1 = "Delphinus", .author = 1, .sequence = 1});
    Add({.qb_id = 6, .parent = 2, .rank = 150, .name1 = "Zetinae"});
    Add({.qb_id = 7, .name1 = "Zebra", .usage = "invalid"});
    Add({.qb_id = 8, .rank = 140, .name1 = "Aquadae", .usage = "not accepted", .author = 1});
    Add({.qb_id = 9, .parent = 5, .name1 = "Delphinus", .name2 = "delphis"});
    Add({.qb_id = 10, .parent = 8, .name1 = "Aqua"});
    Link(7, 2);
    Link(8, 2);
    Link(7, 5);
    EXPECT_EQ(Describe(At(2).Children()),
              "6|Zetinae|valid|150|0|false|0|0|0\n"
              "3|Tursiops|valid|180|33|false|0|0|0\n"
              "5|Delphinus  Gray, 1846|valid|180|0|false|0|2|2\n"
              "4|orcinus|valid|180|0|false|0|0|0\n"
              "8|[Not Accepted] Aquadae  Gray, 1846|not accepted|140|0|true|2|1|1\n"
              "7|[Invalid] Zebra|invalid|220|0|true|2|0|0\n");
}

TEST_F(BioList, AChildShowsNoMarkForAnyUsage) {
    Add({.qb_id = 2, .parent = 1, .rank = 30, .name1 = "Vermes", .usage = "invalid"});
    const auto children = At(1).Children();
    ASSERT_EQ(children.size(), 1u);
    EXPECT_EQ(children[0]->Sciname(), "Vermes");
    EXPECT_FALSE(children[0]->IsSyn());
}

TEST_F(BioList, ASynonymOfTwoAcceptedTaxaIsListedUnderEach) {
    Add({.qb_id = 2, .parent = 1, .name1 = "Aaa"});
    Add({.qb_id = 3, .parent = 1, .name1 = "Bbb"});
    Add({.qb_id = 4, .name1 = "Ccc", .usage = "invalid"});
    Link(4, 2);
    Link(4, 3);
    EXPECT_EQ(Describe(At(2).Children()), "4|[Invalid] Ccc|invalid|220|0|true|2|0|0\n");
    EXPECT_EQ(Describe(At(3).Children()), "4|[Invalid] Ccc|invalid|220|0|true|3|0|0\n");
}

TEST_F(BioList, ChildrenRefreshTheParentsOwnCountOnlyWhenThereIsOne) {
    Add({.qb_id = 2, .parent = 1, .name1 = "Aaa"});
    Add({.qb_id = 3, .name1 = "Ccc", .usage = "invalid"});
    cBioList item = At(2);
    EXPECT_EQ(item.NumChildren(), 0);
    Link(3, 2);
    EXPECT_EQ(item.Children().size(), 1u);
    EXPECT_EQ(item.NumChildren(), 0);
    Add({.qb_id = 4, .parent = 2, .name1 = "Ddd"});
    EXPECT_EQ(item.Children().size(), 2u);
    EXPECT_EQ(item.NumChildren(), 2);
    EXPECT_EQ(item.NumDescendants(), 0);
}

TEST_F(BioList, GetOneRecordMarksTheNameAndKnowsALooseSynonym) {
    Add({.qb_id = 2, .name1 = "Vermes", .usage = "Not Accepted", .tsn = 9});
    Add({.qb_id = 3, .parent = 1, .name1 = "Placed", .usage = "invalid"});
    cBioList item = At(1);
    item.GetOneRecord(2);
    EXPECT_EQ(item.Sciname(), "[Not Accepted] Vermes");
    EXPECT_TRUE(item.IsSyn());
    EXPECT_EQ(item.tsn(), 9);
    EXPECT_EQ(item.NumChildren(), 0);
    item.GetOneRecord(3);
    EXPECT_EQ(item.Sciname(), "[Invalid] Placed");
    EXPECT_FALSE(item.IsSyn());
}

TEST_F(BioList, GetOneRecordOfADeletedTaxonChangesNothing) {
    Add({.qb_id = 2, .parent = 1, .rank = 30, .name1 = "Chordata"});
    cBioList item = At(2);
    item.GetOneRecord(2);
    const std::string before = Describe(item);
    item.GetOneRecord(99);
    EXPECT_EQ(Describe(item), before);
}

TEST_F(BioList, OneRecordIsAnItemOfItsOwn) {
    Add({.qb_id = 2, .parent = 1, .rank = 180, .name1 = "Orca"});
    Add({.qb_id = 3, .parent = 2, .name1 = "Orca", .name2 = "alpha"});
    const auto item = cBioList::OneRecord(source, data.state.gDataSetPath, 2);
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(Describe(*item), "2|Orca|valid|180|0|false|0|1|1\n");
    EXPECT_TRUE(item->IsInTree());
    EXPECT_EQ(cBioList::OneRecord(source, data.state.gDataSetPath, 99), nullptr);
}

TEST_F(BioList, UsageNullGivesNoMarkAndNoSynonym) {
    Add({.qb_id = 2, .name1 = "Nameless", .usage = ""});
    cBioList item = At(1);
    item.GetOneRecord(2);
    EXPECT_EQ(Describe(item), "2|Nameless||220|0|false|0|0|0\n");
}

TEST_F(BioList, UsageIsInvalidInAnyCase) {
    EXPECT_TRUE(cBioList::UsageIsInvalid("NOT ACCEPTED"));
    EXPECT_TRUE(cBioList::UsageIsInvalid("Invalid"));
    EXPECT_FALSE(cBioList::UsageIsInvalid("valid"));
    EXPECT_FALSE(cBioList::UsageIsInvalid(""));
}

TEST_F(BioList, OrphansHaveNoParentAndNoLinkAndAreNoKingdom) {
    // Of the padded name of the seeded root the blanks do not count.
    data.db().Execute("UPDATE qb_taxonomic_units SET parent_qb_id = Null WHERE qb_id = 1");
    ASSERT_EQ(data.Dump("SELECT unit_name1 FROM qb_taxonomic_units WHERE qb_id = 1"), "Animalia  \n");
    Add({.qb_id = 2, .name1 = "Lost", .usage = "invalid"});
    Add({.qb_id = 3, .rank = 180, .name1 = "Found", .tsn = 4});
    Add({.qb_id = 4, .name1 = "Linked", .usage = "invalid"});
    Add({.qb_id = 5, .parent = 3, .name1 = "Child"});
    Link(4, 3);
    EXPECT_EQ(Describe(At(1).Orphans()),
              "3|Found|valid|180|4|false|0|2|2\n"
              "2|[Invalid] Lost|invalid|220|0|true|0|0|0\n");
}

TEST_F(BioList, NoOrphansWithoutAnOpenDataSet) {
    Add({.qb_id = 2, .name1 = "Lost"});
    cBioList item = At(1);
    EXPECT_EQ(item.Orphans().size(), 1u);
    data.lifecycle.CloseDataSet();
    EXPECT_TRUE(item.Orphans().empty());
}

}  // namespace
}  // namespace quillon::navigation
