// Tagged files of any size for benches, campaigns and demonstrations: a tree with its synonyms, authors,
// publications, experts, other sources, distribution, jurisdictions, vernaculars and comments, about 4.5
// lines a name.
//
// The same count and seed give the same bytes, CP1252 with CR LF, in the order of an authority's download:
// every record is named once, every link has both its ends, so that an import has no findings. Two names in
// five are synonyms. From 20,000 names on, the first genus has exactly 5,000 species and no other taxon has
// as many children.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace quillon::bench {

// Takes the next bytes of the file.
using ByteSink = std::function<void(std::string_view bytes)>;

struct GeneratedCounts {
    std::map<std::string, std::size_t> lines;  // by tag
    std::size_t Total() const;
};

inline constexpr std::size_t kLargeNode = 5000;
inline constexpr std::size_t kLargeNodeFrom = 20000;

// `names` is the number of [TU] lines, at least 1.
GeneratedCounts GenerateTagged(std::size_t names, std::uint64_t seed, const ByteSink& sink);
// The same into memory.
std::string GeneratedText(std::size_t names, std::uint64_t seed);
// The same into a file, which is replaced. Throws std::runtime_error when not all of it could be written.
GeneratedCounts GenerateFile(std::size_t names, std::uint64_t seed, const std::string& path);

}  // namespace quillon::bench
