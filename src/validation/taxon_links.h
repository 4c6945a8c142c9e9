// The rules on the synonym links of a taxon and on its documents.
#pragma once

#include <span>

#include "validation/taxon_rules.h"

namespace quillon::validation {

// A name that is not usable must link to names that are.
void CheckSynonymLinks(const TaxonCheck& check);
void CheckSynonymLinks(const TaxonCheck& check, std::span<const AcceptedLink> links);
// A usable name must not link to any.
void CheckNoSynonymLink(const TaxonCheck& check);
// A taxon must have a reference, and at most one original description, of the author's year.
void CheckTaxonDocumentation(const TaxonCheck& check);
// `publication` is the first one marked as the original description.
void CheckAuthorYearAgainstPub(const TaxonCheck& check, const PublicationFacts& publication);

}  // namespace quillon::validation
