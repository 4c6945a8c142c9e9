#include "selection/id_set.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace quillon::selection {
namespace {

constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

TEST(IdSets, HoldAnyIdOnceInOrder) {
    IdSet ids;
    for (const std::int32_t id : {5, 1000000, 5, -1, 0, kMost, kLeast, 64, 63, kMost}) ids.Add(id);
    EXPECT_EQ(ids.Count(), 8u);
    EXPECT_EQ(ids.Ids(), (std::vector<std::int32_t>{kLeast, -1, 0, 5, 63, 64, 1000000, kMost}));
    EXPECT_TRUE(ids.Has(kLeast));
    EXPECT_TRUE(ids.Has(64));
    EXPECT_FALSE(ids.Has(62));
    EXPECT_FALSE(ids.Has(kMost - 1));
    EXPECT_FALSE(ids.Has(66000000));
}

TEST(IdSets, EmptyOneHoldsNothing) {
    const IdSet ids;
    EXPECT_FALSE(ids.Has(0));
    EXPECT_TRUE(ids.Ids().empty());
}

TEST(IdMaps, GiveTheNumberOrZero) {
    IdMap map;
    map.Add(1, 10);
    map.Add(3000000, 30);
    map.Add(-4, 40);
    EXPECT_EQ(map.Find(1), 10);
    EXPECT_EQ(map.Find(3000000), 30);
    EXPECT_EQ(map.Find(-4), 40);
    EXPECT_EQ(map.Find(2), 0);
    EXPECT_EQ(map.Find(kMost), 0);
}

TEST(DocumentSets, DistinguishPrefixesAsTheStoreDoes) {
    DocumentSet documents;
    documents.Add("PUB", 1);
    documents.Add("pub", 2);
    documents.Add("EXP", 3);
    documents.Add("", 4);
    EXPECT_TRUE(documents.Has("Pub", 1));
    EXPECT_TRUE(documents.Has("PUB", 2));
    EXPECT_FALSE(documents.Has("EXP", 1));
    EXPECT_FALSE(documents.Has("SRC", 3));
    EXPECT_FALSE(documents.Has("", 4)) << "Null equals nothing";
    EXPECT_EQ(documents.AllIds().Ids(), (std::vector<std::int32_t>{1, 2, 3}));
}

}  // namespace
}  // namespace quillon::selection
