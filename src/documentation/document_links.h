// The links of a taxon and its vernaculars to documents, written from the rows of a documentation grid.
//
// DocumentSave makes one for a save. Each link is written in a unit of its own, and a failure is reported. A
// link that comes back takes its tombstone away; one that goes leaves it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/controls.h"
#include "core/current_taxon.h"
#include "core/value.h"
#include "documentation/document_description.h"
#include "records/record_store.h"

namespace quillon::documentation {

class DocumentLinks {
public:
    // All arguments outlive the object. Links of names refer to the change track; 0 for none.
    DocumentLinks(const records::RecordStore& records, const DocumentDescription& description,
                  const CurrentTaxon& taxon, int changeTrackId);

    // Stores the link of a new row, whose document is stored. A link that is there already stays. A row of a
    // vernacular that the taxon does not have stores nothing. False when the link could not be stored.
    bool Add(const GridControl::Row& cells) const;
    // Lets the stored link follow a row that was loaded. False when the save must end.
    bool Follow(const GridControl::Row& cells) const;

private:
    struct Vernacular {
        int qb_vern_id = 0;
        std::string vernacular_name;
        Value vern_id;
    };
    // Nothing in `found` when the taxon has no such vernacular. False when that could not be read, which has
    // been reported.
    bool FindVernacular(const GridControl::Row& cells, std::optional<Vernacular>& found) const;
    void ReportNoVernacular(const std::string& shown) const;

    bool AddReference(const GridControl::Row& cells) const;
    bool AddVernReference(const GridControl::Row& cells, const Vernacular& vernacular) const;
    bool FollowName(const GridControl::Row& cells) const;
    bool FollowVernacular(const GridControl::Row& cells) const;
    void UpdateReference(const GridControl::Row& cells) const;
    void UpdateVernReference(const GridControl::Row& cells, const Vernacular& vernacular) const;
    void Move(const GridControl::Row& cells, const Vernacular& to) const;
    void SetDocument(store::Recordset& link, const GridControl::Row& cells) const;
    void RemoveTombstone(std::string_view table_name, const GridControl::Row& cells,
                         const std::optional<Value>& vern_id) const;

    int Id(const GridControl::Row& cells, std::size_t column) const;
    bool IsMoved(const GridControl::Row& cells) const;
    bool IsOriginal(const GridControl::Row& cells) const;
    Value AuthorityId(const GridControl::Row& cells) const;
    // The links of the taxon to the document `docId`.
    std::string SelectLinks(std::string_view table, int docId) const;

    const records::RecordStore& records_;
    const DocumentDescription& description_;
    const CurrentTaxon& taxon_;
    const int changeTrackId_;
    const DocumentColumns columns_;
};

}  // namespace quillon::documentation
