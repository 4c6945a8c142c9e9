// The main window on a large DataSet, driven through its real widgets on the offscreen platform: how long
// until it can be used, until a large node stands open, until the list shows rows and answers a key while it
// loads and afterwards, what moves and reading all names again take among thousands of siblings, and what all
// that holds in memory.
//
//     bench_window DATASET
//
// It works on a copy beside the DataSet. Times are of this machine and mean little alone; the goals beside
// them are what a user should not have to wait for.
#include <QElapsedTimer>
#include <QtWidgets>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "testkit/outside.h"
#include "ui/desktop_program.h"

namespace {

using quillon::navigation::cExplorer;
using quillon::navigation::TreeNode;
using quillon::ui::DesktopProgram;

constexpr double kKeyGoal = 0.05;
constexpr double kStepGoal = 0.1;

// Prints messages and questions.
class LoudPrompter : public quillon::testkit::SilentPrompter {
public:
    void Message(std::string_view text, std::string_view) override {
        std::fprintf(stderr, "message: %s\n", std::string(text).c_str());
    }
    bool AskYesNo(std::string_view text, std::string_view) override {
        Message(text, {});
        return false;
    }
};

double Seconds(const QElapsedTimer& timer) {
    return static_cast<double>(timer.nsecsElapsed()) / 1e9;
}

void Report(const char* what, double value, double goal, const char* unit = "s") {
    std::printf("%-52s %8.4f %-3s (goal %g)%s\n", what, value, unit, goal, value <= goal ? "" : "  missed");
}

// Paints what is visible, as a user would wait for it, without letting other events in.
void Paint(QAbstractScrollArea& view) {
    view.viewport()->repaint();
}

template <typename Step>
double Time(QAbstractScrollArea& view, Step step) {
    QElapsedTimer timer;
    timer.start();
    step();
    Paint(view);
    return Seconds(timer);
}

int IdOf(quillon::store::Database& database, const char* sql) {
    const auto rows = database.OpenRecordset(sql, quillon::store::RecordsetType::ForwardOnly);
    return rows->Eof() ? 0 : static_cast<int>(rows->At(0).AsLong());
}

// The node with the most children, the kingdom itself apart: that is open from the start.
int LargestNode(quillon::store::Database& database) {
    return IdOf(database,
                "SELECT parent_qb_id, count(*) AS children FROM qb_taxonomic_units WHERE parent_qb_id > 1 "
                "GROUP BY parent_qb_id ORDER BY 2 DESC");
}

struct Bench {
    DesktopProgram& program;
    cExplorer& explorer = program.Explorer();
    quillon::store::Database& database = *program.State().gDatabase;
    QTreeView& tree = *program.Window().findChild<QTreeView*>("HierView");
    QListView& list = *program.Window().findChild<QListView*>("AlphaView");
    int large = LargestNode(database);

