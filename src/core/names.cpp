#include "core/names.h"

#include "core/text.h"

namespace quillon {

namespace {

// Appends a mark and a name, each followed by a blank; a Null mark adds no blank.
void AppendUnit(const Value& mark, const Value& name, std::string& sciName) {
    if (!mark.IsNull()) sciName.append(mark.AsText()).append(" ");
    sciName.append(name.AsText()).append(" ");
}

bool IsMissing(const Value& mark, const Value& name) {
    return mark.IsNull() && name.IsNull();
}

void AppendLowerUnits(const NameFields& name, std::string& sciName) {
    if (IsMissing(name.unit_ind2, name.unit_name2)) return;
    AppendUnit(name.unit_ind2, name.unit_name2, sciName);
    if (IsMissing(name.unit_ind3, name.unit_name3)) return;
    AppendUnit(name.unit_ind3, name.unit_name3, sciName);
    if (IsMissing(name.unit_ind4, name.unit_name4)) return;
    AppendUnit(name.unit_ind4, name.unit_name4, sciName);
}

std::string MarkAndName(const Value& mark, const Value& name) {
    return " " + mark.AsText() + " " + name.AsText();
}

bool RecordHasName(const EditedName& name) {
    return !name.unit_name1.empty() || !name.unit_name2.empty() || !name.unit_name3.empty();
}

// The marks are texts here, so an empty one still adds its blank.
std::string NameOfRecord(const EditedName& name) {
    return name.unit_ind1 + " " + name.unit_name1 + " " + name.unit_ind2 + " " + name.unit_name2 + " " +
           name.unit_ind3 + " " + name.unit_name3 + " " + name.unit_ind4 + " " + name.unit_name4 + " ";
}

std::string_view ChosenOrTyped(const std::string& combo, const std::string& text) {
    return Trim(combo.empty() ? text : combo);
}

// The second name counts only when it was typed, and the third only after a second.
std::string NameOfControls(const EditedName& name) {
    std::string result(ChosenOrTyped(name.cboName1, name.txtName1));
    result.append(" ");
    if (name.txtName2.empty()) return result;
    result.append(ChosenOrTyped(name.cboName2, name.txtName2)).append(" ");
    if (!name.txtName3.empty()) result.append(name.txtName3).append(" ");
    return result;
}

}  // namespace

std::string CompressSpacesAndTrim(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    bool inRun = false;
    for (const char character : text) {
        const bool isSpace = character == ' ' || character == '\t';
        if (!isSpace) {
            result.push_back(character);
        } else if (!inRun) {
            result.push_back(' ');
        }
        inRun = isSpace;
    }
    return std::string(Trim(result));
}

std::string BuildSciName(const NameFields& name) {
    std::string sciName;
    AppendUnit(name.unit_ind1, name.unit_name1, sciName);
    AppendLowerUnits(name, sciName);
    sciName.pop_back();
    return sciName;
}

// The first two units need no trim, because the compression removes the same blanks.
std::string ConcatSName(const NameFields& name) {
    return CompressSpacesAndTrim(BuildSciName(name));
}

std::string CalcPlainNodeName(const NameFields& name, const Value& taxonAuthor) {
    const std::string units = name.unit_ind1.AsText() + " " + name.unit_name1.AsText() +
                              MarkAndName(name.unit_ind2, name.unit_name2) +
                              MarkAndName(name.unit_ind3, name.unit_name3) +
                              MarkAndName(name.unit_ind4, name.unit_name4);
    std::string line(Trim(units));
    line.append("  ").append(Trim(taxonAuthor.AsText()));
    return std::string(Trim(line));
}

std::string CalcPlainNodeNameOfNoRow() {
    return " ";
}

std::string CurrentTaxonName(const EditedName& name) {
    std::string result = RecordHasName(name) ? NameOfRecord(name) : NameOfControls(name);
    result.pop_back();
    return std::string(Trim(result));
}

}  // namespace quillon
