// The main window over a DataSet of a few whales, with scripted answers.
#pragma once

#include <gtest/gtest.h>

#include <QtTest>
#include <QtWidgets>

#include "testkit/testkit.h"
#include "ui/binder.h"
#include "ui/desktop_program.h"
#include "ui/rec_view_commands.h"

namespace quillon::ui {

class MainWindow : public testing::Test {
protected:
    MainWindow() {
        program.State().gPrefRank = "Kingdom";
        program.State().gKingdomName = "Animalia";
        window.resize(1400, 860);  // the screen of the tests is small
        window.show();
    }
    void Execute(std::string_view sql) { program.State().gDatabase->Execute(sql); }
    // Animalia > Orca (Gray, 1846) > alpha, [Gladiator].
    void MakeWhales(const char* file = "whales.mdb") {
        prompter.filesToSave.push_back(dir.File(file));
        action("mnuFNew")->trigger();
        Execute(
            "INSERT INTO qb_taxon_authors_lookup (qb_taxon_author_id, taxon_author) VALUES (1, 'Gray, "
            "1846')");
        AddTaxon(2, "1", 180, "'Orca', Null", "valid", "1");
        AddTaxon(3, "2", 220, "'Orca', 'alpha'", "valid", "Null");
        AddTaxon(4, "Null", 180, "'Gladiator', Null", "invalid", "Null");
        Execute("INSERT INTO qb_synonym_links (qb_id, qb_id_accepted) VALUES (4, 2)");
        program.RecView().ShowDataSet();
        WaitForRows(list->model(), 4);
    }
    void AddTaxon(int id, const char* parent, int rank, const char* names, const char* usage,
                  const char* author) {
        Execute(
            "INSERT INTO qb_taxonomic_units (qb_id, parent_qb_id, rank_id, unit_name1, unit_name2, usage, "
            "qb_taxon_author_id, kingdom_id) VALUES (" +
            std::to_string(id) + ", " + parent + ", " + std::to_string(rank) + ", " + names + ", '" + usage +
            "', " + author + ", 5)");
    }
    void WaitForRows(const QAbstractItemModel* model, int rows) {
        EXPECT_TRUE(QTest::qWaitFor([=] { return model->rowCount() == rows; }));
    }
    QAction* action(const char* name) { return window.findChild<QAction*>(name); }
    QString field(const char* name) {
        if (auto* combo = window.findChild<QComboBox*>(name)) return combo->currentText();
        return window.findChild<QLineEdit*>(name)->text();
    }
    // The name as the first tab has it.
    QString name() {
        QStringList units;
        for (const char* unit : {"cboName1", "txtName1", "cboName2", "txtName2", "txtName3"}) {
            auto* widget = window.findChild<QWidget*>(unit);
            if (!widget->isHidden()) units << field(unit);
        }
        return units.join(' ');
    }
    QString panel(const char* name) { return window.findChild<QLabel*>(name)->text(); }
    void Activate() {
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    // Clicks a node of the tree.
    void Click(const QModelIndex& index) {
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                          tree->visualRect(index).intersected(tree->viewport()->rect()).center());
    }
    // The visible rows, each with its depth.
    QStringList Rows() {
        QStringList rows;
        for (QModelIndex at = tree->model()->index(0, 0); at.isValid(); at = tree->indexBelow(at)) {
            int depth = 0;
            for (QModelIndex up = at.parent(); up.isValid(); up = up.parent()) ++depth;
            rows << QString(depth, '>') + at.data().toString();
        }
        return rows;
    }

    testkit::TempDir dir;
    testkit::ScriptedPrompter prompter;
    DesktopProgram program{&prompter, dir.path()};
    RecViewWindow& window = program.Window();
    QTreeView* tree = window.findChild<QTreeView*>("HierView");
    QListView* list = window.findChild<QListView*>("AlphaView");
};

}  // namespace quillon::ui