    void Tree();
    void Moves();
    void Asterisk();
    void ManyChildren();
    void List();
    double LongestPause();
    double Key(const char* key);
    double WorstKeyWhileLoading(const char* query);
    double LongestPauseOfLoading();
};

void Bench::Tree() {
    TreeNode* node = explorer.ExpandContainingSubtree(large);
    explorer.HiliteNode(node);
    Paint(tree);
    const QModelIndex index = tree.currentIndex();
    const double seconds = Time(tree, [&] { tree.expand(index); });
    const double pause = LongestPause();
    std::printf("%-52s %8d\n", "children of the large node", tree.model()->rowCount(index));
    Report("a large node opens", seconds, kStepGoal);
    Report("longest pause while its children arrive", pause, kStepGoal);
    const int deep = IdOf(database,
                          "SELECT max(qb_id) FROM qb_taxonomic_units WHERE rank_id = 220 AND "
                          "parent_qb_id Is Not Null");
    Report("the tree opens to a taxon",
           Time(tree, [&] { explorer.HiliteNode(explorer.ExpandContainingSubtree(deep)); }), kStepGoal);
}

// A node goes among the children of the large one, and back.
void Bench::Moves() {
    explorer.Dropped = [](TreeNode*, TreeNode*, TreeNode*, bool& cancel) { cancel = false; };
    TreeNode* parent = explorer.FindNodeWithId(large);
    TreeNode* node = tree.currentIndex().isValid() ? explorer.TreeV().Selected() : nullptr;
    explorer.Cut();
    explorer.TreeV().Select(parent);
    Report("a name is pasted among the children", Time(tree, [&] { explorer.Paste(); }), kStepGoal);
    Report("it goes back", Time(tree, [&] { explorer.Undo(); }), kStepGoal);
    Report("and among them again", Time(tree, [&] { explorer.Undo(); }), kStepGoal);
    Report("the store's place for it is found again",
           Time(tree, [&] { explorer.ReflectRealNodePosition(explorer.FindIdOfNode(node)); }), kStepGoal);
    Report("the names of all loaded nodes are read again", Time(tree, [&] { explorer.RefreshNames(); }),
           kStepGoal);
    Report("longest pause of that", LongestPause(), kStepGoal);
    database.Execute("UPDATE qb_taxonomic_units SET unit_name1 = unit_name1 & 'x' WHERE parent_qb_id = " +
                     std::to_string(large));
    Report("the same when thousands have changed", Time(tree, [&] { explorer.RefreshNames(); }), kStepGoal);
    Report("longest pause of that", LongestPause(), kStepGoal);
    database.Execute(
        "UPDATE qb_taxonomic_units SET unit_name1 = Left(unit_name1, Len(unit_name1) - 1) WHERE parent_qb_id "
        "= " +
        std::to_string(large));
    Report("the large node goes with its children", Time(tree, [&] { explorer.RemoveNodes(large); }),
           kStepGoal);
}

// The longest that the window does not answer while the explorer does the rest of its work.
double Bench::LongestPause() {
    double longest = 0;
    QElapsedTimer whole;
    whole.start();
    while (explorer.IsBusy()) {
        QElapsedTimer timer;
        timer.start();
        QCoreApplication::processEvents();
        Paint(tree);
        longest = std::max(longest, Seconds(timer));
    }
    std::printf("%-52s %8.4f s\n", "  the rest is done in idle time", Seconds(whole));
    return longest;
}

void Bench::Asterisk() {
    explorer.Init();
    explorer.HiliteNode(explorer.TreeV().Top(0));
    Paint(tree);
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Asterisk, Qt::NoModifier, "*");
    Report("* on the root", Time(tree, [&] { QCoreApplication::sendEvent(&tree, &press); }), kStepGoal);
    Report("longest pause while branches open", LongestPause(), kStepGoal);
}

// All taxa but the ancestors of the large node become its children.
void Bench::ManyChildren() {
    explorer.Init();
    std::string above = std::to_string(large);
    for (const TreeNode* node = explorer.ExpandContainingSubtree(large); node != nullptr;
         node = node->Parent())
        above += ", " + std::to_string(explorer.FindIdOfNode(node));
    database.Execute("UPDATE qb_taxonomic_units SET parent_qb_id = " + std::to_string(large) +
                     " WHERE parent_qb_id Is Not Null AND qb_id Not In (" + above + ")");
    explorer.Init();
    explorer.HiliteNode(explorer.ExpandContainingSubtree(large));
    Paint(tree);
    const QModelIndex node = tree.currentIndex();
    Report("a node with very many children opens", Time(tree, [&] { tree.expand(node); }), kStepGoal);
    Report("longest pause while they arrive", LongestPause(), kStepGoal);
    std::printf("%-52s %8d\n", "children of that node", tree.model()->rowCount(node));
    QScrollBar& bar = *tree.verticalScrollBar();
    Report("the tree scrolls to its end", Time(tree, [&] { bar.setValue(bar.maximum()); }), kStepGoal);
    Report("and a page back", Time(tree, [&] { bar.setValue(bar.maximum() - bar.pageStep()); }), kStepGoal);
    Report("their names are read again", Time(tree, [&] { explorer.RefreshNames(); }), kStepGoal);
    Report("longest pause of that", LongestPause(), kStepGoal);
    explorer.ListTimer();
    Report("a wildcard that nothing matches", Key("*\xC2\xA7"), kKeyGoal);
    Report("longest pause of the search", LongestPause(), kStepGoal);
}

