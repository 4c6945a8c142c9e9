#include "curation/clean_up.h"

#include <fmt/format.h>

#include <utility>

#include "core/attempt.h"
#include "core/text.h"
#include "core/wait_cursor.h"
#include "curation/alike.h"
#include "curation/author_merge.h"
#include "records/authors.h"
#include "store/command.h"

namespace quillon::curation {

using Choices = std::vector<ChoiceControl::Choice>;
using store::RecordsetType;

namespace {

constexpr std::size_t kRowsAtOnce = 500;
constexpr std::size_t kRowsInAPart = 5000;

// The names of taxa as a line each, before the list of their authors.
constexpr std::string_view kNamesOf =
    "SELECT trim(trim(trim([t].[unit_ind1] & \" \" & [t].[unit_name1]) & \" \" & "
    "trim([t].[unit_ind2] & \" \" & [t].[unit_name2]) & \" \" & "
    "trim([t].[unit_ind3] & \" \" & [t].[unit_name3]) & \" \" & "
    "trim([t].[unit_ind4] & \" \" & [t].[unit_name4])) & \" \" & [a].[taxon_author]) & "
    "\" (\" & [t].[usage] & \")\" AS line, t.qb_id FROM qb_taxonomic_units AS t "
    "LEFT JOIN qb_taxon_authors_lookup AS a ON t.qb_taxon_author_id = a.qb_taxon_author_id "
    "WHERE t.qb_taxon_author_id In ";
constexpr std::string_view kAllAuthors =
    "Select taxon_author, qb_taxon_author_id from qb_taxon_authors_lookup";

}  // namespace

CleanUp::CleanUp(ApplicationState& state, store::Engine& engine, Prompter& prompter)
    : state_(state), engine_(engine), prompter_(prompter) {
    form.SetTitle("Author Clean-Up");
    CmdFix.SetEnabled(true);
    const auto on = [this](Control& control, void (CleanUp::*rule)()) {
        control.OnEdit([this, rule] {
            const ChangeScope scope(form);
            Attempt(prompter_, [&] { (this->*rule)(); });
        });
    };
    on(TxtLower, &CleanUp::ListByPattern);
    on(cmdSimilar, &CleanUp::ListSimilar);
    on(LstToFix, &CleanUp::ListNames);
    on(CmdFix, &CleanUp::Fix);
    CmdClose.OnClick([this] { form.Close(); });
    CmdHelp.OnClick([this] {
        if (HelpCommand) HelpCommand();
    });
}

std::string CleanUp::AuthorsLike() const {
    return fmt::format("{} where taxon_author like \"{}\";", kAllAuthors, QuoteDoubleQuotes(TxtLower.Text()));
}

void CleanUp::ListByPattern() {
    LstToFix.Refill({});
    LstNames.Clear();
    names_ = Filling();
    authors_ = Filling(AuthorsLike());
    cboReplace.SetChoicesLater([this, statement = AuthorsLike()] {
        Choices authors;
        Attempt(prompter_, [&] {
            Filling all(statement);
            authors = ReadPart(all, static_cast<std::size_t>(-1));
            for (auto& author : authors) author.itemData = 0;
        });
        return authors;
    });
    if (FillPart(kRowsAtOnce)) MoreToRead();
}

// All authors are read for this; those that are like no other one are left out.
void CleanUp::ListSimilar() {
    const WaitCursor waiting(prompter_);
    StopFilling();
    LstNames.Clear();
    std::string statement(kAllAuthors);
    Filling all(std::move(statement));
    LstToFix.Refill(AlikeOnly(ReadPart(all, static_cast<std::size_t>(-1))));
}

std::vector<int> CleanUp::SelectedAuthors() const {
    std::vector<int> authors;
    for (const int item : LstToFix.SelectedItems())
        authors.push_back(static_cast<int>(LstToFix.ItemData(item)));
    return authors;
}

void CleanUp::ListNames() {
    LstNames.Clear();
    names_ = Filling();
    for (const std::string& list : IdLists(SelectedAuthors()))
        names_.statements.insert(names_.statements.begin(), std::string(kNamesOf) + list);
    if (FillPart(kRowsAtOnce)) MoreToRead();
}

void CleanUp::StopFilling() {
    authors_ = Filling();
    names_ = Filling();
}

Choices CleanUp::ReadPart(Filling& filling, std::size_t rows) {
    Choices choices;
    while (choices.size() < rows) {
        if (filling.rows == nullptr) {
            if (filling.statements.empty()) break;
            filling.rows =
                state_.gDatabase->OpenRecordset(filling.statements.back(), RecordsetType::ForwardOnly);
            filling.statements.pop_back();
        }
        for (; choices.size() < rows && !filling.rows->Eof(); filling.rows->MoveNext())
            choices.push_back({filling.rows->At(0).AsText(), filling.rows->At(1).AsLong()});
        if (filling.rows->Eof()) filling.rows.reset();
    }
    return choices;
}

template <typename List>
void CleanUp::Extend(List& list, Filling& filling, std::size_t rows) {
    for (const auto& choice : ReadPart(filling, rows)) list.AddItem(choice.text, choice.itemData);
}

bool CleanUp::FillPart(std::size_t rows) {
    const auto isOpen = [](const Filling& filling) {
        return filling.rows != nullptr || !filling.statements.empty();
    };
    if (isOpen(authors_))
        Extend(LstToFix, authors_, rows);
    else if (isOpen(names_))
        Extend(LstNames, names_, rows);
    return isOpen(authors_) || isOpen(names_);
}

bool CleanUp::Continue() {
    const ChangeScope scope(form);
    bool isMore = false;
    if (!Attempt(prompter_, [&] { isMore = FillPart(kRowsInAPart); })) StopFilling();
    return isMore;
}

// False when the author could not be added, which has been reported.
bool CleanUp::AddReplacement(int& replacement) {
    const std::string author = cboReplace.Text();
    replacement = FindReplacement(*state_.gDatabase, author);
    if (replacement != 0) return true;
    try {
        auto query = state_.gDatabase->OpenQueryDef("Insert Author");
        query.Set("author", Value::TextOrNull(author)).Set("kingdom", state_.gKingdomId).Execute();
    } catch (const store::StoreError& failure) {
        if (failure.EndsJob()) throw;
    }
    replacement = FindReplacement(*state_.gDatabase, author);
    if (replacement != 0) return true;
    prompter_.WarningMessage("Unable to change authors!", "Author Update Error");
    return false;
}

void CleanUp::Fix() {
    if (!prompter_.AskOkCancel("You are about to change these authors to " + cboReplace.Text(),
                               "Replace Author")) {
        return;
    }
    const std::vector<int> authors = SelectedAuthors();
    if (authors.empty()) return;
    const WaitCursor waiting(prompter_);
    StopFilling();
    std::vector<int> taxa;
    {
        store::Command command(engine_);
        int replacement = 0;
        if (!AddReplacement(replacement)) return;
        taxa = TaxaOf(*state_.gDatabase, authors);
        MergeAuthors({engine_, *state_.gDatabase, prompter_}, authors, replacement);
        if (!taxa.empty()) TURecsModified(taxa);
        command.Commit();
    }
    Changed();
    ListByPattern();
}

}  // namespace quillon::curation
