// A query ready to run, stored under a name in the DataSet or temporary. Parameters are bound by name,
// without regard to case; one that is not set is Null.
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
    // Replaces the text, in the file too when the query is a named one.
    void SetSQL(std::string_view sql);

    // 3265 when the query declares no such parameter.
    QueryDef& Set(std::string_view parameter, const Value& value);
    // The names of the parameters in the order of declaration.
    const std::vector<std::string>& Parameters() const;

    // True when it returns rows; false when it is executed.
    bool IsSelect() const;
    // Rows inserted, changed or deleted.
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
