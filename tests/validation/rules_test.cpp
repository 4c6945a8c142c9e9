// The catalogue of the rules: what its entries hold, the manual's page that is made from it, and the rows of
// "validate.tsv".

#include "validation/rules.h"

#include <filesystem>
#include <set>

#include "rules_page/page.h"
#include "validation_fixture.h"

namespace quillon::validation {
namespace {

TEST(Rules, HaveACodeAndTextEach) {
    std::set<std::string_view> codes, labels, sentences;
    for (const RuleInfo& rule : AllRules()) {
        EXPECT_EQ(rule.code.size(), 3u) << rule.code;
        codes.insert(rule.code);
        labels.insert(rule.label);
        sentences.insert(rule.sentence);
        EXPECT_TRUE(rule.sentence.ends_with('.')) << rule.code;
        EXPECT_FALSE(rule.field.empty()) << rule.code;
    }
    EXPECT_EQ(codes.size(), kRuleCount);
    EXPECT_EQ(labels.size(), kRuleCount);
    EXPECT_EQ(sentences.size(), kRuleCount);
}

// Codes are for good: scripts and people know findings by them.
TEST(Rules, KeepTheirCodes) {
    std::string codes;
    for (const RuleInfo& rule : AllRules()) codes.append(rule.code).append(" ");
    EXPECT_EQ(
        codes,
        "T01 T02 T03 T04 T05 T06 T07 T08 T09 T10 T11 T12 T13 T14 T15 T16 T17 T18 T19 T20 T21 T22 T23 T24 "
        "T25 T26 T27 T28 T29 T30 T31 T32 T33 T34 T35 A01 A02 L01 L02 L03 E01 E02 E03 S01 S02 S03 S04 S05 "
        "S06 S07 P01 P02 P03 P04 P05 P06 P07 V01 V02 J01 ");
    EXPECT_EQ(InfoOf(Rule::RankMissing).code, "T01");
    EXPECT_EQ(InfoOf(Rule::CredibilityMissing).code, "T20");
    EXPECT_EQ(InfoOf(Rule::ReferenceMissing).code, "T35");
    EXPECT_EQ(InfoOf(Rule::DatesOutOfOrder).code, "P07");
    EXPECT_EQ(InfoOf(Rule::OriginMissing).code, "J01");
}

TEST(Rules, StandInTheManual) {
    EXPECT_EQ(testkit::ReadFile(std::string(QUILLON_SOURCE_DIR) + "/docs/manual/rules.md"), RulesPage())
        << "scripts/rules-page writes it";
}

class FindingsTable : public ValidationTest {
protected:
    std::string Table(std::string_view filter = selection::kNoFilter) {
        set.state.gRecordFilter = filter;
        ValidateDataSet(set.state, set.engine,
                        {set.prompter, pump, clock, [](double) {}, set.dir.path(), [] {}, nullptr, true});
        return testkit::ReadFile(set.dir.File("validate.tsv"));
    }
    static std::string Rows(std::initializer_list<std::string_view> rows) {
        std::string text = "code\tseverity\tqb_id\tname\tfield\tmessage\n";
        for (const std::string_view row : rows) text.append(row).append("\n");
        return text;
    }
};

TEST_F(FindingsTable, HasARowForEachFinding) {
    Set(2, "currency_rating", "'so\\on'");
    Set(2, "taxonomic_credibility_rating", "Null");
    Unrefer(3);
    Run("UPDATE qb_taxon_authors_lookup SET kingdom_id = Null");
    Run("UPDATE qb_publications SET publication_name = Null");
    Run("INSERT INTO qb_experts (expert_id_prefix, qb_expert_id) VALUES ('EXP', 4)");
    Run("INSERT INTO qb_vernaculars (qb_id, qb_vern_id, vernacular_name) VALUES (3, 7, 'Moth')");
    Run("INSERT INTO qb_jurisdiction (qb_id, jurisdiction_value) VALUES (3, 'Alaska')");
    EXPECT_EQ(Table(),
              Rows({"T20\terror\t2\tAlpha\ttaxonomic_credibility_rating\ta taxonomic credibility rating is "
                    "required for all records",
                    "T25\terror\t2\tAlpha\tcurrency_rating\t<so\\\\on> is an invalid currency rating",
                    "T35\terror\t3\tAlpha beta\tqb_documentation_id\tat least one reference is required",
                    "A02\twarning\t\tAuthor 1 Smith, 1900\tkingdom_id\ta kingdom is required",
                    "E03\terror\t\tEXP 4\texpert\tan expert is required",
                    "P03\terror\t\tPUB 1\tpublication_name\ta publication name is required",
                    "V01\terror\t3\tMoth\tlanguage\ta language is required for a vernacular",
                    "J01\terror\t3\tAlpha beta\torigin\torigin is required for jurisdiction 'Alaska'"}));
}

TEST_F(FindingsTable, IsWrittenWithoutFindingsAndOnlyWhenWanted) {
    Validate();
    EXPECT_FALSE(std::filesystem::exists(set.dir.File("validate.tsv")));
    EXPECT_EQ(Table(), Rows({}));
}

TEST_F(FindingsTable, NeverReplacesTheDataSet) {
    std::filesystem::create_hard_link(set.state.gDataSetPath, set.dir.File("validate.tsv"));
    Table();
    EXPECT_EQ(set.prompter.messages,
              std::vector<std::string>{set.dir.File("validate.tsv") + " is in use by this job."});
}

}  // namespace
}  // namespace quillon::validation
