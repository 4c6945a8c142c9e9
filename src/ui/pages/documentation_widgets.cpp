#include "ui/pages/documentation_widgets.h"

namespace quillon::ui::documentation_page {

namespace {

constexpr int kShortest = 10;  // characters that a field is wide at least
constexpr int kCommentLines = 3;
constexpr int kIdCharacters = 7;

int CharacterWidth(const QWidget& widget) {
    return widget.fontMetrics().averageCharWidth();
}

}  // namespace

QLineEdit* IdLine(QWidget* parent, const char* name) {
    auto* line = Named<QLineEdit>(parent, name);
    line->setReadOnly(true);
    line->setFocusPolicy(Qt::ClickFocus);
    line->setMaximumWidth(CharacterWidth(*line) * kIdCharacters * 2);
    return line;
}

QComboBox* PickList(QWidget* parent, const char* name) {
    auto* list = Named<QComboBox>(parent, name);
    list->setEditable(true);
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMinimumContentsLength(kShortest);
    list->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    return list;
}

QPlainTextEdit* CommentBox(QWidget* parent, const char* name) {
    auto* box = Named<QPlainTextEdit>(parent, name);
    box->setTabChangesFocus(true);
    const int frame = 2 * box->frameWidth() + static_cast<int>(2 * box->document()->documentMargin());
    box->setFixedHeight(box->fontMetrics().lineSpacing() * kCommentLines + frame);
    return box;
}

QComboBox* VernacularPicker(QWidget* parent, const char* name) {
    QComboBox* picker = PickList(parent, name);
    picker->lineEdit()->setReadOnly(true);
    QSizePolicy policy = picker->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    picker->setSizePolicy(policy);
    return picker;
}

void AddField(QGridLayout& layout, int row, int column, const QString& label, QWidget* field, int span) {
    auto* caption = new QLabel(label, field->parentWidget());
    caption->setBuddy(field);
    if (field->accessibleName().isEmpty()) field->setAccessibleName(QString(label).remove('&'));
    if (qobject_cast<QLineEdit*>(field)) field->setMinimumWidth((kShortest + 2) * CharacterWidth(*field));
    const auto alignment = qobject_cast<QPlainTextEdit*>(field) ? Qt::AlignTop : Qt::AlignVCenter;
    layout.addWidget(caption, row, column, alignment);
    layout.addWidget(field, row, column + 1, 1, span);
}

QHBoxLayout* Foot(QWidget* parent, std::initializer_list<std::pair<QString, QLineEdit*>> ids,
                  std::initializer_list<const char*> buttons) {
    auto* layout = new QHBoxLayout;
    for (const auto& [label, line] : ids) {
        line->setAccessibleName(label);
        layout->addWidget(new QLabel(label, parent));
        layout->addWidget(line);
    }
    layout->addLayout(ButtonRow(parent, buttons), 1);
    return layout;
}

void SetTabOrder(const QWidget& page, std::initializer_list<const char*> names) {
    QWidget* before = nullptr;
    for (const char* name : names) {
        auto* widget = page.findChild<QWidget*>(name);
        if (before != nullptr) QWidget::setTabOrder(before, widget);
        before = widget;
    }
}

}  // namespace quillon::ui::documentation_page
