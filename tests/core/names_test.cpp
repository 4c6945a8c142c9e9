#include "core/names.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

NameFields Genus(const Value& mark, const Value& name) {
    NameFields fields;
    fields.unit_ind1 = mark;
    fields.unit_name1 = name;
    return fields;
}

NameFields Species() {
    NameFields fields = Genus({}, "Abies");
    fields.unit_name2 = "alba";
    return fields;
}

NameFields Quadrinomial() {
    NameFields fields = Species();
    fields.unit_ind3 = "ssp.";
    fields.unit_name3 = "nebro";
    fields.unit_ind4 = "var.";
    fields.unit_name4 = "minor";
    return fields;
}

TEST(CompressSpacesAndTrim, MakesOneBlankOfEachRun) {
    EXPECT_EQ(CompressSpacesAndTrim("Abies \t  alba"), "Abies alba");
    EXPECT_EQ(CompressSpacesAndTrim("\t Abies  alba \t"), "Abies alba");
    EXPECT_EQ(CompressSpacesAndTrim(""), "");
    EXPECT_EQ(CompressSpacesAndTrim("   "), "");
    EXPECT_EQ(CompressSpacesAndTrim("\t"), "");
    EXPECT_EQ(CompressSpacesAndTrim("a\nb"), "a\nb");
}

TEST(BuildSciName, GenusHasNoTrailingBlank) {
    EXPECT_EQ(BuildSciName(Genus({}, "Abies")), "Abies");
    EXPECT_EQ(BuildSciName(Genus("X", "Abies")), "X Abies");
}

TEST(BuildSciName, JoinsAllUnitsWithTheirMarks) {
    EXPECT_EQ(BuildSciName(Quadrinomial()), "Abies alba ssp. nebro var. minor");
    NameFields hybrid = Species();
    hybrid.unit_ind2 = "X";
    EXPECT_EQ(BuildSciName(hybrid), "Abies X alba");
}

TEST(BuildSciName, StopsAtAMissingSecondUnit) {
    NameFields fields = Genus({}, "Abies");
    fields.unit_name3 = "nebro";
    EXPECT_EQ(BuildSciName(fields), "Abies");
}

TEST(BuildSciName, StopsAtAMissingThirdUnit) {
    NameFields fields = Species();
    fields.unit_name4 = "minor";
    EXPECT_EQ(BuildSciName(fields), "Abies alba");
}

TEST(BuildSciName, AddsNothingForAMissingFourthUnit) {
    NameFields fields = Quadrinomial();
    fields.unit_ind4 = nullptr;
    fields.unit_name4 = nullptr;
    EXPECT_EQ(BuildSciName(fields), "Abies alba ssp. nebro");
}

TEST(BuildSciName, AMarkWithoutANameKeepsItsBlanks) {
    NameFields fields = Genus({}, "Abies");
    fields.unit_ind2 = "X";
    EXPECT_EQ(BuildSciName(fields), "Abies X ");
    fields.unit_name3 = "nebro";
    EXPECT_EQ(BuildSciName(fields), "Abies X  nebro");
}

TEST(BuildSciName, AnEmptyMarkIsNotNull) {
    NameFields fields = Species();
    fields.unit_ind1 = "";
    fields.unit_ind2 = "";
    EXPECT_EQ(BuildSciName(fields), " Abies  alba");
}

TEST(BuildSciName, BlanksInsideAFieldSurvive) {
    NameFields fields = Genus({}, " Abies ");
    fields.unit_name2 = "al  ba";
    EXPECT_EQ(BuildSciName(fields), " Abies  al  ba");
}

TEST(BuildSciName, AllNullGivesAnEmptyName) {
    EXPECT_EQ(BuildSciName({}), "");
}

TEST(BuildSciName, ShowsASubgenusWithItsParentheses) {
    NameFields fields = Genus({}, "Bombus");
    fields.unit_name2 = "(Psithyrus)";
    EXPECT_EQ(BuildSciName(fields), "Bombus (Psithyrus)");
}

TEST(ConcatSName, TrimsAndCompresses) {
    NameFields fields = Genus("  ", " Abies  ");
    fields.unit_ind2 = " X";
    fields.unit_name2 = "al\t ba ";
    fields.unit_name3 = " nebro ";
    EXPECT_EQ(ConcatSName(fields), "Abies X al ba nebro");
    EXPECT_EQ(ConcatSName({}), "");
}

