// Shared parts of the binder. Only the files of the binder include this.
#pragma once

#include <QtWidgets>

#include "core/controls.h"
#include "core/multi_list.h"
#include "ui/guard.h"
#include "ui/named.h"
#include "ui/text_convert.h"

namespace quillon::ui {

// The widget or action with the control's name, or nullptr.
template <typename Target>
Target* Partner(const QWidget& window, const Control& control) {
    return window.findChild<Target*>(ToQt(control.Name()));
}

// Takes a widget out of the tab order, or puts it back.
inline void ShowTabStop(const Control& control, QWidget& widget) {
    constexpr const char* kPolicy = "quillonFocusPolicy";
    const QVariant kept = widget.property(kPolicy);
    if (control.TabStop()) {
        if (kept.isValid()) widget.setFocusPolicy(static_cast<Qt::FocusPolicy>(kept.toInt()));
        return;
    }
    if (!kept.isValid()) widget.setProperty(kPolicy, static_cast<int>(widget.focusPolicy()));
    widget.setFocusPolicy(Qt::ClickFocus);
}

inline void ShowCommon(const Control& control, QWidget& widget) {
    widget.setEnabled(control.Enabled());
    widget.setVisible(control.Visible());
    ShowTabStop(control, widget);
}

// Shows the control now and after each change, as long as the widget lives. A widget's signals are blocked
// meanwhile, so that an update by the program is not mistaken for user input. An action's signals are not
// blocked: its menus need the change, and only the user causes `triggered`.
template <typename Model, typename Target, typename Show>
void Mirror(Model& control, Target& target, Show show) {
    show(control, target);
    control.Observe([&control, guard = QPointer<Target>(&target), show] {
        if (!guard) return;
        const bool silent = guard->blockSignals(guard->isWidgetType());
        Guard([&] { show(control, *guard); });
        if (guard) guard->blockSignals(silent);
    });
}

// Sets the name for assistive technology, for a combo box also on its line edit, which has the focus.
inline void SetAccessibleName(QWidget& widget, const QString& name) {
    widget.setAccessibleName(name);
    const auto* combo = qobject_cast<QComboBox*>(&widget);
    if (combo != nullptr && combo->lineEdit() != nullptr) combo->lineEdit()->setAccessibleName(name);
}

// True when the focus moves between fields. A popup or another program does not count.
inline bool MovesFocus(const QEvent& event) {
    const Qt::FocusReason reason = static_cast<const QFocusEvent&>(event).reason();
    return reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason;
}

inline bool LeavesField(const QEvent& event) {
    return event.type() == QEvent::FocusOut && MovesFocus(event);
}

// Controls whose binding takes more than a few lines.
void BindCombo(ComboControl& control, const QWidget& window);
void BindGrid(GridControl& control, const QWidget& window);
void BindListView(ListControl& control, const QWidget& window);
void BindMultiList(MultiListControl& control, const QWidget& window);

}  // namespace quillon::ui
