// The long lists of the record editor in slices: the authors, and the names of one rank. They follow an index
// of the DataSet, so that a slice costs the same among a million names as among a thousand.
//
// TaxonLists and SynonymTab give them to their combo boxes. They write nothing. A failure is reported, and
// the slice is empty.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "core/application_state.h"
#include "core/choice_source.h"
#include "core/outside.h"
#include "navigation/name_walk.h"

namespace quillon::editor {

// "SELECT DISTINCT taxon_author" in its order; texts that differ only in case are one.
class AuthorSource : public ChoiceSource {
public:
    AuthorSource(ApplicationState& state, Prompter& prompter) : state_(state), prompter_(prompter) {}

    Choices From(std::string_view text, std::size_t count) override;
    Choices After(const Choice& choice, std::size_t count) override;
    Choices Before(const Choice& choice, std::size_t count) override;

    // Rows read from the DataSet so far.
    std::size_t RowsRead() const { return rowsRead_; }

private:
    Choices Read(std::string_view where, std::string_view text, bool descending, std::size_t count);

    ApplicationState& state_;
    Prompter& prompter_;
    std::size_t rowsRead_ = 0;
};

// What a list of names offers. A statement gives the text and, as its second column, the qb_id.
struct NamesOfRank {
    int rank_id = 0;
    std::string all;  // the whole list
    std::string one;  // the row of the taxon [theId], or none when the list does not have it
    // How many units the text begins with; 1 for genera, whose texts are distinct and have no item data.
    std::size_t units = 1;
    bool isDistinct = false;
    std::size_t textColumn = 0;
    bool operator==(const NamesOfRank&) const = default;
};

class NameSource : public ChoiceSource {
public:
    // A list of a rank with at most `few` names is read as a whole, once until something is written.
    NameSource(ApplicationState& state, Prompter& prompter, NamesOfRank names, std::size_t few = kFew);

    const NamesOfRank& Names() const { return names_; }
    // Leaves one taxon out, asked for at each slice; 0 for none.
    void LeaveOut(std::function<int()> qb_id) { leftOut_ = std::move(qb_id); }

    Choices From(std::string_view text, std::size_t count) override;
    Choices After(const Choice& choice, std::size_t count) override;
    Choices Before(const Choice& choice, std::size_t count) override;

    // Rows read from the DataSet so far.
    std::size_t RowsRead() const { return rowsRead_; }

private:
    static constexpr std::size_t kFew = 5'000;
    using Direction = navigation::NameWalk::Direction;
    using Units = navigation::NameWalk::Units;

    Choices Reported(const std::function<Choices()>& read);
    Choices ReadAll();
    // The whole list when it is short; nullptr otherwise.
    const Choices* Few();
    bool IsFew();
    Choices WalkFrom(std::string_view text, std::size_t count);
    Choices WalkBeside(const Choice& choice, Direction direction, std::size_t count);
    Choices Walk(Direction direction, const Units* from, const Choice* beside, std::size_t count);
    Units UnitsIn(std::string_view text) const;

    ApplicationState& state_;
    Prompter& prompter_;
    NamesOfRank names_;
    std::size_t few_;
    std::function<int()> leftOut_;
    std::weak_ptr<store::Database> database_;  // of shortList_
    std::int64_t writeCount_ = 0;
    std::optional<Choices> shortList_;
    bool isDecided_ = false;
    std::size_t rowsRead_ = 0;
};

}  // namespace quillon::editor
