// What no field takes, by each of the three ways to write: a recordset, a query, and the bulk writer. Each
// refusal has a number and names the field, and nothing is stored.
#include <gtest/gtest.h>

#include "store/bulk.h"
#include "store_fixture.h"

namespace quillon::store {
namespace {

using Row = std::vector<std::pair<std::string_view, Value>>;
enum class Way { Record, Query, Writer };

class FieldRules : public StoreTest {
protected:
    void StoreByRecord(std::string_view table, const Row& row) {
        const auto rows = db().CreateDynaset(table);
        rows->AddNew();
        for (const auto& [column, value] : row) rows->Set(column, value);
        rows->Update();
    }
    void StoreByQuery(std::string_view table, const Row& row) {
        std::string declared, columns, values;
        for (const auto& [column, value] : row) {
            const std::string name = "p" + std::to_string(declared.size());
            declared +=
                (declared.empty() ? "PARAMETERS " : ", ") + name + (value.IsText() ? " Text" : " Long");
            columns += (columns.empty() ? "" : ", ") + std::string(column);
            values += (values.empty() ? "" : ", ") + name;
        }
        QueryDef query = db().CreateQueryDef("", declared + "; INSERT INTO " + std::string(table) + " (" +
                                                     columns + ") VALUES (" + values + ")");
        for (std::size_t i = 0; i < row.size(); ++i) query.Set(query.Parameters()[i], row[i].second);
        query.Execute();
    }
    static void Write(RowWriter& writer, const Row& row) {
        for (const auto& [column, value] : row) {
            if (value.IsNull()) {
                writer.Null();
            } else if (value.IsText()) {
                writer.Text(value.Text());
            } else {
                writer.Long(value.AsLong());
            }
        }
        writer.Insert();
    }
    void StoreByWriter(std::string_view table, const Row& row) {
        if (row.size() == 1) {
            RowWriter writer(db(), table, {row[0].first});
            return Write(writer, row);
        }
        ASSERT_EQ(row.size(), 2U);
        RowWriter writer(db(), table, {row[0].first, row[1].first});
        Write(writer, row);
    }
    Failure Store(Way way, std::string_view table, const Row& row) {
        return FailureOf([&] {
            if (way == Way::Record) StoreByRecord(table, row);
            if (way == Way::Query) StoreByQuery(table, row);
            if (way == Way::Writer) StoreByWriter(table, row);
        });
    }
    // By every way, with the same refusal and no row more.
    void ExpectRefused(std::string_view table, const Row& row, const Failure& failure) {
        for (const Way way : {Way::Record, Way::Query, Way::Writer})
            ExpectRefusedBy(way, table, row, failure);
    }
    void ExpectRefusedBy(Way way, std::string_view table, const Row& row, const Failure& failure) {
        const std::string all = "SELECT * FROM " + std::string(table);
        const std::string before = Dump(all);
        EXPECT_EQ(Store(way, table, row), failure) << "way " << static_cast<int>(way);
        EXPECT_EQ(Dump(all), before) << "way " << static_cast<int>(way);
    }
    static std::string Times(std::string_view part, int times) {
        std::string text;
        for (int i = 0; i < times; ++i) text += part;
        return text;
    }
};

TEST_F(FieldRules, ATextMayFillItsFieldInCharactersNotInBytes) {
    int id = 10;
    for (const Way way : {Way::Record, Way::Query, Way::Writer})
        EXPECT_EQ(Store(way, "qb_taxonomic_units", {{"qb_id", ++id}, {"unit_name1", Times("é", 35)}}),
                  Failure{});
    EXPECT_EQ(Dump("SELECT Len(unit_name1) FROM qb_taxonomic_units WHERE qb_id > 10"), "35\n35\n35\n");
}

TEST_F(FieldRules, ATextACharacterTooLongIsRefused) {
    const Failure tooLong{3163,
                          "The field 'unit_name1' is too small to accept the text: it holds 35 characters."};
    ExpectRefused("qb_taxonomic_units", {{"qb_id", 20}, {"unit_name1", Times("a", 36)}}, tooLong);
    ExpectRefused("qb_taxonomic_units", {{"qb_id", 20}, {"unit_name1", Times("é", 36)}}, tooLong);
    ExpectRefused("qb_taxonomic_units", {{"qb_id", 20}, {"unit_name1", Times("a", 35) + " "}}, tooLong);
    ExpectRefused("qb_taxonomic_units", {{"qb_id", 20}, {"unit_ind1", "XX"}},
                  {3163, "The field 'unit_ind1' is too small to accept the text: it holds 1 characters."});
}

TEST_F(FieldRules, ANulCharacterHidesNothingOfALongText) {
    const std::string text = "a" + std::string(1, '\0') + Times("b", 40);
    ExpectRefused("qb_taxonomic_units", {{"qb_id", 20}, {"unit_name1", text}},
                  {3163, "The field 'unit_name1' is too small to accept the text: it holds 35 characters."});
    const std::string fits = "a" + std::string(1, '\0') + "b";
    EXPECT_EQ(Store(Way::Writer, "qb_taxonomic_units", {{"qb_id", 20}, {"unit_name1", fits}}), Failure{});
    EXPECT_EQ(Dump("SELECT unit_name1 FROM qb_taxonomic_units WHERE qb_id = 20"), fits + "\n");
}

TEST_F(FieldRules, AMemoHoldsItsSizeAndNoMore) {
    EXPECT_EQ(Store(Way::Record, "qb_comments", {{"comment_detail", Times("é", 65535)}}), Failure{});
    ExpectRefused(
        "qb_comments", {{"qb_comment_id", 20}, {"comment_detail", Times("é", 65536)}},
        {3163, "The field 'comment_detail' is too small to accept the text: it holds 65535 characters."});
}

TEST_F(FieldRules, AnEmptyTextIsRefusedAndTheBulkWriterStoresNullForIt) {
    const Row row = {{"qb_id", 20}, {"unit_name1", ""}};
    const Failure empty{3315, "The field 'unit_name1' can't be a zero-length text."};
    ExpectRefusedBy(Way::Record, "qb_taxonomic_units", row, empty);
    ExpectRefusedBy(Way::Query, "qb_taxonomic_units", row, empty);
    EXPECT_EQ(Store(Way::Writer, "qb_taxonomic_units", row), Failure{});
    EXPECT_EQ(Dump("SELECT unit_name1 FROM qb_taxonomic_units WHERE qb_id = 20"), "\\N\n");
    EXPECT_EQ(NumberOf([&] { Execute("UPDATE qb_taxonomic_units SET unit_name1 = Trim('  ')"); }), 3163);
    EXPECT_EQ(NumberOf([&] { Execute("UPDATE qb_taxonomic_units SET unit_name1 = ''"); }), 3315);
    EXPECT_EQ(Dump("SELECT unit_name1 FROM qb_taxonomic_units WHERE qb_id = 1"), "Animalia  \n");
}

TEST_F(FieldRules, NullInARequiredFieldIsRefused) {
    const Row row = {{"table_name", "t"}, {"pk1", Value()}};
    ExpectRefusedBy(Way::Record, "db_tombstone", row,
                    {3314, "The field 'pk1' can't contain a Null value because it is required."});
    const Failure fromTheTable{3314, "The field 'db_tombstone.pk1' can't contain a Null value."};
    ExpectRefusedBy(Way::Query, "db_tombstone", row, fromTheTable);
    ExpectRefusedBy(Way::Writer, "db_tombstone", row, fromTheTable);
    // Not named at all is Null as well.
    EXPECT_EQ(Store(Way::Record, "db_tombstone", {{"table_name", "t"}}).number, 3314);
    EXPECT_EQ(Store(Way::Query, "db_tombstone", {{"table_name", "t"}}).number, 3314);
    EXPECT_EQ(Store(Way::Writer, "db_tombstone", {{"table_name", "t"}}).number, 3314);
    EXPECT_EQ(Dump("SELECT count(*) FROM db_tombstone"), "0\n");
}

TEST_F(FieldRules, NullInAKeyIsRefused) {
    const Row row = {{"qb_id", 1}, {"geographic_value", Value()}};
    ExpectRefusedBy(
        Way::Record, "qb_geographic_division", row,
        {3058, "The primary key can't contain a Null value: the field 'geographic_value' needs one."});
    const Failure fromTheTable{
        3314, "The field 'qb_geographic_division.geographic_value' can't contain a Null value."};
    ExpectRefusedBy(Way::Query, "qb_geographic_division", row, fromTheTable);
    ExpectRefusedBy(Way::Writer, "qb_geographic_division", row, fromTheTable);
}

TEST_F(FieldRules, NumbersHaveTheRangeOfTheirType) {
    const auto overflow = [](const char* field) {
        return Failure{3349, std::string("Numeric field overflow in the field '") + field + "'."};
    };
    for (const int byte : {256, -1})
        ExpectRefused("kingdoms", {{"kingdom_id", byte}}, overflow("kingdom_id"));
    for (const int integer : {32768, -32769})
        ExpectRefused("taxonomic_unit_types", {{"kingdom_id", 1}, {"rank_id", integer}}, overflow("rank_id"));
    for (const std::int64_t number : {2147483648LL, -2147483649LL})
        ExpectRefused("journal", {{"qb_id", Value(std::int64_t{number})}}, overflow("qb_id"));
}

TEST_F(FieldRules, NumbersFillTheRangeOfTheirType) {
    int kingdom = 100;
    for (const Way way : {Way::Record, Way::Query, Way::Writer}) {
        ++kingdom;
        EXPECT_EQ(Store(way, "taxonomic_unit_types", {{"kingdom_id", kingdom}, {"rank_id", 32767}}),
                  Failure{});
        EXPECT_EQ(Store(way, "taxonomic_unit_types", {{"kingdom_id", kingdom}, {"rank_id", -32768}}),
                  Failure{});
        EXPECT_EQ(Store(way, "qb_synonym_links", {{"qb_id", 2147483647}, {"qb_id_accepted", -kingdom}}),
                  Failure{});
        EXPECT_EQ(Store(way, "qb_synonym_links", {{"qb_id", -2147483647 - 1}, {"qb_id_accepted", kingdom}}),
                  Failure{});
    }
    EXPECT_EQ(Store(Way::Record, "kingdoms", {{"kingdom_id", 255}}), Failure{});
    EXPECT_EQ(Store(Way::Record, "kingdoms", {{"kingdom_id", 0}}), Failure{});
}

TEST_F(FieldRules, TextsAreConvertedOrRefused) {
    EXPECT_EQ(Store(Way::Record, "kingdoms", {{"kingdom_id", " 12 "}}), Failure{});
    EXPECT_EQ(Store(Way::Query, "kingdoms", {{"kingdom_id", "13"}}), Failure{});
    EXPECT_EQ(Dump("SELECT kingdom_id FROM kingdoms"), "5\n12\n13\n");
    const Failure noNumber{3421, "Data type conversion error in the field 'kingdom_id'."};
    ExpectRefusedBy(Way::Record, "kingdoms", {{"kingdom_id", "twelve"}}, noNumber);
    ExpectRefusedBy(Way::Query, "kingdoms", {{"kingdom_id", "twelve"}}, noNumber);
    EXPECT_EQ(Store(Way::Writer, "kingdoms", {{"kingdom_id", "twelve"}}), noNumber);
    ExpectRefusedBy(Way::Record, "qb_reviews", {{"qb_id", 1}, {"review_start_date", "yesterday"}},
                    {3421, "Data type conversion error in the field 'review_start_date'."});
    EXPECT_EQ(Store(Way::Record, "qb_reviews", {{"qb_id", 1}, {"review_start_date", "2001-02-03"}}),
              Failure{});
    EXPECT_EQ(Dump("SELECT review_start_date FROM qb_reviews"), "2001-02-03 00:00:00\n");
}

TEST_F(FieldRules, BooleansTakeTheTextsOfTheProgram) {
    AddWords();
    for (const Way way : {Way::Record, Way::Query}) {
        Execute("DELETE * FROM words");
        for (const char* text : {"True", "yes", "-1", "False", "NO", "0"})
            EXPECT_EQ(Store(way, "words", {{"flag", text}}), Failure{}) << text;
        EXPECT_EQ(Dump("SELECT flag FROM words ORDER BY id"), "True\nTrue\nTrue\nFalse\nFalse\nFalse\n");
        ExpectRefusedBy(way, "words", {{"flag", "maybe"}},
                        {3421, "Data type conversion error in the field 'flag'."});
    }
}

const Failure kDuplicate{
    3022,
    "The changes were not stored because they would create duplicate values in the index or primary "
    "key. Change the data in the field or fields that contain duplicate data."};

TEST_F(FieldRules, ADuplicateNumberInAKeyIsRefused) {
    ExpectRefused("kingdoms", {{"kingdom_id", 5}, {"kingdom_name", "Other"}}, kDuplicate);
    ExpectRefused("qb_taxonomic_units", {{"qb_id", 1}, {"unit_name1", "Other"}}, kDuplicate);
}

TEST_F(FieldRules, TextsInAKeyAreEqualAsTheyCompare) {
    for (const Way way : {Way::Record, Way::Query, Way::Writer}) {
        Execute("DELETE * FROM qb_geographic_division");
        EXPECT_EQ(Store(way, "qb_geographic_division", {{"qb_id", 1}, {"geographic_value", "Africa"}}),
                  Failure{});
        ExpectRefusedBy(way, "qb_geographic_division", {{"qb_id", 1}, {"geographic_value", "AFRICA "}},
                        kDuplicate);
        EXPECT_EQ(Store(way, "qb_geographic_division", {{"qb_id", 1}, {"geographic_value", "África"}}),
                  Failure{});
        ExpectRefusedBy(way, "qb_geographic_division", {{"qb_id", 1}, {"geographic_value", "áFRICA"}},
                        kDuplicate);
        EXPECT_EQ(Store(way, "qb_geographic_division", {{"qb_id", 1}, {"geographic_value", " Africa"}}),
                  Failure{});
        EXPECT_EQ(Store(way, "qb_geographic_division", {{"qb_id", 2}, {"geographic_value", "AFRICA"}}),
                  Failure{});
        EXPECT_EQ(Dump("SELECT qb_id, geographic_value FROM qb_geographic_division"),
                  "1\t Africa\n1\tAfrica\n1\tÁfrica\n2\tAFRICA\n");
    }
}

TEST_F(FieldRules, AChangeThatMakesADuplicateIsRefused) {
    Execute("INSERT INTO qb_geographic_division (qb_id, geographic_value) VALUES (1, 'Africa')");
    Execute("INSERT INTO qb_geographic_division (qb_id, geographic_value) VALUES (1, 'Asia')");
    EXPECT_EQ(FailureOf([&] {
                  Execute(
                      "UPDATE qb_geographic_division SET geographic_value = 'aFRICA' WHERE geographic_value "
                      "= 'asia'");
              }),
              kDuplicate);
    const auto rows =
        db().CreateDynaset("SELECT * FROM qb_geographic_division WHERE geographic_value = 'Asia'");
    rows->Edit();
    rows->Set("geographic_value", "Africa  ");
    EXPECT_EQ(FailureOf([&] { rows->Update(); }), kDuplicate);
    EXPECT_EQ(Dump("SELECT geographic_value FROM qb_geographic_division"), "Africa\nAsia\n");
}

TEST_F(FieldRules, TheBulkWriterReplacesARowOfAnEqualKey) {
    RowWriter writer(db(), "qb_geographic_division", {"qb_id", "geographic_value", "tsn"});
    writer.Id(1).Text("Africa").Long(5).Insert();
    writer.Id(1).Text("AFRICA").Id(0).InsertOrReplace();
    EXPECT_EQ(Dump("SELECT * FROM qb_geographic_division"), "1\tAFRICA\t\\N\n");
}

TEST_F(FieldRules, AfterAnErrorTheBulkWriterIsReadyForTheNextRow) {
    RowWriter writer(db(), "qb_taxonomic_units", {"qb_id", "unit_name1"});
    EXPECT_EQ(NumberOf([&] { writer.Id(2).Text(std::string(99, 'x')).Insert(); }), 3163);
    EXPECT_EQ(NumberOf([&] { writer.Id(1).Text("twice").Insert(); }), 3022);
    writer.Id(3).Text("good").Insert();
    EXPECT_EQ(Dump("SELECT qb_id, unit_name1 FROM qb_taxonomic_units"), "1\tAnimalia  \n3\tgood\n");
    db().Close();
    EXPECT_EQ(NumberOf([&] { writer.Id(4).Text("late").Insert(); }), 3420);
}

TEST_F(FieldRules, AQueryReportsAnOverlongParameter) {
    EXPECT_EQ(
        FailureOf([&] {
            Run("Insert Author", {{"author", Times("a", 101)}, {"kingdom", 5}});
        }),
        (Failure{3163,
                 "The field 'taxon_author' is too small to accept the text: it holds 100 characters."}));
    EXPECT_EQ(FailureOf([&] {
                  Run("Insert Author", {{"author", "Adams"}, {"kingdom", 256}});
              }),
              (Failure{3349, "Numeric field overflow in the field 'kingdom_id'."}));
    EXPECT_EQ(Dump("SELECT count(*) FROM qb_taxon_authors_lookup"), "0\n");
}

}  // namespace
}  // namespace quillon::store
