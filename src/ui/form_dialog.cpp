#include "ui/form_dialog.h"

#include <QtWidgets>

#include "ui/binder.h"
#include "ui/guard.h"
#include "ui/text_convert.h"

namespace quillon::ui {

FormDialog::FormDialog(Form& form, QWidget* parent) : QDialog(parent), form_(form) {
    setObjectName(ToQt(form.Name()));
    form.OnClosed([guard = QPointer<QDialog>(this)] {
        if (guard) guard->accept();
    });
}

void FormDialog::reject() {
    Guard([this] { form_.UserClose(); });
}

void FormDialog::BindAll() {
    Bind(form_, *this);
}

}  // namespace quillon::ui
