// frmSplash, which is shown until the main window is ready.
#pragma once

#include <QWidget>

#include "startup/start_up_forms.h"

namespace quillon::ui {

class SplashWindow : public QWidget {
    Q_OBJECT
public:
    // The form must outlive the window.
    explicit SplashWindow(startup::FrmSplash& form);
    // The window is on the screen when this returns, even without an event loop.
    void ShowNow();
};

}  // namespace quillon::ui
