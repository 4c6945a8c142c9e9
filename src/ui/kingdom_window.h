// FrmKingdom, which asks for a kingdom when the preferences have none.
#pragma once

#include "startup/start_up_forms.h"
#include "ui/form_dialog.h"

namespace quillon::ui {

class KingdomWindow : public FormDialog {
    Q_OBJECT
public:
    KingdomWindow(startup::FrmKingdom& form, QWidget* parent);
};

}  // namespace quillon::ui
