// The pages of the tabs for publications, experts and other sources: one builder over three layouts.
#pragma once

class QWidget;

namespace quillon::ui {

// Widgets with the names of the controls of documentation::DocumentationTab under its three descriptions; the
// caller binds them.
QWidget* BuildPublicationPage(QWidget* parent);
QWidget* BuildExpertPage(QWidget* parent);
QWidget* BuildOtherSourcePage(QWidget* parent);

}  // namespace quillon::ui
