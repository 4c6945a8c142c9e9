// A small DataSet to select from: the kingdom's root (1), a genus (2) and its species (3), one author (1) and
// one publication (1) that both refer to.
#pragma once

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <string_view>

#include "selection/selected_taxa.h"
#include "testkit/testkit.h"

namespace quillon::selection {

class SelectionTest : public ::testing::Test {
protected:
    void SetUp() override {
        set.Make("Animalia");
        Run("INSERT INTO qb_taxon_authors_lookup (qb_taxon_author_id, taxon_author, kingdom_id) "
            "VALUES (1, 'Smith, 1900', 5)");
        Run("INSERT INTO qb_publications (publication_id_prefix, qb_publication_id) VALUES ('PUB', 1)");
        AddTaxon(2, "Alpha", 180);
        AddTaxon(3, "Alpha", 220);
        Set(3, "unit_name2", "'beta'");
    }

    void Run(std::string_view sql) { set.db().Execute(sql); }
    void Set(int qb_id, std::string_view column, std::string_view literal) {
        Run(fmt::format("UPDATE qb_taxonomic_units SET {} = {} WHERE qb_id = {}", column, literal, qb_id));
    }
    void AddTaxon(int qb_id, std::string_view name, int rank_id) {
        Run(
            fmt::format("INSERT INTO qb_taxonomic_units (qb_id, unit_name1, usage, qb_taxon_author_id, "
                        "kingdom_id, rank_id) VALUES ({}, '{}', 'valid', 1, 5, {})",
                        qb_id, name, rank_id));
        Refer(qb_id, "PUB", 1);
    }
    void Refer(int qb_id, std::string_view prefix, int id) {
        Run(
            fmt::format("INSERT INTO qb_reference_links (qb_id, qb_documentation_id_prefix, "
                        "qb_documentation_id) VALUES ({}, '{}', {})",
                        qb_id, prefix, id));
    }
    // The taxa under a filter, with their documents.
    SelectedTaxa Selected(std::string_view filter) {
        SelectedTaxa taxa(set.db(), filter, turns);
        taxa.ReachDocuments(set.db(), turns);
        return taxa;
    }

    testkit::DataSetFixture set;
    testkit::NullPump pump;
    Turns turns{set.state, pump};
};

}  // namespace quillon::selection
