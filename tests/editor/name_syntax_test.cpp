// What the check of a name reports, and where it leaves the focus.
#include "editor/name_syntax.h"

#include "rec_view_fixture.h"

namespace quillon::editor {
namespace {

// What a rank shows, what is typed there, and the report: empty when the name passes.
struct Case {
    const char* rank;
    const char* names[4];
    const char* message;
    const char* focus;
};

constexpr const char* kNoName = "The Scientific Name is a required field!";
constexpr const char* kLowerGenus = "The first character of the genus name must be capitalized!";
constexpr const char* kParentheses = "The subgenus name must be surrounded by parentheses!";
constexpr const char* kLowerSubgenus = "The first character of the sugenus name must be capitalized!";

constexpr Case kCases[] = {
    {"Family", {"Delphinidae"}, "", ""},
    {"Family", {"delphinidae"}, "", ""},
    {"Family", {""}, kNoName, "txtName1"},
    {"Family", {"  "}, kNoName, "txtName1"},
    {"Genus", {" Orca "}, "", ""},
    {"Genus", {""}, kNoName, "txtName1"},
    {"Genus", {"orca"}, kLowerGenus, "txtName1"},
    {"Genus", {"\xC3\x97 Orca"}, "", ""},
    {"Genus", {"\xC3\x97 orca"}, kLowerGenus, "txtName1"},
    {"Genus", {"123"}, "", ""},
    {"Section", {"alba"}, "", ""},
    {"Subgenus", {"", "(Orcella)"}, kNoName, "cboName1"},
    {"Subgenus", {"orca", ""}, kLowerGenus, "cboName1"},
    {"Subgenus", {"Orca", " "}, "The Subgenus is a required field!", "txtName2"},
    {"Subgenus", {"Orca", "Orcella"}, kParentheses, "txtName2"},
    {"Subgenus", {"Orca", "(Orcella"}, kParentheses, "txtName2"},
    {"Subgenus", {"Orca", "Orcella)"}, kParentheses, "txtName2"},
    {"Subgenus", {"Orca", "(orcella)"}, kLowerSubgenus, "txtName2"},
    {"Subgenus", {"Orca", " (Orcella) "}, "", ""},
    {"Species", {"", "alpha"}, kNoName, "cboName1"},
    {"Species", {"Orca", ""}, "The Species is a required field!", "txtName2"},
    {"Species", {"Orca", "Alpha"}, "", ""},
    {"Subspecies", {"Orca", "", "minor"}, "The Species is a required field!", "cboName2"},
    {"Subspecies", {"Orca", "alpha", ""}, "The Subspecies is a required field!", "txtName3"},
    {"Subspecies", {"Orca", "alpha", "minor"}, "", ""},
};

class NameSyntax : public RecViewFixture {
protected:
    NameSyntax() {
        Make();
        for (Control* control : form.form.Controls())
            control->OnTakeFocus([this, control] { focus = control->Name(); });
    }
    void Enter(const Case& entered) {
        tab.cboRank.SetText(entered.rank);
        tab.Fields().SetFieldsForRank();
        const auto text = [&](int unit) { return entered.names[unit] == nullptr ? "" : entered.names[unit]; };
        (tab.cboName1.Visible() ? tab.cboName1.SetText(text(0)) : tab.txtName1.SetText(text(0)));
        (tab.cboName2.Visible() ? tab.cboName2.SetText(text(1)) : tab.txtName2.SetText(text(1)));
        tab.txtName3.SetText(text(2));
        tab.txtName4.SetText(text(3));
    }
    // Message, title and focus; empty when the name passes.
    std::string Check() {
        data.prompter.messages.clear();
        data.prompter.titles.clear();
        focus.clear();
        if (CheckNameSyntax(tab, data.prompter)) return "";
        return data.prompter.messages.at(0) + "|" + data.prompter.titles.at(0) + "|" + focus;
    }
    static std::string Report(const char* message, const char* field) {
        return *message == '\0' ? "" : message + std::string("|Input Error|") + field;
    }
    // The fields of a formula or a quadrinomial, whose third and fourth units are shown.
    void ShowFour(const char* label3, const char* label4) {
        tab.txtName3.SetVisible(true);
        tab.txtName4.SetVisible(true);
        tab.lblName3.SetCaption(label3);
        tab.lblName4.SetCaption(label4);
    }

    std::string focus;
};

TEST_F(NameSyntax, ReportsTheFirstFault) {
    for (const Case& each : kCases) {
        Enter(each);
        EXPECT_EQ(Check(), Report(each.message, each.focus))
            << each.rank << " " << each.names[0] << " " << (each.names[1] == nullptr ? "" : each.names[1]);
    }
}

TEST_F(NameSyntax, AFormulaHasASecondGenusAndSpecies) {
    Enter({"Species", {"Orca", "alpha", "", ""}, "", ""});
    ShowFour("Genus", "Species");
    EXPECT_EQ(Check(), Report("The Genus is a required field!", "txtName3"));
    tab.txtName3.SetText("cetus");
    EXPECT_EQ(Check(), Report("The first character of the Genus name must be capitalized!", "txtName3"));
    tab.txtName3.SetText("Cetus");
    EXPECT_EQ(Check(), Report("The Species is a required field!", "txtName4"));
    tab.txtName4.SetText("beta");
    EXPECT_EQ(Check(), "");
}

TEST_F(NameSyntax, AQuadrinomialNamesTheRankOfItsThirdUnit) {
    Enter({"Subspecies", {"Orca", "alpha", "", ""}, "", ""});
    ShowFour("Variety", "Variety");
    tab.cboName3Rank.SetVisible(true);
    tab.cboName3Rank.SetText("SUBSPECIES");
    EXPECT_EQ(Check(), Report("The SUBSPECIES is a required field!", "txtName3"));
    tab.txtName3.SetText("minor");
    EXPECT_EQ(Check(), Report("The Variety is a required field!", "txtName4"));
    tab.txtName4.SetText("nana");
    EXPECT_EQ(Check(), "");
}

TEST_F(NameSyntax, BringsUpItsTabBeforeTheMessage) {
    struct Watching : testkit::ScriptedPrompter {
        RecViewForm* form = nullptr;
        std::string tabs;
        void Message(std::string_view, std::string_view) override { tabs += form->TabStrip1.SelectedKey(); }
    } watching;
    watching.form = &form;
    for (const char* genus : {"orca", "Orca"}) {
        Enter({"Genus", {genus}, "", ""});
        form.TabStrip1.UserSelect(5);
        CheckNameSyntax(tab, watching);
        EXPECT_EQ(form.TabStrip1.SelectedKey(), "taxon") << genus;
    }
    EXPECT_EQ(watching.tabs, "taxon");
}

TEST_F(NameSyntax, LeavesTheFieldsAsTheyAre) {
    Enter({"Subgenus", {"Orca", " Orcella "}, "", ""});
    Check();
    EXPECT_EQ(tab.cboName1.Text() + "|" + tab.txtName2.Text(), "Orca| Orcella ");
    EXPECT_FALSE(data.state.RecordDirty);
}

}  // namespace
}  // namespace quillon::editor
