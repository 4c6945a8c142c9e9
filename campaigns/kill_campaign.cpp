// campaign-kill: SIGKILL at random moments of a tagged import, of a writer, of an export, and of a script of
// saves. Every DataSet must open, pass the full check, hold every acknowledged unit of the writer, all of an
// import or nothing, and each record as before its save or as after; the target of an export must be the old
// file or the whole new one.
#include <fmt/format.h>

#include <CLI/CLI.hpp>

#include "kill_jobs.h"
#include "store/engine/connection.h"

namespace quillon::campaign {

bool OpenLeftBehind(Session& session, const std::string& path, const std::string& what,
                    Violations& violations) {
    try {
        session.Open(path);
        const std::string check = FullCheck(session.DataSet());
        if (check == "ok") return true;
        violations.Add(fmt::format("{}: the full check says {}", what, check));
    } catch (const store::StoreError& error) {
        violations.Add(fmt::format("{}: does not open: {}", what, error.Description()));
    }
    return false;
}

}  // namespace quillon::campaign

int main(int argc, char** argv) {
    using namespace quillon::campaign;
    CLI::App app("Kills imports, writers, exports and scripts at random moments and checks what they leave.",
                 "campaign-kill");
    std::size_t imports = 400, writers = 400, exports = 400, scripts = 400, together = 4;
    std::uint64_t seed = 1;
    std::string where, program = QUILLON_BATCH;
    app.add_option("--imports", imports, "imports to kill");
    app.add_option("--writers", writers, "writers to kill");
    app.add_option("--exports", exports, "exports to kill");
    app.add_option("--scripts", scripts, "scripts of saves to kill");
    app.add_option("--program", program, "the quillon-batch that exports and plays scripts");
    app.add_option("--together", together, "imports that run side by side")->check(CLI::PositiveNumber);
    app.add_option("--seed", seed, "seed of the moments");
    app.add_option("--folder", where, "where the files go");
    CLI11_PARSE(app, argc, argv);
    try {
        const Folder folder(where);
        Random random(seed);
        Violations violations;
        KillWriters(writers, folder, random, violations);
        KillImports(imports, together, folder, random, violations);
        KillExports(exports, program, folder, random, violations);
        KillScripts(scripts, program, folder, random, violations);
        return violations.Close();
    } catch (const std::exception& error) {
        fmt::print(stderr, "campaign-kill: {}\n", error.what());
        return 3;
    }
}
