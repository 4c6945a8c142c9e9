// CleanUp, the author clean-up: lists authors by a pattern, and replaces the selected ones by one author in
// all their taxa.
//
// The lists are filled in parts, so that a key never waits for hundreds of thousands of authors: the first
// part at once, the others by Continue(), which a window calls while it is idle.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "core/application_state.h"
#include "core/controls.h"
#include "core/multi_list.h"
#include "core/outside.h"
#include "core/signal.h"
#include "store/engine.h"

namespace quillon::curation {

class CleanUp {
public:
    // All references must outlive the form. A DataSet is open.
    CleanUp(ApplicationState& state, store::Engine& engine, Prompter& prompter);

    Form form{"CleanUp"};
    LabelControl LblLower{form, "LblLower", "Authors &Like"};
    TextControl TxtLower{form, "TxtLower"};
    LabelControl lblWildcards{form, "lblWildcards",
                              "*  any text    ?  one character    #  a digit    [a-c]  one of these"};
    ButtonControl cmdSimilar{form, "cmdSimilar", "&Similar"};
    LabelControl lblToFix{form, "lblToFix", "Authors to Replace"};
    // The item data is the qb_taxon_author_id.
    MultiListControl LstToFix{form, "LstToFix"};
    LabelControl LblReplace{form, "LblReplace", "&Replace With"};
    ComboControl cboReplace{form, "cboReplace", ComboControl::Style::Editable, 100};
    LabelControl lblNames{form, "lblNames", "Names of These Authors"};
    ListControl LstNames{form, "LstNames"};
    ButtonControl CmdFix{form, "CmdFix", "&Fix"};
    ButtonControl CmdClose{form, "CmdClose", "&Close"};
    ButtonControl CmdHelp{form, "CmdHelp", "&Help"};

    // Reads another part of the lists; true while there is more.
    bool Continue();
    // The lists are filled further by Continue().
    Signal<> MoreToRead;

    // These taxa have another author now; they count as changed. Raised within the command that changes them,
    // so that what the receiver writes is stored with it.
    Signal<const std::vector<int>&> TURecsModified;
    // The change is stored.
    Signal<> Changed;
    std::function<void()> HelpCommand;

private:
    // A list that is being filled.
    struct Filling {
        Filling() = default;
        explicit Filling(std::string statement) { statements.push_back(std::move(statement)); }

        std::vector<std::string> statements;  // still to be read, the next one at the end
        std::unique_ptr<store::Recordset> rows;
    };

    void ListByPattern();
    void ListSimilar();
    void ListNames();
    void Fix();
    bool AddReplacement(int& replacement);
    std::vector<int> SelectedAuthors() const;
    std::string AuthorsLike() const;
    std::vector<ChoiceControl::Choice> ReadPart(Filling& filling, std::size_t rows);
    bool FillPart(std::size_t rows);
    void StopFilling();
    template <typename List>
    void Extend(List& list, Filling& filling, std::size_t rows);

    ApplicationState& state_;
    store::Engine& engine_;
    Prompter& prompter_;
    Filling authors_, names_;
};

}  // namespace quillon::curation
