// The synonyms tab of a record. For a name that is not accepted it lists the accepted names that the record
// points to, and offers candidates to add; for an accepted one it lists the synonyms that point to it,
// read-only.
//
// The commands change only the grid; a save rewrites the links of the record.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "core/entry_grid.h"
#include "core/record_tab.h"
#include "editor/name_source.h"
#include "store/engine.h"

namespace quillon::editor {

// The columns of grdSynonyms. The type is "A" for an accepted name and "S" for a synonym; the tsn is empty
// when there is none.
struct SynonymColumn {
    static constexpr std::size_t kName = 0, kReason = 1;
    static constexpr std::size_t kQbId = 2, kTsn = 3, kType = 4;
};

class SynonymTab : public RecordTab {
public:
    explicit SynonymTab(Form& form);

    void Connect(ApplicationState& state, Prompter& prompter) override;
    const Control& FirstControl() const override { return lblSynonyms; }
    // Offers the ranks of the DataSet, selects the preferred one, offers its accepted names, and applies the
    // words of the kingdom.
    void OfferLists() override;
    // Empties the grid and the fields, and disables the fields: they only enter accepted names.
    void Clear() override;
    void ClearForNextEntry() override;
    // Loads the synonyms of an accepted name, or the accepted names of one that is not, which enables the
    // fields. Loads nothing for a usage that is neither.
    void Load(int qb_id) override;
    // For a new record any name may be the accepted one; it has no synonyms yet.
    void EnterMode(EditorMode mode) override;
    // Only accepted names are stored. The first link that fails ends the save.
    bool SaveNew(const records::RecordStore& records) override;
    // The old links of the record go, with their tombstones.
    void SaveChanges(const records::RecordStore& records) override;
    void RefreshLists() override { OfferCandidates(); }
    // Applies the words of the kingdom. The heading of a stored record is kept, because it describes what the
    // grid holds.
    void ApplyPreferences(EditorMode mode) override;

    // Offers the accepted names of the rank in cboSRank. They are read when the list is first used, without
    // the record that is current then. A failure is reported.
    void OfferCandidates();
    // An accepted name to enter; ReplaceAccepted puts it into the row of `oldQbId` or, when there is no such
    // row, at the end. An `oldQbId` of 0 and a `name` of nullptr stand for none.
    struct Accepted {
        int qb_id = 0;
        int tsn = 0;  // 0 for none
        std::string nameAndAuthor;
    };
    void ReplaceAccepted(int oldQbId, const Accepted* name);
    // The user has chosen another usage: the grid empties, for accepted names or for synonyms. A record that
    // is accepted again as it is stored shows its synonyms.
    void UsageChosen(bool rejected);

    LabelControl lblSynonyms;
    EntryGridControl grdSynonyms;
    LabelControl lblSRank;
    ComboControl cboSRank;
    // The candidates, each with its qb_id.
    LabelControl lblSRName;
    ComboControl cboSRName;
    // The name that the commands work on: the last candidate chosen, or the name of the selected row. Its
    // list holds only that name, with the qb_id as item data.
    LabelControl lblSSciName;
    ComboControl cboSSciName;
    ButtonControl cmdSAdd, cmdSDelete;

private:
    void Add();
    void Delete();
    bool SaveLinks(const records::RecordStore& records);
    void LoadSynonyms(int qb_id);
    void LoadAcceptedNames(int qb_id);
    // Sets "Accepted Names" and "Accepted Name", or "Valid Names" and "Valid Name", by kingdom.
    void SetAcceptedNameCaptions();
    void SetFieldsEnabled(bool enabled);
    void FillRankList(std::string_view rankName);
    void ShowRow();
    void SetSciName(const std::string& name, std::int64_t qb_id);
    void ClearSciName();
    void TakeCandidate();

    std::shared_ptr<NameSource> candidates_;  // kept, because a short list is read as a whole
};

// Name and author as the grid shows them; `author` may be empty.
std::string NameAndAuthor(const std::string& name, const std::string& author);

}  // namespace quillon::editor
