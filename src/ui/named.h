// Makes widgets named after their controls, for the binder.
#pragma once

#include <QFont>
#include <QLabel>
#include <QWidget>

namespace quillon::ui {

// Names a label whose text becomes the accessible name of the widget, as for the label's buddy.
inline constexpr const char* kCalledBy = "quillonCalledBy";

template <typename Widget>
Widget* Named(QWidget* parent, const char* name) {
    auto* widget = new Widget(parent);
    widget->setObjectName(name);
    return widget;
}

// A centred line of text; `scale` is relative to the default font size.
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
