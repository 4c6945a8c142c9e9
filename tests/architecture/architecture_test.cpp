// The folders of src/ and what each may use: each includes only itself and what the LINK line of its own
// CMakeLists.txt names, the layers inside the store use only those below them, Qt stays in the windows and
// SQLite in the store's engine, and the store asks no questions.
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

// The layers of the store from the lowest up: folders, and the headers of src/store itself, which are "api"
// but for the few that everybody inside needs.
const std::vector<std::string> kStoreLayers = {"values", "schema",  "dialect",  "engine",
                                               "api",    "queries", "lifecycle"};
const Names kStoreValues = {"error", "recordset_type"};

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

// The place of a file of the store among kStoreLayers; one that is in none of them is above all.
std::size_t StoreLayerOf(const std::string& path) {
    const std::string inside = path.substr(path.find('/') + 1);
    const std::size_t slash = inside.find('/');
    std::string layer = inside.substr(0, slash);
    if (slash == std::string::npos)
        layer = kStoreValues.count(inside.substr(0, inside.find('.'))) != 0 ? "values" : "api";
    const auto found = std::find(kStoreLayers.begin(), kStoreLayers.end(), layer);
    return static_cast<std::size_t>(found - kStoreLayers.begin());
}

std::string FaultInside(const std::string& path, const std::string& header) {
    if (FolderOf(path) != "store") return "";
    return StoreLayerOf(header) <= StoreLayerOf(path) ? "" : "a layer of the store above";
}

std::string FaultOf(const std::string& path, const std::string& include, const Sources& sources,
                    const Links& links) {
    const std::string folder = FolderOf(path);
    if (IsQt(include)) return kWindowFolders.count(folder) != 0 ? "" : "Qt outside the windows";
    if (include == "<sqlite3.h")
        return StartsWith(path, "store/engine/") ? "" : "SQLite outside the store's engine";
    if (include[0] != '"') return "";
    const std::string header = include.substr(1);
    if (header.find('/') == std::string::npos || sources.count(header) == 0) return "no header below src/";
    if (FolderOf(header) == folder) return FaultInside(path, header);
    const auto linked = links.find(folder);
    return linked != links.end() && linked->second.count(FolderOf(header)) != 0
               ? ""
               : "not named by the LINK line of " + folder;
}

// "src/core/a.cpp:3: ui/b.h: not reached ..." for every include that may not be.
std::vector<std::string> FaultsOf(const Sources& sources, const Links& links) {
    std::vector<std::string> faults;
    for (const auto& [path, content] : sources) {
        std::istringstream lines(content);
        int number = 0;
        for (std::string line; std::getline(lines, line);) {
            ++number;
            const std::string include = IncludeIn(line);
            const std::string fault = include.empty() ? "" : FaultOf(path, include, sources, links);
            if (fault.empty()) continue;
            std::ostringstream text;
            text << "src/" << path << ":" << number << ": " << include.substr(1) << ": " << fault;
            faults.push_back(text.str());
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

TEST(Architecture, EachFileIncludesOnlyWhatItMay) {
    const Sources sources = ReadSources();
    EXPECT_GT(sources.size(), 100U);
    EXPECT_EQ(FaultsOf(sources, ReadLinks()), std::vector<std::string>{});
}

TEST(Architecture, TheLowerFoldersReachNothingAbove) {
    const Links links = ReadLinks();
    const Names store = {"core", "store"};
    EXPECT_EQ(ReachOf("core", links), (Names{"core"}));
    EXPECT_EQ(ReachOf("store", links), store);
    for (const std::string folder : {"records", "selection", "dataset", "navigation", "exchange"}) {
        for (const std::string& reached : ReachOf(folder, links))
            EXPECT_TRUE(reached == folder || store.count(reached) != 0) << folder << " reaches " << reached;
    }
    EXPECT_EQ(ReachOf("documentation", links), (Names{"core", "store", "records", "documentation"}));
    for (const std::string folder : {"import", "export", "validation"})
        EXPECT_EQ(ReachOf(folder, links).count("editor"), 0U) << folder;
}

TEST(Architecture, TheStoreAsksNoQuestions) {
    for (const auto& [path, text] : ReadSources()) {
        if (FolderOf(path) == "store") {
            EXPECT_EQ(text.find("Prompter"), std::string::npos) << "src/" << path;
        }
    }
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

// The test itself, on sources that break every rule.
TEST(ArchitectureTest, NamesEachBrokenRule) {
    const Links links = {
        {"core", {}},
        {"store", LinkedBy("quillon_library(store LINK core LIBRARIES SQLite::SQLite3)")},
        {"batch", LinkedBy("target_link_libraries(quillon-batch PRIVATE\n  quillon_store CLI11::CLI11)")},
        {"ui", LinkedBy("quillon_library(ui LINK store)")}};
    const Sources sources = {
        {"core/a.h", "#pragma once\n#include <string>\n"},
        {"core/b.cpp", "#include \"core/a.h\"\n  #  include \"store/c.h\"\n"},
        {"store/c.h", "#include <QString>\n#include <QtCore/qglobal.h>\n#include \"core/a.h\"\n"},
        {"store/error.h", "#include <sqlite3.h>\n"},
        {"store/schema/s.h", "#include \"store/error.h\"\n#include \"store/engine/e.h\"\n"},
        {"store/engine/e.h", "#include <sqlite3.h>\n#include \"store/schema/s.h\"\n#include \"store/c.h\"\n"},
        {"batch/d.cpp", "#include \"store/c.h\"\n#include \"core/a.h\"\n#include \"ui/e.h\"\n"},
        {"ui/e.h", "#include <QString>\n#include \"store/c.h\"\n#include \"f.h\"\n"}};
    EXPECT_EQ(
        FaultsOf(sources, links),
        (std::vector<std::string>{"src/batch/d.cpp:2: core/a.h: not named by the LINK line of batch",
                                  "src/batch/d.cpp:3: ui/e.h: not named by the LINK line of batch",
                                  "src/core/b.cpp:2: store/c.h: not named by the LINK line of core",
                                  "src/store/c.h:1: QString: Qt outside the windows",
                                  "src/store/c.h:2: QtCore/qglobal.h: Qt outside the windows",
                                  "src/store/engine/e.h:3: store/c.h: a layer of the store above",
                                  "src/store/error.h:1: sqlite3.h: SQLite outside the store's engine",
                                  "src/store/schema/s.h:2: store/engine/e.h: a layer of the store above",
                                  "src/ui/e.h:3: f.h: no header below src/"}));
}

}  // namespace
}  // namespace quillon
