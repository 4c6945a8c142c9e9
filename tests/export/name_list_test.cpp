#include "export/name_list.h"

#include "export_fixture.h"

namespace quillon::exporting {
namespace {

class NameList : public ExportTest {
protected:
    ExportResult Write(ListType type) {
        ExportOrder order;
        order.kind = ExportKind::List;
        order.listType = type;
        return RunJob(order);
    }
    std::string List(ListType type) {
        EXPECT_EQ(Write(type).outcome, ExportOutcome::Done);
        return OutFile();
    }
};

TEST_F(NameList, NamesAreComposedOfWhatIsNotEmpty) {
    Insert(
        "qb_taxonomic_units",
        "qb_id, unit_ind1, unit_name1, unit_ind2, unit_name2, unit_ind3, unit_name3, unit_ind4, unit_name4",
        {"2, 'X', 'Alpha', 'x', 'beta', 'var.', 'gamma', 'f.', 'delta'",
         "3, Null, 'Alpha', Null, Null, 'ssp.', Null, Null, 'eps'",
         "4, Null, Null, Null, 'beta', Null, Null, Null, Null",
         "5, 'X', Null, Null, Null, Null, Null, Null, Null"});
    EXPECT_EQ(List(ListType::Name), Lines({"name", "Animalia", "X Alpha x beta var. gamma f. delta",
                                           "Alpha ssp. eps", " beta", "X "}));
    EXPECT_EQ(set.state.gExportedCount, 5);
    EXPECT_TRUE(set.prompter.messages.empty());
}

TEST_F(NameList, AuthorsAndRanksFollow) {
    Insert("qb_taxon_authors_lookup", "qb_taxon_author_id, taxon_author", {"7, 'Müller, 1776'", "8, Null"});
    AddTaxon(2, "Alpha");
    SetTaxon(2, "qb_taxon_author_id", "7");
    AddTaxon(3, "Beta");
    SetTaxon(3, "qb_taxon_author_id", "8");
    SetTaxon(3, "rank_id", "Null");
    AddTaxon(4, "Gamma");
    SetTaxon(4, "qb_taxon_author_id", "99");
    SetTaxon(4, "rank_id", "7777");
    EXPECT_EQ(List(ListType::NameAuthor),
              Lines({"name|author", "Animalia|", "Alpha|M\xFCller, 1776", "Beta|", "Gamma|"}));
    EXPECT_EQ(List(ListType::NameAuthorRank), Lines({"name|author|rank", "Animalia||Kingdom",
                                                     "Alpha|M\xFCller, 1776|Genus", "Beta||", "Gamma||"}));
}

TEST_F(NameList, RankIsTheFirstOfItsId) {
    Insert("taxonomic_unit_types", "kingdom_id, rank_id, rank_name", {"1, 10, 'Domain'", "9, 10, 'Other'"});
    EXPECT_EQ(List(ListType::NameAuthorRank), Lines({"name|author|rank", "Animalia||Domain"}));
}

TEST_F(NameList, FiltersChooseTheTaxa) {
    AddTaxon(2, "Alpha");
    AddTaxon(3, "Beta");
    AddToJournal({3, 1, 9});
    FilterByJournal();
    EXPECT_EQ(List(ListType::Name), Lines({"name", "Animalia", "Beta"}));
    EXPECT_EQ(set.state.gRecordsTotal, 2);
    FilterBy("unit_name1", "<", "Animalia");
    EXPECT_EQ(List(ListType::Name), Lines({"name", "Alpha"}));
    EXPECT_EQ(set.state.gRecordsTotal, 1);
    EXPECT_EQ(gauge.back(), 100);
}

TEST_F(NameList, InvalidTypeIsReportedAndEndsTheWriting) {
    EXPECT_EQ(Write(static_cast<ListType>(4)).outcome, ExportOutcome::Done);
    EXPECT_EQ(set.prompter.messages, std::vector<std::string>{"Export Type of 4 is invalid!"});
    EXPECT_EQ(OutFile(), "");
    EXPECT_EQ(set.state.gExportedCount, 0);
}

TEST_F(NameList, CancelEndsTheLoop) {
    AddTaxon(2, "Alpha");
    AddTaxon(3, "Beta");
    pump.cancelAt = 3;
    EXPECT_EQ(Write(ListType::Name).outcome, ExportOutcome::Canceled);
    EXPECT_FALSE(HasOutFile());
}

TEST_F(NameList, SeparatorsInNamesAreCounted) {
    AddTaxon(2, "Al|pha");
    EXPECT_EQ(Write(ListType::NameAuthor).breaking.count, 1);
    EXPECT_EQ(Describe(Write(ListType::NameAuthor).breaking.first), "name: Al|pha");
}

}  // namespace
}  // namespace quillon::exporting
