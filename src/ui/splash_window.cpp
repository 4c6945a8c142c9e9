#include "ui/splash_window.h"

#include <QtWidgets>

#include "ui/binder.h"
#include "ui/icons.h"

namespace quillon::ui {

namespace {

constexpr int kPicture = 96;

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

SplashWindow::SplashWindow(startup::FrmSplash& form) : QWidget(nullptr, Qt::SplashScreen) {
    setObjectName("frmSplash");
    auto* frame = new QFrame(this);
    frame->setFrameShape(QFrame::StyledPanel);
    auto* picture = new QLabel(frame);
    picture->setPixmap(Icon("quillon").pixmap(kPicture, kPicture));
    picture->setAlignment(Qt::AlignCenter);
    auto* lines = new QVBoxLayout(frame);
    lines->setContentsMargins(56, 40, 56, 36);
    lines->setSpacing(10);
    lines->addWidget(picture);
    lines->addSpacing(8);
    lines->addWidget(Line(frame, "lblTitle", 1.9, true));
    lines->addWidget(Line(frame, "lblVersion", 1.0, false));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(frame);
    Bind(form.form, *this);
}

void SplashWindow::ShowNow() {
    adjustSize();
    move(screen()->availableGeometry().center() - rect().center());
    show();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    repaint();
}

}  // namespace quillon::ui
