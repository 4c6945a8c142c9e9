#include "support.h"

#include <fmt/format.h>
#include <sqlite3.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <stdexcept>

#include "store/engine/connection.h"

namespace quillon::campaign {

namespace {

using Statement = std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)>;

Statement Prepare(store::Database& database, const std::string& sql) {
    sqlite3* db = database.Shared()->Native();
    sqlite3_stmt* raw = nullptr;
    if (sqlite3_prepare_v2(db, sql.c_str(), -1, &raw, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(db));
    return {raw, &sqlite3_finalize};
}

}  // namespace

Folder::Folder(const std::string& where) {
    const std::string base = where.empty() ? std::filesystem::temp_directory_path().string() : where;
    std::string pattern = base + "/quillon-campaign-XXXXXX";
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("cannot make a folder in " + base);
    path_ = pattern;
}

Folder::~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

Session::Session() {
    state.gKingdomName = "Animalia";
    state.gPrefRank = "Kingdom";
}

void Session::Open(const std::string& path) {
    state.gDataSetPath = lifecycle.OpenDataSetFile(path);
    if (!state.gDataSetOpen)
        throw store::StoreError(store::ErrorNumber::CannotOpenFile, lifecycle.LastOpenError());
}

std::string FullCheck(store::Database& database) {
    const Statement check = Prepare(database, "PRAGMA integrity_check(1)");
    if (sqlite3_step(check.get()) != SQLITE_ROW) return "the check could not run";
    return reinterpret_cast<const char*>(sqlite3_column_text(check.get(), 0));
}

std::vector<std::int64_t> NativeNumbers(store::Database& database, const std::string& sql) {
    std::vector<std::int64_t> numbers;
    const Statement rows = Prepare(database, sql);
    while (sqlite3_step(rows.get()) == SQLITE_ROW) numbers.push_back(sqlite3_column_int64(rows.get(), 0));
    return numbers;
}

std::int64_t NativeNumber(store::Database& database, const std::string& sql) {
    return NativeNumbers(database, sql).at(0);
}

std::string ReadFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

void WriteFile(const std::string& path, std::string_view content) {
    std::ofstream out(path, std::ios::binary);
    out.write(content.data(), static_cast<std::streamsize>(content.size()));
    if (!out.flush()) throw std::runtime_error("cannot write " + path);
}

bool FileExists(const std::string& path) {
    struct stat info {};
    return lstat(path.c_str(), &info) == 0;
}

double SecondsNow() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

void Sleep(double seconds) {
    if (seconds <= 0) return;
    const double whole = std::floor(seconds);
    const timespec span{static_cast<time_t>(whole), static_cast<long>((seconds - whole) * 1e9)};
    nanosleep(&span, nullptr);
}

pid_t StartChild(const std::function<int()>& job) {
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child < 0) throw std::runtime_error("cannot start a process");
    if (child > 0) return child;
    int status = 99;
    try {
        status = job();
    } catch (const std::exception& error) {
        fmt::print(stderr, "child: {}\n", error.what());
    }
    std::fflush(nullptr);
    _exit(status);
}

int WaitFor(pid_t child) {
    int status = 0;
    while (waitpid(child, &status, 0) < 0) {
        if (errno != EINTR) throw std::runtime_error("lost a child process");
    }
    return status;
}

int RunChild(const std::function<int()>& job) {
    return WaitFor(StartChild(job));
}

std::string EndText(int status) {
    return WIFEXITED(status) ? fmt::format("exit {}", WEXITSTATUS(status))
                             : fmt::format("signal {}", WTERMSIG(status));
}

void Violations::Add(const std::string& text) {
    ++count_;
    fmt::print("violation: {}\n", text);
}

int Violations::Close() const {
    fmt::print("violations: {}\n", count_);
    return count_ == 0 ? 0 : 1;
}

double UniformBelow(Random& random, double most) {
    return most * static_cast<double>(random() >> 11) / static_cast<double>(std::uint64_t{1} << 53);
}

}  // namespace quillon::campaign
