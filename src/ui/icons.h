// The program's own icons, drawn in colours that read on light and dark alike.
#pragma once

#include <QIcon>

namespace quillon::ui {

// By the name of the file under icons/, without its ending.
QIcon Icon(const QString& name);

}  // namespace quillon::ui
