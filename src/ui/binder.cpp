#include "ui/binder.h"

#include "ui/access_keys.h"
#include "ui/binder_parts.h"
#include "ui/cut_text_tips.h"
#include "ui/guard.h"

namespace quillon::ui {

namespace {

void BindButton(ButtonControl& control, const QWidget& window) {
    if (auto* action = Partner<QAction>(window, control)) {
        Mirror(control, *action, [](const ButtonControl& model, QAction& shown) {
            ShowCaption(shown, ToQt(model.Caption()));
            shown.setEnabled(model.Enabled());
            shown.setVisible(model.Visible());
        });
        Connect(action, &QAction::triggered, action, [&control] { control.UserClick(); });
    } else if (auto* button = Partner<QAbstractButton>(window, control)) {
        Mirror(control, *button, [](const ButtonControl& model, QAbstractButton& shown) {
            ShowCaption(shown, ToQt(model.Caption()));
            ShowCommon(model, shown);
        });
        Connect(button, &QAbstractButton::clicked, button, [&control] { control.UserClick(); });
    }
}

// The toolkit keeps one radio button of a group checked; the model allows none.
void ShowChecked(QAbstractButton& shown, bool checked) {
    const bool exclusive = shown.autoExclusive();
    shown.setAutoExclusive(false);
    shown.setChecked(checked);
    shown.setAutoExclusive(exclusive);
}

// Binds an option or a check, which are both on or off. `take` passes the user's choice to the model.
template <typename Model, typename Take>
void BindToggle(Model& control, const QWidget& window, Take take) {
    if (auto* action = Partner<QAction>(window, control)) {
        Mirror(control, *action, [](const Model& model, QAction& shown) {
            ShowCaption(shown, ToQt(model.Caption()));
            shown.setEnabled(model.Enabled());
            shown.setChecked(model.Value());
        });
        Connect(action, &QAction::triggered, action, [&control, action, take](bool checked) {
            take(control, checked);
            action->setChecked(control.Value());
        });
    } else if (auto* button = Partner<QAbstractButton>(window, control)) {
        Mirror(control, *button, [](const Model& model, QAbstractButton& shown) {
            ShowCaption(shown, ToQt(model.Caption()));
            ShowCommon(model, shown);
            ShowChecked(shown, model.Value());
        });
        Connect(button, &QAbstractButton::clicked, button, [&control, button, take](bool checked) {
            take(control, checked);
            button->setChecked(control.Value());
        });
    }
}

// Gives a field the name in its label, and also a field that takes its place.
void CallBuddy(const QLabel& label) {
    const QString name = label.text().remove('&');
    if (label.buddy() != nullptr && !name.isEmpty()) SetAccessibleName(*label.buddy(), name);
    for (QWidget* field : label.parentWidget()->findChildren<QWidget*>())
        if (!name.isEmpty() && field->property(kCalledBy).toString() == label.objectName())
            SetAccessibleName(*field, name);
}

void BindLabel(LabelControl& control, const QWidget& window) {
    auto* widget = Partner<QWidget>(window, control);
    if (widget == nullptr) return;
    Mirror(control, *widget, [](const LabelControl& model, QWidget& shown) {
        shown.setEnabled(model.Enabled());
        if (auto* label = qobject_cast<QLabel*>(&shown)) {
            ShowCaption(*label, ToQt(model.Caption()));
            CallBuddy(*label);
            label->setVisible(model.Visible());
        } else if (auto* box = qobject_cast<QGroupBox*>(&shown)) {
            ShowCaption(*box, ToQt(model.Caption()));
        }
    });
}

// Moves the cursor of a line edit to the beginning when it loses the focus.
class ShowBeginning : public QObject {
public:
    explicit ShowBeginning(QLineEdit* line) : QObject(line), line_(*line) { line->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        if (LeavesField(*event)) line_.setCursorPosition(0);
        return false;
    }

private:
    QLineEdit& line_;
};

void BindText(TextControl& control, const QWidget& window) {
    if (auto* edit = Partner<QLineEdit>(window, control)) {
        Mirror(control, *edit, [](const TextControl& model, QLineEdit& shown) {
            ShowCommon(model, shown);
            shown.setReadOnly(model.Locked());
            if (shown.text() == ToQt(model.Text())) return;
            shown.setText(ToQt(model.Text()));
            if (!shown.hasFocus()) shown.setCursorPosition(0);  // show the beginning of a long text
        });
        new ShowBeginning(edit);
        Connect(edit, &QLineEdit::textEdited, edit, [&control, edit](const QString& text) {
            control.UserSetText(FromQt(text));
            if (edit->text() != ToQt(control.Text())) edit->setText(ToQt(control.Text()));
        });
    } else if (auto* box = Partner<QPlainTextEdit>(window, control)) {
        Mirror(control, *box, [](const TextControl& model, QPlainTextEdit& shown) {
            ShowCommon(model, shown);
            shown.setReadOnly(model.Locked());
            if (shown.toPlainText() != ToQt(model.Text())) shown.setPlainText(ToQt(model.Text()));
        });
        Connect(box, &QPlainTextEdit::textChanged, box,
                [&control, box] { control.UserSetText(FromQt(box->toPlainText())); });
    }
}

void BindGauge(GaugeControl& control, const QWidget& window) {
    auto* bar = Partner<QProgressBar>(window, control);
    if (bar == nullptr) return;
    Mirror(control, *bar, [](const GaugeControl& model, QProgressBar& shown) {
        ShowCommon(model, shown);
        shown.setRange(model.Min(), model.Max());
        shown.setValue(model.Value());
    });
}

void BindList(ListControl& control, const QWidget& window) {
    auto* list = Partner<QListWidget>(window, control);
    if (list == nullptr) return BindListView(control, window);
    new CutTextTips(*list);
    Mirror(control, *list, [](const ListControl& model, QListWidget& shown) {
        ShowCommon(model, shown);
        shown.clear();
        for (const auto& choice : model.Choices()) shown.addItem(ToQt(choice.text));
        shown.setCurrentRow(model.ListIndex());
    });
    Connect(list, &QListWidget::currentRowChanged, list, [&control](int row) { control.UserSelect(row); });
    Connect(list, &QListWidget::itemActivated, list,
            [&control, list](QListWidgetItem* item) { control.UserActivate(list->row(item)); });
}

void BindTabs(TabStripControl& control, const QWidget& window) {
    auto* tabs = Partner<QTabBar>(window, control);
    if (tabs == nullptr) return;
    const QSignalBlocker quiet(tabs);
    while (tabs->count() > 0) tabs->removeTab(0);
    for (const auto& tab : control.Tabs()) tabs->addTab(ToQt(tab.caption));
    tabs->updateGeometry();  // a bar that is not shown yet does not update its size hint
    Mirror(control, *tabs, [](const TabStripControl& model, QTabBar& shown) {
        ShowCommon(model, shown);
        shown.setCurrentIndex(model.SelectedIndex() - 1);
    });
    Connect(tabs, &QTabBar::currentChanged, tabs, [&control](int index) { control.UserSelect(index + 1); });
}

void BindOne(Control& control, const QWidget& window) {
    if (auto* button = dynamic_cast<ButtonControl*>(&control)) return BindButton(*button, window);
    if (auto* option = dynamic_cast<OptionControl*>(&control)) {
        return BindToggle(*option, window, [](OptionControl& model, bool) { model.UserChoose(); });
    }
    if (auto* check = dynamic_cast<CheckControl*>(&control)) {
        return BindToggle(*check, window, [](CheckControl& model, bool on) { model.UserSetValue(on); });
    }
    if (auto* label = dynamic_cast<LabelControl*>(&control)) return BindLabel(*label, window);
    if (auto* text = dynamic_cast<TextControl*>(&control)) return BindText(*text, window);
    if (auto* combo = dynamic_cast<ComboControl*>(&control)) return BindCombo(*combo, window);
    if (auto* gauge = dynamic_cast<GaugeControl*>(&control)) return BindGauge(*gauge, window);
    if (auto* list = dynamic_cast<MultiListControl*>(&control)) return BindMultiList(*list, window);
    if (auto* list = dynamic_cast<ListControl*>(&control)) return BindList(*list, window);
    if (auto* grid = dynamic_cast<GridControl*>(&control)) return BindGrid(*grid, window);
    if (auto* tabs = dynamic_cast<TabStripControl*>(&control)) return BindTabs(*tabs, window);
}

// Passes on that the user has moved the focus into a field or out of it. Rules may show a message, so
// entering waits until the toolkit has finished with the focus.
class FocusWatch : public QObject {
public:
    FocusWatch(Control& control, QWidget* widget) : QObject(widget), control_(control) {
        widget->installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::FocusIn && MovesFocus(*event))
            Later(this, [this] { control_.UserEnter(); });
        // A combo box passes on itself that it has been left.
        const bool isCombo = dynamic_cast<ComboControl*>(&control_) != nullptr;
        if (!isCombo && LeavesField(*event)) Guard([this] { control_.UserLeave(); });
        return false;
    }

private:
    Control& control_;
};

bool TakesFocus(const QWidget& widget) {
    return qobject_cast<const QComboBox*>(&widget) || qobject_cast<const QLineEdit*>(&widget) ||
           qobject_cast<const QAbstractButton*>(&widget) || qobject_cast<const QPlainTextEdit*>(&widget);
}

// A field on a hidden page cannot take the focus: the form brings up its tab first.
void BindFocus(Control& control, const QWidget& window) {
    auto* widget = Partner<QWidget>(window, control);
    if (widget == nullptr) return;
    if (TakesFocus(*widget)) new FocusWatch(control, widget);
    control.OnTakeFocus([guard = QPointer<QWidget>(widget)] {
        if (guard) guard->setFocus(Qt::OtherFocusReason);
    });
}

bool HasPartner(const Control& control, const QWidget& window) {
    const auto is = [&]<typename Model>(Model*) { return dynamic_cast<const Model*>(&control) != nullptr; };
    const auto action = [&] { return Partner<QAction>(window, control) != nullptr; };
    const auto button = [&] { return Partner<QAbstractButton>(window, control) != nullptr; };
    if (is(static_cast<ButtonControl*>(nullptr)) || is(static_cast<OptionControl*>(nullptr)) ||
        is(static_cast<CheckControl*>(nullptr))) {
        return action() || button();
    }
    if (is(static_cast<TextControl*>(nullptr))) {
        return Partner<QLineEdit>(window, control) || Partner<QPlainTextEdit>(window, control);
    }
    if (is(static_cast<ComboControl*>(nullptr))) return Partner<QComboBox>(window, control) != nullptr;
    if (is(static_cast<GaugeControl*>(nullptr))) return Partner<QProgressBar>(window, control) != nullptr;
    if (is(static_cast<MultiListControl*>(nullptr))) return Partner<QListView>(window, control) != nullptr;
    if (is(static_cast<ListControl*>(nullptr))) return Partner<QListView>(window, control) != nullptr;
    if (is(static_cast<GridControl*>(nullptr))) return Partner<QTableWidget>(window, control) != nullptr;
    if (is(static_cast<TabStripControl*>(nullptr))) return Partner<QTabBar>(window, control) != nullptr;
    return Partner<QWidget>(window, control) != nullptr;
}

bool TakesInput(const QObject* object) {
    if (const auto* action = qobject_cast<const QAction*>(object)) return !action->isSeparator();
    return qobject_cast<const QAbstractButton*>(object) || qobject_cast<const QLineEdit*>(object) ||
           qobject_cast<const QComboBox*>(object) || qobject_cast<const QPlainTextEdit*>(object) ||
           qobject_cast<const QProgressBar*>(object) || qobject_cast<const QTabBar*>(object);
}

}  // namespace

void Bind(Form& form, QWidget& window) {
    window.setWindowTitle(ToQt(form.Title()));
    form.OnTitle([&form, guard = QPointer<QWidget>(&window)] {
        if (guard) Guard([&] { guard->setWindowTitle(ToQt(form.Title())); });
    });
    for (Control* control : form.Controls()) {
        BindOne(*control, window);
        BindFocus(*control, window);
    }
}

QStringList NamesWithoutPartner(const Form& form, const QWidget& window) {
    QStringList names;
    for (const Control* control : form.Controls()) {
        if (!HasPartner(*control, window)) names << ToQt(control->Name());
    }
    for (const QObject* object : window.findChildren<QObject*>()) {
        const QString name = object->objectName();
        if (name.isEmpty() || name.startsWith("qt_") || !TakesInput(object)) continue;
        if (TakesInput(object->parent())) continue;  // a part of a widget, named by the toolkit
        if (form.Find(FromQt(name)) == nullptr) names << name;
    }
    return names;
}

}  // namespace quillon::ui
