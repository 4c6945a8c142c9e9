// List views over a model of the control's choices, for lists that may be long.

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

}  // namespace quillon::ui
