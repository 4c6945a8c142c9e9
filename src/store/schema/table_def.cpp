#include "store/schema/table_def.h"

#include <algorithm>

#include "store/schema/names.h"

namespace quillon::store {

namespace {

template <typename Item>
const Item* Find(const std::vector<Item>& items, std::string_view name) {
    const auto found =
        std::find_if(items.begin(), items.end(), [&](const Item& item) { return SameWord(item.name, name); });
    return found == items.end() ? nullptr : &*found;
}

std::vector<std::string> SplitFieldList(std::string_view list) {
    std::vector<std::string> fields;
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(';'), list.size());
        fields.emplace_back(list.substr(1, end - 1));
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return fields;
}

}  // namespace

std::string IndexDef::FieldList() const {
    std::string list;
    for (const std::string& field : fields) list += (list.empty() ? "+" : ";+") + field;
    return list;
}

const FieldDef* TableDef::Field(std::string_view fieldName) const {
    return Find(fields, fieldName);
}
const IndexDef* TableDef::Index(std::string_view indexName) const {
    return Find(indexes, indexName);
}

const IndexDef* TableDef::PrimaryKey() const {
    const auto found =
        std::find_if(indexes.begin(), indexes.end(), [](const IndexDef& index) { return index.primary; });
    return found == indexes.end() ? nullptr : &*found;
}

TableDef TableDefOf(const TableSpec& table) {
    TableDef def;
    def.name = table.name;
    for (const FieldSpec& field : table.fields)
        def.fields.push_back(
            {std::string(field.name), field.type, field.size, field.autoIncrement, field.required});
    for (const IndexSpec& index : table.indexes)
        def.indexes.push_back({std::string(index.name), SplitFieldList(index.fields), index.primary});
    return def;
}

}  // namespace quillon::store
