#include "validation/rows.h"

#include <fmt/format.h>

#include "core/names.h"
#include "core/text.h"
#include "store/error.h"

namespace quillon::validation {

// NOLINTNEXTLINE(cppcoreguidelines-macro-usage): a member and its column have one name.
#define QUILLON_COLUMN(Row, name) \
    ColumnOf<Row> {               \
#name, &Row::name         \
    }

std::span<const ColumnOf<TaxonRow>> TaxonRow::Columns() {
    static constexpr std::array columns = {
        QUILLON_COLUMN(TaxonRow, qb_id),
        QUILLON_COLUMN(TaxonRow, unit_ind1),
        QUILLON_COLUMN(TaxonRow, unit_name1),
        QUILLON_COLUMN(TaxonRow, unit_ind2),
        QUILLON_COLUMN(TaxonRow, unit_name2),
        QUILLON_COLUMN(TaxonRow, unit_ind3),
        QUILLON_COLUMN(TaxonRow, unit_name3),
        QUILLON_COLUMN(TaxonRow, unit_ind4),
        QUILLON_COLUMN(TaxonRow, unit_name4),
        QUILLON_COLUMN(TaxonRow, usage),
        QUILLON_COLUMN(TaxonRow, unacceptability_reason),
        QUILLON_COLUMN(TaxonRow, taxonomic_credibility_rating),
        QUILLON_COLUMN(TaxonRow, taxonomic_completeness_rating),
        QUILLON_COLUMN(TaxonRow, currency_rating),
        QUILLON_COLUMN(TaxonRow, parent_qb_id),
        QUILLON_COLUMN(TaxonRow, qb_taxon_author_id),
        QUILLON_COLUMN(TaxonRow, kingdom_id),
        QUILLON_COLUMN(TaxonRow, rank_id),
    };
    return columns;
}

std::span<const ColumnOf<AuthorRow>> AuthorRow::Columns() {
    static constexpr std::array columns = {
        QUILLON_COLUMN(AuthorRow, qb_taxon_author_id),
        QUILLON_COLUMN(AuthorRow, taxon_author),
        QUILLON_COLUMN(AuthorRow, kingdom_id),
    };
    return columns;
}

std::span<const ColumnOf<ReferenceLinkRow>> ReferenceLinkRow::Columns() {
    static constexpr std::array columns = {
        QUILLON_COLUMN(ReferenceLinkRow, qb_id),
        QUILLON_COLUMN(ReferenceLinkRow, qb_documentation_id_prefix),
        QUILLON_COLUMN(ReferenceLinkRow, qb_documentation_id),
    };
    return columns;
}

std::span<const ColumnOf<ExpertRow>> ExpertRow::Columns() {
    static constexpr std::array columns = {
        QUILLON_COLUMN(ExpertRow, expert_id_prefix),
        QUILLON_COLUMN(ExpertRow, qb_expert_id),
        QUILLON_COLUMN(ExpertRow, expert),
    };
    return columns;
}

std::span<const ColumnOf<OtherSourceRow>> OtherSourceRow::Columns() {
    static constexpr std::array columns = {
        QUILLON_COLUMN(OtherSourceRow, source_id_prefix), QUILLON_COLUMN(OtherSourceRow, qb_source_id),
        QUILLON_COLUMN(OtherSourceRow, source_type),      QUILLON_COLUMN(OtherSourceRow, source),
        QUILLON_COLUMN(OtherSourceRow, version),          QUILLON_COLUMN(OtherSourceRow, acquisition_date),
    };
    return columns;
}

std::span<const ColumnOf<PublicationRow>> PublicationRow::Columns() {
    static constexpr std::array columns = {
        QUILLON_COLUMN(PublicationRow, publication_id_prefix),
        QUILLON_COLUMN(PublicationRow, qb_publication_id),
        QUILLON_COLUMN(PublicationRow, publication_name),
        QUILLON_COLUMN(PublicationRow, title),
        QUILLON_COLUMN(PublicationRow, listed_pub_date),
        QUILLON_COLUMN(PublicationRow, actual_pub_date),
    };
    return columns;
}

std::span<const ColumnOf<TaxonPublicationRow>> TaxonPublicationRow::Columns() {
    static constexpr std::array columns = {
        QUILLON_COLUMN(TaxonPublicationRow, qb_id),
        QUILLON_COLUMN(TaxonPublicationRow, original_desc_ind),
        QUILLON_COLUMN(TaxonPublicationRow, qb_publication_id),
        QUILLON_COLUMN(TaxonPublicationRow, publication_name),
        QUILLON_COLUMN(TaxonPublicationRow, title),
        QUILLON_COLUMN(TaxonPublicationRow, actual_pub_date),
    };
    return columns;
}

std::span<const ColumnOf<VernacularRow>> VernacularRow::Columns() {
    static constexpr std::array columns = {
        QUILLON_COLUMN(VernacularRow, qb_id),           QUILLON_COLUMN(VernacularRow, qb_vern_id),
        QUILLON_COLUMN(VernacularRow, vernacular_name), QUILLON_COLUMN(VernacularRow, language),
        QUILLON_COLUMN(VernacularRow, approved_ind),
    };
    return columns;
}

std::span<const ColumnOf<JurisdictionRow>> JurisdictionRow::Columns() {
    static constexpr std::array columns = {
        QUILLON_COLUMN(JurisdictionRow, qb_id),
        QUILLON_COLUMN(JurisdictionRow, jurisdiction_value),
        QUILLON_COLUMN(JurisdictionRow, origin),
    };
    return columns;
}

#undef QUILLON_COLUMN

std::size_t PlaceOf(const store::Recordset& rows, std::string_view column) {
    for (std::size_t i = 0; i < rows.ColumnCount(); ++i)
        if (EqualText(rows.ColumnName(i), column)) return i;
    throw store::StoreError(store::ErrorNumber::ItemNotFound,
                            fmt::format("There is no field '{}' in the rows to validate.", column));
}

std::vector<store::FieldType> TypesOf(const store::Database& database, std::string_view table,
                                      const std::vector<std::string_view>& columns) {
    std::vector<store::FieldType> types;
    const store::TableDef* def = database.FindTableDef(table);
    for (const std::string_view column : columns) {
        const store::FieldDef* field = def == nullptr ? nullptr : def->Field(column);
        if (field == nullptr)
            throw store::StoreError(store::ErrorNumber::ItemNotFound,
                                    fmt::format("There is no field '{}' in {}.", column, table));
        types.push_back(field->type);
    }
    return types;
}

Value ValueAt(const store::RowStream& rows, std::size_t column, store::FieldType type) {
    if (rows.IsNull(column)) return {};
    switch (type) {
        case store::FieldType::Boolean:
            return rows.Long(column) != 0;
        case store::FieldType::Byte:
        case store::FieldType::Integer:
        case store::FieldType::Long:
            return rows.Long(column);
        default:
            return rows.Text(column);
    }
}

namespace {

// "PUB 12 Journal of Moths", without missing parts.
std::string DocumentName(std::string_view prefix, const Value& id, const Value& text) {
    return std::string(Trim(fmt::format("{} {} {}", prefix, id.AsText(), text.AsText())));
}

}  // namespace

std::int32_t IdOf(const Value& value) {
    return static_cast<std::int32_t>(value.AsLong());
}

std::string TaxonRow::Name() const {
    return BuildSciName(
        {unit_ind1, unit_name1, unit_ind2, unit_name2, unit_ind3, unit_name3, unit_ind4, unit_name4});
}

// A printed number has a position for its sign before it and a blank after it.
std::string TaxonRow::Heading() const {
    const std::int64_t id = qb_id.AsLong();
    return fmt::format("ID = {}{}   Name = {}", id < 0 ? "" : " ", id, Name());
}

Subject TaxonRow::AsSubject() const {
    return {RecordKind::Taxon, IdOf(qb_id), {}, Name()};
}

std::string AuthorRow::Heading() const {
    return fmt::format("Author ID = {}  Name = {}", qb_taxon_author_id.AsText(), taxon_author.AsText());
}

Subject AuthorRow::AsSubject() const {
    return {RecordKind::Author,
            IdOf(qb_taxon_author_id),
            {},
            DocumentName("Author", qb_taxon_author_id, taxon_author)};
}

std::string ReferenceLinkRow::Heading() const {
    return fmt::format("Reference Link:  QBID = <{}>  Prefix = <{}>  Document ID = <{}>", qb_id.AsText(),
                       qb_documentation_id_prefix.AsText(), qb_documentation_id.AsText());
}

Subject ReferenceLinkRow::AsSubject() const {
    return {RecordKind::ReferenceLink,
            IdOf(qb_id),
            {},
            DocumentName(qb_documentation_id_prefix.AsText(), qb_documentation_id, {})};
}

std::string ExpertRow::Heading() const {
    return fmt::format("Experts:  EXPID = <{}>  Expert = <{}>", qb_expert_id.AsText(), expert.AsText());
}

Subject ExpertRow::AsSubject() const {
    const std::string prefix = expert_id_prefix.AsText();
    return {RecordKind::Expert, IdOf(qb_expert_id), prefix, DocumentName(prefix, qb_expert_id, expert)};
}

std::string OtherSourceRow::Heading() const {
    return fmt::format(
        "Other Sources:  SRCID = <{}>  Source = <{}>  Type = <{}>  Date = <{}>  Version = <{}>",
        qb_source_id.AsText(), source.AsText(), source_type.AsText(), acquisition_date.AsText(),
        version.AsText());
}

Subject OtherSourceRow::AsSubject() const {
    const std::string prefix = source_id_prefix.AsText();
    return {RecordKind::OtherSource, IdOf(qb_source_id), prefix, DocumentName(prefix, qb_source_id, source)};
}

std::string PublicationRow::Heading() const {
    return fmt::format("Publications:  PUBID = <{}>  Publication = <{}>  Title = <{}>",
                       qb_publication_id.AsText(), publication_name.AsText(), title.AsText());
}

Subject PublicationRow::AsSubject() const {
    const std::string prefix = publication_id_prefix.AsText();
    return {RecordKind::Publication, IdOf(qb_publication_id), prefix,
            DocumentName(prefix, qb_publication_id, publication_name)};
}

std::string TaxonPublicationRow::Heading() const {
    return fmt::format("Publications: ID = <{}> PUBID = <{}>  Publication = <{}>  Title = <{}>",
                       qb_id.AsText(), qb_publication_id.AsText(), publication_name.AsText(), title.AsText());
}

Subject TaxonPublicationRow::AsSubject() const {
    return {RecordKind::Taxon, IdOf(qb_id), {}, taxonName};
}

std::string VernacularRow::Heading() const {
    return fmt::format("Vernaculars:  QBID = <{}> Vernacular Name = <{}>  Language = <{}>", qb_id.AsText(),
                       vernacular_name.AsText(), language.AsText());
}

Subject VernacularRow::AsSubject() const {
    return {RecordKind::Vernacular, IdOf(qb_id), {}, vernacular_name.AsText()};
}

std::string JurisdictionRow::Heading() const {
    return fmt::format("ID = {}  Name = {}", qb_id.AsText(), taxonName);
}

Subject JurisdictionRow::AsSubject() const {
    return {RecordKind::Jurisdiction, IdOf(qb_id), {}, taxonName};
}

}  // namespace quillon::validation
