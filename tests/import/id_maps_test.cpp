#include "import/id_maps.h"

#include <gtest/gtest.h>

namespace quillon::importing {
namespace {

TEST(KeyedRows, FindsNothingWhenEmpty) {
    const KeyedRows<AuthorRow> rows;
    EXPECT_TRUE(rows.Empty());
    EXPECT_EQ(rows.Find(1), kNoRow);
}

TEST(KeyedRows, GivesTheFirstRowOfAKey) {
    KeyedRows<AuthorRow> rows;
    EXPECT_EQ(rows.Append({7, 1}), 0U);
    EXPECT_EQ(rows.Append({7, 2}), 1U);
    EXPECT_EQ(rows.Append({-7, 3}), 2U);
    ASSERT_EQ(rows.Find(7), 0U);
    EXPECT_EQ(rows[rows.Find(7)].newId, 1);
    EXPECT_EQ(rows[rows.Find(-7)].newId, 3);
    EXPECT_EQ(rows.Size(), 3U);
}

TEST(KeyedRows, KeepsTheFirstRowOfEachKeyAsItGrows) {
    KeyedRows<AuthorRow> rows;
    for (std::int32_t round = 0; round < 3; ++round)
        for (std::int32_t key = -5000; key < 5000; ++key) rows.Append({key * 64, round * 10000 + key});
    EXPECT_EQ(rows.Size(), 30000U);
    for (std::int32_t key = -5000; key < 5000; ++key) {
        ASSERT_NE(rows.Find(key * 64), kNoRow) << key;
        EXPECT_EQ(rows[rows.Find(key * 64)].newId, key);
    }
    EXPECT_EQ(rows.Find(1), kNoRow);
}

TEST(IdMaps, MapsATaxonOrGivesMinusOne) {
    IdMaps maps;
    TaxonRow row;
    row.key = 3000000;
    row.newId = 2;
    maps.taxa.Append(row);
    EXPECT_EQ(maps.MapTaxonId(3000000), 2);
    EXPECT_EQ(maps.MapTaxonId(2), -1);
    EXPECT_EQ(maps.FindTaxonByNewId(2), 0U);
    EXPECT_EQ(maps.FindTaxonByNewId(1), kNoRow);
    EXPECT_EQ(maps.FindTaxonByNewId(3), kNoRow);
}

TEST(IdMaps, ATaxonKnownOnlyFromReferencesHasMinusOneEverywhere) {
    TaxonRow row;
    EXPECT_TRUE(row.KnownOnlyFromReferences());
    for (std::int32_t TaxonRow::*column :
         {&TaxonRow::parent_tsn, &TaxonRow::parent_qb_id, &TaxonRow::author, &TaxonRow::hybrid_author_id}) {
        TaxonRow known;
        known.*column = 0;
        EXPECT_FALSE(known.KnownOnlyFromReferences());
    }
}

TEST(AuthorTexts, ComparesByCharacterCodeAndKeepsTheFirst) {
    AuthorTexts texts;
    texts.Add("Linnaeus, 1758", 1);
    texts.Add("LINNAEUS, 1758", 2);
    texts.Add("Linnaeus, 1758", 3);
    texts.Add("Linnaeus, 1758 ", 4);
    texts.Add("", 5);
    EXPECT_EQ(texts.Find("Linnaeus, 1758"), 1);
    EXPECT_EQ(texts.Find("LINNAEUS, 1758"), 2);
    EXPECT_EQ(texts.Find("Linnaeus, 1758 "), 4);
    EXPECT_EQ(texts.Find("linnaeus, 1758"), 0);
    EXPECT_EQ(texts.Find(""), 0);
}

TEST(IdMaps, ATaxonRowIsCompact) {
    EXPECT_LE(sizeof(TaxonRow), 32U);
}

}  // namespace
}  // namespace quillon::importing
