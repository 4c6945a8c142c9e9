#include "screens/camera.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QPixmap>
#include <QTimer>
#include <cstdio>
#include <utility>

namespace quillon::screens {

namespace {

constexpr int kMillisecondsToSettle = 40;

// Without asking the form, which might want an answer first.
void CloseWindow(QWidget& window) {
    if (auto* dialog = qobject_cast<QDialog*>(&window)) {
        dialog->done(QDialog::Rejected);
    } else {
        window.close();
    }
}

}  // namespace

Camera::Camera(QString folder, QString prefix) : folder_(std::move(folder)), prefix_(std::move(prefix)) {
    QDir().mkpath(folder_);
}

void Camera::Take(QWidget& window, const QString& name) {
    QCoreApplication::processEvents();
    const QString file = QString("%1/%2-%3.png").arg(folder_, prefix_, name);
    if (!window.grab().save(file, "PNG")) std::fprintf(stderr, "%s cannot be written\n", qPrintable(file));
}

int Camera::TakeModal(const QString& name, const std::function<void()>& show) {
    int taken = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] { AnswerModal(name, taken); });
    timer.start(kMillisecondsToSettle);
    show();
    return taken;
}

void Camera::AnswerModal(const QString& name, int& taken) {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr || !modal->isVisible()) return;
    if (auto* files = qobject_cast<QFileDialog*>(modal)) {
        files->findChild<QLineEdit*>("fileNameEdit")->setText(QDir::current().filePath("names"));
        QMetaObject::invokeMethod(files, "accept");
        return;
    }
    Take(*modal, taken == 0 ? name : QString("%1-%2").arg(name).arg(taken));
    ++taken;
    CloseWindow(*modal);
}

}  // namespace quillon::screens
