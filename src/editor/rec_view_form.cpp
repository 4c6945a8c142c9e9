#include "editor/rec_view_form.h"

#include <array>

namespace quillon::editor {

namespace {

struct KeyedButton {
    std::string_view key;
    ButtonControl RecViewForm::*button;
};
constexpr std::array<KeyedButton, 15> kKeys = {{
    {"open", &RecViewForm::mnuFOpen},
    {"new", &RecViewForm::mnuFNew},
    {"save", &RecViewForm::mnuSave},
    {"delete", &RecViewForm::mnuEDelete},
    {"cut", &RecViewForm::mnuECut},
    {"copy", &RecViewForm::mnuCopy},
    {"paste", &RecViewForm::mnuPaste},
    {"undo", &RecViewForm::mnuEUndo},
    {"moveparent", &RecViewForm::mnuParent},
    {"movefirst", &RecViewForm::mnuFirst},
    {"moveprev", &RecViewForm::mnuPrev},
    {"movenext", &RecViewForm::mnuNext},
    {"movelast", &RecViewForm::mnuLast},
    {"addnew", &RecViewForm::mnuAdd},
    {"help", &RecViewForm::mnuHSearch},
}};

}  // namespace

RecViewForm::RecViewForm() {
    for (ButtonControl* later : {&mnuTaxonomy, &mnuFullRecord, &mnuFReports, &mnuMerge, &mnuSplit}) {
        later->SetEnabled(false);
    }
    hierarchy.SetValue(true);
    taxon.RankShown.Connect([this](std::string_view rank) { distribution.SetRank(rank); });
    taxon.UsageChosen.Connect([this](bool rejected) { synonyms.UsageChosen(rejected); });
    vernaculars.NamesChanged.Connect([this](const auto& names) {
        for (auto* documents : {&publications, &experts, &otherSources}) documents->OfferVernaculars(names);
    });
    vernaculars.NameDeleted.Connect([this](const std::string& deleted) {
        for (auto* documents : {&experts, &otherSources, &publications})
            documents->RemoveVernacularRows(deleted);
    });
    vernaculars.NameRenamed.Connect([this](int qb_vern_id, const std::string& renamed) {
        for (auto* documents : {&publications, &experts, &otherSources})
            documents->RenameVernacular(qb_vern_id, renamed);
    });
    vernaculars.NewNameRenamed.Connect([this](const std::string& old, const std::string& renamed) {
        for (auto* documents : {&publications, &experts, &otherSources})
            documents->RenameNewVernacular(old, renamed);
    });
    for (auto* documents : {&publications, &experts, &otherSources})
        documents->TakeNameFrom([this] { return CurrentTaxonName(); });
}

std::array<RecordTab*, 8> RecViewForm::Tabs() {
    return {&taxon,    &vernaculars,  &synonyms, &distribution,
            &comments, &publications, &experts,  &otherSources};
}

ButtonControl* RecViewForm::OfKey(std::string_view key) {
    for (const KeyedButton& keyed : kKeys)
        if (keyed.key == key) return &(this->*keyed.button);
    return nullptr;
}

int RecViewForm::TabOf(const Control& control) {
    const auto tabs = Tabs();
    std::size_t place = 0;
    for (const Control* each : form.Controls()) {
        if (place < tabs.size() && each == &tabs[place]->FirstControl()) ++place;
        if (each == &control) return static_cast<int>(place);
    }
    return 0;
}

}  // namespace quillon::editor
