// What keeps a job from writing a file: the one check of logs, exports, journals and Save Log As before they
// open their target. It compares device and inode, so that no other name of a file deceives it, and changes
// nothing.
#pragma once

#include <string>
#include <vector>

namespace quillon {

enum class TargetFault {
    None,
    InUse,        // the job reads it, or has it open
    NotOrdinary,  // a folder, a pipe or a device
    DataSet,      // whoever has it open
};

// `used` are the files that the job reads and the DataSets that are open; empty paths are skipped. A target
// that does not exist has no fault unless `used` leads to the same place.
TargetFault FaultOfTarget(const std::string& target, const std::vector<std::string>& used);

}  // namespace quillon
