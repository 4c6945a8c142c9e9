// Points all taxa of some authors to another author, and deletes the authors that nobody has then. The form
// CleanUp uses it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "records/record_store.h"

namespace quillon::curation {

// The author with this text: with exactly this one, or else one that is equal to it but for case. 0 when
// there is none. Throws StoreError.
int FindReplacement(store::Database& database, const std::string& author);

// The taxa whose author, not hybrid author, is one of `authors`, in ascending order. Throws StoreError.
std::vector<int> TaxaOf(store::Database& database, const std::vector<int>& authors);

// Gives the taxa of `authors` the author `replacement`, and deletes `authors` but for the replacement, with a
// tombstone for each that the authority knows. Hybrid authors stay as they are. Belongs to the command that
// the caller has open. Throws StoreError.
void MergeAuthors(const records::RecordStore& records, const std::vector<int>& authors, int replacement);

// "(1, 2, 3)" for each of the parts into which long lists are cut, so that no statement gets too long.
std::vector<std::string> IdLists(const std::vector<int>& ids);

}  // namespace quillon::curation
