// The main form over a small DataSet, with the explorer behind it and no window.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "editor/rec_view.h"
#include "navigation/explorer.h"
#include "testkit/outside.h"
#include "testkit/testkit.h"

namespace quillon::editor {

// Records the calls of the progress dialog.
class ProgressLog : public ProgressDialog {
public:
    std::string log;
    void NewTask(std::string_view caption) override { log += "task " + std::string(caption) + ";"; }
    void SetStatus(std::string_view status) override { log += "status " + std::string(status) + ";"; }
    void SetMin(int) override {}
    void SetMax(int) override {}
    void UpdateValue(int) override {}
    void Increment(int) override {}
    void EndTask() override { log += "end;"; }
};

using Messages = std::vector<std::string>;

class RecViewFixture : public testing::Test {
protected:
    RecViewFixture() {
        recView.Attach(explorer);
        recView.RebuildExplorer.Connect([this] {
            events += "rebuild;";
            explorer.Init();
            if (explorer.TreeV().TopCount() > 0) explorer.HiliteNode(explorer.TreeV().Top(0));
        });
        recView.DataSetReopened.Connect([this] { events += "reopened;"; });
        recView.ReselectLater.Connect([this](int id) { events += "reselect " + std::to_string(id) + ";"; });
    }

    // Animalia (1) > Orca Gray, 1846 (2) > Orca alpha (3) > Orca alpha minor (4); Gladiator (5) is an invalid
    // name of Orca; Cetus (6) is a second genus. The species is published under 7001.
    void Make() {
        data.Make("Animalia");
        Execute(
            "INSERT INTO qb_taxon_authors_lookup (qb_taxon_author_id, taxon_author) VALUES (1, 'Gray, "
            "1846')");
        Execute("INSERT INTO qb_taxon_authors_lookup (qb_taxon_author_id, taxon_author) VALUES (2, 'Brown')");
        AddTaxon(2, "1", 180, "'Orca', Null, Null", "'valid'");
        AddTaxon(3, "2", 220, "'Orca', 'alpha', Null", "'valid'");
        AddTaxon(4, "3", 230, "'Orca', 'alpha', 'minor'", "'valid'");
        AddTaxon(5, "Null", 180, "'Gladiator', Null, Null", "'invalid'");
        AddTaxon(6, "1", 180, "'Cetus', Null, Null", "'valid'");
        Execute("UPDATE qb_taxonomic_units SET qb_taxon_author_id = 1 WHERE qb_id = 2");
        Execute("UPDATE qb_taxonomic_units SET tsn = 7001 WHERE qb_id = 3");
        Execute("INSERT INTO qb_synonym_links (qb_id, qb_id_accepted) VALUES (5, 2)");
        Show();
    }
    void Show() {
        recView.ShowDataSet();
        events.clear();
        progress.log.clear();
    }
    void Execute(const std::string& sql) { data.db().Execute(sql); }
    // `names` are the first three units.
    void AddTaxon(int id, const std::string& parent, int rank, const std::string& names,
                  const std::string& usage) {
        Execute(
            "INSERT INTO qb_taxonomic_units (qb_id, parent_qb_id, rank_id, unit_name1, unit_name2, "
            "unit_name3, usage, kingdom_id) VALUES (" +
            std::to_string(id) + ", " + parent + ", " + std::to_string(rank) + ", " + names + ", " + usage +
            ", " + std::to_string(data.state.gKingdomId) + ")");
    }
    // A new record keeps all fields of the one before.
    void KeepAll() {
        for (auto preference : {&ApplicationState::gPrefSaveReferences, &ApplicationState::gPrefSaveAuthor,
                                &ApplicationState::gPrefSaveParent, &ApplicationState::gPrefSaveComments,
                                &ApplicationState::gPrefSaveOtherFields}) {
            data.state.*preference = "Yes";
        }
    }
    void Select(int id) { recView.SelectExplorerItem(id, true); }
    // The node of a taxon, with the way to it opened.
    navigation::TreeNode* Node(int id) { return explorer.ExpandContainingSubtree(id); }

    std::string Panels() const {
        return form.name.Caption() + "|" + form.taxa.Caption() + "|" + form.mode.Caption();
    }
    static std::string Texts(const ChoiceControl& list) {
        std::string texts;
        for (const auto& choice : list.Choices()) texts += (texts.empty() ? "" : "|") + choice.text;
        return texts;
    }
    // The toolbar keys whose commands are off.
    std::string Disabled() {
        std::string keys;
        for (const char* key : {"cut", "copy", "paste", "undo", "moveparent", "movefirst", "moveprev",
                                "movenext", "movelast", "addnew"}) {
            if (!form.OfKey(key)->Enabled()) keys += (keys.empty() ? "" : " ") + std::string(key);
        }
        return keys;
    }

    testkit::DataSetFixture data;
    ProgressLog progress;
    testkit::FixedClock clock;
    navigation::cExplorer explorer{data.state, data.engine, data.prompter};
    RecView recView{data.state, data.prompter, progress, data.lifecycle, clock};
    RecViewForm& form = recView.Controls();
    TaxonTab& tab = form.taxon;
    std::string events;
};

}  // namespace quillon::editor
