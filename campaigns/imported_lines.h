// Finds out how much of a generated file an import has stored: each of its lines makes one row, so the rows
// of all tables together must be those of the first lines of the file, none missing and none too many.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "store/engine.h"

namespace quillon::campaign {

class ImportedLines {
public:
    ImportedLines() = default;
    // `text` as the generator of tagged files makes it.
    explicit ImportedLines(const std::string& text);

    std::size_t Count() const { return tables_.size(); }
    // The number of lines whose rows a DataSet holds that was new before; nothing when its rows are not those
    // of the first lines.
    std::optional<std::size_t> Stored(store::Database& database) const;

private:
    std::vector<std::uint8_t> tables_;  // the table that each line fills
};

}  // namespace quillon::campaign
