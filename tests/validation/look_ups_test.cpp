// What the taxon rules look up in whole tables is what the stored queries give, taxon by taxon.

#include <map>
#include <random>

#include "core/vocabulary.h"
#include "testkit/turn_meter.h"
#include "validation/taxon_look_ups.h"
#include "validation_fixture.h"

namespace quillon::validation {

namespace {

// Links and documents at random, some to records that are not there.
class LookUps : public ValidationTest {
protected:
    static constexpr int kTaxa = 60;

    void SetUp() override {
        ValidationTest::SetUp();
        std::mt19937 random(4711);
        const auto upTo = [&](unsigned limit) { return static_cast<int>(random() % limit) + 1; };
        for (int id = 4; id <= kTaxa; id += upTo(3)) {
            AddTaxon(id, "Beta", 180 + 10 * upTo(5), upTo(kTaxa + 5));
            if (upTo(3) == 1) Set(id, "usage", "'invalid'");
            if (upTo(9) == 1) Set(id, "rank_id", "Null");
            if (upTo(4) == 1) Run(fmt::format("INSERT INTO journal (qb_id) VALUES ({})", id));
            Unrefer(id);
        }
        for (int id = 2; id <= 9; ++id) {
            Run(fmt::format(
                "INSERT INTO qb_publications (publication_id_prefix, qb_publication_id) VALUES ('{}', {})",
                id % 4 == 0 ? "ALT" : "PUB", id));
            Run(fmt::format("INSERT INTO qb_experts (expert_id_prefix, qb_expert_id) VALUES ('EXP', {})",
                            id));
            Run(fmt::format(
                "INSERT INTO qb_other_sources (source_id_prefix, qb_source_id) VALUES ('SRC', {})", id));
            Run(fmt::format(
                "INSERT INTO qb_taxon_authors_lookup (qb_taxon_author_id, taxon_author) VALUES ({}, {})", id,
                id == 5 ? std::string("Null") : fmt::format("'Author {}'", 1800 + id)));
            Set(id, "qb_taxon_author_id", std::to_string(upTo(12)));
        }
        std::map<std::pair<int, int>, bool> linked;
        for (int i = 0; i < 80; ++i) {
            const std::pair link(upTo(kTaxa), upTo(kTaxa + 5));
            if (!std::exchange(linked[link], true)) Link(link.first, link.second);
        }
        std::map<std::string, bool> referred;
        for (int i = 0; i < 90; ++i) {
            const char* prefix =
                std::array{"PUB", "EXP", "SRC", "pub"}[static_cast<std::size_t>(upTo(4) - 1)];
            const int id = upTo(kTaxa), document = upTo(12);
            const std::string key = fmt::format("{} {} {}", id, prefix[0] == 'p' ? "PUB" : prefix, document);
            if (id > 3 && !std::exchange(referred[key], true)) Refer(id, prefix, document, upTo(2) == 1);
        }
    }

    std::unique_ptr<store::Recordset> Query(std::string_view name, std::string_view parameter,
                                            std::int64_t id) {
        return set.db().OpenQueryDef(name).Set(parameter, id).CreateSnapshot();
    }
    std::string AcceptedByQuery(std::int64_t qb_id) {
        std::map<std::int64_t, std::string> links;
        for (const auto rows = Query("Get Accepted Names of Synonym", "Synonym_Id", qb_id); !rows->Eof();
             rows->MoveNext()) {
            const std::int64_t accepted = rows->Get("qb_id").AsLong();
            const auto taxon = Query("Get Taxon Data", "qbid", accepted);
            links[accepted] =
                fmt::format(" {}{}", accepted, UsageIsAccepted(taxon->Get("usage").AsText()) ? "" : "!");
        }
        std::string text;
        for (const auto& [id, link] : links) text += link;
        return text;
    }
    static std::string Accepted(TaxonLookUps& lookUps, std::int64_t qb_id) {
        std::string text;
        for (const AcceptedLink& link : lookUps.AcceptedNames(qb_id))
            text += fmt::format(" {}{}", link.qb_id, link.isUsable ? "" : "!");
        return text;
    }
    std::string PublicationsByQuery(std::int64_t qb_id) {
        std::map<std::int64_t, std::string> publications;
        for (const auto rows = Query("Get Publications", "qbid", qb_id); !rows->Eof(); rows->MoveNext()) {
            const std::int64_t id = rows->Get("qb_publication_id").AsLong();
            publications[id] =
                fmt::format(" {}{}", id, rows->Get("original_desc_ind").AsBoolean() ? "!" : "");
        }
        std::string text;
        for (const auto& [id, publication] : publications) text += publication;
        return text;
    }
    static std::string Publications(const TaxonReferences& references) {
        std::map<std::int64_t, std::string> publications;
        for (const PublicationLink& link : references.publications)
            publications[link.publication->id] =
                fmt::format(" {}{}", link.publication->id, link.isOriginal ? "!" : "");
        std::string text;
        for (const auto& [id, publication] : publications) text += publication;
        return text;
    }
    std::string ParentByQuery(const Value& parent) {
        const auto row = Query("Get Parent Name", "Parent_id", parent.AsLong());
        if (row->Eof()) return "none";
        const auto usage = set.db().CreateSnapshot(
            fmt::format("SELECT usage FROM qb_taxonomic_units WHERE qb_id = {};", parent.AsLong()));
        const Value rank = row->Get("rank_id");
        return fmt::format("{} {}", rank.IsNull() ? "no rank" : rank.AsText(),
                           UsageIsAccepted(usage->At(0).AsText()));
    }
    static std::string Parent(const TaxonLookUps& lookUps, const Value& parent) {
        const TaxonFacts* facts = lookUps.Taxon(parent.AsLong());
        if (facts == nullptr) return "none";
        return fmt::format("{} {}", facts->hasRank ? std::to_string(facts->rank_id) : "no rank",
                           facts->isUsable);
    }
    std::string AuthorByQuery(const Value& author) {
        const auto row = Query("Get Author Name", "authorid", author.AsLong());
        return row->Eof() ? "" : row->Get("taxon_author").AsText();
    }

