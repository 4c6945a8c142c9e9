#include "selection/record_filter.h"

#include "selection/selected_rows.h"
#include "selection_fixture.h"

namespace quillon::selection {

namespace {

class RecordFilter : public SelectionTest {
protected:
    std::string Check(std::string_view column, std::string_view comparison, std::string_view value) {
        return CheckColumnClause(set.db(), column, comparison, value).value_or("");
    }
    std::vector<std::int64_t> Ids(std::string_view table, std::string_view filter, std::string_view column) {
        std::vector<std::int64_t> ids;
        const SelectedTaxa taxa = Selected(filter);
        SelectedRows rows(set.db(), table, fmt::format("{}, {}", KeyOf(table), column), taxa);
        const std::size_t place = KeyOf(table).find(',') == std::string_view::npos ? 1 : 2;
        while (rows.Next())
            for (int visit = 0; visit < rows.Visits(); ++visit) ids.push_back(rows.Row().Long(place));
        return ids;
    }
    static std::string_view KeyOf(std::string_view table) {
        if (table == "qb_taxon_authors_lookup") return "qb_taxon_author_id";
        if (table == "qb_publications") return "publication_id_prefix, qb_publication_id";
        if (table == "qb_experts") return "expert_id_prefix, qb_expert_id";
        if (table == "qb_other_sources") return "source_id_prefix, qb_source_id";
        return "qb_id";
    }
    std::vector<std::int64_t> Taxa(std::string_view filter) {
        return Ids("qb_taxonomic_units", filter, "qb_id");
    }
};

using Numbers = std::vector<std::int64_t>;

TEST_F(RecordFilter, ColumnClauseHasItsFixedForm) {
    EXPECT_EQ(ColumnClause("taxonomic_credibility_rating", "=", "KSP Standards Met"),
              " WHERE taxonomic_credibility_rating = \"KSP Standards Met\"");
}

TEST_F(RecordFilter, AnyFieldOfATaxonMayBeCompared) {
    EXPECT_EQ(Check("usage", "=", "valid"), "");
    EXPECT_EQ(Check("USAGE", "<>", ""), "");
    EXPECT_EQ(Check("unit_name1", "like", "A*"), "");
    EXPECT_EQ(Check("rank_id", ">=", "180"), "");
    EXPECT_EQ(Check("rank_id", "Like", "1*"), "");
    EXPECT_EQ(Check("uncertain_parent_ind", "=", "True"), "");
}

TEST_F(RecordFilter, UnknownColumnIsReported) {
    EXPECT_EQ(Check("language", "=", "French"), "The column 'language' is no field of qb_taxonomic_units.");
    EXPECT_EQ(Check("", "=", "x"), "The column '' is no field of qb_taxonomic_units.");
    EXPECT_EQ(Check("usage]", "=", "x"), "The column 'usage]' is no field of qb_taxonomic_units.");
    EXPECT_EQ(Check("1=1 OR usage", "=", "x"),
              "The column '1=1 OR usage' is no field of qb_taxonomic_units.");
}

TEST_F(RecordFilter, UnknownOperatorIsReported) {
    const std::string known = " is no operator: it is one of =, <>, <, >, <=, >=, Like.";
    EXPECT_EQ(Check("usage", "==", "x"), "'=='" + known);
    EXPECT_EQ(Check("usage", "", "x"), "''" + known);
    EXPECT_EQ(Check("usage", "In", "x"), "'In'" + known);
    EXPECT_EQ(Check("usage", "= \"a\" OR usage =", "x"), "'= \"a\" OR usage ='" + known);
}

TEST_F(RecordFilter, ValueWithADoubleQuoteIsReported) {
    const std::string message = "The value of a filter may not hold a double quote.";
    EXPECT_EQ(Check("usage", "=", "va\"lid"), message);
    EXPECT_EQ(Check("usage", "=", "x\" OR \"1\" = \"1"), message);
    EXPECT_EQ(Check("usage", "=", "\"\""), message);
}

TEST_F(RecordFilter, ANumberIsComparedWithANumber) {
    EXPECT_EQ(Check("rank_id", "<", "low"),
              "The column 'rank_id' holds no texts, so it cannot be compared with 'low'.");
    EXPECT_EQ(Check("uncertain_parent_ind", "=", "perhaps"),
              "The column 'uncertain_parent_ind' holds no texts, so it cannot be compared with 'perhaps'.");
}

TEST_F(RecordFilter, WholeFilterIsCheckedWhereverItComesFrom) {
    EXPECT_FALSE(CheckRecordFilter(set.db(), "none"));
    EXPECT_FALSE(CheckRecordFilter(set.db(), "journal"));
    EXPECT_FALSE(CheckRecordFilter(set.db(), " WHERE usage = \"valid\""));
    EXPECT_EQ(CheckRecordFilter(set.db(), " WHERE usage = \"valid\"; DELETE * FROM journal"),
              "'WHERE usage = \"valid\"; DELETE * FROM journal' is no filter.");
    EXPECT_EQ(CheckRecordFilter(set.db(), " WHERE usage = \"a\" OR usage = \"b\""),
              "The value of a filter may not hold a double quote.");
    EXPECT_EQ(CheckRecordFilter(set.db(), "everything"), "'everything' is no filter.");
    EXPECT_EQ(CheckRecordFilter(set.db(), ""), "'' is no filter.");
}

TEST_F(RecordFilter, TextOfTheCommandLineIsColumnOperatorAndTheRest) {
    std::string filter;
    EXPECT_FALSE(ReadFilterText(set.db(), "taxonomic_credibility_rating = KSP standards met", filter));
    EXPECT_EQ(filter, " WHERE taxonomic_credibility_rating = \"KSP standards met\"");
    EXPECT_FALSE(ReadFilterText(set.db(), "journal", filter));
    EXPECT_EQ(filter, "journal");
    EXPECT_EQ(ReadFilterText(set.db(), "usage", filter),
              "'usage' is no filter: it is none, journal, or a column, an operator and a value.");
    EXPECT_EQ(ReadFilterText(set.db(), "usage is valid", filter),
              "'is' is no operator: it is one of =, <>, <, >, <=, >=, Like.");
    EXPECT_EQ(filter, "journal");
}

TEST_F(RecordFilter, TheSelectIsTheTableWithoutAFilter) {
    EXPECT_EQ(BuildValidationSelect("qb_experts", "none", false), "qb_experts");
    EXPECT_EQ(BuildValidationSelect("qb_experts", "none", true),
              "SELECT COUNT(*) As expr1000 FROM qb_experts");
}

TEST_F(RecordFilter, SelectsOfTheJournal) {
    EXPECT_EQ(BuildValidationSelect("qb_taxonomic_units", "journal", false),
              "SELECT qb_taxonomic_units.* FROM qb_taxonomic_units INNER JOIN journal ON "
              "qb_taxonomic_units.qb_id = journal.qb_id;");
    EXPECT_EQ(BuildValidationSelect("qb_taxonomic_units", "journal", true),
              "SELECT COUNT(*) As expr1000 FROM qb_taxonomic_units INNER JOIN journal ON "
              "qb_taxonomic_units.qb_id = journal.qb_id;");
    EXPECT_EQ(
        BuildValidationSelect("qb_taxon_authors_lookup", "journal", false),
        "SELECT qb_taxon_authors_lookup.* FROM (qb_taxon_authors_lookup INNER JOIN qb_taxonomic_units ON "
        "qb_taxon_authors_lookup.qb_taxon_author_id = qb_taxonomic_units.qb_taxon_author_id) INNER JOIN "
        "journal "
        "ON qb_taxonomic_units.qb_id = journal.qb_id");
    EXPECT_EQ(BuildValidationSelect("qb_reference_links", "journal", true),
              "SELECT COUNT(*) FROM (qb_taxonomic_units INNER JOIN qb_reference_links ON "
              "qb_taxonomic_units.qb_id = qb_reference_links.qb_id) INNER JOIN journal ON "
              "qb_taxonomic_units.qb_id = journal.qb_id;");
    EXPECT_EQ(BuildValidationSelect("qb_vernaculars", "journal", false),
              "SELECT qb_vernaculars.* FROM qb_vernaculars INNER JOIN journal ON qb_vernaculars.qb_id = "
              "journal.qb_id;");
    EXPECT_EQ(
        BuildValidationSelect("qb_jurisdiction", "journal", false),
        "SELECT qb_jurisdiction.* FROM (qb_taxonomic_units INNER JOIN journal ON qb_taxonomic_units.qb_id = "
        "journal.qb_id) INNER JOIN qb_jurisdiction ON qb_taxonomic_units.qb_id = qb_jurisdiction.qb_id;");
    EXPECT_EQ(
        BuildValidationSelect("qb_publications", "journal", false),
        "SELECT DISTINCTROW qb_publications.* FROM qb_publications INNER JOIN ((qb_taxonomic_units INNER "
        "JOIN "
        "qb_reference_links ON qb_taxonomic_units.qb_id = qb_reference_links.qb_id) INNER JOIN journal ON "
        "qb_taxonomic_units.qb_id = journal.qb_id) ON (qb_publications.qb_publication_id = "
        "qb_reference_links.qb_documentation_id) AND (qb_publications.publication_id_prefix = "
        "qb_reference_links.qb_documentation_id_prefix);");
    EXPECT_EQ(BuildValidationSelect("qb_comments", "journal", false), "");
}

TEST_F(RecordFilter, ClauseIsAppendedToASelect) {
    const std::string clause = ColumnClause("usage", "=", "valid");
    EXPECT_EQ(BuildValidationSelect("qb_taxonomic_units", clause, false),
              "SELECT qb_taxonomic_units.*  FROM qb_taxonomic_units  WHERE usage = \"valid\"");
    EXPECT_EQ(BuildValidationSelect("qb_vern_ref_links", clause, true),
              "SELECT COUNT(*) FROM qb_taxonomic_units INNER JOIN qb_vern_ref_links ON "
              "qb_taxonomic_units.qb_id = qb_vern_ref_links.qb_id  WHERE usage = \"valid\"");
    EXPECT_EQ(BuildValidationSelect("qb_comments", clause, false), "");
}

TEST_F(RecordFilter, EveryOperatorRuns) {
    const auto taxa = [&](std::string_view column, std::string_view comparison, std::string_view value) {
        return Taxa(ColumnClause(column, comparison, value));
    };
    EXPECT_EQ(taxa("rank_id", "=", "180"), (Numbers{2}));
    EXPECT_EQ(taxa("rank_id", "<>", "180"), (Numbers{1, 3}));
    EXPECT_EQ(taxa("rank_id", "<", "180"), (Numbers{1}));
    EXPECT_EQ(taxa("rank_id", ">", "99"), (Numbers{2, 3}));
    EXPECT_EQ(taxa("rank_id", "<=", "180"), (Numbers{1, 2}));
    EXPECT_EQ(taxa("rank_id", ">=", "180"), (Numbers{2, 3}));
    EXPECT_EQ(taxa("unit_name1", "Like", "alph?"), (Numbers{2, 3}));
    EXPECT_EQ(taxa("unit_name1", "=", "ALPHA"), (Numbers{2, 3}));
    EXPECT_EQ(taxa("unit_name1", "=", "it's | \\ ;--"), Numbers{});
    EXPECT_EQ(taxa("uncertain_parent_ind", "=", "True"), Numbers{});
    Set(3, "uncertain_parent_ind", "True");
    EXPECT_EQ(taxa("uncertain_parent_ind", "=", "Yes"), (Numbers{3}));
    EXPECT_EQ(taxa("uncertain_parent_ind", "=", "-1"), (Numbers{3}));
}

TEST_F(RecordFilter, ColumnOfBothJoinedTablesIsTheTaxons) {
    Run("INSERT INTO qb_vernaculars (qb_id, qb_vern_id, vernacular_name) VALUES (3, 7, 'Beta moth')");
    Run("INSERT INTO qb_vernaculars (qb_id, qb_vern_id, vernacular_name) VALUES (2, 8, 'Alpha moth')");
    Run("INSERT INTO qb_jurisdiction (qb_id, jurisdiction_value) VALUES (3, 'Alaska')");
    Set(3, "tsn", "77");
    for (const std::string& filter : {ColumnClause("qb_id", "=", "3"), ColumnClause("tsn", "=", "77")}) {
        EXPECT_EQ(Ids("qb_vernaculars", filter, "qb_vern_id"), (Numbers{7})) << filter;
        EXPECT_EQ(Ids("qb_reference_links", filter, "qb_id"), (Numbers{3})) << filter;
        EXPECT_EQ(Ids("qb_jurisdiction", filter, "qb_id"), (Numbers{3})) << filter;
        EXPECT_EQ(Ids("qb_taxon_authors_lookup", filter, "qb_taxon_author_id"), (Numbers{1})) << filter;
        EXPECT_EQ(Ids("qb_publications", filter, "qb_publication_id"), (Numbers{1})) << filter;
    }
}

TEST_F(RecordFilter, AuthorIsVisitedOnceATaxonAndADocumentOnce) {
    const std::string all = ColumnClause("rank_id", ">", "10");
    Run("INSERT INTO journal (qb_id) VALUES (2)");
    Run("INSERT INTO journal (qb_id) VALUES (3)");
    Run("INSERT INTO qb_experts (expert_id_prefix, qb_expert_id, expert) VALUES ('EXP', 4, 'Jones')");
    Run("INSERT INTO qb_other_sources (source_id_prefix, qb_source_id, source) VALUES ('SRC', 5, 'List')");
    for (const int qb_id : {2, 3}) {
        Refer(qb_id, "EXP", 4);
        Refer(qb_id, "SRC", 5);
    }
    for (const std::string_view filter : {std::string_view("journal"), std::string_view(all)}) {
        EXPECT_EQ(Ids("qb_taxon_authors_lookup", filter, "qb_taxon_author_id"), (Numbers{1, 1})) << filter;
        EXPECT_EQ(Ids("qb_publications", filter, "qb_publication_id"), (Numbers{1})) << filter;
        EXPECT_EQ(Ids("qb_experts", filter, "qb_expert_id"), (Numbers{4})) << filter;
        EXPECT_EQ(Ids("qb_other_sources", filter, "qb_source_id"), (Numbers{5})) << filter;
    }
}

TEST_F(RecordFilter, DocumentOfAnotherPrefixIsNotReached) {
    Run("INSERT INTO qb_experts (expert_id_prefix, qb_expert_id, expert) VALUES ('EXP', 1, 'Jones')");
    EXPECT_EQ(Ids("qb_experts", ColumnClause("rank_id", ">", "10"), "qb_expert_id"), Numbers{});
    EXPECT_EQ(Ids("qb_experts", "none", "qb_expert_id"), (Numbers{1}));
}

TEST_F(RecordFilter, RowsFollowTheOrderOfTheKey) {
    Run("INSERT INTO qb_publications (publication_id_prefix, qb_publication_id) VALUES ('PUB', 10)");
    Run("INSERT INTO qb_publications (publication_id_prefix, qb_publication_id) VALUES ('PAB', 30)");
    Run("INSERT INTO qb_publications (publication_id_prefix, qb_publication_id) VALUES ('PUB', 9)");
    EXPECT_EQ(Ids("qb_publications", "none", "qb_publication_id"), (Numbers{30, 1, 9, 10}));
    Refer(3, "PUB", 10);
    Refer(2, "PUB", 9);
    Run("INSERT INTO journal (qb_id) VALUES (3)");
    Run("INSERT INTO journal (qb_id) VALUES (2)");
    EXPECT_EQ(Ids("qb_publications", "journal", "qb_publication_id"), (Numbers{1, 9, 10}));
    EXPECT_EQ(Taxa("journal"), (Numbers{2, 3}));
    EXPECT_EQ(Ids("qb_reference_links", "journal", "qb_documentation_id"), (Numbers{1, 9, 1, 10}));
}

TEST_F(RecordFilter, FewIdsAreLookedUpAndManyReadWhole) {
    IdSet ids;
    EXPECT_EQ(RowsAmong("qb_id", ids).column, "qb_id") << "no row has one of no ids";
    ids.Add(7);
    ids.Add(-3);
    EXPECT_EQ(RowsAmong("qb_id", ids).among, (std::vector<std::int32_t>{-3, 7}));
    for (int id = 0; id < 6000; ++id) ids.Add(id);
    EXPECT_EQ(RowsAmong("qb_id", ids).column, "");
    EXPECT_TRUE(RowsAmong("qb_id", ids).among.empty());
}

TEST_F(RecordFilter, JournalOfDeletedTaxaSelectsNone) {
    Run("INSERT INTO journal (qb_id) VALUES (3)");
    Run("INSERT INTO journal (qb_id) VALUES (77)");
    EXPECT_EQ(Selected("journal").Ids().Ids(), (std::vector<std::int32_t>{3}));
    EXPECT_TRUE(Selected("none").All());
}

}  // namespace

}  // namespace quillon::selection
