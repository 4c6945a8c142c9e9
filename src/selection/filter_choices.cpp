#include "selection/filter_choices.h"

#include <algorithm>
#include <string>
#include <vector>

#include "selection/record_filter.h"

namespace quillon::selection {

namespace {

constexpr std::string_view kPresetField = "taxonomic_credibility_rating";
constexpr std::string_view kPresetValue = "KSP Standards Met";

std::vector<std::string> FieldsOfTaxa() {
    std::vector<std::string> fields{std::string(kPresetField)};
    for (const store::TableSpec& table : store::DataSetTables()) {
        if (table.name != "qb_taxonomic_units") continue;
        for (const store::FieldSpec& field : table.fields)
            if (field.name != kPresetField) fields.emplace_back(field.name);
    }
    return fields;
}

}  // namespace

void FillFilterChoices(ComboControl& fields, ComboControl& operators, ComboControl& values) {
    fields.SetTexts(FieldsOfTaxa());
    operators.SetTexts({kOperators.begin(), kOperators.end()});
    values.SetTexts({std::string(kPresetValue)});
    for (ComboControl* list : {&fields, &operators, &values}) list->SetListIndex(0);
}

}  // namespace quillon::selection
