// What the combo boxes of the taxon tab offer. TaxonTab fills them when a DataSet is opened and with each
// record that it shows. The lists that grow with the DataSet (authors, genera, species, parents) are not read
// before they are used, so that showing a record costs the same in a large DataSet as in a small one. Those
// of authors, genera, and parents above Species are read in slices (name_source.h).
//
// Filling a list changes neither the text of an editable combo nor RecordDirty. Without a DataSet nothing is
// filled. Throws StoreError, except that a list that is read later reports its failure and stays empty.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/application_state.h"
#include "core/outside.h"
#include "editor/name_source.h"
#include "editor/taxon_controls.h"

namespace quillon::editor {

class TaxonLists {
public:
    TaxonLists(ApplicationState& state, Prompter& prompter, TaxonControls& tab);

    // cboRank: the ranks of gKingdomId. None is chosen afterwards.
    void FillRankList();
    // cboCredibility and cboCoverage.
    void FillRatingLists();
    // cboInvalidReason, by the family of gKingdomName.
    void FillReasonList();
    // cboAuth and cboAuth2. Reports when no DataSet is open.
    void FillAuthorLists();
    // cboName1: the genera; for the kingdom record the names of rank Kingdom.
    void FillGenusList();
    // Handles a click on cboName1 for "Species", "Subspecies" and "Variety": fills cboName2 and the parents
    // if the DataSet has a genus of that name.
    void FillSpeciesList();
    // cboDPRank: the ranks above `rank`, and "Kingdom". A text that is among them stays. Does nothing for ""
    // or an unknown rank.
    void SetPRankList(std::string_view rank);
    // Sets cboDPRank to the usual rank of a parent for the rank in cboRank, which may depend on the kingdom.
    void SetParentRankFromRank();
    // cboParentName: the taxa of the rank in cboDPRank that can be parents; for Species and below only those
    // of the genus on the form. In EDIT mode the record itself is left out.
    void FillParentNameList();
    // The same for a record that is only shown: leaves CurrentTaxon alone, and offers no parents without a
    // rank in cboDPRank.
    void OfferParents();
    // The same when cboDPRank, the genus on the form or the record in EDIT mode is another one than that of
    // the parents on offer.
    void RefreshParents();
    // The first parent on offer that reads as `name`, without regard to case; 0 when there is none.
    int FindParent(std::string_view name);
    // The record in EDIT mode; 0 in INPUT mode.
    void SetRecordInEdit(int qb_id) { recordInEdit_ = qb_id; }

    // The names of the ranks strictly between two, in their order.
    std::vector<std::string> GetRanksBetween(std::string_view lowRank, std::string_view highRank) const;
    // "Get Rank ID"; 0 for a rank that the DataSet does not have.
    int RankIdOf(std::string_view rank) const;

private:
    std::string GenusOnForm() const;
    std::string ParentsWanted() const;
    Choices Read(const std::string& sql) const;
    // The result of `read`; empty when it fails, which is reported.
    Choices ReadOrReport(const std::function<Choices()>& read) const;
    void FillParents(int rank_id);
    void FillLater(ComboControl& combo, std::string sql);
    void Offer(ComboControl& combo, std::shared_ptr<NameSource>& source, NamesOfRank names);
    std::vector<std::string> Texts(const std::string& sql) const;

    ApplicationState& state_;
    Prompter& prompter_;
    TaxonControls& tab_;
    int recordInEdit_ = 0;
    std::string parentsOffered_;                    // what ParentsWanted() was when the parents were offered
    std::shared_ptr<NameSource> genera_, parents_;  // kept, because a short list is read as a whole
};

}  // namespace quillon::editor
