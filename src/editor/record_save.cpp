#include "editor/record_save.h"

#include <string>

#include "core/text.h"
#include "editor/taxon_row.h"
#include "records/authors.h"
#include "records/journal.h"
#include "records/links.h"
#include "store/command.h"
#include "store/unit.h"

namespace quillon::editor {

using records::RecordStore;

namespace {

// AutoNumbers increase, so the last row added has the highest one.
int LastTaxon(store::Database& database) {
    return static_cast<int>(
        database.CreateSnapshot("SELECT max(qb_id) AS last FROM qb_taxonomic_units")->At(0).AsLong());
}

void DeleteAuthor(const RecordStore& records, int authorId) {
    store::QueryDef query = records.database.OpenQueryDef("Delete Author");
    records.RunUnit(query.Set("author", authorId));
}

// Resets the id of a new record to 0 when its save fails.
class NewId {
public:
    explicit NewId(int& id) : id_(id) {}
    ~NewId() {
        if (!kept_) id_ = 0;
    }
    NewId(const NewId&) = delete;
    NewId& operator=(const NewId&) = delete;
    void Keep() { kept_ = true; }

private:
    int& id_;
    bool kept_ = false;
};

}  // namespace

RecordStore RecordSave::Records() const {
    return {engine_, *state_.gDatabase, prompter_};
}

bool RecordSave::SaveNewTaxon() {
    const RecordStore records = Records();
    CurrentTaxon& taxon = state_.currentTaxon;
    NewId id(taxon.qb_id);
    store::Command command(engine_);
    TakeAuthors(records);
    if (!records.RunUnit(InsertTaxon(records.database, form_.taxon, taxon))) {
        DeleteAddedAuthors(records);
        command.Commit();
        return false;
    }
    taxon.qb_id = LastTaxon(records.database);
    AddTabs(records);
    Journal(records, taxon.qb_id);
    command.Commit();
    id.Keep();
    return true;
}

void RecordSave::SaveTaxonChanges() {
    const RecordStore records = Records();
    CurrentTaxon& taxon = state_.currentTaxon;
    store::Command command(engine_);
    TakeAuthors(records);
    DeleteReplacedAuthors(records);
    if (!records.RunUnit(UpdateTaxon(records.database, form_.taxon, taxon))) DeleteAddedAuthors(records);
    UpdateTabs(records);
    Journal(records, taxon.qb_id);
    if (form_.taxon.optInvalid.Value()) JournalAcceptedNames(records);
    command.Commit();
}

void RecordSave::TakeAuthors(const RecordStore& records) {
    CurrentTaxon& taxon = state_.currentTaxon;
    taxon.qb_taxon_author_id = TakeAuthor(records, form_.taxon.EnteredAuthor(), taxon.authorExisted);
    taxon.hybrid_author_id =
        TakeAuthor(records, form_.taxon.EnteredHybridAuthor(), taxon.hybridAuthorExisted);
}

// The id of the author with this text, which is added if it does not exist.
int RecordSave::TakeAuthor(const RecordStore& records, const std::string& author, bool& existed) {
    existed = true;
    if (author.empty()) return 0;
    if (const int id = records::FindAuthor(records.database, author); id != 0) return id;
    existed = false;
    return records::AddAuthor(records, author, state_.currentTaxon.kingdom_id);
}

void RecordSave::DeleteAddedAuthors(const RecordStore& records) {
    const CurrentTaxon& taxon = state_.currentTaxon;
    if (!taxon.authorExisted) DeleteAuthor(records, taxon.qb_taxon_author_id);
    if (!taxon.hybridAuthorExisted) DeleteAuthor(records, taxon.hybrid_author_id);
}

// Deletes replaced authors of the record that no other taxon has. An author that only moves to the other
// field is kept.
void RecordSave::DeleteReplacedAuthors(const RecordStore& records) {
    const CurrentTaxon& taxon = state_.currentTaxon;
    const auto keeps = [&](const Value& id) {
        return id.AsLong() == taxon.qb_taxon_author_id || id.AsLong() == taxon.hybrid_author_id;
    };
    Value author, hybridAuthor;
    {
        auto query = records.database.OpenQueryDef("Get Taxon Data");
        const auto stored = query.Set("qbid", taxon.qb_id).CreateSnapshot();
        if (stored->Eof()) return;
        author = stored->Get("qb_taxon_author_id");
        hybridAuthor = stored->Get("hybrid_author_id");
    }
    for (const Value& id : {author, hybridAuthor}) {
        if (id.AsLong() != 0 && !keeps(id)) records::DeleteAuthorIfUnused(records, id, taxon.qb_id);
    }
}

// Stops at the first tab that fails, except for the distribution.
void RecordSave::AddTabs(const RecordStore& records) {
    form_.distribution.SaveNew(records);
    if (!form_.vernaculars.SaveNew(records)) return;
    if (!form_.comments.SaveNew(records)) return;
    if (form_.taxon.optInvalid.Value() && !form_.synonyms.SaveNew(records)) return;
    if (!form_.publications.SaveNew(records)) return;
    if (!form_.experts.SaveNew(records)) return;
    form_.otherSources.SaveNew(records);
}

void RecordSave::UpdateTabs(const RecordStore& records) {
    form_.distribution.SaveChanges(records);
    form_.vernaculars.SaveChanges(records);
    UpdateSynonymLinks(records);
    form_.comments.SaveChanges(records);
    form_.publications.SaveChanges(records);
    form_.experts.SaveChanges(records);
    form_.otherSources.SaveChanges(records);
}

// A name that is not accepted has no synonyms, and an accepted name is not a synonym.
void RecordSave::UpdateSynonymLinks(const RecordStore& records) {
    const int qb_id = state_.currentTaxon.qb_id;
    if (form_.taxon.optInvalid.Value()) {
        records::DeleteSynonymsOfAccepted(records, qb_id);
        form_.synonyms.SaveChanges(records);
    } else if (form_.taxon.optValid.Value()) {
        records::DeleteSynonymLinks(records, qb_id);
    }
}

// The accepted names of a name that is not accepted count as changed with it.
void RecordSave::JournalAcceptedNames(const RecordStore& records) {
    records.Reporting([&] {
        const auto links = records.database.CreateSnapshot("Select * from qb_synonym_links where qb_id = " +
                                                           std::to_string(state_.currentTaxon.qb_id));
        for (; !links->Eof(); links->MoveNext())
            Journal(records, static_cast<int>(links->Get("qb_id_accepted").AsLong()));
    });
}

void RecordSave::Journal(const RecordStore& records, int qb_id) {
    records.Reporting([&] {
        store::Unit unit(engine_);
        records::AddToJournal(records.database, qb_id);
        unit.Commit();
    });
}

}  // namespace quillon::editor
