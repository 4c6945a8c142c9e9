// The desktop program. It reads no arguments. Two environment variables serve those who run it from a script:
// QUILLON_CONFIG_DIR is the folder of the preferences file, and with QUILLON_SCREENSHOT the program saves a
// picture of its window there and ends.
#include <QApplication>
#include <QDir>
#include <QStandardPaths>

#include "core/ini_file.h"
#include "ui/desktop_program.h"
#include "ui/screenshot.h"
#include "ui/text_convert.h"

namespace {

constexpr std::string_view kSection = "Taxonomic Quillon";

QString PreferencesFile() {
    QString folder = qEnvironmentVariable("QUILLON_CONFIG_DIR");
    if (folder.isEmpty()) {
        folder =
            QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + "/taxonomic-quillon";
    }
    return QDir(folder).filePath("Qln.Ini");
}

void ReadPreferences(quillon::ApplicationState& state) {
    const auto file = quillon::IniFile::Read(quillon::ui::FromQt(PreferencesFile()));
    state.gPrefDataSet = file.Value(kSection, "DataSet").value_or("");
    state.gKingdomName = file.Value(kSection, "Kingdom").value_or("");
    state.gPrefRank = file.Value(kSection, "Rank").value_or("");
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName("taxonomic-quillon");
    quillon::ui::DesktopProgram program;
    ReadPreferences(program.State());
    program.Window().show();
    program.OpenPreferredDataSet();
    const QString picture = qEnvironmentVariable("QUILLON_SCREENSHOT");
    if (!picture.isEmpty()) return quillon::ui::SaveScreenshot(program, picture) ? 0 : 1;
    return QApplication::exec();
}
