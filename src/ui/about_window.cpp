#include "ui/about_window.h"

#include <QtWidgets>

#include "ui/icons.h"
#include "ui/named.h"

namespace quillon::ui {

AboutWindow::AboutWindow(startup::FrmAbout& form, QWidget* parent) : FormDialog(form.form, parent) {
    auto* picture = new QLabel(this);
    picture->setPixmap(Icon("quillon").pixmap(64, 64));
    picture->setAlignment(Qt::AlignCenter);
    auto* ok = new QPushButton(this);
    ok->setObjectName("cmdOK");
    ok->setDefault(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(32, 24, 32, 20);
    layout->setSpacing(8);
    layout->addWidget(picture);
    layout->addWidget(CenteredLine(this, "lblTitle", 1.6, true));
    layout->addWidget(CenteredLine(this, "lblVersion", 1.0, false));
    layout->addWidget(CenteredLine(this, "lblBuild", 0.9, false));
    layout->addSpacing(8);
    layout->addWidget(ok, 0, Qt::AlignHCenter);
    BindAll();
}

}  // namespace quillon::ui
