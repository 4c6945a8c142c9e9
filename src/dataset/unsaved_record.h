// The record on the form that was not saved: the question whether it may be lost, and the removal of what was
// already stored for it. Lifecycle uses it before another DataSet or record takes its place.
#pragma once

#include "core/application_state.h"
#include "core/outside.h"
#include "store/engine.h"

namespace quillon::dataset {

// True when the user gives the record up.
bool AskToLoseRecord(Prompter& prompter);

// Removes the change tracks of gNewChangeTrackIds from the open DataSet, with the documents that they added,
// and empties the list. The first failure is reported and ends it; the list then stays.
void RemoveChangeTracks(ApplicationState& state, store::Engine& engine, Prompter& prompter);

}  // namespace quillon::dataset
