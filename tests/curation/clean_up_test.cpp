// The author clean-up: lists, selection, replacement, tombstones, and who hears of it.
#include "curation/clean_up.h"

#include <gtest/gtest.h>

#include "curation/alike.h"
#include "testkit/testkit.h"

namespace quillon::curation {

using Texts = std::vector<std::string>;

class CleanUpTest : public testing::Test {
protected:
    CleanUpTest() {
        data.Make("Animalia");
        AddAuthor(1, "Gray, 1864", "Null");
        AddAuthor(2, "Gray 1864", "77");
        AddAuthor(3, "gray, 1864", "0");
        AddAuthor(4, "Brown", "Null");
        AddTaxon(2, "Orca", "1", "Null");
        AddTaxon(3, "Cetus", "2", "Null");
        AddTaxon(4, "Delphinus", "3", "2");
        AddTaxon(5, "Phocaena", "4", "3");
        form.TURecsModified.Connect([this](const std::vector<int>& taxa) {
            for (const int taxon : taxa) events += std::to_string(taxon) + ";";
        });
        form.Changed.Connect([this] { events += "changed;"; });
    }
    void AddAuthor(int id, const std::string& name, const std::string& authorityId) {
        data.db().Execute(
            "INSERT INTO qb_taxon_authors_lookup (qb_taxon_author_id, taxon_author, taxon_author_id, "
            "kingdom_id) VALUES (" +
            std::to_string(id) + ", '" + name + "', " + authorityId + ", 5)");
    }
    void AddTaxon(int id, const std::string& name, const std::string& author, const std::string& hybrid) {
        data.db().Execute(
            "INSERT INTO qb_taxonomic_units (qb_id, unit_name1, kingdom_id, rank_id, usage, parent_qb_id, "
            "qb_taxon_author_id, hybrid_author_id) VALUES (" +
            std::to_string(id) + ", '" + name + "', 5, 180, 'valid', 1, " + author + ", " + hybrid + ")");
    }
    static Texts TextsOf(const ChoiceControl& list) {
        Texts texts;
        for (const auto& choice : list.Choices()) texts.push_back(choice.text);
        return texts;
    }
    void Fix(bool ok = true) {
        data.prompter.yesNo = {ok};
        form.CmdFix.UserClick();
    }
    std::string Taxa() {
        return data.Dump(
            "SELECT qb_id, qb_taxon_author_id, hybrid_author_id FROM qb_taxonomic_units WHERE qb_id > 1 "
            "ORDER "
            "BY qb_id");
    }
    std::string Authors() {
        return data.Dump(
            "SELECT qb_taxon_author_id, taxon_author, kingdom_id FROM qb_taxon_authors_lookup ORDER BY "
            "qb_taxon_author_id");
    }
    std::string Tombstones() { return data.Dump("SELECT table_name, pk1, pk2, pk3, pk4 FROM db_tombstone"); }

