// What a save stores of the rows of a documentation grid: documents, links and tombstones.
#include "documentation/documentation_fixture.h"
#include "records/record_store.h"
#include "store/command.h"

namespace quillon::documentation {
namespace {

class DocumentSaveTest : public DocumentationTest {
protected:
    DocumentSaveTest() {
        AddVernacular(6, "Orque", "French", "60");
        for (DocumentationTab* tab : Tabs()) {
            tab->Connect(data.state, data.prompter);
            tab->OfferVernaculars({{"Killer whale [English]", 5}, {"Orque [French]", 6}});
        }
    }
    std::array<DocumentationTab*, 3> Tabs() { return {&publications, &experts, &sources}; }
    // The taxon has been published under 7001.
    void Publish() { data.state.currentTaxon.tsn = 7001; }
    void Load() {
        for (DocumentationTab* tab : Tabs()) tab->Load(2);
    }
    bool SaveNew(DocumentationTab& tab, int changeTrack = 0) {
        store::Command command(data.engine);
        const records::RecordStore records{data.engine, data.db(), data.prompter};
        const bool saved = tab.InsertAllRows(records, changeTrack);
        command.Commit();
        return saved;
    }
    bool Save(DocumentationTab& tab) {
        store::Command command(data.engine);
        const records::RecordStore records{data.engine, data.db(), data.prompter};
        const bool saved = tab.SaveGrid(records, 0);
        command.Commit();
        return saved;
    }
    void AddPublication(const std::string& id, const std::string& authorityId, const std::string& fields,
                        const std::string& values) {
        Run("INSERT INTO qb_publications (publication_id_prefix, qb_publication_id, publication_id, " +
            fields + ") VALUES ('PUB', " + id + ", " + authorityId + ", " + values + ")");
    }
    void LinkName(const std::string& prefix, int document, const std::string& authorityId = "NULL",
                  const std::string& tsn = "NULL", int qb_id = 2) {
        Run("INSERT INTO qb_reference_links (qb_id, qb_documentation_id_prefix, qb_documentation_id, "
            "documentation_id, tsn, original_desc_ind) VALUES (" +
            std::to_string(qb_id) + ", '" + prefix + "', " + std::to_string(document) + ", " + authorityId +
            ", " + tsn + ", false)");
    }
    void LinkVernacular(const std::string& prefix, int document, int qb_vern_id, const std::string& name,
                        const std::string& authorityId = "NULL", const std::string& tsn = "NULL",
                        const std::string& vern_id = "NULL") {
        Run("INSERT INTO qb_vern_ref_links (qb_id, qb_vern_id, vern_id, qb_documentation_id_prefix, "
            "qb_documentation_id, documentation_id, tsn, vernacular_name) VALUES (2, " +
            std::to_string(qb_vern_id) + ", " + vern_id + ", '" + prefix + "', " + std::to_string(document) +
            ", " + authorityId + ", " + tsn + ", '" + name + "')");
    }
    void Associate(const std::string& word, const std::string& vernacular = "") {
        publications.cboVernPubSelect.UserSetText(word);
        publications.cboVernPub.UserSetText(vernacular);
    }
    void TypePublication(const std::string& author, const std::string& date, const std::string& publication) {
        publications.cboAuthor.UserSetText(author);
        publications.cboADate.UserSetText(date);
        publications.cboPublication.UserSetText(publication);
    }
    std::string Publications() {
        return data.Dump(
            "SELECT publication_id_prefix, qb_publication_id, publication_id, reference_author, title, "
            "publication_name, actual_pub_date, isbn FROM qb_publications ORDER BY qb_publication_id");
    }
    std::string Experts() {
        return data.Dump(
            "SELECT expert_id_prefix, qb_expert_id, expert_id, expert, exp_comment FROM qb_experts ORDER BY "
            "qb_expert_id");
    }
    std::string Sources() {
        return data.Dump(
            "SELECT source_id_prefix, qb_source_id, source_id, source_type, source, version, "
            "acquisition_date, source_comment FROM qb_other_sources ORDER BY qb_source_id");
    }
    std::string Links() {
        return data.Dump(
                   "SELECT qb_id, qb_documentation_id_prefix, qb_documentation_id, tsn, documentation_id, "
                   "original_desc_ind, initial_orva_desc_ind, qb_change_track_id, vernacular_name FROM "
                   "qb_reference_links ORDER BY qb_id, qb_documentation_id_prefix, qb_documentation_id") +
               data.Dump(
                   "SELECT qb_id, qb_vern_id, vern_id, qb_documentation_id_prefix, qb_documentation_id, tsn, "
                   "documentation_id, vernacular_name FROM qb_vern_ref_links ORDER BY qb_documentation_id, "
                   "qb_vern_id");
    }
    std::string Tombstones() { return data.Dump("SELECT * FROM db_tombstone"); }

