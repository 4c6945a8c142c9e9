#include "editor/distribution_tab.h"

#include <algorithm>

#include "core/text.h"
#include "core/vocabulary.h"

namespace quillon::editor {

namespace {

constexpr std::string_view kNoneSelected = "None Selected";

// A caption that holds the words as they stand, none of them an access key.
std::string PlainCaption(std::string_view words) {
    return ReplaceText(words, "&", "&&");
}

std::vector<std::string> OriginChoices() {
    std::vector<std::string> choices = {std::string(kNoneSelected)};
    for (const OriginWord& word : OriginWords()) choices.emplace_back(word.shown);
    return choices;
}

// The place of a value in a list of words, which is that of its control; -1 for none.
template <typename Words>
int PlaceOf(const Words& words, std::string_view value) {
    const auto found = std::find(words.begin(), words.end(), value);
    return found == words.end() ? -1 : static_cast<int>(found - words.begin());
}

std::unique_ptr<store::Recordset> RowsOf(store::Database& database, std::string_view query, int qb_id) {
    return database.OpenQueryDef(query).Set("qbid", qb_id).CreateSnapshot();
}

void LoadDivisions(DistributionTab& tab, store::Database& database, Prompter& prompter, int qb_id) {
    const auto regions = tab.Regions();
    const auto rows = RowsOf(database, "Get Distrib Data", qb_id);
    for (; !rows->Eof(); rows->MoveNext()) {
        const std::string value = rows->Get("geographic_value").AsText();
        tab.oldDivisions.push_back(value);
        const int place = PlaceOf(GeographicValues(), value);
        if (place >= 0)
            regions[static_cast<std::size_t>(place)]->SetValue(true);
        else
            prompter.Message("Unknown Distribution: " + value);
    }
}

void ShowOrigin(ComboControl& list, const std::string& value, const std::string& origin, Prompter& prompter) {
    const auto words = OriginWords();
    const auto word = std::find_if(words.begin(), words.end(),
                                   [&](const OriginWord& each) { return each.stored == origin; });
    if (word != words.end()) return list.SetText(word->shown);
    prompter.Message("Unknown Origin: " + origin + " for Jurisdiction: " + value);
}

void LoadJurisdictions(DistributionTab& tab, store::Database& database, Prompter& prompter, int qb_id) {
    const auto lists = tab.Jurisdictions();
    const auto rows = RowsOf(database, "Get Jurisdiction Data", qb_id);
    for (; !rows->Eof(); rows->MoveNext()) {
        const std::string value = rows->Get("jurisdiction_value").AsText();
        const std::string origin = rows->Get("origin").AsText();
        tab.oldJurisdictions.emplace_back(value, origin);
        const int place = PlaceOf(JurisdictionValues(), value);
        if (place >= 0) ShowOrigin(*lists[static_cast<std::size_t>(place)], value, origin, prompter);
    }
}

}  // namespace

DistributionTab::DistributionTab(Form& form)
    : fraDivision(form, "fraDivision", "Geographic Division"),
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
      cboMexico(form, "cboMexico", ComboControl::Style::ListOnly) {
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
    ResetJurisdictionLists(*this);
}

std::array<CheckControl*, 14> DistributionTab::Regions() {
    return {&chkNorthAmerica, &chkMiddleAmerica, &chkCaribbean,       &chkSouthAmerica, &chkEurasia,
            &chkAfrica,       &chkAsia,          &chkAustralia,       &chkOceaniania,   &chkAntarctica,
            &chkEAtlantic,    &chkWAtlantic,     &chkIndoWestPacific, &chkEastPacific};
}

std::array<ComboControl*, 7> DistributionTab::Jurisdictions() {
    return {&cboContinentalUS, &cboAlaska, &cboHawaii, &cboCenPacTerr, &cboCarrTerr, &cboCanada, &cboMexico};
}

void ResetJurisdictionLists(DistributionTab& tab) {
    for (ComboControl* list : tab.Jurisdictions()) list->SetText(kNoneSelected);
}

void ClearDistribution(DistributionTab& tab) {
    for (CheckControl* region : tab.Regions()) region->SetValue(false);
    ResetJurisdictionLists(tab);
    tab.oldDivisions.clear();
    tab.oldJurisdictions.clear();
}

void LoadDistribution(DistributionTab& tab, store::Database& database, Prompter& prompter, int qb_id) {
    ClearDistribution(tab);
    LoadDivisions(tab, database, prompter, qb_id);
    LoadJurisdictions(tab, database, prompter, qb_id);
}

void CollectDistribution(DistributionTab& tab, CurrentTaxon& taxon) {
    taxon.divisions.clear();
    taxon.jurisdictions.clear();
    const auto regions = tab.Regions();
    for (std::size_t i = 0; i < regions.size(); ++i)
        if (regions[i]->Value()) taxon.divisions.emplace_back(GeographicValues()[i]);
    const auto lists = tab.Jurisdictions();
    for (std::size_t i = 0; i < lists.size(); ++i)
        for (const OriginWord& word : OriginWords())
            if (lists[i]->Text() == word.shown)
                taxon.jurisdictions.emplace_back(JurisdictionValues()[i], word.stored);
}

}  // namespace quillon::editor
