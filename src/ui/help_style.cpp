#include "ui/help_style.h"

#include <QPalette>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>

namespace quillon::ui {

namespace {

constexpr qreal kMargin = 20;
constexpr qreal kCellPadding = 5;
constexpr qreal kLineHeight = 125;  // per cent
constexpr qreal kAir = 8;

// A rule that is visible in light and dark palettes.
QColor RuleColour(const QPalette& palette) {
    const QColor base = palette.color(QPalette::Base), text = palette.color(QPalette::Text);
    const auto mixed = [](int from, int to) { return from + (to - from) / 4; };
    return {mixed(base.red(), text.red()), mixed(base.green(), text.green()),
            mixed(base.blue(), text.blue())};
}

void StyleBlock(const QTextBlock& block) {
    QTextBlockFormat format;
    format.setLineHeight(kLineHeight, QTextBlockFormat::ProportionalHeight);
    const int level = block.blockFormat().headingLevel();
    if (level > 0) {
        format.setTopMargin(level == 1 ? 0 : 2 * kAir);
        format.setBottomMargin(kAir);
    }
    QTextCursor(block).mergeBlockFormat(format);
}

void StyleHeadings(QTextTable& table, const QPalette& palette) {
    for (int column = 0; column < table.columns(); ++column) {
        QTextTableCell cell = table.cellAt(0, column);
        QTextCharFormat format = cell.format();
        format.setBackground(palette.alternateBase());
        cell.setFormat(format);
        QTextCharFormat bold;
        bold.setFontWeight(QFont::Bold);
        QTextCursor cursor = cell.firstCursorPosition();
        cursor.setPosition(cell.lastCursorPosition().position(), QTextCursor::KeepAnchor);
        cursor.mergeCharFormat(bold);
    }
}

void StyleTable(QTextTable& table, const QPalette& palette) {
    QTextTableFormat format = table.format();
    format.setCellPadding(kCellPadding);
    format.setCellSpacing(0);
    format.setBorder(1);
    format.setBorderCollapse(true);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderBrush(RuleColour(palette));
    format.setTopMargin(kAir);
    format.setBottomMargin(kAir);
    table.setFormat(format);
    StyleHeadings(table, palette);
}

}  // namespace

void StylePage(QTextDocument& page, const QPalette& palette) {
    page.setDocumentMargin(kMargin);
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) StyleBlock(block);
    for (QTextFrame* frame : page.rootFrame()->childFrames())
        if (auto* table = qobject_cast<QTextTable*>(frame)) StyleTable(*table, palette);
}

}  // namespace quillon::ui
