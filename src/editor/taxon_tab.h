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
    // Shows the fields that the rank in cboRank needs.
    void SetFieldsForRank();
    // Enters a parent that was chosen elsewhere; "" as its rank for none.
    void EnterParent(const std::string& rank, int rank_id, const std::string& name);
    // What a save takes for the unit 1 to 4 of the name: the text of the field that is shown for it.
    std::string EnteredUnit(int unit) const;
    // What a save takes for the two authors: the taxon's, and that of a hybrid.
    std::string EnteredAuthor() const { return cboAuth.Text(); }
    std::string EnteredHybridAuthor() const { return cboAuth2.Text(); }
    // The parent that the user has chosen; 0 while the parent is the one of CurrentTaxon, and for a text that
    // no name of the list has.
    int ChosenParent() const;
    // The name of the taxon under edit, from its record or from the fields.
    std::string CurrentTaxonName() const;

    TaxonLists& Lists() { return *lists_; }
    TaxonFields& Fields() { return *fields_; }

    // The text of cboRank just after the load. A save asks when the rank has changed.
    std::string rankAsLoaded;

private:
    void ShowPreferredRank();
    void TakePreferredRank();
    void ClearOtherFields();
    void FillNameLists();

    std::unique_ptr<TaxonLists> lists_;
    std::unique_ptr<TaxonFields> fields_;
    std::string appliedRank_;  // the gPrefRank applied last
};

}  // namespace quillon::editor
