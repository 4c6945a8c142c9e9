#include "ui/splash_window.h"

#include <QtWidgets>

#include "ui/binder.h"
#include "ui/icons.h"
#include "ui/named.h"

namespace quillon::ui {

namespace {

constexpr int kPicture = 96;

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
    lines->addWidget(CenteredLine(frame, "lblTitle", 1.9, true));
    lines->addWidget(CenteredLine(frame, "lblVersion", 1.0, false));
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
