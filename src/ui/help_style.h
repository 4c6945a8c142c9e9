// Formats a page of the manual: line spacing, tables with rules, the colours of the palette.
#pragma once

class QPalette;
class QTextDocument;

namespace quillon::ui {

// Changes formats only; every character stays where it is.
void StylePage(QTextDocument& page, const QPalette& palette);

}  // namespace quillon::ui
