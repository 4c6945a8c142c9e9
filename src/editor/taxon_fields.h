// Which fields of the taxon tab exist for a rank, under which labels, and how CurrentTaxon is put into them.
// RecView and every other form with a TaxonTab use it; nothing here writes to the store.
#pragma once

#include <string_view>

#include "core/application_state.h"
#include "core/outside.h"
#include "editor/taxon_lists.h"
#include "editor/taxon_tab.h"

namespace quillon::editor {

// True for the ranks from Species down, in any case: those whose taxa have a distribution.
bool RankHasDistribution(std::string_view rank);

class TaxonFields {
public:
    TaxonFields(ApplicationState& state, Prompter& prompter, TaxonTab& tab, TaxonLists& lists);

    // Shows the fields that the rank in cboRank needs and hides the others; without a rank, all. Ratings
    // that the rank does not have are emptied. A quadrinomial that is still accepted turns into the rejected
    // usage, and the user is told when the authority has it.
    void SetFieldsForRank();
    // Copies CurrentTaxon into the controls, and offers the ranks and names of parents that go with it. A
    // list that cannot be read is told; the record is shown all the same.
    void ShowTaxon();
    // The heading and the options of fraUsage by the family of gKingdomName.
    void SetUsageCaptions();
    // Puts the parentheses around a subgenus's name that lacks them (cmdParen).
    void AddParentheses();
    // The box for an unnamed taxon, which the plant family has.
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
    TaxonTab& tab_;
    TaxonLists& lists_;
};

}  // namespace quillon::editor
