// The documents of a record as it is saved: new, copied, and published with changes.
#include "rec_view_fixture.h"

namespace quillon::editor {

using documentation::DocumentationTab;

class RecordDocuments : public RecViewFixture {
protected:
    RecordDocuments() {
        Make();
        data.state.gPrefRank = "Species";
        Show();
    }
    void EnterSpecies(std::string_view epithet) {
        tab.cboRank.UserSetText("Species");
        tab.cboName1.UserSetText("Orca");
        tab.txtName2.UserSetText(epithet);
        tab.optValid.UserChoose();
        tab.cboDPRank.UserPick(tab.cboDPRank.FindText("Genus"));
        tab.cboParentName.UserSetText("Orca");
    }
    void EnterVernacular(std::string_view name) {
        form.vernaculars.txtVName.UserSetText(name);
        form.vernaculars.cboLanguage.UserSetText("English");
        form.vernaculars.cmdVAdd.UserClick();
    }
    void EnterPublication(std::string_view publication, std::string_view word, std::string_view vernacular) {
        DocumentationTab& tabOf = form.publications;
        tabOf.grid.UserSelectRow(static_cast<int>(tabOf.grid.DataCount()));
        tabOf.PickList(0)->UserSetText("Gray");
        tabOf.PickList(2)->UserSetText("1846");
        tabOf.PickList(4)->UserSetText(publication);
        tabOf.association.words.UserSetText(word);
        tabOf.association.picker.UserSetText(vernacular);
        tabOf.add.UserClick();
    }
    void Save() {
        form.cmdOK.UserClick();
        EXPECT_EQ(data.prompter.messages, Messages());
    }
    std::string Links() {
        return data.Dump(
                   "SELECT qb_id, qb_documentation_id_prefix, qb_documentation_id, documentation_id, tsn "
                   "FROM "
                   "qb_reference_links ORDER BY qb_id, qb_documentation_id") +
               data.Dump(
                   "SELECT qb_id, qb_documentation_id_prefix, qb_documentation_id, documentation_id, tsn, "
                   "vernacular_name FROM qb_vern_ref_links ORDER BY qb_id, qb_documentation_id");
    }
    std::string Publications() {
        return data.Dump(
            "SELECT qb_publication_id, publication_name FROM qb_publications ORDER BY qb_publication_id");
    }
};

TEST_F(RecordDocuments, ANewRecordStoresThemWithItsNewVernacular) {
    EnterSpecies("beta");
    EnterVernacular("Northern orca");
    EnterPublication("Notes", "Both", "Northern orca [English]");
    Save();
    EXPECT_EQ(Publications(), "1\tNotes\n");
    EXPECT_EQ(Links(),
              "7\tPUB\t1\t0\t\\N\n"
              "7\tPUB\t1\t0\t\\N\tNorthern orca\n");
    EXPECT_EQ(form.publications.grid.DataCount(), 0U);
}

TEST_F(RecordDocuments, ACopyCitesTheSameDocuments) {
    EnterSpecies("beta");
    EnterVernacular("Northern orca");
    EnterPublication("Notes", "Both", "Northern orca [English]");
    Save();
    Select(7);
    KeepAll();
    form.mnuCopy.UserClick();
    tab.txtName2.UserSetText("gamma");
    Save();
    EXPECT_EQ(Publications(), "1\tNotes\n");
    EXPECT_EQ(Links(),
              "7\tPUB\t1\t0\t\\N\n"
              "8\tPUB\t1\t0\t\\N\n"
              "7\tPUB\t1\t0\t\\N\tNorthern orca\n"
              "8\tPUB\t1\t0\t\\N\tNorthern orca\n");
}

TEST_F(RecordDocuments, APublishedRecordChangesDeletesAndAdds) {
    Execute(
        "INSERT INTO qb_vernaculars (qb_id, tsn, qb_vern_id, vern_id, vernacular_name, language, "
        "approved_ind, "
        "hex_vernacular_name) VALUES (3, 7001, 5, 77, 'orca', 'English', True, '6F726361')");
    for (const char* id : {"1, 17, 'Notes'", "2, 18, 'Whales'"})
        Execute(
            "INSERT INTO qb_publications (publication_id_prefix, qb_publication_id, publication_id, "
            "publication_name) VALUES ('PUB', " +
            std::string(id) + ")");
    for (const char* id : {"1, 17", "2, 18"})
        Execute(
            "INSERT INTO qb_reference_links (qb_id, tsn, qb_documentation_id_prefix, qb_documentation_id, "
            "documentation_id) VALUES (3, 7001, 'PUB', " +
            std::string(id) + ")");
    Select(3);
    form.publications.association.words.UserSetText("Vernacular");
    form.publications.association.picker.UserSetText("orca [English]");
    form.publications.modify.UserClick();
    form.publications.grid.UserSelectRow(1);
    form.publications.remove.UserClick();
    EnterPublication("Whales", "Scientific Name", "");
    EXPECT_EQ(Links(), "3\tPUB\t1\t17\t7001\n3\tPUB\t2\t18\t7001\n") << "nothing is written before the save";
    Save();
    EXPECT_EQ(Publications(), "1\tNotes\n3\tWhales\n");
    EXPECT_EQ(Links(),
              "3\tPUB\t3\t0\t7001\n"
              "3\tPUB\t1\t17\t7001\torca\n");
    EXPECT_EQ(data.Dump("SELECT * FROM db_tombstone"),
              "publications\tPUB\t18\t\\N\t\\N\n"
              "reference_links\tPUB\t18\t7001\t\\N\n"
              "reference_links\tPUB\t17\t7001\t\\N\n");
    EXPECT_EQ(form.publications.grid.Cell(0, 18), "1") << "loaded again";
    EXPECT_FALSE(data.state.RecordDirty);
}

}  // namespace quillon::editor
