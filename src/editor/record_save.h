// Writes the record on the form: its row, its authors, what the tabs hold, and the journal. There are two
// ways, one for a new record and one for a stored one, which differ in many small points; each reads like its
// steps.
//
// A save is one durable commit: after a crash the DataSet holds the record as it was, or as it is with all
// that belongs to it. A statement that fails takes back itself alone, is reported, and the save goes on. An
// error of the whole file, such as a full disk, passes through, and nothing of the save is stored.
//
// RecordChecks has been run, and CurrentTaxon holds the distribution. Tree, list and form are the caller's.
#pragma once

#include "core/application_state.h"
#include "core/outside.h"
#include "editor/rec_view_form.h"
#include "records/record_store.h"

namespace quillon::editor {

class RecordSave {
public:
    // All references outlive the object.
    RecordSave(ApplicationState& state, Prompter& prompter, store::Engine& engine, RecViewForm& form)
        : state_(state), prompter_(prompter), engine_(engine), form_(form) {}

    // Adds the record, and sets CurrentTaxon.qb_id to the id that it gets. False when its row could not be
    // stored: then nothing is, and the id is 0.
    bool SaveNewTaxon();
    // Rewrites the record.
    void SaveTaxonChanges();

private:
    records::RecordStore Records() const;
    void TakeAuthors(const records::RecordStore& records);
    int TakeAuthor(const records::RecordStore& records, const std::string& author, bool& existed);
    void DeleteAddedAuthors(const records::RecordStore& records);
    void DeleteReplacedAuthors(const records::RecordStore& records);
    void AddTabs(const records::RecordStore& records);
    void UpdateTabs(const records::RecordStore& records);
    void UpdateSynonymLinks(const records::RecordStore& records);
    void JournalAcceptedNames(const records::RecordStore& records);
    void Journal(const records::RecordStore& records, int qb_id);

    ApplicationState& state_;
    Prompter& prompter_;
    store::Engine& engine_;
    RecViewForm& form_;
};

}  // namespace quillon::editor
