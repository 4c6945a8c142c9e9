#include "row_by_row.h"

#include <fmt/format.h>

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

#include "core/text.h"
#include "selection/record_filter.h"

namespace quillon::exporting {
namespace {

using Rows = std::unique_ptr<store::Recordset>;
using Columns = std::vector<std::string>;

std::string Mid(const std::string& text, std::size_t first, std::size_t count) {
    return text.substr(first - 1, count);
}

class RowByRow {
public:
    RowByRow(const ApplicationState& state, store::Database& database)
        : state_(state), database_(database), filter_(selection::RunnableFilter(state.gRecordFilter)) {}

    std::string Write() {
        Taxa();
        Sections();
        Tombstones();
        return out_;
    }

private:
    bool IsJournal() const { return filter_ == "journal"; }
    bool IsClause() const { return filter_ != "journal" && filter_ != "none"; }

    // Field forms: plain, "?" for Yes or No, "d" for a date, "s" for a stamp, by a letter behind the column's
    // name and "/".
    static std::string Field(const store::Recordset& row, const std::string& column) {
        const std::size_t slash = column.find('/');
        const Value value = row.Get(column.substr(0, slash));
        const char form = slash == std::string::npos ? ' ' : column[slash + 1];
        if (form == '?') return !value.IsNull() && value.AsBoolean() ? "Yes" : "No";
        const std::string text = value.AsText();
        if (form == 'd')
            return text.size() == 10 ? Mid(text, 4, 3) + Mid(text, 1, 3) + Mid(text, 7, 4) : std::string();
        if (form == 's')
            return text.size() == 14 ? Mid(text, 5, 4) + "-" + Mid(text, 3, 2) + "-" + Mid(text, 1, 2) + " " +
                                           Mid(text, 9, 2) + ":" + Mid(text, 11, 2) + ":" + Mid(text, 13, 2)
                                     : std::string();
        return value.IsInteger() && value.AsLong() == 0 ? std::string() : text;
    }

    // Exclusion.
    bool RowPasses(std::int64_t qb_id) const {
        return std::count(state_.gRejectedTaxa.begin(), state_.gRejectedTaxa.end(),
                          static_cast<int>(qb_id)) == 0;
    }
    bool DocumentRejected(const std::string& prefix, std::int64_t id) const {
        return std::any_of(state_.gRejectedDocs.begin(), state_.gRejectedDocs.end(),
                           [&](const auto& doc) { return EqualText(doc.first, prefix) && doc.second == id; });
    }
    bool AnyRow(store::QueryDef& query, const std::function<bool(std::int64_t)>& passes) const {
        for (const Rows rows = query.CreateSnapshot(); !rows->Eof(); rows->MoveNext())
            if (passes(rows->At(0).AsLong())) return true;
        return false;
    }
    bool AuthorPasses(std::int64_t authorId) {
        if (state_.gRejectedTaxa.empty()) return true;
        store::QueryDef query = database_.OpenQueryDef("Get Taxon by Author");
        query.Set("authorid", authorId);
        return AnyRow(query, [this](std::int64_t id) { return RowPasses(id); });
    }
    bool DocPasses(const std::string& prefix, std::int64_t id) {
        if (DocumentRejected(prefix, id)) return false;
        if (state_.gRejectedTaxa.empty()) return true;
        store::QueryDef query = database_.OpenQueryDef("Validate Reference Links");
        query.Set("prefix", prefix).Set("docid", id);
        return AnyRow(query, [this](std::int64_t qb_id) {
            return std::any_of(state_.gRejectedTaxa.begin(), state_.gRejectedTaxa.end(),
                               [&](int rejected) { return rejected != qb_id; });
        });
    }
    bool CommentPasses(std::int64_t id) {
        store::QueryDef query = database_.OpenQueryDef("Validate Comment Links");
        query.Set("comID", id);
        return AnyRow(query, [this](std::int64_t qb_id) { return RowPasses(qb_id); });
    }

