#include "ui/icons.h"

// The icons stand in a static library, where nobody takes them in unasked. The macro must stand outside any
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
