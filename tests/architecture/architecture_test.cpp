// The folders of src/ and who may use whom: each includes only itself and what the LINK line of its
// CMakeLists.txt reaches, and Qt stays in the windows.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "testkit/testkit.h"

namespace quillon {
namespace {

namespace fs = std::filesystem;

using Names = std::set<std::string>;
using Links = std::map<std::string, Names>;          // a folder and the folders that it links
using Sources = std::map<std::string, std::string>;  // a path below src/ and its text

const Names kWindowFolders = {"ui", "quillon"};

bool StartsWith(const std::string& text, const std::string& part) {
    return text.compare(0, part.size(), part) == 0;
}

std::string FolderOf(const std::string& path) {
    return path.substr(0, path.find('/'));
}

std::vector<std::string> WordsOf(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '(' || c == ')' || c == '\n'; }, ' ');
    std::istringstream stream(text);
    std::vector<std::string> words;
    for (std::string word; stream >> word;) words.push_back(word);
    return words;
}

// The arguments of every call of a command in a CMake file.
std::vector<std::vector<std::string>> CallsOf(const std::string& command, const std::string& cmake) {
    std::vector<std::vector<std::string>> calls;
    for (std::size_t at = cmake.find(command + "("); at != std::string::npos;
         at = cmake.find(command + "(", at + 1)) {
        const std::size_t open = at + command.size();
        calls.push_back(WordsOf(cmake.substr(open, cmake.find(')', open) - open)));
    }
    return calls;
}

// What one folder's CMake file links: the names after LINK, and quillon_... of a program.
Names LinkedBy(const std::string& cmake) {
    Names linked;
    for (const auto& words : CallsOf("quillon_library", cmake)) {
        const auto link = std::find(words.begin(), words.end(), "LINK");
        const auto end = std::find(link, words.end(), "LIBRARIES");
        if (link != words.end()) linked.insert(link + 1, end);
    }
    for (const auto& words : CallsOf("target_link_libraries", cmake)) {
        for (const std::string& word : words)
            if (StartsWith(word, "quillon_")) linked.insert(word.substr(std::string("quillon_").size()));
    }
    return linked;
}

// All folders that one reaches, itself among them.
Names ReachOf(const std::string& folder, const Links& links) {
    Names reached = {folder};
    std::vector<std::string> open = {folder};
    while (!open.empty()) {
        const auto found = links.find(open.back());
        open.pop_back();
        if (found == links.end()) continue;
        for (const std::string& next : found->second)
            if (reached.insert(next).second) open.push_back(next);
    }
    return reached;
}

// What stands between the quotes or angles of an #include, with its opening sign; "" for another line.
std::string IncludeIn(const std::string& line) {
    const std::size_t hash = line.find_first_not_of(" \t");
    if (hash == std::string::npos || line[hash] != '#') return "";
    const std::size_t word = line.find_first_not_of(" \t", hash + 1);
    if (word == std::string::npos || line.compare(word, 7, "include") != 0) return "";
    const std::size_t open = line.find_first_of("\"<", word);
    if (open == std::string::npos) return "";
    return line.substr(open, line.find_first_of("\">", open + 1) - open);
}

bool IsQt(const std::string& header) {
    return header.size() > 2 && header[0] == '<' && header[1] == 'Q' && header[2] >= 'A' && header[2] <= 'z';
}

std::string FaultOf(const std::string& path, const std::string& include, const Sources& sources,
                    const Links& links) {
    const std::string folder = FolderOf(path);
    if (IsQt(include)) return kWindowFolders.count(folder) != 0 ? "" : "Qt outside the windows";
    if (include[0] != '"') return "";
    const std::string header = include.substr(1);
    if (header.find('/') == std::string::npos || sources.count(header) == 0) return "no header below src/";
    return ReachOf(folder, links).count(FolderOf(header)) != 0 ? ""
                                                               : "not reached by the LINK line of " + folder;
}

// "src/core/a.cpp:3: ui/b.h: not reached ..." for every include that may not be.
std::vector<std::string> FaultsOf(const Sources& sources, const Links& links) {
    std::vector<std::string> faults;
    for (const auto& [path, text] : sources) {
        std::istringstream lines(text);
        int number = 0;
        for (std::string line; std::getline(lines, line);) {
            ++number;
            const std::string include = IncludeIn(line);
            const std::string fault = include.empty() ? "" : FaultOf(path, include, sources, links);
            if (fault.empty()) continue;
            std::ostringstream told;
            told << "src/" << path << ":" << number << ": " << include.substr(1) << ": " << fault;
            faults.push_back(told.str());
        }
    }
    return faults;
}

const fs::path kSource = fs::path(QUILLON_SOURCE_DIR) / "src";