    // Taxa.
    std::vector<std::int64_t> ListedIds() {
        std::string source = "Select qb_id from qb_taxonomic_units";
        if (IsJournal()) source = "Select qb_id from journal";
        if (IsClause()) source = "select qb_id from qb_taxonomic_units " + filter_;
        std::vector<std::int64_t> ids;
        for (const Rows rows = database_.CreateSnapshot(source); !rows->Eof(); rows->MoveNext())
            ids.push_back(rows->At(0).AsLong());
        std::sort(ids.begin(), ids.end());
        return ids;
    }
    static std::string Number(std::int64_t number) { return number == 0 ? "" : std::to_string(number); }
    void TaxonLine(const store::Recordset& row, const std::string& parent_tsn, const std::string& parent,
                   const std::string& authors) {
        std::string line = "[TU]";
        for (const char* column :
             {"qb_id", "tsn", "unit_ind1", "unit_name1", "unit_ind2", "unit_name2", "unit_ind3", "unit_name3",
              "unit_ind4", "unit_name4", "unnamed_taxon_ind", "usage"})
            line += Field(row, column) + "|";
        const std::string reason = Field(row, "unacceptability_reason");
        line += (reason == "syn-original combina" ? "syn-original combination" : reason) + "|";
        for (const char* column : {"taxonomic_credibility_rating", "taxonomic_completeness_rating",
                                   "currency_rating", "phylo_sort_sequence", "initial_time_stamp"})
            line += Field(row, column) + "|";
        line += parent_tsn + "|" + parent + "|" + authors;
        for (const char* column : {"kingdom_id", "rank_id", "uncertain_parent_ind/?"})
            line += Field(row, column) + "|";
        out_ += line + "\r\n";
    }
    std::string Authors(const store::Recordset& row) {
        const std::int64_t author = row.Get("qb_taxon_author_id").AsLong();
        std::string authority;
        if (author != 0) {
            store::QueryDef query = database_.OpenQueryDef("Get Author Name");
            query.Set("authorid", author);
            const Rows name = query.CreateSnapshot();
            if (!name->Eof()) authority = Number(name->Get("taxon_author_id").AsLong());
        }
        return authority + "|" + Field(row, "qb_taxon_author_id") + "|" + Field(row, "hybrid_author_id") +
               "|";
    }
    void Taxa() {
        database_.Execute(
            "UPDATE qb_taxonomic_units INNER JOIN qb_taxonomic_units AS qb_taxonomic_units_1 ON "
            "qb_taxonomic_units.parent_qb_id = qb_taxonomic_units_1.qb_id SET qb_taxonomic_units.parent_tsn "
            "= "
            "[qb_taxonomic_units_1].[tsn] WHERE (((qb_taxonomic_units.parent_tsn) Is Null));");
        const Rows root = database_.CreateDynaset("Select * from qb_taxonomic_units where rank_id = 10;");
        const std::int64_t kingdom = root->Get("qb_id").AsLong();
        TaxonLine(*root, Field(*root, "tsn"), Number(kingdom), "|||");
        const std::vector<std::int64_t> ids = ListedIds();
        const Rows taxa = database_.OpenQueryDef("Get All Taxons").CreateDynaset();
        for (const std::int64_t id : ids) {
            if (id == kingdom) continue;
            const std::string criteria = fmt::format("qb_id = {}", id);
            for (taxa->FindFirst(criteria); !taxa->NoMatch(); taxa->FindNext(criteria)) {
                std::string parent;
                const Value parentId = taxa->Get("parent_qb_id");
                if (!parentId.IsNull())
                    parent =
                        Number(std::count(ids.begin(), ids.end(), parentId.AsLong()) > 0 ? parentId.AsLong()
                                                                                         : kingdom);
                if (RowPasses(id)) TaxonLine(*taxa, Field(*taxa, "parent_tsn"), parent, Authors(*taxa));
            }
        }
    }