    PublicationTab publications{form};
    ExpertTab experts{form};
    OtherSourceTab sources{form};
};

TEST_F(DocumentSaveTest, ANewRowStoresDocumentAndLinks) {
    TypePublication(" Gray ", "1846", "O'Brien's \"Notes\" | 1");
    publications.chkPOD.UserSetValue(true);
    Associate("Both", "Orque [French]");
    publications.add.UserClick();
    Publish();
    EXPECT_TRUE(SaveNew(publications));
    EXPECT_EQ(Publications(), "PUB\t1\t0\tGray\t\\N\tO'Brien's \"Notes\" | 1\t1846\t\\N\n");
    EXPECT_EQ(Links(),
              "2\tPUB\t1\t7001\t0\tTrue\t\\N\t\\N\t\\N\n"
              "2\t6\t60\tPUB\t1\t7001\t0\tOrque\n");
    EXPECT_EQ(publications.LastDocIds(), (DocumentIds{1, 0}));
    EXPECT_EQ(publications.grid.Cell(1, 13), "1");
    EXPECT_EQ(TakeMessages(), "");
}

TEST_F(DocumentSaveTest, TwoTaxaShareAPublicationAndAStoredNullMatchesEverything) {
    AddPublication("3", "17", "reference_author, publication_name, actual_pub_date, isbn",
                   "'Gray', 'Notes', '1846', '1-11'");
    AddPublication("4", "18", "reference_author, publication_name, actual_pub_date",
                   "'Gray', 'Notes', '1846'");
    AddPublication("5", "19", "publication_name", "'Notes'");
    LinkName("PUB", 3, "17", "NULL", 3);
    TypePublication("gray", "1846", "Notes");
    publications.txtISBN.UserSetText("2-22");
    publications.add.UserClick();
    publications.txtISBN.UserSetText("");
    publications.cboAuthor.UserSetText("Brown");
    publications.add.UserClick();
    EXPECT_TRUE(SaveNew(publications));
    EXPECT_EQ(Links(),
              "2\tPUB\t4\t\\N\t18\tFalse\t\\N\t\\N\t\\N\n"
              "2\tPUB\t5\t\\N\t19\tFalse\t\\N\t\\N\t\\N\n"
              "3\tPUB\t3\t\\N\t17\tFalse\t\\N\t\\N\t\\N\n");
    EXPECT_EQ(publications.LastDocIds(), (DocumentIds{5, 19}));
}

TEST_F(DocumentSaveTest, AnEmptyCellMatchesOnlyAStoredNull) {
    AddPublication("3", "17", "reference_author, publication_name, actual_pub_date, isbn",
                   "'Gray', 'Notes', '1846', '1-11'");
    TypePublication("Gray", "1846", "Notes");
    publications.add.UserClick();
    SaveNew(publications);
    EXPECT_EQ(Publications(),
              "PUB\t3\t17\tGray\t\\N\tNotes\t1846\t1-11\n"
              "PUB\t4\t0\tGray\t\\N\tNotes\t1846\t\\N\n");
}

TEST_F(DocumentSaveTest, ExpertsMatchExactly) {
    Run("INSERT INTO qb_experts (expert_id_prefix, qb_expert_id, expert_id, expert) VALUES ('EXP', 7, 70, "
        "'James \"Jim\" Mead')");
    for (const char* comment : {"whales", ""}) {
        experts.cboExpert.UserSetText("James \"Jim\" Mead");
        experts.txtExpComments.UserSetText(comment);
        experts.add.UserClick();
    }
    EXPECT_TRUE(SaveNew(experts, 12));
    EXPECT_EQ(Experts(),
              "EXP\t7\t70\tJames \"Jim\" Mead\t\\N\n"
              "EXP\t8\t0\tJames \"Jim\" Mead\twhales\n");
    EXPECT_EQ(data.Dump("SELECT qb_documentation_id, documentation_id, original_desc_ind, qb_change_track_id "
                        "FROM qb_reference_links ORDER BY qb_documentation_id"),
              "7\t70\t\\N\t12\n8\t0\t\\N\t12\n");
}

TEST_F(DocumentSaveTest, SourcesDifferByTheirDateAndAQuotedDateIsStored) {
    for (const char* date : {"06/15/2023", "\"1999\"", "'98"}) {
        sources.cboSource.UserSetText("Marine list");
        sources.txtADate.UserSetText(date);
        sources.add.UserClick();
    }
    EXPECT_TRUE(SaveNew(sources));
    EXPECT_EQ(Sources(),
              "SRC\t1\t0\t\\N\tMarine list\t\\N\t06/15/2023\t\\N\n"
              "SRC\t2\t0\t\\N\tMarine list\t\\N\t\"1999\"\t\\N\n"
              "SRC\t3\t0\t\\N\tMarine list\t\\N\t'98\t\\N\n");
    EXPECT_EQ(TakeMessages(), "");
}

TEST_F(DocumentSaveTest, OnlyOtherSourcesReportAMissingVernacular) {
    const auto add = [](DocumentationTab& tab, const std::string& text) {
        tab.SetText(0, text);
        tab.association.words.UserSetText("Vernacular");
        tab.association.picker.SetText("Grampus [English]");
        tab.add.UserClick();
    };
    add(experts, "Dale Rice");
    add(sources, "Marine list");
    EXPECT_TRUE(SaveNew(experts));
    EXPECT_EQ(TakeMessages(), "");
    EXPECT_TRUE(SaveNew(sources));
    EXPECT_EQ(TakeMessages(),
              "in ProcessOtherSource: No record found for qb_id of 2 with vernacular[language] of "
              "Grampus[English].\n");
    EXPECT_EQ(Links(), "");
    EXPECT_EQ(Sources(), "SRC\t1\t0\t\\N\tMarine list\t\\N\t\\N\t\\N\n");
}

TEST_F(DocumentSaveTest, ANameWithBracketsAndQuotesIsFound) {
    AddVernacular(8, "L''orque [\"grand\"]", "French");
    publications.OfferVernaculars({{"L'orque [\"grand\"] [French]", 8}});
    TypePublication("Gray", "1846", "Notes");
    Associate("Vernacular", "L'orque [\"grand\"] [French]");
    publications.add.UserClick();
    SaveNew(publications);
    EXPECT_EQ(Links(), "2\t8\t\\N\tPUB\t1\t\\N\t0\tL'orque [\"grand\"]\n");
}

TEST_F(DocumentSaveTest, ARowKeptFromAnotherRecordCitesTheSameDocument) {
    AddPublication("3", "17", "reference_author, publication_name", "'Gray', 'Notes'");
    AddPublication("4", "18", "reference_author, publication_name, actual_pub_date",
                   "'Gray', 'Notes', '1846'");
    LinkName("PUB", 4);
    LinkVernacular("PUB", 4, 5, "Killer whale");
    Load();
    data.state.currentTaxon.qb_id = 9;
    Run("INSERT INTO qb_vernaculars (qb_id, qb_vern_id, vernacular_name, language) VALUES (9, 11, 'Killer "
        "whale', 'English')");
    publications.EnterMode(EditorMode::Input);
    EXPECT_TRUE(SaveNew(publications));
    EXPECT_EQ(Links(),
              "2\tPUB\t4\t\\N\t\\N\tFalse\t\\N\t\\N\t\\N\n"
              "9\tPUB\t4\t\\N\t18\tFalse\t\\N\t\\N\t\\N\n"
              "2\t5\t\\N\tPUB\t4\t\\N\t\\N\tKiller whale\n"
              "9\t11\t\\N\tPUB\t4\t\\N\t18\tKiller whale\n");
    publications.cboTitle.UserSetText("On whales");
    publications.Load(9);
    publications.EnterMode(EditorMode::Input);
    data.state.currentTaxon.qb_id = 10;
    publications.txtISBN.UserSetText("1-1");
    publications.cboAuthor.UserSetText("Brown");
    publications.modify.UserClick();
    EXPECT_TRUE(SaveNew(publications));
    EXPECT_EQ(data.Dump("SELECT qb_documentation_id FROM qb_reference_links WHERE qb_id = 10"), "5\n")
        << "modified: a document of its own";
}

TEST_F(DocumentSaveTest, TheFirstRowThatCannotBeStoredEndsANewRecord) {
    for (const char* source : {"One", "Two"}) {
        sources.cboSource.UserSetText(source);
        sources.add.UserClick();
    }
    sources.grid.SetCell(0, 3, "a version that is too long for its column");
    EXPECT_FALSE(SaveNew(sources));
    EXPECT_EQ(TakeMessages().substr(0, 7), "Failed ");
    EXPECT_EQ(Sources(), "");
    data.state.currentTaxon.qb_id = 0;
    EXPECT_FALSE(SaveNew(sources)) << "the taxon itself could not be stored";
    EXPECT_EQ(TakeMessages(), "");
}

TEST_F(DocumentSaveTest, AChangedPublicationIsFilledButNeverEmptied) {
    AddPublication("3", "17", "reference_author, publication_name, actual_pub_date, isbn",
                   "'Gray', 'Notes', '1846', '1-11'");
    LinkName("PUB", 3, "17");
    Load();
    publications.cboTitle.UserSetText("On whales ");
    publications.txtISBN.UserSetText("");
    publications.chkPOD.UserSetValue(true);
    publications.modify.UserClick();
    EXPECT_TRUE(Save(publications));
    EXPECT_EQ(Publications(), "PUB\t3\t17\tGray\tOn whales\tNotes\t1846\t1-11\n");
    EXPECT_EQ(Links(), "2\tPUB\t3\t\\N\t17\tTrue\t\\N\t\\N\t\\N\n");
    EXPECT_EQ(TakeMessages(), "");
}

TEST_F(DocumentSaveTest, AnEmptiedCommentOfAnExpertIsEmptiedInTheStore) {
    Run("INSERT INTO qb_experts (expert_id_prefix, qb_expert_id, expert_id, expert, exp_comment) VALUES "
        "('EXP', 7, NULL, 'Dale Rice', 'adviser')");
    LinkName("EXP", 7);
    Load();
    experts.txtExpComments.UserSetText("");
    experts.modify.UserClick();
    EXPECT_TRUE(Save(experts));
    EXPECT_EQ(Experts(), "EXP\t7\t\\N\tDale Rice\t\\N\n");
}

TEST_F(DocumentSaveTest, AnEmptiedFieldOfAnOtherSourceStays) {
    Run("INSERT INTO qb_other_sources (source_id_prefix, qb_source_id, source, version) VALUES ('SRC', 4, "
        "'Marine list', '2023')");
    LinkName("SRC", 4);
    Load();
    sources.txtVersion.UserSetText("");
    sources.txtSourceType.UserSetText("website");
    sources.modify.UserClick();
    EXPECT_TRUE(Save(sources));
    EXPECT_EQ(Sources(), "SRC\t4\t\\N\twebsite\tMarine list\t2023\t\\N\t\\N\n");
}

TEST_F(DocumentSaveTest, ASecondDocumentOfTheSameContentIsRefused) {
    AddPublication("3", "17", "reference_author, publication_name", "'Gray', 'Notes'");
    AddPublication("4", "18", "reference_author, publication_name", "'Brown', 'Notes'");
    LinkName("PUB", 4);
    Run("INSERT INTO qb_experts (expert_id_prefix, qb_expert_id, expert) VALUES ('EXP', 7, 'Dale Rice')");
    Run("INSERT INTO qb_experts (expert_id_prefix, qb_expert_id, expert) VALUES ('EXP', 8, 'D. Rice')");
    LinkName("EXP", 8);
    Run("INSERT INTO qb_other_sources (source_id_prefix, qb_source_id, source) VALUES ('SRC', 4, 'List')");
    Run("INSERT INTO qb_other_sources (source_id_prefix, qb_source_id, source) VALUES ('SRC', 5, 'Lists')");
    LinkName("SRC", 5);
    Load();
    publications.cboAuthor.UserSetText("Gray");
    publications.chkPOD.UserSetValue(true);
    experts.cboExpert.UserSetText("Dale Rice");
    sources.cboSource.UserSetText("List");
    for (DocumentationTab* tab : Tabs()) {
        tab->modify.UserClick();
        EXPECT_TRUE(Save(*tab));
    }
    EXPECT_EQ(TakeMessages(),
              "You cannot update the Publications record for author = Gray because it would create a "
              "duplicate publications record with qb_publication_id of 3.\n"
              "You cannot update the Expert record for expert = Dale Rice and comment =  because it would "
              "create a duplicate expert record with qb_expert_id of 7.\n"
              "You cannot update the Other Sources record for author = List because it would create a "
              "duplicate other sources record with quillon source id of 4.\n");
    EXPECT_EQ(data.Dump("SELECT reference_author, original_desc_ind FROM qb_publications INNER JOIN "
                        "qb_reference_links ON qb_publication_id = qb_documentation_id WHERE "
                        "qb_documentation_id_prefix = 'PUB'"),
              "Brown\tFalse\n")
        << "the link of the row is left alone too";
}

TEST_F(DocumentSaveTest, DeletedRowsLeaveTombstonesAndTheDocumentGoesWithItsLastLink) {
    AddPublication("3", "17", "publication_name", "'Notes'");
    AddPublication("4", "18", "publication_name", "'Whales'");
    LinkName("PUB", 3, "17", "7001");
    LinkName("PUB", 4, "18", "7001");
    LinkName("PUB", 4, "18", "7002", 3);
    LinkVernacular("PUB", 3, 6, "Orque", "17", "7001", "60");
    Publish();
    Load();
    while (publications.grid.DataCount() > 0) publications.remove.UserClick();
    EXPECT_TRUE(Save(publications));
    EXPECT_EQ(Links(), "3\tPUB\t4\t7002\t18\tFalse\t\\N\t\\N\t\\N\n");
    EXPECT_EQ(Publications(), "PUB\t4\t18\t\\N\t\\N\tWhales\t\\N\t\\N\n");
    EXPECT_EQ(Tombstones(),
              "reference_links\tPUB\t17\t7001\t\\N\n"
              "reference_links\tPUB\t18\t7001\t\\N\n"
              "publications\tPUB\t17\t\\N\t\\N\n"
              "vern_ref_links\tPUB\t17\t7001\t60\n");
    EXPECT_EQ(publications.Pending(), PendingDeletes());
}

TEST_F(DocumentSaveTest, ARowAddedAndDeletedBeforeTheSaveStoresNothing) {
    AddPublication("3", "17", "publication_name", "'Notes'");
    TypePublication("Gray", "1846", "Whales");
    publications.add.UserClick();
    publications.remove.UserClick();
    EXPECT_TRUE(Save(publications));
    EXPECT_EQ(Publications(), "PUB\t3\t17\t\\N\t\\N\tNotes\t\\N\t\\N\n");
    EXPECT_EQ(TakeMessages(), "");
}

TEST_F(DocumentSaveTest, ANewRowInAStoredRecordGetsItsIds) {
    TypePublication("Gray", "1846", "Notes");
    publications.add.UserClick();
    Run("INSERT INTO db_tombstone (table_name, pk1, pk2, pk3) VALUES ('reference_links', 'PUB', '17', "
        "'7001')");
    Run("INSERT INTO db_tombstone (table_name, pk1, pk2, pk3) VALUES ('reference_links', 'PUB', '18', "
        "'7001')");
    AddPublication("3", "17", "publication_name", "'Notes'");
    Publish();
    EXPECT_TRUE(Save(publications));
    EXPECT_EQ(TextOf(publications.grid.Rows()[0]),
              "Orcinus  orca|Gray|No|1846||Notes||||||||3|17|0|Scientific Name|0|0");
    EXPECT_EQ(Tombstones(), "reference_links\tPUB\t18\t7001\t\\N\n") << "that link is back";
}

TEST_F(DocumentSaveTest, AVernacularRowTurnsIntoOneOfTheName) {
    AddPublication("3", "17", "publication_name", "'Notes'");
    LinkVernacular("PUB", 3, 6, "Orque", "17", "7001", "60");
    Publish();
    Load();
    Associate("Scientific Name");
    publications.chkPOD.UserSetValue(true);
    publications.modify.UserClick();
    EXPECT_TRUE(Save(publications));
    EXPECT_EQ(Links(), "2\tPUB\t3\t7001\t17\tTrue\t\\N\t\\N\t\\N\n");
    EXPECT_EQ(Tombstones(), "vern_ref_links\tPUB\t17\t7001\t60\n");
    EXPECT_EQ(Publications(), "PUB\t3\t17\t\\N\t\\N\tNotes\t\\N\t\\N\n");
    publications.Load(2);
    Associate("Vernacular", "Orque [French]");
    publications.chkPOD.UserSetValue(false);
    publications.modify.UserClick();
    EXPECT_TRUE(Save(publications));
    EXPECT_EQ(Links(), "2\t6\t60\tPUB\t3\t7001\t17\tOrque\n");
    EXPECT_EQ(Tombstones(), "reference_links\tPUB\t17\t7001\t\\N\n") << "the vernacular's link is back";
    EXPECT_EQ(TakeMessages(), "");
}

TEST_F(DocumentSaveTest, ModifyToAnotherVernacularPointsTheLinkThere) {
    AddPublication("3", "17", "publication_name", "'Notes'");
    LinkVernacular("PUB", 3, 5, "Killer whale", "17", "7001", "50");
    Publish();
    Load();
    Associate("Vernacular", "Orque [French]");
    publications.modify.UserClick();
    EXPECT_TRUE(Save(publications));
    EXPECT_EQ(Links(), "2\t6\t60\tPUB\t3\t7001\t17\tOrque\n");
    EXPECT_EQ(Tombstones(), "vern_ref_links\tPUB\t17\t7001\t50\n") << "the link that went";
}

TEST_F(DocumentSaveTest, ModifyToAnotherVernacularSurvivesTheDeletionOfTheFirst) {
    AddPublication("3", "17", "publication_name", "'Notes'");
    LinkVernacular("PUB", 3, 5, "Killer whale");
    Load();
    Associate("Vernacular", "Orque [French]");
    publications.modify.UserClick();
    Run("DELETE FROM qb_vern_ref_links");
    Run("DELETE FROM qb_publications");
    EXPECT_TRUE(Save(publications));
    EXPECT_EQ(Publications(), "PUB\t4\t0\t\\N\t\\N\tNotes\t\\N\t\\N\n");
    EXPECT_EQ(Links(), "2\t6\t60\tPUB\t4\t\\N\t0\tOrque\n");
}

TEST_F(DocumentSaveTest, ARenamedVernacularKeepsItsLinksUnderTheNewName) {
    AddPublication("3", "17", "publication_name", "'Notes'");
    AddPublication("4", "18", "publication_name", "'Whales'");
    LinkVernacular("PUB", 3, 5, "Killer whale", "17", "7001", "50");
    LinkVernacular("PUB", 4, 5, "Killer whale", "18", "7001", "50");
    Publish();
    Load();
    publications.RenameVernacular(5, "Grampus [English]");
    Run("UPDATE qb_vernaculars SET vernacular_name = 'Grampus' WHERE qb_vern_id = 5");
    EXPECT_TRUE(Save(publications));
    EXPECT_EQ(Links(),
              "2\t5\t50\tPUB\t3\t7001\t17\tGrampus\n"
              "2\t5\t50\tPUB\t4\t7001\t18\tGrampus\n");
    EXPECT_EQ(Tombstones(), "");
}

TEST_F(DocumentSaveTest, ALinkToAVernacularThatIsGoneGoes) {
    AddPublication("3", "17", "publication_name", "'Notes'");
    AddPublication("4", "NULL", "publication_name", "'Whales'");
    LinkVernacular("PUB", 3, 9, "Grampus", "17", "7001", "90");
    LinkVernacular("PUB", 4, 9, "Grampus", "NULL", "7001", "90");
    LinkName("PUB", 4);
    Publish();
    Load();
    EXPECT_TRUE(Save(publications));
    EXPECT_EQ(Links(), "2\tPUB\t4\t\\N\t\\N\tFalse\t\\N\t\\N\t\\N\n");
    EXPECT_EQ(Tombstones(), "vern_ref_links\tPUB\t17\t7001\t90\n");
    EXPECT_EQ(TakeMessages(), "");
}

TEST_F(DocumentSaveTest, ALinkFollowsTheDocumentOfItsRow) {
    Run("INSERT INTO qb_other_sources (source_id_prefix, qb_source_id, source_id, source) VALUES ('SRC', 4, "
        "40, 'List')");
    Run("INSERT INTO qb_other_sources (source_id_prefix, qb_source_id, source_id, source) VALUES ('SRC', 5, "
        "50, 'Lists')");
    LinkName("SRC", 4, "40");
    LinkVernacular("SRC", 4, 5, "Killer whale", "40");
    Load();
    for (const std::size_t row : {0U, 1U}) {
        sources.grid.SetCell(row, 6, "5");
        sources.grid.SetCell(row, 1, "Lists");
    }
    EXPECT_TRUE(Save(sources));
    EXPECT_EQ(TakeMessages(), "The Reference Link has changed for qb_source_id = 4 to 5\n");
    EXPECT_EQ(Links(),
              "2\tSRC\t5\t\\N\t50\tFalse\t\\N\t\\N\t\\N\n"
              "2\t5\t\\N\tSRC\t5\t\\N\t50\tKiller whale\n");
}

TEST_F(DocumentSaveTest, AFailedStatementTakesBackItselfOnly) {
    AddPublication("3", "17", "publication_name", "'Notes'");
    LinkName("PUB", 3);
    Load();
    TypePublication("Gray", "1846", "Whales");
    publications.add.UserClick();
    publications.grid.SetCell(0, 9, "an ISBN that is too long");
    EXPECT_TRUE(Save(publications));
    EXPECT_EQ(TakeMessages().substr(0, 7), "Failed ");
    EXPECT_EQ(Publications(),
              "PUB\t3\t17\t\\N\t\\N\tNotes\t\\N\t\\N\n"
              "PUB\t4\t0\tGray\t\\N\tWhales\t1846\t\\N\n");
}

TEST_F(DocumentSaveTest, AFailedRemovalOfALinkEndsTheSave) {
    AddPublication("3", "17", "publication_name", "'Notes'");
    AddPublication("4", "18", "publication_name", "'Whales'");
    LinkVernacular("PUB", 3, 5, "Killer whale");
    LinkName("PUB", 4);
    Load();
    Associate("Scientific Name");
    publications.modify.UserClick();
    publications.grid.SetCell(1, 5, "Whales and dolphins");
    data.db()
        .OpenQueryDef("Delete VReference Link")
        .SetSQL(
            "PARAMETERS qbid Long, prefix Text, docid Long, qbvernid Long; UPDATE qb_vern_ref_links SET "
            "qb_documentation_id_prefix = 'too long';");
    EXPECT_FALSE(Save(publications));
    EXPECT_EQ(TakeMessages().substr(0, 7), "Failed ");
    EXPECT_EQ(data.Dump("SELECT publication_name FROM qb_publications"), "Notes\nWhales\n");
}

TEST_F(DocumentSaveTest, ARowThatMatchesALinkedDocumentStoresNoSecondLink) {
    AddPublication("3", "17", "publication_name", "'Notes'");
    LinkName("PUB", 3);
    Load();
    TypePublication("Gray", "1846", "Notes");
    publications.add.UserClick();
    EXPECT_TRUE(Save(publications));
    EXPECT_EQ(Links(), "2\tPUB\t3\t\\N\t\\N\tFalse\t\\N\t\\N\t\\N\n");
    EXPECT_EQ(TakeMessages(), "");
}

TEST_F(DocumentSaveTest, ASaveMakesTheListStaleAndReadsNothing) {
    publications.OfferLists();
    EXPECT_EQ(TextOf(publications.cboAuthor), "");
    TypePublication("Gray", "1846", "Notes");
    publications.add.UserClick();
    SaveNew(publications);
    publications.RefreshLists();
    EXPECT_TRUE(publications.cboAuthor.ChoicesPending());
    EXPECT_EQ(TextOf(publications.cboAuthor), "Gray");
    EXPECT_EQ(publications.cboAuthor.Text(), "Gray");
}

}  // namespace
}  // namespace quillon::documentation