TEST(ConcatSName, StopsWhereThePlainCompositionDoes) {
    NameFields fields = Genus({}, "Abies");
    fields.unit_name3 = "nebro";
    EXPECT_EQ(ConcatSName(fields), "Abies");
}

TEST(CalcPlainNodeName, SpeciesHasTwoBlanksWhereMarksAreMissing) {
    EXPECT_EQ(CalcPlainNodeName(Species(), "Mill."), "Abies  alba  Mill.");
    EXPECT_EQ(CalcPlainNodeName(Genus({}, "Abies"), " Mill. "), "Abies  Mill.");
    EXPECT_EQ(CalcPlainNodeName(Genus("X", "Abies"), "Mill."), "X Abies  Mill.");
    EXPECT_EQ(CalcPlainNodeName(Quadrinomial(), "L."), "Abies  alba ssp. nebro var. minor  L.");
}

TEST(CalcPlainNodeName, WithoutAnAuthorNothingTrails) {
    EXPECT_EQ(CalcPlainNodeName(Species(), {}), "Abies  alba");
    EXPECT_EQ(CalcPlainNodeName(Species(), "  "), "Abies  alba");
}

TEST(CalcPlainNodeName, AnEmptyUnitInTheMiddleLeavesFourBlanks) {
    NameFields fields = Genus({}, "Abies");
    fields.unit_name3 = "nebro";
    EXPECT_EQ(CalcPlainNodeName(fields, "L."), "Abies    nebro  L.");
}

TEST(CalcPlainNodeName, NoRowGivesASingleBlank) {
    EXPECT_EQ(CalcPlainNodeNameOfNoRow(), " ");
}

TEST(CalcPlainNodeName, ARowOfNullsGivesAnEmptyLine) {
    EXPECT_EQ(CalcPlainNodeName({}, {}), "");
    EXPECT_EQ(CalcPlainNodeName({}, "L."), "L.");
}

TEST(CalcPlainNodeName, ShowsASubgenusWithItsParentheses) {
    NameFields fields = Genus({}, "Bombus");
    fields.unit_name2 = "(Psithyrus)";
    EXPECT_EQ(CalcPlainNodeName(fields, {}), "Bombus  (Psithyrus)");
}

TEST(CurrentTaxonName, TakesTheRecordWhenItHasAName) {
    EditedName name;
    name.unit_name1 = "Abies";
    name.unit_name2 = "alba";
    name.cboName1 = "Picea";
    EXPECT_EQ(CurrentTaxonName(name), "Abies  alba");
    name.unit_ind1 = "X";
    name.unit_ind3 = "var.";
    name.unit_name3 = "minor";
    EXPECT_EQ(CurrentTaxonName(name), "X Abies  alba var. minor");
}

TEST(CurrentTaxonName, AFourthUnitAloneIsNoRecord) {
    EditedName name;
    name.unit_name4 = "minor";
    name.txtName1 = "Picea";
    EXPECT_EQ(CurrentTaxonName(name), "Picea");
}

TEST(CurrentTaxonName, TakesTheControlsOtherwise) {
    EditedName name;
    name.cboName1 = " Abies ";
    name.txtName1 = "Picea";
    EXPECT_EQ(CurrentTaxonName(name), "Abies");
    name.cboName1 = "";
    EXPECT_EQ(CurrentTaxonName(name), "Picea");
    name.txtName2 = " alba ";
    name.txtName3 = "minor";
    EXPECT_EQ(CurrentTaxonName(name), "Picea alba minor");
    name.cboName2 = "abies";
    EXPECT_EQ(CurrentTaxonName(name), "Picea abies minor");
}

TEST(CurrentTaxonName, WithoutATypedSecondNameOnlyTheFirstCounts) {
    EditedName name;
    name.txtName1 = "Abies";
    name.cboName2 = "alba";
    name.txtName3 = "minor";
    EXPECT_EQ(CurrentTaxonName(name), "Abies");
}

TEST(CurrentTaxonName, IsEmptyForAnEmptyForm) {
    EXPECT_EQ(CurrentTaxonName({}), "");
}

}  // namespace
}  // namespace quillon
