#include "export/name_list.h"

#include <fmt/format.h>

#include <array>
#include <map>
#include <string>

#include "validation/record_filter.h"

namespace quillon::exporting {

namespace {

using store::RowStream;

constexpr FieldLayout kListFields[] = {
    {"name", FieldForm::Text}, {"author", FieldForm::Text}, {"rank", FieldForm::Text}};
const std::array<RecordLayout, 3> kLists = {{
    {"", "qb_taxonomic_units", std::span<const FieldLayout>(kListFields, 1), false},
    {"", "qb_taxonomic_units", std::span<const FieldLayout>(kListFields, 2), false},
    {"", "qb_taxonomic_units", std::span<const FieldLayout>(kListFields, 3), false},
}};
constexpr std::array<std::string_view, 3> kHeaders = {"name", "name|author", "name|author|rank"};

constexpr std::size_t kUnits = 8, kAuthor = 9, kRank = 10;  // places of the columns behind qb_id

constexpr std::string_view kColumns =
    "qb_taxonomic_units.qb_id, unit_ind1, unit_name1, unit_ind2, unit_name2, unit_ind3, unit_name3, "
    "unit_ind4, "
    "unit_name4, qb_taxon_author_id, rank_id";

std::string RowsUnder(std::string_view filter) {
    const std::string select = fmt::format("SELECT {} FROM qb_taxonomic_units", kColumns);
    if (filter == validation::kNoFilter) return select + ";";
    if (filter == validation::kJournalFilter)
        return select +
               " INNER JOIN journal ON qb_taxonomic_units.qb_id = journal.qb_id "
               "ORDER BY qb_taxonomic_units.qb_id;";
    return select + validation::RunnableFilter(filter) + ";";
}

int CountUnder(store::Database& database, std::string_view filter) {
    RowStream count(database, validation::BuildValidationSelect("qb_taxonomic_units",
                                                                validation::RunnableFilter(filter), true));
    return count.Next() ? static_cast<int>(count.Long(0)) : 0;
}

// The authors' texts one behind the other, so that many of them take little room.
class AuthorNames {
public:
    explicit AuthorNames(store::Database& database) : starts_(1) {
        RowStream rows(database, "qb_taxon_authors_lookup", {"qb_taxon_author_id", "taxon_author"});
        while (rows.Next()) {
            texts_ += rows.Text(1);
            places_.Add(static_cast<std::int32_t>(rows.Long(0)), static_cast<std::int32_t>(starts_.size()));
            starts_.push_back(texts_.size());
        }
    }
    // Empty for an author that there is not.
    std::string_view Find(std::int32_t authorId) const {
        const auto place = static_cast<std::size_t>(places_.Find(authorId));
        if (place == 0) return {};
        return std::string_view(texts_).substr(starts_[place - 1], starts_[place] - starts_[place - 1]);
    }

private:
    std::string texts_;
    std::vector<std::size_t> starts_;
    IdMap places_;  // from 1
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

}  // namespace

void WriteNameList(ExportTools& tools, int type) {
    ApplicationState& state = tools.state;
    state.gRecordsDone = 0;
    state.gExportedCount = 0;
    state.gRecordsTotal = CountUnder(tools.database, state.gRecordFilter);
    if (type < 1 || type > 3) {
        tools.prompter.Message(fmt::format("Export Type of {} is invalid!", type));
        return;
    }
    const RecordLayout& layout = kLists[static_cast<std::size_t>(type - 1)];
    const AuthorNames authors(tools.database);
    const auto ranks = RankNames(tools.database);
    RowStream rows(tools.database, RowsUnder(state.gRecordFilter));
    tools.line.Header(kHeaders[static_cast<std::size_t>(type - 1)]);
    std::string name;
    while (rows.Next() && tools.NextTurn()) {
        tools.CountRow();
        BuildName(rows, name);
        tools.line.Begin(layout);
        tools.line.Text(name);
        if (type > 1) tools.line.Text(authors.Find(static_cast<std::int32_t>(rows.Long(kAuthor))));
        if (type > 2) {
            const auto rank = rows.IsNull(kRank) ? ranks.end() : ranks.find(rows.Long(kRank));
            tools.line.Text(rank == ranks.end() ? std::string_view() : std::string_view(rank->second));
        }
        tools.line.End();
        ++state.gExportedCount;
    }
}

}  // namespace quillon::exporting
