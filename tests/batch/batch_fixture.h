// Runs quillon-batch as a script does, in a temporary folder of its own.
#pragma once

#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <set>
#include <string>

#include "testkit/testkit.h"

namespace quillon::batch {

struct Ended {
    int status = -1;
    std::string out, err;
};

struct Batch {
    testkit::TempDir dir;

    // Runs quillon-batch with the words as a shell has them, in the temporary folder. Standard output goes to
    // `output`.
    Ended Run(const std::string& words, const std::string& output = "out.txt") const {
        const std::string command =
            "cd " + dir.path() + " && " QUILLON_BATCH " " + words + " >" + output + " 2>err.txt </dev/null";
        const int code = std::system(command.c_str());
        return {WEXITSTATUS(code), testkit::ReadFile(dir.File("out.txt")),
                testkit::ReadFile(dir.File("err.txt"))};
    }

    // The names of all files in the folder.
    std::set<std::string> Files() const {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(dir.path()))
            names.insert(entry.path().filename());
        return names;
    }
};

inline constexpr const char* kTwoTaxa =
    "[TU]|100||Animalia||||||||valid|||||||100|||||5|10|No|\r\n"
    "[TU]|101||Chordata||||||||valid|||||||100|||||5|30|No|\r\n";

}  // namespace quillon::batch
