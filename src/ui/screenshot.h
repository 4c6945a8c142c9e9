// A picture of the main window with names in it, for those who run the program without a screen.
#pragma once

#include <QString>

namespace quillon::ui {

class DesktopProgram;

// Opens the first levels of the tree, chooses the first taxon of a genus or below, and saves what the window
// shows as a PNG. False when the file cannot be written.
bool SaveScreenshot(DesktopProgram& program, const QString& path);

}  // namespace quillon::ui
