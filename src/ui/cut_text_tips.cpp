#include "ui/cut_text_tips.h"

#include <QHelpEvent>
#include <QStyle>
#include <QToolTip>

namespace quillon::ui {

CutTextTips::CutTextTips(QAbstractItemView& view) : QObject(&view), view_(view) {
    view.viewport()->installEventFilter(this);
}

bool CutTextTips::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QObject::eventFilter(watched, event);
    const auto* help = static_cast<QHelpEvent*>(event);
    QToolTip::showText(help->globalPos(), CutTextAt(help->pos()).toHtmlEscaped(), view_.viewport(),
                       view_.visualRect(view_.indexAt(help->pos())));
    return true;
}

// A cell can be narrower than its text, and the view narrower than the cell.
QString CutTextTips::CutTextAt(QPoint point) const {
    const QModelIndex index = view_.indexAt(point);
    const QString text = index.data().toString();
    const int margin = view_.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &view_) + 1;
    const int shown = (view_.visualRect(index) & view_.viewport()->rect()).width() - 2 * margin;
    return view_.fontMetrics().horizontalAdvance(text) > shown ? text : QString();
}

}  // namespace quillon::ui
