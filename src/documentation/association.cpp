#include "documentation/association.h"

namespace quillon::documentation {

Association::Association(Form& form, const DocumentDescription& description)
    : words(form, std::string(description.associationList), ComboControl::Style::ListOnly),
      picker(form, std::string(description.vernacularPicker)),
      label(form, std::string(description.vernacularLabel), description.vernacularCaption) {
    for (const std::string_view word : {kScientificName, kVernacular, kBoth}) words.AddItem(word);
    words.OnEdit([this] { ShowPicker(); });
    Show(kScientificName, {});
}

void Association::Show(std::string_view word, std::string_view vernacular) {
    words.SetText(word);
    picker.SetText(word == kScientificName ? std::string_view() : vernacular);
    ShowPicker();
}

void Association::Offer(const std::vector<ChoiceControl::Choice>& vernaculars) {
    const std::string text = picker.Text();
    former_ = picker.Choices();
    picker.SetChoices(vernaculars);
    picker.SetText(text);
}

int Association::IdOf(std::string_view vernacular) const {
    return static_cast<int>(picker.ItemData(picker.FindText(vernacular)));
}

int Association::KnownId(std::string_view vernacular) const {
    if (picker.FindText(vernacular) >= 0) return IdOf(vernacular);
    for (const auto& former : former_)
        if (former.text == vernacular) return static_cast<int>(former.itemData);
    return 0;
}

std::string Association::FormerName(int qb_vern_id) const {
    for (const auto& former : former_)
        if (qb_vern_id != 0 && former.itemData == qb_vern_id) return former.text;
    return {};
}

void Association::ShowPicker() {
    const bool shown = words.Text() != kScientificName;
    picker.SetVisible(shown);
    label.SetVisible(shown);
}

}  // namespace quillon::documentation
