// Writes the record on the form: its row, its authors, the content of the tabs, and the journal. New and
// stored records have separate procedures, because they differ in many small points.
//
// A save is one durable commit: after a crash the DataSet holds either all of it or nothing. A statement that
// fails is undone and reported, and the save continues. After an error of the whole file, such as a full
// disk, the exception ends the save and nothing is stored.
//
// RecordChecks must have passed, and CurrentTaxon must hold the distribution. The caller updates tree, list
// and form.
#pragma once

#include "core/application_state.h"
#include "core/outside.h"
#include "editor/rec_view_form.h"
#include "records/record_store.h"

namespace quillon::editor {

class RecordSave {
public:
    // All references must outlive the object.
    RecordSave(ApplicationState& state, Prompter& prompter, store::Engine& engine, RecViewForm& form)
        : state_(state), prompter_(prompter), engine_(engine), form_(form) {}

    // Adds the record and sets CurrentTaxon.qb_id to its id. When the row could not be stored, nothing is
    // stored, the id is 0 and the result is false.
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
