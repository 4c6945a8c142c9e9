// The page of the distribution tab.
#pragma once

class QWidget;

namespace quillon::ui {

// Widgets with the names of the controls of editor::DistributionTab; the caller binds them.
QWidget* BuildDistributionPage(QWidget* parent);

}  // namespace quillon::ui
