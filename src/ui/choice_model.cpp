#include "ui/choice_model.h"

#include "ui/text_convert.h"

namespace quillon::ui {

ChoiceModel::ChoiceModel(const ChoiceControl& control, QObject* parent)
    : QAbstractListModel(parent), control_(control), revision_(control.ChoicesRevision()) {
    FindLongest();
}

int ChoiceModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(control_.ListCount());
}

QVariant ChoiceModel::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole) return {};
    return ToQt(control_.Choices().at(static_cast<std::size_t>(index.row())).text);
}

void ChoiceModel::Update() {
    if (revision_ == control_.ChoicesRevision()) return;
    beginResetModel();
    revision_ = control_.ChoicesRevision();
    FindLongest();
    endResetModel();
}

void ChoiceModel::FindLongest() {
    const std::string* longest = nullptr;
    for (const ChoiceControl::Choice& choice : control_.Choices())
        if (longest == nullptr || choice.text.size() > longest->size()) longest = &choice.text;
    longest_ = longest == nullptr ? QString() : ToQt(*longest);
}

QSize LineDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const int margin = option.fontMetrics.averageCharWidth() * 2;
    const int width = option.fontMetrics.horizontalAdvance(model_.LongestLine()) + margin;
    return {width, QStyledItemDelegate::sizeHint(option, index).height()};
}

}  // namespace quillon::ui
