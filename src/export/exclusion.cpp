#include "export/exclusion.h"

#include "store/row_stream.h"

namespace quillon::exporting {

namespace {

using store::RowStream;
using store::TableRows;

constexpr TableRows::Order kAny = TableRows::Order::Any;

std::int32_t Id(const RowStream& rows, std::size_t column) {
    return static_cast<std::int32_t>(rows.Long(column));
}

}  // namespace

Exclusion::Exclusion(const ApplicationState& state, store::Database& database, Turns turns)
    : database_(database), turns_(turns) {
    for (const int qb_id : state.gRejectedTaxa) taxa_.Add(qb_id);
    for (const auto& [prefix, id] : state.gRejectedDocs) documents_.Add(prefix, id);
}

bool Exclusion::AuthorIsExportable(std::int32_t authorId) {
    if (taxa_.Count() == 0) return true;
    if (!goodAuthors_) ReadAuthors();
    return goodAuthors_->Has(authorId);
}

bool Exclusion::CommentIsExportable(std::int32_t commentId) {
    if (taxa_.Count() == 0) return true;
    if (!goodComments_) ReadComments();
    return goodComments_->Has(commentId);
}

bool Exclusion::DocIsExportable(std::string_view prefix, std::int32_t documentId) {
    if (documents_.Has(prefix, documentId)) return false;
    if (taxa_.Count() == 0) return true;
    if (!goodDocuments_) {
        goodDocuments_.emplace();
        ReadDocuments("qb_reference_links");
        ReadDocuments("qb_vern_ref_links");
    }
    return goodDocuments_->Has(prefix, documentId);
}

void Exclusion::ReadAuthors() {
    goodAuthors_.emplace();
    RowStream taxa(database_, "qb_taxonomic_units", {"qb_id", "qb_taxon_author_id", "hybrid_author_id"},
                   {kAny});
    while (taxa.Next() && turns_.Next()) {
        if (!RowIsExportable(Id(taxa, 0))) continue;
        for (const std::size_t author : {1u, 2u})
            if (!taxa.IsNull(author)) goodAuthors_->Add(Id(taxa, author));
    }
}

void Exclusion::ReadComments() {
    goodComments_.emplace();
    RowStream links(database_, "qb_tu_comments_link", {"qb_id", "qb_comment_id"}, {kAny});
    while (links.Next() && turns_.Next())
        if (RowIsExportable(Id(links, 0))) goodComments_->Add(Id(links, 1));
}

void Exclusion::ReadDocuments(std::string_view table) {
    RowStream links(database_, table, {"qb_id", "qb_documentation_id_prefix", "qb_documentation_id"}, {kAny});
    while (links.Next() && turns_.Next())
        if (LinkCounts(Id(links, 0))) goodDocuments_->Add(links.Text(1), Id(links, 2));
}

}  // namespace quillon::exporting
