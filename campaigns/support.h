// What the reliability campaigns share: a DataSet with everything its procedures ask for, child processes
// that may be killed or may crash, and the check of what they leave behind.
//
// A campaign counts what it did and every violation, prints both, and ends with 1 when there is a violation.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "core/application_state.h"
#include "core/outside.h"
#include "dataset/lifecycle.h"
#include "store/engine.h"
#include "testkit/outside.h"

namespace quillon::campaign {

// A temporary folder, removed by the destructor; `where` may be empty for the default location.
class Folder {
public:
    explicit Folder(const std::string& where = {});
    ~Folder();
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    std::string File(std::string_view name) const { return path_ + "/" + std::string(name); }
    const std::string& Path() const { return path_; }

private:
    std::string path_;
};

// One process's view of a DataSet.
struct Session {
    Session();
    // Throws StoreError with the text for the user.
    void Open(const std::string& path);
    void Make(const std::string& path) { lifecycle.MakeDataSet(path); }
    void Close() { lifecycle.CloseDataSet(); }
    store::Database& DataSet() { return *state.gDatabase; }

    ApplicationState state;
    store::Engine engine;
    testkit::SilentPrompter prompter;
    dataset::Lifecycle lifecycle{state, engine, prompter};
};

// The first line of SQLite's full check of the open DataSet: "ok" when it is whole.
std::string FullCheck(store::Database& database);
// A whole number from a statement of SQLite's own.
std::int64_t NativeNumber(store::Database& database, const std::string& sql);
std::vector<std::int64_t> NativeNumbers(store::Database& database, const std::string& sql);

std::string ReadFile(const std::string& path);
void WriteFile(const std::string& path, std::string_view content);
bool FileExists(const std::string& path);

double SecondsNow();
void Sleep(double seconds);

// Runs `job` in a child process. What it returns is the child's exit status; an exception is printed and ends
// it with 99.
pid_t StartChild(const std::function<int()>& job);
// The child's end as waitpid has it.
int WaitFor(pid_t child);
int RunChild(const std::function<int()>& job);
// "exit 3", "signal 11".
std::string EndText(int status);

// Counts violations and says each.
class Violations {
public:
    void Add(const std::string& text);
    std::size_t Count() const { return count_; }
    // Prints how many there are and gives the exit status.
    int Close() const;

private:
    std::size_t count_ = 0;
};

using Random = std::mt19937_64;
// From 0 up to `most`, not included.
double UniformBelow(Random& random, double most);

}  // namespace quillon::campaign
