#include "ui/choice_slice.h"

#include "ui/text_convert.h"

namespace quillon::ui {

namespace {

constexpr std::size_t kRowsBefore = 20;
constexpr std::size_t kRowsBehind = 60;
constexpr std::size_t kCompletions = 8;

QStringList TextsOf(const Choices& choices) {
    QStringList texts;
    texts.reserve(static_cast<qsizetype>(choices.size()));
    for (const Choice& choice : choices) texts << ToQt(choice.text);
    return texts;
}

}  // namespace

void ChoiceSlice::Load() {
    choices_ = control_.Source()->From(control_.Text(), kRowsBehind);
    if (choices_.empty()) choices_ = control_.Source()->From({}, kRowsBehind);
    if (!choices_.empty() && !control_.Text().empty()) {
        const Choices before = control_.Source()->Before(choices_.front(), kRowsBefore);
        choices_.insert(choices_.begin(), before.begin(), before.end());
    }
    model_.setStringList(TextsOf(choices_));
}

void ChoiceSlice::Clear() {
    choices_.clear();
    model_.setStringList({});
}

int ChoiceSlice::Current() const {
    const std::int64_t picked = control_.PickedData();
    for (std::size_t row = 0; row < choices_.size(); ++row) {
        const Choice& choice = choices_[row];
        if (choice.text == control_.Text() && (picked == 0 || picked == choice.itemData))
            return static_cast<int>(row);
    }
    return -1;
}

int ChoiceSlice::GrowDown() {
    if (choices_.empty()) return 0;
    const Choices more = control_.Source()->After(choices_.back(), kRowsBehind);
    const int first = model_.rowCount(), count = static_cast<int>(more.size());
    if (count == 0) return 0;
    choices_.insert(choices_.end(), more.begin(), more.end());
    model_.insertRows(first, count);
    for (int i = 0; i < count; ++i)
        model_.setData(model_.index(first + i), ToQt(more[static_cast<std::size_t>(i)].text));
    return count;
}

int ChoiceSlice::GrowUp() {
    if (choices_.empty()) return 0;
    const Choices more = control_.Source()->Before(choices_.front(), kRowsBehind);
    const int count = static_cast<int>(more.size());
    if (count == 0) return 0;
    choices_.insert(choices_.begin(), more.begin(), more.end());
    model_.insertRows(0, count);
    for (int i = 0; i < count; ++i)
        model_.setData(model_.index(i), ToQt(more[static_cast<std::size_t>(i)].text));
    return count;
}

QStringList ChoiceSlice::Completions(const QString& typed) const {
    if (typed.isEmpty()) return {};
    QStringList texts = TextsOf(control_.Source()->From(FromQt(typed), kCompletions));
    texts.removeIf([&](const QString& text) { return !text.startsWith(typed, Qt::CaseInsensitive); });
    return texts;
}

}  // namespace quillon::ui
