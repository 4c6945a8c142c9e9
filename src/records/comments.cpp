#include "records/comments.h"

#include <fmt/format.h>

#include <chrono>

#include "records/tombstones.h"
#include "store/unit.h"

namespace quillon::records {

namespace {

using std::chrono::days, std::chrono::floor, std::chrono::seconds;
using LocalTime = std::chrono::local_seconds;

constexpr std::string_view kOfCommentatorAt =
    "PARAMETERS who Text, stamp Text; SELECT qb_comment_id FROM qb_comments "
    "WHERE comment_time_stamp = stamp and commentator = who;";

constexpr std::string_view kInsert =
    "PARAMETERS authorityid Long, who Text, detail Text, stamp Text; "
    "INSERT INTO qb_comments ( comment_id, commentator, comment_detail, comment_time_stamp ) "
    "SELECT authorityid, who, detail, stamp;";
constexpr std::string_view kUpdate =
    "PARAMETERS authorityid Long, who Text, detail Text, stamp Text, comID Long; "
    "UPDATE qb_comments SET comment_id = authorityid, commentator = who, comment_detail = detail, "
    "comment_time_stamp = stamp WHERE qb_comment_id = comID;";

int NumberAt(const std::string& text, std::size_t place, std::size_t length) {
    return place < text.size() ? static_cast<int>(Value(text.substr(place, length)).AsLong()) : 0;
}

LocalTime TimeOf(const std::string& now) {
    const std::chrono::year_month_day day{std::chrono::year(NumberAt(now, 0, 4)),
                                          std::chrono::month(static_cast<unsigned>(NumberAt(now, 5, 2))),
                                          std::chrono::day(static_cast<unsigned>(NumberAt(now, 8, 2)))};
    return std::chrono::local_days(day) + std::chrono::hours(NumberAt(now, 11, 2)) +
           std::chrono::minutes(NumberAt(now, 14, 2)) + seconds(NumberAt(now, 17, 2));
}

std::string StampOf(LocalTime time) {
    const auto midnight = floor<days>(time);
    const std::chrono::year_month_day day(midnight);
    const std::chrono::hh_mm_ss clock(time - midnight);
    return fmt::format("{:02}{:02}{:04}{:02}{:02}{:02}", static_cast<unsigned>(day.day()),
                       static_cast<unsigned>(day.month()), static_cast<int>(day.year()),
                       clock.hours().count(), clock.minutes().count(), clock.seconds().count());
}

// 0 when the commentator has no comment of that time.
int FindComment(const RecordStore& records, const std::string& commentator, const std::string& stamp) {
    store::QueryDef query = records.database.CreateQueryDef("", kOfCommentatorAt);
    query.Set("who", commentator).Set("stamp", stamp);
    const auto row = query.OpenRecordset(store::RecordsetType::ForwardOnly);
    return row->Eof() ? 0 : static_cast<int>(row->At(0).AsLong());
}

std::string FreeStamp(const RecordStore& records, const std::string& commentator, const std::string& now) {
    for (LocalTime time = TimeOf(now);; time += seconds(1)) {
        std::string stamp = StampOf(time);
        if (FindComment(records, commentator, stamp) == 0) return stamp;
    }
}

// Everything of the row except its key.
void SetFields(store::QueryDef& query, const Comment& comment) {
    query.Set("authorityid", Value::IdOrNull(comment.comment_id))
        .Set("who", Value::TextOrNull(comment.commentator))
        .Set("detail", Value::TextOrNull(comment.detail))
        .Set("stamp", Value::TextOrNull(comment.timeStamp));
}

void ForgetTombstone(const RecordStore& records, const TaxonKey& taxon, const Comment& comment) {
    if (taxon.tsn == 0 || comment.comment_id == 0) return;
    RemoveTombstone(records, "tu_comments_link", taxon.tsn, Value(comment.comment_id));
}

}  // namespace

bool AddComment(const RecordStore& records, const TaxonKey& taxon, Comment& comment, const std::string& now) {
    const bool added = records.Reporting([&] {
        comment.timeStamp = FreeStamp(records, comment.commentator, now);
        store::QueryDef query = records.database.CreateQueryDef("", kInsert);
        SetFields(query, comment);
        store::Unit unit(records.engine);
        query.Execute();
        unit.Commit();
        comment.qb_comment_id = FindComment(records, comment.commentator, comment.timeStamp);
    });
    return added && LinkComment(records, taxon, comment);
}

bool LinkComment(const RecordStore& records, const TaxonKey& taxon, const Comment& comment) {
    return records.Reporting([&] {
        store::QueryDef query = records.database.OpenQueryDef("Insert Comment Link");
        query.Set("qbid", taxon.qb_id).Set("commentid", comment.qb_comment_id);
        query.Set("tsn", Value::IdOrNull(taxon.tsn)).Set("comID", Value::IdOrNull(comment.comment_id));
        store::Unit unit(records.engine);
        query.Execute();
        unit.Commit();
        ForgetTombstone(records, taxon, comment);
    });
}

void UpdateComment(const RecordStore& records, const TaxonKey& taxon, const Comment& comment) {
    records.Reporting([&] {
        store::QueryDef query = records.database.CreateQueryDef("", kUpdate);
        SetFields(query, comment);
        query.Set("comID", comment.qb_comment_id);
        store::Unit unit(records.engine);
        const bool found = query.Execute() != 0;
        unit.Commit();
        if (found) ForgetTombstone(records, taxon, comment);
    });
}

bool IsCommentStored(store::Database& database, int qb_comment_id) {
    return !database
                .CreateSnapshot(fmt::format("SELECT qb_comment_id FROM qb_comments WHERE qb_comment_id = {};",
                                            qb_comment_id))
                ->Eof();
}

}  // namespace quillon::records