    // How many taxa were compared.
    int CompareUnder(std::string_view filter) {
        const selection::SelectedTaxa taxa = Selected(filter);
        TaxonLookUps lookUps(set.db(), taxa, turns);
        int compared = 0;
        for (const auto rows = set.db().CreateSnapshot("SELECT * FROM qb_taxonomic_units"); !rows->Eof();
             rows->MoveNext()) {
            const std::int64_t qb_id = rows->Get("qb_id").AsLong();
            if (!taxa.Has(qb_id)) continue;
            ++compared;
            SCOPED_TRACE(fmt::format("taxon {} under {}", qb_id, filter));
            const Value parent = rows->Get("parent_qb_id"), author = rows->Get("qb_taxon_author_id");
            EXPECT_EQ(Accepted(lookUps, qb_id), AcceptedByQuery(qb_id));
            const TaxonReferences& references = lookUps.References(qb_id);
            EXPECT_EQ(Publications(references), PublicationsByQuery(qb_id));
            EXPECT_EQ(references.hasExpert, !Query("Get Experts", "qbid", qb_id)->Eof());
            EXPECT_EQ(references.hasOtherSource, !Query("Get Other Sources", "qbid", qb_id)->Eof());
            EXPECT_EQ(Parent(lookUps, parent), ParentByQuery(parent));
            EXPECT_EQ(lookUps.Author(author).text, AuthorByQuery(author));
        }
        return compared;
    }
    int CountTaxa(std::string_view where) {
        const auto row =
            set.db().CreateSnapshot(fmt::format("SELECT count(*) FROM qb_taxonomic_units WHERE {}", where));
        return static_cast<int>(row->At(0).AsLong());
    }
};

TEST_F(LookUps, GiveWhatTheQueriesGive) {
    EXPECT_EQ(CompareUnder("none"), CountTaxa("True"));
}

TEST_F(LookUps, GiveWhatTheQueriesGiveUnderTheJournal) {
    const int compared = CompareUnder("journal");
    EXPECT_EQ(compared, CountTaxa("qb_id IN (SELECT qb_id FROM journal)"));
    EXPECT_GT(compared, 3);
}

TEST_F(LookUps, GiveWhatTheQueriesGiveUnderACondition) {
    const int compared = CompareUnder(selection::ColumnClause("usage", "=", "invalid"));
    EXPECT_EQ(compared, CountTaxa("usage = 'invalid'"));
    EXPECT_GT(compared, 3);
}

TEST_F(LookUps, PublicationOfAFindingIsReadWhole) {
    Run("INSERT INTO qb_publications (publication_id_prefix, qb_publication_id, publication_name, title) "
        "VALUES ('ALT', 2, 'Other', 'Bees')");
    Run("UPDATE qb_publications SET publication_name = 'Book' WHERE publication_id_prefix = 'PUB'");
    Unrefer(3);
    Refer(3, "PUB", 2);
    TaxonLookUps lookUps(set.db(), Selected("none"), turns);
    std::vector<std::string> headings;
    for (const PublicationLink& link : lookUps.References(3).publications)
        headings.push_back(lookUps.Publication(3, *link.publication).Heading());
    EXPECT_EQ(headings, (std::vector<std::string>{
                            "Publications: ID = <3> PUBID = <2>  Publication = <Other>  Title = <Bees>",
                            "Publications: ID = <3> PUBID = <2>  Publication = <Book>  Title = <>"}));
}

TEST_F(LookUps, StopReadingWhenTheUserCancels) {
    testkit::TurnMeter meter(set.state);
    meter.cancelAt = 3;
    const TaxonTable taxa(set.db(), {}, Turns(set.state, meter));
    EXPECT_NE(taxa.Find(2), nullptr);
    EXPECT_EQ(taxa.Find(3), nullptr);
}

struct Numbered {
    int id = 0;
    int place = 0;
};

TEST(IdTable, FindsEntriesWithGapsAndDoubles) {
    IdTable<Numbered> table;
    EXPECT_EQ(table.Find(1), nullptr);
    int place = 0;
    for (const int id : {-3, -2, 5, 5, 6, 7, 7, 7, 20}) table.Append({id, place++});
    const auto places = [&](int id) {
        std::vector<int> found;
        for (const Numbered& entry : table.FindAll(id)) found.push_back(entry.place);
        return found;
    };
    EXPECT_EQ(places(-3), (std::vector{0}));
    EXPECT_EQ(places(-2), (std::vector{1}));
    EXPECT_EQ(places(5), (std::vector{2, 3}));
    EXPECT_EQ(places(7), (std::vector{5, 6, 7}));
    EXPECT_EQ(places(20), (std::vector{8}));
    for (const int missing : {-9, 0, 4, 8, 19, 21}) EXPECT_EQ(places(missing), std::vector<int>{}) << missing;
    EXPECT_EQ(table.Find(6)->place, 4);
    EXPECT_EQ(table.Next(table.Find(20)), nullptr);
}

}  // namespace

}  // namespace quillon::validation
