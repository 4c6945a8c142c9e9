// The looks of a page of the manual: air between the lines, tables with rules, in the colours of the palette.
#pragma once

class QPalette;
class QTextDocument;

namespace quillon::ui {

// Changes formats only; every character stays where it is.
void StylePage(QTextDocument& page, const QPalette& palette);

}  // namespace quillon::ui
