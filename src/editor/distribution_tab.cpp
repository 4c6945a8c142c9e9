#include "editor/distribution_tab.h"

#include <algorithm>

#include "core/attempt.h"
#include "core/text.h"
#include "core/vocabulary.h"
#include "records/distribution.h"
#include "store/engine.h"

namespace quillon::editor {

namespace {

constexpr std::string_view kNoneSelected = "None Selected";
constexpr std::string_view kDisabled =
    "You cannot enter any geographical and/or jurisdictional data when editing ranks above the species "
    "level.  "
    "This screen is currently disabled!";

constexpr std::array<std::string_view, 6> kRanksWithDistribution = {"SPECIES",    "SUBSPECIES", "VARIETY",
                                                                    "SUBVARIETY", "FORM",       "SUBFORM"};

// Escapes the words so that a caption shows them unchanged and without an access key.
std::string PlainCaption(std::string_view words) {
    return ReplaceText(words, "&", "&&");
}

std::vector<std::string> OriginChoices() {
    std::vector<std::string> choices = {std::string(kNoneSelected)};
    for (const OriginWord& word : OriginWords()) choices.emplace_back(word.shown);
    return choices;
}

// The index of a value in a list of words, which is also the index of its control; -1 for none.
template <typename Words>
int PlaceOf(const Words& words, std::string_view value) {
    const auto found = std::find(words.begin(), words.end(), value);
    return found == words.end() ? -1 : static_cast<int>(found - words.begin());
}

std::unique_ptr<store::Recordset> RowsOf(store::Database& database, std::string_view query, int qb_id) {
    return database.OpenQueryDef(query).Set("qbid", qb_id).CreateSnapshot();
}

}  // namespace

bool RankHasDistribution(std::string_view rank) {
    return PlaceOf(kRanksWithDistribution, UpperCase(Trim(rank))) >= 0;
}

DistributionTab::DistributionTab(Form& form)
    : RVPanel4(form, "RVPanel4"),
      fraDivision(form, "fraDivision", "Geographic Division"),
      chkNorthAmerica(form, "chkNorthAmerica"),
      chkMiddleAmerica(form, "chkMiddleAmerica"),
      chkCaribbean(form, "chkCaribbean"),
      chkSouthAmerica(form, "chkSouthAmerica"),
      chkEurasia(form, "chkEurasia"),
      chkAfrica(form, "chkAfrica"),
      chkAsia(form, "chkAsia"),
      chkAustralia(form, "chkAustralia"),
      chkOceaniania(form, "chkOceaniania"),
      chkAntarctica(form, "chkAntarctica"),
      chkEAtlantic(form, "chkEAtlantic"),
      chkWAtlantic(form, "chkWAtlantic"),
      chkIndoWestPacific(form, "chkIndoWestPacific"),
      chkEastPacific(form, "chkEastPacific"),
      fraJurisdiction(form, "fraJurisdiction", "Jurisdiction and Origin"),
      lblContinentalUS(form, "lblContinentalUS"),
      cboContinentalUS(form, "cboContinentalUS", ComboControl::Style::ListOnly),
      lblAlaska(form, "lblAlaska"),
      cboAlaska(form, "cboAlaska", ComboControl::Style::ListOnly),
      lblHawaii(form, "lblHawaii"),
      cboHawaii(form, "cboHawaii", ComboControl::Style::ListOnly),
      lblCenPacTerr(form, "lblCenPacTerr"),
      cboCenPacTerr(form, "cboCenPacTerr", ComboControl::Style::ListOnly),
      lblCarrTerr(form, "lblCarrTerr"),
      cboCarrTerr(form, "cboCarrTerr", ComboControl::Style::ListOnly),
      lblCanada(form, "lblCanada"),
      cboCanada(form, "cboCanada", ComboControl::Style::ListOnly),
      lblMexico(form, "lblMexico"),
      cboMexico(form, "cboMexico", ComboControl::Style::ListOnly),
      form_(form) {
    RVPanel4.SetEnabled(false);
    const auto regions = Regions();
    for (std::size_t i = 0; i < regions.size(); ++i)
        regions[i]->SetCaption(PlainCaption(GeographicValues()[i]));
    LabelControl* const labels[] = {&lblContinentalUS, &lblAlaska, &lblHawaii, &lblCenPacTerr,
                                    &lblCarrTerr,      &lblCanada, &lblMexico};
    const auto lists = Jurisdictions();
    for (std::size_t i = 0; i < lists.size(); ++i) {
        labels[i]->SetCaption(JurisdictionValues()[i]);
        lists[i]->SetTexts(OriginChoices());
    }
    ResetJurisdictionLists();
}

std::array<CheckControl*, 14> DistributionTab::Regions() {
    return {&chkNorthAmerica, &chkMiddleAmerica, &chkCaribbean,       &chkSouthAmerica, &chkEurasia,
            &chkAfrica,       &chkAsia,          &chkAustralia,       &chkOceaniania,   &chkAntarctica,
            &chkEAtlantic,    &chkWAtlantic,     &chkIndoWestPacific, &chkEastPacific};
}

std::array<ComboControl*, 7> DistributionTab::Jurisdictions() {
    return {&cboContinentalUS, &cboAlaska, &cboHawaii, &cboCenPacTerr, &cboCarrTerr, &cboCanada, &cboMexico};
}

void DistributionTab::Connect(ApplicationState& state, Prompter& prompter) {
    RecordTab::Connect(state, prompter);
    for (CheckControl* region : Regions()) TrackChanges(state, {region});
    for (ComboControl* list : Jurisdictions()) TrackChanges(state, {list});
}

void DistributionTab::Clear() {
    for (CheckControl* region : Regions()) region->SetValue(false);
    ResetJurisdictionLists();
    oldDivisions.clear();
    oldJurisdictions.clear();
}

void DistributionTab::ClearForNextEntry() {
    if (!KeptForNextEntry(State().gPrefSaveOtherFields)) Clear();
}

void DistributionTab::Load(int qb_id) {
    Clear();
    Attempt(Outside(), [&] {
        LoadDivisions(qb_id);
        LoadJurisdictions(qb_id);
    });
}

// Pending changes are shown first, so that the message appears over the page that it describes.
void DistributionTab::Shown() {
    if (RVPanel4.Enabled() || said_) return;
    said_ = true;
    form_.TellChanges();
    Outside().Message(kDisabled);
}

void DistributionTab::SetRank(std::string_view rank) {
    RVPanel4.SetEnabled(RankHasDistribution(rank));
}

void DistributionTab::Collect(CurrentTaxon& taxon) {
    taxon.divisions.clear();
    taxon.jurisdictions.clear();
    const auto regions = Regions();
    for (std::size_t i = 0; i < regions.size(); ++i)
        if (regions[i]->Value()) taxon.divisions.emplace_back(GeographicValues()[i]);
    const auto lists = Jurisdictions();
    for (std::size_t i = 0; i < lists.size(); ++i)
        for (const OriginWord& word : OriginWords())
            if (lists[i]->Text() == word.shown)
                taxon.jurisdictions.emplace_back(JurisdictionValues()[i], word.stored);
}

void DistributionTab::EnterMode(EditorMode mode) {
    if (mode != EditorMode::Input) return;
    oldDivisions.clear();
    oldJurisdictions.clear();
}

bool DistributionTab::SaveNew(const records::RecordStore& records) {
    CurrentTaxon& taxon = State().currentTaxon;
    if (taxon.qb_id == 0) return false;
    Collect(taxon);
    records::AddDivisions(records, records::KeyOf(taxon), taxon.divisions);
    records::AddJurisdictions(records, records::KeyOf(taxon), taxon.jurisdictions);
    return true;
}

void DistributionTab::SaveChanges(const records::RecordStore& records) {
    CurrentTaxon& taxon = State().currentTaxon;
    Collect(taxon);
    records::RewriteDivisions(records, records::KeyOf(taxon), taxon.divisions, oldDivisions);
    records::RewriteJurisdictions(records, records::KeyOf(taxon), taxon.jurisdictions, oldJurisdictions);
}

void DistributionTab::ResetJurisdictionLists() {
    for (ComboControl* list : Jurisdictions()) list->SetText(kNoneSelected);
}

void DistributionTab::LoadDivisions(int qb_id) {
    const auto regions = Regions();
    const auto rows = RowsOf(*State().gDatabase, "Get Distrib Data", qb_id);
    for (; !rows->Eof(); rows->MoveNext()) {
        const std::string value = rows->Get("geographic_value").AsText();
        oldDivisions.push_back(value);
        const int place = PlaceOf(GeographicValues(), value);
        if (place >= 0)
            regions[static_cast<std::size_t>(place)]->SetValue(true);
        else
            Outside().Message("Unknown Distribution: " + value);
    }
}

void DistributionTab::LoadJurisdictions(int qb_id) {
    const auto lists = Jurisdictions();
    const auto rows = RowsOf(*State().gDatabase, "Get Jurisdiction Data", qb_id);
    for (; !rows->Eof(); rows->MoveNext()) {
        const std::string value = rows->Get("jurisdiction_value").AsText();
        const std::string origin = rows->Get("origin").AsText();
        oldJurisdictions.emplace_back(value, origin);
        const int place = PlaceOf(JurisdictionValues(), value);
        if (place >= 0) ShowOrigin(*lists[static_cast<std::size_t>(place)], value, origin);
    }
}

void DistributionTab::ShowOrigin(ComboControl& list, const std::string& value, const std::string& origin) {
    const auto words = OriginWords();
    const auto word = std::find_if(words.begin(), words.end(),
                                   [&](const OriginWord& each) { return each.stored == origin; });
    if (word != words.end()) return list.SetText(word->shown);
    Outside().Message("Unknown Origin: " + origin + " for Jurisdiction: " + value);
}

}  // namespace quillon::editor
