#include "navigation/child_reader.h"

#include "navigation/taxa_fixture.h"

namespace quillon::navigation {
namespace {

class Children : public TaxaFixture {
protected:
    cBioList At(int id) {
        cBioList item(source);
        item.SetDbname(data.state.gDataSetPath);
        item.SetQbId(id);
        return item;
    }
    static std::string Ids(const cBioList::Collection& items) {
        std::string ids;
        for (const auto& item : items) ids += std::to_string(item->qb_id()) + "\n";
        return ids;
    }
    // Sixty children in an order that their ids do not have, some of them alike but for one column.
    void AddMany() {
        data.engine.BeginTrans();
        for (int id = 2; id < 62; ++id) {
            const int mixed = id * 37 % 61;
            Add({.qb_id = id,
                 .parent = 1,
                 .rank = mixed % 3 == 0 ? 180 : 220,
                 .name1 = mixed % 5 == 0 ? "Zo\xC3\xA9" : "Zoe",
                 .name2 = mixed % 7 == 0 ? "" : fmt::format("{}s{}", mixed % 2 == 0 ? "A" : "a", mixed % 11),
                 .name3 = mixed % 4 == 0 ? "" : "minor",
                 .sequence = mixed % 2});
        }
        data.engine.CommitTrans();
    }
};

TEST_F(Children, FollowTheOrderOfTheStore) {
    AddMany();
    EXPECT_EQ(
        Ids(At(1).Children()),
        data.Dump("SELECT qb_id FROM qb_taxonomic_units WHERE parent_qb_id = 1 AND qb_id <> 1 ORDER BY "
                  "rank_id, phylo_sort_sequence, unit_name1, unit_name2, unit_name3, unit_name4, qb_id"));
}

TEST_F(Children, AStepReadsNoMoreRowsThanItIsGiven) {
    AddMany();
    for (int id = 70; id < 75; ++id) {
        Add({.qb_id = id, .name1 = "Old", .usage = "invalid"});
        Link(id, 1);
    }
    cBioList root = At(1);
    ChildReader reader(root, ChildReader::Level::UnderTaxon);
    cBioList::Collection items;
    std::size_t steps = 0;
    for (bool hasMore = true; hasMore; ++steps) {
        const std::size_t read = reader.RowsRead(), there = items.size();
        hasMore = reader.Step(7, items);
        EXPECT_LE(reader.RowsRead() - read, 7u);
        EXPECT_LE(items.size() - there, 7u);
    }
    EXPECT_EQ(reader.RowsRead(), 2 * 65u) << "each child once for its place, once for its item";
    EXPECT_EQ(steps, 2 * 65 / 7 + 1u);
    EXPECT_EQ(Ids(items), Ids(At(1).Children()));
}

TEST_F(Children, OrphansAreReadInStepsToo) {
    Add({.qb_id = 2, .name1 = "Zebra"});
    Add({.qb_id = 3, .name1 = "Aqua"});
    Add({.qb_id = 4, .name1 = "Linked"});
    Add({.qb_id = 5, .name1 = "", .name2 = "nameless"});
    Add({.qb_id = 6, .name1 = "Animalia"});
    Link(4, 2);
    Link(4, 3);
    cBioList root = At(1);
    ChildReader reader(root, ChildReader::Level::Top);
    cBioList::Collection items;
    while (reader.Step(1, items)) continue;
    EXPECT_EQ(Ids(items), "3\n2\n");
}

TEST_F(Children, WhatTheStoreRefusesIsLeftOut) {
    AddMany();
    cBioList root = At(1);
    ChildReader reader(root, ChildReader::Level::UnderTaxon);
    cBioList::Collection items;
    EXPECT_TRUE(reader.Step(7, items));
    data.db().DeleteTable("qb_taxon_authors_lookup");
    while (reader.Step(7, items)) continue;
    EXPECT_TRUE(items.empty());
}

}  // namespace
}  // namespace quillon::navigation
