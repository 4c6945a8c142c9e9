// The controls with choices: finding, adding and removing them, reading them on demand, and keeping the
// chosen one chosen.
#include <algorithm>

#include "core/controls.h"
#include "core/text.h"

namespace quillon {

int ChoiceControl::FindText(std::string_view text) const {
    const auto found = std::find_if(Choices().begin(), Choices().end(),
                                    [&](const Choice& choice) { return choice.text == text; });
    return found == choices_.end() ? -1 : static_cast<int>(found - choices_.begin());
}

int ChoiceControl::FindItemData(std::int64_t itemData) const {
    const auto found = std::find_if(Choices().begin(), Choices().end(),
                                    [&](const Choice& choice) { return choice.itemData == itemData; });
    return found == choices_.end() ? -1 : static_cast<int>(found - choices_.begin());
}

void ChoiceControl::Fetch() const {
    if (!fetch_) return;
    choices_ = std::exchange(fetch_, nullptr)();
    listIndex_ = ChosenOfFetched();
}

void ChoiceControl::AddItem(std::string_view text, std::int64_t itemData) {
    Fetch();
    source_ = nullptr;
    choices_.push_back({std::string(text), itemData});
    ++revision_;
    Touch();
}

void ChoiceControl::SetChoices(std::vector<Choice> choices) {
    ChangeScope scope(form_);
    fetch_ = nullptr;
    source_ = nullptr;
    if (Assign(choices_, std::move(choices))) ++revision_;
    if (Assign(listIndex_, -1)) ChoiceLost();
}

void ChoiceControl::SetTexts(const std::vector<std::string>& texts) {
    std::vector<Choice> choices;
    choices.reserve(texts.size());
    for (const std::string& text : texts) choices.push_back({text, 0});
    SetChoices(std::move(choices));
}

void ChoiceControl::SetChoicesLater(std::function<std::vector<Choice>()> fetch) {
    ChangeScope scope(form_);
    fetch_ = nullptr;
    source_ = nullptr;
    choices_.clear();
    if (Assign(listIndex_, -1)) ChoiceLost();
    fetch_ = std::move(fetch);
    ++revision_;
    Touch();
}

void ChoiceControl::SetSource(std::shared_ptr<ChoiceSource> source) {
    ChangeScope scope(form_);
    SetChoicesLater([source] { return source->From({}, ChoiceSource::kAll); });
    source_ = std::move(source);
}

void ChoiceControl::RemoveItem(int index) {
    if (!Has(index)) return;
    ChangeScope scope(form_);
    source_ = nullptr;
    choices_.erase(choices_.begin() + index);
    ++revision_;
    Touch();
    if (listIndex_ > index) {
        --listIndex_;
    } else if (listIndex_ == index) {
        listIndex_ = -1;
        ChoiceLost();
    }
}

void ChoiceControl::Clear() {
    SetChoices(std::vector<Choice>{});
}

ComboControl::ComboControl(Form& form, std::string name, Style style, std::size_t maxLength)
    : ChoiceControl(form, std::move(name)), style_(style), maxLength_(maxLength) {}

void ComboControl::ChoiceLost() {
    if (style_ == Style::ListOnly) Assign(text_, std::string());
}

void ComboControl::SetText(std::string_view text) {
    ChangeScope scope(form_);
    // A list-only combo needs the choices to accept a text; an editable one does not.
    const bool waits = style_ == Style::Editable && ChoicesPending();
    const int index = waits ? -1 : FindText(text);
    if (text != text_) picked_ = {};
    typed_ = false;
    Assign(listIndex_, index);
    Assign(text_, index < 0 && style_ == Style::ListOnly ? std::string() : std::string(text));
}

void ComboControl::SetListIndex(int index) {
    ChangeScope scope(form_);
    Assign(listIndex_, Has(index) ? index : -1);
    Assign(text_, Has(index) ? At(index).text : std::string());
    picked_ = Has(index) ? At(index) : Choice();
    typed_ = false;
}

void ComboControl::SetChoice(const Choice& choice) {
    SetText(choice.text);
    picked_ = choice;
}

// Of choices with the same text the typed one is none in particular.
bool ComboControl::IsPicked(const Choice& choice) const {
    if (choice.text != text_) return false;
    return PickedData() == choice.itemData || (PickedData() == 0 && !typed_);
}

bool ComboControl::UserChoose(int index) {
    return ByUser([&] {
        if (!Has(index) || (index == listIndex_ && IsPicked(At(index)))) return false;
        SetListIndex(index);
        return true;
    });
}

bool ComboControl::UserTake(const Choice& choice) {
    return ByUser([&] {
        if (IsPicked(choice)) return false;
        SetChoice(choice);
        return true;
    });
}

bool ComboControl::UserSetText(std::string_view text) {
    if (style_ == Style::ListOnly) return UserChoose(FindText(text));
    if (maxLength_ != 0) text = LeftCharacters(text, maxLength_);
    return ByUser([&] {
        if (text == text_) return false;
        SetText(text);
        typed_ = true;
        return true;
    });
}

ListControl::ListControl(Form& form, std::string name) : ChoiceControl(form, std::move(name)) {}

bool ListControl::UserSelect(int index) {
    return ByUser([&] { return Has(index) && Assign(listIndex_, index); });
}

bool ListControl::UserActivate(int index) {
    if (!AcceptsUser() || !Has(index)) return false;
    ChangeScope scope(form_);
    UserSelect(index);
    for (const auto& rule : activateRules_) rule();
    return true;
}

GridControl::GridControl(Form& form, std::string name, std::vector<Column> columns)
    : Control(form, std::move(name)), columns_(std::move(columns)) {}

void GridControl::SetHeading(std::size_t column, std::string_view heading) {
    Assign(columns_.at(column).heading, std::string(heading));
}

void GridControl::AddRow(Row row) {
    InsertRow(rows_.size(), std::move(row));
}

void GridControl::InsertRow(std::size_t index, Row row) {
    ChangeScope scope(form_);
    const int place = static_cast<int>(std::min(index, rows_.size()));
    row.resize(columns_.size());
    rows_.insert(rows_.begin() + place, std::move(row));
    if (selected_ >= place) ++selected_;
    Touch();
}

void GridControl::ReplaceRow(std::size_t index, Row row) {
    row.resize(columns_.size());
    Assign(rows_.at(index), std::move(row));
}

void GridControl::SetRows(std::vector<Row> rows) {
    ChangeScope scope(form_);
    for (Row& row : rows) row.resize(columns_.size());
    Assign(rows_, std::move(rows));
    Assign(selected_, -1);
}

void GridControl::SetCell(std::size_t row, std::size_t column, std::string_view text) {
    Assign(rows_.at(row).at(column), std::string(text));
}

void GridControl::RemoveRow(std::size_t row) {
    if (row >= rows_.size()) return;
    ChangeScope scope(form_);
    const int index = static_cast<int>(row);
    rows_.erase(rows_.begin() + index);
    if (selected_ == index) selected_ = -1;
    if (selected_ > index) --selected_;
    Touch();
}

bool GridControl::UserSelectRow(int row) {
    return ByUser([&] { return HasRow(row) && Assign(selected_, row); });
}

bool GridControl::UserActivateRow(int row) {
    if (!AcceptsUser() || !HasRow(row)) return false;
    ChangeScope scope(form_);
    UserSelectRow(row);
    for (const auto& rule : activateRules_) rule();
    return true;
}

}  // namespace quillon
