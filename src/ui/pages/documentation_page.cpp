#include "ui/pages/documentation_page.h"

#include <span>

#include "ui/pages/page_parts.h"

namespace quillon::ui {

namespace {

constexpr int kShortest = 10;  // minimum width of a field in characters
constexpr int kCommentLines = 3;
constexpr int kIdCharacters = 14;

enum class Kind { Line, PickList, Text, Check, Association, Vernacular };

// A field with its label, in tab order. `column` is that of the label; the field takes the next `span`
// columns. A label that begins with "lbl" is a control.
struct Place {
    const char* label;
    const char* name;
    Kind kind;
    int row, column, span;
};

struct Layout {
    const char* title;
    const char* grid;
    std::span<const Place> places;
    int stretch[3];  // of the field columns
    const char* qbIdLabel;
    const char* qbId;
    const char* idLabel;
    const char* id;
    const char* commands[3];
};

// clang-format off
constexpr Place kPublicationPlaces[] = {
    {QT_TRANSLATE_NOOP("DocumentationPage", "A&uthor"),          "cboAuthor",        Kind::PickList,    0, 0, 1},
    {QT_TRANSLATE_NOOP("DocumentationPage", "A&ctual Date"),     "cboADate",         Kind::PickList,    0, 2, 1},
    {QT_TRANSLATE_NOOP("DocumentationPage", "&Listed Date"),     "txtLDate",         Kind::Line,        0, 4, 1},
    {QT_TRANSLATE_NOOP("DocumentationPage", "&Title"),           "cboTitle",         Kind::PickList,    1, 0, 5},
    {QT_TRANSLATE_NOOP("DocumentationPage", "&Publication"),     "cboPublication",   Kind::PickList,    2, 0, 5},
    {QT_TRANSLATE_NOOP("DocumentationPage", "Pu&blisher"),       "txtPublisher",     Kind::Line,        3, 0, 1},
    {QT_TRANSLATE_NOOP("DocumentationPage", "L&ocation"),        "txtLocation",      Kind::Line,        3, 2, 3},
    {QT_TRANSLATE_NOOP("DocumentationPage", "&ISBN"),            "txtISBN",          Kind::Line,        4, 0, 1},
    {QT_TRANSLATE_NOOP("DocumentationPage", "ISSN"),             "txtISSN",          Kind::Line,        4, 2, 1},
    {QT_TRANSLATE_NOOP("DocumentationPage", "Pages"),            "txtPages",         Kind::Line,        4, 4, 1},
    {QT_TRANSLATE_NOOP("DocumentationPage", "Comme&nts"),        "txtPubComments",   Kind::Text,        5, 0, 5},
    {"",                                                         "chkPOD",           Kind::Check,       6, 0, 1},
    {QT_TRANSLATE_NOOP("DocumentationPage", "Associated &With"), "cboVernPubSelect", Kind::Association, 7, 0, 1},
    {"lblVernPubCbo",                                            "cboVernPub",       Kind::Vernacular,  7, 2, 3},
};
constexpr Place kExpertPlaces[] = {
    {QT_TRANSLATE_NOOP("DocumentationPage", "E&xpert"),          "cboExpert",        Kind::PickList,    0, 0, 3},
    {QT_TRANSLATE_NOOP("DocumentationPage", "Comme&nts"),        "txtExpComments",   Kind::Text,        1, 0, 3},
    {QT_TRANSLATE_NOOP("DocumentationPage", "Associated &With"), "cboVernExpSelect", Kind::Association, 2, 0, 1},
    {"lblVernExpCbo",                                            "cboVernExp",       Kind::Vernacular,  2, 2, 1},
};
constexpr Place kSourcePlaces[] = {
    {QT_TRANSLATE_NOOP("DocumentationPage", "So&urce"),          "cboSource",        Kind::PickList,    0, 0, 5},
    {QT_TRANSLATE_NOOP("DocumentationPage", "Source &Type"),     "txtSourceType",    Kind::Line,        1, 0, 1},
    {QT_TRANSLATE_NOOP("DocumentationPage", "Vers&ion"),         "txtVersion",       Kind::Line,        1, 2, 1},
    {QT_TRANSLATE_NOOP("DocumentationPage", "A&quisition Date"), "txtADate",         Kind::Line,        1, 4, 1},
    {QT_TRANSLATE_NOOP("DocumentationPage", "Comme&nts"),        "txtOSComments",    Kind::Text,        2, 0, 5},
    {QT_TRANSLATE_NOOP("DocumentationPage", "Associated &With"), "cboVernSrcSelect", Kind::Association, 3, 0, 1},
    {"lblVernSrcCbo",                                            "cboVernSrc",       Kind::Vernacular,  3, 2, 3},
};
// clang-format on

constexpr Layout kPublications = {QT_TRANSLATE_NOOP("DocumentationPage", "Publications"),
                                  "grdPublications",
                                  kPublicationPlaces,
                                  {3, 2, 2},
                                  "QB PID",
                                  "txtPQBID",
                                  "PID",
                                  "txtPID",
                                  {"cmdPubAdd", "cmdPubModify", "cmdPubDelete"}};
constexpr Layout kExperts = {QT_TRANSLATE_NOOP("DocumentationPage", "Experts"),
                             "grdExperts",
                             kExpertPlaces,
                             {2, 3, 0},
                             "QB EID",
                             "txtEQBID",
                             "EID",
                             "txtEID",
                             {"cmdExpAdd", "cmdExpModify", "cmdExpDelete"}};
constexpr Layout kOtherSources = {QT_TRANSLATE_NOOP("DocumentationPage", "Other Sources"),
                                  "grdOtherSources",
                                  kSourcePlaces,
                                  {1, 1, 1},
                                  "QB OSID",
                                  "txtOSQBID",
                                  "OSID",
                                  "txtOSID",
                                  {"cmdOSAdd", "cmdOSModify", "cmdOSDelete"}};

QString Translated(const char* text) {
    return QCoreApplication::translate("DocumentationPage", text);
}

int CharacterWidth(const QWidget& widget) {
    return widget.fontMetrics().averageCharWidth();
}

// A combo box that takes the available width.
QComboBox* PickList(QWidget* parent, const char* name) {
    auto* list = Named<QComboBox>(parent, name);
    list->setEditable(true);
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMinimumContentsLength(kShortest);
    list->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    return list;
}

// Editable so that it can show a text that is not in its list, but read-only for the user.
QComboBox* VernacularPicker(QWidget* parent, const char* name) {
    QComboBox* picker = PickList(parent, name);
    picker->lineEdit()->setReadOnly(true);
    QSizePolicy policy = picker->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    picker->setSizePolicy(policy);
    return picker;
}

QWidget* FieldOf(QWidget* page, const Place& place) {
    switch (place.kind) {
        case Kind::PickList:
            return PickList(page, place.name);
        case Kind::Check:
            return Named<QCheckBox>(page, place.name);
        case Kind::Association:
            return Named<QComboBox>(page, place.name);
        case Kind::Vernacular:
            return VernacularPicker(page, place.name);
        case Kind::Text: {
            auto* box = TextBox(page, place.name);
            box->setFixedHeight(HeightOf(*box, kCommentLines));
            return box;
        }
        case Kind::Line:
            break;
    }
    auto* line = Named<QLineEdit>(page, place.name);
    line->setMinimumWidth((kShortest + 2) * CharacterWidth(*line));
    return line;
}

QLabel* LabelOf(QWidget* page, const Place& place, QWidget* field) {
    if (place.kind == Kind::Vernacular) return FieldLabel(page, place.label, field);
    auto* label = new QLabel(Translated(place.label), page);
    label->setBuddy(field);
    field->setAccessibleName(label->text().remove('&'));
    return label;
}

QGridLayout* FieldsOf(QWidget* page, const Layout& layout) {
    auto* fields = new QGridLayout;
    for (const Place& place : layout.places) {
        QWidget* field = FieldOf(page, place);
        if (place.kind != Kind::Check) {
            const auto alignment = place.kind == Kind::Text ? Qt::AlignTop : Qt::AlignVCenter;
            fields->addWidget(LabelOf(page, place, field), place.row, place.column, alignment);
        }
        fields->addWidget(field, place.row, place.column + 1, 1, place.span);
    }
    int column = 1;
    for (const int stretch : layout.stretch) {
        if (stretch > 0) fields->setColumnStretch(column, stretch);
        column += 2;
    }
    return fields;
}

// A read-only id that can be copied.
void AddId(QHBoxLayout& line, QWidget* page, const char* label, const char* name) {
    auto* id = Named<QLineEdit>(page, name);
    id->setReadOnly(true);
    id->setFocusPolicy(Qt::ClickFocus);
    id->setMaximumWidth(CharacterWidth(*id) * kIdCharacters);
    id->setAccessibleName(label);
    line.addWidget(new QLabel(label, page));
    line.addWidget(id);
}

QHBoxLayout* FootOf(QWidget* page, const Layout& layout) {
    auto* foot = new QHBoxLayout;
    AddId(*foot, page, layout.qbIdLabel, layout.qbId);
    AddId(*foot, page, layout.idLabel, layout.id);
    foot->addLayout(ButtonRow(page, {std::begin(layout.commands), std::end(layout.commands)}), 1);
    return foot;
}

// Creates widgets in tab order.
QWidget* BuildPage(QWidget* parent, const Layout& layout) {
    auto* page = new QWidget(parent);
    auto* lines = PageLayout(page);
    lines->addWidget(RowTable(page, layout.grid, Translated(layout.title)), 1);
    lines->addLayout(FieldsOf(page, layout));
    lines->addLayout(FootOf(page, layout));
    return page;
}

}  // namespace

QWidget* BuildPublicationPage(QWidget* parent) {
    return BuildPage(parent, kPublications);
}
QWidget* BuildExpertPage(QWidget* parent) {
    return BuildPage(parent, kExperts);
}
QWidget* BuildOtherSourcePage(QWidget* parent) {
    return BuildPage(parent, kOtherSources);
}

}  // namespace quillon::ui
