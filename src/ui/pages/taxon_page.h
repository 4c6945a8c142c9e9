// The page of the tab Taxon: a taxon's name by its units, its authors, parent, usage and ratings.
#pragma once

class QWidget;

namespace quillon::ui {

QWidget* BuildTaxonPage(QWidget* parent);

}  // namespace quillon::ui
