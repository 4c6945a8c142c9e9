// The pages of the tabs 2 to 5: vernaculars, synonyms, distribution, comments.
#include <gtest/gtest.h>

#include <QtTest>
#include <QtWidgets>

#include "editor/comment_tab.h"
#include "editor/distribution_tab.h"
#include "editor/synonym_tab.h"
#include "editor/vernacular_tab.h"
#include "testkit/testkit.h"
#include "ui/binder.h"
#include "ui/pages/comment_page.h"
#include "ui/pages/distribution_page.h"
#include "ui/pages/synonym_page.h"
#include "ui/pages/vernacular_page.h"

namespace quillon::ui {
namespace {

struct RecordForm {
    Form form{"RecView"};
    editor::VernacularTab vernaculars{form};
    editor::SynonymTab synonyms{form};
    editor::DistributionTab distribution{form};
    editor::CommentTab comments{form};
    std::array<RecordTab*, 4> Tabs() { return {&vernaculars, &synonyms, &distribution, &comments}; }
};

class RecordPages : public testing::Test {
protected:
    RecordPages() {
        for (auto* build : {BuildVernacularPage, BuildSynonymPage, BuildDistributionPage, BuildCommentPage})
            pages.addWidget(build(&pages));
        pages.widget(2)->setObjectName("RVPanel4");
        record.distribution.SetRank("Species");
        Bind(record.form, pages);
        Fill();
        pages.show();
    }
    void Fill() {
        data.Make("Animalia");
        Run("INSERT INTO qb_taxonomic_units (qb_id, unit_name1, unit_name2, usage, kingdom_id, rank_id) "
            "VALUES (2, 'Orca', 'gladiator', 'invalid', 5, 220)");
        Run("INSERT INTO qb_taxonomic_units (qb_id, unit_name1, unit_name2, usage, kingdom_id, rank_id) "
            "VALUES (3, 'Orcinus', 'orca', 'valid', 5, 220)");
        Run("INSERT INTO qb_synonym_links (qb_id, qb_id_accepted) VALUES (2, 3)");
        Run("INSERT INTO qb_vernaculars (qb_id, vernacular_name, language, approved_ind) "
            "VALUES (2, 'killer whale', 'English', True)");
        Run("INSERT INTO qb_vernaculars (qb_id, vernacular_name, language, approved_ind) "
            "VALUES (2, 'orque', 'French', False)");
        Run("INSERT INTO qb_comments (qb_comment_id, commentator, comment_detail) "
            "VALUES (1, 'Smith', 'Seen\nin May')");
        Run("INSERT INTO qb_tu_comments_link (qb_id, qb_comment_id) VALUES (2, 1)");
        Run("INSERT INTO qb_geographic_division (qb_id, geographic_value) "
            "VALUES (2, 'Europe & Northern Asia (excluding China)')");
        Run("INSERT INTO qb_jurisdiction (qb_id, jurisdiction_value, origin) "
            "VALUES (2, 'Caribbean Territories', 'Native & Extinct')");
        ChangeScope scope(record.form);
        data.state.currentTaxon.qb_id = 2;
        data.state.currentTaxon.rank_name = "Species";
        data.state.currentTaxon.usage = "invalid";
        for (RecordTab* tab : record.Tabs()) {
            tab->Connect(data.state, data.prompter);
            tab->Load(2);
        }
    }
    void Run(std::string_view sql) { data.db().Execute(sql); }

    template <typename Widget>
    Widget* Find(const char* name) {
        auto* widget = pages.findChild<Widget*>(name);
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }
    // The visible cells of a table, as they are painted.
    static QString RowsOf(const QTableWidget& table) {
        QString text;
        for (int row = 0; row < table.rowCount(); ++row) {
            for (int column = 0; column < table.columnCount(); ++column) {
                if (table.isColumnHidden(column)) continue;
                const auto* delegate = qobject_cast<QStyledItemDelegate*>(table.itemDelegate());
                text += (column == 0 ? "" : "|") + delegate->displayText(table.item(row, column)->text(), {});
            }
            text += "\n";
        }
        return text;
    }
    // The names of the fields and buttons that Tab comes to, in its order.
    static QString TabOrderOf(QWidget* page) {
        QStringList names;
        for (QWidget* widget = page->nextInFocusChain(); page->isAncestorOf(widget);
             widget = widget->nextInFocusChain()) {
            const bool isField = !widget->objectName().isEmpty() && !widget->objectName().startsWith("qt_");
            if (isField && (widget->focusPolicy() & Qt::TabFocus) != 0) names << widget->objectName();
        }
        return names.join(" ");
    }
    static void ClickRow(QTableWidget& table, int row) {
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {},
                          table.visualItemRect(table.item(row, 0)).center());
    }

