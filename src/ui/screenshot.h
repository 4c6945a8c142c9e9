// Saves a picture of the main window, for running the program without a screen.
#pragma once

#include <QString>

namespace quillon::ui {

class DesktopProgram;

// Expands the first levels of the tree, selects the first taxon of a genus or below, and saves the window as
// a PNG. False when the file cannot be written.
bool SaveScreenshot(DesktopProgram& program, const QString& path);

}  // namespace quillon::ui
