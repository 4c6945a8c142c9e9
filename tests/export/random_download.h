// A tagged file as a download has it, the same for the same seed: the authority's ids only, a Kingdom record,
// every record linked to a taxon, lines in any order.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quillon::exporting {

// The lines without their ends, in UTF-8; every character has a place in CP1252.
std::vector<std::string> RandomDownload(std::uint32_t seed);

// The lines with what an import and an export change taken out: the DataSet's own ids, and dates that are no
// dates. Sorted.
std::string WithoutOwnIds(const std::vector<std::string>& lines);

}  // namespace quillon::exporting
