#include "core/text.h"
#include "documentation/publication_tab.h"
#include "store/engine.h"

namespace quillon::documentation {

using store::Recordset;

namespace {

// The terms on the fields that narrow one another; none for an empty field. A date stands as it was typed.
std::string AuthorTerm(const PublicationTab& tab) {
    const std::string& author = tab.cboAuthor.Text();
    return author.empty() ? "" : " reference_author = '" + QuoteSQL(author) + "' ";
}
std::string DateTerm(const PublicationTab& tab) {
    const std::string& date = tab.cboADate.Text();
    return date.empty() ? "" : "actual_pub_date = '" + date + "' ";
}
std::string NameTerm(const PublicationTab& tab) {
    const std::string& name = tab.cboPublication.Text();
    return name.empty() ? "" : "publication_name = '" + QuoteSQL(name) + "' ";
}
std::string TitleTerm(const PublicationTab& tab) {
    const std::string& title = tab.cboTitle.Text();
    return title.empty() ? "" : "title = '" + QuoteSQL(title) + "' ";
}

// `select`, with those of the terms that are not empty.
std::string Narrowed(const std::string& select, const std::vector<std::string>& terms) {
    std::string where;
    for (const std::string& term : terms) {
        if (term.empty()) continue;
        where += (where.empty() ? " Where " : "And ") + term;
    }
    return select + where + ";";
}

// The text of the field goes: it stays empty until the user picks.
void Refill(PickListControl& list, std::vector<ChoiceControl::Choice> choices) {
    list.SetText("");
    list.SetChoices(std::move(choices));
    list.Refilled();
}

std::string TermOf(const PublicationTab& tab, std::string_view keyWord) {
    if (keyWord == "author") return AuthorTerm(tab);
    if (keyWord == "act_date") return DateTerm(tab);
    if (keyWord == "pub_name") return NameTerm(tab);
    return TitleTerm(tab);
}

void Take(PublicationTab& tab, const Recordset& row) {
    tab.cboAuthor.SetText(row["reference_author"].AsText());
    tab.cboADate.SetText(row["actual_pub_date"].AsText());
    tab.cboPublication.SetText(row["publication_name"].AsText());
    tab.cboTitle.SetText(row["title"].AsText());
    tab.txtLDate.SetText(row["listed_pub_date"].AsText());
    tab.txtPublisher.SetText(row["publisher"].AsText());
    tab.txtLocation.SetText(row["pub_place"].AsText());
    tab.txtISBN.SetText(row["isbn"].AsText());
    tab.txtISSN.SetText(row["issn"].AsText());
    tab.txtPages.SetText(row["pages"].AsText());
    tab.txtPubComments.SetText(row["pub_comment"].AsText());
    tab.txtPQBID.SetText(row["qb_publication_id"].AsText());
    tab.txtPID.SetText(row["publication_id"].AsText());
}

// A second row is enough to know that there are several.
bool HasOneRow(Recordset& rows) {
    if (rows.Eof()) return false;
    rows.MoveNext();
    const bool one = rows.Eof();
    rows.MoveFirst();
    return one;
}

}  // namespace

void NarrowPubAuthors(PublicationTab& tab, const ApplicationState& state, Prompter& prompter) {
    const std::string select = Narrowed("Select Distinct reference_author From qb_publications",
                                        {DateTerm(tab), NameTerm(tab), TitleTerm(tab)});
    Refill(tab.cboAuthor, ReadChoices(state, prompter, select, true));
}

void NarrowPubNames(PublicationTab& tab, const ApplicationState& state, Prompter& prompter) {
    const std::string select = Narrowed("Select Distinct publication_name From qb_publications",
                                        {AuthorTerm(tab), DateTerm(tab), TitleTerm(tab)});
    Refill(tab.cboPublication, ReadChoices(state, prompter, select, true));
}

void NarrowPubTitles(PublicationTab& tab, const ApplicationState& state, Prompter& prompter) {
    const std::string select = Narrowed("Select Distinct title From qb_publications",
                                        {AuthorTerm(tab), DateTerm(tab), NameTerm(tab)});
    Refill(tab.cboTitle, ReadChoices(state, prompter, select, true));
}

void ReloadPubAuthors(PublicationTab& tab, const ApplicationState& state, Prompter& prompter) {
    tab.cboAuthor.SetChoicesLater([&state, &prompter] {
        return ReadChoices(state, prompter, "SELECT DISTINCT reference_author FROM qb_publications", false);
    });
    tab.cboAuthor.Refilled();
}

void ForgetPubLists(PublicationTab& tab, const ApplicationState& state, Prompter& prompter) {
    ReloadPubAuthors(tab, state, prompter);
    for (PickListControl* list : {&tab.cboAuthor, &tab.cboTitle, &tab.cboPublication}) list->NeverFilled();
    for (PickListControl* list : {&tab.cboTitle, &tab.cboPublication}) list->Clear();
}

void PubSelectionFill(PublicationTab& tab, const ApplicationState& state, Prompter& prompter,
                      std::string_view keyWord) {
    if (!state.gDatabase) return;
    try {
        const std::string select = Narrowed("Select * From qb_publications", {TermOf(tab, keyWord)});
        const auto rows = state.gDatabase->CreateSnapshot(select);
        if (!HasOneRow(*rows)) return;
        ChangeScope scope(tab.form);
        Take(tab, *rows);
    } catch (const store::StoreError& error) {
        prompter.Message("Failed " + error.Description());
    }
}

}  // namespace quillon::documentation
