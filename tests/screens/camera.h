// Takes pictures of windows as they stand, also of the dialogs that wait for a user.
#pragma once

#include <QString>
#include <functional>

class QWidget;

namespace quillon::screens {

class Camera {
public:
    // Pictures are PNG files in `folder`, their names beginning with `prefix`.
    Camera(QString folder, QString prefix);

    void Take(QWidget& window, const QString& name);
    // Runs `show`, which waits for a modal window to close: takes the window's picture, and closes it.
    // Another box that comes up on the way is taken too, under the name with a number.
    int TakeModal(const QString& name, const std::function<void()>& show);

private:
    void AnswerModal(const QString& name, int& taken);

    QString folder_, prefix_;
};

}  // namespace quillon::screens
