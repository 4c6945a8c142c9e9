// The main window on a large DataSet, driven through its real widgets on the offscreen platform: how long
// until it can be used, until a large node stands open, until the list shows rows and answers a key, and what
// all that holds in memory.
//
//     bench_window DATASET
//
// Times are of this machine and mean little alone; the goals beside them are what a user should not have to
// wait for.
#include <sys/resource.h>

#include <QElapsedTimer>
#include <QtTest>
#include <QtWidgets>
#include <cstdio>

#include "ui/desktop_program.h"

namespace {

using quillon::ui::DesktopProgram;

constexpr double kMegabyte = 1024.0;  // ru_maxrss is in KiB

double Seconds(const QElapsedTimer& timer) {
    return static_cast<double>(timer.nsecsElapsed()) / 1e9;
}

void Tell(const char* what, double value, double goal, const char* unit) {
    std::printf("%-46s %8.3f %-3s (goal %g)%s\n", what, value, unit, goal, value <= goal ? "" : "  missed");
}

// Paints what is visible, as a user would wait for it.
void Paint(QWidget& widget) {
    QCoreApplication::processEvents();
    widget.repaint();
}

int LargestNode(quillon::store::Database& database) {
    const auto rows = database.OpenRecordset(
        "SELECT parent_qb_id, count(*) AS children FROM qb_taxonomic_units WHERE qb_id <> parent_qb_id "
        "GROUP BY parent_qb_id",
        quillon::store::RecordsetType::ForwardOnly);
    int id = 1;
    // The kingdom itself is open from the start.
    for (std::int64_t most = 0; !rows->Eof(); rows->MoveNext()) {
        if (rows->At(1).AsLong() <= most || rows->At(0).AsLong() == 1) continue;
        most = rows->At(1).AsLong();
        id = static_cast<int>(rows->At(0).AsLong());
    }
    return id;
}

double TimeExpansion(DesktopProgram& program, QTreeView& tree, int id) {
    auto& explorer = program.Explorer();
    quillon::navigation::TreeNode* node = explorer.ExpandContainingSubtree(id);
    explorer.HiliteNode(node);
    Paint(tree);
    const QModelIndex index = tree.currentIndex();
    QElapsedTimer timer;
    timer.start();
    tree.expand(index);
    Paint(tree);
    const double seconds = Seconds(timer);
    std::printf("%-46s %8d\n", "children of the large node", tree.model()->rowCount(index));
    return seconds;
}

double TimeKeys(QListView& list) {
    list.setFocus();
    double worst = 0;
    for (const char* key : {"p", "a", "r", "o"}) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, key);
        QElapsedTimer timer;
        timer.start();
        QCoreApplication::sendEvent(&list, &press);
        Paint(list);
        worst = std::max(worst, Seconds(timer));
    }
    return worst;
}

double PeakMegabytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / kMegabyte;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: bench_window DATASET\n");
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    DesktopProgram program;
    program.State().gPrefDataSet = argv[1];
    program.State().gKingdomName = "Animalia";
    program.State().gPrefRank = "Kingdom";
    program.Window().resize(1200, 800);
    program.Window().show();
    Paint(program.Window());

    QElapsedTimer timer;
    timer.start();
    program.OpenPreferredDataSet();
    Paint(program.Window());
    Tell("window usable after opening the file", Seconds(timer), 0.3, "s");

    auto* tree = program.Window().findChild<QTreeView*>("HierView");
    auto* list = program.Window().findChild<QListView*>("AlphaView");
    Tell("a large node opens", TimeExpansion(program, *tree, LargestNode(*program.State().gDatabase)), 0.15,
         "s");

    timer.restart();
    program.Window().findChild<QAction*>("alpha")->trigger();
    QTest::qWaitFor([&] { return list->model()->rowCount() > 0; });
    Paint(*list);
    Tell("the list shows its first rows", Seconds(timer), 0.2, "s");

    timer.restart();
    program.Explorer().ListV().LoadAll();
    std::printf("%-46s %8.3f s\n", "the whole list is loaded (in idle slices)", Seconds(timer));
    Tell("a typed key is answered", TimeKeys(*list), 0.05, "s");
    Tell("peak memory", PeakMegabytes(), 250, "MB");
    return 0;
}
