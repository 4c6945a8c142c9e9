// The access keys of a window: the underlined letters that work with Alt. The captions of the models propose
// letters. Here each button and group gets a letter of its own, and a label of a field keeps its letter if
// that is free. A button without a free letter gets a digit, which its tool tip shows.
//
// The binder shows captions through ShowCaption; the base classes of windows call AssignAccessKeys once all
// their widgets are made.
#pragma once

#include <QString>

class QAction;
class QObject;
class QWidget;

namespace quillon::ui {

// Shows a caption of the model. Does nothing when the caption has not changed, so that its key stays; a new
// caption gets a new key if its window has keys.
void ShowCaption(QWidget& widget, const QString& caption);
void ShowCaption(QAction& action, const QString& caption);

// Assigns the keys. Letters of the menu bar and of widgets outside pages are reserved on every page; widgets
// on different pages may share a letter.
void AssignAccessKeys(QWidget& window);
// Marks a page of a window that shows one page at a time.
void MarkAsPage(QWidget& widget);

// The letter or digit that works with Alt, in lower case; null for none.
QChar AccessKeyOf(const QObject& object);

}  // namespace quillon::ui
