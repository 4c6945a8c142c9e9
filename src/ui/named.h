// Widgets by the names of the controls that the binder connects them with.
#pragma once

#include <QWidget>

namespace quillon::ui {

template <typename Widget>
Widget* Named(QWidget* parent, const char* name) {
    auto* widget = new Widget(parent);
    widget->setObjectName(name);
    return widget;
}

}  // namespace quillon::ui
