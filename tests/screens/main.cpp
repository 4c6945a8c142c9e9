// screens FOLDER SAMPLE PREFIX: pictures of every window and tab of the program, with the sample in it.
// scripts/screens runs it for each size and palette: QT_SCALE_FACTOR is the toolkit's, and
// QUILLON_SCREENS_PALETTE is "light" or "dark".
#include <QtWidgets>
#include <cstdio>

#include "import/tagged_import.h"
#include "screens/camera.h"
#include "testkit/testkit.h"
#include "ui/desktop_program.h"
#include "ui/help_window.h"
#include "ui/in_progress_window.h"
#include "ui/splash_window.h"
#include "ui/text_convert.h"

namespace quillon::screens {
namespace {

const std::string kFindings =
    "ID =  12   Name = Orcinus orca\r\n"
    "     Error: Only one accepted name can have the same name and author.\r\n"
    "     Error: A name below the rank of genus must have an author.\r\n"
    "ID =  31   Name = Delphinus capensis\r\n"
    "     Error: The parent of a species must be a genus or a subgenus.\r\n";
const std::string kImportFindings =
    "Invalid Table Tag in the following line of import file!\r\n"
    "     [XX]|1|Orcinus|\r\n"
    "Unexpected end-of-line in the following data line of import file!\r\n"
    "     [VR]|960001|killer whale\r\n";

QPalette LightPalette() {
    return QStyleFactory::create("Fusion")->standardPalette();
}

QPalette DarkPalette() {
    const QColor window(45, 47, 51), base(30, 31, 34), text(222, 224, 228), dim(128, 131, 137);
    QPalette palette(QColor(58, 61, 66), window);
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        palette.setColor(role, text);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, QColor(38, 40, 44));
    palette.setColor(QPalette::ToolTipBase, base);
    palette.setColor(QPalette::Highlight, QColor(46, 98, 158));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(120, 174, 237));
    palette.setColor(QPalette::LinkVisited, QColor(178, 150, 232));
    palette.setColor(QPalette::PlaceholderText, dim);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, dim);
    return palette;
}

void FixLooks() {
    QApplication::setStyle("Fusion");
    QApplication::setFont(QFont("DejaVu Sans", 9));
    QApplication::setPalette(qEnvironmentVariable("QUILLON_SCREENS_PALETTE") == "dark" ? DarkPalette()
                                                                                       : LightPalette());
}

// A DataSet with the sample, open in the program.
void OpenSample(ui::DesktopProgram& program, const std::string& dataSet, const std::string& sample,
                const std::string& workDirectory) {
    program.State().gKingdomName = "Animalia";
    program.State().gPrefRank = "Kingdom";
    program.Lifecycle().MakeDataSet(dataSet);
    ui::DesktopPump pump;
    importing::TaggedImport import(program.State(), program.Engine(), program.Outside(), pump, [](double) {});
    import.Run(sample, workDirectory);
    program.RecView().ShowDataSet();
    program.Explorer().ListV().LoadAll();
}

// As a double click in the alphabetical list does.
void Choose(ui::DesktopProgram& program, std::string_view where) {
    const auto rows = program.State().gDatabase->CreateSnapshot(
        "SELECT qb_id FROM qb_taxonomic_units WHERE " + std::string(where));
    if (rows->Eof()) return;
    const int qb_id = static_cast<int>(rows->Get("qb_id").AsLong());
    program.Explorer().ListDblClick(qb_id);
}

void TakeTabs(ui::DesktopProgram& program, Camera& camera, std::initializer_list<const char*> keys) {
    auto* tabs = program.Window().findChild<QTabBar*>("TabStrip1");
    for (const char* key : keys) {
        tabs->setCurrentIndex(program.RecView().Controls().TabStrip1.IndexOf(key) - 1);
        camera.Take(program.Window(), QString("tab-") + key);
    }
    tabs->setCurrentIndex(0);
}

void TakeMenus(ui::DesktopProgram& program, Camera& camera) {
    for (const QAction* top : program.Window().menuBar()->actions())
        camera.Take(*top->menu(), "menu-" + top->text().remove('&').toLower());
}

