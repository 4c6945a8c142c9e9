// Finding a row of a table by its key, in the order of an index.
#include <fmt/format.h>

#include <algorithm>

#include "store/dialect/lexer.h"
#include "store/engine/criteria.h"
#include "store/engine/result_set.h"

namespace quillon::store {

void ResultSet::UseIndex(std::string_view indexName) {
    if (type_ != RecordsetType::Table)
        throw StoreError(ErrorNumber::NotInThisKind, "Operation is not supported for this type of object.");
    const IndexDef* index = BaseTable().def.Index(indexName);
    if (index == nullptr)
        throw StoreError(ErrorNumber::IndexMissing,
                         fmt::format("'{}' is no index of this table.", indexName));
    std::string order;
    for (const std::string& field : index->fields)
        order += (order.empty() ? "" : ", ") + dialect::BracketName(field);
    const std::string sql =
        fmt::format("SELECT * FROM {} ORDER BY {};", dialect::BracketName(BaseTable().def.name), order);
    std::string chosen = index->name;
    std::shared_ptr<Compiled> compiled = handle_->Require().Compile(sql);
    Break();  // returns the statement before its text is deleted
    compiled_ = std::move(compiled);
    indexName_ = std::move(chosen);
    Requery();
}

// The remaining rows in the order of the columns; rows written later are at the end until they are sorted.
std::vector<std::size_t> ResultSet::RowsInOrder(const std::vector<std::size_t>& columns) {
    std::vector<std::size_t> order;
    for (std::size_t row = 0; Has(row); ++row)
        if (!IsDeleted(row)) order.push_back(row);
    if (inOrder_) return order;
    std::stable_sort(order.begin(), order.end(), [&](std::size_t left, std::size_t right) {
        for (const std::size_t column : columns) {
            const int difference = CompareValues(At(left, column), At(right, column));
            if (difference != 0) return difference < 0;
        }
        return false;
    });
    return order;
}

int ResultSet::CompareKey(std::size_t row, const std::vector<std::size_t>& columns,
                          const std::vector<Value>& key) {
    for (std::size_t i = 0; i < key.size(); ++i) {
        const int difference = CompareValues(At(row, columns[i]), key[i]);
        if (difference != 0) return difference;
    }
    return 0;
}

std::ptrdiff_t ResultSet::SeekRow(std::string_view comparison, const std::vector<Value>& key) {
    const IndexDef* index = type_ == RecordsetType::Table ? BaseTable().def.Index(indexName_) : nullptr;
    if (index == nullptr || key.empty() || key.size() > index->fields.size())
        throw StoreError(ErrorNumber::NotInThisKind,
                         "Seek needs a table with an index, and a key that fits it.");
    std::vector<std::size_t> columns;
    for (std::size_t i = 0; i < key.size(); ++i) columns.push_back(ColumnPlace(index->fields[i]));
    std::size_t count = Count();
    const bool asRead = inOrder_ && deleted_ == 0;
    const std::vector<std::size_t> order = asRead ? std::vector<std::size_t>() : RowsInOrder(columns);
    if (!asRead) count = order.size();
    const auto rowAt = [&](std::size_t place) { return asRead ? place : order[place]; };
    // In index order two binary searches find the range of equal rows.
    const auto first = [&](int least) {
        std::size_t low = 0, high = count;
        while (low < high) {
            const std::size_t middle = low + (high - low) / 2;
            CompareKey(rowAt(middle), columns, key) < least ? low = middle + 1 : high = middle;
        }
        return low;
    };
    const std::size_t from = first(0), to = first(1);
    const auto found = [&](bool hit, std::size_t place) {
        return hit ? static_cast<std::ptrdiff_t>(rowAt(place)) : std::ptrdiff_t{-1};
    };
    if (comparison == "=") return found(from < to, from);
    if (comparison == ">=") return found(from < count, from);
    if (comparison == ">") return found(to < count, to);
    if (comparison == "<=") return found(to > 0, to - 1);
    if (comparison == "<") return found(from > 0, from - 1);
    throw StoreError(ErrorNumber::SyntaxError, fmt::format("'{}' is no comparison of Seek.", comparison));
}

}  // namespace quillon::store
