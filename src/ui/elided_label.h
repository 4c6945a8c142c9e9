// A label for paths. A text that does not fit is shortened in the middle and shown in full in the tool tip;
// the window does not grow with it.
#pragma once

#include <QLabel>

namespace quillon::ui {

class ElidedLabel : public QLabel {
    Q_OBJECT
public:
    explicit ElidedLabel(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
};

}  // namespace quillon::ui
