#include "editor/name_syntax.h"

#include <fmt/format.h>

#include <optional>
#include <string>
#include <string_view>

#include "core/text.h"

namespace quillon::editor {

namespace {

struct Fault {
    Control* field;
    std::string message;
};
using Verdict = std::optional<Fault>;  // empty when the name is valid

// The field of a unit and its trimmed text.
struct Unit {
    Control* field;
    std::string_view text;
};

Unit UnitIn(TextControl& field) {
    return {&field, Trim(field.Text())};
}

Unit UnitIn(ComboControl& list, TextControl& field) {
    if (!list.Visible()) return UnitIn(field);
    return {&list, Trim(list.Text())};
}

Verdict CheckPresent(const Unit& unit, std::string_view word) {
    if (!unit.text.empty()) return {};
    return Fault{unit.field, fmt::format("The {} is a required field!", word)};
}

// Tests the first letter. A text without letters is valid.
bool BeginsWithCapital(std::string_view text) {
    for (const char c : text) {
        if (c >= 'A' && c <= 'Z') return true;
        if (c >= 'a' && c <= 'z') return false;
    }
    return true;
}

Verdict CheckCapital(const Unit& unit, std::string_view word) {
    if (BeginsWithCapital(unit.text)) return {};
    return Fault{unit.field, fmt::format("The first character of the {} name must be capitalized!", word)};
}

Verdict CheckParentheses(const Unit& unit, std::string_view word) {
    if (unit.text.front() == '(' && unit.text.back() == ')') return {};
    return Fault{unit.field, fmt::format("The {} name must be surrounded by parentheses!", word)};
}

Verdict CheckFirst(TaxonControls& tab) {
    const Unit unit = UnitIn(tab.cboName1, tab.txtName1);
    if (auto fault = CheckPresent(unit, "Scientific Name")) return fault;
    return tab.lblName1.Caption() == "Genus" ? CheckCapital(unit, "genus") : Verdict();
}

Verdict CheckSecond(TaxonControls& tab) {
    const std::string& word = tab.lblName2.Caption();
    if (word.empty()) return {};
    const Unit unit = UnitIn(tab.cboName2, tab.txtName2);
    if (auto fault = CheckPresent(unit, word)) return fault;
    if (word != "Subgenus") return {};
    if (auto fault = CheckParentheses(unit, "subgenus")) return fault;
    return CheckCapital(unit, "sugenus");
}

Verdict CheckThird(TaxonControls& tab) {
    if (!tab.txtName3.Visible()) return {};
    const std::string word = tab.cboName3Rank.Visible() ? tab.cboName3Rank.Text() : tab.lblName3.Caption();
    const Unit unit = UnitIn(tab.txtName3);
    if (auto fault = CheckPresent(unit, word)) return fault;
    return word == "Genus" ? CheckCapital(unit, word) : Verdict();
}

Verdict CheckFourth(TaxonControls& tab) {
    if (!tab.txtName4.Visible()) return {};
    return CheckPresent(UnitIn(tab.txtName4), tab.lblName4.Caption());
}

}  // namespace

bool CheckNameSyntax(TaxonControls& tab, Prompter& prompter) {
    const ChangeScope scope(tab.form);
    tab.BringUp();
    for (const auto check : {&CheckFirst, &CheckSecond, &CheckThird, &CheckFourth}) {
        if (const Verdict fault = check(tab)) {
            tab.form.TellChanges();  // so that the message appears over the fields that it describes
            prompter.Message(fault->message, "Input Error");
            fault->field->TakeFocus();
            return false;
        }
    }
    return true;
}

}  // namespace quillon::editor
