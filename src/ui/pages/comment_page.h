// The page of the comments tab.
#pragma once

class QWidget;

namespace quillon::ui {

// Widgets with the names of the controls of editor::CommentTab; the caller binds them.
QWidget* BuildCommentPage(QWidget* parent);

}  // namespace quillon::ui