    testkit::DataSetFixture data;
    RecordForm record;
    QStackedWidget pages;
};

TEST_F(RecordPages, EveryControlHasItsWidget) {
    EXPECT_EQ(NamesWithoutPartner(record.form, pages).join(" "), "");
}

TEST_F(RecordPages, TheTablesShowTheirRowsOnOneLineEach) {
    EXPECT_EQ(RowsOf(*Find<QTableWidget>("grdVernacular")),
              "killer whale|English|Yes\norque|French|No\n||\n");
    EXPECT_EQ(RowsOf(*Find<QTableWidget>("grdSynonyms")), "Orcinus orca|\n|\n");
    EXPECT_EQ(RowsOf(*Find<QTableWidget>("grdComments")), "Smith|Seen in May\n|\n");
    EXPECT_EQ(Find<QLabel>("lblSynonyms")->text(), "Valid Names");
}

TEST_F(RecordPages, AClickOnARowShowsIt) {
    auto* table = Find<QTableWidget>("grdVernacular");
    ClickRow(*table, 1);
    EXPECT_EQ(Find<QLineEdit>("txtVName")->text(), "orque");
    EXPECT_EQ(Find<QComboBox>("cboLanguage")->currentText(), "French");
    EXPECT_FALSE(Find<QCheckBox>("chkApproved")->isChecked());
    ClickRow(*table, 0);
    EXPECT_EQ(Find<QLineEdit>("txtVName")->text(), "killer whale");
    EXPECT_TRUE(Find<QCheckBox>("chkApproved")->isChecked());
    ClickRow(*table, 2);
    EXPECT_EQ(Find<QLineEdit>("txtVName")->text(), "");

    pages.setCurrentIndex(3);
    ClickRow(*Find<QTableWidget>("grdComments"), 0);
    EXPECT_EQ(Find<QLineEdit>("txtCommentator")->text(), "Smith");
    EXPECT_EQ(Find<QPlainTextEdit>("txtComment")->toPlainText(), "Seen\nin May");
}

TEST_F(RecordPages, ACandidateIsChosenByKey) {
    pages.setCurrentIndex(1);
    auto* candidates = Find<QComboBox>("cboSRName");
    EXPECT_EQ(candidates->count(), 0) << "the list has not been opened yet";
    QTest::keyClick(candidates, Qt::Key_Down);
    EXPECT_EQ(candidates->currentText(), "Orcinus orca");
    EXPECT_EQ(Find<QComboBox>("cboSSciName")->currentText(), "Orcinus orca");
}

TEST_F(RecordPages, ANameIsTypedAndAdded) {
    record.vernaculars.EnterMode(EditorMode::Edit);
    auto* table = Find<QTableWidget>("grdVernacular");
    QTest::keyClicks(Find<QLineEdit>("txtVName"), "grampus");
    QTest::keyClicks(Find<QComboBox>("cboLanguage")->lineEdit(), "Latin");
    QTest::keyClick(Find<QCheckBox>("chkApproved"), Qt::Key_Space);
    QTest::mouseClick(Find<QPushButton>("cmdVAdd"), Qt::LeftButton);
    EXPECT_EQ(RowsOf(*table), "killer whale|English|Yes\norque|French|No\ngrampus|Latin|Yes\n||\n");
    EXPECT_EQ(table->currentRow(), 2);
    QTest::mouseClick(Find<QPushButton>("cmdVDelete"), Qt::LeftButton);
    EXPECT_EQ(RowsOf(*table), "killer whale|English|Yes\norque|French|No\n||\n");
    EXPECT_EQ(table->currentRow(), 2) << "the empty row";
    EXPECT_EQ(Find<QLineEdit>("txtVName")->text(), "");
    EXPECT_TRUE(data.prompter.messages.empty());
}

TEST_F(RecordPages, AnEmptyFieldTakesTheFocus) {
    record.comments.EnterMode(EditorMode::Edit);
    pages.setCurrentIndex(3);
    pages.activateWindow();
    QTest::keyClicks(Find<QLineEdit>("txtCommentator"), "Jones");
    QTest::mouseClick(Find<QPushButton>("cmdCAdd"), Qt::LeftButton);
    EXPECT_EQ(data.prompter.messages, std::vector<std::string>{"A Comment is required!"});
    EXPECT_EQ(pages.focusWidget(), Find<QPlainTextEdit>("txtComment"));
    QTest::keyClicks(Find<QPlainTextEdit>("txtComment"), "In June");
    QTest::mouseClick(Find<QPushButton>("cmdCAdd"), Qt::LeftButton);
    EXPECT_EQ(RowsOf(*Find<QTableWidget>("grdComments")), "Smith|Seen in May\nJones|In June\n|\n");
    EXPECT_EQ(Find<QPlainTextEdit>("txtComment")->toPlainText(), "");
}

TEST_F(RecordPages, TheDistributionIsShown) {
    pages.setCurrentIndex(2);
    for (const CheckControl* region : record.distribution.Regions()) {
        const auto* box = Find<QCheckBox>(region->Name().c_str());
        EXPECT_EQ(box->isChecked(), region->Name() == "chkEurasia") << region->Name();
    }
    for (const ComboControl* list : record.distribution.Jurisdictions()) {
        const auto* box = Find<QComboBox>(list->Name().c_str());
        EXPECT_EQ(box->currentText(), list->Name() == "cboCarrTerr" ? "Native and Extinct" : "None Selected");
    }
    EXPECT_EQ(Find<QCheckBox>("chkEurasia")->text(), "Europe && Northern Asia (excluding China)");
}

TEST_F(RecordPages, TabMovesFromTheTableThroughTheFieldsToTheButtons) {
    EXPECT_EQ(TabOrderOf(pages.widget(0)),
              "grdVernacular txtVName cboLanguage chkApproved cmdVAdd cmdVModify cmdVDelete");
    EXPECT_EQ(TabOrderOf(pages.widget(1)), "grdSynonyms cboSRank cboSRName cboSSciName cmdSAdd cmdSDelete");
    EXPECT_EQ(TabOrderOf(pages.widget(2)),
              "chkNorthAmerica chkMiddleAmerica chkCaribbean chkSouthAmerica chkEurasia chkAfrica chkAsia "
              "chkAustralia chkOceaniania chkAntarctica chkEAtlantic chkWAtlantic chkIndoWestPacific "
              "chkEastPacific cboContinentalUS cboAlaska cboHawaii cboCenPacTerr cboCarrTerr cboCanada "
              "cboMexico");
    EXPECT_EQ(TabOrderOf(pages.widget(3)), "grdComments txtCommentator txtComment cmdCAdd cmdCDelete");
}

TEST_F(RecordPages, NoTextIsCutOffHoweverSmallThePage) {
    for (int i = 0; i < pages.count(); ++i) {
        pages.setCurrentIndex(i);
        pages.resize(pages.minimumSizeHint());
        QCoreApplication::processEvents();
        for (const QWidget* widget : pages.currentWidget()->findChildren<QWidget*>()) {
            if (!qobject_cast<const QLabel*>(widget) && !qobject_cast<const QAbstractButton*>(widget))
                continue;
            if (widget->objectName().isEmpty()) continue;
            EXPECT_GE(widget->width(), widget->sizeHint().width()) << widget->objectName().toStdString();
            EXPECT_GE(widget->height(), widget->sizeHint().height()) << widget->objectName().toStdString();
        }
        const QRect room = pages.currentWidget()->rect();
        for (const QWidget* widget :
             pages.currentWidget()->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
            EXPECT_TRUE(room.contains(widget->geometry())) << widget->objectName().toStdString();
    }
}

TEST_F(RecordPages, EveryFieldHasAnAccessibleName) {
    for (const Control* control : record.form.Controls()) {
        auto* widget = Find<QWidget>(control->Name().c_str());
        if ((widget->focusPolicy() & Qt::TabFocus) == 0) continue;
        const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(widget);
        ASSERT_NE(spoken, nullptr);
        EXPECT_FALSE(spoken->text(QAccessible::Name).isEmpty()) << control->Name();
    }
}

}  // namespace
}  // namespace quillon::ui
