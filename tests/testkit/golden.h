// Long expected outputs as files: tests/golden has a folder for each subsystem, with files named after their
// tests.
#pragma once

#include <string>
#include <string_view>

namespace quillon::testkit {

// The bytes of tests/golden/`name`, such as "export/NameOfTheTest.txt". A missing file fails the test.
std::string Golden(std::string_view name);

}  // namespace quillon::testkit
