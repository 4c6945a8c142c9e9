// FrmPreferences, the dialog of File, Preferences, with its menus. The commands of its Edit menu work on the
// field that has, or last had, the focus.
#pragma once

#include <QPointer>

#include "startup/preferences_form.h"
#include "ui/form_dialog.h"

class QLineEdit;
class QMenuBar;

namespace quillon::ui {

class PreferencesWindow : public FormDialog {
    Q_OBJECT
public:
    PreferencesWindow(startup::FrmPreferences& form, QWidget* parent);

private:
    QMenuBar* BuildMenus();
    void BuildEditMenu(QMenuBar& bar);

    QPointer<QLineEdit> field_;
};

}  // namespace quillon::ui
