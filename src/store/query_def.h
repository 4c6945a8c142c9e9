// A query, either stored in the DataSet under a name or temporary. Parameters are bound by name, ignoring
// case; unset ones are Null.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/value.h"
#include "store/recordset.h"

namespace quillon::store {

struct Handle;
struct Compiled;

class QueryDef {
public:
    QueryDef(std::shared_ptr<Handle> handle, std::string_view name, std::shared_ptr<Compiled> compiled);

    const std::string& Name() const { return name_; }
    const std::string& SQL() const;
    // Replaces the text, also in the file for a named query.
    void SetSQL(std::string_view sql);

    // 3265 when the query declares no such parameter.
    QueryDef& Set(std::string_view parameter, const Value& value);
    // The parameter names in the order of declaration.
    const std::vector<std::string>& Parameters() const;

    // True for a query that returns rows; false for one to Execute.
    bool IsSelect() const;
    // Returns the number of rows inserted, changed or deleted.
    int Execute();
    std::unique_ptr<Recordset> OpenRecordset(RecordsetType type = RecordsetType::Dynaset);
    std::unique_ptr<Recordset> CreateDynaset() { return OpenRecordset(RecordsetType::Dynaset); }
    std::unique_ptr<Recordset> CreateSnapshot() { return OpenRecordset(RecordsetType::Snapshot); }
    void Close();

private:
    std::shared_ptr<Handle> handle_;
    std::string name_;
    std::shared_ptr<Compiled> compiled_;
    std::vector<Value> values_;
};

}  // namespace quillon::store
