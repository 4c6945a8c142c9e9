#include "random_rows.h"

#include <fmt/format.h>

#include <random>
#include <string>
#include <vector>

namespace quillon::exporting {
namespace {

class OddRows {
public:
    OddRows(store::Database& database, std::uint32_t seed) : database_(database), random_(seed) {}

    void Fill() {
        Repeat(25, "qb_taxonomic_units",
               {{"qb_id", 'i'},
                {"tsn", 'n'},
                {"unit_name1", 't'},
                {"unit_ind2", 'c'},
                {"unit_name2", 't'},
                {"unnamed_taxon_ind", 'c'},
                {"usage", 'u'},
                {"taxonomic_credibility_rating", 'g'},
                {"unacceptability_reason", 'r'},
                {"phylo_sort_sequence", 'n'},
                {"parent_tsn", 'n'},
                {"parent_qb_id", 'i'},
                {"qb_taxon_author_id", 'n'},
                {"hybrid_author_id", 'n'},
                {"kingdom_id", '5'},
                {"rank_id", 'k'},
                {"uncertain_parent_ind", 'b'}});
        Repeat(12, "qb_taxon_authors_lookup",
               {{"qb_taxon_author_id", 'i'},
                {"taxon_author_id", 'n'},
                {"taxon_author", 't'},
                {"kingdom_id", 'n'}});
        Repeat(15, "qb_nodc_ids", {{"nodc_id", 'x'}, {"qb_id", 'i'}, {"tsn", 'n'}});
        Repeat(20, "qb_vernaculars",
               {{"qb_id", 'i'},
                {"qb_vern_id", 'i'},
                {"vern_id", 'n'},
                {"vernacular_name", 't'},
                {"tsn", 'n'},
                {"language", 't'},
                {"approved_ind", 'b'}});
        Repeat(20, "qb_synonym_links",
               {{"qb_id", 'i'}, {"qb_id_accepted", 'i'}, {"tsn", 'n'}, {"tsn_accepted", 'n'}});
        Repeat(25, "qb_geographic_division", {{"qb_id", 'i'}, {"geographic_value", 'x'}, {"tsn", 'n'}});
        Repeat(25, "qb_jurisdiction",
               {{"qb_id", 'i'}, {"jurisdiction_value", 'x'}, {"origin", 't'}, {"tsn", 'n'}});
        FillDocuments();
        Repeat(20, "qb_tu_comments_link",
               {{"qb_id", 'i'}, {"qb_comment_id", 'i'}, {"tsn", 'n'}, {"comment_id", 'n'}});
        Repeat(15, "qb_comments",
               {{"qb_comment_id", 'i'},
                {"comment_id", 'n'},
                {"comment_detail", 't'},
                {"comment_time_stamp", 's'}});
        Repeat(15, "qb_change_tracks",
               {{"qb_change_track_id", 'i'}, {"change_reason", 't'}, {"tsn", 'n'}, {"qb_id", 'n'}});
        Repeat(20, "qb_change_operations",
               {{"qb_change_track_id", 'i'}, {"chg_op_id", 'i'}, {"change_track_id", 'n'}});
        Repeat(20, "qb_change_comments",
               {{"qb_change_track_id", 'i'}, {"chg_cmt_id", 'n'}, {"change_detail", 't'}});
        Repeat(8, "db_tombstone",
               {{"table_name", 'm'}, {"pk1", 'x'}, {"pk2", 't'}, {"pk3", 't'}, {"pk4", 't'}});
        Repeat(8, "journal", {{"qb_id", 'i'}});
    }

private:
    struct Column {
        std::string name;
        char kind;
    };