    testkit::DataSetFixture data;
    CleanUp form{data.state, data.engine, data.prompter};
    std::string events;
};

TEST_F(CleanUpTest, ListsTheAuthorsLikeAPattern) {
    form.TxtLower.UserSetText("gray*");
    EXPECT_EQ(TextsOf(form.LstToFix), (Texts{"Gray, 1864", "Gray 1864", "gray, 1864"}));
    EXPECT_EQ(TextsOf(form.cboReplace), (Texts{"Gray, 1864", "Gray 1864", "gray, 1864"}));
    form.TxtLower.UserSetText("Brown");
    EXPECT_EQ(TextsOf(form.LstToFix), (Texts{"Brown"}));
    form.TxtLower.UserSetText("Brow");
    EXPECT_EQ(TextsOf(form.LstToFix), Texts());
    form.TxtLower.UserSetText("\"");
    EXPECT_EQ(data.prompter.messages, Texts());
}

TEST_F(CleanUpTest, ListsTheNamesOfTheSelectedAuthors) {
    form.TxtLower.UserSetText("*");
    form.LstToFix.UserSelect({0, 1});
    EXPECT_EQ(TextsOf(form.LstNames), (Texts{"Orca Gray, 1864 (valid)", "Cetus Gray 1864 (valid)"}));
    form.LstToFix.UserSelect({});
    EXPECT_EQ(TextsOf(form.LstNames), Texts());
}

TEST_F(CleanUpTest, ReplacesTheSelectedAuthors) {
    form.TxtLower.UserSetText("gray*");
    form.LstToFix.UserSelect({0, 1, 2});
    form.cboReplace.UserSetText("Gray, 1864");
    Fix();
    EXPECT_EQ(data.prompter.questions, (Texts{"You are about to change these authors to Gray, 1864"}));
    EXPECT_EQ(data.prompter.titles, (Texts{"Replace Author"}));
    EXPECT_EQ(Taxa(), "2\t1\t\\N\n3\t1\t\\N\n4\t1\t2\n5\t4\t3\n");
    EXPECT_EQ(Authors(), "1\tGray, 1864\t5\n4\tBrown\t5\n");
    EXPECT_EQ(Tombstones(), "taxon_authors_lookup\t77\t5\t\\N\t\\N\n");
    EXPECT_EQ(events, "2;3;4;changed;");
    EXPECT_EQ(TextsOf(form.LstToFix), (Texts{"Gray, 1864"}));
    EXPECT_FALSE(data.engine.IsCommandRunning());
}

TEST_F(CleanUpTest, AddsAReplacementThatIsNotThere) {
    form.TxtLower.UserSetText("gray*");
    form.LstToFix.UserSelect({1});
    form.cboReplace.UserSetText("J. E. Gray, 1864");
    Fix();
    EXPECT_EQ(Taxa(), "2\t1\t\\N\n3\t5\t\\N\n4\t3\t2\n5\t4\t3\n");
    EXPECT_EQ(Authors(), "1\tGray, 1864\t5\n3\tgray, 1864\t5\n4\tBrown\t5\n5\tJ. E. Gray, 1864\t5\n");
    EXPECT_EQ(events, "3;changed;");
}

TEST_F(CleanUpTest, TakesTheExactReplacementBeforeOneInAnotherCase) {
    form.TxtLower.UserSetText("gray*");
    form.LstToFix.UserSelect({0});
    form.cboReplace.UserSetText("gray, 1864");
    Fix();
    EXPECT_EQ(Authors(), "2\tGray 1864\t5\n3\tgray, 1864\t5\n4\tBrown\t5\n");
    EXPECT_EQ(Taxa(), "2\t3\t\\N\n3\t2\t\\N\n4\t3\t2\n5\t4\t3\n");
}

TEST_F(CleanUpTest, CancelAndAnEmptySelectionChangeNothing) {
    const std::string taxa = Taxa(), authors = Authors();
    form.TxtLower.UserSetText("gray*");
    form.cboReplace.UserSetText("Nobody");
    Fix();
    form.LstToFix.UserSelect({0});
    Fix(false);
    EXPECT_EQ(data.prompter.questions.size(), 2U);
    EXPECT_EQ(Taxa(), taxa);
    EXPECT_EQ(Authors(), authors);
    EXPECT_EQ(events, "");
}

TEST_F(CleanUpTest, ReportsAReplacementThatCannotBeAdded) {
    const std::string taxa = Taxa(), authors = Authors();
    form.TxtLower.UserSetText("gray*");
    form.LstToFix.UserSelect({0});
    Fix();
    EXPECT_EQ(data.prompter.warnings, (Texts{"Unable to change authors!"}));
    EXPECT_EQ(data.prompter.titles.back(), "Author Update Error");
    EXPECT_EQ(Taxa(), taxa);
    EXPECT_EQ(Authors(), authors);
}

TEST_F(CleanUpTest, AnAuthorOfHybridsAloneGoesAndTheReferenceStays) {
    form.TxtLower.UserSetText("Brown");
    data.db().Execute(
        "UPDATE qb_taxonomic_units SET qb_taxon_author_id = 1, hybrid_author_id = 4 WHERE qb_id = 5");
    form.LstToFix.UserSelect({0});
    form.cboReplace.UserSetText("Gray, 1864");
    Fix();
    EXPECT_EQ(data.Dump("SELECT hybrid_author_id FROM qb_taxonomic_units WHERE qb_id = 5"), "4\n");
    EXPECT_EQ(Authors(), "1\tGray, 1864\t5\n2\tGray 1864\t5\n3\tgray, 1864\t5\n");
    EXPECT_EQ(events, "changed;");
}

TEST_F(CleanUpTest, ListsSimilarAuthorsGroupByGroup) {
    AddAuthor(6, "Linn\xC3\xA9", "Null");
    AddAuthor(7, "(LINNE)", "Null");
    form.cmdSimilar.UserClick();
    EXPECT_EQ(TextsOf(form.LstToFix),
              (Texts{"Gray, 1864", "Gray 1864", "gray, 1864", "Linn\xC3\xA9", "(LINNE)"}));
    EXPECT_TRUE(form.LstToFix.SelectedItems().empty());
    EXPECT_EQ(form.LstToFix.ItemData(4), 7);
}

TEST_F(CleanUpTest, FillsALongListInParts) {
    int asked = 0;
    form.MoreToRead.Connect([&] { ++asked; });
    for (int id = 10; id < 710; ++id) AddAuthor(id, "Author " + std::to_string(id), "Null");
    form.TxtLower.UserSetText("Author*");
    EXPECT_EQ(form.LstToFix.ListCount(), 500U);
    EXPECT_EQ(asked, 1);
    EXPECT_FALSE(form.Continue());
    EXPECT_EQ(form.LstToFix.ListCount(), 700U);
}

TEST(Alike, ForgetsCaseBlanksPunctuationAccentsAndParentheses) {
    EXPECT_EQ(LikenessKey("(Gray, 1864)"), LikenessKey("GRAY 1864"));
    EXPECT_EQ(LikenessKey("M\xC3\xBCller"), LikenessKey("Muller"));
    EXPECT_NE(LikenessKey("Gray, 1864"), LikenessKey("Gray, 1865"));
    EXPECT_EQ(LikenessKey(" .,;"), "");
}

}  // namespace quillon::curation
