// The checks of the authors, the reference links and the documents.

#include <fmt/format.h>

#include "validation/table_checks.h"

namespace quillon::validation {

namespace {

// Reports the faults of a document, and marks it as rejected at the first fault that rejects it.
template <typename Row>
class DocumentCheck {
public:
    DocumentCheck(const Row& row, const YearRange& years, ValidationLog& log)
        : row_(row), years_(years), log_(log) {}

    // For faults in the document's key, which end the check.
    bool Lacks(const Value& value, Rule rule, std::string_view message) {
        if (!value.IsNull()) return false;
        log_.LogDocumentError(rule, row_, std::string(message));
        return true;
    }
    void Reject() {
        const Subject subject = row_.AsSubject();
        log_.RememberRejectedDoc(subject.prefix, subject.id);
    }
    void Require(const Value& value, Rule rule, std::string_view message) {
        if (Lacks(value, rule, message)) Reject();
    }
    // True when the date is present and valid. `lead` precedes the date in the message.
    bool CheckDateText(const Value& date, Rule rule, std::string_view lead) {
        if (date.IsNull()) return false;
        const std::string text = date.AsText();
        const auto fault = DateFault(text, years_);
        if (!fault) return true;
        log_.LogDocumentError(rule, row_, fmt::format("{}{}{}", lead, text, *fault));
        Reject();
        return false;
    }
    void CheckDateOrder(const std::string& listed, const std::string& actual, std::string_view message) {
        const DateOrder order = OrderOfDates(listed, actual);
        if (order == DateOrder::InOrder) return;
        if (order == DateOrder::OutOfOrder)
            log_.LogDocumentError(Rule::DatesOutOfOrder, row_,
                                  fmt::format("{}({} > {})", message, listed, actual));
        Reject();
    }

private:
    const Row& row_;
    YearRange years_;
    ValidationLog& log_;
};

}  // namespace

void CheckAuthor(const AuthorRow& row, ValidationLog& log) {
    if (row.taxon_author.IsNull())
        log.LogAuthorError(Rule::AuthorTextMissing, row, "     a taxon author is required");
    if (row.kingdom_id.IsNull())
        log.LogAuthorError(Rule::AuthorKingdomMissing, row, "     a kingdom is required");
}

void CheckReferenceLink(const ReferenceLinkRow& row, ValidationLog& log) {
    if (row.qb_id.IsNull()) log.LogDocumentError(Rule::LinkTaxonMissing, row, "     a qb_id is required");
    if (row.qb_documentation_id_prefix.IsNull())
        log.LogDocumentError(Rule::LinkPrefixMissing, row, "     a documentation prefix is required");
    if (row.qb_documentation_id.IsNull())
        log.LogDocumentError(Rule::LinkDocumentMissing, row, "     a documentation identifier is required");
}

void CheckExpert(const ExpertRow& row, ValidationLog& log) {
    DocumentCheck<ExpertRow> check(row, {}, log);
    if (check.Lacks(row.expert_id_prefix, Rule::ExpertPrefixMissing, "     an expert prefix is required"))
        return;
    if (check.Lacks(row.qb_expert_id, Rule::ExpertIdMissing, "     an expert identifier is required")) return;
    check.Require(row.expert, Rule::ExpertMissing, "     an expert is required");
}

void CheckOtherSource(const OtherSourceRow& row, const YearRange& years, ValidationLog& log) {
    DocumentCheck<OtherSourceRow> check(row, years, log);
    if (check.Lacks(row.source_id_prefix, Rule::SourcePrefixMissing, "     a source prefix is required"))
        return;
    if (check.Lacks(row.qb_source_id, Rule::SourceIdMissing, "     a source identifier is required")) return;
    check.Require(row.source_type, Rule::SourceTypeMissing, "     a source type is required");
    check.Require(row.source, Rule::SourceMissing, "     a source is required");
    check.Require(row.acquisition_date, Rule::SourceDateMissing,
                  "     a source acquisition date is required");
    check.Require(row.version, Rule::SourceVersionMissing, "     a source version is required");
    check.CheckDateText(row.acquisition_date, Rule::SourceDateWrong, "     the acquisition date <");
}

void CheckPublication(const PublicationRow& row, const YearRange& years, ValidationLog& log) {
    DocumentCheck<PublicationRow> check(row, years, log);
    if (check.Lacks(row.publication_id_prefix, Rule::PublicationPrefixMissing,
                    "     a publication prefix is required"))
        return;
    if (check.Lacks(row.qb_publication_id, Rule::PublicationIdMissing,
                    "     a publication identifier is required"))
        return;
    check.Require(row.publication_name, Rule::PublicationNameMissing, "     a publication name is required");
    const bool listed =
        check.CheckDateText(row.listed_pub_date, Rule::ListedDateWrong, "     the listed date <");
    check.Require(row.actual_pub_date, Rule::ActualDateMissing, "     an actual_pub_date is required");
    const bool actual =
        check.CheckDateText(row.actual_pub_date, Rule::ActualDateWrong, "     the actual date <");
    if (listed && actual)
        check.CheckDateOrder(row.listed_pub_date.AsText(), row.actual_pub_date.AsText(),
                             "     the actual publication date must be the same as or later than the listed "
                             "publication date");
}

void ValidateAuthors(const ValidationRun& run) {
    ForEachRow<AuthorRow>(run, "qb_taxon_authors_lookup", [&](const AuthorRow& row) {
        CheckAuthor(row, run.log);
        return true;
    });
}

void ValidateReferenceLinks(const ValidationRun& run) {
    ForEachRow<ReferenceLinkRow>(run, "qb_reference_links", [&](const ReferenceLinkRow& row) {
        CheckReferenceLink(row, run.log);
        return true;
    });
}

void ValidateExperts(const ValidationRun& run) {
    ForEachRow<ExpertRow>(run, "qb_experts", [&](const ExpertRow& row) {
        CheckExpert(row, run.log);
        return true;
    });
}

void ValidateOtherSources(const ValidationRun& run) {
    ForEachRow<OtherSourceRow>(run, "qb_other_sources", [&](const OtherSourceRow& row) {
        CheckOtherSource(row, run.facts.years, run.log);
        return true;
    });
}

void ValidatePublications(const ValidationRun& run) {
    ForEachRow<PublicationRow>(run, "qb_publications", [&](const PublicationRow& row) {
        CheckPublication(row, run.facts.years, run.log);
        return true;
    });
}

}  // namespace quillon::validation