    // The other sections. `from` is what stands behind FROM under "none".
    using Passes = std::function<bool(const store::Recordset&)>;
    std::string Select(const std::string& head, const std::string& from) const {
        if (IsJournal())
            return head + " FROM (" + from +
                   ") INNER JOIN journal ON qb_taxonomic_units.qb_id = journal.qb_id";
        return head + " FROM " + from + (IsClause() ? filter_ : "");
    }
    static bool KeyIsLess(const std::vector<Value>& left, const std::vector<Value>& right) {
        for (std::size_t i = 0; i < left.size(); ++i) {
            if (left[i] == right[i]) continue;
            return left[i].IsText() ? left[i].Text() < right[i].Text() : left[i].AsLong() < right[i].AsLong();
        }
        return false;
    }
    void Section(const std::string& tag, const std::string& select, const Columns& key, const Columns& fields,
                 const Passes& passes) {
        std::vector<std::pair<std::vector<Value>, std::string>> lines;
        for (const Rows rows = database_.CreateSnapshot(select); !rows->Eof(); rows->MoveNext()) {
            if (!passes(*rows)) continue;
            std::vector<Value> keyValues;
            for (const std::string& column : key) keyValues.push_back(rows->Get(column));
            std::string line = tag;
            for (const std::string& field : fields) line += FieldOrComment(*rows, field) + "|";
            lines.emplace_back(std::move(keyValues), line + "\r\n");
        }
        std::stable_sort(lines.begin(), lines.end(), [](const auto& left, const auto& right) {
            return KeyIsLess(left.first, right.first);
        });
        for (const auto& [keyValues, line] : lines) out_ += line;
    }
    // A document's comment is fetched by "comment table id".
    std::string FieldOrComment(const store::Recordset& row, const std::string& field) {
        if (field.find(' ') == std::string::npos) return Field(row, field);
        const std::size_t first = field.find(' '), second = field.find(' ', first + 1);
        const std::string id = field.substr(second + 1);
        const Rows comment = database_.CreateSnapshot(
            fmt::format("SELECT {} from {} where  {} = {};", field.substr(0, first),
                        field.substr(first + 1, second - first - 1), id, row.Get(id).AsLong()));
        return comment->Eof() ? std::string() : comment->At(0).AsText();
    }
    // A table joined to its taxa on qb_id.
    static std::string Joined(const std::string& table) {
        return fmt::format("qb_taxonomic_units INNER JOIN {0} ON qb_taxonomic_units.qb_id = {0}.qb_id",
                           table);
    }
    void OfTaxa(const std::string& tag, const std::string& table, const Columns& key, const Columns& fields,
                const Passes& passes) {
        Section(tag, Select("SELECT " + table + ".*", Joined(table)), key, fields, passes);
    }
    void Synonyms() {
        const std::string from =
            "qb_taxonomic_units AS qb_taxonomic_units_1 INNER JOIN (qb_taxonomic_units INNER JOIN "
            "qb_synonym_links ON "
            "qb_taxonomic_units.qb_id = qb_synonym_links.qb_id) ON qb_taxonomic_units_1.qb_id = "
            "qb_synonym_links.qb_id_accepted";
        const std::string head = "SELECT qb_synonym_links.* FROM ";
        std::string select = head + from;
        if (IsClause()) {
            // The filter bears the table's name here, so that the second test is put on the other table.
            const std::string test = filter_.substr(7);
            select += " WHERE " + test + " AND " +
                      ReplaceText(test, "qb_taxonomic_units.", "qb_taxonomic_units_1.");
        }
        if (IsJournal())
            select = head + "(" + from +
                     ") INNER JOIN journal ON qb_taxonomic_units.qb_id = journal.qb_id UNION " + head + "(" +
                     from + ") INNER JOIN journal ON qb_taxonomic_units_1.qb_id = journal.qb_id";
        Section("[SY]", select, {"qb_id", "qb_id_accepted"},
                {"qb_id", "qb_id_accepted", "tsn", "tsn_accepted"}, OfRow());
    }
    void Documents(const std::string& tag, const std::string& table, const std::string& prefix,
                   const std::string& id, const Columns& fields) {
        const std::string comment = fields.back();
        std::string columns, select;
        for (std::size_t i = 0; i + 1 < fields.size(); ++i)
            columns += (i == 0 ? "" : ", ") + table + "." + fields[i].substr(0, fields[i].find('/'));
        for (const std::string links : {"qb_reference_links", "qb_vern_ref_links"})
            select +=
                (select.empty() ? "" : " UNION ") +
                Select("SELECT distinctrow " + columns,
                       fmt::format("({0}) INNER JOIN {1} ON {2}.qb_documentation_id_prefix = {1}.{3} AND "
                                   "{2}.qb_documentation_id = {1}.{4}",
                                   Joined(links), table, links, prefix, id));
        Columns written = fields;
        written.back() = comment + " " + table + " " + id;
        Section(tag, select, {prefix, id}, written, [&](const store::Recordset& row) {
            return DocPasses(row.Get(prefix).AsText(), row.Get(id).AsLong());
        });
    }
    Passes OfRow() {
        return [this](const store::Recordset& row) { return RowPasses(row.Get("qb_id").AsLong()); };
    }
    Passes OfLink() {
        return [this](const store::Recordset& row) {
            return RowPasses(row.Get("qb_id").AsLong()) &&
                   !DocumentRejected(row.Get("qb_documentation_id_prefix").AsText(),
                                     row.Get("qb_documentation_id").AsLong());
        };
    }
    static Passes All() {
        return [](const store::Recordset&) { return true; };
    }

