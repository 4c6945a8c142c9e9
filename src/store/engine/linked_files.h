// Linked tables: tables of other DataSets with names in this one. The other file is attached and a temporary
// view created, so nothing about a link is written to either file.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/engine/engine_state.h"
#include "store/engine/tables.h"

struct sqlite3;

namespace quillon::store {

class LinkedFiles {
public:
    LinkedFiles(const EngineState& engine, const Connection& owner) : engine_(engine), owner_(owner) {}
    void Attach(sqlite3* db) { db_ = db; }

    // Attaching and detaching require that no transaction is open. InvalidPath for a Connect without a
    // DataSet, UnknownTable when that has no such table, and the errors of opening it.
    void Add(const TableDef& def);
    void Remove(std::string_view name);
    const std::vector<PhysicalTable>& Links() const { return links_; }

private:
    struct AttachedFile {
        std::string schema;  // the schema name in statements
        std::string path;
        std::vector<TableDef> tables;
    };
    const AttachedFile& AttachFile(const std::string& path);
    void DetachUnused() noexcept;
    bool IsUsed(const AttachedFile& file) const;

    const EngineState& engine_;
    const Connection& owner_;
    sqlite3* db_ = nullptr;
    std::vector<PhysicalTable> links_;
    std::vector<AttachedFile> attached_;
};

}  // namespace quillon::store
