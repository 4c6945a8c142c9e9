// What hangs on a taxon: its links, and the documents and comments that go with their last link.
#include <array>
#include <utility>
#include <vector>

#include "editor/deletion.h"

namespace quillon::editor {

// A comment or one of the three kinds of documentation: how its external key is read, told and deleted by.
struct Deletion::Document {
    std::string_view prefix;      // of the links to it; empty for a comment
    std::string_view readKey;     // to be completed by the local id; the external id is the last column
    std::string_view table_name;  // of the tombstone
    std::string_view deletion;
    std::string_view parameter;
};

// A link row about to go: where its keys are read, and which of them make the tombstone.
struct Deletion::Link {
    std::string_view readKeys;  // the text before the condition
    std::string condition;
    std::string_view table_name;
    std::vector<std::string_view> needed;  // columns that must not be Null or 0
    std::vector<std::string_view> keys;    // columns in the order of pk1 onward
};

void Deletion::DeleteDocument(const Document& document, int id) {
    try {
        {
            const auto row = Db().CreateSnapshot(std::string(document.readKey) + std::to_string(id) + ";");
            if (!row->Eof()) {
                const Value externalId = row->At(row->ColumnCount() - 1);
                if (externalId.AsLong() != 0 && document.prefix.empty()) {
                    WriteTombstone(document.table_name, externalId);
                } else if (externalId.AsLong() != 0) {
                    WriteTombstone(document.table_name, row->At(0), externalId);
                }
            }
        }
        store::QueryDef query = Db().OpenQueryDef(document.deletion);
        query.Set(document.parameter, id);
        RunUnit(query);
    } catch (const store::StoreError& error) {
        prompter_.Message("Failed " + error.Description());
    }
}

void Deletion::DeleteComment(int id) {
    DeleteDocument({"", "Select comment_id from qb_comments where qb_comment_id = ", "comments",
                    "Delete Comment", "comID"},
                   id);
}

void Deletion::DeleteExpert(int id) {
    DeleteDocument({"EXP", "Select expert_id_prefix, expert_id from qb_experts where qb_expert_id = ",
                    "experts", "Delete Expert", "expid"},
                   id);
}

void Deletion::DeletePublication(int id) {
    DeleteDocument(
        {"PUB", "Select publication_id_prefix,publication_id from qb_publications where qb_publication_id = ",
         "publications", "Delete Publication", "pubid"},
        id);
}

void Deletion::DeleteOtherSource(int id) {
    DeleteDocument({"SRC", "Select source_id_prefix, source_id from qb_other_sources where qb_source_id = ",
                    "other_sources", "Delete Source", "srcid"},
                   id);
}

void Deletion::DeleteDocumentOf(std::string_view prefix, int docId) {
    if (prefix == "PUB") DeletePublication(docId);
    if (prefix == "EXP") DeleteExpert(docId);
    if (prefix == "SRC") DeleteOtherSource(docId);
}

void Deletion::WriteLinkTombstone(const Link& link) {
    const auto row = Db().CreateSnapshot(std::string(link.readKeys) + link.condition + ";");
    if (row->Eof()) return;
    for (const std::string_view column : link.needed) {
        if (row->Get(column).AsLong() == 0) return;
    }
    std::array<std::optional<Value>, 4> keys;
    for (std::size_t place = 0; place < link.keys.size(); ++place) keys[place] = row->Get(link.keys[place]);
    WriteTombstone(link.table_name, *keys[0], keys[1], keys[2], keys[3]);
}

void Deletion::DeleteCommentLink(int commentId) {
    try {
        const int qbId = state_.currentTaxon.qb_id;
        store::QueryDef check = Db().OpenQueryDef("Check Comment Links");
        check.Set("qbid", qbId).Set("comID", commentId);
        if (check.CreateSnapshot()->Eof()) DeleteComment(commentId);
        WriteLinkTombstone(
            {"Select tsn, comment_id from qb_tu_comments_link where ",
             "qb_id = " + std::to_string(qbId) + " and qb_comment_id = " + std::to_string(commentId),
             "tu_comments_link",
             {"tsn", "comment_id"},
             {"tsn", "comment_id"}});
        store::QueryDef query = Db().OpenQueryDef("Delete Comment Link");
        query.Set("qbid", qbId).Set("comID", commentId);
        RunUnit(query);
    } catch (const store::StoreError& error) {
        prompter_.Message("Failed " + error.Description());
    }
}

void Deletion::DeleteReferenceLink(int docId, std::string_view prefix) {
    try {
        const int qbId = state_.currentTaxon.qb_id;
        store::QueryDef check = Db().OpenQueryDef("Check Reference Links");
        check.Set("qbid", qbId).Set("docid", docId).Set("prefix", prefix);
        if (check.CreateSnapshot()->Eof()) DeleteDocumentOf(prefix, docId);
        WriteLinkTombstone(
            {"Select tsn, qb_documentation_id_prefix, documentation_id from qb_reference_links where ",
             "qb_documentation_id_prefix = \"" + std::string(prefix) + "\" and qb_documentation_id = " +
                 std::to_string(docId) + " and qb_id = " + std::to_string(qbId),
             "reference_links",
             {"documentation_id", "tsn"},
             {"qb_documentation_id_prefix", "documentation_id", "tsn"}});
        store::QueryDef query = Db().OpenQueryDef("Delete Reference Link");
        query.Set("qbid", qbId).Set("prefix", prefix).Set("docid", docId);
        RunUnit(query);
    } catch (const store::StoreError& error) {
        prompter_.Message("Failed " + error.Description());
    }
}

void Deletion::DeleteVernRefLink(std::string_view prefix, std::string_view value) {
    const std::size_t separator = value.find('|');
    if (separator == std::string_view::npos) {
        prompter_.Message("Error separating docid and qb_vern_id");
        return;
    }
    try {
        const int qbId = state_.currentTaxon.qb_id;
        const auto docId = static_cast<int>(Value(value.substr(0, separator)).AsLong());
        const std::int64_t vernId = Value(value.substr(separator + 1)).AsLong();
        store::QueryDef check = Db().OpenQueryDef("Check VReference Links");
        check.Set("qbid", qbId).Set("docid", docId).Set("prefix", prefix).Set("qbvernid", vernId);
        if (check.CreateSnapshot()->Eof()) DeleteDocumentOf(prefix, docId);
        WriteLinkTombstone(
            {"Select tsn, qb_documentation_id_prefix, documentation_id, vern_id from qb_vern_ref_links "
             "where ",
             "qb_documentation_id_prefix = \"" + std::string(prefix) +
                 "\" and qb_documentation_id = " + std::to_string(docId) +
                 " and qb_id = " + std::to_string(qbId) + " and qb_vern_id = " + std::to_string(vernId),
             "vern_ref_links",
             {"documentation_id", "tsn"},
             {"qb_documentation_id_prefix", "documentation_id", "tsn", "vern_id"}});
        store::QueryDef query = Db().OpenQueryDef("Delete VReference Link");
        query.Set("qbid", qbId).Set("prefix", prefix).Set("docid", docId).Set("qbvernid", vernId);
        RunUnit(query);
    } catch (const store::StoreError& error) {
        prompter_.Message("Failed " + error.Description());
    }
}

void Deletion::DeleteReferenceLinks() {
    // Gathered first: each deletion changes the rows under the walk.
    std::vector<std::pair<int, std::string>> links;
    {
        store::QueryDef query = Db().OpenQueryDef("Get Reference Links");
        query.Set("qbid", state_.currentTaxon.qb_id);
        for (const auto rows = query.CreateSnapshot(); !rows->Eof(); rows->MoveNext()) {
            links.emplace_back(static_cast<int>(rows->Get("qb_documentation_id").AsLong()),
                               rows->Get("qb_documentation_id_prefix").AsText());
        }
    }
    for (const auto& [docId, prefix] : links) DeleteReferenceLink(docId, prefix);
}

void Deletion::DeleteCommentLinks() {
    std::vector<int> comments;
    {
        store::QueryDef query = Db().OpenQueryDef("Get Comment Links");
        query.Set("qbid", state_.currentTaxon.qb_id);
        for (const auto rows = query.CreateSnapshot(); !rows->Eof(); rows->MoveNext()) {
            comments.push_back(static_cast<int>(rows->Get("qb_comment_id").AsLong()));
        }
    }
    for (const int commentId : comments) DeleteCommentLink(commentId);
}

void Deletion::WriteSynonymTombstones(std::string_view keyColumn) {
    const auto links =
        Db().CreateSnapshot("Select tsn, tsn_accepted, qb_id from qb_synonym_links where " +
                            std::string(keyColumn) + " = " + std::to_string(state_.currentTaxon.qb_id) + ";");
    for (; !links->Eof(); links->MoveNext()) {
        if (links->Get("tsn").AsLong() == 0 || links->Get("tsn_accepted").AsLong() == 0) continue;
        WriteTombstone("synonym_links", links->Get("tsn"), links->Get("tsn_accepted"));
    }
}

void Deletion::DeleteSynonymLinks() {
    try {
        WriteSynonymTombstones("qb_id");
        RunOnTaxon("Delete Synonym Data");
    } catch (const store::StoreError& error) {
        prompter_.Message("Failed " + error.Description());
    }
}

void Deletion::DeleteSynonymsOfAccepted() {
    try {
        WriteSynonymTombstones("qb_id_accepted");
        store::QueryDef query =
            Db().CreateQueryDef("",
                                "PARAMETERS accepted_id long; "
                                "DELETE FROM qb_synonym_links WHERE qb_id_accepted = accepted_id");
        query.Set("accepted_id", state_.currentTaxon.qb_id);
        RunUnit(query);
    } catch (const store::StoreError& error) {
        prompter_.Message("Failed " + error.Description());
    }
}

}  // namespace quillon::editor
