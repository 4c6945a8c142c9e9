// The pages for publications, experts and other sources, worked with mouse and keys.
#include <gtest/gtest.h>

#include <QtTest>
#include <QtWidgets>

#include "documentation/named_tabs.h"
#include "testkit/testkit.h"
#include "ui/binder.h"
#include "ui/pages/documentation_page.h"

namespace quillon::ui {
namespace {

using namespace documentation;

// The three tabs of one form, each with its page, over a DataSet in which the taxon 2 has two publications,
// an expert and a source.
class DocumentationPagesTest : public testing::Test {
protected:
    DocumentationPagesTest() {
        data.Make();
        data.state.currentTaxon.unit_name1 = "Orcinus";
        AddRows();
        for (DocumentationTab* tab : Tabs()) tab->Connect(data.state, data.prompter);
        Bind(form, window);
        for (DocumentationTab* tab : Tabs()) tab->Load(2);
    }
    std::array<DocumentationTab*, 3> Tabs() { return {&publications, &experts, &sources}; }
    void AddRows() {
        for (const char* sql :
             {"INSERT INTO qb_publications (publication_id_prefix, qb_publication_id, reference_author, "
              "title, "
              "publication_name) VALUES ('PUB', 1, 'Gray', 'On Cetacea', 'Annals')",
              "INSERT INTO qb_publications (publication_id_prefix, qb_publication_id, reference_author, "
              "title, "
              "publication_name) VALUES ('PUB', 2, 'Owen', 'A history', 'A history')",
              "INSERT INTO qb_experts (expert_id_prefix, qb_expert_id, expert) VALUES ('EXP', 3, 'Dale "
              "Rice')",
              "INSERT INTO qb_other_sources (source_id_prefix, qb_source_id, source, version) "
              "VALUES ('SRC', 4, 'Marine list', '2023')",
              "INSERT INTO qb_vern_ref_links (qb_id, qb_vern_id, qb_documentation_id_prefix, "
              "qb_documentation_id, vernacular_name) VALUES (2, 9, 'PUB', 2, 'Orque')"})
            data.db().Execute(sql);
        for (const char* link : {"'PUB', 1", "'EXP', 3", "'SRC', 4"})
            data.db().Execute(
                std::string("INSERT INTO qb_reference_links (qb_id, qb_documentation_id_prefix, "
                            "qb_documentation_id) VALUES (2, ") +
                link + ")");
    }
    // Shows one page as the window does, with the focus to be had.
    void Show(QWidget* page) {
        for (QWidget* other : {publicationPage, expertPage, otherSourcePage})
            other->setVisible(other == page);
        window.resize(window.minimumSizeHint());
        window.show();
        QApplication::setActiveWindow(&window);
    }
    template <typename Widget>
    Widget* Get(const char* name) {
        return window.findChild<Widget*>(name);
    }
    // The names of the widgets that Tab leads to, beginning with the one that has the focus.
    QString TabOrder(int count) {
        QStringList names;
        for (int i = 0; i < count; ++i) {
            names << QApplication::focusWidget()->objectName();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        return names.join(" ");
    }

    testkit::DataSetFixture data;
    Form form{"RecView"};
    PublicationTab publications{form};
    ExpertTab experts{form};
    OtherSourceTab sources{form};
    QWidget window;
    QVBoxLayout* layout = new QVBoxLayout(&window);
    QWidget* publicationPage = Add(BuildPublicationPage(&window));
    QWidget* expertPage = Add(BuildExpertPage(&window));
    QWidget* otherSourcePage = Add(BuildOtherSourcePage(&window));

private:
    QWidget* Add(QWidget* page) {
        layout->addWidget(page);
        return page;
    }
};

TEST_F(DocumentationPagesTest, EveryControlHasItsWidget) {
    EXPECT_EQ(NamesWithoutPartner(form, window).join(" "), "");
}

TEST_F(DocumentationPagesTest, AClickOnARowShowsIt) {
    Show(publicationPage);
    auto* grid = Get<QTableWidget>("grdPublications");
    EXPECT_EQ(grid->rowCount(), 3);
    EXPECT_EQ(Get<QComboBox>("cboAuthor")->currentText(), "Gray");
    EXPECT_FALSE(Get<QComboBox>("cboVernPub")->isVisible());
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, grid->visualItemRect(grid->item(1, 1)).center());
    EXPECT_EQ(Get<QComboBox>("cboAuthor")->currentText(), "Owen");
    EXPECT_EQ(Get<QComboBox>("cboVernPubSelect")->currentText(), "Vernacular");
    EXPECT_EQ(Get<QComboBox>("cboVernPub")->currentText(), "Orque [unspecified]");
    EXPECT_TRUE(Get<QComboBox>("cboVernPub")->isVisible());
    EXPECT_EQ(Get<QLineEdit>("txtPQBID")->text(), "2");
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, grid->visualItemRect(grid->item(2, 1)).center());
    EXPECT_EQ(Get<QComboBox>("cboAuthor")->currentText(), "");
    EXPECT_FALSE(Get<QComboBox>("cboVernPub")->isVisible());
}

TEST_F(DocumentationPagesTest, IdsAreHiddenAndWidthsStay) {
    Show(publicationPage);
    auto* grid = Get<QTableWidget>("grdPublications");
    for (const int column : {13, 14, 15, 17, 18}) EXPECT_TRUE(grid->isColumnHidden(column)) << column;
    EXPECT_FALSE(grid->isColumnHidden(16));
    EXPECT_EQ(grid->horizontalHeader()->defaultAlignment(), Qt::AlignCenter);
    grid->setColumnWidth(1, 222);
    publications.Load(7);
    publications.Load(2);
    EXPECT_EQ(grid->columnWidth(1), 222);
    EXPECT_EQ(grid->item(0, 1)->text(), "Gray");
}

TEST_F(DocumentationPagesTest, AListIsReadWhenItIsDroppedDown) {
    Show(publicationPage);
    publications.Load(7);
    auto* title = Get<QComboBox>("cboTitle");
    EXPECT_EQ(title->count(), 0);
    title->setFocus();
    QTest::keyClick(title, Qt::Key_F4);
    ASSERT_TRUE(title->view()->isVisible());
    EXPECT_EQ(title->count(), 2);
    QTest::keyClick(title->view(), Qt::Key_Home);
    QTest::keyClick(title->view(), Qt::Key_Return);
    EXPECT_FALSE(title->view()->isVisible());
    EXPECT_EQ(title->currentText(), "A history");
    EXPECT_EQ(Get<QComboBox>("cboAuthor")->currentText(), "Owen") << "the only record of that title";
    EXPECT_EQ(Get<QLineEdit>("txtPQBID")->text(), "2");
}

TEST_F(DocumentationPagesTest, LeavingAFieldAllowsItsListToReload) {
    Show(publicationPage);
    auto* name = Get<QComboBox>("cboPublication");
    name->setFocus();
    QTest::keyClick(name, Qt::Key_F4);
    EXPECT_EQ(name->count(), 1) << "what goes with the record on show";
    name->hidePopup();
    publications.Load(7);
    QTest::keyClick(name, Qt::Key_F4);
    EXPECT_EQ(name->count(), 1);
    name->hidePopup();
    Get<QLineEdit>("txtPages")->setFocus();
    name->setFocus();
    QTest::keyClick(name, Qt::Key_F4);
    EXPECT_EQ(name->count(), 2);
    name->hidePopup();
}

TEST_F(DocumentationPagesTest, ExpertsAndSourcesArePickedFromTheirLists) {
    experts.OfferLists();
    sources.OfferLists();
    experts.Clear();
    sources.Clear();
    Show(expertPage);
    auto* expert = Get<QComboBox>("cboExpert");
    expert->setFocus();
    QTest::keyClick(expert, Qt::Key_Down);
    EXPECT_EQ(expert->currentText(), "Dale Rice");
    EXPECT_EQ(Get<QLineEdit>("txtEQBID")->text(), "3");
    Show(otherSourcePage);
    auto* source = Get<QComboBox>("cboSource");
    source->setFocus();
    QTest::keyClick(source, Qt::Key_Down);
    EXPECT_EQ(Get<QLineEdit>("txtVersion")->text(), "2023");
    EXPECT_EQ(Get<QLineEdit>("txtOSQBID")->text(), "4");
}

TEST_F(DocumentationPagesTest, TabMovesThroughTheFieldsInTheirOrder) {
    Show(publicationPage);
    Get<QTableWidget>("grdPublications")->setFocus();
    EXPECT_EQ(TabOrder(14),
              "grdPublications cboAuthor cboADate txtLDate cboTitle cboPublication txtPublisher txtLocation "
              "txtISBN "
              "txtISSN txtPages txtPubComments chkPOD cboVernPubSelect");
    Show(expertPage);
    Get<QTableWidget>("grdExperts")->setFocus();
    EXPECT_EQ(TabOrder(4), "grdExperts cboExpert txtExpComments cboVernExpSelect");
    Show(otherSourcePage);
    Get<QTableWidget>("grdOtherSources")->setFocus();
    EXPECT_EQ(TabOrder(7),
              "grdOtherSources cboSource txtSourceType txtVersion txtADate txtOSComments cboVernSrcSelect");
}

TEST_F(DocumentationPagesTest, AnAccessKeyLeadsToItsField) {
    Show(publicationPage);
    Get<QTableWidget>("grdPublications")->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_T, Qt::AltModifier);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "cboTitle");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_N, Qt::AltModifier);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "txtPubComments");
}

