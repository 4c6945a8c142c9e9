#include "store/query_def.h"

#include <fmt/format.h>

#include "store/engine/connection.h"
#include "store/engine/result_set.h"
#include "store/error.h"
#include "store/schema/names.h"

namespace quillon::store {

QueryDef::QueryDef(std::shared_ptr<Handle> handle, std::string_view name, std::shared_ptr<Compiled> compiled)
    : handle_(std::move(handle)),
      name_(name),
      compiled_(std::move(compiled)),
      values_(compiled_->parameterNames.size()) {}

const std::string& QueryDef::SQL() const {
    return compiled_->text;
}

void QueryDef::SetSQL(std::string_view sql) {
    Connection& connection = handle_->Require();
    if (name_.empty()) {
        compiled_ = connection.Compile(sql);
    } else {
        connection.ReplaceQuery(name_, sql);
        compiled_ = connection.CompileQuery(name_);
    }
    values_.assign(compiled_->parameterNames.size(), Value());
}

QueryDef& QueryDef::Set(std::string_view parameter, const Value& value) {
    for (std::size_t i = 0; i < values_.size(); ++i) {
        if (!SameWord(compiled_->parameterNames[i], parameter)) continue;
        values_[i] = value;
        return *this;
    }
    throw StoreError(ErrorNumber::ItemNotFound,
                     fmt::format("The query '{}' has no parameter '{}'.", name_, parameter));
}

const std::vector<std::string>& QueryDef::Parameters() const {
    return compiled_->parameterNames;
}

bool QueryDef::IsSelect() const {
    return compiled_->translation.kind == dialect::StatementKind::Select;
}

int QueryDef::Execute() {
    return handle_->Require().Execute(compiled_, values_);
}

std::unique_ptr<Recordset> QueryDef::OpenRecordset(RecordsetType type) {
    handle_->Require();
    if (!IsSelect())
        throw StoreError(ErrorNumber::NotInThisKind, "An action query gives no rows; execute it instead.");
    return std::make_unique<Recordset>(std::make_shared<ResultSet>(handle_, compiled_, values_, type));
}

void QueryDef::Close() {
    values_.assign(values_.size(), Value());
}

}  // namespace quillon::store
