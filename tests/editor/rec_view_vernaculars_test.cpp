// The vernaculars of a record together with the documents that are linked to them.
#include "rec_view_fixture.h"

namespace quillon::editor {

using documentation::DocumentationTab;

// The published species has two vernaculars; the expert 4 documents both.
class RecordVernaculars : public RecViewFixture {
protected:
    RecordVernaculars() {
        Make();
        for (const char* name :
             {"5, 77, 'orca', 'English', '6F726361'", "6, 78, 'orque', 'French', '6F72717565'"}) {
            Execute(
                "INSERT INTO qb_vernaculars (qb_id, tsn, approved_ind, qb_vern_id, vern_id, vernacular_name, "
                "language, hex_vernacular_name) VALUES (3, 7001, True, " +
                std::string(name) + ")");
        }
        Execute(
            "INSERT INTO qb_experts (expert_id_prefix, qb_expert_id, expert_id, expert) "
            "VALUES ('EXP', 4, 40, 'Smith')");
        for (const char* link : {"5, 77, 'orca'", "6, 78, 'orque'"}) {
            Execute(
                "INSERT INTO qb_vern_ref_links (qb_documentation_id_prefix, qb_documentation_id, "
                "documentation_id, tsn, qb_id, qb_vern_id, vern_id, vernacular_name) "
                "VALUES ('EXP', 4, 40, 7001, 3, " +
                std::string(link) + ")");
        }
        Select(3);
        data.prompter.messages.clear();
    }
    void EnterName(int row, std::string_view name, std::string_view language) {
        if (row >= 0) form.vernaculars.grdVernacular.UserSelectRow(row);
        form.vernaculars.txtVName.UserSetText(name);
        form.vernaculars.cboLanguage.UserSetText(language);
        (row >= 0 ? form.vernaculars.cmdVModify : form.vernaculars.cmdVAdd).UserClick();
    }
    void DeleteName(int row) {
        form.vernaculars.grdVernacular.UserSelectRow(row);
        form.vernaculars.cmdVDelete.UserClick();
    }
    void AddExpert(std::string_view expert, std::string_view vernacular) {
        DocumentationTab& experts = form.experts;
        experts.grid.UserSelectRow(static_cast<int>(experts.grid.DataCount()));
        experts.PickList(0)->UserSetText(expert);
        experts.association.words.UserSetText("Vernacular");
        experts.association.picker.UserSetText(vernacular);
        experts.add.UserClick();
    }
    // Name and expert of each row of the grid.
    std::string Experts() const {
        std::string text;
        for (std::size_t row = 0; row < form.experts.grid.DataCount(); ++row)
            text += form.experts.grid.Cell(row, 0) + "=" + form.experts.grid.Cell(row, 1) + ";";
        return text;
    }
    std::string Links() {
        return data.Dump(
            "SELECT qb_documentation_id, documentation_id, tsn, qb_id, qb_vern_id, vern_id, vernacular_name "
            "FROM qb_vern_ref_links ORDER BY qb_vern_id");
    }
    std::string Names() {
        return data.Dump(
            "SELECT qb_id, qb_vern_id, vern_id, vernacular_name, language FROM qb_vernaculars "
            "ORDER BY qb_vern_id");
    }
    std::string Tombstones() { return data.Dump("SELECT table_name, pk1, pk2, pk3, pk4 FROM db_tombstone"); }
};

TEST_F(RecordVernaculars, ARenamedVernacularKeepsItsLinks) {
    EnterName(0, "killer whale", "English");
    EXPECT_EQ(Experts(), "killer whale [English]=Smith;orque [French]=Smith;");
    form.cmdOK.UserClick();
    EXPECT_EQ(Names(), "3\t5\t77\tkiller whale\tEnglish\n3\t6\t78\torque\tFrench\n");
    EXPECT_EQ(Links(), "4\t40\t7001\t3\t5\t77\tkiller whale\n4\t40\t7001\t3\t6\t78\torque\n");
    EXPECT_EQ(Tombstones(), "");
    EXPECT_EQ(Experts(), "killer whale [English]=Smith;orque [French]=Smith;") << "as it is loaded again";
    EXPECT_EQ(data.prompter.messages, Messages());
}

TEST_F(RecordVernaculars, ADeletedVernacularTakesItsDocumentRowsAlong) {
    data.prompter.yesNo = {true};
    DeleteName(0);
    EXPECT_EQ(Experts(), "orque [French]=Smith;");
    form.cmdOK.UserClick();
    EXPECT_EQ(Names(), "3\t6\t78\torque\tFrench\n");
    EXPECT_EQ(Links(), "4\t40\t7001\t3\t6\t78\torque\n");
    EXPECT_EQ(Tombstones(), "vernaculars\t7001\t77\t\\N\t\\N\nvern_ref_links\tEXP\t40\t7001\t77\n");
    EXPECT_EQ(data.Dump("SELECT expert FROM qb_experts"), "Smith\n");
    data.prompter.yesNo = {true};
    DeleteName(0);
    EXPECT_EQ(Experts(), "");
    form.cmdOK.UserClick();
    EXPECT_EQ(Names() + Links(), "");
    EXPECT_EQ(data.Dump("SELECT expert FROM qb_experts"), "");
    EXPECT_EQ(data.prompter.messages, Messages());
}

TEST_F(RecordVernaculars, ANewVernacularIsDocumentedInTheSameSave) {
    EnterName(-1, "grampus", "English");
    AddExpert("Jones", "grampus [English]");
    EXPECT_EQ(Experts(), "orca [English]=Smith;orque [French]=Smith;grampus [English]=Jones;");
    EnterName(2, "blackfish", "English");
    EXPECT_EQ(Experts(), "orca [English]=Smith;orque [French]=Smith;blackfish [English]=Jones;");
    form.cmdOK.UserClick();
    EXPECT_EQ(Names(), "3\t5\t77\torca\tEnglish\n3\t6\t78\torque\tFrench\n3\t7\t\\N\tblackfish\tEnglish\n");
    EXPECT_EQ(Links(),
              "4\t40\t7001\t3\t5\t77\torca\n4\t40\t7001\t3\t6\t78\torque\n"
              "5\t0\t7001\t3\t7\t\\N\tblackfish\n");
    EXPECT_EQ(data.prompter.messages, Messages());
}

TEST_F(RecordVernaculars, ANewVernacularThatIsDeletedTakesItsDocumentRowsAlong) {
    EnterName(-1, "grampus", "English");
    AddExpert("Jones", "grampus [English]");
    DeleteName(2);
    EXPECT_EQ(Experts(), "orca [English]=Smith;orque [French]=Smith;");
    form.cmdOK.UserClick();
    EXPECT_EQ(Links(), "4\t40\t7001\t3\t5\t77\torca\n4\t40\t7001\t3\t6\t78\torque\n");
    EXPECT_EQ(data.Dump("SELECT expert FROM qb_experts"), "Smith\n");
}

// The copy of a record shows its vernaculars and their documents, and is stored with both.
TEST_F(RecordVernaculars, ACopyHasVernacularsOfItsOwn) {
    form.mnuCopy.UserClick();
    tab.txtName2.UserSetText("beta");
    form.cmdOK.UserClick();
    EXPECT_EQ(data.prompter.messages, Messages());
    EXPECT_EQ(Names(),
              "3\t5\t77\torca\tEnglish\n3\t6\t78\torque\tFrench\n"
              "7\t7\t\\N\torca\tEnglish\n7\t8\t\\N\torque\tFrench\n");
    EXPECT_EQ(Links(),
              "4\t40\t7001\t3\t5\t77\torca\n4\t40\t7001\t3\t6\t78\torque\n"
              "4\t40\t\\N\t7\t7\t\\N\torca\n4\t40\t\\N\t7\t8\t\\N\torque\n");
}

}  // namespace quillon::editor
