// The captions of widgets without the marks of their access keys.
#pragma once

#include <QString>

namespace quillon::ui {

inline std::string Plain(QString text) {
    return text.remove('&').toStdString();
}

}  // namespace quillon::ui
