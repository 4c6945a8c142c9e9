// FrmAbout, the box of Help, About.
#pragma once

#include "startup/about_form.h"
#include "ui/form_dialog.h"

namespace quillon::ui {

class AboutWindow : public FormDialog {
    Q_OBJECT
public:
    AboutWindow(startup::FrmAbout& form, QWidget* parent);
};

}  // namespace quillon::ui
