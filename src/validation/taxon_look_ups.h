// The other records that the taxon rules need: parents, authors, accepted names, documents. Whole tables are
// read once for a run instead of a query for each row; results equal those of the named queries.
//
// Calls must be in ascending qb_id.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "store/engine.h"
#include "validation/id_table.h"
#include "validation/keyed_walk.h"
#include "validation/rows.h"

namespace quillon::validation {

// A taxon that others are placed under or linked to.
struct TaxonFacts {
    std::int32_t id = 0;
    std::int16_t rank_id = 0;
    bool hasRank = false;
    bool isUsable = false;  // its usage is "valid" or "accepted"
};

struct AuthorFacts {
    std::string_view text;  // empty when it is Null or there is no such author
    int year = 0;           // from YearFromAuthor
};

// An accepted name that a synonym links to.
struct AcceptedLink {
    std::int32_t qb_id = 0;
    bool exists = true;
    bool isUsable = false;
};

struct PublicationFacts {
    std::int32_t id = 0;
    std::int32_t actualYear = 0;   // of actual_pub_date; kNoDateYear when it has none
    std::array<char, 3> prefix{};  // padded with NUL
};
inline constexpr std::int32_t kNoDateYear = INT32_MIN;

struct PublicationLink {
    const PublicationFacts* publication;
    bool isOriginal;
};

// The existing documents of a taxon.
struct TaxonReferences {
    std::vector<PublicationLink> publications;  // in the order of the links
    bool hasExpert = false;
    bool hasOtherSource = false;
};

class TaxonTable {
public:
    TaxonTable(store::Database& database, const store::TableRows& among, Turns turns);
    // nullptr when there is no such taxon.
    const TaxonFacts* Find(std::int64_t qb_id) const { return taxa_.Find(qb_id); }

private:
    IdTable<TaxonFacts> taxa_;
};

class AuthorTable {
public:
    AuthorTable(store::Database& database, const store::TableRows& among, Turns turns);
    AuthorFacts Find(std::int64_t qb_taxon_author_id) const;

private:
    struct Place {
        std::int32_t id = 0;
        std::uint32_t begin = 0;  // the end is the next one's begin
        std::int32_t year = 0;
    };
    IdTable<Place> places_;
    std::string texts_;
};

class DocumentTable {
public:
    // Reads the documents with these ids, of any prefix; nullptr for all.
    DocumentTable(store::Database& database, const selection::IdSet* ids, Turns turns);
    // Adds the document of a reference link.
    void Resolve(std::string_view prefix, std::int64_t id, bool isOriginal,
                 TaxonReferences& references) const;

private:
    struct Document {
        std::int32_t id = 0;
    };
    IdTable<PublicationFacts> publications_;
    IdTable<Document> experts_, otherSources_;
};

class TaxonLookUps {
public:
    // For the selected taxa, whose documents must have been read. Each row that is read is a turn. Throws
    // StoreError.
    TaxonLookUps(store::Database& database, const selection::SelectedTaxa& taxa, Turns turns);

    // Moves to the links of a taxon; false when the run is canceled.
    bool MoveTo(std::int64_t qb_id);

    const TaxonFacts* Taxon(std::int64_t qb_id) const { return taxa_.Find(qb_id); }
    AuthorFacts Author(const Value& qb_taxon_author_id) const {
        return authors_.Find(qb_taxon_author_id.AsLong());
    }
    std::vector<AcceptedLink> AcceptedNames(std::int64_t qb_id);
    // Valid until the next call.
    const TaxonReferences& References(std::int64_t qb_id);
    // The complete row of a publication, for a finding on it.
    TaxonPublicationRow Publication(std::int64_t qb_id, const PublicationFacts& publication);

private:
    TaxonTable taxa_;
    AuthorTable authors_;
    DocumentTable documents_;
    KeyedWalk synonymLinks_, referenceLinks_;
    store::QueryDef publication_;
    TaxonReferences references_;
};

}  // namespace quillon::validation
