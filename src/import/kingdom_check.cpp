#include "import/kingdom_check.h"

#include <algorithm>
#include <vector>

#include "core/text.h"
#include "core/vocabulary.h"
#include "exchange/field_cutter.h"
#include "exchange/field_values.h"
#include "exchange/tagged_format.h"
#include "import/line_reader.h"
#include "import/record.h"

namespace quillon::importing {

namespace {

struct Kingdom {
    std::int32_t id = 0;
    std::string name;
};

// 0 for a line of another tag, or when the field is missing or empty.
std::int32_t KingdomOfLine(std::string_view line) {
    const std::string_view tag = exchange::kTaxonRecord.tag;
    if (exchange::TagOfLine(line) != tag) return 0;
    exchange::FieldCutter cutter(line, tag.size());
    for (std::size_t field = 0; field <= exchange::taxon_field::kKingdom; ++field)
        if (!cutter.NextField()) return 0;
    return exchange::ReadNumber(cutter.Field());
}

std::int32_t KingdomOfFile(ByteSource& source, Turns& turns) {
    LineReader reader(source, [&turns] { TakeTurn(turns); });
    for (auto kind = reader.Next(); kind != LineReader::Kind::End; kind = reader.Next()) {
        if (kind == LineReader::Kind::Line && reader.Text().empty()) break;
        if (const std::int32_t kingdom = KingdomOfLine(reader.Text())) return kingdom;
        TakeTurn(turns);
    }
    return 0;
}

std::vector<Kingdom> KingdomsOf(store::Database& database) {
    std::vector<Kingdom> kingdoms;
    const auto rows = database.CreateSnapshot("SELECT kingdom_id, kingdom_name FROM kingdoms;");
    for (; !rows->Eof(); rows->MoveNext()) {
        const auto id = static_cast<std::int32_t>(rows->At(0).AsLong());
        if (id != 0) kingdoms.push_back({id, std::string(Trim(rows->At(1).AsText()))});
    }
    return kingdoms;
}

std::string NameOfKingdom(std::int32_t id) {
    if (id < 1 || id > static_cast<std::int32_t>(kKingdomNames.size())) return std::to_string(id);
    return std::string(kKingdomNames[static_cast<std::size_t>(id - 1)]);
}

}  // namespace

std::string KingdomRefusal(ByteSource& source, store::Database& database, Turns& turns) {
    const std::vector<Kingdom> own = KingdomsOf(database);
    if (own.empty()) return {};
    const std::int32_t kingdom = KingdomOfFile(source, turns);
    source.Rewind();
    const bool isOwn = std::any_of(own.begin(), own.end(),
                                   [&](const Kingdom& candidate) { return candidate.id == kingdom; });
    if (kingdom == 0 || isOwn) return {};
    return "The file holds names of the kingdom " + NameOfKingdom(kingdom) +
           ", this DataSet of the kingdom " + own.front().name + ".";
}

}  // namespace quillon::importing
