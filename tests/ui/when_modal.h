// What the tests of single forms share: a turn of the event loop that meets the modal window, and a clock
// that stands still.
#pragma once

#include <gtest/gtest.h>

#include <QtWidgets>
#include <functional>
#include <string>

#include "core/outside.h"

namespace quillon::ui {

// Runs once a modal window is there.
inline void WhenModal(const std::function<void(QWidget&)>& act) {
    QTimer::singleShot(0, [act] {
        QWidget* modal = QApplication::activeModalWidget();
        ASSERT_NE(modal, nullptr);
        act(*modal);
    });
}

class FixedClock : public Clock {
public:
    std::string Now() const override { return "2024-06-01 12:34:56"; }
};

}  // namespace quillon::ui
