#include "ui/screenshot.h"

#include <QtWidgets>

#include "ui/desktop_program.h"

namespace quillon::ui {

namespace {

constexpr int kLevels = 12;

bool IsGenusOrBelow(DesktopProgram& program, const navigation::TreeNode* node) {
    const auto item = program.Explorer().GetNodeData(node);
    return item && program.State().gRankGenus != 0 && item->rank() >= program.State().gRankGenus;
}

// Expands the first branch down to a genus and returns the first node below it.
navigation::TreeNode* OpenFirstBranch(DesktopProgram& program) {
    auto& explorer = program.Explorer();
    navigation::TreeNode* node = explorer.TreeV().TopCount() > 0 ? explorer.TreeV().Top(0) : nullptr;
    for (int level = 0; node != nullptr && node->ChildCount() > 0 && level < kLevels; ++level) {
        const bool isGenus = IsGenusOrBelow(program, node);
        explorer.ExpandNode(node);
        while (explorer.Continue()) continue;
        if (node->ChildCount() > 0) node = node->Child(0);
        if (isGenus) break;
    }
    return node;
}

}  // namespace

bool SaveScreenshot(DesktopProgram& program, const QString& path) {
    program.Explorer().ListV().LoadAll();
    if (navigation::TreeNode* node = OpenFirstBranch(program)) program.Explorer().NodeClick(node);
    QCoreApplication::processEvents();
    QDir().mkpath(QFileInfo(path).absolutePath());
    return program.Window().grab().save(path, "PNG");
}

}  // namespace quillon::ui
