// The access keys of a window: the underlined letters that Alt leads to. The captions of the models propose
// letters; here each button and group gets one that no other has, and each label with a field keeps one where
// letters are left. A button without a letter to underline gets a digit, which its tool tip names.
//
// The binder shows captions through ShowCaption; the base classes of windows call AssignAccessKeys once all
// their widgets are made.
#pragma once

#include <QString>

class QAction;
class QObject;
class QWidget;

namespace quillon::ui {

// Shows a caption of the model. Nothing changes while it is the caption that was shown last, so that the key
// given to it stays; another caption gets a key anew when its window has them.
void ShowCaption(QWidget& widget, const QString& caption);
void ShowCaption(QAction& action, const QString& caption);

// Gives the keys. The menu bar's letters, and those of widgets outside pages, are taken in every page;
// widgets of two pages may have the same.
void AssignAccessKeys(QWidget& window);
// Only one page of a window is shown at a time.
void MarkAsPage(QWidget& widget);

// The letter or digit that Alt leads to, in lower case; null for none.
QChar AccessKeyOf(const QObject& object);

}  // namespace quillon::ui
