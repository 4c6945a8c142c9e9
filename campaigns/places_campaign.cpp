// campaign-places: what may be given as a DataSet, or be in its way, in an imperfect world: a full disk, a
// file that may not be written, a folder that may not, a directory, a text, an empty file, a DataSet cut
// short. Each must end in a clear error, with the original as it was.
#include <fmt/format.h>
#include <grp.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <csignal>
#include <filesystem>
#include <string>

#include "generator/tagged_generator.h"
#include "import/tagged_import.h"
#include "imported_lines.h"
#include "store/lifecycle/file_copy.h"
#include "support.h"

namespace quillon::campaign {

namespace {

constexpr uid_t kNobody = 65534;

struct Fixture {
    explicit Fixture(const std::string& where) : folder(where) {
        chmod(folder.Path().c_str(), 0755);
        Session session;
        session.Make(folder.File("fresh.mdb"));
        session.Close();
        fresh = ReadFile(folder.File("fresh.mdb"));
        text = bench::GeneratedText(2000, 3);
        lines = ImportedLines(text);
        WriteFile(folder.File("names.qln"), text);
        mkdir(folder.File("logs").c_str(), 0777);
        chmod(folder.File("logs").c_str(), 0777);
    }
    Folder folder;
    std::string fresh, text;
    ImportedLines lines;
};

// In the child: "" when all is well.
using Check = std::function<std::string()>;

// The text of the refusal; "" when the file opened.
std::string OpenText(const std::string& path) {
    Session session;
    try {
        session.Open(path);
        session.Close();
        return "";
    } catch (const store::StoreError& error) {
        return error.Description();
    }
}

std::string Import(const std::string& path, const std::string& file, const std::string& workFolder) {
    unlink((workFolder + "/import.err").c_str());  // of another case, and another user
    Session session;
    session.Open(path);
    testkit::NullPump events;
    importing::TaggedImport import(session.state, session.engine, session.prompter, events, [](double) {});
    import.Run(file, workFolder);
    try {
        session.Close();
    } catch (const store::StoreError&) {
        // What counts is what the import said.
    }
    return session.prompter.messages.empty() ? "" : session.prompter.messages.back();
}

// The file must be refused with a text that has `words`, and stay as it was.
std::string Refused(const std::string& path, const std::string& words) {
    struct stat info {};
    const bool regular = stat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode);
    const std::string before = regular ? ReadFile(path) : "";
    const std::string said = OpenText(path);
    if (said.empty()) return "opened";
    if (said.find(words) == std::string::npos) return "said: " + said;
    if (regular && ReadFile(path) != before) return "the file was changed";
    return FileExists(path + "-journal") ? "left a journal" : "";
}

void BecomeNobody() {
    if (getuid() != 0) return;
    if (setgroups(0, nullptr) != 0 || setgid(kNobody) != 0 || setuid(kNobody) != 0)
        throw std::runtime_error("cannot become nobody");
}

// A disk of some megabytes that this process alone sees; where it may not mount one, no file may grow over
// them.
void BecomeFullAt(const std::string& folder, int megabytes) {
    const std::string size = fmt::format("size={}m", megabytes);
    const bool own =
        unshare(CLONE_NEWNS) == 0 && mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
    if (own && mount("tmpfs", folder.c_str(), "tmpfs", 0, size.c_str()) == 0) return;
    std::signal(SIGXFSZ, SIG_IGN);
    const auto most = static_cast<rlim_t>(megabytes) * 1024 * 1024;
    const rlimit limit{most, most};
    setrlimit(RLIMIT_FSIZE, &limit);
}

std::string NoSpaceWords(const std::string& said) {
    const bool clear = said.find("Not enough space on disk") != std::string::npos ||
                       said.find("Disk error") != std::string::npos;
    return clear ? "" : "said: " + (said.empty() ? std::string("nothing") : said);
}

std::string ImportOnFullDisk(const Fixture& fixture) {
    const std::string disk = fixture.folder.File("disk");
    mkdir(disk.c_str(), 0777);
    BecomeFullAt(disk, 1);
    const std::string path = disk + "/set.mdb";
    WriteFile(path, fixture.fresh);
    const std::string wrong =
        NoSpaceWords(Import(path, fixture.folder.File("names.qln"), fixture.folder.File("logs")));
    if (!wrong.empty()) return wrong;
    Session session;
    session.Open(path);
    if (const std::string check = FullCheck(session.DataSet()); check != "ok") return check;
    return fixture.lines.Stored(session.DataSet()) == std::size_t{0} ? "" : "a part of the file was imported";
}

// What a job on `path` has begun and left.
bool HasUnfinishedFile(const std::string& path) {
    const std::filesystem::path target(path);
    for (const auto& entry : std::filesystem::directory_iterator(target.parent_path()))
        if (entry.path().filename().string().rfind(target.filename().string() + "~", 0) == 0) return true;
    return false;
}

std::string NewOnFullDisk(const Fixture& fixture) {
    const std::string disk = fixture.folder.File("small");
    mkdir(disk.c_str(), 0777);
    BecomeFullAt(disk, 1);
    const std::string path = disk + "/set.mdb";
    WriteFile(path, fixture.text.substr(0, std::size_t{960} * 1024));
    const std::string before = ReadFile(path);
    Session session;
    try {
        session.Make(path);
        return "was made";
    } catch (const store::StoreError& error) {
        if (const std::string wrong = NoSpaceWords(error.Description()); !wrong.empty()) return wrong;
    }
    if (HasUnfinishedFile(path)) return "left its half-made file";
    return ReadFile(path) == before ? "" : "the file was changed";
}

std::string CopyOnFullDisk(const Fixture& fixture) {
    const std::string disk = fixture.folder.File("copies");
    mkdir(disk.c_str(), 0777);
    BecomeFullAt(disk, 1);
    const std::string path = disk + "/set.mdb";
    WriteFile(path, "what stood here before");
    WriteFile(fixture.folder.File("large.mdb"), "");
    if (truncate(fixture.folder.File("large.mdb").c_str(), off_t{900} * 1024) != 0)
        return "cannot make the file";
    WriteFile(disk + "/other", std::string(std::size_t{300} * 1024, 'x'));
    try {
        store::CopyDataSetFile(fixture.folder.File("large.mdb"), path);
        return HasUnfinishedFile(path) ? "left its half-made file" : "was copied";
    } catch (const store::StoreError& error) {
        if (const std::string wrong = NoSpaceWords(error.Description()); !wrong.empty()) return wrong;
    }
    return ReadFile(path) == "what stood here before" ? "" : "the file was changed";
}

std::string ReadOnlyFile(const Fixture& fixture) {
    const std::string path = fixture.folder.File("readonly.mdb");
    WriteFile(path, fixture.fresh);
    chmod(path.c_str(), 0444);
    BecomeNobody();
    const std::string said = Import(path, fixture.folder.File("names.qln"), fixture.folder.File("logs"));
    if (said.find("read-only") == std::string::npos) return "said: " + said;
    return ReadFile(path) == fixture.fresh ? "" : "the file was changed";
}

std::string UnreadableFile(const Fixture& fixture) {
    const std::string path = fixture.folder.File("unreadable.mdb");
    WriteFile(path, fixture.fresh);
    chmod(path.c_str(), 0000);
    BecomeNobody();
    const std::string said = OpenText(path);
    return said.find("cannot be opened") == std::string::npos ? "said: " + said : "";
}

std::string UnwritableFolder(const Fixture& fixture) {
    const std::string folder = fixture.folder.File("locked");
    mkdir(folder.c_str(), 0755);
    const std::string path = folder + "/set.mdb";
    WriteFile(path, fixture.fresh);
    chmod(path.c_str(), 0666);
    chmod(folder.c_str(), 0555);
    BecomeNobody();
    Session session;
    try {
        session.Make(folder + "/new.mdb");
        return "made a file";
    } catch (const store::StoreError& error) {
        if (error.Description().find("Permission denied") == std::string::npos)
            return "said: " + error.Description();
    }
    const std::string said = Import(path, fixture.folder.File("names.qln"), fixture.folder.File("logs"));
    if (said.find("read-only") == std::string::npos) return "said: " + said;
    return ReadFile(path) == fixture.fresh ? "" : "the file was changed";
}

std::string Missing(const Fixture& fixture) {
    return Refused(fixture.folder.File("nothing.mdb"), "Could not find");
}

std::string Directory(const Fixture& fixture) {
    mkdir(fixture.folder.File("folder.mdb").c_str(), 0777);
    return Refused(fixture.folder.File("folder.mdb"), "not a DataSet");
}

std::string Fifo(const Fixture& fixture) {
    mkfifo(fixture.folder.File("fifo.mdb").c_str(), 0666);
    return Refused(fixture.folder.File("fifo.mdb"), "not a DataSet");
}

std::string TextFile(const Fixture& fixture) {
    WriteFile(fixture.folder.File("text.mdb"), fixture.text);
    return Refused(fixture.folder.File("text.mdb"), "not a DataSet");
}

std::string EmptyFile(const Fixture& fixture) {
    WriteFile(fixture.folder.File("empty.mdb"), "");
    return Refused(fixture.folder.File("empty.mdb"), "not a DataSet");
}

// At every page and within pages.
std::string CutShort(const Fixture& fixture) {
    for (std::size_t size = 1; size < fixture.fresh.size(); size += 2048 + size % 7) {
        const std::string path = fixture.folder.File("short.mdb");
        WriteFile(path, std::string_view(fixture.fresh).substr(0, size));
        const std::string wrong = Refused(path, size < 100 ? "not a DataSet" : "");
        if (!wrong.empty()) return fmt::format("{} bytes: {}", size, wrong);
    }
    return "";
}

struct PlaceCase {
    const char* name;
    std::string (*run)(const Fixture&);
};
constexpr PlaceCase kCases[] = {{"import on a full disk", ImportOnFullDisk},
                                {"new DataSet on a full disk", NewOnFullDisk},
                                {"copy onto a full disk", CopyOnFullDisk},
                                {"read-only file", ReadOnlyFile},
                                {"file without permission", UnreadableFile},
                                {"folder that cannot be written", UnwritableFolder},
                                {"no file", Missing},
                                {"directory", Directory},
                                {"named pipe", Fifo},
                                {"text file", TextFile},
                                {"empty file", EmptyFile},
                                {"DataSet cut short", CutShort}};

int Run(const std::string& where) {
    const Fixture fixture(where);
    Violations violations;
    for (const PlaceCase& one : kCases) {
        const int status = RunChild([&] {
            alarm(120);
            const std::string wrong = one.run(fixture);
            if (!wrong.empty()) fmt::print("{}: {}\n", one.name, wrong);
            return wrong.empty() ? 0 : 1;
        });
        if (status != 0) violations.Add(fmt::format("{}: {}", one.name, EndText(status)));
    }
    fmt::print("places: {}\n", std::size(kCases));
    return violations.Close();
}

}  // namespace

}  // namespace quillon::campaign

int main(int argc, char** argv) {
    CLI::App app("Gives the store what is no DataSet or cannot be written.", "campaign-places");
    std::string where;
    std::uint64_t seed = 0;
    app.add_option("--folder", where, "where the files go");
    app.add_option("--seed", seed, "taken as by the other campaigns; nothing here is random");
    CLI11_PARSE(app, argc, argv);
    try {
        return quillon::campaign::Run(where);
    } catch (const std::exception& error) {
        fmt::print(stderr, "campaign-places: {}\n", error.what());
        return 3;
    }
}
