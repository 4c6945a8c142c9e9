// What the tests of single forms share: a turn of the event loop that meets the modal window.
#pragma once

#include <gtest/gtest.h>

#include <QtWidgets>
#include <functional>

namespace quillon::ui {

// Runs once a modal window is there.
inline void WhenModal(const std::function<void(QWidget&)>& act) {
    QTimer::singleShot(0, [act] {
        QWidget* modal = QApplication::activeModalWidget();
        ASSERT_NE(modal, nullptr);
        act(*modal);
    });
}

}  // namespace quillon::ui
