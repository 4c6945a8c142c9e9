// The open DataSet for the procedures on its records, and the prompter to which they report failures.
//
// The editor and the import make one for a command or a run and pass it on. It holds no record: the taxon
// that a procedure works on is an argument of that procedure.
//
// A failed statement is undone and reported, and the caller continues. Only in a command (store/command.h) an
// error of the whole file, such as a full disk, is thrown, because nothing of the command can be stored any
// more.
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

    // Runs one statement in its own unit. Reports a failure under `title` and returns false.
    bool RunUnit(store::QueryDef query, std::string_view title = {}) const;

    // Runs `action`. Reports a failure under `title` and returns false.
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
