#include "store/schema/physical_table.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>

namespace quillon::store {

namespace {

struct TypeWord {
    FieldType type;
    std::string_view word;
    std::string_view check;  // the range of the type; {} is the column
};

constexpr std::array<TypeWord, 7> kTypeWords = {{
    {FieldType::Boolean, "LOGICAL", "{} BETWEEN 0 AND 1"},
    {FieldType::Byte, "BYTE", "{} BETWEEN 0 AND 255"},
    {FieldType::Integer, "SHORT", "{} BETWEEN -32768 AND 32767"},
    {FieldType::Long, "LONG", "{} BETWEEN -2147483648 AND 2147483647"},
    {FieldType::DateTime, "DATETIME", "length({}) = 19"},
    {FieldType::Text, "TEXT", "length({}) BETWEEN 1 AND {}"},
    {FieldType::Memo, "LONGTEXT", "length({}) BETWEEN 1 AND 65535"},
}};

// Frequent look-ups without an index in the schema.
struct LookupIndex {
    std::string_view table, name, columns;
    bool deferrable;
    std::string_view where = {};
};
// The prefix comes first, so that a client without the collation never chooses the index.
constexpr std::string_view kDocumentColumns = "qb_documentation_id_prefix COLLATE QLN, qb_documentation_id";
constexpr std::string_view kHasPrefix = "qb_documentation_id_prefix IS NOT NULL";

constexpr std::array<LookupIndex, 22> kLookups = {{
    {"qb_taxonomic_units", "~parent", "parent_qb_id", true},
    {"qb_taxonomic_units", "~rank", "rank_id", true},
    {"qb_taxonomic_units", "~name",
     "unit_name1 COLLATE QLN, unit_name2 COLLATE QLN, unit_name3 COLLATE QLN, unit_name4 COLLATE QLN", true},
    {"qb_taxonomic_units", "~hybrid", "hybrid_author_id", true, "hybrid_author_id IS NOT NULL"},
    {"qb_taxon_authors_lookup", "~author", "taxon_author", true},
    {"qb_taxon_authors_lookup", "~order", "taxon_author COLLATE QLN", true, "taxon_author IS NOT NULL"},
    {"qb_synonym_links", "~accepted", "qb_id_accepted", true},
    {"qb_vernaculars", "~taxon", "qb_id", true},
    {"qb_vernaculars", "~vern_id", "vern_id", true},
    {"qb_tu_comments_link", "~comment", "qb_comment_id", true},
    {"qb_reference_links", "~document", kDocumentColumns, true, kHasPrefix},
    {"qb_vern_ref_links", "~document", kDocumentColumns, true, kHasPrefix},
    {"qb_nodc_ids", "~taxon", "qb_id", true},
    {"qb_comments", "~stamp", "comment_time_stamp COLLATE QLN", true, "comment_time_stamp IS NOT NULL"},
    {"db_tombstone", "~key", "table_name COLLATE QLN, pk1 COLLATE QLN, pk2 COLLATE QLN", true,
     "pk2 IS NOT NULL"},
    {"qb_publications", "~id", "qb_publication_id", true},
    {"qb_experts", "~id", "qb_expert_id", true},
    {"qb_other_sources", "~id", "qb_source_id", true},
    {"qb_publications", "~content",
     "reference_author COLLATE QLN, publication_name COLLATE QLN, title COLLATE QLN", true},
    {"qb_experts", "~content", "expert COLLATE QLN", true},
    {"qb_other_sources", "~content", "source COLLATE QLN", true},
    {"qb_change_tracks", "~taxon", "qb_id", true},
}};

// kTypeWords has the order of FieldType.
const TypeWord& WordOf(FieldType type) {
    return kTypeWords.at(static_cast<std::size_t>(type));
}

std::string CheckSql(const FieldDef& field) {
    const std::string name = QuoteName(field.name);
    const std::string_view check = WordOf(field.type).check;
    return field.type == FieldType::Text ? fmt::format(fmt::runtime(check), name, field.size)
                                         : fmt::format(fmt::runtime(check), name);
}

std::string Collated(const FieldDef& field) {
    return QuoteName(field.name) + (HasText(field.type) ? " COLLATE QLN" : "");
}

// A document's prefix is one of three fixed words. For these the key in byte order is enough to prevent
// duplicates, so a bulk load can defer the index under the collation.
bool HoldsFixedWord(std::string_view field) {
    return field.ends_with("_id_prefix");
}

}  // namespace

bool HasText(FieldType type) {
    return type == FieldType::Text || type == FieldType::Memo;
}

std::vector<std::string> PhysicalTable::KeyColumns() const {
    if (key == KeyKind::Clustered) return def.PrimaryKey()->fields;
    return {key == KeyKind::Rowid ? autoField : std::string("rowid")};
}

PhysicalTable PhysicalTableOf(const TableDef& def) {
    PhysicalTable table;
    table.def = def;
    for (const FieldDef& field : def.fields)
        if (field.autoIncrement) table.autoField = field.name;
    if (const IndexDef* key = def.PrimaryKey()) {
        const bool counted = key->fields.size() == 1 && SameWord(key->fields[0], table.autoField);
        table.key = counted ? KeyKind::Rowid : KeyKind::Clustered;
    }
    return table;
}

bool ParseColumnType(std::string_view declared, FieldDef& field) {
    std::string_view word = declared.substr(0, declared.find('('));
    if (SameWord(word, "COUNTER")) {
        field.type = FieldType::Long;
        field.autoIncrement = true;
        return true;
    }
    const auto* found = std::find_if(kTypeWords.begin(), kTypeWords.end(),
                                     [&](const TypeWord& w) { return SameWord(w.word, word); });
    if (found == kTypeWords.end()) return false;
    field.type = found->type;
    if (field.type != FieldType::Text) return true;
    if (word.size() == declared.size()) return false;
    const char* digits = declared.data() + word.size() + 1;
    std::from_chars(digits, declared.data() + declared.size(), field.size);
    return field.size >= 1 && field.size <= 255;
}

std::string ColumnSql(const FieldDef& field, bool rowidKey) {
    if (rowidKey) return QuoteName(field.name) + " INTEGER PRIMARY KEY";
    std::string type(field.autoIncrement ? "COUNTER" : WordOf(field.type).word);
    if (field.type == FieldType::Text) type += fmt::format("({})", field.size);
    return fmt::format("{} {}{} CONSTRAINT {} CHECK ({})", QuoteName(field.name), type,
                       field.required ? " NOT NULL" : "", QuoteName(field.name), CheckSql(field));
}

std::string CreateTableSql(const PhysicalTable& table, std::string_view name) {
    std::string sql = fmt::format("CREATE TABLE {} (", QuoteName(name));
    for (const FieldDef& field : table.def.fields) {
        const bool rowidKey = table.key == KeyKind::Rowid && field.name == table.autoField;
        sql += "\n  " + ColumnSql(field, rowidKey) + ",";
    }
    if (table.key != KeyKind::Clustered) {
        sql.back() = ')';
        return sql;
    }
    sql += "\n  PRIMARY KEY (";
    for (const std::string& field : table.def.PrimaryKey()->fields) sql += QuoteName(field) + ", ";
    sql.resize(sql.size() - 2);
    return sql += ")) WITHOUT ROWID";
}

std::string IndexName(std::string_view table, std::string_view index) {
    return fmt::format("{}.{}", table, index);
}

std::vector<const FieldDef*> IndexedNumbers(const PhysicalTable& table) {
    std::vector<const FieldDef*> numbers;
    const auto add = [&](std::string_view name) {
        const FieldDef* field = table.def.Field(name);
        const bool isNumber = field != nullptr && field->type == FieldType::Long && !field->autoIncrement;
        if (isNumber && std::find(numbers.begin(), numbers.end(), field) == numbers.end())
            numbers.push_back(field);
    };
    for (const IndexDef& index : table.def.indexes) {
        const bool withoutText =
            std::none_of(index.fields.begin(), index.fields.end(),
                         [&](const std::string& name) { return HasText(table.def.Field(name)->type); });
        if (index.primary || withoutText) add(index.fields.front());
    }
    for (const LookupIndex& lookup : kLookups)
        if (SameWord(lookup.table, table.def.name)) add(lookup.columns);
    return numbers;
}

std::vector<IndexSql> CreateIndexSql(const PhysicalTable& table) {
    std::vector<IndexSql> statements;
    const std::string on = QuoteName(table.def.name);
    for (const IndexDef& index : table.def.indexes) {
        std::string fields, guard;
        bool fixedWords = true;
        for (const std::string& name : index.fields) {
            const FieldDef* field = table.def.Field(name);
            fields += (fields.empty() ? "" : ", ") + Collated(*field);
            if (guard.empty() && HasText(field->type)) guard = QuoteName(name);
            fixedWords = fixedWords && (!HasText(field->type) || HoldsFixedWord(name));
        }
        if (index.primary && guard.empty()) continue;
        const std::string name = IndexName(table.def.name, index.name);
        const std::string where = guard.empty() ? "" : fmt::format(" WHERE {} IS NOT NULL", guard);
        statements.push_back({name,
                              fmt::format("CREATE {}INDEX {} ON {} ({}){}", index.primary ? "UNIQUE " : "",
                                          QuoteName(name), on, fields, where),
                              !index.primary || fixedWords});
    }
    for (const LookupIndex& lookup : kLookups) {
        if (!SameWord(lookup.table, table.def.name)) continue;
        const std::string name = fmt::format("{}{}", table.def.name, lookup.name);
        const std::string where = lookup.where.empty() ? "" : fmt::format(" WHERE {}", lookup.where);
        statements.push_back(
            {name, fmt::format("CREATE INDEX {} ON {} ({}){}", QuoteName(name), on, lookup.columns, where),
             lookup.deferrable, true});
    }
    return statements;
}

}  // namespace quillon::store
