// A DataSet to which a test adds taxa, each by one call, and an explorer's view of it.
#pragma once

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "navigation/bio_list.h"
#include "testkit/testkit.h"

namespace quillon::navigation {

// What a test says of a taxon; what it does not say is Null.
struct NewTaxon {
    int qb_id;
    int parent = 0;
    int rank = 220;
    std::string name1, name2 = {}, name3 = {}, name4 = {};
    std::string usage = "valid";
    std::string ind1 = {}, ind3 = {};
    int author = 0;
    int sequence = 0;
    int tsn = 0;
};

class TaxaFixture : public testing::Test {
protected:
    void SetUp() override { data.Make("Animalia"); }

    static std::string Quoted(const std::string& text) { return text.empty() ? "Null" : "\"" + text + "\""; }
    static std::string NumberOr(int number) { return number == 0 ? "Null" : std::to_string(number); }

    void Add(const NewTaxon& taxon) {
        data.db().Execute(fmt::format(
            "INSERT INTO qb_taxonomic_units (qb_id, parent_qb_id, rank_id, unit_name1, unit_name2, "
            "unit_name3, "
            "unit_name4, usage, unit_ind1, unit_ind3, qb_taxon_author_id, phylo_sort_sequence, tsn, "
            "kingdom_id) "
            "VALUES ({}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, 5)",
            taxon.qb_id, NumberOr(taxon.parent), taxon.rank, Quoted(taxon.name1), Quoted(taxon.name2),
            Quoted(taxon.name3), Quoted(taxon.name4), Quoted(taxon.usage), Quoted(taxon.ind1),
            Quoted(taxon.ind3), NumberOr(taxon.author), NumberOr(taxon.sequence), NumberOr(taxon.tsn)));
    }
    void AddAuthor(int id, const std::string& author) {
        data.db().Execute(
            fmt::format("INSERT INTO qb_taxon_authors_lookup (qb_taxon_author_id, taxon_author, kingdom_id) "
                        "VALUES ({}, {}, 5)",
                        id, Quoted(author)));
    }
    void Link(int synonym, int accepted) {
        data.db().Execute(fmt::format("INSERT INTO qb_synonym_links (qb_id, qb_id_accepted) VALUES ({}, {})",
                                      synonym, accepted));
    }

    testkit::DataSetFixture data;
    BioListSource source{data.state, data.engine};
};

}  // namespace quillon::navigation
