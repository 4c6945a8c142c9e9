// The page of the tab for experts: widgets with the names of the controls of documentation::ExpertTab.
#pragma once

class QWidget;

namespace quillon::ui {

QWidget* BuildExpertPage(QWidget* parent);

}  // namespace quillon::ui
