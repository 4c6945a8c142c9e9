#include "ui/about_window.h"

#include <QtWidgets>

#include "ui/icons.h"

namespace quillon::ui {

namespace {

QLabel* Line(QWidget* parent, const char* name, double scale, bool bold) {
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setAlignment(Qt::AlignCenter);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * scale);
    font.setBold(bold);
    label->setFont(font);
    return label;
}

}  // namespace

AboutWindow::AboutWindow(editor::FrmAbout& form, QWidget* parent) : FormDialog(form.form, parent) {
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
    layout->addWidget(Line(this, "lblTitle", 1.6, true));
    layout->addWidget(Line(this, "lblVersion", 1.0, false));
    layout->addWidget(Line(this, "lblBuild", 0.9, false));
    layout->addSpacing(8);
    layout->addWidget(ok, 0, Qt::AlignHCenter);
    BindAll();
}

}  // namespace quillon::ui
