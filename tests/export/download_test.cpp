// An export of an import of a download holds the lines of the download, but for the DataSet's own ids and the
// order.

#include <gtest/gtest.h>

#include <filesystem>

#include "core/codepage.h"
#include "core/text.h"
#include "export_fixture.h"
#include "import/tagged_import.h"
#include "random_download.h"

namespace quillon::exporting {
namespace {

std::vector<std::string> SplitLines(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = text.find("\r\n", at);
        lines.push_back(text.substr(at, end - at));
        at = end + 2;
    }
    return lines;
}

std::string JoinLines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\r\n";
    return text;
}

class Downloads : public ::testing::Test {
protected:
    // The lines of the export of the file's import into a new DataSet.
    std::vector<std::string> Through(const std::string& bytes) {
        testkit::DataSetFixture set;
        set.Make("Animalia");
        importing::MemorySource source(bytes);
        std::string findings;
        importing::TaggedImport tagged(set.state, set.engine, set.prompter, pump, [](double) {});
        tagged.ReadTaggedFile(
            source, [&](const importing::Finding& finding) { findings += finding.sentence + "\n"; });
        EXPECT_EQ(findings, "");
        set.state.gExportPath = set.state.gDataSetPath;
        set.state.gExportFile = set.dir.File("out.qln");
        ExportJob job(set.state, set.engine, {set.prompter, pump, clock, [](double) {}, set.dir.path()});
        EXPECT_EQ(job.Run({}).outcome, ExportOutcome::Done);
        EXPECT_TRUE(set.prompter.messages.empty());
        return SplitLines(Cp1252ToUtf8(testkit::ReadFile(set.state.gExportFile)));
    }

    testkit::NullPump pump;
    testkit::FixedClock clock;
};

class RandomDownloads : public Downloads, public ::testing::WithParamInterface<std::uint32_t> {};

// Twenty seeds from the one given on.
TEST_P(RandomDownloads, SurviveARoundTrip) {
    for (std::uint32_t seed = GetParam(); seed < GetParam() + 20; ++seed) {
        const std::vector<std::string> download = RandomDownload(seed);
        const auto bytes = Utf8ToCp1252(JoinLines(download));
        ASSERT_TRUE(bytes);
        EXPECT_EQ(WithoutOwnIds(Through(*bytes)), WithoutOwnIds(download)) << "seed " << seed;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomDownloads,
                         ::testing::Range(std::uint32_t{1}, std::uint32_t{201}, std::uint32_t{20}));

// An export gives back everything but the root's author.
TEST_F(Downloads, SampleSurvivesARoundTrip) {
    const std::string bytes = testkit::ReadFile(QUILLON_SOURCE_DIR "/samples/cetacea.qln");
    std::vector<std::string> expected = SplitLines(Cp1252ToUtf8(bytes));
    expected.at(0) = ReplaceText(expected.at(0), "|920001|", "||");
    EXPECT_EQ(WithoutOwnIds(Through(bytes)), WithoutOwnIds(expected));
}

// What came out goes in again, own ids and all, and comes out the same but for them.
TEST_F(Downloads, SecondRoundChangesNothing) {
    const std::vector<std::string> first =
        Through(testkit::ReadFile(QUILLON_SOURCE_DIR "/samples/cetacea.qln"));
    const auto bytes = Utf8ToCp1252(JoinLines(first));
    ASSERT_TRUE(bytes);
    EXPECT_EQ(WithoutOwnIds(Through(*bytes)), WithoutOwnIds(first));
}

}  // namespace
}  // namespace quillon::exporting
