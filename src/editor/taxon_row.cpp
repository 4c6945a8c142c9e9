#include "editor/taxon_row.h"

#include "core/text.h"
#include "core/vocabulary.h"
#include "store/engine.h"

namespace quillon::editor {

namespace {

std::string ThirdIndicator(const TaxonTab& tab) {
    const std::string& rank = tab.cboName3Rank.Visible() ? tab.cboName3Rank.Text() : tab.cboRank.Text();
    return std::string(GetIndicatorFromRank(UpperCase(Trim(rank))));
}

std::string FourthIndicator(const TaxonTab& tab) {
    return std::string(GetIndicatorFromRank(UpperCase(Trim(tab.cboRank.Text()))));
}

bool IsZoological(const TaxonTab& tab) {
    const std::string kingdom(Trim(tab.txtKingdom.Text()));
    return KingdomIndex(kingdom) != 0 && FamilyOfKingdom(kingdom) == KingdomFamily::Animal;
}

// The first two units, which are the same in both queries.
NameUnits FirstUnits(const TaxonTab& tab) {
    NameUnits units;
    units.ind1 = tab.chkHybrid1.Value() ? "X" : "";
    units.name1 = tab.EnteredUnit(1);
    units.ind2 = tab.chkHybrid2.Value() ? "X" : "";
    units.name2 = tab.EnteredUnit(2);
    return units;
}

std::string_view UsageOf(const TaxonTab& tab, int kingdom_id) {
    const KingdomFamily family = IsBotanical(kingdom_id) ? KingdomFamily::Plant : KingdomFamily::Animal;
    if (tab.optValid.Value()) return AcceptedUsage(family);
    if (tab.optInvalid.Value()) return RejectedUsage(family);
    return "";
}

std::string_view UnnamedOf(const TaxonTab& tab) {
    return tab.chkUnnamed.Value() ? "Yes" : "No";
}

}  // namespace

bool IsBotanical(int kingdom_id) {
    return kingdom_id == 3 || kingdom_id == 4 || kingdom_id == 6;
}

NameUnits UnitsToInsert(const TaxonTab& tab) {
    NameUnits units = FirstUnits(tab);
    const std::string third = tab.EnteredUnit(3), fourth = tab.EnteredUnit(4);
    if (!third.empty()) {
        units.name3 = third;
        if (tab.chkHybrid3.Value())
            units.ind3 = "X";
        else if (!IsZoological(tab))
            units.ind3 = ThirdIndicator(tab);
    }
    if (fourth.empty()) return units;
    if (EqualText(tab.cboRank.Text(), "Species")) {
        units.name4 = fourth;
    } else if (!third.empty()) {
        units.ind4 = FourthIndicator(tab);
        units.name4 = fourth;
    } else {
        units.ind3 = FourthIndicator(tab);
        units.name3 = fourth;
    }
    return units;
}

NameUnits UnitsToUpdate(const TaxonTab& tab) {
    NameUnits units = FirstUnits(tab);
    const std::string third = tab.EnteredUnit(3), fourth = tab.EnteredUnit(4);
    if (tab.chkHybrid3.Value()) {
        units.ind3 = "X";
        units.name3 = third;
    } else if (!third.empty()) {
        const bool isPlainVariety = EqualText(tab.cboRank.Text(), "Variety") && fourth.empty();
        if (isPlainVariety || !IsZoological(tab)) units.ind3 = ThirdIndicator(tab);
        units.name3 = third;
    }
    if (fourth.empty()) return units;
    if (!third.empty()) {
        units.ind4 = FourthIndicator(tab);
        units.name4 = fourth;
    } else {
        units.ind3 = FourthIndicator(tab);
        units.name3 = fourth;
    }
    return units;
}

void BindTaxon(store::QueryDef& query, const TaxonTab& tab, const CurrentTaxon& taxon,
               const NameUnits& units) {
    const auto text = [&](std::string_view parameter, std::string_view value) {
        query.Set(parameter, Value::TextOrNull(value));
    };
    text("ind1", units.ind1);
    text("name1", units.name1);
    text("ind2", units.ind2);
    text("name2", units.name2);
    text("ind3", units.ind3);
    text("name3", units.name3);
    text("ind4", units.ind4);
    text("name4", units.name4);
    text("reason", tab.optInvalid.Value() ? tab.cboInvalidReason.Text() : "");
    text("credibility", tab.cboCredibility.Text());
    text("coverage", tab.cboCoverage.Text());
    text("current", tab.txtCurrency.Text());
    query.Set("parenttsn", Value::IdOrNull(taxon.parent_tsn))
        .Set("parent", Value::IdOrNull(taxon.parent_qb_id));
    query.Set("author", Value::IdOrNull(taxon.qb_taxon_author_id))
        .Set("hybrid", Value::IdOrNull(taxon.hybrid_author_id));
    query.Set("kingdom", taxon.kingdom_id).Set("rank", taxon.rank_id);
}

store::QueryDef InsertTaxon(store::Database& database, const TaxonTab& tab, const CurrentTaxon& taxon) {
    store::QueryDef query = database.OpenQueryDef("Insert Taxon Data");
    BindTaxon(query, tab, taxon, UnitsToInsert(tab));
    query.Set("thetsn", Value()).Set("phylo", Value()).Set("ts", Value());
    query.Set("unnamed", UnnamedOf(tab));
    query.Set("usage", Value::TextOrNull(UsageOf(tab, taxon.kingdom_id)));
    query.Set("uncertain_parent_ind", tab.chkParentUn.Value() ? "-1" : "0");
    return query;
}

store::QueryDef UpdateTaxon(store::Database& database, const TaxonTab& tab, const CurrentTaxon& taxon) {
    store::QueryDef query = database.OpenQueryDef("Update Taxon Data");
    BindTaxon(query, tab, taxon, UnitsToUpdate(tab));
    query.Set("qbid", taxon.qb_id).Set("thetsn", Value::IdOrNull(taxon.tsn));
    query.Set("phylo", Value::IdOrNull(taxon.phylo_sort_sequence)).Set("ts", taxon.initial_time_stamp);
    query.Set("unnamed", IsBotanical(taxon.kingdom_id) ? Value(UnnamedOf(tab)) : Value());
    query.Set("use", Value::TextOrNull(UsageOf(tab, taxon.kingdom_id)));
    query.Set("uncert_ind", tab.chkParentUn.Value() ? "-1" : "0");
    return query;
}

}  // namespace quillon::editor
