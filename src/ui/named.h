// Widgets by the names of the controls that the binder connects them with.
#pragma once

#include <QFont>
#include <QLabel>
#include <QWidget>

namespace quillon::ui {

// A widget with this property is called by the label of that name, as the label's buddy is.
inline constexpr const char* kCalledBy = "quillonCalledBy";

template <typename Widget>
Widget* Named(QWidget* parent, const char* name) {
    auto* widget = new Widget(parent);
    widget->setObjectName(name);
    return widget;
}

// A line of a box that shows texts only; `scale` is that of its letters to the usual ones.
inline QLabel* CenteredLine(QWidget* parent, const char* name, double scale, bool bold) {
    auto* label = Named<QLabel>(parent, name);
    label->setAlignment(Qt::AlignCenter);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * scale);
    font.setBold(bold);
    label->setFont(font);
    return label;
}

}  // namespace quillon::ui
