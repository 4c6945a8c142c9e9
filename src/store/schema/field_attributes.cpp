#include "store/schema/field_attributes.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace quillon::store {

namespace {

constexpr std::array<std::string_view, 5> kDeclaredTooSmall = {"comment_id", "expert_id", "source_id",
                                                               "publication_id", "vern_id"};

}  // namespace

int AttributesOf(const FieldDef& field) {
    const bool isVariable = field.type == FieldType::Text || field.type == FieldType::Memo;
    const auto width = isVariable ? FieldAttribute::Variable : FieldAttribute::Fixed;
    return static_cast<int>(width) +
           (field.autoIncrement ? static_cast<int>(FieldAttribute::AutoIncrement) : 0);
}

int DeclaredSizeOf(const FieldDef& field) {
    switch (field.type) {
        case FieldType::Text:
            return field.size;
        case FieldType::Memo:
            return 0;
        case FieldType::Boolean:
        case FieldType::Byte:
            return 1;
        case FieldType::Integer:
            return 2;
        case FieldType::DateTime:
            return 8;
        case FieldType::Long:
            break;
    }
    const bool tooSmall =
        std::find(kDeclaredTooSmall.begin(), kDeclaredTooSmall.end(), field.name) != kDeclaredTooSmall.end();
    return tooSmall ? 2 : 4;
}

}  // namespace quillon::store
