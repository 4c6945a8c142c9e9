// The icons of the program, in colours that work on light and dark backgrounds.
#pragma once

#include <QIcon>

namespace quillon::ui {

// By the name of the file under icons/, without its ending.
QIcon Icon(const QString& name);

}  // namespace quillon::ui
