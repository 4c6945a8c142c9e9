#include "store/queries/catalogue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "store/schema/schema.h"

namespace quillon::store {
namespace {

using Names = std::vector<std::string>;

std::string Lower(std::string_view text) {
    std::string lower(text);
    for (char& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return lower;
}

struct Declared {
    std::string name;
    std::string type;
};

// What stands between PARAMETERS and the first semicolon, one entry a comma.
std::vector<Declared> ParametersOf(std::string_view sql) {
    constexpr std::string_view kWord = "PARAMETERS ";
    if (sql.substr(0, kWord.size()) != kWord) return {};
    const std::string clause(sql.substr(kWord.size(), sql.find(';') - kWord.size()));
    std::vector<Declared> declared;
    std::size_t at = 0;
    while (at <= clause.size()) {
        const std::size_t end = std::min(clause.find(',', at), clause.size());
        const std::string one = clause.substr(at, end - at);
        const std::size_t first = one.find_first_not_of(' ');
        const std::size_t blank = one.find(' ', first);
        declared.push_back({one.substr(first, blank - first), one.substr(blank + 1)});
        at = end + 1;
    }
    return declared;
}

Names ParameterNames(std::string_view query) {
    Names names;
    for (const Declared& one : ParametersOf(NamedQueryText(query))) names.push_back(Lower(one.name));
    return names;
}

// The statement without its PARAMETERS clause.
std::string StatementOf(std::string_view sql) {
    if (ParametersOf(sql).empty()) return std::string(sql);
    const std::size_t start = sql.find_first_not_of(' ', sql.find(';') + 1);
    return std::string(sql.substr(start));
}

std::set<std::string> WordsOf(std::string_view text) {
    std::set<std::string> words;
    std::string word;
    for (const char c : Lower(text) + " ") {
        if (std::isalnum(static_cast<unsigned char>(c)) || c == '_') {
            word += c;
        } else if (!word.empty()) {
            words.insert(word);
            word.clear();
        }
    }
    return words;
}

TEST(Catalogue, HoldsEveryQueryInTheOrderOfCreation) {
    const Names expected = {
        // clang-format off
        "BuildNameAuthorRankTaxunits", "BuildNameAuthorRankQBTaxonomicunits", "BuildNameAuthorTaxunits",
        "BuildNameAuthorQBTaxonomicunits", "BuildNameTaxunits", "BuildNameQBTaxonomicunits",
        "Check Comment Links", "Check Name", "Check Reference Links", "Check VReference Links",
        "Delete Author", "Delete Comment", "Delete Comment Link", "Delete Division Data", "Delete Expert",
        "Delete Jurisdiction Data", "Delete NODC Link", "Delete Old Vernacular", "Delete Publication",
        "Delete Reference Link", "Delete VReference Link", "Delete Source", "Delete Synonym Data",
        "Delete Taxon", "Delete Vernacular",
        "Get Accepted Names", "Get Accepted Names of Synonym", "Get All Authors", "Get All Comment Links",
        "Get All Comments", "Get All Distrib Data", "Get All Experts", "Get All Jurisdiction Data",
        "Get All Other Sources", "Get All Publications", "Get All Reference Links", "Get All Synonym Links",
        "Get All Taxons", "Get All Vernaculars", "Get Animal Data", "Get Author ID", "Get Author Name",
        "Get Children", "Get Com Dummy ID", "Get Comment ID", "Get Comment Links", "Get Comments",
        "Get Data", "Get Distrib Data", "Get Dummy ID", "Get Exp Dummy ID", "Get Expert Comment",
        "Get Expert IDS", "Get Expert ID", "Get Experts", "Get VExperts", "Get First Equal",
        "Get First Species", "Get First SubSpecies", "Get First Variety", "Get ID", "Get ID2", "Get ID3",
        "Get ID4", "Get Jurisdiction Data", "Get Kingdom Index", "Get Kingdom Name", "Get Last Equal",
        "Get Last Species", "Get Last SubSpecies", "Get Last Variety", "Get Next Equal", "Get Next Species",
        "Get Next SubSpecies", "Get Next Variety", "Get NODC Id", "Get NoMatch1", "Get NoMatch2",
        "Get NoMatch3", "Get NoMatch4", "Get NoMatch5", "Get NoMatch6", "Get Other Source ID",
        "Get Other Sources", "Get VOther Sources", "Get Parent ID", "Get Parent Name", "Get Parent Names",
        "Get Previous Equal", "Get Previous Species", "Get Previous SubSpecies", "Get Previous Variety",
        "Get Pub Dummy ID", "Get Publication Data", "Get Publication ID", "Get Publications",
        "Get VPublications", "Get Rank ID", "Get Rank Info", "Get Reference Links", "Get VReference Links",
        "Get Source Data", "Get Src Dummy ID", "Get Synonyms of Accepted Name", "Get Taxon by Author",
        "Get Taxon Data", "Get Taxon ID", "Get Taxon Names", "Get Taxonomic ID", "Get Vernaculars",
        "Get Vern Dummy ID",
        "Import Author",
        "Insert Author", "Insert Com Dummy", "Insert Comment", "Insert Comment Link", "Insert Division",
        "Insert Dummy", "Insert Exp Dummy", "Insert Expert", "Insert Jurisdiction", "Insert NODC",
        "Insert Other Source", "Insert Pub Dummy", "Insert Publication", "Insert Reference Link",
        "Insert VReference Link", "Insert Src Dummy", "Insert Synonym", "Insert Taxon Data",
        "Insert Vernacular", "Insert Vern Dummy",
        "Taxmatch Name", "Taxmatch Name/Author", "Taxmatch Name/Author/Rank",
        "Update Comment", "Update Expert", "Update Other Source", "Update Publication",
        "Update Reference Link", "Update Vern_Ref Link", "Update VVern_Ref Link", "Update Taxon Data",
        "Update Vernacular",
        "Validate Comment Links", "Validate Reference Links",
        // clang-format on
    };
    ASSERT_EQ(expected.size(), 146u);
    Names actual;
    for (const NamedQuery& query : NamedQueryCatalogue()) actual.emplace_back(query.name);
    EXPECT_EQ(actual, expected);
}

TEST(Catalogue, FindsATextByItsExactName) {
    EXPECT_EQ(NamedQueryText("Get All Taxons"), "SELECT * FROM qb_taxonomic_units;");
    EXPECT_EQ(NamedQueryText("get all taxons"), "");
    EXPECT_EQ(NamedQueryText("Get Everything"), "");
}

TEST(Catalogue, EveryTextEndsInItsOnlyClosingSemicolon) {
    for (const NamedQuery& query : NamedQueryCatalogue()) {
        const std::string statement = StatementOf(query.sql);
        EXPECT_EQ(statement.find(';'), statement.size() - 1) << query.name;
    }
}

TEST(Catalogue, ParametersAreOnlyTextsAndLongsAndEachIsDeclaredOnce) {
    for (const NamedQuery& query : NamedQueryCatalogue()) {
        std::set<std::string> seen;
        for (const Declared& one : ParametersOf(query.sql)) {
            EXPECT_TRUE(one.type == "Text" || one.type == "Long") << query.name << ": " << one.type;
            EXPECT_TRUE(seen.insert(Lower(one.name)).second) << query.name << ": " << one.name;
        }
    }
}

// "Update Vernacular" declares the taxon and finds its row without it.
TEST(Catalogue, EveryDeclaredParameterIsUsedButTheTaxonOfAVernacular) {
    Names unused;
    for (const NamedQuery& query : NamedQueryCatalogue()) {
        const std::set<std::string> words = WordsOf(StatementOf(query.sql));
        for (const Declared& one : ParametersOf(query.sql)) {
            if (words.count(Lower(one.name)) == 0)
                unused.push_back(std::string(query.name) + ": " + one.name);
        }
    }
    EXPECT_EQ(unused, Names{"Update Vernacular: qbid"});
}

// A parameter named like a field of a table that the statement reads would be taken for the field.
TEST(Catalogue, NoParameterHidesBehindAFieldButThatOfTheOldVernacular) {
    Names hidden;
    for (const NamedQuery& query : NamedQueryCatalogue()) {
        const std::string statement = StatementOf(query.sql);
        if (statement.substr(0, 6) == "INSERT") continue;  // values without a table
        const std::set<std::string> words = WordsOf(statement);
        for (const TableSpec& table : DataSetTables()) {
            if (words.count(std::string(table.name)) == 0) continue;
            for (const FieldSpec& field : table.fields) {
                for (const Declared& one : ParametersOf(query.sql)) {
                    if (Lower(one.name) == field.name)
                        hidden.push_back(std::string(query.name) + ": " + one.name);
                }
            }
        }
    }
    EXPECT_EQ(hidden, Names{"Delete Old Vernacular: qb_vern_id"});
}

TEST(Catalogue, InsertsTakeTheirValuesFromParametersAlone) {
    for (const NamedQuery& query : NamedQueryCatalogue()) {
        const std::string statement = StatementOf(query.sql);
        if (statement.substr(0, 6) != "INSERT") continue;
        EXPECT_EQ(statement.find(" FROM "), std::string::npos) << query.name;
    }
}

TEST(Catalogue, TheAcceptedNamesCanBeCutAtTheFirstZero) {
    const std::string sql(NamedQueryText("Get Accepted Names"));
    const std::size_t zero = sql.find('0');
    ASSERT_NE(zero, std::string::npos);
    EXPECT_EQ(sql.substr(zero - 10), "t.rank_id=0 ORDER BY t.unit_name1;");
}

TEST(Catalogue, TheDeletionOfOldVernacularsComparesTheFieldWithItself) {
    const std::string sql(NamedQueryText("Delete Old Vernacular"));
    EXPECT_NE(sql.find("WHERE qb_vern_id = qb_vern_id;"), std::string::npos);
}

TEST(Catalogue, ThePlaceholdersCarryThePrefixOfTheirKind) {
    EXPECT_NE(NamedQueryText("Insert Pub Dummy").find("\"PUB\""), std::string_view::npos);
    EXPECT_NE(NamedQueryText("Insert Exp Dummy").find("\"EXP\""), std::string_view::npos);
    EXPECT_NE(NamedQueryText("Insert Src Dummy").find("\"SRC\""), std::string_view::npos);
    EXPECT_EQ(NamedQueryText("Insert Com Dummy").find('"'), std::string_view::npos);
}

TEST(Catalogue, ParametersHaveTheNamesThatTheProgramBinds) {
    const std::vector<std::pair<std::string, Names>> expected = {
        {"Delete Author", {"author"}},
        {"Delete Comment", {"comid"}},
        {"Delete Comment Link", {"qbid", "comid"}},
        {"Delete Division Data", {"qbid"}},
        {"Delete Expert", {"expid"}},
        {"Delete Publication", {"pubid"}},
        {"Delete Reference Link", {"qbid", "prefix", "docid"}},
        {"Delete Source", {"srcid"}},
        {"Delete VReference Link", {"qbid", "prefix", "docid", "qbvernid"}},
        {"Get Author Name", {"authorid"}},
        {"Get Com Dummy ID", {"com"}},
        {"Get Comments", {"qbid"}},
        {"Get Dummy ID", {"name"}},
        {"Get Exp Dummy ID", {"exp"}},
        {"Get First Equal", {"rank"}},
        {"Get First Variety", {"name1", "name2", "name3", "rank"}},
        {"Get ID", {"name", "rank"}},
        {"Get ID4", {"name1", "name2", "name3", "name4", "rank"}},
        {"Get Next Equal", {"name", "rank"}},
        {"Get Next SubSpecies", {"name1", "name2", "name3", "rank"}},
        {"Get NODC Id", {"id"}},
        {"Get Pub Dummy ID", {"pub"}},
        {"Get Source Data", {"src"}},
        {"Get Src Dummy ID", {"src"}},
        {"Get Taxon by Author", {"authorid"}},
        {"Get Vern Dummy ID", {"name"}},
        {"Get VReference Links", {"qbid", "qbvernid"}},
        {"Import Author", {"author", "aid", "kingdom"}},
        {"Insert Author", {"author", "kingdom"}},
        {"Insert Comment Link", {"qbid", "commentid", "tsn", "comid"}},
        {"Insert Division", {"qbid", "division", "thetsn"}},
        {"Insert Jurisdiction", {"qbid", "jurisdiction", "origin", "thetsn"}},
        {"Insert Synonym", {"qbid", "synid", "thetsn", "tsnsyn"}},
        {"Insert VReference Link", {"qbid", "qbvernid", "vernid", "prefix", "qbdocid", "tsn", "docid"}},
        {"Update VVern_Ref Link", {"qbid", "prefix", "qbdocid", "vern", "oldqbvernid", "vernid"}},
        {"Validate Comment Links", {"comid"}},
    };
    for (const auto& [query, names] : expected) EXPECT_EQ(ParameterNames(query), names) << query;
}

TEST(Catalogue, TheNonMatchesOfTheOtherSourceSortWithoutTheThirdUnit) {
    const std::string byAuthor(NamedQueryText("Get NoMatch4"));
    EXPECT_EQ(byAuthor.substr(byAuthor.find("ORDER BY")),
              "ORDER BY BuildNameAuthorTaxunits.unit_name1, BuildNameAuthorTaxunits.unit_name2, "
              "BuildNameAuthorTaxunits.unit_name4;");
    const std::string byRank(NamedQueryText("Get NoMatch6"));
    EXPECT_EQ(byRank.substr(byRank.find("ORDER BY")),
              "ORDER BY BuildNameAuthorRankTaxunits.unit_name1, BuildNameAuthorRankTaxunits.unit_name2, "
              "BuildNameAuthorRankTaxunits.unit_name4;");
}

TEST(Catalogue, OnlyTheOtherSourceDropsTheBlankBeforeTheAuthorInItsShownLine) {
    EXPECT_NE(NamedQueryText("BuildNameAuthorQBTaxonomicunits")
                  .find(R"([unit_name4] & " " & b.taxon_author & "(" & [usage])"),
              std::string_view::npos);
    EXPECT_NE(
        NamedQueryText("BuildNameAuthorTaxunits").find(R"([unit_name4] & b.taxon_author & "(" & [usage])"),
        std::string_view::npos);
    // What the names are matched by has the blank on both sides.
    for (const auto name : {"BuildNameAuthorQBTaxonomicunits", "BuildNameAuthorTaxunits"}) {
        EXPECT_NE(NamedQueryText(name).find(R"([unit_name4] & " " & b.taxon_author AS Line,)"),
                  std::string_view::npos)
            << name;
    }
}

struct Text {
    std::string_view name;
    std::string_view sql;
};

TEST(Catalogue, FixedTextsAreExact) {
    // clang-format off
    const Text texts[] = {
        {"Get Kingdom Index",
         "PARAMETERS kingdom Text; "
         "SELECT kingdom_id "
         "FROM kingdoms "
         "WHERE kingdom_name = kingdom;"},
        {"Get Kingdom Name",
         "PARAMETERS kingid Long; "
         "SELECT DISTINCTROW kingdoms.kingdom_name "
         "FROM kingdoms "
         "WHERE kingdoms.kingdom_id=[kingid];"},
        {"Get Rank Info",
         "PARAMETERS rank Long; "
         "SELECT * "
         "FROM taxonomic_unit_types "
         "WHERE taxonomic_unit_types.rank_id=rank;"},
        {"Get Taxonomic ID",
         "PARAMETERS rank Long, name1 Text, name2 Text, name3 Text, name4 Text, author Long; "
         "SELECT * "
         "FROM qb_taxonomic_units "
         "WHERE rank = rank_id and name1 = unit_name1 "
         "and IIf(name2 Is Null, unit_name2 Is Null, name2 = unit_name2) "
         "and IIf(name3 Is Null, unit_name3 Is Null, name3 = unit_name3)  "
         "and IIf(name4 Is Null, unit_name4 Is Null, name4 = unit_name4) "
         "and (qb_taxon_author_id = author or qb_taxon_author_id Is Null);"},
        {"Get Data",
         "SELECT t.qb_id, t.unit_name1, t.unit_name2, t.unit_name3, t.unit_name4, a.taxon_author, "
         R"(Trim( Trim( Trim( Trim([t].[unit_ind1] & " " & [t].[unit_name1]) & " " & Trim([t].[unit_ind2] )"
         R"(& " " & [t].[unit_name2])) & " " & Trim([t].[unit_ind3] & " " & [t].[unit_name3])) & " " )"
         R"(& Trim([t].[unit_ind4] & " " & [t].[unit_name4])) & " " & Trim( Trim([a].[taxon_author]) )"
         R"sql(& " (" & [t].[usage] & ")" ) AS line )sql"
         "FROM qb_taxonomic_units AS t LEFT JOIN qb_taxon_authors_lookup AS a "
         "ON t.qb_taxon_author_id = a.qb_taxon_author_id "
         "ORDER BY t.unit_name1, t.unit_name2, t.unit_name3, t.unit_name4, a.taxon_author;"},
        {"Get Animal Data",
         "SELECT t.qb_id, t.unit_name1, t.unit_name2, t.unit_name3, t.unit_name4, a.taxon_author, "
         R"(Trim(Trim(Trim(t.unit_name1) & " " & t.unit_name2) & " " )"
         R"(& Trim(IIf(t.unit_ind3 = 'X',t.unit_ind3 & " ",)) & t.unit_name3) & " " & Trim(t.unit_name4 )"
         R"(& " " & Trim(a.taxon_author) & " (" & t.usage & ") " ) AS line )"
         "FROM qb_taxonomic_units AS t LEFT JOIN qb_taxon_authors_lookup AS a "
         "ON t.qb_taxon_author_id = a.qb_taxon_author_id "
         "ORDER BY t.unit_name1, t.unit_name2, t.unit_name3, t.unit_name4, a.taxon_author;"},
        {"Get Accepted Names",
         R"(SELECT t.unit_name1, t.qb_id, Trim( trim( trim( Trim(trim([t].[unit_ind1] & " " )"
         R"(& [t].[unit_name1]) & " " & trim([t].[unit_ind2] & " " & [t].[unit_name2])) & " " )"
         R"(& trim([t].[unit_ind3] & " " & [t].[unit_name3]))& " " & trim([t].[unit_ind4] & " " )"
         R"(& [t].[unit_name4])) & " " & trim([a].[taxon_author])) AS line )"
         "FROM qb_taxonomic_units AS t LEFT JOIN qb_taxon_authors_lookup AS a "
         "ON t.qb_taxon_author_id = a.qb_taxon_author_id "
         "WHERE ((t.usage)='accepted' Or (t.usage)='valid') AND t.rank_id=0 "
         "ORDER BY t.unit_name1;"},
        {"Check Name",
         "PARAMETERS thename Text; "
         "SELECT qb_id "
         "FROM qb_taxonomic_units AS t LEFT JOIN qb_taxon_authors_lookup AS a "
         "ON t.qb_taxon_author_id = a.qb_taxon_author_id "
         "WHERE thename=(unit_ind1) & (unit_name1) & (unit_ind2) & (unit_name2) & (unit_ind3) "
         R"(& (unit_name3) & (unit_ind4) & (unit_name4) & IIf(IsNull(t.qb_taxon_author_id),Null," " )"
         "& a.taxon_author);"},
        {"Check VReference Links",
         "PARAMETERS qbid Long, prefix Text, docid Long, qbvernid Long; "
         "SELECT qb_documentation_id "
         "FROM qb_reference_links "
         "WHERE qb_documentation_id_prefix = prefix and qb_documentation_id = docid "
         "UNION "
         "SELECT qb_documentation_id from qb_vern_ref_links "
         "WHERE qb_documentation_id_prefix = prefix and qb_documentation_id = docid "
         "and qb_vern_id NOT IN (SELECT qb_vern_id "
         "FROM qb_vern_ref_links "
         "WHERE qb_documentation_id_prefix = prefix and qb_documentation_id = docid and qb_id = qbid "
         "and qb_vern_id = qbvernid);"},
        {"Get Author ID",
         "PARAMETERS author Text; "
         "SELECT qb_taxon_author_id "
         "FROM qb_taxon_authors_lookup "
         "WHERE StrComp(taxon_author,author,0)=0;"},
        {"Get Previous Variety",
         "PARAMETERS name1 Text, name2 Text, name3 Text, name4 Text, rank Long; "
         "SELECT max(unit_name4) "
         "FROM qb_taxonomic_units "
         "WHERE name1 = unit_name1 and name2 = unit_name2 and name3 = unit_name3 "
         "and unit_name4< name4 and rank = rank_id;"},
        {"Insert Vernacular",
         "PARAMETERS qbid Long, thetsn Long, vername Text, hexvername Text, lang Text, approved Text, "
         "qbvernid Long, vernid Long;"
         "INSERT INTO qb_vernaculars ( qb_id, tsn, vernacular_name, hex_vernacular_name, language, "
         "approved_ind, qb_vern_id, vern_id ) "
         "VALUES (qbid, thetsn, vername, hexvername, lang, approved, qbvernid, vernid);"},
        {"Update Vernacular",
         "PARAMETERS qbid Long, vername Text, hexvername Text, lang Text, approved Text, qbvernid Long;"
         "UPDATE qb_vernaculars "
         "SET qb_vernaculars.vernacular_name = vername, qb_vernaculars.[language] = lang, "
         "qb_vernaculars.approved_ind = approved,qb_vernaculars.hex_vernacular_name = hexvername "
         "WHERE qb_vern_id = qbvernid;"},
        {"Insert Reference Link",
         "PARAMETERS qbid Long, prefix Text, qbdocid Long, tsn Long, docid Long, org Text, initial Text, "
         "Track Text, vname Text; "
         "INSERT INTO qb_reference_links ( qb_id, qb_documentation_id_prefix, qb_documentation_id, tsn, "
         "documentation_id, original_desc_ind, initial_orva_desc_ind, qb_change_track_id, "
         "vernacular_name ) "
         "SELECT qbid, prefix, qbdocid, tsn, docid, org, initial, track, vname;"},
        {"BuildNameAuthorRankTaxunits",
         R"(SELECT DISTINCT c.[unit_ind1] & " " & c.[unit_name1] & " " & c.[unit_ind2] & " " )"
         R"(& c.[unit_name2] & " " & c.[unit_ind3] & " " & c.[unit_name3] & " " & c.[unit_ind4] & " " )"
         R"(& c.[unit_name4] & " " & b.taxon_author & " " & d.rank_name AS Line, )"
         R"([Unit_ind1] & " " & [unit_name1] & " " & [unit_ind2] & " " & [unit_name2] & " " & [unit_ind3] )"
         R"(& " " & [unit_name3] & " " & [unit_ind4] & " " & [unit_name4] & " " )"
         R"sql(& b.taxon_author &" "& d.rank_name &" " & "(" & [usage] & ")" AS Line2, c.unit_name1, )sql"
         "c.unit_name2, c.unit_name3, c.unit_name4 "
         "FROM (taxonomic_unit_types AS d RIGHT JOIN taxunits AS c ON (d.rank_id=c.rank_id) "
         "AND (d.kingdom_id=c.kingdom_id)) LEFT JOIN authors AS b "
         "ON c.qb_taxon_author_id = b.qb_taxon_author_id "
         "ORDER BY c.unit_name1, c.unit_name2, c.unit_name3, c.unit_name4;"},
        {"Get NoMatch1",
         "SELECT DISTINCTROW BuildNameQBTaxonomicunits.Line, BuildNameQBTaxonomicunits.Line2, "
         "BuildNameQBTaxonomicunits.unit_name1, BuildNameQBTaxonomicunits.unit_name2, "
         "BuildNameQBTaxonomicunits.unit_name3, BuildNameQBTaxonomicunits.unit_name4 "
         "FROM BuildNameQBTaxonomicunits LEFT JOIN BuildNameTaxunits "
         "ON BuildNameQBTaxonomicunits.Line = BuildNameTaxunits.Line "
         "WHERE ((BuildNameQBTaxonomicunits.Line<>[BuildNameTaxunits].[Line])) "
         "ORDER BY BuildNameQBTaxonomicunits.unit_name1, BuildNameQBTaxonomicunits.unit_name2, "
         "BuildNameQBTaxonomicunits.unit_name3, BuildNameQBTaxonomicunits.unit_name4;"},
    };
    // clang-format on
    for (const Text& text : texts) EXPECT_EQ(NamedQueryText(text.name), text.sql) << text.name;
}

}  // namespace
}  // namespace quillon::store
