// The jobs that the campaigns against disks run: each works on the files of one folder, and a check says what
// is wrong with what it left there.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "imported_lines.h"
#include "support.h"

namespace quillon::campaign {

// What a job says: nothing when it went through, otherwise the text for the user.
struct Outcome {
    std::string message;
    int acknowledged = 0;  // units
    bool died = false;     // it never ended, and may leave its temporary files
};

// One case's folder with the files that the job finds.
struct Place {
    std::string folder;
    std::string File(const char* name) const { return folder + "/" + name; }
};

struct Originals {
    std::string fresh;  // a new DataSet
    std::string text;   // the tagged file
    ImportedLines lines;
};

// Makes a new DataSet in `folder`, and a tagged file of some names from `seed`.
Originals MakeOriginals(const Folder& folder, std::uint64_t seed);

struct DiskJob {
    const char* name;
    Outcome (*run)(const Place&, const Originals&);
    // Says what is wrong with what the job left; "" for nothing. StoreError when it does not open.
    std::string (*check)(const Place&, const Originals&, const Outcome&);
};
// import, units, new, copy.
std::span<const DiskJob> DiskJobs();

// Puts the files that the job works on into its folder, and removes all others. "new" and "copy" find an
// older file, the text, in their place.
void PutFiles(const Place& place, const DiskJob& job, const Originals& originals);

// Run when unit `number` of the job "units" was acknowledged.
extern void (*onAcknowledged)(int number);

}  // namespace quillon::campaign
