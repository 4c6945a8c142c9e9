#include "testkit/golden.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "testkit/testkit.h"

namespace quillon::testkit {

std::string Golden(std::string_view name) {
    const std::string path = QUILLON_SOURCE_DIR "/tests/golden/" + std::string(name);
    EXPECT_TRUE(std::filesystem::exists(path)) << path << " is missing";
    return ReadFile(path);
}

}  // namespace quillon::testkit
