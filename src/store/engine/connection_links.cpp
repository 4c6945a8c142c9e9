// Linked tables: a table of another DataSet under a name of this one. The other file is attached, and a
// temporary view bears the name, so nothing of a link is ever written to either file.
#include <fmt/format.h>
#include <sqlite3.h>

#include <algorithm>

#include "store/engine.h"
#include "store/engine/connection.h"

namespace quillon::store {

namespace {

// The path in ";DATABASE=" path ";".
std::string PathIn(std::string_view connect) {
    constexpr std::string_view kDatabase = ";DATABASE=";
    if (!NameEqual()(connect.substr(0, kDatabase.size()), kDatabase))
        throw StoreError(ErrorNumber::InvalidPath, fmt::format("'{}' does not name a DataSet.", connect));
    connect.remove_prefix(kDatabase.size());
    if (!connect.empty() && connect.back() == ';') connect.remove_suffix(1);
    return std::string(connect);
}

}  // namespace

// A view has no rowid, so a row is found again by the columns of its key.
void Connection::AppendLink(const TableDef& def) {
    const AttachedFile& file = Attach(PathIn(def.Connect));
    const auto source = std::find_if(file.tables.begin(), file.tables.end(), [&](const TableDef& table) {
        return NameEqual()(table.name, def.SourceTableName);
    });
    if (source == file.tables.end()) {
        DetachUnused();
        throw StoreError(ErrorNumber::UnknownTable,
                         fmt::format("There is no table '{}' in the linked DataSet.", def.SourceTableName));
    }
    ExecNative(db_, fmt::format("CREATE TEMP VIEW {} AS SELECT * FROM {}.{}", QuoteName(def.name),
                                file.schema, QuoteName(source->name)));
    PhysicalTable link;
    link.def = *source;
    link.def.name = def.name;
    link.def.SourceTableName = def.SourceTableName;
    link.def.Connect = def.Connect;
    link.key = link.def.PrimaryKey() == nullptr ? KeyKind::None : KeyKind::Clustered;
    links_.push_back(std::move(link));
    SchemaChanged();
}

// What is written is committed first: attaching and detaching need that no transaction is open. The other
// file is looked over as at any opening, and then let go, because one process may hold a file only once.
const Connection::AttachedFile& Connection::Attach(const std::string& path) {
    for (const AttachedFile& file : attached_)
        if (file.path == path) return file;
    AttachedFile file{"link1", path, {}};
    {
        const DatabaseHandle other = engine_.OpenDatabase(path);
        file.tables = other->TableDefs();
        if (other->Shared().get() == this) file.schema = "main";
    }
    if (file.schema != "main") {
        const auto taken = [&](const AttachedFile& one) { return one.schema == file.schema; };
        for (int number = 2; std::any_of(attached_.begin(), attached_.end(), taken); ++number)
            file.schema = fmt::format("link{}", number);
        if (!unitOpen_) CommitDurable();
        NativeStatement attach(db_, "ATTACH DATABASE ?1 AS " + file.schema);
        attach.Bind(1, std::string_view(path));
        attach.Step();
    }
    attached_.push_back(std::move(file));
    return attached_.back();
}

void Connection::DropLink(std::string_view name) {
    ExecNative(db_, "DROP VIEW temp." + QuoteName(name));
    std::erase_if(links_, [&](const PhysicalTable& link) { return link.def.name == name; });
    SchemaChanged();
    DetachUnused();
}

// A file that a result still reads from stays attached until the next link goes, or the DataSet is closed.
void Connection::DetachUnused() {
    if (!unitOpen_) CommitDurable();
    std::erase_if(attached_, [this](const AttachedFile& file) {
        for (const PhysicalTable& link : links_)
            if (PathIn(link.def.Connect) == file.path) return false;
        if (file.schema == "main") return true;
        return sqlite3_exec(db_, ("DETACH DATABASE " + file.schema).c_str(), nullptr, nullptr, nullptr) ==
               SQLITE_OK;
    });
}

}  // namespace quillon::store
