// Which fields of the taxon tab exist for a rank, under which labels, and how CurrentTaxon is shown in them.
// TaxonTab uses it, and every other form with TaxonControls. Nothing here writes to the store.
#pragma once

#include <array>
#include <string_view>

#include "core/application_state.h"
#include "core/outside.h"
#include "editor/rank_fields.h"
#include "editor/taxon_controls.h"
#include "editor/taxon_lists.h"

namespace quillon::editor {

class TaxonFields {
public:
    TaxonFields(ApplicationState& state, Prompter& prompter, TaxonControls& tab, TaxonLists& lists);

    // Shows the fields that the rank in cboRank needs and hides the others; without a rank, all. Marks are
    // turned off, and ratings that the rank does not have are emptied. A quadrinomial that is still accepted
    // gets the rejected usage, with a message when the authority has published it.
    void SetFieldsForRank();
    // The same fields after the user has chosen another rank: what was typed and marked stays as long as the
    // rank has the field, and the usage is not touched.
    void SetNameFieldsForRankChange();
    // The user has turned chkHybrid3 on or off: shows or hides the second genus, species and author.
    void ChangeHybridFormula();
    // The user has turned chkQuad on or off: shows or hides the fourth unit. The third one moves there, or
    // back.
    void ChangeQuadrinomial();

    // True for a field that the user's own change of rank or of chkHybrid3 has hidden: a save takes it as
    // empty. A field that the record does not show since it was loaded is not dropped, so that a save writes
    // back what it holds. `unit` counts from 1 to 4.
    bool IsDropped(int unit) const { return dropped_.at(static_cast<std::size_t>(unit - 1)); }
    bool IsHybridAuthorDropped() const { return dropped_.back(); }

    // True when SetFieldsForRank() has given an accepted quadrinomial the rejected usage.
    bool HasRejected() const { return rejected_; }

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
    // The four units and the hybrid author.
    using Parts = std::array<bool, 5>;

    Parts ShownParts() const;
    void DropHidden(const Parts& before);
    void HideAll();
    void TurnMarksOff();
    void ShowNames(const RankFields* fields);
    void HideRatings();
    void ShowLabels();
    void SetHybridFormula(bool on);
    void ShowTrinomial();
    void ShowQuadrinomial();
    void RejectAcceptedQuadrinomial();
    void ShowName();
    void ShowUsage();
    void ShowStatus();
    void ShowParent();
    void ShowKingdom();

    ApplicationState& state_;
    Prompter& prompter_;
    TaxonControls& tab_;
    TaxonLists& lists_;
    Parts dropped_{};
    bool rejected_ = false;
};

}  // namespace quillon::editor
