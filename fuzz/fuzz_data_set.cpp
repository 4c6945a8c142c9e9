#include "fuzz_data_set.h"

#include <sqlite3.h>
#include <stdlib.h>
#include <unistd.h>

#include <filesystem>
#include <stdexcept>

#include "store/engine/connection.h"

// What the connection keeps from case to case looks like a leak to the fuzzer's check after each case, which
// costs more than the case itself.
extern "C" int LLVMFuzzerInitialize(int* count, char*** words);
extern "C" int LLVMFuzzerInitialize(int* count, char*** words) {
    static std::string noLeaks = "-detect_leaks=0";
    static std::vector<char*> all;
    all.assign(*words, *words + *count);
    all.insert(all.begin() + 1, noLeaks.data());
    all.push_back(nullptr);
    ++*count;
    *words = all.data();
    return 0;
}

namespace quillon::fuzz {

namespace {

int gStepsLeft = 0;
constexpr int kStepsACall = 1000;

int CountSteps(void*) {
    gStepsLeft -= kStepsACall;
    return gStepsLeft < 0 ? 1 : 0;
}

std::string MakeFolder() {
    std::string pattern = access("/dev/shm", W_OK) == 0
                              ? "/dev/shm/quillon-fuzz-XXXXXX"
                              : std::filesystem::temp_directory_path().string() + "/quillon-fuzz-XXXXXX";
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("cannot make a folder");
    return pattern;
}

}  // namespace

FuzzDataSet::FuzzDataSet() : folder_(MakeFolder()) {
    // Small blocks that SQLite does not ask the sanitizer for.
    sqlite3_config(SQLITE_CONFIG_LOOKASIDE, 512, 2000);
    state.gKingdomName = "Animalia";
    state.gPrefRank = "Kingdom";
    lifecycle.MakeDataSet(folder_ + "/fuzz.mdb");
    for (const store::TableDef& table : Db().TableDefs()) {
        const bool empty =
            Db().CreateSnapshot("SELECT count(*) FROM [" + table.name + "]")->At(0).AsLong() == 0;
        if (empty) emptied_.push_back(table.name);
    }
    emptied_.emplace_back("qb_taxonomic_units");
    Run("PRAGMA synchronous = OFF; PRAGMA journal_mode = MEMORY");
    PrepareResets();
}

FuzzDataSet::~FuzzDataSet() {
    for (const auto& statements : resets_)
        for (sqlite3_stmt* statement : statements) sqlite3_finalize(statement);
    lifecycle.CloseDataSet();
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

void FuzzDataSet::Run(const std::string& sql) {
    sqlite3* db = Db().Shared()->Native();
    if (sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(db));
}

void FuzzDataSet::PrepareResets() {
    std::vector<std::string> sql = {"BEGIN"};
    for (const std::string& table : emptied_) sql.push_back("DELETE FROM " + table);
    sql.emplace_back(
        "INSERT INTO qb_taxonomic_units (qb_id, parent_qb_id, unit_name1, usage, kingdom_id, rank_id) "
        "VALUES (1, 1, 'Animalia  ', 'valid', 5, 10)");
    const std::vector<std::string> more = {
        "INSERT INTO qb_taxonomic_units (qb_id, parent_qb_id, unit_name1, usage, kingdom_id, rank_id) "
        "VALUES (2, 1, 'Chordata', 'valid', 5, 30)",
        "INSERT INTO qb_taxon_authors_lookup VALUES (1, 900001, 'Haeckel, 1874', 5)"};
    const auto add = [&](std::vector<sqlite3_stmt*>& statements, const std::string& text) {
        statements.push_back(store::PrepareNative(Db().Shared()->Native(), text, true));
    };
    for (auto& statements : resets_)
        for (const std::string& text : sql) add(statements, text);
    for (const std::string& text : more) add(resets_[1], text);
    for (auto& statements : resets_) add(statements, "COMMIT");
}

void FuzzDataSet::Reset(bool used) {
    LimitSteps(0);
    prompter.messages.clear();
    for (sqlite3_stmt* statement : resets_[used ? 1 : 0]) {
        const int code = sqlite3_step(statement);
        sqlite3_reset(statement);
        if (code != SQLITE_DONE) throw std::runtime_error(sqlite3_errmsg(Db().Shared()->Native()));
    }
}

void FuzzDataSet::LimitSteps(int steps) {
    gStepsLeft = steps;
    sqlite3_progress_handler(Db().Shared()->Native(), steps == 0 ? 0 : kStepsACall,
                             steps == 0 ? nullptr : &CountSteps, nullptr);
}

}  // namespace quillon::fuzz
