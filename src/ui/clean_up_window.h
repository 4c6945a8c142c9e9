// The window of CleanUp, the author clean-up.
#pragma once

#include "curation/clean_up.h"
#include "ui/form_dialog.h"

namespace quillon::ui {

class CleanUpWindow : public FormDialog {
    Q_OBJECT
public:
    // The form must outlive the window.
    CleanUpWindow(curation::CleanUp& form, QWidget* parent);
};

}  // namespace quillon::ui
