// frmChgTrk, the dialog for one change track of a taxon. No command shows it yet.
#pragma once

#include <vector>

#include "curation/change_track_form.h"
#include "ui/form_dialog.h"

class QTabBar;

namespace quillon::ui {

class ChangeTrackWindow : public FormDialog {
    Q_OBJECT
public:
    ChangeTrackWindow(curation::FrmChgTrk& form, QWidget* parent);

private:
    void AddPage(QLayout& layout, QWidget* page);
    // Shows the page of the selected tab.
    void ShowPage();

    curation::FrmChgTrk& track_;
    std::vector<QWidget*> pages_;
};

}  // namespace quillon::ui
