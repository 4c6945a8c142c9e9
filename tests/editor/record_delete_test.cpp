// The delete command, and what tree, list and form show after saves and deletes.
#include "rec_view_fixture.h"

namespace quillon::editor {

class RecordDeleteTest : public RecViewFixture {
protected:
    RecordDeleteTest() {
        Make();
        explorer.ItemSelected = [this](const navigation::cExplorer::Item& item) {
            selected += std::to_string(item->qb_id()) + ";";
            recView.SelectExplorerItem(item->qb_id(), true, item->IsInTree());
        };
    }
    void Delete(bool yes = true) {
        data.prompter.yesNo = {yes};
        form.mnuEDelete.UserClick();
    }
    // All rows on show, indented; the selected one with an asterisk.
    std::string Tree(const navigation::TreeNode* under = nullptr, int depth = 0) {
        std::string text;
        for (std::size_t row = 0; row < explorer.TreeV().CountUnder(under); ++row) {
            const navigation::TreeNode* node = explorer.TreeV().Under(under, row);
            text += std::string(static_cast<std::size_t>(depth), ' ') + node->Text() +
                    (node == explorer.TreeV().Selected() ? "*" : "") + "\n";
            text += Tree(node, depth + 1);
        }
        return text;
    }
    void OpenAll() {
        for (const int id : {3, 4, 5, 6}) Node(id);
        explorer.TreeV().Select(nullptr);
        explorer.ListV().LoadAll();
    }
    std::string Taxa() { return data.Dump("SELECT qb_id FROM qb_taxonomic_units ORDER BY qb_id"); }

    std::string selected;
};

TEST_F(RecordDeleteTest, RemovesTheNameAndLightsItsParent) {
    OpenAll();
    explorer.NodeClick(Node(4));
    EXPECT_EQ(form.mnuEDelete.Caption(), "Delete Name");
    selected.clear();
    Delete();
    EXPECT_EQ(data.prompter.questions, (Messages{"Are you sure you want to delete this name?"}));
    EXPECT_EQ(Taxa(), "1\n2\n3\n5\n6\n");
    EXPECT_EQ(selected, "");
    EXPECT_EQ(explorer.FindIdOfNode(explorer.TreeV().Selected()), 3);
    EXPECT_EQ(form.mode.Caption(), "INPUT");
    EXPECT_EQ(form.taxa.Caption(), "TAXA: 5");
    EXPECT_EQ(data.state.currentTaxon.qb_id, 0);
    EXPECT_EQ(tab.cboAuth.Text() + tab.txtName3.Text(), "");
    EXPECT_EQ(explorer.ListV().RowOf(4), navigation::TaxonList::kNone);
}

TEST_F(RecordDeleteTest, NoLeavesEverything) {
    Select(4);
    Delete(false);
    EXPECT_EQ(Taxa(), "1\n2\n3\n4\n5\n6\n");
    EXPECT_EQ(data.state.currentTaxon.qb_id, 4);
}

TEST_F(RecordDeleteTest, RefusesPublishedNamesAndParents) {
    Select(3);
    form.mnuEDelete.UserClick();
    Select(2);
    form.mnuEDelete.UserClick();
    form.mnuAdd.UserClick();
    form.mnuEDelete.UserClick();
    EXPECT_EQ(data.prompter.messages,
              (Messages{"You cannot delete a record with a TSN already assigned.",
                        "All Children must be deleted before this record can be deleted!",
                        "No Current Record to Delete"}));
    EXPECT_EQ(Taxa(), "1\n2\n3\n4\n5\n6\n");
}

TEST_F(RecordDeleteTest, SynonymsOfADeletedNameStandAtTheTop) {
    Execute("INSERT INTO qb_synonym_links (qb_id, qb_id_accepted) VALUES (5, 6)");
    Execute("DELETE FROM qb_synonym_links WHERE qb_id_accepted = 2");
    Show();
    explorer.NodeClick(Node(6));
    Delete();
    EXPECT_EQ(data.prompter.questions.size(), 1U);
    EXPECT_EQ(Taxa(), "1\n2\n3\n4\n5\n");
    EXPECT_EQ(Tree(), "Animalia*\n Orca  Gray, 1846\n  dummy99\n[Invalid] Gladiator\n");
    Show();
    EXPECT_EQ(explorer.TreeV().Top(1)->Text(), "[Invalid] Gladiator");
}

TEST_F(RecordDeleteTest, ANameThatWasCutCannotBePastedAnyMore) {
    explorer.NodeClick(Node(4));
    form.mnuECut.UserClick();
    EXPECT_TRUE(form.mnuPaste.Enabled());
    Delete();
    EXPECT_FALSE(form.mnuPaste.Enabled());
    EXPECT_FALSE(form.mnuEUndo.Enabled());
}

TEST_F(RecordDeleteTest, ANewNameIsLitInTheTree) {
    OpenAll();
    data.state.gPrefRank = "Species";
    form.mnuAdd.UserClick();
    Show();
    OpenAll();
    tab.cboName1.UserSetText("Orca");
    tab.txtName2.UserSetText("Alba");
    tab.optValid.UserChoose();
    tab.cboDPRank.UserPick(tab.cboDPRank.FindText("Genus"));
    tab.cboParentName.UserSetText("Orca");
    selected.clear();
    form.cmdOK.UserClick();
    EXPECT_EQ(data.prompter.messages, Messages());
    EXPECT_EQ(explorer.FindIdOfNode(explorer.TreeV().Selected()), 7);
    EXPECT_EQ(explorer.TreeV().Selected()->Row(), 0U);
    EXPECT_EQ(selected, "");
    EXPECT_NE(explorer.ListV().RowOf(7), navigation::TaxonList::kNone);
}

TEST_F(RecordDeleteTest, AChangedNameMovesInTheTree) {
    OpenAll();
    explorer.NodeClick(Node(6));
    tab.txtName1.UserSetText("Zetus");
    form.cmdOK.UserClick();
    EXPECT_EQ(Node(6)->Text(), "Zetus");
    EXPECT_EQ(explorer.TreeV().Selected(), Node(6));
}

}  // namespace quillon::editor
