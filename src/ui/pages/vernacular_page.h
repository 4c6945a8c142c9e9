// The page of the vernaculars tab.
#pragma once

class QWidget;

namespace quillon::ui {

// Widgets with the names of the controls of editor::VernacularTab; the caller binds them.
QWidget* BuildVernacularPage(QWidget* parent);

}  // namespace quillon::ui
