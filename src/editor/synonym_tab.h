// The synonyms tab of a record. For a name that is not accepted it lists the accepted names that the record
// points to, and offers candidates to add; for an accepted one it lists the synonyms that point to it, for
// reading.
//
// Nothing here writes to the DataSet.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "core/entry_grid.h"
#include "core/record_tab.h"
#include "store/engine.h"

namespace quillon::editor {

// The columns of grdSynonyms. The type is "A" for an accepted name and "S" for a synonym; the tsn is empty
// when there is none.
struct SynonymColumn {
    static constexpr std::size_t kName = 0, kReason = 1;
    static constexpr std::size_t kQbId = 2, kTsn = 3, kType = 4;
};

// The accepted names of one rank as they were read last: reading them again at every record would be felt on
// a million names.
struct AcceptedNames {
    std::weak_ptr<store::Database> database;
    std::int64_t writeCount = 0;
    int rank_id = 0;
    std::vector<ChoiceControl::Choice> names;  // name and author, with the qb_id
};

class SynonymTab : public RecordTab {
public:
    explicit SynonymTab(Form& form);

    void Connect(ApplicationState& state, Prompter& prompter) override;
    const Control& FirstControl() const override { return lblSynonyms; }
    // The ranks of the DataSet with the preferred one chosen, its accepted names, and the words of the
    // kingdom.
    void OfferLists() override;
    // Empties the grid and the fields, and disables the fields: they are for accepted names only.
    void Clear() override;
    void ClearForNextEntry() override;
    // By the usage of CurrentTaxon: the synonyms of an accepted name, the accepted names of another one,
    // which enables the fields, and nothing for any other usage.
    void Load(int qb_id) override;
    // A new record may have every name as its accepted one.
    void EnterMode(EditorMode mode) override;
    // The words of the kingdom; the heading of a stored record stays that of what its grid holds.
    void ApplyPreferences(EditorMode mode) override;

    // Offers the accepted names of the rank in cboSRank. They are read when the list is first looked at, and
    // the record that is current then is left out. A failure is reported.
    void OfferCandidates();
    // An accepted name for one that is not, in the row of `old` or, without such a row, as the last row.
    // `old` and `name` may be nullptr for none.
    struct Accepted {
        int qb_id = 0;
        int tsn = 0;  // 0 for none
        std::string nameAndAuthor;
    };
    void ReplaceAccepted(int oldQbId, const Accepted* name);

    LabelControl lblSynonyms;
    EntryGridControl grdSynonyms;
    LabelControl lblSRank;
    ComboControl cboSRank;
    // The candidates, each with its qb_id.
    LabelControl lblSRName;
    ComboControl cboSRName;
    // The name that the commands work on: the candidate chosen last, or that of the chosen row. Its list
    // holds that name alone, with the qb_id as item data.
    LabelControl lblSSciName;
    ComboControl cboSSciName;
    ButtonControl cmdSAdd, cmdSDelete;

private:
    void LoadSynonyms(int qb_id);
    void LoadAcceptedNames(int qb_id);
    // "Accepted Names" and "Accepted Name", or "Valid Names" and "Valid Name", as the kingdom calls them.
    void SetAcceptedNameCaptions();
    void SetFieldsEnabled(bool enabled);
    void FillRankList(std::string_view rankName);
    std::vector<ChoiceControl::Choice> ReadCandidates(const std::string& rankName);
    void ShowRow();
    void SetSciName(const std::string& name, std::int64_t qb_id);
    void ClearSciName();
    void TakeCandidate();

    AcceptedNames acceptedNames_;
};

// Name and author as the grid shows them; `author` may be empty.
std::string NameAndAuthor(const std::string& name, const std::string& author);

}  // namespace quillon::editor
