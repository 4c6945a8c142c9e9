#include "ui/elided_label.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace quillon::ui {

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, width());
    style()->drawItemText(&painter, rect(), Qt::AlignVCenter | Qt::AlignLeft, palette(), isEnabled(), shown,
                          foregroundRole());
}

bool ElidedLabel::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QLabel::event(event);
    if (fontMetrics().horizontalAdvance(text()) > width())
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text(), this);
    return true;
}

}  // namespace quillon::ui
