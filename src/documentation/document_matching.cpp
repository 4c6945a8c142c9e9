#include "documentation/document_matching.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "core/text.h"

namespace quillon::documentation {

namespace {

// A select of documents by conditions that are joined by And, with its parameters.
class ContentQuery {
public:
    explicit ContentQuery(const DocumentDescription& description) : description_(description) {}

    void AddIsNull(std::size_t field) { Add(fmt::format("{} Is Null", Column(field))); }
    void AddEquals(std::size_t field, const Value& value) {
        Add(fmt::format("{} = {}", Column(field), Parameter(field, value)));
    }
    void AddEqualsOrNull(std::size_t field, const Value& value) {
        Add(fmt::format("({0} = {1} OR {1} Is Null)", Parameter(field, value), Column(field)));
    }

    // The match with the lowest id but for `except`.
    std::optional<StoredDocument> First(store::Database& database, int except) const {
        store::QueryDef query = database.CreateQueryDef(
            "", fmt::format("{}SELECT {}, {} FROM {} WHERE {};",
                            parameters_.empty() ? "" : parameters_ + "; ", description_.kind.idColumn,
                            description_.kind.authorityIdColumn, description_.kind.table, conditions_));
        for (const auto& [name, value] : values_) query.Set(name, value);
        std::optional<StoredDocument> first;
        const auto rows = query.OpenRecordset(store::RecordsetType::ForwardOnly);
        for (; !rows->Eof(); rows->MoveNext()) {
            const auto qbId = static_cast<int>(rows->At(0).AsLong());
            if (qbId != except && (!first || qbId < first->qbId)) first = StoredDocument{qbId, rows->At(1)};
        }
        return first;
    }

private:
    std::string_view Column(std::size_t field) const { return description_.fields[field].column; }
    void Add(const std::string& condition) {
        conditions_ += (conditions_.empty() ? "" : " AND ") + condition;
    }
    std::string Parameter(std::size_t field, const Value& value) {
        std::string name = fmt::format("text{}", field);
        parameters_ += (parameters_.empty() ? "PARAMETERS " : ", ") + name + " Text";
        values_.emplace_back(name, value);
        return name;
    }

    const DocumentDescription& description_;
    std::string conditions_, parameters_;
    std::vector<std::pair<std::string, Value>> values_;
};

bool Contains(std::span<const std::size_t> fields, std::size_t field) {
    return std::find(fields.begin(), fields.end(), field) != fields.end();
}

std::optional<StoredDocument> FindExact(store::Database& database, const DocumentDescription& description,
                                        const GridControl::Row& cells, int except) {
    ContentQuery query(description);
    for (std::size_t field = 0; field < description.fields.size(); ++field) {
        const Value value = StoredText(description, cells, field);
        if (value.IsNull())
            query.AddIsNull(field);
        else
            query.AddEquals(field, value);
    }
    return query.First(database, except);
}

// A stored Null equals everything. One statement with "= or Is Null" for all fields would read every
// document: here each indexed field is equal in one statement and Null in another.
std::optional<StoredDocument> FindWithNulls(store::Database& database, const DocumentDescription& description,
                                            const GridControl::Row& cells, int except) {
    const std::span<const std::size_t> indexed = description.storing.indexed;
    std::optional<StoredDocument> first;
    for (unsigned nulls = 0; nulls < 1U << indexed.size(); ++nulls) {
        ContentQuery query(description);
        bool possible = true;
        for (std::size_t place = 0; place < indexed.size(); ++place) {
            const Value value = StoredText(description, cells, indexed[place]);
            if ((nulls >> place & 1U) != 0)
                query.AddIsNull(indexed[place]);
            else if (value.IsNull())
                possible = false;
            else
                query.AddEquals(indexed[place], value);
        }
        if (!possible) continue;
        for (std::size_t field = 0; field < description.fields.size(); ++field) {
            if (description.fields[field].ofLink || Contains(indexed, field)) continue;
            query.AddEqualsOrNull(field, StoredText(description, cells, field));
        }
        const auto found = query.First(database, except);
        if (found && (!first || found->qbId < first->qbId)) first = found;
    }
    return first;
}

}  // namespace

Value StoredText(const DocumentDescription& description, const GridControl::Row& cells, std::size_t field) {
    const std::string& cell = cells[DocumentColumns::OfField(field)];
    return Value::TextOrNull(description.storing.trims ? Trim(cell) : std::string_view(cell));
}

std::optional<StoredDocument> FindDocument(store::Database& database, const DocumentDescription& description,
                                           const GridControl::Row& cells, int except) {
    return description.storing.nullMatchesAll ? FindWithNulls(database, description, cells, except)
                                              : FindExact(database, description, cells, except);
}

std::optional<StoredDocument> FindSameDocument(store::Database& database,
                                               const DocumentDescription& description,
                                               const GridControl::Row& cells, int qbId) {
    const DocumentKind& kind = description.kind;
    const auto row = database.CreateSnapshot(
        fmt::format("SELECT * FROM {} WHERE {} = {}", kind.table, kind.idColumn, qbId));
    if (row->Eof()) return std::nullopt;
    for (std::size_t field = 0; field < description.fields.size(); ++field) {
        if (description.fields[field].ofLink) continue;
        const std::string stored = row->Get(description.fields[field].column).AsText();
        if (stored != StoredText(description, cells, field).AsText()) return std::nullopt;
    }
    return StoredDocument{qbId, row->Get(kind.authorityIdColumn)};
}

}  // namespace quillon::documentation
