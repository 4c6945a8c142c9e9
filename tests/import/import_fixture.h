// A new DataSet, and tagged lines imported into it from memory; the findings are kept for the test to
// compare.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "import/tagged_import.h"
#include "testkit/testkit.h"

namespace quillon::importing {

inline std::ostream& operator<<(std::ostream& out, const Finding& finding) {
    return out << '"' << finding.sentence << "\" for \"" << finding.line << '"';
}

// One [TU] line; what a test does not set stands as in a plain species of Animalia.
struct TaxonLine {
    std::string qb_id = {}, tsn = {}, unit_name1 = "Alpha", unnamed_taxon_ind = {}, usage = "valid",
                reason = {};
    std::string parent_tsn = {}, parent_qb_id = {};
    std::string taxon_author_id = {}, qb_taxon_author_id = {}, hybrid_author_id = {};
    std::string rank_id = "220";

    operator std::string() const {  // NOLINT(google-explicit-constructor)
        return "[TU]" + qb_id + "|" + tsn + "||" + unit_name1 + "|||||||" + unnamed_taxon_ind + "|" + usage +
               "|" + reason + "||||||" + parent_tsn + "|" + parent_qb_id + "|" + taxon_author_id + "|" +
               qb_taxon_author_id + "|" + hybrid_author_id + "|5|" + rank_id + "|No|";
    }
};

class ImportTest : public ::testing::Test {
protected:
    explicit ImportTest(std::string kingdom = "Animalia") : kingdom_(std::move(kingdom)) {}
    void SetUp() override { set.Make(kingdom_); }

    // Each line is closed by CR LF.
    void Import(std::initializer_list<std::string> lines) {
        std::string text;
        for (const std::string& line : lines) text += line + "\r\n";
        ImportText(text);
    }
    void ImportText(std::string_view text) {
        MemorySource source(text);
        ImportFrom(source);
    }
    void ImportFrom(ByteSource& source) {
        findings.clear();
        gauge.clear();
        const FindingSink keep = [this](const Finding& finding) { findings.push_back(finding); };
        TaggedImport tagged(set.state, set.engine, set.prompter, pump,
                            [this](double done) { gauge.push_back(done); });
        tagged.ReadTaggedFile(source, keep);
    }
    std::string Dump(std::string_view sql) { return set.Dump(sql); }

    testkit::DataSetFixture set;
    testkit::NullPump pump;
    std::vector<Finding> findings;
    std::vector<double> gauge;

private:
    std::string kingdom_;
};

using Findings = std::vector<Finding>;

}  // namespace quillon::importing
