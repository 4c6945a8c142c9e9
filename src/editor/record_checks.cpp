#include "editor/record_checks.h"

#include <algorithm>
#include <array>

#include "core/text.h"
#include "core/vocabulary.h"
#include "editor/name_syntax.h"
#include "editor/rec_view_load.h"
#include "editor/taxon_row.h"
#include "records/authors.h"
#include "store/engine.h"

namespace quillon::editor {

namespace {

struct MajorOf {
    std::string_view rank, major;
};
constexpr std::array<MajorOf, 26> kMajorRanks = {{
    {"KINGDOM", "Kingdom"},      {"SUBKINGDOM", "Kingdom"}, {"PHYLUM", "Phylum"},
    {"SUBPHYLUM", "Phylum"},     {"SUPERCLASS", "Phylum"},  {"DIVISION", "Division"},
    {"SUBDIVISION", "Division"}, {"CLASS", "Class"},        {"SUBCLASS", "Class"},
    {"INFRACLASS", "Class"},     {"SUPERORDER", "Class"},   {"ORDER", "Order"},
    {"SUBORDER", "Order"},       {"INFRAORDER", "Order"},   {"SUPERFAMILY", "Order"},
    {"FAMILY", "Family"},        {"SUBFAMILY", "Family"},   {"TRIBE", "Family"},
    {"SUBTRIBE", "Family"},      {"GENUS", "Genus"},        {"SUBGENUS", "Genus"},
    {"SECTION", "Genus"},        {"SUBSECTION", "Genus"},   {"SPECIES", "Species"},
    {"SUBSPECIES", "Species"},   {"VARIETY", "Species"},
}};

// 0 when the DataSet does not have the rank.
int RankIdOf(store::Database& database, std::string_view rank) {
    auto query = database.OpenQueryDef("Get Rank ID");
    const auto row = query.Set("rank", rank).CreateSnapshot();
    return row->Eof() ? 0 : static_cast<int>(row->At(0).AsLong());
}

}  // namespace

std::string_view MajorRank(std::string_view rankName) {
    const std::string word = UpperCase(Trim(rankName));
    const auto row = std::find_if(kMajorRanks.begin(), kMajorRanks.end(),
                                  [&](const MajorOf& each) { return each.rank == word; });
    return row == kMajorRanks.end() ? std::string_view() : row->major;
}

bool RecordChecks::CheckFields() {
    if (!state_.gDataSetOpen) {
        prompter_.Message("No DataSet is Open");
        return false;
    }
    auto kingdom = state_.gDatabase->OpenQueryDef("Get Kingdom Index");
    const auto found = kingdom.Set("kingdom", form_.taxon.txtKingdom.Text()).CreateSnapshot();
    if (!found->Eof())
        state_.currentTaxon.kingdom_id = static_cast<int>(found->At(0).AsLong());
    else if (IsNew())
        state_.currentTaxon.kingdom_id = state_.gKingdomId;
    if (!CheckRank() || !CheckNameSyntax(form_.taxon, prompter_)) return false;
    SurroundSubgenus();
    TakeParent();
    TakeAuthor();
    if (!CheckReason()) return false;
    WarnOfMissingAccepted();
    if (IsNew() && !CheckDuplicate()) return false;
    editing_.firstWarning = false;
    return true;
}

bool RecordChecks::Warns() const {
    return state_.gPrefWarnings == "All" || (state_.gPrefWarnings == "First" && editing_.firstWarning);
}

bool RecordChecks::CheckRank() {
    ComboControl& cboRank = form_.taxon.cboRank;
    if (cboRank.Text().empty()) {
        prompter_.Message("Rank is a required field!");
        cboRank.TakeFocus();
        return false;
    }
    CurrentTaxon& taxon = state_.currentTaxon;
    taxon.rank_name = cboRank.Text();
    taxon.rank_id = RankIdOf(*state_.gDatabase, taxon.rank_name);
    if (!IsNew() || taxon.rank_id != kKingdomRankId) return true;
    prompter_.Message("A new Kingdom cannot be created!");
    return false;
}

void RecordChecks::SurroundSubgenus() {
    if (form_.taxon.lblName2.Caption() == "Subgenus") form_.taxon.Fields().AddParentheses();
}

// An unchanged parent is kept, even if another name of its rank has the same text.
void RecordChecks::TakeParent() {
    const std::string& rank = form_.taxon.cboDPRank.Text();
    const std::string& name = form_.taxon.cboParentName.Text();
    if (rank.empty() || name.empty()) return;
    store::Database& database = *state_.gDatabase;
    CurrentTaxon& taxon = state_.currentTaxon;
    if (const int chosen = form_.taxon.ChosenParent(); chosen != 0) {
        taxon.parent_name = Trim(name);
        taxon.parent_rank_name = rank;
        taxon.parent_qb_id = chosen;
        taxon.parent_tsn = GetTSN(database, chosen);
    }
    if (const std::string_view major = MajorRank(rank); !major.empty())
        taxon.required_parent_rank_id = RankIdOf(database, major);
}

void RecordChecks::TakeAuthor() {
    CurrentTaxon& taxon = state_.currentTaxon;
    store::Database& database = *state_.gDatabase;
    taxon.qb_taxon_author_id = 0;
    const std::string author = form_.taxon.EnteredAuthor();
    if (!author.empty()) {
        taxon.qb_taxon_author_id = records::FindAuthor(database, author);
    } else if (Warns() && RankIdOf(database, "Genus") <= taxon.rank_id) {
        prompter_.Message("Taxon Author will be required for exporting QLN data!");
    }
}

bool RecordChecks::CheckReason() {
    TaxonTab& tab = form_.taxon;
    if (!tab.optInvalid.Value() || !Trim(tab.cboInvalidReason.Text()).empty()) return true;
    prompter_.Message(
        "A reason is required if the usage is Not Accepted or Invalid!  The record will not be saved.");
    tab.cboInvalidReason.TakeFocus();
    return false;
}

void RecordChecks::WarnOfMissingAccepted() {
    if (!form_.taxon.optInvalid.Value() || form_.synonyms.grdSynonyms.IsDataRow(0) || !Warns()) return;
    prompter_.Message(
        "This invalid name will require an association with\n"
        "at least one valid name before it will be exported!");
}

bool RecordChecks::CheckDuplicate() {
    const NameUnits units = UnitsToInsert(form_.taxon);
    const CurrentTaxon& taxon = state_.currentTaxon;
    auto query = state_.gDatabase->OpenQueryDef("Get Taxonomic ID");
    query.Set("rank", taxon.rank_id).Set("author", Value::IdOrNull(taxon.qb_taxon_author_id));
    query.Set("name1", Value::TextOrNull(units.name1)).Set("name2", Value::TextOrNull(units.name2));
    query.Set("name3", Value::TextOrNull(units.name3)).Set("name4", Value::TextOrNull(units.name4));
    if (query.OpenRecordset(store::RecordsetType::ForwardOnly)->Eof()) return true;
    prompter_.WarningMessage(
        "A Record with an identical Scientific Name, rank, and author already exists!  This record will not "
        "be saved!",
        "Duplicate Record");
    return false;
}

}  // namespace quillon::editor
