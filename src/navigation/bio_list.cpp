#include "navigation/bio_list.h"

#include <fmt/format.h>

#include "core/names.h"
#include "core/text.h"
#include "core/vocabulary.h"
#include "navigation/bio_list_sql.h"

namespace quillon::navigation {

using store::Recordset;
using store::RecordsetType;

// The DataSet of an item, held for one call: the open one when the path is its path, else the file opened for
// itself.
class cBioList::Connection {
public:
    Connection(const BioListSource& source, const std::string& path) {
        if (path.empty()) return;
        const auto& open = source.state.gDatabase;
        if (open && open->IsOpen() && open->Name() == path) {
            database_ = open;
            return;
        }
        try {
            database_ = source.engine.OpenDatabase(path);
            isOwn_ = true;
        } catch (const store::StoreError&) {
        }
    }
    ~Connection() {
        if (isOwn_) database_->Close();
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    explicit operator bool() const { return database_ != nullptr; }
    store::Database& operator*() const { return *database_; }

private:
    std::shared_ptr<store::Database> database_;
    bool isOwn_ = false;
};

namespace {

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

constexpr std::size_t kNamesAtOnce = 32;

std::string NameParameter(std::size_t i) {
    return fmt::format("theId{}", i);
}

std::string NamesSql() {
    std::string declared, listed;
    for (std::size_t i = 0; i < kNamesAtOnce; ++i) {
        const std::string_view comma = i == 0 ? "" : ", ";
        declared += fmt::format("{}{} Long", comma, NameParameter(i));
        listed += fmt::format("{}[{}]", comma, NameParameter(i));
    }
    return fmt::format(fmt::runtime(kNamesSql), declared, listed);
}

void AddCounts(store::Database& database, std::string_view sql, int id,
               std::unordered_map<int, std::int64_t>& counts) {
    for (const auto row = OpenWithId(database, sql, id); !row->Eof(); row->MoveNext()) {
        counts[static_cast<int>(row->At(0).AsLong())] += row->At(1).AsLong();
    }
}

// Runs a step whose failure shows only in what is missing.
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
    const Connection connection(*source_, dbname());
    if (!connection) return items;
    Silently([&] { AddChildrenProper(*connection, items); });
    Silently([&] { AddSynonyms(*connection, items); });
    return items;
}

void cBioList::AddChildrenProper(store::Database& database, Collection& items) {
    for (const auto row = OpenWithId(database, kChildrenSql, qb_id_); !row->Eof(); row->MoveNext()) {
        items.push_back(NewItem(*row, CalcPlainNodeName(*row)));
    }
    if (items.empty()) return;
    numChildren_ = CountChildren(database, qb_id_);
    Counts counts;
    AddCounts(database, kChildrenOfChildrenSql, qb_id_, counts);
    AddCounts(database, kSynonymsOfChildrenSql, qb_id_, counts);
    SetCounts(counts, items.begin(), items.end());
}

void cBioList::AddSynonyms(store::Database& database, Collection& items) {
    const auto before = static_cast<Collection::difference_type>(items.size());
    for (const auto row = OpenWithId(database, kSynonymsSql, qb_id_); !row->Eof(); row->MoveNext()) {
        items.push_back(NewItem(*row, CalcNodeName(*row)));
        items.back()->isSyn_ = true;
        items.back()->accepted_ = qb_id_;
    }
    if (static_cast<Collection::difference_type>(items.size()) == before) return;
    Counts counts;
    AddCounts(database, kChildrenOfSynonymsSql, qb_id_, counts);
    AddCounts(database, kSynonymsOfSynonymsSql, qb_id_, counts);
    SetCounts(counts, items.begin() + before, items.end());
}

std::shared_ptr<cBioList> cBioList::NewItem(const Recordset& row, std::string sciname) const {
    auto item = std::make_shared<cBioList>(*source_);
    item->dbname_ = dbname_;
    item->TakeRow(row, std::move(sciname));
    return item;
}

void cBioList::SetCounts(const Counts& counts, Collection::iterator first, Collection::iterator last) {
    for (; first != last; ++first) {
        const auto found = counts.find((*first)->qb_id_);
        (*first)->numChildren_ = found == counts.end() ? 0 : found->second;
        (*first)->numDescendants_ = (*first)->CountDescendants();
    }
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

cBioList::Collection cBioList::Orphans() const {
    Collection items;
    const auto& database = source_->state.gDatabase;
    if (!database || !database->IsOpen()) return items;
    Silently([&] {
        const auto path = std::make_shared<const std::string>(database->Name());
        for (const auto row = database->OpenRecordset(kOrphansSql, RecordsetType::ForwardOnly); !row->Eof();
             row->MoveNext()) {
            items.push_back(NewItem(*row, CalcNodeName(*row)));
            items.back()->dbname_ = path;
            items.back()->isSyn_ = UsageIsInvalid(items.back()->usage_);
        }
    });
    Silently([&] {
        Counts counts;
        if (!items.empty()) AddCounts(*database, kChildrenOfOrphansSql, 0, counts);
        if (!items.empty()) AddCounts(*database, kSynonymsOfOrphansSql, 0, counts);
        SetCounts(counts, items.begin(), items.end());
    });
    return items;
}

std::string cBioList::CalcPlainNodeName(const Recordset& row) {
    const NameFields name{row["unit_ind1"], row["unit_name1"], row["unit_ind2"], row["unit_name2"],
                          row["unit_ind3"], row["unit_name3"], row["unit_ind4"], row["unit_name4"]};
    return quillon::CalcPlainNodeName(name, row["TaxAuthor"]);
}

std::unordered_map<int, std::string> cBioList::NodeNames(const BioListSource& source,
                                                         const std::string& dbname,
                                                         const std::vector<int>& ids) {
    std::unordered_map<int, std::string> names;
    const Connection connection(source, dbname);
    if (!connection) return names;
    names.reserve(ids.size());
    Silently([&] {
        auto query = (*connection).CreateQueryDef("", NamesSql());
        for (std::size_t first = 0; first < ids.size(); first += kNamesAtOnce) {
            for (std::size_t i = 0; i < kNamesAtOnce; ++i)
                query.Set(NameParameter(i), first + i < ids.size() ? Value(ids[first + i]) : Value());
            for (const auto row = query.OpenRecordset(RecordsetType::ForwardOnly); !row->Eof();
                 row->MoveNext())
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
