// Converts between the program's UTF-8 and the toolkit's strings.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace quillon::ui {

inline QString ToQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string FromQt(const QString& text) {
    return text.toStdString();
}

}  // namespace quillon::ui
