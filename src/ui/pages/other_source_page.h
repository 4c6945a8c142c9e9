// The page of the tab for other sources: widgets with the names of the controls of
// documentation::OtherSourceTab.
#pragma once

class QWidget;

namespace quillon::ui {

QWidget* BuildOtherSourcePage(QWidget* parent);

}  // namespace quillon::ui
