#include "script/control_text.h"

#include "core/multi_list.h"
#include "script/script_line.h"

namespace quillon::script {

namespace {

// Without the "&" of an access key; "&&" is one "&".
std::string PlainCaption(const Control& control) {
    std::string plain;
    const std::string& caption = control.Caption();
    for (std::size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] == '&' && i + 1 < caption.size()) ++i;
        plain += caption[i];
    }
    return plain;
}

std::string OnOrOff(bool on) {
    return on ? "on" : "off";
}

std::string SelectedTexts(const MultiListControl& list) {
    std::string texts;
    for (const int item : list.SelectedItems())
        texts += (texts.empty() ? "" : "; ") + list.Choices()[static_cast<std::size_t>(item)].text;
    return texts;
}

std::string ValueOf(const Control& control) {
    if (const auto* text = dynamic_cast<const TextControl*>(&control)) return text->Text();
    if (const auto* combo = dynamic_cast<const ComboControl*>(&control)) return combo->Text();
    if (const auto* check = dynamic_cast<const CheckControl*>(&control)) return OnOrOff(check->Value());
    if (const auto* option = dynamic_cast<const OptionControl*>(&control)) return OnOrOff(option->Value());
    if (const auto* list = dynamic_cast<const ListControl*>(&control)) return list->Text();
    if (const auto* several = dynamic_cast<const MultiListControl*>(&control)) return SelectedTexts(*several);
    if (const auto* gauge = dynamic_cast<const GaugeControl*>(&control))
        return std::to_string(gauge->Value());
    if (const auto* tabs = dynamic_cast<const TabStripControl*>(&control)) return tabs->SelectedKey();
    return PlainCaption(control);
}

std::string StateOf(const Control& control) {
    std::string state;
    if (!control.Enabled()) state += "\tdisabled";
    if (!control.Visible()) state += "\thidden";
    if (control.Locked()) state += "\tlocked";
    return state;
}

std::string CellsOf(const GridControl& grid, const GridControl::Row& row) {
    std::string cells;
    for (std::size_t column = 0; column < row.size(); ++column)
        if (!grid.Columns()[column].hidden) cells += "\t" + Escaped(row[column]);
    return cells;
}

}  // namespace

std::vector<std::string> LinesOf(const Control& control) {
    const auto* grid = dynamic_cast<const GridControl*>(&control);
    if (grid == nullptr) return {control.Name() + "\t" + Escaped(ValueOf(control)) + StateOf(control)};
    std::vector<std::string> lines;
    for (const GridControl::Row& row : grid->Rows())
        lines.push_back(grid->Name() + CellsOf(*grid, row) + StateOf(*grid));
    return lines;
}

}  // namespace quillon::script
