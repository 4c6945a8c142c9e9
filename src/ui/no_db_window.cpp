#include "ui/no_db_window.h"

#include <QtWidgets>

#include "ui/icons.h"

namespace quillon::ui {

namespace {

constexpr int kTextWidth = 64;  // average characters
constexpr int kPicture = 48;

// A wrapped text of any length that may contain paths.
QLabel* Text(QWidget* parent, const char* name) {
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setFixedWidth(label->fontMetrics().averageCharWidth() * kTextWidth);
    return label;
}

QPushButton* Button(QWidget* parent, const char* name) {
    auto* button = new QPushButton(parent);
    button->setObjectName(name);
    return button;
}

}  // namespace

NoDbWindow::NoDbWindow(startup::FrmNoDB& form, QWidget* parent) : FormDialog(form.form, parent) {
    setWindowIcon(Icon("quillon"));
    auto* picture = new QLabel(this);
    picture->setPixmap(Icon("quillon").pixmap(kPicture, kPicture));
    auto* texts = new QVBoxLayout;
    texts->setSpacing(10);
    texts->addWidget(Text(this, "Instructions"));
    texts->addWidget(Text(this, "lblReason"));
    texts->addStretch();
    auto* top = new QHBoxLayout;
    top->setSpacing(16);
    top->addWidget(picture, 0, Qt::AlignTop);
    top->addLayout(texts);
    auto* open = Button(this, "cmdOpen");
    open->setDefault(true);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(open);
    buttons->addWidget(Button(this, "cmdNew"));
    buttons->addSpacing(12);
    buttons->addWidget(Button(this, "cmdExit"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 20, 20, 16);
    layout->setSpacing(18);
    layout->addLayout(top);
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    BindAll();
    open->setFocus();
}

}  // namespace quillon::ui
