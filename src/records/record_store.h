// The open DataSet as the procedures on its records use it, with the place where they report failures.
//
// The editor and the import make one for a command or a run and pass it on. It holds no record: the taxon
// that a procedure works on is an argument of that procedure.
#pragma once

#include <string_view>

#include "core/attempt.h"
#include "core/outside.h"
#include "store/engine.h"

namespace quillon::records {

struct RecordStore {
    store::Engine& engine;
    store::Database& database;
    Prompter& prompter;

    // Runs one statement as a unit of its own. A failure is reported under `title`, and false returned.
    bool RunUnit(store::QueryDef query, std::string_view title = {}) const;

    // Runs `action`; a failure in it is reported under `title`, and false returned.
    template <typename Action>
    bool Reporting(const Action& action, std::string_view title = {}) const {
        return Attempt(prompter, action, title);
    }
};

}  // namespace quillon::records
