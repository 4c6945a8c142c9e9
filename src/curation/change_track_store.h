// Change tracks as stored: why a taxon was changed, by whom, with which operation, and comments on that.
//
// FrmChgTrk reads and writes them. Each statement is a unit of its own; procedures that write report their
// failures.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/controls.h"
#include "core/current_taxon.h"
#include "records/record_store.h"

namespace quillon::curation {

// Texts are "" and ids 0 where the column is Null.
struct ChangeTrack {
    int qb_change_track_id = 0;  // 0 for a track that is not stored yet
    int change_track_id = 0;     // of the authority
    std::string change_reason, change_initiator, change_reviewer, change_certifier;
    int chg_op_id = 0;
};

// The columns of grdComments. "QB CID" is "0" for a comment that is not stored yet; "CID" is "0" for one
// without an id from the authority.
struct ChangeCommentColumn {
    static constexpr std::size_t kComment = 0, kQbId = 1, kId = 2;
};

// Reading throws StoreError. Nothing when there is no such track.
std::optional<ChangeTrack> ReadChangeTrack(store::Database& database, int qb_change_track_id);
std::vector<GridControl::Row> ReadChangeComments(store::Database& database, int qb_change_track_id);
// The operations of the DataSet with their ids.
std::vector<ChoiceControl::Choice> ReadChangeOperations(store::Database& database);
// The tracks of a taxon as rows: operation ("Not Found" for an unknown one), reason, initiator, reviewer,
// qb_change_track_id and change_track_id.
std::vector<GridControl::Row> ReadChangeTracks(store::Database& database, int qb_id);

// Adds the track and its operation, and sets the id of `track` once its row is stored. False when one of the
// two failed.
bool InsertChangeTrack(const records::RecordStore& records, const CurrentTaxon& taxon, ChangeTrack& track);
// Rewrites a stored track, whose operation was `formerOperation`.
bool UpdateChangeTrack(const records::RecordStore& records, const ChangeTrack& track, int formerOperation);
// Deletes the comments `removed`, then adds the rows that the track does not have yet.
bool SaveChangeComments(const records::RecordStore& records, const ChangeTrack& track,
                        const std::vector<int>& removed, const std::vector<GridControl::Row>& rows);

}  // namespace quillon::curation
