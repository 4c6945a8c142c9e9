#include "export/name_list.h"

#include <fmt/format.h>

#include <array>
#include <map>
#include <string>

#include "selection/record_filter.h"
#include "selection/selected_rows.h"

namespace quillon::exporting {

namespace {

using store::RowStream;

constexpr FieldLayout kListFields[] = {
    {"name", FieldForm::Text}, {"author", FieldForm::Text}, {"rank", FieldForm::Text}};
const std::array<RecordLayout, 3> kLists = {{
    {exchange::RecordKind::Taxon, "", "qb_taxonomic_units", std::span<const FieldLayout>(kListFields, 1),
     false},
    {exchange::RecordKind::Taxon, "", "qb_taxonomic_units", std::span<const FieldLayout>(kListFields, 2),
     false},
    {exchange::RecordKind::Taxon, "", "qb_taxonomic_units", std::span<const FieldLayout>(kListFields, 3),
     false},
}};
constexpr std::array<std::string_view, 3> kHeaders = {"name", "name|author", "name|author|rank"};

std::size_t PlaceOf(ListType type) {
    return static_cast<std::size_t>(type) - 1;
}

constexpr std::size_t kUnits = 8, kAuthor = 9, kRank = 10;  // indexes of the columns after qb_id

constexpr std::string_view kColumns =
    "qb_id, unit_ind1, unit_name1, unit_ind2, unit_name2, unit_ind3, unit_name3, unit_ind4, unit_name4, "
    "qb_taxon_author_id, rank_id";

int CountTaxa(store::Database& database, const selection::SelectedTaxa& taxa) {
    if (!taxa.All()) return static_cast<int>(taxa.Ids().Count());
    RowStream count(database,
                    selection::BuildValidationSelect("qb_taxonomic_units", selection::kNoFilter, true));
    return count.Next() ? static_cast<int>(count.Long(0)) : 0;
}

// The authors' texts, concatenated to save memory.
class AuthorNames {
public:
    explicit AuthorNames(ExportTools& tools) : starts_(1) {
        RowStream rows(tools.database, "qb_taxon_authors_lookup", {"qb_taxon_author_id", "taxon_author"});
        while (rows.Next() && tools.turns.Next()) {
            texts_ += rows.Text(1);
            places_.Add(static_cast<std::int32_t>(rows.Long(0)), static_cast<std::int32_t>(starts_.size()));
            starts_.push_back(texts_.size());
        }
    }
    // Empty for an unknown author.
    std::string_view Find(std::int32_t authorId) const {
        const auto place = static_cast<std::size_t>(places_.Find(authorId));
        if (place == 0) return {};
        return std::string_view(texts_).substr(starts_[place - 1], starts_[place] - starts_[place - 1]);
    }

private:
    std::string texts_;
    std::vector<std::size_t> starts_;
    selection::IdMap places_;  // from 1
};

// The first name of each rank, in the order of the table's key.
std::map<std::int64_t, std::string> RankNames(store::Database& database) {
    std::map<std::int64_t, std::string> names;
    RowStream rows(database, "taxonomic_unit_types", {"rank_id", "rank_name"});
    while (rows.Next()) names.emplace(rows.Long(0), rows.Text(1));
    return names;
}

void BuildName(const RowStream& row, std::string& name) {
    name.clear();
    if (!row.Text(1).empty()) name.append(row.Text(1)) += ' ';
    name += row.Text(2);
    for (std::size_t unit = 3; unit <= kUnits; ++unit)
        if (!row.Text(unit).empty()) (name += ' ') += row.Text(unit);
}

// Writes a line for each row.
class ListLines {
public:
    ListLines(ExportTools& tools, ListType type)
        : tools_(tools),
          type_(type),
          layout_(kLists[PlaceOf(type)]),
          authors_(tools),
          ranks_(RankNames(tools.database)) {}

    void Write(const RowStream& row) {
        BuildName(row, name_);
        tools_.line.Begin(layout_);
        tools_.line.Text(name_);
        if (type_ != ListType::Name)
            tools_.line.Text(authors_.Find(static_cast<std::int32_t>(row.Long(kAuthor))));
        if (type_ == ListType::NameAuthorRank) tools_.line.Text(RankOf(row));
        if (tools_.line.End()) ++tools_.state.gExportedCount;
    }

private:
    std::string_view RankOf(const RowStream& row) const {
        const auto rank = row.IsNull(kRank) ? ranks_.end() : ranks_.find(row.Long(kRank));
        return rank == ranks_.end() ? std::string_view() : std::string_view(rank->second);
    }

    ExportTools& tools_;
    ListType type_;
    const RecordLayout& layout_;
    AuthorNames authors_;
    std::map<std::int64_t, std::string> ranks_;
    std::string name_;
};

}  // namespace

void WriteNameList(ExportTools& tools, ListType type, std::string_view filter) {
    ApplicationState& state = tools.state;
    const selection::SelectedTaxa taxa(tools.database, filter, tools.turns);
    state.gRecordsDone = 0;
    state.gExportedCount = 0;
    state.gRecordsTotal = CountTaxa(tools.database, taxa);
    if (type < ListType::Name || type > ListType::NameAuthorRank) {
        tools.prompter.WarningMessage(fmt::format("Export Type of {} is invalid!", static_cast<int>(type)));
        return;
    }
    ListLines lines(tools, type);
    selection::SelectedRows rows(tools.database, "qb_taxonomic_units", kColumns, taxa);
    tools.line.Header(kHeaders[PlaceOf(type)]);
    while (rows.Next() && tools.turns.Next()) {
        if (rows.Visits() == 0) continue;
        tools.CountRow();
        lines.Write(rows.Row());
    }
}

}  // namespace quillon::exporting
