// A DataSet that holds nothing but the kingdom's root (1, tsn 100), and the exports of it; a test adds the
// rows that it is about and compares the whole file.
#pragma once

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "export/export_job.h"
#include "export/tagged_export.h"
#include "selection/record_filter.h"
#include "testkit/testkit.h"

namespace quillon::exporting {

using testkit::Lines;

// The turns of a tagged export before those of its rows, without authors: 16 tables are counted, each taxon
// is looked at, and the parents' tsn are filled in.
constexpr int TurnsBeforeRows(int taxa) {
    return 16 + taxa + 1;
}

inline constexpr std::string_view kRootLine = "[TU]1|100||Animalia||||||||valid|||||||100|1||||5|10|No|";

// The [TU] line of a taxon that AddTaxon made.
inline std::string TaxonLine(int qb_id, std::string_view name, std::string_view parent_tsn,
                             int parent_qb_id) {
    return fmt::format("[TU]{}|{}||{}||||||||valid|||||||{}|{}||||5|180|No|", qb_id, 100 + qb_id - 1, name,
                       parent_tsn, parent_qb_id);
}

class ExportTest : public ::testing::Test {
protected:
    void SetUp() override {
        set.Make("Animalia");
        Run("DELETE * FROM qb_taxonomic_units");
        Run("INSERT INTO qb_taxonomic_units (qb_id, tsn, unit_name1, usage, kingdom_id, rank_id) "
            "VALUES (1, 100, 'Animalia', 'valid', 5, 10)");
        set.state.gExportPath = set.state.gDataSetPath;
        set.state.gExportFile = set.dir.File("out.qln");
    }

    void Run(std::string_view sql) { set.db().Execute(sql); }
    void Insert(std::string_view table, std::string_view columns,
                std::initializer_list<std::string_view> rows) {
        for (const std::string_view row : rows)
            Run(fmt::format("INSERT INTO {} ({}) VALUES ({})", table, columns, row));
    }
    // A genus with the tsn 99 above its qb_id.
    void AddTaxon(int qb_id, std::string_view name, int parent_qb_id = 1) {
        Run(
            fmt::format("INSERT INTO qb_taxonomic_units (qb_id, tsn, unit_name1, usage, parent_qb_id, "
                        "kingdom_id, rank_id) "
                        "VALUES ({}, {}, '{}', 'valid', {}, 5, 180)",
                        qb_id, 99 + qb_id, name, parent_qb_id));
    }
    void SetTaxon(int qb_id, std::string_view column, std::string_view literal) {
        Run(fmt::format("UPDATE qb_taxonomic_units SET {} = {} WHERE qb_id = {}", column, literal, qb_id));
    }
    void AddToJournal(std::initializer_list<int> ids) {
        for (const int id : ids) Run(fmt::format("INSERT INTO journal (qb_id) VALUES ({})", id));
    }
    void FilterBy(std::string_view column, std::string_view comparison, std::string_view value) {
        set.state.gRecordFilter = selection::ColumnClause(column, comparison, value);
    }
    void FilterByJournal() { set.state.gRecordFilter = "journal"; }

    // The tagged file as WriteTaggedFile leaves it, with the rejected lists as the test has set them.
    std::string Tagged() {
        set.state.gBatchCancel = false;
        set.state.gRecordsDone = 0;
        const std::string path = set.dir.File("tagged.qln");
        ExportFile file(path, Encoding::Cp1252);
        LineWriter line(file, {});
        const Gauge keep = [this](double done) { gauge.push_back(done); };
        Turns turns(set.state, pump);
        ExportTools tools{set.state, set.db(), set.prompter, turns, keep, line};
        taxaWritten = WriteTaggedFile(tools);
        file.Publish();
        return testkit::ReadFile(path);
    }
    // Its lines with one of the tags.
    std::string TaggedLines(std::string_view tag) {
        const std::string all = Tagged();
        std::string lines;
        for (std::size_t at = 0; at < all.size();) {
            const std::size_t end = all.find("\r\n", at) + 2;
            if (std::string_view(all).substr(at).starts_with(tag)) lines += all.substr(at, end - at);
            at = end;
        }
        return lines;
    }

    ExportJob Job() {
        return {set.state,
                set.engine,
                {set.prompter, pump, clock, [this](double done) { gauge.push_back(done); }, set.dir.path()}};
    }
    ExportResult RunJob(const ExportOrder& order = {}) { return Job().Run(order); }
    std::string OutFile() { return testkit::ReadFile(set.state.gExportFile); }
    bool HasOutFile() { return std::filesystem::exists(set.state.gExportFile); }
    // The names of the files in the folder, without the DataSet and its journal.
    std::vector<std::string> OtherFiles() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(set.dir.path()))
            names.push_back(entry.path().filename());
        std::erase_if(names, [](const std::string& name) { return name.starts_with("test.mdb"); });
        std::sort(names.begin(), names.end());
        return names;
    }

    testkit::DataSetFixture set;
    testkit::CancelingPump pump{set.state};
    testkit::FixedClock clock;
    std::vector<double> gauge;
    int taxaWritten = 0;
};

}  // namespace quillon::exporting
