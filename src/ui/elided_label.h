// A label for paths: what does not fit is left out in its middle and stands in the tool tip, and the window
// does not grow with it.
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
