// What the record handlers and the closing pass of one tagged import share: the maps, the writers, the
// findings and failures.
//
// It lives as long as the import of one file. Nothing here reads the file or knows a tag.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/application_state.h"
#include "core/vocabulary.h"
#include "import/id_maps.h"
#include "import/import_failures.h"
#include "import/import_log.h"
#include "import/import_turns.h"
#include "import/line_reader.h"
#include "import/record_writers.h"
#include "import/vernacular_index.h"
#include "records/record_store.h"
#include "store/bulk.h"
#include "store/engine.h"

namespace quillon::importing {

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

// A stored synonym link whose accepted id is still the file's, or -1 while only the accepted tsn is known.
struct OpenSynonymLink {
    std::int32_t qb_id = 0;
    std::int32_t qb_id_accepted = 0;
    std::int32_t tsn_accepted = 0;  // 0 for Null
};

class ImportRun {
public:
    // Reads the authors, the kingdom rank and the Kingdom records of `database`. Throws StoreError.
    ImportRun(ApplicationState& state, store::Engine& engine, store::Database& database,
              store::BulkLoad& load, Turns& turns, const ImportSinks& sinks);

    store::Database& Db() const { return database_; }

    // Of the line that the handlers work on, for failures; 0 in the closing pass.
    void SetLine(std::int64_t number, std::string_view line);
    // The line has fields that its tag does not know.
    void NoteMoreFields() { moreFields_.Note(line_); }
    const OddLines& WithMoreFields() const { return moreFields_; }
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

    // Stores the writer's row. A failure is reported and false returned; but a failure of the disk or the
    // file, after which no line could be stored, passes through as StoreError.
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
            ReportFailure(error);
            return false;
        }
    }

    // Deletes the Kingdom records of the DataSet, for that of `kingdom` to take their place.
    void ReplaceKingdomRows(RowPlace kingdom);
    // Notes whether the row just stored for the taxon is such a record.
    void NoteKingdomRow(RowPlace taxon, std::string_view usage, std::int32_t rank_id);

    ApplicationState& state;
    store::Engine& engine;
    records::RecordStore records;
    IdMaps maps;
    VernacularIndex vernaculars;
    std::vector<OpenSynonymLink> openSynonyms;
    AuthorTexts authorTexts;
    RecordWriters writers;
    NextNumber nextAuthor, nextChangeComment;
    KingdomFamily family = KingdomFamily::Animal;  // of the run
    std::int32_t kingdomRank = 0;
    std::vector<std::int32_t> replacedKingdoms;  // their ids
    std::int32_t newKingdom = 0;                 // the id of the last one that came; 0 for none

private:
    template <typename Row>
    static Row NewRow(std::int32_t key, std::int32_t newId) {
        Row row;
        row.key = key;
        row.newId = newId;
        return row;
    }
    std::int32_t ReserveId(std::string_view table);
    void ReportFailure(const store::StoreError& error);
    void ReadKingdom();
    void ReadAuthors(Turns& turns);
    void ReadKingdomRows();

    store::Database& database_;
    store::BulkLoad& load_;
    FindingSink sink_;
    FailurePrompter failures_;
    OddLines moreFields_;
    std::int64_t line_ = 0;
    bool importError_ = false;
    std::set<std::int32_t> kingdomRows_;
    store::QueryDef deleteTaxonRow_;
};

}  // namespace quillon::importing