double Bench::Key(const char* key) {
    QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, key);
    return Time(list, [&] { QCoreApplication::sendEvent(&list, &press); });
}

double Bench::WorstKeyWhileLoading(const char* query) {
    double worst = 0;
    for (const char* key : {"z", "p", "a", "x", "q"}) {
        explorer.ListTimer();
        explorer.ListV().Open(program.State().gDatabase, query);
        for (int slices = 0; slices < 3; ++slices) QCoreApplication::processEvents();
        worst = std::max(worst, Key(key));
        worst = std::max(worst, Key("a"));
    }
    return worst;
}

// The longest that a key would have to wait for the window while the list loads.
double Bench::LongestPauseOfLoading() {
    explorer.ListV().Open(program.State().gDatabase, "Get Animal Data");
    double longest = 0;
    QElapsedTimer whole;
    whole.start();
    while (!explorer.ListV().IsComplete()) {
        QElapsedTimer timer;
        timer.start();
        QCoreApplication::processEvents();
        longest = std::max(longest, Seconds(timer));
    }
    std::printf("%-52s %8.4f s\n", "the whole list is loaded in idle time", Seconds(whole));
    QElapsedTimer timer;
    timer.start();
    QCoreApplication::processEvents();
    Paint(list);
    return std::max(longest, Seconds(timer));
}

void Bench::List() {
    Report("a key while the list loads", WorstKeyWhileLoading("Get Animal Data"), kKeyGoal);
    Report("the same with marks before names", WorstKeyWhileLoading("Get Data"), kKeyGoal);
    Report("longest pause while it loads", LongestPauseOfLoading(), kKeyGoal);
    explorer.ListTimer();
    double worst = 0;
    for (const char* key : {"p", "a", "r", "o", "\b", "z"}) worst = std::max(worst, Key(key));
    Report("a key afterwards", worst, kKeyGoal);
    explorer.ListTimer();
    worst = 0;
    for (const char* key : {"[", "x", "]"}) worst = std::max(worst, Key(key));
    explorer.ListTimer();
    Report("a wildcard", std::max(worst, Key("#")), kKeyGoal);
    Report("the last row is shown", Time(list, [&] { explorer.MoveLast(); }), kStepGoal);
    Report("a step back", Time(list, [&] { explorer.MovePrev(); }), kStepGoal);
    const int id = explorer.ListId();
    Report("a written name finds its place", Time(list, [&] { explorer.ListV().Update(id); }), kStepGoal);
}

double PeakMegabytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.rfind("VmHWM:", 0) == 0) return std::stod(line.substr(6)) / 1024;
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    if (argc != 2) {
        std::fprintf(stderr, "usage: bench_window DATASET\n");
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    LoudPrompter prompter;
    DesktopProgram program(&prompter);
    const std::string copy = std::string(argv[1]) + ".bench";
    std::filesystem::copy_file(argv[1], copy, std::filesystem::copy_options::overwrite_existing);
    program.State().gPrefDataSet = copy;
    program.State().gKingdomName = "Animalia";
    program.State().gPrefRank = "Kingdom";
    program.Window().resize(1200, 800);
    program.Window().show();
    QCoreApplication::processEvents();

    QElapsedTimer timer;
    timer.start();
    program.OpenPreferredDataSet();
    program.Window().repaint();
    Report("the window is usable after opening the file", Seconds(timer), 0.3);
    if (!program.State().gDatabase) return 1;

    Bench bench{program};
    timer.restart();
    program.Window().findChild<QAction*>("alpha")->trigger();
    while (bench.list.model()->rowCount() == 0) QCoreApplication::processEvents();
    Paint(bench.list);
    Report("the list shows its first rows", Seconds(timer), 0.2);
    bench.List();
    program.Window().findChild<QAction*>("hierarchy")->trigger();
    bench.explorer.Init();
    bench.Tree();
    bench.Moves();
    Report("the tree begins again", Time(bench.tree, [&] { bench.explorer.Init(); }), 0.3);
    bench.Asterisk();
    bench.ManyChildren();
    Report("peak memory", PeakMegabytes(), 250, "MB");
    program.State().gDatabase->Close();
    std::filesystem::remove(copy);
    return 0;
}
