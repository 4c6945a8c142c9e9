// The page of the synonyms tab.
#pragma once

class QWidget;

namespace quillon::ui {

// Widgets with the names of the controls of editor::SynonymTab; the caller binds them.
QWidget* BuildSynonymPage(QWidget* parent);

}  // namespace quillon::ui
