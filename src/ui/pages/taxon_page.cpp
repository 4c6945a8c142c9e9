#include "ui/pages/taxon_page.h"

#include "ui/pages/page_parts.h"

namespace quillon::ui {

namespace {

constexpr int kAuthorCharacters = 36;
constexpr int kRankCharacters = 14;
constexpr int kNameCharacters = 24;
constexpr int kNumberCharacters = 9;

// Creates widgets in tab order.
class TaxonPage {
public:
    explicit TaxonPage(QWidget* parent) : page_(new QWidget(parent)) {
        auto* layout = PageLayout(page_);
        fields_ = FieldLayout();
        layout->addLayout(fields_);
        AddHead();
        AddNames();
        AddParent();
        AddUsage();
        AddRatings();
        layout->addStretch(1);
    }
    QWidget* Page() const { return page_; }

private:
    // A line with its label in the first column, the fields in the second and marks in the third.
    void AddRow(const char* label, QWidget* field, QLayout* line, QLayout* marks = nullptr) {
        const int row = row_++;
        fields_->addWidget(FieldLabel(page_, label, field), row, 0, Qt::AlignRight | Qt::AlignVCenter);
        fields_->addLayout(line, row, 1);
        if (marks != nullptr) fields_->addLayout(marks, row, 2);
    }
    static QHBoxLayout* Line(std::initializer_list<QWidget*> widgets) {
        auto* line = new QHBoxLayout;
        for (QWidget* widget : widgets) line->addWidget(widget);
        return line;
    }
    QComboBox* Combo(const char* name, int characters) {
        auto* combo = Named<QComboBox>(page_, name);
        combo->setMinimumContentsLength(characters);
        combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        return combo;
    }
    QComboBox* WideCombo(const char* name, int characters) {
        auto* combo = Combo(name, characters);
        combo->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        return combo;
    }
    QLineEdit* Edit(const char* name, int characters) {
        auto* edit = Named<QLineEdit>(page_, name);
        edit->setMinimumWidth(edit->fontMetrics().averageCharWidth() * characters);
        return edit;
    }
    // A read-only field of fixed width.
    QLineEdit* Reading(const char* name, int characters) {
        auto* edit = Named<QLineEdit>(page_, name);
        edit->setFixedWidth(edit->fontMetrics().averageCharWidth() * (characters + 3));
        edit->setFocusPolicy(Qt::ClickFocus);
        return edit;
    }
    static void Name(QWidget* widget, const QString& accessibleName) {
        widget->setAccessibleName(accessibleName);
        if (qobject_cast<QAbstractButton*>(widget) != nullptr) widget->setToolTip(accessibleName);
    }

    void AddHead() {
        auto* rank = Combo("cboRank", kRankCharacters);
        auto* kingdom = Reading("txtKingdom", 11);
        auto* tsn = Reading("txtTSN", kNumberCharacters);
        auto* line = Line({rank});
        line->addStretch(1);
        line->addWidget(FieldLabel(page_, "lblKingdom", kingdom));
        line->addWidget(kingdom);
        line->addSpacing(12);
        line->addWidget(FieldLabel(page_, "lblTSN", tsn));
        line->addWidget(tsn);
        AddRow("lblRank", rank, line, Line({Named<QLabel>(page_, "lblHybrid")}));
    }

