// The memory that a selection takes follows the number of its ids and links, whatever ids and prefixes a file
// holds.

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>

#include "allocation_meter.h"
#include "selection/id_set.h"
#include "selection_fixture.h"

namespace quillon::selection {
namespace {

constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
constexpr int kIds = 10000;
constexpr std::size_t kMostAnId = 160;  // bytes, with what a hash table keeps in reserve

// Three letters of its own for each number up to 17,575.
std::string PrefixOf(int number) {
    return {static_cast<char>('A' + number / 676), static_cast<char>('A' + number / 26 % 26),
            static_cast<char>('A' + number % 26)};
}

// The ids 0 to kIds - 1 times the step, from the top down.
class MemoryOfIds : public ::testing::TestWithParam<std::int32_t> {
protected:
    static std::int32_t IdAt(int i) { return kMost - GetParam() * i; }
};

TEST_P(MemoryOfIds, OfASetFollowsTheirNumber) {
    const AllocationMeter meter;
    IdSet ids;
    for (int i = 0; i < kIds; ++i) ids.Add(IdAt(i));
    EXPECT_LT(meter.Peak(), kIds * kMostAnId);
    EXPECT_EQ(ids.Count(), static_cast<std::size_t>(kIds));
    EXPECT_TRUE(ids.Has(IdAt(kIds - 1)));
    EXPECT_FALSE(ids.Has(IdAt(kIds)));
}

TEST_P(MemoryOfIds, OfAMapFollowsTheirNumber) {
    const AllocationMeter meter;
    IdMap numbers;
    for (int i = 0; i < kIds; ++i) numbers.Add(IdAt(i), i + 1);
    EXPECT_LT(meter.Peak(), kIds * kMostAnId);
    EXPECT_EQ(numbers.Find(IdAt(kIds - 1)), kIds);
    EXPECT_EQ(numbers.Find(IdAt(kIds)), 0);
}

INSTANTIATE_TEST_SUITE_P(AnySteps, MemoryOfIds, ::testing::Values(1, 63, 64, 4096, 200000));

TEST(MemoryOfDocuments, FollowsTheirNumberWhateverTheirPrefixes) {
    const AllocationMeter meter;
    DocumentSet documents;
    DocumentLinks links;
    for (int i = 0; i < kIds; ++i) {
        documents.Add(PrefixOf(i), 60000000 + i);
        links.Add(PrefixOf(i), 60000000 + i);
    }
    EXPECT_LT(meter.Peak(), kIds * 10 * kMostAnId);
    EXPECT_TRUE(documents.Has("ABC", 60000000 + 28));
    EXPECT_FALSE(documents.Has("ABC", 60000000 + 29));
    EXPECT_EQ(links.Count("abd", 60000000 + 29), 1);
}

TEST(Prefixes, AreOneWhereTheirTextsAreEqual) {
    Prefixes prefixes;
    EXPECT_EQ(prefixes.Add("PUB"), 0u);
    EXPECT_EQ(prefixes.Add("EXP"), 1u);
    EXPECT_EQ(prefixes.Add("pub"), 0u);
    EXPECT_EQ(prefixes.Find("Pub "), 0u);
    EXPECT_EQ(prefixes.Find("P"), Prefixes::kNone);
}

using MemoryOfASelection = SelectionTest;

TEST_F(MemoryOfASelection, FollowsTheLinksOfItsTaxa) {
    constexpr int links = 3000;
    {
        const store::Job job(set.engine);
        for (int i = 0; i < links; ++i) Refer(3, PrefixOf(i), 60000000 + i);
    }
    const AllocationMeter meter;
    const SelectedTaxa taxa = Selected(" WHERE rank_id = \"220\"");
    EXPECT_EQ(taxa.Documents().Ids().Count(), links + 1u);
    EXPECT_LT(meter.Peak(), 4u << 20);
}

}  // namespace
}  // namespace quillon::selection