// The taxa of the sample that have something to show on the tabs.
struct Shown {
    const char* taxon;
    std::initializer_list<const char*> tabs;
};
const Shown kShown[] = {{"unit_name2 = 'sima'", {"comments"}},
                        {"unit_name3 = 'intermedia'", {"experts"}},
                        {"unit_name3 = 'brevicauda'", {"othersources"}},
                        {"unit_name1 = 'Balaenoptera' AND unit_name2 = 'musculus' AND unit_name3 Is Null",
                         {"taxon", "vernacular", "synonyms", "distribution", "publications"}}};

void TakeMainWindow(ui::DesktopProgram& program, Camera& camera) {
    for (const Shown& shown : kShown) {
        Choose(program, shown.taxon);
        TakeTabs(program, camera, shown.tabs);
    }
    TakeMenus(program, camera);
    Choose(program, "unit_name1 = 'Delphinidae'");
    camera.Take(program.Window(), "family");
    Choose(program, "usage = 'invalid' AND unit_name2 Is Not Null");
    camera.Take(program.Window(), "synonym");
    program.Window().findChild<QAction*>("alpha")->trigger();
    camera.Take(program.Window(), "alpha");
    const QSize size = program.Window().size();
    program.Window().resize(program.Window().minimumSizeHint());
    camera.Take(program.Window(), "smallest");
    program.Window().resize(size);
    program.Window().findChild<QAction*>("hierarchy")->trigger();
}

void TakeHelp(ui::DesktopProgram& program, Camera& camera) {
    program.Window().findChild<QAction*>("mnuHContents")->trigger();
    auto* help = program.Window().findChild<ui::HelpWindow*>("HelpWindow");
    if (help == nullptr) return;
    for (const char* page : {"index.md", "browsing.md", "exporting.md"}) {
        help->ShowPage(page);
        camera.Take(*help, QString("help-") + QString(page).section('.', 0, 0));
    }
    help->findChild<QLineEdit*>("txtSearch")->setText("tree");
    camera.Take(*help, "help-search");
    help->close();
}

void TakeForms(ui::DesktopProgram& program, Camera& camera, const testkit::TempDir& dir) {
    for (const QString& form : program.Outside().Forms()) {
        testkit::WriteFile(dir.File("validate.log"), kFindings);
        testkit::WriteFile(dir.File("import.err"), kImportFindings);
        const int taken = camera.TakeModal(form, [&] { program.Outside().ShowModal(ui::FromQt(form)); });
        if (taken == 0) std::fprintf(stderr, "%s did not come up\n", qPrintable(form));
    }
    camera.TakeModal("question", [&] {
        program.Outside().AskYesNo(
            "A new or modified record was not saved.  Continuing will lose that record!  Continue?",
            "Losing new/modified record");
    });
    camera.TakeModal("message", [&] { program.Outside().Message("Import Complete -- No Errors!", {}); });
    startup::FrmSplash splashForm(program.State().gVersion);
    ui::SplashWindow splash(splashForm);
    camera.Take(splash, "frmSplash");
    ui::FrmInProgress form;
    form.form.SetTitle("Loading Taxon Data");
    form.lblIPStatus.SetCaption("Loading...");
    form.theBar.SetValue(40);
    ui::InProgressWindow progress(form, &program.Window());
    progress.show();
    camera.Take(progress, "frmInProgress");
}

}  // namespace
}  // namespace quillon::screens

int main(int argc, char** argv) {
    using namespace quillon;
    QApplication application(argc, argv);
    if (argc != 4) {
        std::fputs("usage: screens FOLDER SAMPLE PREFIX\n", stderr);
        return 2;
    }
    const std::string sample = ui::FromQt(QFileInfo(argv[2]).absoluteFilePath());
    screens::Camera camera(QFileInfo(argv[1]).absoluteFilePath(), argv[3]);
    screens::FixLooks();
    const testkit::TempDir dir;
    QDir::setCurrent(ui::ToQt(dir.path()));
    ui::DesktopProgram program(nullptr, dir.path());
    program.Window().show();
    program.RecView().ShowDataSet();
    camera.Take(program.Window(), "no-dataset");
    camera.TakeModal("unexpected", [&] {
        screens::OpenSample(program, dir.File("whales.mdb"), sample, dir.path());
        screens::TakeMainWindow(program, camera);
        screens::TakeHelp(program, camera);
    });
    screens::TakeForms(program, camera, dir);
    return 0;
}