Sources ReadSources() {
    Sources sources;
    for (const auto& entry : fs::recursive_directory_iterator(kSource)) {
        const std::string extension = entry.path().extension();
        if (extension == ".h" || extension == ".cpp")
            sources[fs::relative(entry.path(), kSource).generic_string()] = testkit::ReadFile(entry.path());
    }
    return sources;
}

std::map<std::string, std::string> ReadCMakeFiles() {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::directory_iterator(kSource)) {
        const fs::path file = entry.path() / "CMakeLists.txt";
        if (fs::exists(file)) files[entry.path().filename()] = testkit::ReadFile(file);
    }
    return files;
}

Links ReadLinks() {
    Links links;
    for (const auto& [folder, cmake] : ReadCMakeFiles()) links[folder] = LinkedBy(cmake);
    return links;
}

TEST(Architecture, EachFolderIncludesOnlyWhatItsLinkLineReaches) {
    const Sources sources = ReadSources();
    EXPECT_GT(sources.size(), 100U);
    EXPECT_EQ(FaultsOf(sources, ReadLinks()), std::vector<std::string>{});
}

TEST(Architecture, TheLowerFoldersReachNobodyAbove) {
    const Links links = ReadLinks();
    EXPECT_EQ(ReachOf("core", links), (Names{"core"}));
    EXPECT_EQ(ReachOf("store", links), (Names{"core", "store"}));
    EXPECT_EQ(ReachOf("exchange", links), (Names{"core", "exchange"}));
    EXPECT_EQ(ReachOf("navigation", links), (Names{"core", "store", "navigation"}));
    EXPECT_EQ(ReachOf("documentation", links), (Names{"core", "store", "documentation"}));
    EXPECT_EQ(ReachOf("dataset", links), (Names{"core", "store", "dataset"}));
    const Names editor = {"core", "store", "dataset", "navigation", "documentation", "editor"};
    EXPECT_EQ(ReachOf("editor", links), editor);
    EXPECT_EQ(ReachOf("records", links), (Names{"core", "store", "records"}));
    EXPECT_EQ(ReachOf("import", links), (Names{"core", "store", "exchange", "records", "import"}));
}

TEST(Architecture, NothingReachesItselfAndOnlyTheProgramReachesTheWindows) {
    const Links links = ReadLinks();
    for (const auto& [folder, linked] : links) {
        for (const std::string& next : linked) {
            EXPECT_EQ(links.count(next), 1U) << folder << " links " << next;
            EXPECT_EQ(ReachOf(next, links).count(folder), 0U)
                << folder << " and " << next << " link each other";
        }
        if (kWindowFolders.count(folder) == 0) {
            EXPECT_EQ(ReachOf(folder, links).count("ui"), 0U) << folder;
        }
    }
}

TEST(Architecture, OnlyTheWindowsLinkQt) {
    for (const auto& [folder, cmake] : ReadCMakeFiles()) {
        const bool linksQt =
            cmake.find("Qt6::") != std::string::npos || cmake.find("AUTOMOC") != std::string::npos;
        EXPECT_TRUE(!linksQt || kWindowFolders.count(folder) != 0) << "src/" << folder << "/CMakeLists.txt";
    }
}

TEST(Architecture, EveryFolderWithSourcesIsATarget) {
    const Links links = ReadLinks();
    for (const auto& [path, text] : ReadSources())
        EXPECT_EQ(links.count(FolderOf(path)), 1U) << "src/" << path;
}

// The test itself, on a house that breaks every rule.
TEST(ArchitectureTest, ToldWhereARuleIsBroken) {
    const Links links = {
        {"core", {}},
        {"store", LinkedBy("quillon_library(store LINK core LIBRARIES SQLite::SQLite3)")},
        {"batch", LinkedBy("target_link_libraries(quillon-batch PRIVATE\n  quillon_store CLI11::CLI11)")},
        {"ui", LinkedBy("quillon_library(ui LINK store)")}};
    const Sources sources = {
        {"core/a.h", "#pragma once\n#include <string>\n"},
        {"core/b.cpp", "#include \"core/a.h\"\n  #  include \"store/c.h\"\n"},
        {"store/c.h", "#include <QString>\n#include <QtCore/qglobal.h>\n#include \"core/a.h\"\n"},
        {"batch/d.cpp", "#include \"store/c.h\"\n#include \"core/a.h\"\n#include \"ui/e.h\"\n"},
        {"ui/e.h", "#include <QString>\n#include \"core/a.h\"\n#include \"f.h\"\n"}};
    EXPECT_EQ(FaultsOf(sources, links),
              (std::vector<std::string>{"src/batch/d.cpp:3: ui/e.h: not reached by the LINK line of batch",
                                        "src/core/b.cpp:2: store/c.h: not reached by the LINK line of core",
                                        "src/store/c.h:1: QString: Qt outside the windows",
                                        "src/store/c.h:2: QtCore/qglobal.h: Qt outside the windows",
                                        "src/ui/e.h:3: f.h: no header below src/"}));
}

}  // namespace
}  // namespace quillon
