// make-templates FOLDER KINGDOM...: writes a new DataSet of each kingdom into the folder, for the tests to
// copy.
#include <cstdio>
#include <filesystem>
#include <string>

#include "core/version.h"
#include "store/lifecycle/create.h"

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "usage: make-templates FOLDER KINGDOM...\n");
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    std::filesystem::create_directories(folder);
    for (int i = 2; i < argc; ++i) {
        const std::string kingdom = argv[i];
        quillon::store::Engine engine;
        quillon::store::MakeDataSetFile(engine, folder / (kingdom + ".mdb"), kingdom,
                                        quillon::kProgramVersion);
    }
    return 0;
}
