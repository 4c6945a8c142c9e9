// One taxon as the explorer shows it: its identity, its display text, how many items are below it, and how to
// fetch them. The explorer keeps one for each node of the tree; it never reads the store itself.
//
// The DataSet is held only during a call. The class reports no errors: a failed read leaves the object
// unchanged or returns an empty list.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/application_state.h"
#include "store/engine.h"

namespace quillon::navigation {

// Where items are read from: the open DataSet, or another file by its path.
struct BioListSource {
    ApplicationState& state;
    store::Engine& engine;
};

class cBioList {
public:
    using Collection = std::vector<std::shared_ptr<cBioList>>;
    explicit cBioList(const BioListSource& source) : source_(&source) {}

    // The path of the DataSet. Setting it fills the object with the root: the first valid or accepted taxon
    // of the lowest rank_id that the DataSet has.
    const std::string& dbname() const;
    void SetDbname(const std::string& path);
    // Setting it computes both counts.
    int qb_id() const { return qb_id_; }
    void SetQbId(int id);

    // Children and synonyms together. The number of descendants is the same; no subtree is read.
    std::int64_t NumChildren() const { return numChildren_; }
    void SetNumChildren(std::int64_t count) { numChildren_ = count; }
    std::int64_t NumDescendants() const { return numDescendants_; }

    int rank() const { return rank_; }
    void SetRank(int rank_id) { rank_ = rank_id; }
    const std::string& Sciname() const { return sciname_; }
    void SetSciname(std::string_view name) { sciname_ = name; }
    // Empty when Null.
    const std::string& usage() const { return usage_; }
    void SetUsage(std::string_view usage) { usage_ = usage; }
    // The item is in the tree as a synonym of its parent node.
    bool IsSyn() const { return isSyn_; }
    void SetIsSyn(bool isSyn) { isSyn_ = isSyn; }
    // For a synonym, the qb_id of the accepted taxon above it; otherwise 0.
    int accepted() const { return accepted_; }
    void SetAccepted(int id) { accepted_ = id; }
    // False for a taxon that cannot be reached in the tree.
    bool IsInTree() const { return isInTree_; }
    void SetIsInTree(bool isInTree) { isInTree_ = isInTree; }
    // 0 when Null.
    int tsn() const { return tsn_; }
    void SetTsn(int tsn) { tsn_ = tsn; }

    // The children by rank, sort sequence and name, then the synonyms by name. Updates NumChildren when there
    // is a child.
    Collection Children();
    // Fills this object from one taxon; leaves it unchanged when there is no such taxon.
    void GetOneRecord(int id);
    // A new item for a taxon of the DataSet at `path`; nullptr when there is no such taxon.
    static std::shared_ptr<cBioList> OneRecord(const BioListSource& source, const std::string& path, int id);
    // Taxa of the open DataSet without a parent and a synonym link, except the root.
    Collection Orphans();

    // The names of taxa as GetOneRecord returns them, without deleted taxa.
    static std::unordered_map<int, std::string> NodeNames(const BioListSource& source,
                                                          const std::string& dbname,
                                                          const std::vector<int>& ids);

    // The display text of a row of qb_taxonomic_units with TaxAuthor, with the mark "[Invalid] " or "[Not
    // Accepted] ".
    static std::string CalcNodeName(const store::Recordset& row);
    // True for "invalid" and "not accepted", in any case.
    static bool UsageIsInvalid(std::string_view usage);

private:
    friend class ChildReader;
    class Connection;

    static std::string CalcPlainNodeName(const store::Recordset& row);
    static std::int64_t CountChildren(store::Database& database, int id);
    std::int64_t CountDescendants() const { return numChildren_; }
    void TakeRow(const store::Recordset& row, std::string sciname);
    void TakeRoot(store::Database& database);
    std::shared_ptr<cBioList> NewItem(const store::Recordset& row, std::string sciname) const;

    const BioListSource* source_;
    std::shared_ptr<const std::string> dbname_;  // shared by all items of a tree
    int qb_id_ = 0;
    int rank_ = 0;
    int tsn_ = 0;
    int accepted_ = 0;
    bool isSyn_ = false;
    bool isInTree_ = true;
    std::int64_t numChildren_ = 0;
    std::int64_t numDescendants_ = 0;
    std::string usage_;
    std::string sciname_;
};

}  // namespace quillon::navigation
