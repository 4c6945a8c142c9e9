#include "store/lifecycle/version.h"

#include <algorithm>

#include "core/text.h"

namespace quillon::store {

namespace {

constexpr std::string_view kDigits = "0123456789";

// Removes the number at the beginning of the text, and the point after it, and returns it without leading
// zeros; "" for no number.
std::string_view TakePart(std::string_view& text) {
    std::string_view part = text.substr(0, text.find_first_not_of(kDigits));
    text.remove_prefix(part.size());
    if (!text.empty() && text[0] == '.') {
        text.remove_prefix(1);
    } else {
        text = {};
    }
    part.remove_prefix(std::min(part.find_first_not_of('0'), part.size()));
    return part;
}

// Compares part by part as numbers; a missing part is 0.
bool IsAbove(std::string_view version, std::string_view program) {
    while (!version.empty() || !program.empty()) {
        const std::string_view left = TakePart(version), right = TakePart(program);
        if (left.size() != right.size()) return left.size() > right.size();
        if (left != right) return left > right;
    }
    return false;
}

}  // namespace

bool IsDataSetVersionValid(Database& database, std::string& version) {
    version.clear();
    for (const TableDef& table : database.TableDefs()) {
        if (table.name != "db_control") continue;
        const auto rows = database.CreateSnapshot("SELECT * FROM db_control");
        for (; !rows->Eof() && version.empty(); rows->MoveNext())
            if (EqualText(rows->Get("attribute").AsText(), "Version")) version = rows->Get("value").AsText();
        if (!version.empty()) break;
    }
    if (version.empty()) return false;
    return (version[0] >= '0' && version[0] <= '9') || version.substr(0, 5) == "Gamma";
}

bool IsFileDataSetVersionValid(Engine& engine, const std::string& path, std::string& version) {
    version.clear();
    try {
        const DatabaseHandle database = engine.OpenDatabase(path);
        const bool valid = IsDataSetVersionValid(*database, version);
        database->Close();
        return valid;
    } catch (const StoreError&) {
        return false;
    }
}

// A version whose numeric parts are above the program's is newer. All others are compared as text, in the
// order of these tests.
VersionOrder CompareDataSetVersion(std::string_view version, std::string_view program) {
    if (version == program) return VersionOrder::Same;
    if (version == "1.3" || version == "1.31") return VersionOrder::Same;
    if (program == "3.1" && version == "3") return VersionOrder::Same;
    if (IsAbove(version, program)) return VersionOrder::Newer;
    if (version >= "4.0.1") return VersionOrder::Older;
    if (version >= "3.6.0") return VersionOrder::Older;
    if (version > program) return VersionOrder::Newer;
    if (version < program) return VersionOrder::Older;
    return VersionOrder::Unordered;
}

}  // namespace quillon::store
