// The distribution tab of a record: fourteen regions of the world, each a check box, and seven jurisdictions,
// each with the origin of the taxon there. Only ranks from species down have a distribution; for the others
// the panel is disabled.
//
// A click writes nothing. A save collects what the tab shows into CurrentTaxon, rewrites the rows of the
// taxon, and compares them with the old values kept here.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/current_taxon.h"
#include "core/record_tab.h"

namespace quillon::editor {

class DistributionTab : public RecordTab {
public:
    explicit DistributionTab(Form& form);

    void Connect(ApplicationState& state, Prompter& prompter) override;
    const Control& FirstControl() const override { return RVPanel4; }
    void OfferLists() override {}  // the lists never change
    // All boxes off, all lists to "None Selected", no old values.
    void Clear() override;
    void ClearForNextEntry() override;
    // Loads the rows of the taxon, whatever its rank. Unknown regions and origins are reported one by one;
    // unknown jurisdictions are skipped.
    void Load(int qb_id) override;
    // A new record has no old values, whatever it keeps of another one.
    void EnterMode(EditorMode mode) override;
    bool SaveNew(const records::RecordStore& records) override;
    void SaveChanges(const records::RecordStore& records) override;
    // Shows a message when the panel is disabled, once per visit.
    void Shown() override;
    void Hidden() override { said_ = false; }

    // Enables the panel for ranks that have a distribution and disables it for all others.
    void SetRank(std::string_view rank);
    // Copies what the tab shows to `taxon`, in the order of the tab and as it is stored.
    void Collect(CurrentTaxon& taxon);

    // In the order of GeographicValues() and of JurisdictionValues().
    std::array<CheckControl*, 14> Regions();
    std::array<ComboControl*, 7> Jurisdictions();

    // The panel of the page.
    LabelControl RVPanel4;
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

    // The values in the DataSet when the record was loaded, including those that the form does not know.
    std::vector<std::string> oldDivisions;
    std::vector<std::pair<std::string, std::string>> oldJurisdictions;  // value and stored origin

private:
    void ResetJurisdictionLists();
    void LoadDivisions(int qb_id);
    void LoadJurisdictions(int qb_id);
    void ShowOrigin(ComboControl& list, const std::string& value, const std::string& origin);

    Form& form_;
    bool said_ = false;  // during this visit
};

// True for the ranks from Species down, in any case: those whose taxa have a distribution.
bool RankHasDistribution(std::string_view rank);

}  // namespace quillon::editor
