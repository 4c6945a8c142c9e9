#include "editor/taxon_lists.h"

#include <fmt/format.h>

#include <array>

#include "core/attempt.h"
#include "core/text.h"
#include "core/vocabulary.h"
#include "store/engine.h"

namespace quillon::editor {

using store::RecordsetType;

namespace {

constexpr std::string_view kMayBeParent =
    "(t.usage Is Null Or t.usage='valid' Or t.usage='accepted') AND (t.rank_id= {})";
// The same, but found by the genus and not by the rank, which nearly all names of a DataSet may have.
constexpr std::string_view kMayBeParentOfGenus =
    "(t.usage Is Null Or t.usage='valid' Or t.usage='accepted') AND (t.rank_id + 0 = {})";
constexpr std::array<std::string_view, 3> kLines = {
    R"(trim(unit_ind1 & " " & trim (unit_name1)))",
    R"(trim(unit_ind1 & " " & trim (unit_name1)) & " " & trim(unit_ind2 & " " & trim (unit_name2)))",
    R"(trim(unit_ind1 & " " & trim (unit_name1)) & " " & trim(unit_ind2 & " " & trim (unit_name2)))"
    R"( & " " & trim(unit_ind3 & " " & trim (unit_name3)))",
};
constexpr std::array<std::string_view, 3> kOrders = {"t.unit_name1", "t.unit_name1, t.unit_name2",
                                                     "t.unit_name1, t.unit_name2, t.unit_name3"};
constexpr std::string_view kNoFourthUnit =
    R"( AND (unit_ind4 IS NULL or unit_ind4 = "") AND (t.unit_name4 IS NULL or t.unit_name4 = ""))";

// Enough choices from a text on to have the one of that text among them.
constexpr std::size_t kNamesake = 20;

// The number of units in the name of a parent of this rank: two for a subgenus, one for all other ranks above
// Species.
std::size_t UnitsOf(std::string_view rank) {
    const std::string word = UpperCase(Trim(rank));
    if (!GetIndicatorFromRank(word).empty()) return 3;
    return word == "SPECIES" || word == "SUBGENUS" ? 2 : 1;
}

bool HasGenusAndEpithet(std::string_view rank) {
    return EqualText(rank, "Species") || !GetIndicatorFromRank(rank).empty();
}

std::vector<std::string> WordsOf(std::span<const std::string_view> words) {
    return {words.begin(), words.end()};
}

}  // namespace

TaxonLists::TaxonLists(ApplicationState& state, Prompter& prompter, TaxonControls& tab)
    : state_(state), prompter_(prompter), tab_(tab) {}

std::vector<std::string> TaxonLists::Texts(const std::string& sql) const {
    std::vector<std::string> texts;
    for (const auto rows = state_.gDatabase->OpenRecordset(sql, RecordsetType::ForwardOnly); !rows->Eof();
         rows->MoveNext()) {
        texts.push_back(rows->At(0).AsText());
    }
    return texts;
}

// The first column is the text, an optional second one the item data.
Choices TaxonLists::Read(const std::string& sql) const {
    Choices choices;
    if (!state_.gDatabase) return choices;
    const auto rows = state_.gDatabase->OpenRecordset(sql, RecordsetType::ForwardOnly);
    const bool hasId = rows->ColumnCount() > 1;
    for (; !rows->Eof(); rows->MoveNext()) {
        if (rows->At(0).IsNull()) continue;
        choices.push_back({rows->At(0).AsText(), hasId ? rows->At(1).AsLong() : 0});
    }
    return choices;
}

Choices TaxonLists::ReadOrReport(const std::function<Choices()>& read) const {
    Choices choices;
    Attempt(prompter_, [&] { choices = read(); });
    return choices;
}

void TaxonLists::FillLater(ComboControl& combo, std::string sql) {
    combo.SetChoicesLater(
        [this, statement = std::move(sql)] { return ReadOrReport([&] { return Read(statement); }); });
}

// The list of one rank in slices.
void TaxonLists::Offer(ComboControl& combo, std::shared_ptr<NameSource>& source, NamesOfRank names) {
    if (!source || source->Names() != names)
        source = std::make_shared<NameSource>(state_, prompter_, std::move(names));
    combo.SetSource(source);
}

int TaxonLists::RankIdOf(std::string_view rank) const {
    const auto row = state_.gDatabase->OpenQueryDef("Get Rank ID").Set("rank", rank).CreateSnapshot();
    return row->Eof() ? 0 : static_cast<int>(row->At(0).AsLong());
}

void TaxonLists::FillRankList() {
    if (!state_.gDatabase) return tab_.cboRank.Clear();
    tab_.cboRank.SetTexts(
        Texts(fmt::format("SELECT rank_name FROM taxonomic_unit_types WHERE kingdom_id = {} ORDER BY rank_id",
                          state_.gKingdomId)));
}

void TaxonLists::FillRatingLists() {
    tab_.cboCredibility.SetTexts(WordsOf(CredibilityRatings()));
    tab_.cboCoverage.SetTexts(WordsOf(CompletenessRatings()));
}

void TaxonLists::FillReasonList() {
    tab_.cboInvalidReason.SetTexts(WordsOf(UnacceptabilityReasons(FamilyOfKingdom(state_.gKingdomName))));
}

void TaxonLists::FillAuthorLists() {
    if (!state_.gDatabase) return prompter_.Message("No DataSet is Open");
    tab_.cboAuth.SetSource(std::make_shared<AuthorSource>(state_, prompter_));
    tab_.cboAuth2.SetSource(std::make_shared<AuthorSource>(state_, prompter_));
}

void TaxonLists::FillGenusList() {
    if (!state_.gDatabase) return;
    const bool isKingdom = EqualText(state_.currentTaxon.rank_name, "Kingdom");
    const int rank = isKingdom ? RankIdOf("Kingdom") : state_.gRankGenus;
    const std::string genera = fmt::format("rank_id = {} AND kingdom_id = {}", rank, state_.gKingdomId);
    Offer(tab_.cboName1, genera_,
          {rank, "SELECT DISTINCT unit_name1 FROM qb_taxonomic_units WHERE " + genera,
           "PARAMETERS theId Long; SELECT unit_name1 FROM qb_taxonomic_units WHERE qb_id = [theId] AND " +
               genera,
           1, true});
}

void TaxonLists::FillSpeciesList() {
    const std::string& rank = tab_.cboRank.Text();
    if (!state_.gDatabase || (rank != "Species" && rank != "Subspecies" && rank != "Variety")) return;
    const std::string& genus = tab_.cboName1.Text();
    auto query = state_.gDatabase->OpenQueryDef("Get Taxon ID");
    const auto found = query.Set("name", genus).Set("rank", RankIdOf("Genus")).CreateSnapshot();
    if (found->Eof()) return;
    const int species = RankIdOf("Species");
    // Is Not Null, because a comparison with Null finds no species at all. Only species with a parent are
    // offered, and so no synonyms.
    if (RankIdOf(rank) >= species) {
        FillLater(tab_.cboName2,
                  fmt::format("SELECT unit_name2 FROM qb_taxonomic_units WHERE unit_name1 = '{}' AND "
                              "parent_qb_id Is Not Null AND rank_id + 0 = {}",
                              QuoteSQL(genus), species));
    }
    if (!tab_.cboDPRank.Text().empty()) FillParentNameList();
}

void TaxonLists::SetPRankList(std::string_view rank) {
    if (rank.empty() || !state_.gDatabase) return;
    const auto own = state_.gDatabase->CreateSnapshot(
        fmt::format("SELECT rank_id  FROM taxonomic_unit_types WHERE rank_name = '{}'", QuoteSQL(rank)));
    if (own->Eof()) return;
    const std::string before = tab_.cboDPRank.Text();
    tab_.cboDPRank.SetChoices(
        Read(fmt::format("SELECT rank_name,rank_id FROM taxonomic_unit_types WHERE rank_id < {}   OR "
                         "rank_name = 'Kingdom' ORDER BY rank_id",
                         own->At(0).AsLong())));
    tab_.cboDPRank.SetText(before);
}

void TaxonLists::SetParentRankFromRank() {
    const std::string_view rank = Trim(tab_.cboRank.Text());
    const std::string_view animal = DefaultParentRank(rank, KingdomFamily::Animal),
                           plant = DefaultParentRank(rank, KingdomFamily::Plant);
    const bool isKnown = KingdomIndex(state_.gKingdomName) != 0;
    if (animal.empty() || (animal != plant && !isKnown)) return;
    const std::string before = tab_.cboDPRank.Text();
    tab_.cboDPRank.SetText(FamilyOfKingdom(state_.gKingdomName) == KingdomFamily::Plant ? plant : animal);
    if (tab_.cboDPRank.Text() == before) return;
    tab_.cboParentName.SetChoice({tab_.cboParentName.Text(), 0});
    if (!tab_.cboDPRank.Text().empty()) FillParentNameList();
}

std::string TaxonLists::GenusOnForm() const {
    return tab_.cboName1.Visible() ? tab_.cboName1.Text() : tab_.txtName1.Text();
}

// All that the list of parents depends on.
std::string TaxonLists::ParentsWanted() const {
    const std::string& rank = tab_.cboDPRank.Text();
    if (!state_.gDatabase || rank.empty()) return {};
    return fmt::format("{}\n{}\n{}\n{}", rank, HasGenusAndEpithet(rank) ? GenusOnForm() : "", recordInEdit_,
                       state_.gDataSetPath);
}

void TaxonLists::RefreshParents() {
    if (ParentsWanted() != parentsOffered_) OfferParents();
}

int TaxonLists::FindParent(std::string_view name) {
    RefreshParents();
    ChoiceSource* source = tab_.cboParentName.Source();
    const Choices parents = source == nullptr ? tab_.cboParentName.Choices() : source->From(name, kNamesake);
    for (const Choice& parent : parents)
        if (EqualText(parent.text, name)) return static_cast<int>(parent.itemData);
    return 0;
}

void TaxonLists::FillParentNameList() {
    if (!state_.gDatabase) return;
    parentsOffered_ = ParentsWanted();
    state_.currentTaxon.direct_parent_rank_id = RankIdOf(tab_.cboDPRank.Text());
    FillParents(state_.currentTaxon.direct_parent_rank_id);
}

void TaxonLists::OfferParents() {
    tab_.cboParentName.Clear();
    parentsOffered_ = ParentsWanted();
    const std::string& rank = tab_.cboDPRank.Text();
    if (state_.gDatabase && !rank.empty()) FillParents(RankIdOf(rank));
}

// The parents of Species and below are those of one genus, and few.
void TaxonLists::FillParents(int rank_id) {
    const std::string& rank = tab_.cboDPRank.Text();
    const std::size_t units = UnitsOf(rank);
    const bool isOfGenus = HasGenusAndEpithet(rank);
    std::string condition =
        fmt::format(fmt::runtime(isOfGenus ? kMayBeParentOfGenus : kMayBeParent), rank_id);
    if (isOfGenus) condition += fmt::format(" AND t.unit_name1 = \"{}\"", QuoteDoubleQuotes(GenusOnForm()));
    if (units == 3) condition += kNoFourthUnit;
    if (recordInEdit_ != 0) condition += fmt::format(" AND  qb_id <> {}", recordInEdit_);
    std::string all = fmt::format(
        "SELECT DISTINCTROW {} as Line, qb_id, tsn FROM qb_taxonomic_units as t WHERE ({}) ORDER BY {};",
        kLines.at(units - 1), condition, kOrders.at(units - 1));
    if (isOfGenus) return FillLater(tab_.cboParentName, std::move(all));
    std::string one = fmt::format(
        "PARAMETERS theId Long; SELECT {} as Line, qb_id FROM qb_taxonomic_units as t WHERE t.qb_id = "
        "[theId] "
        "AND ({})",
        kLines.at(units - 1), condition);
    Offer(tab_.cboParentName, parents_, {rank_id, std::move(all), std::move(one), units, false});
}

std::vector<std::string> TaxonLists::GetRanksBetween(std::string_view lowRank,
                                                     std::string_view highRank) const {
    if (!state_.gDatabase) return {};
    return Texts(fmt::format(
        "SELECT rank_name FROM taxonomic_unit_types WHERE rank_id > {} AND rank_id < {} ORDER BY rank_id",
        RankIdOf(lowRank), RankIdOf(highRank)));
}

}  // namespace quillon::editor
