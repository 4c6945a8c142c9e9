// What the record handlers and the closing pass of one tagged import share: the maps, the writers, the
// findings.
//
// Made for one file and thrown away after it. Nothing here reads the file or knows a tag.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/application_state.h"
#include "core/outside.h"
#include "core/vocabulary.h"
#include "import/id_maps.h"
#include "import/import_log.h"
#include "records/record_store.h"
#include "store/bulk.h"
#include "store/engine.h"

namespace quillon::importing {

// A statement for each table that lines are stored into.
struct RecordWriters {
    explicit RecordWriters(store::Database& database);

    store::RowWriter taxa, authors, nodcIds, vernaculars, synonyms, divisions, jurisdictions;
    store::RowWriter references, vernReferences, publications, experts, otherSources, comments, commentLinks;
    store::RowWriter changeTracks, changeOperations, changeComments;
};

// The AutoNumber of a table whose rows are stored at once. A row that could not be stored leaves its number
// to the next.
class NextNumber {
public:
    NextNumber(store::BulkLoad& load, std::string_view table) : load_(load), table_(table) {}
    std::int32_t Get();
    void Used() { number_ = 0; }

private:
    store::BulkLoad& load_;
    std::string_view table_;
    std::int32_t number_ = 0;
};

class ImportRun {
public:
    // Reads the DataSet's authors, kingdom rank and Kingdom records. Throws StoreError.
    ImportRun(ApplicationState& state, store::Engine& engine, store::BulkLoad& load, Prompter& prompter,
              FindingSink sink);

    store::Database& Db() const { return *state.gDatabase; }

    // Marks the import error. A finding of the closing pass has no line.
    void Report(std::string sentence, std::string_view line = {});
    bool ImportError() const { return importError_; }

    // The row of the taxon with this key; a new one with -1 for parent and authors when the key is new.
    RowPlace SeeTaxon(std::int32_t key);
    // The row of the key in a map whose records go to `table`; a new one when the key is new.
    template <typename Row>
    Row& See(KeyedRows<Row>& rows, std::string_view table, std::int32_t key) {
        RowPlace place = rows.Find(key);
        if (place == kNoRow) place = rows.Append(NewRow<Row>(key, ReserveId(table)));
        return rows[place];
    }

    // Stores the writer's row. A failure is told and false given; but a failure of the disk or the file,
    // after which no line could be stored, passes through as StoreError.
    bool Store(store::RowWriter& writer);
    // The same for the row of a placeholder: a record stored there already is overwritten.
    bool StoreOwn(store::RowWriter& writer, Stored& stored);
    // Runs `action` with the same border for errors.
    template <typename Action>
    bool Guarded(const Action& action) {
        try {
            action();
            return true;
        } catch (const store::StoreError& error) {
            TellFailure(error);
            return false;
        }
    }

    // Deletes the Kingdom records of the DataSet, for a new one to take their place.
    void DeleteKingdomRows();
    // Notes whether the row just stored for the taxon is such a record.
    void NoteKingdomRow(RowPlace taxon, std::string_view usage, std::int32_t rank_id);

    // The first vernacular with the name in the taxon: its vern_id, which may be Null. Nothing when there is
    // none.
    std::optional<Value> FindVernId(std::int32_t qb_id, std::string_view vernacular_name);
    // The qb_vern_id of the first vernacular with the authority's id.
    std::optional<std::int32_t> FindQbVernId(std::int32_t vern_id);

    ApplicationState& state;
    store::Engine& engine;
    Prompter& prompter;
    records::RecordStore records;
    IdMaps maps;
    AuthorTexts authorTexts;
    RecordWriters writers;
    NextNumber nextAuthor, nextChangeComment;
    KingdomFamily family = KingdomFamily::Animal;  // of the run
    std::int32_t kingdomRank = 0;

private:
    template <typename Row>
    static Row NewRow(std::int32_t key, std::int32_t newId) {
        Row row;
        row.key = key;
        row.newId = newId;
        return row;
    }
    std::int32_t ReserveId(std::string_view table);
    void TellFailure(const store::StoreError& error);
    void ReadKingdom();
    void ReadAuthors();
    void ReadKingdomRows();

    store::BulkLoad& load_;
    FindingSink sink_;
    bool importError_ = false;
    std::vector<std::int64_t> kingdomRows_;
    store::QueryDef deleteTaxonRow_, vernIdByName_, qbVernIdByVernId_;
};

}  // namespace quillon::importing
