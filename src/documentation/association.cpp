#include "documentation/association.h"

#include <fmt/format.h>

#include <limits>

#include "core/names.h"
#include "store/engine.h"

namespace quillon::documentation {

using store::Recordset;
using store::StoreError;

namespace {

// What stands for the language of a vernacular that is gone.
constexpr std::string_view kUnspecified = "unspecified";

constexpr std::string_view kLanguage =
    "PARAMETERS vernacular Long; SELECT language FROM qb_vernaculars WHERE qb_vern_id = vernacular;";

// Shows that the program is at work, as long as it lives.
class Waiting {
public:
    explicit Waiting(Prompter& prompter) : prompter_(prompter) { prompter_.WaitCursor(true); }
    ~Waiting() { prompter_.WaitCursor(false); }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

private:
    Prompter& prompter_;
};

void ShowPicker(const Association& association) {
    const bool shown = association.words.Text() != kScientificName;
    association.picker.SetVisible(shown);
    association.label.SetVisible(shown);
}

std::int16_t ShortOf(const Recordset& row, std::string_view column) {
    const std::int64_t value = row[column].AsLong();
    using Limits = std::numeric_limits<std::int16_t>;
    if (value < Limits::min() || value > Limits::max())
        throw StoreError(store::ErrorNumber::NumericOverflow, fmt::format("Overflow: {} {}", column, value));
    return static_cast<std::int16_t>(value);
}

std::string LanguageOf(store::Database& database, int qb_vern_id) {
    const auto row = database.CreateQueryDef("", kLanguage).Set("vernacular", qb_vern_id).CreateSnapshot();
    return row->Eof() ? std::string(kUnspecified) : row->Get("language").AsText();
}

DocRow DocRowOf(store::Database& database, const DocLoad& load, const Recordset& row) {
    DocRow result;
    result.prefix = load.prefix;
    result.qbDocumentId = ShortOf(row, load.qbIdColumn);
    result.documentId = ShortOf(row, load.idColumn);
    result.qb_change_track_id = static_cast<std::int32_t>(row["qb_change_track_id"].AsLong());
    result.qb_vern_id = static_cast<std::int32_t>(row["qb_vern_id"].AsLong());
    const bool vernacular = row["assoc"].AsText() == kVernacular;
    result.association = vernacular ? kVernacular : kScientificName;
    result.vernacular_name = row["vernacular_name"].AsText();
    if (vernacular) result.language = LanguageOf(database, result.qb_vern_id);
    return result;
}

// The composed name of the taxon under edit, as the grids show it.
std::string ScientificName(const CurrentTaxon& taxon) {
    EditedName name;
    name.unit_ind1 = taxon.unit_ind1;
    name.unit_name1 = taxon.unit_name1;
    name.unit_ind2 = taxon.unit_ind2;
    name.unit_name2 = taxon.unit_name2;
    name.unit_ind3 = taxon.unit_ind3;
    name.unit_name3 = taxon.unit_name3;
    name.unit_ind4 = taxon.unit_ind4;
    name.unit_name4 = taxon.unit_name4;
    return CurrentTaxonName(name);
}

}  // namespace

void SetUp(const Association& association) {
    for (const std::string_view word : {kScientificName, kVernacular, kBoth}) association.words.AddItem(word);
    association.words.OnEdit([association] { ShowPicker(association); });
    Show(association, kScientificName, {});
}

void Show(const Association& association, std::string_view word, std::string_view vernacular) {
    association.words.SetText(word);
    association.picker.SetText(word == kScientificName ? std::string_view() : vernacular);
    ShowPicker(association);
}

std::string DocRow::Name(std::string_view scientificName) const {
    if (association == kScientificName) return std::string(scientificName);
    return fmt::format("{} [{}]", vernacular_name, language);
}

void LoadGrid(GridControl& grid, ApplicationState& state, Prompter& prompter, const DocLoad& load,
              int qb_id) {
    InitGrid(grid);
    if (!state.gDatabase) return;
    const std::string scientificName = ScientificName(state.currentTaxon);
    try {
        const auto rows =
            state.gDatabase->CreateQueryDef("", load.select).Set("taxon", qb_id).CreateSnapshot();
        for (; !rows->Eof(); rows->MoveNext()) {
            const DocRow doc = DocRowOf(*state.gDatabase, load, *rows);
            AddDataRow(grid, load.gridRow(doc, *rows, scientificName));
        }
    } catch (const StoreError& error) {
        InitGrid(grid);
        prompter.Message("Failed " + error.Description());
    }
    grid.SetSelectedRow(0);
}

std::vector<ChoiceControl::Choice> ReadChoices(const ApplicationState& state, Prompter& prompter,
                                               std::string_view select, bool skipNull) {
    std::vector<ChoiceControl::Choice> choices;
    if (!state.gDatabase) return choices;
    const Waiting waiting(prompter);
    try {
        const auto rows = state.gDatabase->OpenRecordset(select, store::RecordsetType::ForwardOnly);
        for (; !rows->Eof(); rows->MoveNext()) {
            const Value value = rows->At(0);
            if (!skipNull || !value.IsNull()) choices.push_back({value.AsText(), 0});
        }
    } catch (const StoreError& error) {
        choices.clear();
        prompter.Message("Failed " + error.Description());
    }
    return choices;
}

void InitGrid(GridControl& grid) {
    grid.SetRows({GridControl::Row()});
}

void AddDataRow(GridControl& grid, GridControl::Row row) {
    grid.RemoveRow(grid.Rows().size() - 1);
    grid.AddRow(std::move(row));
    grid.AddRow({});
}

bool IsDataRow(const GridControl& grid, int row) {
    return row >= 0 && static_cast<std::size_t>(row) + 1 < grid.Rows().size();
}

}  // namespace quillon::documentation
