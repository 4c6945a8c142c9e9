// The pick lists of a documentation tab whose fields narrow one another, and what a pick in one of them fills
// in.
#include <fmt/format.h>

#include "core/text.h"
#include "documentation/documentation_tab.h"
#include "store/engine.h"

namespace quillon::documentation {

namespace {

// `select` with the terms that are not empty as its condition.
std::string Narrowed(const std::string& select, const std::vector<std::string>& terms) {
    std::string where;
    for (const std::string& term : terms) {
        if (term.empty()) continue;
        where += (where.empty() ? " Where " : "And ") + term;
    }
    return select + where + ";";
}

// The date field has no pick list, and its text goes into a statement without quotes.
constexpr std::string_view kDateColumn = "actual_pub_date";

bool HasOneRow(store::Recordset& rows) {
    if (rows.Eof()) return false;
    rows.MoveNext();
    const bool one = rows.Eof();
    rows.MoveFirst();
    return one;
}

}  // namespace

void DocumentationTab::ConnectNarrowing() {
    for (const std::size_t field : description_.narrowing) {
        PickListControl& list = *PickList(field);
        list.OnPick([this, field] { FillFromPick(field); });
        if (description_.fields[field].column == kDateColumn) continue;
        list.OnDropDown([this, field, &list] {
            if (list.LeftSinceRefill()) Narrow(field);
        });
    }
}

std::string DocumentationTab::TermOf(std::size_t field) const {
    const std::string text = TextOf(field);
    if (text.empty()) return {};
    const std::string_view column = description_.fields[field].column;
    return fmt::format(" {} = '{}' ", column, column == kDateColumn ? text : QuoteSQL(text));
}

// Empties the field; it stays empty until the user picks a value.
void DocumentationTab::Narrow(std::size_t field) {
    std::vector<std::string> terms;
    for (const std::size_t other : description_.narrowing)
        if (other != field) terms.push_back(TermOf(other));
    const std::string select =
        fmt::format("Select Distinct {} From {}", description_.fields[field].column, description_.kind.table);
    std::vector<ChoiceControl::Choice> values = ReadValues(Narrowed(select, terms), true);
    PickListControl& list = *PickList(field);
    list.SetText("");
    list.SetChoices(std::move(values));
    list.Refilled();
}

// Matches on the picked field alone.
void DocumentationTab::TakeOnlyMatch(std::size_t field) {
    const std::string select = fmt::format("Select * From {}", description_.kind.table);
    const auto rows = State().gDatabase->CreateSnapshot(Narrowed(select, {TermOf(field)}));
    if (HasOneRow(*rows)) TakeDocument(*rows, 0);
}

}  // namespace quillon::documentation
