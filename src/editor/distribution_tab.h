// The distribution tab of the main form: fourteen regions of the world, each a check box, and seven
// jurisdictions, each with the origin of the taxon there.
//
// RecView makes the tab, loads it, and shuts its panel for ranks above species. The tab never writes: a save
// collects it into CurrentTaxon and compares that with the old values kept here.
#pragma once

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "core/controls.h"
#include "core/current_taxon.h"
#include "core/outside.h"
#include "store/engine.h"

namespace quillon::editor {

struct DistributionTab {
    LabelControl fraDivision;
    CheckControl chkNorthAmerica, chkMiddleAmerica, chkCaribbean, chkSouthAmerica, chkEurasia, chkAfrica,
        chkAsia, chkAustralia, chkOceaniania, chkAntarctica, chkEAtlantic, chkWAtlantic, chkIndoWestPacific,
        chkEastPacific;

    LabelControl fraJurisdiction;
    LabelControl lblContinentalUS;
    ComboControl cboContinentalUS;
    LabelControl lblAlaska;
    ComboControl cboAlaska;
    LabelControl lblHawaii;
    ComboControl cboHawaii;
    LabelControl lblCenPacTerr;
    ComboControl cboCenPacTerr;
    LabelControl lblCarrTerr;
    ComboControl cboCarrTerr;
    LabelControl lblCanada;
    ComboControl cboCanada;
    LabelControl lblMexico;
    ComboControl cboMexico;

    // As they were in the DataSet at the load, words that the form does not know included.
    std::vector<std::string> oldDivisions;
    std::vector<std::pair<std::string, std::string>> oldJurisdictions;  // value and stored origin

    explicit DistributionTab(Form& form);

    // In the order of GeographicValues() and of JurisdictionValues().
    std::array<CheckControl*, 14> Regions();
    std::array<ComboControl*, 7> Jurisdictions();
};

// All seven lists to "None Selected".
void ResetJurisdictionLists(DistributionTab& tab);
// All boxes off, all lists to "None Selected", no old values.
void ClearDistribution(DistributionTab& tab);
// The rows of the taxon on a cleared tab, whatever its rank. Regions and origins that the form does not know
// are told one by one; jurisdictions that it does not know are passed over. The errors of the store pass
// through.
void LoadDistribution(DistributionTab& tab, store::Database& database, Prompter& prompter, int qb_id);
// What the tab shows, in its order and in the words of the store.
void CollectDistribution(DistributionTab& tab, CurrentTaxon& taxon);

}  // namespace quillon::editor
