// A small DataSet without faults: the kingdom's root (1), a genus (2) and its species (3), one author (1) and
// one publication (1) that both refer to. A test spoils what it is about, and compares the whole log.
#pragma once

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "selection/record_filter.h"
#include "testkit/testkit.h"
#include "validation/log_file.h"
#include "validation/validate_data_set.h"

namespace quillon::validation {

using testkit::Lines;

class ValidationTest : public ::testing::Test {
protected:
    explicit ValidationTest(std::string kingdom = "Animalia") : kingdom_(std::move(kingdom)) {}

    void SetUp() override {
        set.Make(kingdom_);
        const bool isPlant = FamilyOfKingdom(kingdom_) == KingdomFamily::Plant;
        usable_ = isPlant ? "accepted" : "valid";
        unusable_ = isPlant ? "not accepted" : "invalid";
        kingdomId_ = KingdomIndex(kingdom_);
        Run(
            fmt::format("INSERT INTO qb_taxon_authors_lookup (qb_taxon_author_id, taxon_author, kingdom_id) "
                        "VALUES (1, 'Smith, 1900', {})",
                        kingdomId_));
        Run("INSERT INTO qb_publications (publication_id_prefix, qb_publication_id, publication_name, title, "
            "actual_pub_date) VALUES ('PUB', 1, 'Journal', 'Moths', '01/02/1900')");
        AddTaxon(2, "Alpha", 180);
        AddTaxon(3, "Alpha", 220, 2);
        Set(3, "unit_name2", "'beta'");
    }

    void Run(std::string_view sql) { set.db().Execute(sql); }
    void Set(int qb_id, std::string_view column, std::string_view literal) {
        Run(fmt::format("UPDATE qb_taxonomic_units SET {} = {} WHERE qb_id = {}", column, literal, qb_id));
    }
    // A taxon without faults, with a reference to the publication.
    void AddTaxon(int qb_id, std::string_view name, int rank_id, int parent_qb_id = 1) {
        Run(fmt::format(
            "INSERT INTO qb_taxonomic_units (qb_id, unit_name1, usage, taxonomic_credibility_rating, "
            "taxonomic_completeness_rating, currency_rating, parent_qb_id, qb_taxon_author_id, kingdom_id, "
            "rank_id) VALUES ({}, '{}', '{}', 'KSP standards met', 'partial', '2000', {}, 1, {}, {})",
            qb_id, name, usable_, parent_qb_id, kingdomId_, rank_id));
        Refer(qb_id, "PUB", 1);
    }
    void Refer(int qb_id, std::string_view prefix, int id, bool original = false) {
        Run(fmt::format(
            "INSERT INTO qb_reference_links (qb_id, qb_documentation_id_prefix, qb_documentation_id, "
            "original_desc_ind) VALUES ({}, '{}', {}, {})",
            qb_id, prefix, id, original));
    }
    void Unrefer(int qb_id) { Run(fmt::format("DELETE * FROM qb_reference_links WHERE qb_id = {}", qb_id)); }
    // The taxon becomes a synonym of `accepted`, without faults but for what a test adds.
    void MakeSynonym(int qb_id, int accepted, std::string_view reason) {
        Set(qb_id, "usage", fmt::format("'{}'", unusable_));
        Set(qb_id, "unacceptability_reason", fmt::format("'{}'", reason));
        Set(qb_id, "parent_qb_id", "Null");
        Link(qb_id, accepted);
    }
    void Link(int synonym, int accepted) {
        Run(fmt::format("INSERT INTO qb_synonym_links (qb_id, qb_id_accepted) VALUES ({}, {})", synonym,
                        accepted));
    }

    ValidationResult ValidateInto(std::string_view filter = selection::kNoFilter) {
        set.state.gRecordFilter = filter;
        return ValidateDataSet(set.state, set.engine,
                               {set.prompter, pump, clock, [this](double done) { gauge.push_back(done); },
                                set.dir.path(), [this] { ++completions; }, &marks});
    }
    // The log of a run.
    std::string Validate(std::string_view filter = selection::kNoFilter) {
        ValidateInto(filter);
        return testkit::ReadFile(set.dir.File(kLogName));
    }
    // The taxa under a filter, with their documents.
    selection::SelectedTaxa Selected(std::string_view filter) {
        selection::SelectedTaxa taxa(set.db(), filter, turns);
        taxa.ReachDocuments(set.db(), turns);
        return taxa;
    }
    // The log of one finding, or several, on the species.
    static std::string OnSpecies(std::initializer_list<std::string_view> messages) {
        return "ID =  3   Name = Alpha beta\r\n" + Lines(messages);
    }

    testkit::DataSetFixture set;
    testkit::NullPump pump;
    Turns turns{set.state, pump};
    testkit::FixedClock clock;
    std::vector<double> gauge;
    FindingMarks marks;
    int completions = 0;
    int kingdomId_ = 0;
    std::string usable_, unusable_;

private:
    std::string kingdom_;
};

class PlantValidationTest : public ValidationTest {
protected:
    PlantValidationTest() : ValidationTest("Plantae") {}
};

}  // namespace quillon::validation
