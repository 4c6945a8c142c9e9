#include "ui/alpha_view.h"

#include <QInputMethodEvent>
#include <QKeyEvent>

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

void AlphaView::TypeAll(const QString& text) {
    for (const char32_t character : text.toUcs4()) emit KeyTyped(QString::fromUcs4(&character, 1));
}

}  // namespace quillon::ui
