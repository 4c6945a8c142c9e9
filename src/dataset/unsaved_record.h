// The unsaved record on the form: asks whether it may be lost, and removes rows already stored for it.
// Lifecycle calls it before another DataSet or record is shown.
#pragma once

#include "core/application_state.h"
#include "core/outside.h"
#include "store/engine.h"

namespace quillon::dataset {

// True when the user gives up the record.
bool AskToLoseRecord(Prompter& prompter);

// Removes the change tracks of gNewChangeTrackIds from the open DataSet, with the documents that they added,
// and empties the list. Stops at the first failure, reports it and keeps the list.
void RemoveChangeTracks(ApplicationState& state, store::Engine& engine, Prompter& prompter);

}  // namespace quillon::dataset
