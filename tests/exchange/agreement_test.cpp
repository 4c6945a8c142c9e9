// The reader and the writer of the tagged format agree: what one writes by the description, the other cuts
// into the same fields and stores without a finding.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "exchange/field_cutter.h"
#include "exchange/tagged_format.h"
#include "export/line_writer.h"
#include "import/tagged_import.h"
#include "store/schema/table_def.h"
#include "testkit/testkit.h"

namespace quillon::exchange {
namespace {

struct Sample {
    std::string stored, written;
};

// A value of each form. Ids are 1, so that a record of taxon 1 finds it.
Sample SampleOf(const FieldLayout& field) {
    if (field.column.ends_with("prefix")) return {"PUB", "PUB"};
    switch (field.form) {
        case FieldForm::Number:
            return {"1", "1"};
        case FieldForm::Text:
            return {"a", "a"};
        case FieldForm::YesNo:
            return {"1", "Yes"};
        case FieldForm::Date:
            return {"31/12/1999", "12/31/1999"};
        case FieldForm::Stamp:
            return {"31121999235958", "1999-12-31 23:59:58"};
    }
    return {};
}

void WriteField(exporting::LineWriter& line, const FieldLayout& field) {
    const std::string stored = SampleOf(field).stored;
    switch (field.form) {
        case FieldForm::Number:
            return line.Number(std::stoll(stored));
        case FieldForm::Text:
            return line.Text(stored);
        case FieldForm::YesNo:
            return line.YesNo(stored == "1");
        case FieldForm::Date:
            return line.Date(stored);
        case FieldForm::Stamp:
            return line.Stamp(stored);
    }
}

// The line that the writer makes of one value a field.
std::string WrittenLine(const RecordLayout& record) {
    const testkit::TempDir dir;
    exporting::ExportFile file(dir.File("line"), exporting::Encoding::Cp1252);
    exporting::LineWriter line(file, {});
    line.Begin(record);
    for (const FieldLayout& field : record.fields) WriteField(line, field);
    line.End();
    file.Publish();
    return testkit::ReadFile(dir.File("line"));
}

std::vector<std::string> WrittenFields(const RecordLayout& record) {
    std::vector<std::string> fields;
    for (const FieldLayout& field : record.fields) fields.push_back(SampleOf(field).written);
    return fields;
}

TEST(TaggedFormat, WrittenLinesAreCutIntoTheirFields) {
    for (const RecordLayout* record : AllRecords()) {
        std::string line = WrittenLine(*record);
        ASSERT_TRUE(line.ends_with("\r\n"));
        line.resize(line.size() - 2);
        ASSERT_EQ(TagOfLine(line), record->tag);
        FieldCutter cutter(line, record->tag.size());
        std::vector<std::string> fields;
        while (cutter.NextField()) fields.emplace_back(cutter.Field());
        EXPECT_EQ(fields, WrittenFields(*record)) << line;
        EXPECT_TRUE(cutter.AtEnd()) << line;
    }
}

TEST(TaggedFormat, EveryTagIsKnownOnce) {
    std::set<std::string_view> tags;
    for (const RecordLayout* record : AllRecords()) {
        EXPECT_TRUE(tags.insert(record->tag).second) << record->tag;
        EXPECT_EQ(FindRecord(record->tag), record);
        if (record->kind != RecordKind::Deletion) continue;
        EXPECT_EQ(&DeletionRecord(record->table), record);
    }
    EXPECT_EQ(tags.size(), 30U);
    EXPECT_EQ(FindRecord("[XX]"), nullptr);
    EXPECT_EQ(FindRecord(""), nullptr);
}

TEST(TaggedFormat, ColumnsAreThoseOfTheTables) {
    testkit::DataSetFixture set;
    set.Make();
    for (const RecordLayout* record : AllRecords()) {
        if (record->kind == RecordKind::Deletion || record->kind == RecordKind::NotStored) continue;
        for (const std::string_view column : record->Columns()) {
            // The authority's id of a taxon's author comes from the table of authors.
            if (record->kind == RecordKind::Taxon && column == "taxon_author_id") continue;
            EXPECT_NO_THROW(set.db().CreateSnapshot("SELECT " + std::string(column) + " FROM " +
                                                    std::string(record->table)))
                << record->tag << column;
        }
    }
}

// A row of the tables in docs/formats.md.
std::string PageRow(const RecordLayout& record) {
    std::string fields;
    for (const std::string_view column : record.Columns())
        fields += (fields.empty() ? "`" : ", `") + std::string(column) + "`";
    return "| " + std::string(record.tag) + " | `" + std::string(record.table) + "` | " + fields + " |\n";
}

TEST(TaggedFormat, ThePageOfTheFormatsHasEveryRecord) {
    const std::string page = testkit::ReadFile(QUILLON_SOURCE_DIR "/docs/formats.md");
    for (const RecordLayout* record : AllRecords()) {
        if (record->kind == RecordKind::NotStored) continue;
        EXPECT_NE(page.find(PageRow(*record)), std::string::npos) << PageRow(*record);
    }
}

// The lines of [RF] name no vernacular, since that would make them links of it, and each document has a link.
TEST(TaggedFormat, TheImportStoresEveryRecordOfTheDescription) {
    testkit::DataSetFixture set;
    set.Make();
    std::string text;
    for (const std::string prefix : {"PUB", "EXP", "SRC"})
        text += "[RF]1|" + prefix + "|1|1|" + prefix + "|1|Yes|Yes|1||\r\n";
    for (const RecordLayout* record : AllRecords())
        if (record->kind != RecordKind::Reference) text += WrittenLine(*record);
    importing::MemorySource source(text);
    testkit::NullPump pump;
    std::vector<std::string> findings;
    importing::TaggedImport tagged(set.state, set.engine, set.prompter, pump, [](double) {});
    tagged.ReadTaggedFile(source, [&](const importing::Finding& finding) {
        findings.push_back(finding.sentence + " " + finding.line);
    });
    EXPECT_EQ(findings, std::vector<std::string>{});
    EXPECT_EQ(set.prompter.messages, std::vector<std::string>{});
    for (const RecordLayout* record : AllRecords()) {
        if (record->table.empty() || record->kind == RecordKind::Deletion) continue;
        EXPECT_NE(set.Dump("SELECT Count(*) FROM " + std::string(record->table)), "0\n") << record->tag;
    }
    EXPECT_EQ(set.Dump("SELECT Count(*) FROM db_tombstone"), "12\n");
}

}  // namespace
}  // namespace quillon::exchange
