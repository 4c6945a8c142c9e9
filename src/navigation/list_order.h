// The order of the alphabetical list: the qb_ids of all taxa by the four name units and the author, read in
// slices of time so that a window stays alive over a million of them. The names come in order from an index;
// authors are looked at only where names are equal. Where the lines begin with a mark (plants), the rows with
// one are told too.
//
// The errors of the store pass through.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "store/engine.h"

namespace quillon::navigation {

class ListOrder {
public:
    ListOrder(std::shared_ptr<store::Database> database, bool withMarks);

    // Reads on for about `slice`; true when all is there.
    bool Read(std::chrono::microseconds slice);
    bool IsComplete() const { return !rows_ && !nextMark_; }

    // The rows that are there so far.
    const std::vector<std::int32_t>& Ids() const { return ids_; }
    // The first name unit of the row read last.
    const std::string& LastName() const { return last_.name[0]; }
    // The places in Ids() of the names with that mark before the first unit, ascending; once complete.
    const std::unordered_map<std::string, std::vector<std::size_t>>& Marked() const { return marked_; }

private:
    struct Units {
        std::string name[4];  // "" for Null, which no stored text is
        bool operator==(const Units& other) const;
    };

    void ReadRow();
    void ReadMarks();
    void EndRun();
    void PlaceMarks();
    std::string AuthorKey(std::int32_t qb_id);

    std::shared_ptr<store::Database> database_;
    std::unique_ptr<store::Recordset> rows_;  // while some are still to come
    std::vector<std::int32_t> ids_;
    Units last_;
    std::vector<std::int32_t> run_;  // the rows with the last name, not yet in order
    std::optional<store::QueryDef> authorQuery_;

    std::optional<int> nextMark_;  // the qb_id from which marks are still to be read
    int lastId_ = 0;
    std::unordered_map<std::int32_t, std::string> marks_;
    std::unordered_map<std::string, std::vector<std::size_t>> marked_;
};

}  // namespace quillon::navigation