    void FillDocuments() {
        Repeat(40, "qb_reference_links",
               {{"qb_id", 'i'},
                {"qb_documentation_id_prefix", 'p'},
                {"qb_documentation_id", 'i'},
                {"tsn", 'n'},
                {"documentation_id", 'n'},
                {"original_desc_ind", 'b'},
                {"initial_orva_desc_ind", 'b'},
                {"qb_change_track_id", 'n'},
                {"vernacular_name", 't'}});
        Repeat(30, "qb_vern_ref_links",
               {{"qb_id", 'i'},
                {"qb_documentation_id_prefix", 'p'},
                {"qb_documentation_id", 'i'},
                {"qb_vern_id", 'i'},
                {"vern_id", 'n'},
                {"tsn", 'n'},
                {"documentation_id", 'n'},
                {"vernacular_name", 't'}});
        Repeat(20, "qb_publications",
               {{"publication_id_prefix", 'p'},
                {"qb_publication_id", 'i'},
                {"publication_id", 'n'},
                {"title", 't'},
                {"listed_pub_date", 'd'},
                {"actual_pub_date", 'd'},
                {"pub_comment", 't'}});
        Repeat(15, "qb_experts",
               {{"expert_id_prefix", 'p'},
                {"qb_expert_id", 'i'},
                {"expert_id", 'n'},
                {"expert", 't'},
                {"exp_comment", 't'}});
        Repeat(15, "qb_other_sources",
               {{"source_id_prefix", 'p'},
                {"qb_source_id", 'i'},
                {"source", 't'},
                {"acquisition_date", 'd'},
                {"source_comment", 't'}});
    }

    // A row whose key is taken already is left out.
    void Repeat(int rows, const std::string& table, const std::vector<Column>& columns) {
        for (int i = 0; i < rows; ++i) {
            std::string names, values;
            for (const Column& column : columns) {
                names += (names.empty() ? "" : ", ") + column.name;
                values += (values.empty() ? "" : ", ") + Literal(column.kind);
            }
            try {
                database_.Execute(fmt::format("INSERT INTO {} ({}) VALUES ({})", table, names, values));
            } catch (const store::StoreError& error) {
                if (!error.Is(store::ErrorNumber::DuplicateKey)) throw;
            }
        }
    }
    int Below(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(random_); }
    std::string OneOf(const std::vector<std::string>& texts) {
        return "'" + texts[static_cast<std::size_t>(Below(static_cast<int>(texts.size())))] + "'";
    }
    std::string OrNull(const std::string& literal) { return Below(4) == 0 ? "Null" : literal; }

    std::string Literal(char kind) {
        static const std::vector<std::string> texts = {"Africa", "africa b", "Ägypten",  "aegypt", "-x",
                                                       "9",      "10",       "O''Brien", "zz",     "AFRICA-2",
                                                       "Zebra",  "éa",       "0"};
        switch (kind) {
            case 'i':
                return std::to_string(1 + Below(30));
            case 'n':
                return OrNull(std::to_string(Below(30)));
            case '5':
                return std::to_string(Below(2) == 0 ? 5 : 3);
            case 'k':
                return Below(60) == 0 ? "Null" : std::to_string(180 + 10 * Below(5));
            case 'u':
                return OrNull(OneOf({"valid", "valid", "invalid", "accepted"}));
            case 'g':
                return OrNull(OneOf({"KSP standards met", "KSP Standards Met"}));
            case 'b':
                return OrNull(Below(2) == 0 ? "True" : "False");
            case 'c':
                return OrNull("'x'");
            case 'p':
                return OneOf({"PUB", "PUB", "EXP", "SRC", "pub", "ZZZ"});
            case 'r':
                return OrNull(OneOf({"syn-original combina", "syn-original combination", "junior synonym"}));
            case 'd':
                return OrNull(OneOf({"31/12/1999", "1999", "01/02/2003", "1/1/1999"}));
            case 's':
                return OrNull(OneOf({"03022001040506", "0302200104", "99999999999999"}));
            case 'm':
                return OneOf({"comments", "Vern_Ref_Links", "reference_links", "EXPERTS", "vernaculars",
                              "no such table"});
            case 'x':
                return OneOf(texts);
            default:
                return OrNull(OneOf(texts));
        }
    }

    store::Database& database_;
    std::mt19937 random_;
};

}  // namespace

void FillWithOddRows(store::Engine& engine, store::Database& database, std::uint32_t seed) {
    store::Job job(engine);
    OddRows(database, seed).Fill();
    job.End();
}

void RejectSome(ApplicationState& state, std::uint32_t seed) {
    std::mt19937 random(seed);
    const auto below = [&](int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(random); };
    state.gRejectedTaxa.clear();
    state.gRejectedDocs.clear();
    for (int taxa = below(5); taxa > 0; --taxa) state.gRejectedTaxa.push_back(1 + below(30));
    for (int documents = below(6); documents > 0; --documents)
        state.gRejectedDocs.emplace_back(below(2) == 0 ? "PUB" : "EXP", 1 + below(30));
}

}  // namespace quillon::exporting
