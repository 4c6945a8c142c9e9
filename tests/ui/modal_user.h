// A user who answers modal windows one after the other, also where one opens above another. Each answer waits
// for its window; another window in its place fails the test and is closed.
#pragma once

#include <gtest/gtest.h>

#include <QtWidgets>
#include <deque>
#include <functional>
#include <utility>

namespace quillon::ui {

class ModalUser : public QObject {
public:
    ~ModalUser() override { EXPECT_EQ(answers_.size(), 0U) << "windows that never came"; }

    // `name` is the object name of the window; a message box or a file dialog is recognised by its class.
    void Answer(const QString& name, std::function<void(QWidget&)> act) {
        answers_.push_back({name, std::move(act)});
        if (answers_.size() == 1) Next();
    }
    // A message box with that text, closed with Return.
    void ExpectMessage(const QString& text) {
        Answer("QMessageBox", [text](QWidget& box) {
            EXPECT_EQ(dynamic_cast<QMessageBox&>(box).text().toStdString(), text.toStdString());
            Press(box, Qt::Key_Return);
        });
    }
    // A file dialog, answered with a path.
    void ChooseFile(const QString& path) {
        Answer("QFileDialog", [path](QWidget& dialog) {
            dynamic_cast<QFileDialog&>(dialog).selectFile(path);
            QMetaObject::invokeMethod(&dialog, "accept");
        });
    }
    static void Press(QWidget& widget, Qt::Key key) {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, Qt::NoModifier);
            QApplication::sendEvent(&widget, &event);
        }
    }

private:
    struct Expected {
        QString name;
        std::function<void(QWidget&)> act;
    };
    static constexpr int kPatience = 20000;  // turns of the event loop

    static bool Is(const QWidget& window, const QString& name) {
        return window.objectName() == name || name == window.metaObject()->className();
    }
    void Next() {
        QTimer::singleShot(0, this, [this] { Look(); });
    }
    void Look() {
        if (answers_.empty()) return;
        QWidget* modal = QApplication::activeModalWidget();
        if (modal == nullptr || !Is(*modal, answers_.front().name)) return WaitFor(modal);
        waited_ = 0;
        const Expected answer = std::move(answers_.front());
        answers_.pop_front();
        Next();
        answer.act(*modal);
    }
    void WaitFor(QWidget* other) {
        if (++waited_ < kPatience || other == nullptr) return Next();
        waited_ = 0;
        ADD_FAILURE() << "instead of " << answers_.front().name.toStdString() << ": "
                      << other->objectName().toStdString() << other->metaObject()->className() << " "
                      << other->windowTitle().toStdString();
        if (auto* dialog = qobject_cast<QDialog*>(other)) dialog->done(QDialog::Rejected);
        Next();
    }

    std::deque<Expected> answers_;
    int waited_ = 0;
};

}  // namespace quillon::ui
