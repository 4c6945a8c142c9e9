#include "ui/icons.h"

// The icons are in a static library, whose resources are not linked by default. The macro must be outside any
// namespace.
static void TakeInIcons() {
    Q_INIT_RESOURCE(icons);
}

namespace quillon::ui {

QIcon Icon(const QString& name) {
    TakeInIcons();
    return QIcon(QString(":/icons/%1.svg").arg(name));
}

}  // namespace quillon::ui
