#include "dataset/file_names.h"

namespace quillon::dataset {

std::string WithExtension(std::string path) {
    if (path.find('.') == std::string::npos) path += ".MDB";
    return path;
}

}  // namespace quillon::dataset
