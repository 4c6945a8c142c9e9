#include "editor/synonym_tab.h"

#include <fmt/format.h>

#include <algorithm>

#include "core/names.h"
#include "core/vocabulary.h"
#include "documentation/association.h"
#include "editor/attempt.h"
#include "store/write_count.h"

namespace quillon::editor {

using Choice = ChoiceControl::Choice;
using Column = SynonymColumn;
using store::Recordset;
using store::RecordsetType;

namespace {

constexpr std::string_view kRanks =
    "SELECT rank_name FROM taxonomic_unit_types WHERE kingdom_id IN (SELECT kingdom_id FROM kingdoms) "
    "ORDER BY rank_id";

std::string NameOfRow(const Recordset& row) {
    const std::string name =
        BuildSciName({row["unit_ind1"], row["unit_name1"], row["unit_ind2"], row["unit_name2"],
                      row["unit_ind3"], row["unit_name3"], row["unit_ind4"], row["unit_name4"]});
    return NameAndAuthor(name, row["taxon_author"].AsText());
}

std::unique_ptr<Recordset> RowsOf(store::Database& database, std::string_view query,
                                  std::string_view parameter, int qb_id) {
    return database.OpenQueryDef(query).Set(parameter, qb_id).CreateSnapshot();
}

void SetSciName(SynonymTab& tab, const std::string& name, std::int64_t qb_id) {
    tab.cboSSciName.SetChoices({{name, qb_id}});
    tab.cboSSciName.SetListIndex(0);
}

void ClearSciName(SynonymTab& tab) {
    tab.cboSSciName.Clear();
    tab.cboSSciName.SetText("");
}

void TakeCandidate(SynonymTab& tab) {
    const int index = tab.cboSRName.ListIndex();
    if (index >= 0) SetSciName(tab, tab.cboSRName.Text(), tab.cboSRName.ItemData(index));
}

void ShowSynonymRow(SynonymTab& tab) {
    const int selected = tab.grdSynonyms.SelectedRow();
    tab.cboSRName.SetText("");
    if (!documentation::IsDataRow(tab.grdSynonyms, selected)) return ClearSciName(tab);
    const auto& row = tab.grdSynonyms.Rows()[static_cast<std::size_t>(selected)];
    SetSciName(tab, row[Column::kName], Value(row[Column::kQbId]).AsLong());
}

// The stored query ends in a rank of 0, the first "0" that it has: what stands before it goes on with the
// rank that is wanted.
std::string AcceptedNamesSql(store::Database& database, int rank_id) {
    const std::string sql = database.OpenQueryDef("Get Accepted Names").SQL();
    return fmt::format("{}{} ORDER BY t.unit_name1, t.unit_name2;", sql.substr(0, sql.find('0')), rank_id);
}

std::vector<Choice> ReadAcceptedNames(store::Database& database, int rank_id) {
    std::vector<Choice> names;
    const auto rows = database.OpenRecordset(AcceptedNamesSql(database, rank_id), RecordsetType::ForwardOnly);
    for (; !rows->Eof(); rows->MoveNext()) names.push_back({rows->At(2).AsText(), rows->At(1).AsLong()});
    return names;
}

int RankIdOf(store::Database& database, std::string_view rankName) {
    const auto rank = database.OpenQueryDef("Get Rank ID").Set("rank", rankName).CreateSnapshot();
    return rank->Eof() ? 0 : static_cast<int>(rank->At(0).AsLong());
}

void Refresh(AcceptedNames& names, const std::shared_ptr<store::Database>& database, int rank_id) {
    const std::int64_t writeCount = store::WriteCount(*database);
    if (names.database.lock() == database && names.writeCount == writeCount && names.rank_id == rank_id)
        return;
    names.names = ReadAcceptedNames(*database, rank_id);
    names.database = database;
    names.writeCount = writeCount;
    names.rank_id = rank_id;
}

std::vector<Choice> Candidates(SynonymTab& tab, const std::shared_ptr<store::Database>& database,
                               const std::string& rankName, int own) {
    const int rank_id = RankIdOf(*database, rankName);
    if (rank_id == 0) return {};
    Refresh(tab.acceptedNames, database, rank_id);
    std::vector<Choice> candidates = tab.acceptedNames.names;
    if (own != 0) std::erase_if(candidates, [own](const Choice& name) { return name.itemData == own; });
    return candidates;
}

}  // namespace

SynonymTab::SynonymTab(Form& form)
    : lblSynonyms(form, "lblSynonyms", "Synonyms"),
      grdSynonyms(
          form, "grdSynonyms",
          {{"Scientific Name / Author"}, {"Invalid Reason"}, {"ID", true}, {"TSN", true}, {"Type", true}}),
      lblSRank(form, "lblSRank", "Ran&k"),
      cboSRank(form, "cboSRank", ComboControl::Style::ListOnly),
      lblSRName(form, "lblSRName"),
      cboSRName(form, "cboSRName"),
      lblSSciName(form, "lblSSciName", "Scientific &Name"),
      cboSSciName(form, "cboSSciName"),
      cmdSAdd(form, "cmdSAdd", "&Add"),
      cmdSDelete(form, "cmdSDelete", "&Delete") {
    SetAcceptedNameCaptions(*this, "");
    lblSynonyms.SetCaption("Synonyms");
    SetSynonymFieldsEnabled(*this, false);
    for (ButtonControl* command : {&cmdSAdd, &cmdSDelete}) command->SetEnabled(false);
    cboSRName.OnEdit([this] { TakeCandidate(*this); });
    grdSynonyms.OnEdit([this] { ShowSynonymRow(*this); });
    documentation::InitGrid(grdSynonyms);
}

void ConnectSynonymTab(SynonymTab& tab, ApplicationState& state, Prompter& prompter) {
    tab.cboSRank.OnEdit([&tab, &state, &prompter] {
        tab.cboSRName.SetText("");
        FillAcceptedNameList(tab, state, prompter);
    });
}

void SetupSynonymGrid(SynonymTab& tab) {
    documentation::InitGrid(tab.grdSynonyms);
    tab.cboSRName.SetText("");
    ClearSciName(tab);
    SetSynonymFieldsEnabled(tab, false);
}

void LoadSynonyms(SynonymTab& tab, store::Database& database, int qb_id) {
    tab.lblSynonyms.SetCaption("Synonyms");
    std::vector<GridControl::Row> rows;
    const auto names = RowsOf(database, "Get Synonyms of Accepted Name", "Accepted_Id", qb_id);
    for (; !names->Eof(); names->MoveNext()) {
        rows.push_back({NameOfRow(*names), names->Get("unacceptability_reason").AsText(),
                        names->Get("qb_id").AsText(), "", "S"});
    }
    rows.emplace_back();  // the empty one
    tab.grdSynonyms.SetRows(std::move(rows));
}

void LoadAcceptedNames(SynonymTab& tab, store::Database& database, int qb_id, std::string_view kingdomName) {
    SetAcceptedNameCaptions(tab, kingdomName);
    std::vector<GridControl::Row> rows;
    const auto names = RowsOf(database, "Get Accepted Names of Synonym", "Synonym_Id", qb_id);
    for (; !names->Eof(); names->MoveNext()) {
        rows.push_back({NameOfRow(*names), "", names->Get("qb_id_accepted").AsText(),
                        names->Get("tsn_accepted").AsText(), "A"});
    }
    rows.emplace_back();  // the empty one
    tab.grdSynonyms.SetRows(std::move(rows));
    SetSynonymFieldsEnabled(tab, true);
}

void SetAcceptedNameCaptions(SynonymTab& tab, std::string_view kingdomName) {
    const KingdomFamily family = FamilyOfKingdom(kingdomName);
    tab.lblSynonyms.SetCaption(AcceptedNamesHeading(family));
    tab.lblSRName.SetCaption(AcceptedNameLabel(family));
}

void SetSynonymFieldsEnabled(SynonymTab& tab, bool enabled) {
    for (ComboControl* field : {&tab.cboSRank, &tab.cboSRName, &tab.cboSSciName}) field->SetEnabled(enabled);
}

std::string NameAndAuthor(const std::string& name, const std::string& author) {
    return author.empty() ? name : name + " " + author;
}

void FillSynonymRankList(SynonymTab& tab, store::Database& database, std::string_view rankName) {
    std::vector<Choice> ranks;
    const auto rows = database.OpenRecordset(kRanks, RecordsetType::ForwardOnly);
    for (; !rows->Eof(); rows->MoveNext()) ranks.push_back({rows->At(0).AsText(), 0});
    tab.cboSRank.SetChoices(std::move(ranks));
    tab.cboSRank.SetText(rankName);
}

void FillAcceptedNameList(SynonymTab& tab, ApplicationState& state, Prompter& prompter) {
    const auto fetch = [&tab, &state, &prompter, rank = tab.cboSRank.Text()] {
        std::vector<Choice> candidates;
        if (!state.gDatabase || rank.empty()) return candidates;
        prompter.WaitCursor(true);
        Attempt(prompter,
                [&] { candidates = Candidates(tab, state.gDatabase, rank, state.currentTaxon.qb_id); });
        prompter.WaitCursor(false);
        return candidates;
    };
    tab.cboSRName.SetChoicesLater(fetch);
}

}  // namespace quillon::editor
