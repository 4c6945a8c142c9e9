#include "navigation/bio_list.h"

#include <algorithm>
#include <span>

#include "core/names.h"
#include "core/text.h"
#include "core/vocabulary.h"
#include "navigation/bio_list_connection.h"
#include "navigation/bio_list_sql.h"
#include "navigation/child_reader.h"
#include "navigation/many_ids.h"

namespace quillon::navigation {

using store::Recordset;
using store::RecordsetType;

namespace {

constexpr std::size_t kAllRows = static_cast<std::size_t>(-1);

int IdOf(const Recordset& row, std::string_view column) {
    return static_cast<int>(row[column].AsLong());
}

std::unique_ptr<Recordset> OpenWithId(store::Database& database, std::string_view sql, int id) {
    return database.CreateQueryDef("", sql).Set("theId", id).OpenRecordset(RecordsetType::ForwardOnly);
}

std::int64_t CountOf(store::Database& database, std::string_view sql, int id) {
    const auto row = OpenWithId(database, sql, id);
    return row->Eof() ? 0 : row->Get("ChildCount").AsLong();
}

// Runs a step and ignores its failure, after which the result is incomplete.
template <typename Step>
void Silently(Step step) {
    try {
        step();
    } catch (const store::StoreError&) {
    }
}

}  // namespace

const std::string& cBioList::dbname() const {
    static const std::string none;
    return dbname_ ? *dbname_ : none;
}

void cBioList::SetDbname(const std::string& path) {
    dbname_ = std::make_shared<const std::string>(path);
    const Connection connection(*source_, path);
    if (connection) Silently([&] { TakeRoot(*connection); });
}

void cBioList::TakeRoot(store::Database& database) {
    const auto top = database.OpenRecordset(kTopRankSql);
    top->MoveLast();
    if (top->RecordCount() != 1 || top->Get("TopRank").IsNull()) return;
    const auto row = OpenWithId(database, kRootSql, IdOf(*top, "TopRank"));
    if (row->Eof()) {
        sciname_ = CalcPlainNodeNameOfNoRow();
        return;
    }
    TakeRow(*row, CalcPlainNodeName(*row));
    numChildren_ = CountChildren(database, qb_id_);
    numDescendants_ = CountDescendants();
}

void cBioList::SetQbId(int id) {
    const Connection connection(*source_, dbname());
    if (!connection) return;
    qb_id_ = id;
    Silently([&] {
        numChildren_ = CountChildren(*connection, id);
        numDescendants_ = CountDescendants();
    });
}

void cBioList::TakeRow(const Recordset& row, std::string sciname) {
    qb_id_ = IdOf(row, "qb_id");
    rank_ = IdOf(row, "rank_id");
    tsn_ = IdOf(row, "tsn");
    usage_ = row["usage"].AsText();
    sciname_ = std::move(sciname);
}

std::int64_t cBioList::CountChildren(store::Database& database, int id) {
    return CountOf(database, kCountChildrenSql, id) + CountOf(database, kCountSynonymsSql, id);
}

cBioList::Collection cBioList::Children() {
    Collection items;
    ChildReader reader(*this, ChildReader::Level::UnderTaxon);
    while (reader.Step(kAllRows, items)) continue;
    return items;
}

cBioList::Collection cBioList::Orphans() {
    Collection items;
    ChildReader reader(*this, ChildReader::Level::Top);
    while (reader.Step(kAllRows, items)) continue;
    return items;
}

std::shared_ptr<cBioList> cBioList::NewItem(const Recordset& row, std::string sciname) const {
    auto item = std::make_shared<cBioList>(*source_);
    item->dbname_ = dbname_;
    item->TakeRow(row, std::move(sciname));
    return item;
}

void cBioList::GetOneRecord(int id) {
    const Connection connection(*source_, dbname());
    if (!connection) return;
    Silently([&] {
        const auto row = OpenWithId(*connection, kOneRecordSql, id);
        if (row->Eof()) return;
        TakeRow(*row, CalcNodeName(*row));
        isSyn_ = row->Get("parent_qb_id").IsNull() && UsageIsInvalid(usage_);
        numChildren_ = CountChildren(*connection, qb_id_);
    });
}

std::shared_ptr<cBioList> cBioList::OneRecord(const BioListSource& source, const std::string& path, int id) {
    auto item = std::make_shared<cBioList>(source);
    item->dbname_ = std::make_shared<const std::string>(path);
    item->GetOneRecord(id);
    item->numDescendants_ = item->CountDescendants();
    return item->qb_id() == id && id != 0 ? item : nullptr;
}

std::string cBioList::CalcPlainNodeName(const Recordset& row) {
    return quillon::CalcPlainNodeName(NameFieldsOf(row), row["TaxAuthor"]);
}

std::unordered_map<int, std::string> cBioList::NodeNames(const BioListSource& source,
                                                         const std::string& dbname,
                                                         const std::vector<int>& ids) {
    std::unordered_map<int, std::string> names;
    const Connection connection(source, dbname);
    if (!connection) return names;
    names.reserve(ids.size());
    Silently([&] {
        ManyIds query(*connection, kNamesSql);
        const std::span<const std::int32_t> all(ids);
        for (std::size_t first = 0; first < ids.size(); first += ManyIds::kAtOnce) {
            const auto some = all.subspan(first, std::min(ManyIds::kAtOnce, ids.size() - first));
            for (const auto row = query.Open(some); !row->Eof(); row->MoveNext())
                names[IdOf(*row, "qb_id")] = CalcNodeName(*row);
        }
    });
    return names;
}

std::string cBioList::CalcNodeName(const Recordset& row) {
    const std::string usage = LowerCase(row["usage"].AsText());
    const std::string_view mark = usage == "invalid"        ? "[Invalid] "
                                  : usage == "not accepted" ? "[Not Accepted] "
                                                            : "";
    return std::string(mark) + CalcPlainNodeName(row);
}

bool cBioList::UsageIsInvalid(std::string_view usage) {
    return quillon::UsageIsInvalid(usage);
}

}  // namespace quillon::navigation
