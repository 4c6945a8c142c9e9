// The shared state of the record handlers and the closing pass of one tagged import: the maps, the writers,
// the findings and failures.
//
// It exists for the import of one file. Nothing here reads the file.
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

// The next AutoNumber of a table whose rows are stored at once. If a row cannot be stored, its number is used
// for the next.
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

// A stored synonym link with the file's accepted id, or -1 when only the accepted tsn is known.
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

    // Sets the current line, for failures; 0 in the closing pass.
    void SetLine(std::int64_t number, std::string_view line);
    // Notes that the line has more fields than its record.
    void NoteMoreFields() { moreFields_.Note(line_); }
    const OddLines& WithMoreFields() const { return moreFields_; }
    // Notes that a number field of the line was not read as it is written.
    void NoteOddNumber() { oddNumbers_.Note(line_); }
    const OddLines& WithOddNumber() const { return oddNumbers_; }
    // Reports a finding. A finding of the closing pass has no line.
    void Report(std::string sentence, std::string_view line = {});
    bool ImportError() const { return importError_; }

    // The row of the taxon with this key. A new key gets a new row with -1 for parent and authors.
    RowPlace SeeTaxon(std::int32_t key);
    // The row of the key in a map whose records are stored in `table`. A new key gets a new row.
    template <typename Row>
    Row& See(KeyedRows<Row>& rows, std::string_view table, std::int32_t key) {
        RowPlace place = rows.Find(key);
        if (place == kNoRow) place = rows.Append(NewRow<Row>(key, ReserveId(table)));
        return rows[place];
    }

    // Stores the writer's row. Reports a failure and returns false; throws StoreError for a failure of the
    // disk or the file, after which no line can be stored.
    bool Store(store::RowWriter& writer);
    // The same for a reserved id: overwrites a record already stored under it.
    bool StoreOwn(store::RowWriter& writer, Stored& stored);
    // Runs `action` with the same treatment of errors.
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

    // Deletes the other Kingdom records of the DataSet, which the one just stored for `kingdom` replaces.
    void ReplaceKingdomRows(RowPlace kingdom);
    // Notes whether the row just stored for the taxon is a Kingdom record.
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
    std::int32_t newKingdom = 0;                 // the id of the last one read; 0 for none

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
    OddLines moreFields_, oddNumbers_;
    std::int64_t line_ = 0;
    bool importError_ = false;
    std::set<std::int32_t> kingdomRows_;
    store::QueryDef deleteTaxonRow_;
};

}  // namespace quillon::importing
