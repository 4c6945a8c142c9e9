// Long expected outputs as files: tests/golden holds one a test, in a folder a subsystem and named after the
// test.
#pragma once

#include <string>
#include <string_view>

namespace quillon::testkit {

// The bytes of tests/golden/`name`, as "export/NameOfTheTest.txt". A missing file fails the test.
std::string Golden(std::string_view name);

}  // namespace quillon::testkit
