// The choices of a list as an item model: a view reads only the lines that it shows, so that a log of
// hundreds of thousands of lines opens at once. The binder sets it on list views, where all lines have the
// size of the longest.
#pragma once

#include <QAbstractListModel>
#include <QStyledItemDelegate>

#include "core/controls.h"

namespace quillon::ui {

class ChoiceModel : public QAbstractListModel {
    Q_OBJECT
public:
    // The control must outlive the model.
    explicit ChoiceModel(const ChoiceControl& control, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    // Resets the view when the choices have changed.
    void Update();
    // The line with the most bytes; empty without lines.
    const QString& LongestLine() const { return longest_; }

private:
    void FindLongest();

    const ChoiceControl& control_;
    std::uint64_t revision_;
    QString longest_;
};

// Draws the lines of a ChoiceModel.
class LineDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    LineDelegate(const ChoiceModel& model, QObject* parent) : QStyledItemDelegate(parent), model_(model) {}
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    const ChoiceModel& model_;
};

}  // namespace quillon::ui
