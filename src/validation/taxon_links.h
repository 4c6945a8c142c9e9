// The rules on the synonym links of a taxon and on its documents.
#pragma once

#include <span>

#include "validation/taxon_rules.h"

namespace quillon::validation {

// For a name that is not usable: it links to names that are.
void CheckSynonymLinks(const TaxonCheck& check);
void CheckSynonymLinks(const TaxonCheck& check, std::span<const AcceptedLink> links);
// For a usable name: it links to none.
void CheckNoSynonymLink(const TaxonCheck& check);
// At least one reference, and no more than one original description, of the author's year.
void CheckTaxonDocumentation(const TaxonCheck& check);
// The publication is the first that is marked as the original description.
void CheckAuthorYearAgainstPub(const TaxonCheck& check, const PublicationFacts& publication);

}  // namespace quillon::validation
