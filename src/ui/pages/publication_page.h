// The page of the tab for publications: widgets with the names of the controls of
// documentation::PublicationTab.
#pragma once

class QWidget;

namespace quillon::ui {

QWidget* BuildPublicationPage(QWidget* parent);

}  // namespace quillon::ui
