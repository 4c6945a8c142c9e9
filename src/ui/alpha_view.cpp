#include "ui/alpha_view.h"

#include <QHelpEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QToolTip>

namespace quillon::ui {

AlphaView::AlphaView(QWidget* parent) : QListView(parent) {
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollMode(ScrollPerPixel);
    setAttribute(Qt::WA_InputMethodEnabled);
}

void AlphaView::keyPressEvent(QKeyEvent* event) {
    const bool isCommand = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        emit KeyTyped("\r");
    } else if (event->key() == Qt::Key_Backspace) {
        emit KeyTyped("\b");
    } else if (!isCommand && !event->text().isEmpty() && event->text().at(0).isPrint()) {
        TypeAll(event->text());
    } else {
        QListView::keyPressEvent(event);
    }
}

void AlphaView::inputMethodEvent(QInputMethodEvent* event) {
    TypeAll(event->commitString());
    event->accept();
}

bool AlphaView::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QListView::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const QModelIndex index = indexAt(help->pos());
    const QString text = index.isValid() && IsCut(index) ? index.data().toString() : QString();
    QToolTip::showText(help->globalPos(), text.toHtmlEscaped(), viewport(), visualRect(index));
    return true;
}

// The row can be narrower than the line, and the view narrower than the row.
bool AlphaView::IsCut(const QModelIndex& index) const {
    const QRect row = visualRect(index) & viewport()->rect();
    return sizeHintForIndex(index).width() > row.width();
}

void AlphaView::TypeAll(const QString& text) {
    for (const char32_t character : text.toUcs4()) emit KeyTyped(QString::fromUcs4(&character, 1));
}

}  // namespace quillon::ui
