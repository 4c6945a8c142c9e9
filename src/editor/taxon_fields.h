// Which fields of the taxon tab exist for a rank, under which labels, and how CurrentTaxon is shown in them.
// TaxonTab uses it, and every other form with TaxonControls. Nothing here writes to the store.
#pragma once

#include <string_view>

#include "core/application_state.h"
#include "core/outside.h"
#include "editor/taxon_controls.h"
#include "editor/taxon_lists.h"

namespace quillon::editor {

class TaxonFields {
public:
    TaxonFields(ApplicationState& state, Prompter& prompter, TaxonControls& tab, TaxonLists& lists);

    // Shows the fields that the rank in cboRank needs and hides the others; without a rank, all. Ratings that
    // the rank does not have are emptied. A quadrinomial that is still accepted gets the rejected usage, with
    // a message when the authority has published it.
    void SetFieldsForRank();
    // Copies CurrentTaxon into the controls, and offers the matching ranks and names of parents. A list that
    // cannot be read is reported; the record is still shown.
    void ShowTaxon();
    // Sets the heading and the options of fraUsage by the family of gKingdomName.
    void SetUsageCaptions();
    // Adds the parentheses that the name of a subgenus lacks (cmdParen).
    void AddParentheses();
    // Shows the box for an unnamed taxon, which only the plant family has.
    void ShowUnnamed();

private:
    void HideAll();
    void ShowNames(std::string_view rank);
    void HideRatings();
    void ShowLabels();
    void SetHybridFormula(bool on);
    void ApplyQuadrinomialRule();
    void ShowQuadrinomial();
    void RejectAcceptedQuadrinomial();
    void ShowUsage();
    void ShowStatus();
    void ShowKingdom();

    ApplicationState& state_;
    Prompter& prompter_;
    TaxonControls& tab_;
    TaxonLists& lists_;
};

}  // namespace quillon::editor
