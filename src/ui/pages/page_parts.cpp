#include "ui/pages/page_parts.h"

namespace quillon::ui {

namespace {

constexpr int kLeastRows = 6;
constexpr int kMargin = 12;

// Shows a text of several lines on one line, and the whole text in a tool tip.
class OneLine : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QString displayText(const QVariant& value, const QLocale&) const override {
        return value.toString().simplified();
    }
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override {
        const QString text = index.data().toString();
        const bool fits = option.fontMetrics.horizontalAdvance(text) < option.rect.width();
        if (event->type() != QEvent::ToolTip || fits)
            return QStyledItemDelegate::helpEvent(event, view, option, index);
        QToolTip::showText(event->globalPos(), "<p>" + text.toHtmlEscaped().replace('\n', "<br>") + "</p>",
                           view);
        return true;
    }
};

}  // namespace

QLabel* FieldLabel(QWidget* parent, const char* name, QWidget* field) {
    auto* label = Named<QLabel>(parent, name);
    label->setBuddy(field);
    return label;
}

QTableWidget* RowTable(QWidget* parent, const char* name, const QString& accessibleName) {
    auto* table = Named<QTableWidget>(parent, name);
    table->setAccessibleName(accessibleName);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setTabKeyNavigation(false);  // Tab moves on to the fields
    table->setWordWrap(false);
    table->setAlternatingRowColors(true);
    table->setItemDelegate(new OneLine(table));
    table->verticalHeader()->hide();
    const int line = table->fontMetrics().height();
    table->verticalHeader()->setDefaultSectionSize(line + line / 2);
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignCenter);
    table->horizontalHeader()->setHighlightSections(false);
    table->horizontalHeader()->setStretchLastSection(true);
    table->setMinimumHeight((line + line / 2) * (kLeastRows + 1));
    return table;
}

QVBoxLayout* PageLayout(QWidget* page) {
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kMargin);
    return layout;
}

QGridLayout* FieldLayout() {
    auto* layout = new QGridLayout;
    layout->setHorizontalSpacing(kMargin);
    layout->setColumnStretch(1, 1);
    return layout;
}

QPlainTextEdit* TextBox(QWidget* parent, const char* name) {
    auto* box = Named<QPlainTextEdit>(parent, name);
    box->setTabChangesFocus(true);
    return box;
}

int HeightOf(const QPlainTextEdit& box, int lines) {
    const int frame = 2 * box.frameWidth() + static_cast<int>(2 * box.document()->documentMargin());
    return box.fontMetrics().lineSpacing() * lines + frame;
}

QHBoxLayout* ButtonRow(QWidget* parent, const std::vector<const char*>& names) {
    auto* layout = new QHBoxLayout;
    layout->addStretch();
    for (const char* name : names) layout->addWidget(Named<QPushButton>(parent, name));
    return layout;
}

}  // namespace quillon::ui
