// The synonyms tab of the main form. For a name that is not accepted it lists the accepted names that the
// record points to, and offers candidates to add; for an accepted one it lists the synonyms that point to it,
// for reading.
//
// RecView makes the tab and calls the procedures while it loads a record. Nothing here writes to the DataSet.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "core/application_state.h"
#include "core/controls.h"
#include "core/outside.h"
#include "store/engine.h"

namespace quillon::editor {

// The columns of grdSynonyms, whose last row is always the empty one. The type is "A" for an accepted name
// and "S" for a synonym; the tsn is empty when there is none.
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

struct SynonymTab {
    LabelControl lblSynonyms;
    GridControl grdSynonyms;
    LabelControl lblSRank;
    ComboControl cboSRank;
    // The candidates, each with its qb_id.
    LabelControl lblSRName;
    ComboControl cboSRName;
    // The name that the commands work on: the candidate chosen last, or that of the chosen row. It is its own
    // one choice, with the qb_id as item data.
    LabelControl lblSSciName;
    ComboControl cboSSciName;
    ButtonControl cmdSAdd, cmdSDelete;

    AcceptedNames acceptedNames;

    explicit SynonymTab(Form& form);
};

// Hangs on the rule that another rank brings other candidates. Called once.
void ConnectSynonymTab(SynonymTab& tab, ApplicationState& state, Prompter& prompter);

// Empties the grid and the fields, and shuts the fields: they are for accepted names only.
void SetupSynonymGrid(SynonymTab& tab);
// The synonyms of an accepted name. The errors of the store pass through.
void LoadSynonyms(SynonymTab& tab, store::Database& database, int qb_id);
// The accepted names of a synonym, with the captions of the kingdom; opens the fields. The errors of the
// store pass through.
void LoadAcceptedNames(SynonymTab& tab, store::Database& database, int qb_id, std::string_view kingdomName);

// "Accepted Names" and "Accepted Name", or "Valid Names" and "Valid Name", as the kingdom calls them.
void SetAcceptedNameCaptions(SynonymTab& tab, std::string_view kingdomName);
// The fields for choosing an accepted name, open or shut.
void SetSynonymFieldsEnabled(SynonymTab& tab, bool enabled);
// Name and author as the grid shows them; `author` may be empty.
std::string NameAndAuthor(const std::string& name, const std::string& author);

// The ranks of the DataSet in cboSRank, with `rankName` chosen. The errors of the store pass through.
void FillSynonymRankList(SynonymTab& tab, store::Database& database, std::string_view rankName);
// Offers the accepted names of the rank in cboSRank, without the record that is current when they are read:
// when they are first looked at. A new record is nobody yet. A failure of the store is told.
void FillAcceptedNameList(SynonymTab& tab, ApplicationState& state, Prompter& prompter);

}  // namespace quillon::editor
