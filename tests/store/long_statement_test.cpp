// Statements as long as a selection of records makes them: lists of ids and chains of conditions work at any
// size up to 200,000 words and more, and a text that is too long or too deep is a plain error.
#include <array>

#include "store_fixture.h"

namespace quillon::store {

namespace {

constexpr int kSyntaxError = 3075;

// "1, 2, ... n"
std::string Ids(int count) {
    std::string ids;
    for (int i = 1; i <= count; ++i) ids += (i == 1 ? "" : ", ") + std::to_string(i);
    return ids;
}

// "qb_id = 1 Or qb_id = 2 ...", from 1 down so that the row that is there comes last
std::string Conditions(int count, std::string_view field, std::string_view op, std::string_view compare) {
    std::string text;
    for (int i = count; i >= 1; --i)
        text.append(i == count ? "" : op).append(field).append(compare).append(std::to_string(i));
    return text;
}

std::string Repeated(std::string_view part, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += part;
    return text;
}

}  // namespace

class LongStatement : public StoreTest {
protected:
    std::string CountWhere(const std::string& condition) {
        return Dump("SELECT count(*) FROM qb_taxonomic_units WHERE " + condition + ";");
    }
    int Error(const std::string& condition) {
        return NumberOf([&] { CountWhere(condition); });
    }
};

TEST_F(LongStatement, TakesAListOfAnySize) {
    for (const int size : {1, 2, 999, 1000, 1001, 2991, 2992, 2993, 3000, 4001, 5000, 5001, 32766, 32767,
                           65536, 100000, 200000})
        EXPECT_EQ(CountWhere("qb_id In (" + Ids(size) + ")"), "1\n") << size;
}

TEST_F(LongStatement, TakesAChainOfAnySize) {
    for (const int size :
         {2, 63, 64, 65, 128, 129, 499, 500, 501, 999, 1000, 1001, 1499, 1500, 3000, 50000}) {
        EXPECT_EQ(CountWhere(Conditions(size, "qb_id", " Or ", " = ")), "1\n") << size;
        EXPECT_EQ(CountWhere(Conditions(size, "qb_id", " And ", " <= ")), "1\n") << size;
    }
    for (const int size : {1, 63, 64, 65, 1000, 20000})
        EXPECT_EQ(CountWhere("unit_name1" + Repeated(" & ''", size) + " = 'Animalia'"), "1\n") << size;
}

TEST_F(LongStatement, WorksInAnActionAndInASearch) {
    EXPECT_EQ(Execute("UPDATE qb_taxonomic_units SET usage = 'valid' WHERE qb_id In (" + Ids(6000) + ");"),
              1);
    const auto rows = db().CreateDynaset("SELECT * FROM qb_taxonomic_units;");
    rows->FindFirst(Conditions(6000, "qb_id", " Or ", " = "));
    EXPECT_FALSE(rows->NoMatch());
    rows->FindFirst("qb_id In (" + Ids(6000) + ")");
    EXPECT_FALSE(rows->NoMatch());
    rows->FindFirst(Conditions(6000, "qb_id", " And ", " > "));
    EXPECT_TRUE(rows->NoMatch());
}

TEST_F(LongStatement, IsAnErrorWhenItIsEndless) {
    EXPECT_EQ(Error("qb_id In (" + Ids(260000) + ")"), kSyntaxError);
    EXPECT_EQ(Error(Repeated("(", 100000) + "1" + Repeated(")", 100000)), kSyntaxError);
    EXPECT_EQ(Error("qb_id = 1" + Repeated(" + 1", 100000)), kSyntaxError);
    EXPECT_EQ(Error("qb_id" + Repeated(" = 1", 100000)), kSyntaxError);
    EXPECT_EQ(Error("qb_id" + Repeated(" Is Null", 100000)), kSyntaxError);
    EXPECT_EQ(Error(Repeated("Not ", 100000) + "qb_id = 1"), kSyntaxError);
    EXPECT_EQ(Error("qb_id = " + Repeated("- ", 100000) + "1"), kSyntaxError);
    EXPECT_EQ(NumberOf([&] { Dump("SELECT 1" + Repeated(" UNION SELECT 1", 100000)); }), kSyntaxError);
    EXPECT_EQ(
        NumberOf([&] { Dump("SELECT 1 FROM kingdoms" + Repeated(" INNER JOIN kingdoms ON 1 = 1", 50000)); }),
        kSyntaxError);
}

// A chain in parentheses within a chain, and so on: the depth counts as a whole.
TEST_F(LongStatement, IsAnErrorWhenChainsNestTogether) {
    std::string text = "1";
    for (int level = 0; level < 100; ++level) text = "(" + text + Repeated(" + 1", 100) + ")";
    EXPECT_EQ(Error("qb_id = " + text), kSyntaxError);
}

}  // namespace quillon::store
