#include "ui/form_dialog.h"

#include <QtWidgets>

#include "ui/access_keys.h"
#include "ui/binder.h"
#include "ui/guard.h"
#include "ui/text_convert.h"

namespace quillon::ui {

void ActivateAgain(QWidget* window) {
    if (window == nullptr || !window->isVisible() || QApplication::activeWindow() != nullptr) return;
    window->activateWindow();
}

FormDialog::FormDialog(Form& form, QWidget* parent) : QDialog(parent), form_(form) {
    setObjectName(ToQt(form.Name()));
    form.OnClosed([guard = QPointer<QDialog>(this)] {
        if (guard) guard->accept();
    });
}

void FormDialog::reject() {
    Guard([this] { form_.UserClose(); });
}

void FormDialog::done(int result) {
    QDialog::done(result);
    ActivateAgain(parentWidget());
}

void FormDialog::BindAll() {
    Bind(form_, *this);
    AssignAccessKeys(*this);
}

}  // namespace quillon::ui
