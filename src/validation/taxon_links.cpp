#include "validation/taxon_links.h"

#include <fmt/format.h>

namespace quillon::validation {

namespace {

// The complete row of a publication of the checked taxon.
TaxonPublicationRow WholeRow(const TaxonCheck& check, const PublicationFacts& publication) {
    TaxonPublicationRow row = check.lookUps.Publication(check.row.qb_id.AsLong(), publication);
    row.taxonName = check.row.Name();
    return row;
}

// False when the run is canceled.
bool CheckPublications(const TaxonCheck& check, const TaxonReferences& references) {
    bool isDescribed = false;
    for (const PublicationLink& link : references.publications) {
        check.log.BeginRecord();
        if (!check.turns.Next()) return false;
        if (!link.isOriginal) continue;
        if (!isDescribed)
            CheckAuthorYearAgainstPub(check, *link.publication);
        else
            check.log.LogDocumentError(
                Rule::SecondOriginalDescription, WholeRow(check, *link.publication),
                "     more than one publication record marked as the original descriptor");
        isDescribed = true;
    }
    return true;
}

}  // namespace

void CheckSynonymLinks(const TaxonCheck& check) {
    CheckSynonymLinks(check, check.lookUps.AcceptedNames(check.row.qb_id.AsLong()));
}

void CheckSynonymLinks(const TaxonCheck& check, std::span<const AcceptedLink> links) {
    for (const AcceptedLink& link : links) {
        if (!link.exists)
            check.Report(
                Rule::SynonymLinkBroken,
                fmt::format("     Synonym link to '{}' is invalid, record does not exist", link.qb_id));
        else if (!link.isUsable)
            check.Report(Rule::SynonymOfSynonym,
                         "     an 'invalid'/'not accepted' taxon canot be linked to one that is also "
                         "'invalid'/'not accepted'");
    }
    if (links.empty())
        check.Report(Rule::SynonymLinkMissing,
                     "     an 'invalid'/'not accepted' taxon must be linked to a 'valid'/'accepted' one");
}

void CheckNoSynonymLink(const TaxonCheck& check) {
    if (check.lookUps.AcceptedNames(check.row.qb_id.AsLong()).empty()) return;
    check.Report(Rule::SynonymOfUsableName,
                 "     'valid'/'accepted' records cannot be linked to other records as synonyms");
}

void CheckTaxonDocumentation(const TaxonCheck& check) {
    const TaxonReferences& references = check.lookUps.References(check.row.qb_id.AsLong());
    if (!CheckPublications(check, references) || !references.publications.empty()) return;
    if (references.hasExpert || references.hasOtherSource) return;
    check.Report(Rule::ReferenceMissing, "     at least one reference is required");
}

void CheckAuthorYearAgainstPub(const TaxonCheck& check, const PublicationFacts& publication) {
    const Value& author = check.row.qb_taxon_author_id;
    if (author.IsNull() || publication.actualYear == kNoDateYear) return;
    const int authorYear = check.lookUps.Author(author).year;
    if (authorYear == kYearIsNoNumber || authorYear == kNoYear || authorYear == publication.actualYear)
        return;
    const TaxonPublicationRow row = WholeRow(check, publication);
    const std::string actualDate = row.actual_pub_date.AsText();
    check.log.LogDocumentError(
        Rule::OriginalYearDiffers, row,
        fmt::format("     the year associated with the author <{}> must be the same as the "
                    "actual publication year <{}>",
                    authorYear, YearText(actualDate)));
}

}  // namespace quillon::validation
