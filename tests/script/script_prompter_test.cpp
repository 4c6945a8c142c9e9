#include "script/script_prompter.h"

#include <gtest/gtest.h>

#include "testkit/testkit.h"
#include "transcript_log.h"

namespace quillon::script {
namespace {

constexpr std::string_view kFilter = "Taxonomic Files (*.MDB)|*.mdb|All Files (*.*)|*.*";

TEST(ScriptPrompter, AsksBeforeItGivesAnExistingFileWhereTheDialogWould) {
    const testkit::TempDir dir;
    const std::string there = dir.File("there.MDB");
    testkit::WriteFile(there, "x");
    TranscriptLog transcript;
    ScriptPrompter prompter(transcript, false);
    for (int i = 0; i < 3; ++i) prompter.QueueFile(there);
    prompter.QueueAnswer("ok");
    EXPECT_EQ(prompter.FileToSave("", kFilter, true, ""), there);
    EXPECT_EQ(prompter.FileToSave("", kFilter, true, ""), std::nullopt);
    EXPECT_EQ(prompter.FileToSave("", kFilter, false, ""), there);
    EXPECT_EQ(prompter.FileToSave("", kFilter, true, ""), std::nullopt);
    EXPECT_EQ(transcript.log, "question: " + there + " already exists.  Replace it? [Yes]\nquestion: " +
                                  there + " already exists.  Replace it? [No]\n");
}

TEST(ScriptPrompter, AddsTheEndingsThatTheDialogAdds) {
    const testkit::TempDir dir;
    TranscriptLog transcript;
    ScriptPrompter prompter(transcript, false);
    const std::string bare = dir.File("bare");
    for (int i = 0; i < 4; ++i) prompter.QueueFile(bare);
    prompter.QueueFile(dir.File("other.x"));
    EXPECT_EQ(prompter.FileToSave("", kFilter, true, ""), bare + ".MDB");
    EXPECT_EQ(prompter.FileToSave("", "All (*.*)|*.*", true, ""), bare);
    EXPECT_EQ(prompter.FileToSave("", "", true, ""), bare);
    EXPECT_EQ(prompter.FileToOpen("", kFilter), bare);
    EXPECT_EQ(prompter.FileToSave("", kFilter, true, ""), dir.File("other.x"));
    EXPECT_EQ(transcript.log, "");
}

}  // namespace
}  // namespace quillon::script
