// quillon-generate: writes a tagged file of any size, the same bytes for the same numbers.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <string>

#include "generator/tagged_generator.h"

int main(int argc, char** argv) {
    CLI::App app("Writes a tagged file of NAMES generated names.", "quillon-generate");
    std::size_t names = 0;
    std::uint64_t seed = 0;
    std::string file;
    app.add_option("NAMES", names, "number of names")->required()->check(CLI::PositiveNumber);
    app.add_option("SEED", seed, "the same seed gives the same file")->required();
    app.add_option("FILE", file, "the file to write")->required();
    CLI11_PARSE(app, argc, argv);
    try {
        const quillon::bench::GeneratedCounts counts = quillon::bench::GenerateFile(names, seed, file);
        for (const auto& [tag, lines] : counts.lines) std::printf("%s\t%zu\n", tag.c_str(), lines);
        std::printf("lines\t%zu\n", counts.Total());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "quillon-generate: %s\n", error.what());
        return 3;
    }
    return 0;
}
