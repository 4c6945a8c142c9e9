// The kinds of documents that a record can cite: for each the prefix in links, its table and key, and its
// words. Code that treats the kinds alike uses this table.
#pragma once

#include <array>
#include <string_view>

namespace quillon {

struct DocumentKind {
    std::string_view prefix;  // as links store it
    std::string_view table;
    std::string_view prefixColumn, idColumn;  // the key; the prefix column holds `prefix`
    std::string_view authorityIdColumn;
    std::string_view nameColumn;  // what a list shows
    std::string_view commentColumn;
    std::string_view tombstoneTable;  // the table_name of its tombstones
    std::string_view deletionQuery, deletionParameter;
    std::string_view noun, article;  // "publication", "a"
    std::string_view title;          // "Publication"
};

// clang-format off
inline constexpr DocumentKind kPublications{
    "PUB", "qb_publications", "publication_id_prefix", "qb_publication_id", "publication_id",
    "publication_name", "pub_comment", "publications", "Delete Publication", "pubid",
    "publication", "a", "Publication"};
inline constexpr DocumentKind kExperts{
    "EXP", "qb_experts", "expert_id_prefix", "qb_expert_id", "expert_id",
    "expert", "exp_comment", "experts", "Delete Expert", "expid",
    "expert", "an", "Expert"};
inline constexpr DocumentKind kOtherSources{
    "SRC", "qb_other_sources", "source_id_prefix", "qb_source_id", "source_id",
    "source", "source_comment", "other_sources", "Delete Source", "srcid",
    "other source", "an", "Other Source"};
// clang-format on

inline constexpr std::array<const DocumentKind*, 3> kDocumentKinds = {&kPublications, &kExperts,
                                                                      &kOtherSources};

// The kind with exactly that prefix, or nullptr.
constexpr const DocumentKind* FindDocumentKind(std::string_view prefix) {
    for (const DocumentKind* kind : kDocumentKinds)
        if (kind->prefix == prefix) return kind;
    return nullptr;
}
// The kind whose documents are in `table`, spelled as in the schema, or nullptr.
constexpr const DocumentKind* DocumentKindOfTable(std::string_view table) {
    for (const DocumentKind* kind : kDocumentKinds)
        if (kind->table == table) return kind;
    return nullptr;
}

}  // namespace quillon
