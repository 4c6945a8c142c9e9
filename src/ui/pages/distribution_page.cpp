#include "ui/pages/distribution_page.h"

#include <array>

#include "ui/pages/page_parts.h"

namespace quillon::ui {

namespace {

constexpr int kColumns = 2;

constexpr std::array kRegions = {"chkNorthAmerica",    "chkMiddleAmerica", "chkCaribbean", "chkSouthAmerica",
                                 "chkEurasia",         "chkAfrica",        "chkAsia",      "chkAustralia",
                                 "chkOceaniania",      "chkAntarctica",    "chkEAtlantic", "chkWAtlantic",
                                 "chkIndoWestPacific", "chkEastPacific"};

struct Jurisdiction {
    const char* label;
    const char* list;
};
constexpr std::array<Jurisdiction, 7> kJurisdictions = {{{"lblContinentalUS", "cboContinentalUS"},
                                                         {"lblAlaska", "cboAlaska"},
                                                         {"lblHawaii", "cboHawaii"},
                                                         {"lblCenPacTerr", "cboCenPacTerr"},
                                                         {"lblCarrTerr", "cboCarrTerr"},
                                                         {"lblCanada", "cboCanada"},
                                                         {"lblMexico", "cboMexico"}}};

// The first column from top to bottom, then the second; also the tab order.
struct Place {
    int row, column;
};
Place PlaceOf(std::size_t item, std::size_t count) {
    const std::size_t rows = (count + kColumns - 1) / kColumns;
    return {static_cast<int>(item % rows), static_cast<int>(item / rows)};
}

QGroupBox* Regions(QWidget* page) {
    auto* frame = Named<QGroupBox>(page, "fraDivision");
    auto* layout = new QGridLayout(frame);
    layout->setHorizontalSpacing(24);
    layout->setColumnStretch(kColumns, 1);
    for (std::size_t i = 0; i < kRegions.size(); ++i) {
        const Place place = PlaceOf(i, kRegions.size());
        layout->addWidget(Named<QCheckBox>(frame, kRegions[i]), place.row, place.column);
    }
    return frame;
}

QGroupBox* Jurisdictions(QWidget* page) {
    auto* frame = Named<QGroupBox>(page, "fraJurisdiction");
    auto* layout = new QGridLayout(frame);
    layout->setHorizontalSpacing(12);
    layout->setColumnStretch(2 * kColumns, 1);
    for (std::size_t i = 0; i < kJurisdictions.size(); ++i) {
        const Place place = PlaceOf(i, kJurisdictions.size());
        auto* origin = Named<QComboBox>(frame, kJurisdictions[i].list);
        layout->addWidget(FieldLabel(frame, kJurisdictions[i].label, origin), place.row, 2 * place.column);
        layout->addWidget(origin, place.row, 2 * place.column + 1);
    }
    return frame;
}

}  // namespace

QWidget* BuildDistributionPage(QWidget* parent) {
    auto* page = new QWidget(parent);
    auto* layout = PageLayout(page);
    layout->addWidget(Regions(page));
    layout->addWidget(Jurisdictions(page));
    layout->addStretch();
    return page;
}

}  // namespace quillon::ui
