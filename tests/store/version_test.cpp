// The version of a DataSet: where it is read, what is valid, and how two versions compare.
#include "store/lifecycle/version.h"

#include <gtest/gtest.h>

#include "testkit/testkit.h"

namespace quillon::store {

using testkit::DataSetFixture;

TEST(DataSetVersion, ComparesByPartsForNewerOnesAndAsTextForOthers) {
    const auto compare = [](std::string_view version) { return CompareDataSetVersion(version, "4.0.6"); };
    EXPECT_EQ(compare("4.0.6"), VersionOrder::Same);
    EXPECT_EQ(compare("1.3"), VersionOrder::Same);
    EXPECT_EQ(compare("1.31"), VersionOrder::Same);
    EXPECT_EQ(compare("3.6.0"), VersionOrder::Older);
    EXPECT_EQ(compare("4.0.5"), VersionOrder::Older);
    for (const char* newer : {"4.0.7", "4.0.10", "4.1", "5.0", "10", "4.0.6.1", "99999999999999999999"})
        EXPECT_EQ(compare(newer), VersionOrder::Newer) << newer;
    for (const char* older : {"4", "4.0", "04.00.05", "3.99.99", "4.0.6.0", "4.0.06", "4.0.5.9"})
        EXPECT_EQ(compare(older), VersionOrder::Older) << older;
    EXPECT_EQ(compare("Gamma 2"), VersionOrder::Older);
    EXPECT_EQ(compare("3"), VersionOrder::Older);
    EXPECT_EQ(CompareDataSetVersion("3", "3.1"), VersionOrder::Same);
    EXPECT_EQ(CompareDataSetVersion("3.2", "3.1"), VersionOrder::Newer);
    EXPECT_EQ(CompareDataSetVersion("2", "3.1"), VersionOrder::Older);
}

TEST(DataSetVersion, IsValidWhenItBeginsWithADigitOrGamma) {
    DataSetFixture f;
    f.Make();
    std::string version;
    EXPECT_TRUE(IsDataSetVersionValid(f.db(), version));
    EXPECT_EQ(version, "4.0.6");
    const auto with = [&](std::string_view text) {
        f.db().Execute("DELETE * FROM db_control");
        f.db().Execute("INSERT INTO db_control (attribute, [value]) SELECT 'Version', '" + std::string(text) +
                       "'");
        return IsDataSetVersionValid(f.db(), version);
    };
    EXPECT_TRUE(with("Gamma 1"));
    EXPECT_FALSE(with("abc"));
    EXPECT_EQ(version, "abc");
    f.db().Execute("DELETE * FROM db_control");
    EXPECT_FALSE(IsDataSetVersionValid(f.db(), version));
    EXPECT_EQ(version, "");
    f.db().DeleteTable("db_control");
    EXPECT_FALSE(IsDataSetVersionValid(f.db(), version));
}

TEST(DataSetVersion, OfAFileIsReadWithoutOpeningTheDataSet) {
    DataSetFixture f;
    f.Make();
    const std::string path = f.state.gDataSetPath;
    f.lifecycle.CloseDataSet();
    std::string version;
    EXPECT_TRUE(IsFileDataSetVersionValid(f.engine, path, version));
    EXPECT_EQ(version, "4.0.6");
    EXPECT_FALSE(f.state.gDataSetOpen);
    EXPECT_FALSE(IsFileDataSetVersionValid(f.engine, f.dir.File("none.mdb"), version));
}

}  // namespace quillon::store
