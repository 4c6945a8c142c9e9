#include "store/lifecycle/version.h"

#include "core/text.h"

namespace quillon::store {

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

// Versions compare as text, and the order of the tests decides; the fifth is never reached.
VersionOrder CompareDataSetVersion(std::string_view version, std::string_view program) {
    if (version == program) return VersionOrder::Same;
    if (version == "1.3" || version == "1.31") return VersionOrder::Same;
    if (program == "3.1" && version == "3") return VersionOrder::Same;
    if (version >= "4.0.1") return VersionOrder::Older;
    if (version >= "4.0.2") return VersionOrder::Same;
    if (version >= "3.6.0") return VersionOrder::Older;
    if (version > program) return VersionOrder::Newer;
    if (version < program) return VersionOrder::Older;
    return VersionOrder::Unordered;
}

}  // namespace quillon::store
