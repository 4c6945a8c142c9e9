// The first tab of a record: a taxon's name, rank, usage, ratings, parent and authors. It combines the
// controls (taxon_controls.h) with what a rank shows (taxon_fields.h) and what the lists offer
// (taxon_lists.h).
//
// Nothing here writes to the DataSet.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "core/record_tab.h"
#include "core/signal.h"
#include "editor/taxon_controls.h"
#include "editor/taxon_fields.h"
#include "editor/taxon_lists.h"
#include "editor/usage_switch.h"

namespace quillon::editor {

class TaxonTab : public RecordTab, public TaxonControls {
public:
    explicit TaxonTab(Form& owner) : TaxonControls(owner) {}

    void Connect(ApplicationState& state, Prompter& prompter) override;
    const Control& FirstControl() const override { return lblKingdom; }
    // All lists, the words of the kingdom, and the preferred rank with its fields.
    void OfferLists() override;
    void Clear() override;
    void ClearForNextEntry() override;
    // Takes the record from CurrentTaxon; its kingdom becomes that of the application.
    void Load(int qb_id) override;
    void EnterMode(EditorMode mode) override;
    // A new record takes the preferred rank if it has changed.
    void ApplyPreferences(EditorMode mode) override;

    // The rank in cboRank has changed, or is shown again.
    Signal<std::string_view> RankShown;
    // The user has chosen a usage; true when the name is not accepted now. The synonyms or accepted names on
    // the form are no longer those of the record.
    Signal<bool> UsageChosen;
    // Shows the fields that the rank in cboRank needs.
    void SetFieldsForRank();
    // Enters a parent that was chosen elsewhere; "" as its rank for none.
    void EnterParent(const std::string& rank, int rank_id, const std::string& name, int qb_id);

    // What a save takes for the unit 1 to 4 of the name, and for the two authors: the text of the field, but
    // "" for a field that the user's own change of rank or hybrid formula has hidden.
    std::string EnteredUnit(int unit) const;
    std::string EnteredAuthor() const { return cboAuth.Text(); }
    std::string EnteredHybridAuthor() const;
    // The parent that the user has chosen: a choice of the list, or the first one that reads as the typed
    // text. 0 while the parent is the one of CurrentTaxon, and when the list does not have the text.
    int ChosenParent() const;
    // The name of the taxon under edit, from its record or from the fields.
    std::string CurrentTaxonName() const;

    TaxonLists& Lists() { return *lists_; }
    TaxonFields& Fields() { return *fields_; }

    // The text of cboRank just after the load. A save asks when the rank has changed.
    std::string rankAsLoaded;

private:
    void ConnectFields();
    void ShowRank();
    void RankChosen();
    void QuadrinomialClicked();
    void RefuseWithoutParentRank();
    void OfferParentRanks();
    void ParentRankPicked();
    void RefreshParents();
    void ShowPreferredRank();
    void TakePreferredRank();
    void ClearOtherFields();
    void FillNameLists();

    std::unique_ptr<TaxonLists> lists_;
    std::unique_ptr<TaxonFields> fields_;
    std::unique_ptr<UsageSwitch> usage_;
    std::string appliedRank_;  // the gPrefRank applied last
    std::string shownRank_;    // the rank whose fields are shown
};

}  // namespace quillon::editor
