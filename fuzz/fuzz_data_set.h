// The DataSet that fuzz targets work on: made once in memory-backed files, and put back to a few known rows
// between the cases, which costs less than a new one.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/application_state.h"
#include "core/outside.h"
#include "dataset/lifecycle.h"
#include "store/engine.h"
#include "testkit/outside.h"

struct sqlite3_stmt;

namespace quillon::fuzz {

class FuzzDataSet {
public:
    FuzzDataSet();
    ~FuzzDataSet();
    FuzzDataSet(const FuzzDataSet&) = delete;
    FuzzDataSet& operator=(const FuzzDataSet&) = delete;

    // Leaves the seed rows, and with `used` one more taxon: an import into it keeps all indexes up to date,
    // where one into a new DataSet takes them off and builds them again.
    void Reset(bool used);
    // Statements of the next case are stopped after so many steps of SQLite's machine; 0 lets them run.
    void LimitSteps(int steps);
    store::Database& Db() { return *state.gDatabase; }

    ApplicationState state;
    store::Engine engine;
    testkit::SilentPrompter prompter;
    dataset::Lifecycle lifecycle{state, engine, prompter};

private:
    void Run(const std::string& sql);
    void PrepareResets();

    std::string folder_;
    std::vector<std::string> emptied_;                  // the tables without seed rows
    std::array<std::vector<sqlite3_stmt*>, 2> resets_;  // to a new DataSet, to a used one
};

}  // namespace quillon::fuzz
