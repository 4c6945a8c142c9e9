// The table of document kinds names tables and columns that exist.
#include "core/document_kinds.h"

#include <gtest/gtest.h>

#include <string>

#include "testkit/testkit.h"

namespace quillon {
namespace {

TEST(DocumentKinds, NameTablesColumnsAndQueriesOfTheDataSet) {
    testkit::DataSetFixture set;
    set.Make();
    for (const DocumentKind* kind : kDocumentKinds) {
        for (const std::string_view column : {kind->prefixColumn, kind->idColumn, kind->authorityIdColumn,
                                              kind->nameColumn, kind->commentColumn})
            EXPECT_NO_THROW(set.db().CreateSnapshot("SELECT " + std::string(column) + " FROM " +
                                                    std::string(kind->table)))
                << kind->table << "." << column;
        EXPECT_NO_THROW(set.db().OpenQueryDef(kind->deletionQuery).Set(kind->deletionParameter, 1).Execute());
    }
}

TEST(DocumentKinds, AreFoundByPrefixAndByTable) {
    EXPECT_EQ(FindDocumentKind("EXP"), &kExperts);
    EXPECT_EQ(FindDocumentKind("exp"), nullptr);
    EXPECT_EQ(FindDocumentKind(""), nullptr);
    EXPECT_EQ(DocumentKindOfTable("qb_other_sources"), &kOtherSources);
    EXPECT_EQ(DocumentKindOfTable("qb_comments"), nullptr);
}

}  // namespace
}  // namespace quillon