    void Sections();
    void Changes();

    void Tombstones() {
        const std::vector<std::tuple<std::string, std::string, int>> tags = {
            {"comments", "[CM-]", 1},      {"tu_comments_link", "[CL-]", 2},
            {"experts", "[EX-]", 2},       {"geographic_division", "[GD-]", 2},
            {"jurisdiction", "[JR-]", 2},  {"other_sources", "[OS-]", 2},
            {"publications", "[PB-]", 2},  {"reference_links", "[RF-]", 3},
            {"synonym_links", "[SY-]", 2}, {"taxon_authors_lookup", "[TA-]", 2},
            {"vernaculars", "[VR-]", 2},   {"vern_ref_links", "[VL-]", 4}};
        for (const Rows rows = database_.OpenTable("db_tombstone"); !rows->Eof(); rows->MoveNext()) {
            std::string tag;
            int keys = 2;
            for (const auto& [table, known, count] : tags)
                if (table == LowerCase(rows->Get("table_name").AsText()))
                    std::tie(tag, keys) = std::pair(known, count);
            for (int i = 1; i <= keys; ++i) tag += rows->Get(fmt::format("pk{}", i)).AsText() + "|";
            out_ += tag + "\r\n";
        }
    }

    const ApplicationState& state_;
    store::Database& database_;
    std::string filter_;
    std::string out_;
};

void RowByRow::Sections() {
    Section(
        "[TA]",
        Select("Select distinct qb_taxon_authors_lookup.*",
               "qb_taxonomic_units inner join qb_taxon_authors_lookup on "
               "qb_taxonomic_units.qb_taxon_author_id = "
               "qb_taxon_authors_lookup.qb_taxon_author_id"),
        {"qb_taxon_author_id"}, {"qb_taxon_author_id", "taxon_author_id", "taxon_author", "kingdom_id"},
        [this](const store::Recordset& row) { return AuthorPasses(row.Get("qb_taxon_author_id").AsLong()); });
    OfTaxa("[NO]", "qb_nodc_ids", {"nodc_id", "qb_id"}, {"nodc_id", "tsn", "qb_id"}, OfRow());
    OfTaxa("[VR]", "qb_vernaculars", {"qb_vern_id"},
           {"qb_id", "qb_vern_id", "vern_id", "vernacular_name", "tsn", "language", "approved_ind/?"},
           OfRow());
    Synonyms();
    OfTaxa("[GD]", "qb_geographic_division", {"qb_id", "geographic_value"},
           {"qb_id", "geographic_value", "tsn"}, OfRow());
    OfTaxa("[JR]", "qb_jurisdiction", {"qb_id", "jurisdiction_value"},
           {"qb_id", "jurisdiction_value", "origin", "tsn"}, OfRow());
    OfTaxa("[RF]", "qb_reference_links", {"qb_id", "qb_documentation_id_prefix", "qb_documentation_id"},
           {"qb_id", "qb_documentation_id_prefix", "qb_documentation_id", "tsn", "qb_documentation_id_prefix",
            "documentation_id", "original_desc_ind/?", "initial_orva_desc_ind/?", "qb_change_track_id",
            "vernacular_name"},
           OfLink());
    Documents("[PB]", "qb_publications", "publication_id_prefix", "qb_publication_id",
              {"publication_id_prefix", "qb_publication_id", "publication_id", "reference_author", "title",
               "publication_name", "listed_pub_date/d", "actual_pub_date/d", "publisher", "pub_place", "isbn",
               "issn", "pages", "pub_comment"});
    Documents("[EX]", "qb_experts", "expert_id_prefix", "qb_expert_id",
              {"expert_id_prefix", "qb_expert_id", "expert_id", "expert", "exp_comment"});
    Documents("[OS]", "qb_other_sources", "source_id_prefix", "qb_source_id",
              {"source_id_prefix", "qb_source_id", "source_id", "source_type", "source", "version",
               "acquisition_date/d", "source_comment"});
    OfTaxa("[VL]", "qb_vern_ref_links",
           {"qb_id", "qb_documentation_id_prefix", "qb_documentation_id", "qb_vern_id"},
           {"qb_id", "qb_vern_id", "vern_id", "qb_documentation_id_prefix", "qb_documentation_id", "tsn",
            "qb_documentation_id_prefix", "documentation_id"},
           OfLink());
    OfTaxa("[CL]", "qb_tu_comments_link", {"qb_id", "qb_comment_id"},
           {"qb_id", "qb_comment_id", "tsn", "comment_id"}, OfRow());
    Section(
        "[CM]",
        Select(
            "SELECT DISTINCTROW qb_comments.*",
            "(" + Joined("qb_tu_comments_link") +
                ") INNER JOIN qb_comments ON qb_tu_comments_link.qb_comment_id = qb_comments.qb_comment_id"),
        {"qb_comment_id"},
        {"qb_comment_id", "comment_id", "commentator", "comment_detail", "comment_time_stamp/s"},
        [this](const store::Recordset& row) { return CommentPasses(row.Get("qb_comment_id").AsLong()); });
    Changes();
}

void RowByRow::Changes() {
    OfTaxa("[CT]", "qb_change_tracks", {"qb_change_track_id"},
           {"qb_change_track_id", "change_track_id", "old_tsn", "change_reason", "change_initiator",
            "change_reviewer", "change_certifier", "change_time_stamp", "tsn", "qb_id"},
           All());
    const auto ofTracks = [&](const std::string& table) {
        return Select(
            "SELECT DISTINCTROW " + table + ".*",
            fmt::format("({}) INNER JOIN {} ON qb_change_tracks.qb_change_track_id = {}.qb_change_track_id",
                        Joined("qb_change_tracks"), table, table));
    };
    Section("[CO]", ofTracks("qb_change_operations"), {"qb_change_track_id", "chg_op_id"},
            {"qb_change_track_id", "chg_op_id", "change_track_id"}, All());
    Section("[CC]", ofTracks("qb_change_comments"), {"qb_change_track_id", "qb_chg_cmt_id"},
            {"qb_change_track_id", "change_track_id", "chg_cmt_id", "change_detail"}, All());
}

}  // namespace

std::string ExportRowByRow(const ApplicationState& state, store::Database& database) {
    return RowByRow(state, database).Write();
}

}  // namespace quillon::exporting
