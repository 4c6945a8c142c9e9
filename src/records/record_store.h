// The open DataSet as the procedures on its records use it, with the place where they report failures.
//
// The editor and the import make one for a command or a run and pass it on. It holds no record: the taxon
// that a procedure works on is an argument of that procedure.
//
// A failure takes back the statement that failed, is reported, and the caller goes on. Only in a command
// (store/command.h) does an error of the file as a whole, such as a full disk, pass through: nothing of the
// command can be stored any more.
#pragma once

#include <new>
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
        try {
            action();
            return true;
        } catch (const store::StoreError& failure) {
            if (failure.EndsJob() && engine.IsCommandRunning()) throw;
            ReportFailure(prompter, failure, title);
        } catch (const std::bad_alloc& failure) {
            if (engine.IsCommandRunning()) throw;
            ReportFailure(prompter, failure, title);
        }
        return false;
    }
};

}  // namespace quillon::records
