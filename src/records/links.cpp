#include "records/links.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "records/documents.h"
#include "records/tombstones.h"
#include "store/unit.h"

namespace quillon::records {

namespace {

// A link row to delete: how its keys are read, and which of them form the tombstone.
struct Link {
    std::string_view readKeys;  // the text before the condition
    std::string condition;
    std::string_view table_name;
    std::vector<std::string_view> needed;  // columns that must not be Null or 0
    std::vector<std::string_view> keys;    // columns in the order of pk1 onward
};

constexpr std::string_view kCommentLinkKeys = "Select tsn, comment_id from qb_tu_comments_link where ";
constexpr std::string_view kReferenceLinkKeys =
    "Select tsn, qb_documentation_id_prefix, documentation_id from qb_reference_links where ";
constexpr std::string_view kVernRefLinkKeys =
    "Select tsn, qb_documentation_id_prefix, documentation_id, vern_id from qb_vern_ref_links where ";

// Finds other links to a document: the stored queries "Check Reference Links" and "Check VReference Links"
// without their UNION, which reads every link of the document before it returns the first.
constexpr std::string_view kOtherReferences =
    "PARAMETERS qbid Long, prefix Text, docid Long; SELECT qb_id FROM qb_reference_links "
    "WHERE qb_documentation_id_prefix Is Not Null and qb_documentation_id_prefix = prefix and "
    "qb_documentation_id = docid and qb_id <> qbid;";
constexpr std::string_view kVernReferences =
    "PARAMETERS prefix Text, docid Long; SELECT qb_id FROM qb_vern_ref_links "
    "WHERE qb_documentation_id_prefix Is Not Null and qb_documentation_id_prefix = prefix and "
    "qb_documentation_id = docid;";
constexpr std::string_view kReferences =
    "PARAMETERS prefix Text, docid Long; SELECT qb_id FROM qb_reference_links "
    "WHERE qb_documentation_id_prefix Is Not Null and qb_documentation_id_prefix = prefix and "
    "qb_documentation_id = docid;";
constexpr std::string_view kOtherVernReferences =
    "PARAMETERS qbid Long, prefix Text, docid Long, qbvernid Long; SELECT qb_id FROM qb_vern_ref_links "
    "WHERE qb_documentation_id_prefix Is Not Null and qb_documentation_id_prefix = prefix and "
    "qb_documentation_id = docid and "
    "qb_vern_id NOT IN (SELECT qb_vern_id FROM qb_vern_ref_links WHERE qb_id = qbid and "
    "qb_vern_id = qbvernid and qb_documentation_id_prefix = prefix and qb_documentation_id = docid);";

bool HasRow(store::QueryDef& query) {
    return !query.OpenRecordset(store::RecordsetType::ForwardOnly)->Eof();
}

bool IsLinkedElsewhere(const RecordStore& records, int qb_id, int docId, std::string_view prefix) {
    store::QueryDef others = records.database.CreateQueryDef("", kOtherReferences);
    others.Set("qbid", qb_id).Set("prefix", prefix).Set("docid", docId);
    if (HasRow(others)) return true;
    store::QueryDef ofVernaculars = records.database.CreateQueryDef("", kVernReferences);
    ofVernaculars.Set("prefix", prefix).Set("docid", docId);
    return HasRow(ofVernaculars);
}

bool IsLinkedBesides(const RecordStore& records, int qb_id, std::int64_t qb_vern_id, int docId,
                     std::string_view prefix) {
    store::QueryDef ofTaxa = records.database.CreateQueryDef("", kReferences);
    ofTaxa.Set("prefix", prefix).Set("docid", docId);
    if (HasRow(ofTaxa)) return true;
    store::QueryDef others = records.database.CreateQueryDef("", kOtherVernReferences);
    others.Set("qbid", qb_id).Set("prefix", prefix).Set("docid", docId).Set("qbvernid", qb_vern_id);
    return HasRow(others);
}

using Keys = std::array<std::optional<Value>, 4>;

// The keys of the link's tombstone; nothing when it leaves none.
std::optional<Keys> TombstoneKeysOf(const RecordStore& records, const Link& link) {
    const auto row = records.database.CreateSnapshot(std::string(link.readKeys) + link.condition + ";");
    if (row->Eof()) return std::nullopt;
    for (const std::string_view column : link.needed) {
        if (row->Get(column).AsLong() == 0) return std::nullopt;
    }
    Keys keys;
    for (std::size_t place = 0; place < link.keys.size(); ++place) keys[place] = row->Get(link.keys[place]);
    return keys;
}

// Runs `query`, by which the link goes. A link that stays leaves no tombstone. False when the query failed,
// which has been reported.
bool RemoveLink(const RecordStore& records, const Link& link, const store::QueryDef& query) {
    const std::optional<Keys> keys = TombstoneKeysOf(records, link);
    if (!records.RunUnit(query)) return false;
    if (keys) WriteTombstone(records, link.table_name, *(*keys)[0], (*keys)[1], (*keys)[2], (*keys)[3]);
    return true;
}

std::string DocumentCondition(std::string_view prefix, int docId, int qb_id) {
    return "qb_documentation_id_prefix = \"" + std::string(prefix) +
           "\" and qb_documentation_id = " + std::to_string(docId) + " and qb_id = " + std::to_string(qb_id);
}

Link ReferenceLink(int qb_id, int docId, std::string_view prefix) {
    return {kReferenceLinkKeys,
            DocumentCondition(prefix, docId, qb_id),
            "reference_links",
            {"documentation_id", "tsn"},
            {"qb_documentation_id_prefix", "documentation_id", "tsn"}};
}

Link VernRefLink(int qb_id, int docId, std::int64_t qb_vern_id, std::string_view prefix) {
    return {kVernRefLinkKeys,
            DocumentCondition(prefix, docId, qb_id) + " and qb_vern_id = " + std::to_string(qb_vern_id),
            "vern_ref_links",
            {"documentation_id", "tsn"},
            {"qb_documentation_id_prefix", "documentation_id", "tsn", "vern_id"}};
}

bool RemoveReference(const RecordStore& records, int qb_id, int docId, std::string_view prefix) {
    store::QueryDef query = records.database.OpenQueryDef("Delete Reference Link");
    query.Set("qbid", qb_id).Set("prefix", prefix).Set("docid", docId);
    return RemoveLink(records, ReferenceLink(qb_id, docId, prefix), query);
}

bool RemoveVernReference(const RecordStore& records, int qb_id, int docId, std::int64_t qb_vern_id,
                         std::string_view prefix) {
    store::QueryDef query = records.database.OpenQueryDef("Delete VReference Link");
    query.Set("qbid", qb_id).Set("prefix", prefix).Set("docid", docId).Set("qbvernid", qb_vern_id);
    return RemoveLink(records, VernRefLink(qb_id, docId, qb_vern_id, prefix), query);
}

void WriteSynonymTombstones(const RecordStore& records, std::string_view keyColumn, int qb_id) {
    const auto links =
        records.database.CreateSnapshot("Select tsn, tsn_accepted, qb_id from qb_synonym_links where " +
                                        std::string(keyColumn) + " = " + std::to_string(qb_id) + ";");
    for (; !links->Eof(); links->MoveNext()) {
        if (links->Get("tsn").AsLong() == 0 || links->Get("tsn_accepted").AsLong() == 0) continue;
        WriteTombstone(records, "synonym_links", links->Get("tsn"), links->Get("tsn_accepted"));
    }
}

}  // namespace

void DeleteCommentLink(const RecordStore& records, int qb_id, int commentId) {
    records.Reporting([&] {
        store::QueryDef check = records.database.OpenQueryDef("Check Comment Links");
        check.Set("qbid", qb_id).Set("comID", commentId);
        if (!HasRow(check)) DeleteComment(records, commentId);
        store::QueryDef query = records.database.OpenQueryDef("Delete Comment Link");
        query.Set("qbid", qb_id).Set("comID", commentId);
        RemoveLink(records,
                   {kCommentLinkKeys,
                    "qb_id = " + std::to_string(qb_id) + " and qb_comment_id = " + std::to_string(commentId),
                    "tu_comments_link",
                    {"tsn", "comment_id"},
                    {"tsn", "comment_id"}},
                   query);
    });
}

void DeleteReferenceLink(const RecordStore& records, int qb_id, int docId, std::string_view prefix) {
    records.Reporting([&] {
        if (!IsLinkedElsewhere(records, qb_id, docId, prefix)) DeleteDocument(records, prefix, docId);
        RemoveReference(records, qb_id, docId, prefix);
    });
}

void DeleteVernRefLink(const RecordStore& records, int qb_id, std::string_view prefix,
                       std::string_view value) {
    const std::size_t separator = value.find('|');
    if (separator == std::string_view::npos) {
        records.prompter.Message("Error separating docid and qb_vern_id");
        return;
    }
    records.Reporting([&] {
        const auto docId = static_cast<int>(Value(value.substr(0, separator)).AsLong());
        const std::int64_t vernId = Value(value.substr(separator + 1)).AsLong();
        if (!IsLinkedBesides(records, qb_id, vernId, docId, prefix)) DeleteDocument(records, prefix, docId);
        RemoveVernReference(records, qb_id, docId, vernId, prefix);
    });
}

bool RemoveReferenceLink(const RecordStore& records, int qb_id, int docId, std::string_view prefix) {
    bool removed = false;
    records.Reporting([&] { removed = RemoveReference(records, qb_id, docId, prefix); });
    return removed;
}

bool RemoveVernRefLink(const RecordStore& records, int qb_id, int docId, std::int64_t qb_vern_id,
                       std::string_view prefix) {
    bool removed = false;
    records.Reporting([&] { removed = RemoveVernReference(records, qb_id, docId, qb_vern_id, prefix); });
    return removed;
}

bool MoveVernRefLink(const RecordStore& records, int qb_id, int docId, std::string_view prefix,
                     std::int64_t from, std::int64_t to, std::string_view vernacular_name) {
    bool moved = false;
    records.Reporting([&] {
        store::QueryDef query = records.database.OpenQueryDef("Update VVern_Ref Link");
        query.Set("qbid", qb_id).Set("prefix", prefix).Set("qbdocid", docId);
        query.Set("vern", vernacular_name).Set("oldqbvernid", from).Set("vernid", to);
        moved = RemoveLink(records, VernRefLink(qb_id, docId, from, prefix), query);
    });
    return moved;
}

void DeleteReferenceLinks(const RecordStore& records, int qb_id) {
    // Collected first, because each deletion changes the rows being read.
    std::vector<std::pair<int, std::string>> links;
    {
        store::QueryDef query = records.database.OpenQueryDef("Get Reference Links");
        query.Set("qbid", qb_id);
        for (const auto rows = query.CreateSnapshot(); !rows->Eof(); rows->MoveNext()) {
            links.emplace_back(static_cast<int>(rows->Get("qb_documentation_id").AsLong()),
                               rows->Get("qb_documentation_id_prefix").AsText());
        }
    }
    for (const auto& [docId, prefix] : links) DeleteReferenceLink(records, qb_id, docId, prefix);
}

void DeleteCommentLinks(const RecordStore& records, int qb_id) {
    std::vector<int> comments;
    {
        store::QueryDef query = records.database.OpenQueryDef("Get Comment Links");
        query.Set("qbid", qb_id);
        for (const auto rows = query.CreateSnapshot(); !rows->Eof(); rows->MoveNext()) {
            comments.push_back(static_cast<int>(rows->Get("qb_comment_id").AsLong()));
        }
    }
    for (const int commentId : comments) DeleteCommentLink(records, qb_id, commentId);
}

bool AddSynonymLink(const RecordStore& records, const TaxonKey& synonym, const TaxonKey& accepted) {
    return records.Reporting([&] {
        store::QueryDef query = records.database.OpenQueryDef("Insert Synonym");
        query.Set("qbid", synonym.qb_id).Set("synID", accepted.qb_id);
        query.Set("thetsn", Value::IdOrNull(synonym.tsn)).Set("tsnsyn", Value::IdOrNull(accepted.tsn));
        store::Unit unit(records.engine);
        query.Execute();
        unit.Commit();
        if (synonym.tsn != 0 && accepted.tsn != 0)
            RemoveTombstone(records, "synonym_links", synonym.tsn, Value(accepted.tsn));
    });
}

void DeleteSynonymLinks(const RecordStore& records, int qb_id) {
    records.Reporting([&] {
        WriteSynonymTombstones(records, "qb_id", qb_id);
        store::QueryDef query = records.database.OpenQueryDef("Delete Synonym Data");
        query.Set("qbid", qb_id);
        records.RunUnit(query);
    });
}

void DeleteSynonymsOfAccepted(const RecordStore& records, int qb_id) {
    records.Reporting([&] {
        WriteSynonymTombstones(records, "qb_id_accepted", qb_id);
        store::QueryDef query = records.database.CreateQueryDef(
            "",
            "PARAMETERS accepted_id long; "
            "DELETE FROM qb_synonym_links WHERE qb_id_accepted = accepted_id");
        query.Set("accepted_id", qb_id);
        records.RunUnit(query);
    });
}

}  // namespace quillon::records
