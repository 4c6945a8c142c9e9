// A dialog for a form. A request to close it goes to the form, which closes the dialog.
#pragma once

#include <QDialog>

#include "core/controls.h"

namespace quillon::ui {

// Makes a window active again after a box above it has closed, unless another window of the program is
// active. Not every window manager does so by itself.
void ActivateAgain(QWidget* window);

class FormDialog : public QDialog {
    Q_OBJECT
public:
    // The form must outlive the dialog. The dialog's objectName is the form's name.
    FormDialog(Form& form, QWidget* parent);
    Form& Model() { return form_; }
    // Called for Escape and the close button of the window.
    void reject() override;
    void done(int result) override;

protected:
    // Connects the widgets with the controls. Call it once all widgets exist.
    void BindAll();

private:
    Form& form_;
};

}  // namespace quillon::ui
