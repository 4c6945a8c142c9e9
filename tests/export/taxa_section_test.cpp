#include "export_fixture.h"

namespace quillon::exporting {
namespace {

class TaxaSection : public ExportTest {};

TEST_F(TaxaSection, RootIsItsOwnParentAndHasNoAuthors) {
    Insert("qb_taxon_authors_lookup", "qb_taxon_author_id, taxon_author_id, taxon_author",
           {"4, 44, 'Linnaeus, 1758'"});
    SetTaxon(1, "qb_taxon_author_id", "4");
    SetTaxon(1, "hybrid_author_id", "4");
    SetTaxon(1, "parent_tsn", "77");
    SetTaxon(1, "parent_qb_id", "88");
    EXPECT_EQ(TaggedLines("[TU]"), Lines({kRootLine}));
    EXPECT_EQ(set.state.gExportedCount, 2) << "the author is written, as the root uses it";
    EXPECT_EQ(taxaWritten, 1);
}

TEST_F(TaxaSection, WritesAllFieldsInTheirOrder) {
    Insert("qb_taxon_authors_lookup", "qb_taxon_author_id, taxon_author_id", {"4, 44", "5, 55"});
    Insert("qb_taxonomic_units",
           "qb_id, tsn, unit_ind1, unit_name1, unit_ind2, unit_name2, unit_ind3, unit_name3, unit_ind4, "
           "unit_name4, "
           "unnamed_taxon_ind, usage, unacceptability_reason, taxonomic_credibility_rating, "
           "taxonomic_completeness_rating, currency_rating, phylo_sort_sequence, initial_time_stamp, "
           "parent_tsn, "
           "parent_qb_id, qb_taxon_author_id, hybrid_author_id, kingdom_id, rank_id, uncertain_parent_ind",
           {"2, 200, 'X', 'Alpha', 'x', 'beta', 'var.', 'gamma', 'f.', 'delta', 'N', 'invalid', 'junior "
            "synonym', "
            "'KSP standards met', 'partial', '2005', 7, '2001-02-03 04:05:06', 100, 1, 4, 5, 5, 220, True"});
    EXPECT_EQ(TaggedLines("[TU]2|"), Lines({"[TU]2|200|X|Alpha|x|beta|var.|gamma|f.|delta|N|invalid|junior "
                                            "synonym|KSP standards met|partial|"
                                            "2005|7|2001-02-03 04:05:06|100|1|44|4|5|5|220|Yes|"}));
}

TEST_F(TaxaSection, ZeroAndNullAreWrittenAsNothing) {
    Insert("qb_taxonomic_units",
           "qb_id, tsn, phylo_sort_sequence, parent_tsn, qb_taxon_author_id, hybrid_author_id, "
           "kingdom_id, rank_id, unit_name1",
           {"2, 0, 0, 0, 0, 0, 5, 0, '0'", "3, Null, Null, Null, Null, Null, 5, Null, Null"});
    EXPECT_EQ(TaggedLines("[TU]"), Lines({kRootLine, "[TU]2|||0||||||||||||||||||||5||No|",
                                          "[TU]3|||||||||||||||||||||||5||No|"}));
}

TEST_F(TaxaSection, CutReasonIsWrittenWhole) {
    AddTaxon(2, "Alpha");
    SetTaxon(2, "unacceptability_reason", "'syn-original combina'");
    SetTaxon(2, "parent_tsn", "100");
    EXPECT_EQ(TaggedLines("[TU]2|"),
              Lines({"[TU]2|101||Alpha||||||||valid|syn-original combination||||||100|1||||5|180|No|"}));
}

TEST_F(TaxaSection, MissingParentTsnIsFilledInTheDataSet) {
    AddTaxon(2, "Alpha");
    AddTaxon(3, "Beta", 2);
    SetTaxon(3, "parent_tsn", "999");
    AddTaxon(4, "Gamma", 5);
    AddTaxon(5, "Delta");
    SetTaxon(5, "tsn", "Null");
    EXPECT_EQ(TaggedLines("[TU]"),
              Lines({kRootLine, TaxonLine(2, "Alpha", "100", 1), TaxonLine(3, "Beta", "999", 2),
                     TaxonLine(4, "Gamma", "", 5), "[TU]5|||Delta||||||||valid|||||||100|1||||5|180|No|"}));
    EXPECT_EQ(set.Dump("SELECT qb_id, parent_tsn FROM qb_taxonomic_units WHERE qb_id > 1 ORDER BY qb_id"),
              "2\t100\n3\t999\n4\t\\N\n5\t100\n");
}

TEST_F(TaxaSection, TaxonWhoseParentIsNotExportedGetsTheKingdomAsParent) {
    AddTaxon(2, "Alpha");
    AddTaxon(3, "Beta", 2);
    AddTaxon(4, "Gamma", 3);
    AddToJournal({3, 4});
    FilterByJournal();
    EXPECT_EQ(Tagged(), Lines({kRootLine, TaxonLine(3, "Beta", "101", 1), TaxonLine(4, "Gamma", "102", 3)}));
}

TEST_F(TaxaSection, MissingParentBecomesTheKingdomAndNoParentStaysNone) {
    AddTaxon(2, "Alpha", 77);
    AddTaxon(3, "Beta");
    SetTaxon(3, "parent_qb_id", "Null");
    AddTaxon(4, "Gamma", 0);
    EXPECT_EQ(TaggedLines("[TU]"),
              Lines({kRootLine, TaxonLine(2, "Alpha", "", 1),
                     "[TU]3|102||Beta||||||||valid||||||||||||5|180|No|", TaxonLine(4, "Gamma", "", 1)}));
}

TEST_F(TaxaSection, ParentInTheJournalNeedsNoTaxon) {
    AddTaxon(2, "Alpha", 77);
    AddToJournal({2, 77});
    FilterByJournal();
    EXPECT_EQ(Tagged(), Lines({kRootLine, TaxonLine(2, "Alpha", "", 77)}));
}

TEST_F(TaxaSection, RootIsWrittenOnceThoughTheFilterGivesIt) {
    AddTaxon(2, "Alpha");
    AddToJournal({1, 2});
    FilterByJournal();
    const std::string expected = Lines({kRootLine, TaxonLine(2, "Alpha", "100", 1)});
    EXPECT_EQ(Tagged(), expected);
    FilterBy("kingdom_id", "=", "5");
    EXPECT_EQ(Tagged(), expected);
    EXPECT_EQ(taxaWritten, 2);
}

TEST_F(TaxaSection, ColumnClauseChoosesTaxa) {
    AddTaxon(2, "Alpha");
    AddTaxon(3, "Beta", 2);
    FilterBy("unit_name1", "Like", "b*");
    EXPECT_EQ(Tagged(), Lines({kRootLine, TaxonLine(3, "Beta", "101", 1)}));
    FilterBy("tsn", "<=", "101");
    EXPECT_EQ(Tagged(), Lines({kRootLine, TaxonLine(2, "Alpha", "100", 1)}));
    FilterBy("uncertain_parent_ind", "=", "Yes");
    SetTaxon(3, "uncertain_parent_ind", "True");
    EXPECT_EQ(Tagged(), Lines({kRootLine, "[TU]3|102||Beta||||||||valid|||||||101|1||||5|180|Yes|"}));
}

TEST_F(TaxaSection, AuthorThatIsNotThereHasNoAuthorityId) {
    AddTaxon(2, "Alpha");
    SetTaxon(2, "qb_taxon_author_id", "9");
    EXPECT_EQ(TaggedLines("[TU]2|"), Lines({"[TU]2|101||Alpha||||||||valid|||||||100|1||9||5|180|No|"}));
}

TEST_F(TaxaSection, TaxonWithoutKingdomCancelsAfterItsLine) {
    AddTaxon(2, "Alpha");
    SetTaxon(2, "kingdom_id", "Null");
    SetTaxon(2, "unit_name3", "'gamma'");
    AddTaxon(3, "Beta");
    Insert("qb_nodc_ids", "nodc_id, qb_id", {"'77', 1"});
    EXPECT_EQ(Tagged(), Lines({kRootLine, "[TU]2|101||Alpha||||gamma||||valid|||||||100|1|||||180|No|"}));
    EXPECT_EQ(set.prompter.messages,
              std::vector<std::string>{"record Alpha  gamma  has no kingdom!  Cancelling export."});
    EXPECT_TRUE(set.state.gBatchCancel);
}

TEST_F(TaxaSection, RejectedTaxonWithoutKingdomCancelsToo) {
    AddTaxon(2, "Alpha");
    SetTaxon(2, "kingdom_id", "Null");
    set.state.gRejectedTaxa = {2};
    EXPECT_EQ(Tagged(), Lines({kRootLine}));
    EXPECT_TRUE(set.state.gBatchCancel);
}

TEST_F(TaxaSection, SecondRootIsATaxonLikeOthers) {
    AddTaxon(2, "Alpha");
    SetTaxon(2, "rank_id", "10");
    EXPECT_EQ(Tagged(), Lines({kRootLine, "[TU]2|101||Alpha||||||||valid|||||||100|1||||5|10|No|"}));
}

TEST_F(TaxaSection, DataSetWithoutARootCannotBeExported) {
    SetTaxon(1, "rank_id", "20");
    EXPECT_EQ(RunJob().outcome, ExportOutcome::Failed);
    EXPECT_EQ(set.prompter.messages, std::vector<std::string>{"No current record."});
    EXPECT_FALSE(HasOutFile());
}

TEST_F(TaxaSection, RootWithoutAKingdomCannotBeExported) {
    SetTaxon(1, "kingdom_id", "Null");
    EXPECT_EQ(RunJob().outcome, ExportOutcome::Failed);
    EXPECT_EQ(set.prompter.messages, std::vector<std::string>{"Invalid use of Null"});
    EXPECT_FALSE(HasOutFile());
}

TEST_F(TaxaSection, IdsFarApartKeepTheirPlaces) {
    AddTaxon(2000000000, "Omega");
    AddTaxon(2, "Alpha", 2000000000);
    AddToJournal({2, 2000000000});
    FilterByJournal();
    EXPECT_EQ(Tagged(), Lines({kRootLine, TaxonLine(2, "Alpha", "2000000099", 2000000000),
                               TaxonLine(2000000000, "Omega", "100", 1)}));
}

}  // namespace
}  // namespace quillon::exporting
