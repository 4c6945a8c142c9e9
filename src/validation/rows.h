// The rows that validation reads: the columns that its rules check, and the heading of each in the log.
//
// A RowReader fills a row from any recordset with its columns, a StreamReader from a table; the rules use
// only the row.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/value.h"
#include "store/engine.h"
#include "store/row_stream.h"
#include "validation/findings.h"

namespace quillon::validation {

template <typename Row>
struct ColumnOf {
    std::string_view name;
    Value Row::*member;
};

struct TaxonRow {
    Value qb_id, unit_ind1, unit_name1, unit_ind2, unit_name2, unit_ind3, unit_name3, unit_ind4, unit_name4;
    Value usage, unacceptability_reason;
    Value taxonomic_credibility_rating, taxonomic_completeness_rating, currency_rating;
    Value parent_qb_id, qb_taxon_author_id, kingdom_id, rank_id;

    static std::span<const ColumnOf<TaxonRow>> Columns();
    std::string Name() const;
    std::string Heading() const;
    Subject AsSubject() const;
};

struct AuthorRow {
    Value qb_taxon_author_id, taxon_author, kingdom_id;

    static std::span<const ColumnOf<AuthorRow>> Columns();
    std::string Heading() const;
    Subject AsSubject() const;
};

struct ReferenceLinkRow {
    Value qb_id, qb_documentation_id_prefix, qb_documentation_id;

    static std::span<const ColumnOf<ReferenceLinkRow>> Columns();
    std::string Heading() const;
    Subject AsSubject() const;
};

struct ExpertRow {
    Value expert_id_prefix, qb_expert_id, expert;

    static std::span<const ColumnOf<ExpertRow>> Columns();
    std::string Heading() const;
    Subject AsSubject() const;
};

struct OtherSourceRow {
    Value source_id_prefix, qb_source_id, source_type, source, version, acquisition_date;

    static std::span<const ColumnOf<OtherSourceRow>> Columns();
    std::string Heading() const;
    Subject AsSubject() const;
};

struct PublicationRow {
    Value publication_id_prefix, qb_publication_id, publication_name, title, listed_pub_date, actual_pub_date;

    static std::span<const ColumnOf<PublicationRow>> Columns();
    std::string Heading() const;
    Subject AsSubject() const;
};

// A publication that a taxon refers to.
struct TaxonPublicationRow {
    Value qb_id, original_desc_ind, qb_publication_id, publication_name, title, actual_pub_date;
    std::string taxonName;

    static std::span<const ColumnOf<TaxonPublicationRow>> Columns();
    std::string Heading() const;
    Subject AsSubject() const;
};

struct VernacularRow {
    Value qb_id, qb_vern_id, vernacular_name, language, approved_ind;

    static std::span<const ColumnOf<VernacularRow>> Columns();
    std::string Heading() const;
    Subject AsSubject() const;
};

// Includes the name of its taxon, empty when there is no such taxon.
struct JurisdictionRow {
    Value qb_id, jurisdiction_value, origin;
    std::string taxonName;

    static std::span<const ColumnOf<JurisdictionRow>> Columns();
    std::string Heading() const;
    Subject AsSubject() const;
};

// The index of a column by name; throws error 3265 when the recordset has no such column.
std::size_t PlaceOf(const store::Recordset& rows, std::string_view column);
std::int32_t IdOf(const Value& value);

// The columns of a row, separated by commas.
template <typename Row>
std::string ColumnList() {
    std::string list;
    for (const auto& column : Row::Columns()) list.append(list.empty() ? "" : ", ").append(column.name);
    return list;
}

// Fills rows from the current row of a recordset, which must outlive it.
template <typename Row>
class RowReader {
public:
    explicit RowReader(const store::Recordset& rows) : rows_(rows) {
        for (const auto& column : Row::Columns()) places_.push_back(PlaceOf(rows, column.name));
    }
    void Read(Row& row) const {
        const auto columns = Row::Columns();
        for (std::size_t i = 0; i < columns.size(); ++i) row.*columns[i].member = rows_.At(places_[i]);
    }

private:
    const store::Recordset& rows_;
    std::vector<std::size_t> places_;
};

// The types of columns of a table; throws error 3265 when it has no such column.
std::vector<store::FieldType> TypesOf(const store::Database& database, std::string_view table,
                                      const std::vector<std::string_view>& columns);
Value ValueAt(const store::RowStream& rows, std::size_t column, store::FieldType type);

// Fills rows from the current row of a stream over a table, which reads the columns in order and must outlive
// the reader.
template <typename Row>
class StreamReader {
public:
    StreamReader(const store::Database& database, std::string_view table, const store::RowStream& rows)
        : rows_(rows) {
        std::vector<std::string_view> columns;
        for (const auto& column : Row::Columns()) columns.push_back(column.name);
        types_ = TypesOf(database, table, columns);
    }
    void Read(Row& row) const {
        const auto columns = Row::Columns();
        for (std::size_t i = 0; i < columns.size(); ++i)
            row.*columns[i].member = ValueAt(rows_, i, types_[i]);
    }

private:
    const store::RowStream& rows_;
    std::vector<store::FieldType> types_;
};

}  // namespace quillon::validation
