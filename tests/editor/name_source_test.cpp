// The long lists in slices: the same choices as the whole list has, read by a few rows of the DataSet.
#include "editor/name_source.h"

#include <fmt/format.h>

#include "rec_view_fixture.h"
#include "store/unit.h"

namespace quillon::editor {
namespace {

std::string TextOf(const Choices& choices) {
    std::string text;
    for (const Choice& choice : choices)
        text += (text.empty() ? "" : "|") + choice.text +
                (choice.itemData == 0 ? "" : fmt::format("={}", choice.itemData));
    return text;
}

class NameSources : public RecViewFixture {
protected:
    // Genera G080 to G119, each with two species; G100 is there twice.
    void MakeMany() {
        Make();
        store::Unit unit(data.engine);
        for (int genus = 80; genus < 120; ++genus) {
            const std::string name = fmt::format("'G{:03}'", genus);
            AddTaxon(1000 + genus, "1", 180, name + ", Null, Null", "'valid'");
            for (int species = 0; species < 2; ++species)
                AddTaxon(2000 + genus * 2 + species, std::to_string(1000 + genus), 220,
                         fmt::format("{}, 's{}', Null", name, species), "'valid'");
        }
        AddTaxon(1900, "1", 180, "'G100', Null, Null", "'valid'");
        unit.Commit();
    }
    static NamesOfRank Parents() {
        return {
            180, "SELECT unit_name1, qb_id FROM qb_taxonomic_units WHERE rank_id = 180 ORDER BY unit_name1",
            "PARAMETERS theId Long; SELECT unit_name1, qb_id FROM qb_taxonomic_units WHERE qb_id = [theId] "
            "AND rank_id = 180",
            1, false};
    }
    static NamesOfRank Genera() {
        return {180, "SELECT DISTINCT unit_name1 FROM qb_taxonomic_units WHERE rank_id = 180",
                "PARAMETERS theId Long; SELECT unit_name1 FROM qb_taxonomic_units WHERE qb_id = [theId] AND "
                "rank_id = 180",
                1, true};
    }
    // All choices, slice by slice, forwards and then backwards.
    static void ExpectSlicesGiveAll(ChoiceSource& source) {
        const Choices all = source.From({}, ChoiceSource::kAll);
        Choices forward = source.From({}, 7);
        for (Choices more = source.After(forward.back(), 7); !more.empty();
             more = source.After(forward.back(), 7))
            forward.insert(forward.end(), more.begin(), more.end());
        EXPECT_EQ(TextOf(forward), TextOf(all));
        Choices backward = {all.back()};
        for (Choices more = source.Before(backward.front(), 7); !more.empty();
             more = source.Before(backward.front(), 7))
            backward.insert(backward.begin(), more.begin(), more.end());
        EXPECT_EQ(TextOf(backward), TextOf(all));
    }
};

TEST_F(NameSources, AuthorsComeInTheirOrderAndOnce) {
    Make();
    for (const char* author : {"'Abel'", "'gray, 1846'", "'(Gray, 1846)'", "'BROWN'", "'Zed'"})
        Execute(fmt::format("INSERT INTO qb_taxon_authors_lookup (taxon_author) VALUES ({})", author));
    AuthorSource authors(data.state, data.prompter);
    EXPECT_EQ(TextOf(authors.From({}, 10)), "(Gray, 1846)|Abel|Brown|Gray, 1846|Zed");
    EXPECT_EQ(TextOf(authors.From("br", 1)), "Brown");
    EXPECT_EQ(TextOf(authors.From("Carr", 2)), "Gray, 1846|Zed");
    EXPECT_EQ(TextOf(authors.From("\"", 1)), "(Gray, 1846)");
    EXPECT_EQ(TextOf(authors.Before({"Zed", 0}, 2)), "Brown|Gray, 1846");
    ExpectSlicesGiveAll(authors);
}

TEST_F(NameSources, ASliceOfAuthorsReadsAFewRows) {
    Make();
    store::Unit unit(data.engine);
    for (int i = 200; i < 300; ++i)
        Execute(fmt::format("INSERT INTO qb_taxon_authors_lookup (taxon_author) VALUES ('A{:03}')", i));
    unit.Commit();
    AuthorSource authors(data.state, data.prompter);
    EXPECT_EQ(TextOf(authors.From("A25", 3)), "A250|A251|A252");
    EXPECT_EQ(authors.RowsRead(), 4u);
}

TEST_F(NameSources, LongListsReadAsFarAsTheSliceGoes) {
    MakeMany();
    NameSource parents(data.state, data.prompter, Parents(), 10);
    EXPECT_EQ(TextOf(parents.From("G10", 4)), "G100=1100|G100=1900|G101=1101|G102=1102");
    EXPECT_LE(parents.RowsRead(), 11u + 4 * 3) << "the count of the rank, then the names of the slice";
    EXPECT_EQ(TextOf(parents.From("G0995", 1)), "G100=1100");
    EXPECT_EQ(TextOf(parents.From("X G110", 1)), "G110=1110") << "a hybrid is found by its name";
    ExpectSlicesGiveAll(parents);
}

TEST_F(NameSources, GeneraAreDistinct) {
    MakeMany();
    NameSource genera(data.state, data.prompter, Genera(), 10);
    EXPECT_EQ(TextOf(genera.From("G100", 2)), "G100|G101");
    ExpectSlicesGiveAll(genera);
}

TEST_F(NameSources, ShortListsAreReadOnceUntilSomethingIsWritten) {
    MakeMany();
    NameSource parents(data.state, data.prompter, Parents());
    ExpectSlicesGiveAll(parents);
    const std::size_t read = parents.RowsRead();
    EXPECT_EQ(TextOf(parents.From("G11", 1)), "G110=1110");
    EXPECT_EQ(parents.RowsRead(), read);
    AddTaxon(1901, "1", 180, "'G110a', Null, Null", "'valid'");
    EXPECT_EQ(TextOf(parents.From("G110", 2)), "G110=1110|G110a=1901");
}

TEST_F(NameSources, OneTaxonMayBeLeftOut) {
    MakeMany();
    NameSource parents(data.state, data.prompter, Parents(), 10);
    parents.LeaveOut([] { return 1100; });
    EXPECT_EQ(TextOf(parents.From("G100", 3)), "G100=1900|G101=1101");
}

TEST_F(NameSources, AFailureIsReportedAndTheSliceIsEmpty) {
    Make();
    data.db().DeleteTable("qb_taxon_authors_lookup");
    AuthorSource authors(data.state, data.prompter);
    EXPECT_TRUE(authors.From({}, 5).empty());
    EXPECT_EQ(data.prompter.messages.size(), 1u);
}

TEST_F(NameSources, TheListsOfARecordAreNotReadBeforeTheyAreAskedFor) {
    Make();
    Select(3);
    for (const ComboControl* list :
         {&tab.cboAuth, &tab.cboAuth2, &tab.cboName1, &tab.cboParentName, &form.synonyms.cboSRName}) {
        EXPECT_TRUE(list->ChoicesPending()) << list->Name();
        EXPECT_NE(list->Source(), nullptr) << list->Name();
    }
    EXPECT_EQ(TextOf(tab.cboParentName.Source()->From("Ce", 1)), "Cetus=6");
    EXPECT_TRUE(tab.cboParentName.UserTake({"Cetus", 6}));
    EXPECT_EQ(tab.ChosenParent(), 6);
    EXPECT_TRUE(data.state.RecordDirty);
    EXPECT_TRUE(tab.cboParentName.ChoicesPending());
}

}  // namespace
}  // namespace quillon::editor