    void AddNames() {
        auto* genus = WideCombo("cboName1", kNameCharacters);
        auto* uninomial = Edit("txtName1", kNameCharacters);
        auto* hybrid1 = Named<QCheckBox>(page_, "chkHybrid1");
        AddRow("lblName1", genus, Line({genus, uninomial}), Line({hybrid1}));
        auto* species = WideCombo("cboName2", kNameCharacters);
        auto* epithet = Edit("txtName2", kNameCharacters);
        auto* paren = Named<QPushButton>(page_, "cmdParen");
        auto* hybrid2 = Named<QCheckBox>(page_, "chkHybrid2");
        auto* hybrid3 = Named<QCheckBox>(page_, "chkHybrid3");
        AddRow("lblName2", species, Line({species, epithet, paren}), Line({hybrid2, hybrid3}));
        auto* thirdRank = Combo("cboName3Rank", kRankCharacters);
        auto* third = Edit("txtName3", kNameCharacters);
        AddRow("lblName3", third, Line({thirdRank, third}));
        auto* fourth = Edit("txtName4", kNameCharacters);
        auto* quadrinomial = Named<QCheckBox>(page_, "chkQuad");
        AddRow("lblName4", fourth, Line({fourth}), Line({quadrinomial}));
        auto* unnamed = Named<QCheckBox>(page_, "chkUnnamed");
        AddRow("lblUnnamed", unnamed, Line({unnamed}));
        auto* author = WideCombo("cboAuth", kAuthorCharacters);
        AddRow("lblAuth", author, Line({author}));
        auto* hybridAuthor = WideCombo("cboAuth2", kAuthorCharacters);
        AddRow("lblHybridAuthority", hybridAuthor, Line({hybridAuthor}));
        uninomial->setProperty(kCalledBy, "lblName1");
        epithet->setProperty(kCalledBy, "lblName2");
        // Hidden until the rank sets their labels.
        for (QWidget* name : std::initializer_list<QWidget*>{genus, uninomial})
            Name(name, QObject::tr("First Name"));
        for (QWidget* name : std::initializer_list<QWidget*>{species, epithet})
            Name(name, QObject::tr("Second Name"));
        Name(third, QObject::tr("Third Name"));
        Name(thirdRank, QObject::tr("Rank of the Third Name"));
        Name(fourth, QObject::tr("Fourth Name"));
        Name(paren, QObject::tr("Put the Name in Parentheses"));
        Name(hybrid1, QObject::tr("Hybrid of the First Name"));
        Name(hybrid2, QObject::tr("Hybrid of the Second Name"));
        Name(hybrid3, QObject::tr("Hybrid Formula"));
        Name(unnamed, QObject::tr("Unnamed Taxon"));
        Name(hybridAuthor, QObject::tr("Hybrid Author"));
    }

    void AddParent() {
        auto* rank = Combo("cboDPRank", kRankCharacters);
        auto* rankLine = Line({rank});
        rankLine->addStretch(1);
        AddRow("lblDPRank", rank, rankLine);
        auto* parent = WideCombo("cboParentName", kAuthorCharacters);
        AddRow("lblParentName", parent, Line({parent}), Line({Named<QCheckBox>(page_, "chkParentUn")}));
    }

    void AddUsage() {
        auto* usage = Named<QGroupBox>(page_, "fraUsage");
        auto* layout = new QHBoxLayout(usage);
        layout->addWidget(Named<QRadioButton>(usage, "optValid"));
        layout->addWidget(Named<QRadioButton>(usage, "optInvalid"));
        layout->addSpacing(12);
        auto* reason = WideCombo("cboInvalidReason", kNameCharacters);
        layout->addWidget(FieldLabel(usage, "lblInvalidReason", reason));
        layout->addWidget(reason, 1);
        fields_->addWidget(usage, row_++, 0, 1, 3);
    }

    void AddRatings() {
        auto* credibility = WideCombo("cboCredibility", kNameCharacters);
        AddRow("lblCredible", credibility, Line({credibility}));
        auto* coverage = Combo("cboCoverage", kRankCharacters);
        auto* currency = Edit("txtCurrency", kNumberCharacters);
        currency->setMaximumWidth(currency->minimumWidth() * 2);
        auto* line = Line({coverage});
        line->addSpacing(12);
        line->addWidget(FieldLabel(page_, "lblCurrency", currency));
        line->addWidget(currency);
        line->addStretch(1);
        AddRow("lblComplete", coverage, line);
    }

    QWidget* page_;
    QGridLayout* fields_ = nullptr;
    int row_ = 0;
};

}  // namespace

QWidget* BuildTaxonPage(QWidget* parent) {
    return TaxonPage(parent).Page();
}

}  // namespace quillon::ui
