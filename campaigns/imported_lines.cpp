#include "imported_lines.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <string_view>

#include "support.h"

namespace quillon::campaign {

namespace {

struct TableOfTag {
    std::string_view tag, table;
};
constexpr std::array<TableOfTag, 13> kTables = {{{"[TU]", "qb_taxonomic_units"},
                                                 {"[TA]", "qb_taxon_authors_lookup"},
                                                 {"[SY]", "qb_synonym_links"},
                                                 {"[PB]", "qb_publications"},
                                                 {"[RF]", "qb_reference_links"},
                                                 {"[EX]", "qb_experts"},
                                                 {"[OS]", "qb_other_sources"},
                                                 {"[GD]", "qb_geographic_division"},
                                                 {"[JR]", "qb_jurisdiction"},
                                                 {"[VR]", "qb_vernaculars"},
                                                 {"[VL]", "qb_vern_ref_links"},
                                                 {"[CM]", "qb_comments"},
                                                 {"[CL]", "qb_tu_comments_link"}}};

using RowCounts = std::array<std::int64_t, kTables.size()>;

RowCounts CountRows(store::Database& database) {
    RowCounts counts{};
    for (std::size_t i = 0; i < kTables.size(); ++i)
        counts[i] = NativeNumber(database, fmt::format("SELECT count(*) FROM {}", kTables[i].table));
    return counts;
}

}  // namespace

ImportedLines::ImportedLines(const std::string& text) {
    for (std::size_t at = 0; at < text.size(); at = text.find('\n', at) + 1) {
        const std::string_view tag = std::string_view(text).substr(at, 4);
        const auto* found =
            std::find_if(kTables.begin(), kTables.end(), [&](const TableOfTag& t) { return t.tag == tag; });
        tables_.push_back(static_cast<std::uint8_t>(found - kTables.begin()));
    }
}

std::optional<std::size_t> ImportedLines::Stored(store::Database& database) const {
    const RowCounts rows = CountRows(database);
    RowCounts expected{};
    expected[0] = 1;
    if (rows == expected) return 0;
    // The Kingdom record of the first line takes the place of the one that a new DataSet has.
    expected[0] = 0;
    for (std::size_t line = 0; line < tables_.size(); ++line) {
        ++expected[tables_[line]];
        if (rows == expected) return line + 1;
    }
    return std::nullopt;
}

}  // namespace quillon::campaign