TEST_F(DocumentationPagesTest, NoAccessKeyIsUsedTwiceOnAPage) {
    for (QWidget* page : {publicationPage, expertPage, otherSourcePage}) {
        QStringList keys = {"F", "E", "R", "V", "H", "S"};  // of the menus, and of the button that saves
        QStringList texts;
        for (const QLabel* label : page->findChildren<QLabel*>()) texts << label->text();
        for (const QAbstractButton* button : page->findChildren<QAbstractButton*>()) texts << button->text();
        for (const QString& text : texts) {
            const qsizetype at = text.indexOf('&');
            if (at < 0) continue;
            const QString key = text.mid(at + 1, 1).toUpper();
            EXPECT_FALSE(keys.contains(key)) << text.toStdString();
            keys << key;
        }
        EXPECT_GT(keys.size(), 10);
    }
}

TEST_F(DocumentationPagesTest, AtItsSmallestNoTextIsCut) {
    for (QWidget* page : {publicationPage, expertPage, otherSourcePage}) {
        Show(page);
        for (const QLabel* label : page->findChildren<QLabel*>())
            EXPECT_GE(label->width(), label->sizeHint().width()) << label->text().toStdString();
        for (const QPushButton* button : page->findChildren<QPushButton*>())
            EXPECT_GE(button->width(), button->sizeHint().width()) << button->text().toStdString();
        EXPECT_GE(page->findChild<QTableWidget*>()->viewport()->height(),
                  4 * page->findChild<QTableWidget*>()->rowHeight(0));
    }
}

}  // namespace
}  // namespace quillon::ui
