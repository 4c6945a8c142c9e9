// List views over a model of the control's choices, for lists that may be long.

#include <memory>

#include "ui/binder_parts.h"
#include "ui/choice_model.h"
#include "ui/cut_text_tips.h"
#include "ui/guard.h"

namespace quillon::ui {

void BindListView(ListControl& control, const QWidget& window) {
    auto* list = Partner<QListView>(window, control);
    if (list == nullptr) return;
    new CutTextTips(*list);
    auto* model = new ChoiceModel(control, list);
    list->setModel(model);
    list->setItemDelegate(new LineDelegate(*model, list));
    list->setUniformItemSizes(true);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    Mirror(control, *list, [model](const ListControl& shownControl, QListView& shown) {
        ShowCommon(shownControl, shown);
        model->Update();
        const QModelIndex chosen = model->index(shownControl.ListIndex());
        if (shown.currentIndex() != chosen) shown.setCurrentIndex(chosen);
    });
    Connect(list->selectionModel(), &QItemSelectionModel::currentRowChanged, list,
            [&control](const QModelIndex& current) { control.UserSelect(current.row()); });
    Connect(list, &QListView::activated, list,
            [&control](const QModelIndex& index) { control.UserActivate(index.row()); });
}

namespace {

std::vector<int> RowsOf(const QModelIndexList& indexes) {
    std::vector<int> rows;
    for (const QModelIndex& index : indexes) rows.push_back(index.row());
    return rows;
}

void ShowSelection(const std::vector<int>& items, const ChoiceModel& model, QListView& list) {
    QItemSelection selection;
    for (const int item : items) selection.select(model.index(item), model.index(item));
    if (list.selectionModel()->selection() != selection)
        list.selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

}  // namespace

void BindMultiList(MultiListControl& control, const QWidget& window) {
    auto* list = Partner<QListView>(window, control);
    if (list == nullptr) return;
    auto* model = new ChoiceModel(control, list);
    list->setModel(model);
    list->setItemDelegate(new LineDelegate(*model, list));
    list->setUniformItemSizes(true);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    auto showing = std::make_shared<bool>(false);
    Mirror(control, *list, [model, showing](const MultiListControl& shownControl, QListView& shown) {
        *showing = true;
        ShowCommon(shownControl, shown);
        model->Update();
        ShowSelection(shownControl.SelectedItems(), *model, shown);
        *showing = false;
    });
    Connect(list->selectionModel(), &QItemSelectionModel::selectionChanged, list,
            [&control, list, showing](const QItemSelection&, const QItemSelection&) {
                if (!*showing) control.UserSelect(RowsOf(list->selectionModel()->selectedIndexes()));
            });
}

}  // namespace quillon::ui
