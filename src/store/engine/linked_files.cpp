#include "store/engine/linked_files.h"

#include <fmt/format.h>
#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

#include "store/engine/native.h"

namespace quillon::store {

namespace {

constexpr std::string_view kOwnFile = "main";

// The path in ";DATABASE=" path ";".
std::string_view PathIn(std::string_view connect) {
    constexpr std::string_view kDatabase = ";DATABASE=";
    if (!SameWord(connect.substr(0, kDatabase.size()), kDatabase))
        throw StoreError(ErrorNumber::InvalidPath, fmt::format("'{}' does not name a DataSet.", connect));
    connect.remove_prefix(kDatabase.size());
    if (!connect.empty() && connect.back() == ';') connect.remove_suffix(1);
    return connect;
}

// A view has no rowid, so a row is found again by the columns of its key.
PhysicalTable LinkTo(const TableDef& source, const TableDef& def) {
    PhysicalTable link;
    link.def = source;
    link.def.name = def.name;
    link.def.SourceTableName = def.SourceTableName;
    link.def.Connect = def.Connect;
    link.key = link.def.PrimaryKey() == nullptr ? KeyKind::None : KeyKind::Clustered;
    return link;
}

}  // namespace

void LinkedFiles::Add(const TableDef& def) {
    const AttachedFile& file = AttachFile(std::string(PathIn(def.Connect)));
    const auto source = std::find_if(file.tables.begin(), file.tables.end(), [&](const TableDef& table) {
        return SameWord(table.name, def.SourceTableName);
    });
    if (source == file.tables.end()) {
        DetachUnused();
        throw StoreError(ErrorNumber::UnknownTable,
                         fmt::format("There is no table '{}' in the linked DataSet.", def.SourceTableName));
    }
    links_.push_back(LinkTo(*source, def));
    try {
        ExecNative(db_, fmt::format("CREATE TEMP VIEW {} AS SELECT * FROM {}.{}", QuoteName(def.name),
                                    file.schema, QuoteName(source->name)));
    } catch (...) {
        links_.pop_back();
        DetachUnused();
        throw;
    }
}

// The other file is opened, checked and closed first, because a process may have a file open only once.
const LinkedFiles::AttachedFile& LinkedFiles::AttachFile(const std::string& path) {
    for (const AttachedFile& file : attached_)
        if (file.path == path) return file;
    OtherDataSet other = engine_.look(path);
    AttachedFile file{"link1", path, std::move(other.tables)};
    if (other.connection == &owner_) file.schema = kOwnFile;
    attached_.reserve(attached_.size() + 1);
    if (file.schema != kOwnFile) {
        const auto taken = [&](const AttachedFile& one) { return one.schema == file.schema; };
        for (int number = 2; std::any_of(attached_.begin(), attached_.end(), taken); ++number)
            file.schema = fmt::format("link{}", number);
        NativeStatement attach(db_, "ATTACH DATABASE ?1 AS " + file.schema);
        attach.Bind(1, std::string_view(path));
        attach.Step();
    }
    attached_.push_back(std::move(file));
    return attached_.back();
}

void LinkedFiles::Remove(std::string_view name) {
    ExecNative(db_, "DROP VIEW temp." + QuoteName(name));
    std::erase_if(links_, [&](const PhysicalTable& link) { return link.def.name == name; });
    DetachUnused();
}

bool LinkedFiles::IsUsed(const AttachedFile& file) const {
    return std::any_of(links_.begin(), links_.end(),
                       [&](const PhysicalTable& link) { return PathIn(link.def.Connect) == file.path; });
}

// A file that a result still reads stays attached until the next link is removed or the DataSet is closed.
void LinkedFiles::DetachUnused() noexcept {
    std::erase_if(attached_, [this](const AttachedFile& file) {
        if (IsUsed(file)) return false;
        if (file.schema == kOwnFile) return true;
        std::array<char, 64> detach{};
        std::snprintf(detach.data(), detach.size(), "DETACH DATABASE %s", file.schema.c_str());
        return sqlite3_exec(db_, detach.data(), nullptr, nullptr, nullptr) == SQLITE_OK;
    });
}

}  // namespace quillon::store
