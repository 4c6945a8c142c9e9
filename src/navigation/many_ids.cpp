#include "navigation/many_ids.h"

#include <fmt/format.h>

#include <string>

namespace quillon::navigation {

namespace {

std::string ParameterName(std::size_t i) {
    return fmt::format("theId{}", i);
}

std::string Complete(std::string_view sql, std::string_view queryName) {
    std::string declared, listed;
    for (std::size_t i = 0; i < ManyIds::kAtOnce; ++i) {
        const std::string_view comma = i == 0 ? "" : ", ";
        declared += fmt::format("{}{} Long", comma, ParameterName(i));
        listed += fmt::format("{}[{}]", comma, ParameterName(i));
    }
    return fmt::format(fmt::runtime(sql), declared, listed, queryName);
}

}  // namespace

ManyIds::ManyIds(store::Database& database, std::string_view sql, std::string_view queryName)
    : query_(database.CreateQueryDef("", Complete(sql, queryName))) {}

std::unique_ptr<store::Recordset> ManyIds::Open(std::span<const std::int32_t> ids) {
    for (std::size_t i = 0; i < kAtOnce; ++i)
        query_.Set(ParameterName(i), i < ids.size() ? Value(ids[i]) : Value());
    return query_.OpenRecordset(store::RecordsetType::ForwardOnly);
}

}  // namespace quillon::navigation
