// The desktop program. It reads no arguments. Scripts can set three environment variables: QUILLON_CONFIG_DIR
// is the folder of the preferences file, QUILLON_DATA_DIR that of logs and work files, and with
// QUILLON_SCREENSHOT the program saves a picture of its window to that path and ends.
#include <signal.h>

#include <QDir>

#include "startup/places.h"
#include "ui/application.h"
#include "ui/desktop_program.h"
#include "ui/guard.h"
#include "ui/screenshot.h"
#include "ui/text_convert.h"

namespace {

constexpr int kFailed = 3;

std::string Variable(const char* name) {
    return quillon::ui::FromQt(qEnvironmentVariable(name));
}

// Resolved before the start, which changes the current directory.
QString PicturePath() {
    const QString path = qEnvironmentVariable("QUILLON_SCREENSHOT");
    return path.isEmpty() ? path : QDir::current().absoluteFilePath(path);
}

int Run() {
    const QString picture = PicturePath();
    const auto places = quillon::startup::PlacesOf(Variable);
    quillon::ui::DesktopProgram program(nullptr, places.dataFolder, places.preferencesFile);
    program.EndOnSignals();
    if (!program.Start()) return 0;
    if (!picture.isEmpty()) return quillon::ui::SaveScreenshot(program, picture) ? 0 : 1;
    return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
    // So that a write beyond the file size limit, or to a pipe that nobody reads, fails and is reported.
    signal(SIGXFSZ, SIG_IGN);
    signal(SIGPIPE, SIG_IGN);
    quillon::ui::Application application(argc, argv);
    QApplication::setApplicationName("taxonomic-quillon");
    int status = kFailed;
    quillon::ui::Guard([&] { status = Run(); });
    return status;
}
