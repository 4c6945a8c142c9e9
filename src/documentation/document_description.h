// The differences between the three document tabs: the fields of each kind, with the grid column, store
// column and control of each field, and the names of the other controls.
//
// DocumentationTab is one class over these descriptions. A new field of a kind is one line here.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/controls.h"
#include "core/document_kinds.h"

namespace quillon::documentation {

struct DocumentField {
    enum class Kind { PickList, Text, Check };

    std::string_view heading;  // of its column in the grid
    int width;                 // of that column, in characters
    std::string_view column;   // in the store
    std::string_view control;
    Kind kind = Kind::Text;
    std::size_t maxLength = 0;  // in characters; 0 for any
    std::string_view caption = {};
    // The field belongs to the link between a name and the document, not to the document. Links to
    // vernaculars do not have it.
    bool ofLink = false;
    // Stays enabled in a row that belongs to a change track.
    bool alwaysEnabled = false;
};

// A field that a new row must fill, and the message without it.
struct RequiredField {
    std::size_t field;
    std::string_view message;
};

// How documents of a kind are stored, and found again by their content.
struct DocumentStoring {
    // A stored Null equals any text of a new row; otherwise it equals only an empty one.
    bool nullMatchesAll = false;
    // The fields whose columns have an index together: candidates are found through it.
    std::span<const std::size_t> indexed = {};
    // Texts are stored without the blanks at their ends.
    bool trims = false;
    // Each save writes the prefix and the authority's id too.
    bool writesIds = false;
    // An emptied field is emptied in the store; otherwise it keeps what is stored.
    bool clears = false;
    // Messages; an empty one is not shown. {0} and {1} are the first two fields, {2} the other document's id.
    std::string_view duplicate = {};
    // {0} is the qb_id of the taxon, {1} the name, {2} the language.
    std::string_view noVernacular = {};
    // {0} and {1} are the ids of the document before and after.
    std::string_view linkChanged = {};
};

struct DocumentDescription {
    const DocumentKind& kind;
    std::string_view grid;
    // Grid columns 1 and up, between the name and the ids. The list of the first field offers all values of
    // the DataSet.
    std::span<const DocumentField> fields;
    int nameWidth, associationWidth;
    // Headings of the columns after the fields.
    std::string_view qbIdHeading, idHeading, changeTrackHeading, associationHeading, origQbIdHeading;
    std::string_view associationList, vernacularPicker, vernacularLabel, vernacularCaption;
    std::string_view qbIdControl, idControl;
    std::string_view addCommand, modifyCommand, deleteCommand;
    // The stored query that finds the document for a value picked in the first field, and its parameter. When
    // it is empty, the fields of `narrowing` narrow one another instead, and a pick in one of them loads the
    // document if only one has that value.
    std::string_view pickQuery, pickParameter;
    // Indexes of fields, in the order of their terms in a statement.
    std::span<const std::size_t> narrowing;
    // In the order in which a new row is checked.
    std::span<const RequiredField> required;
    // The command that modifies stays enabled in a row that belongs to a change track.
    bool modifyAlwaysEnabled = false;
    // The change tracking form has the command too.
    bool modifiesTracked = false;
    DocumentStoring storing = {};

    // The field of the link; kNoField when the kind has none.
    std::size_t LinkField() const;
    static constexpr std::size_t kNoField = static_cast<std::size_t>(-1);

    // The columns of the grid: the name, the fields, then those of DocumentColumns.
    std::vector<GridControl::Column> GridColumns() const;
};

const DocumentDescription& Publications();
const DocumentDescription& Experts();
const DocumentDescription& OtherSources();

// Indexes of the columns that every kind has. The field with index i is in column i + 1.
struct DocumentColumns {
    explicit DocumentColumns(const DocumentDescription& description)
        : qbId(description.fields.size() + 1),
          id(qbId + 1),
          changeTrack(qbId + 2),
          association(qbId + 3),
          qbVernId(qbId + 4),
          origQbId(qbId + 5),
          count(qbId + 6) {}

    static constexpr std::size_t name = 0;
    static constexpr std::size_t OfField(std::size_t field) { return field + 1; }
    std::size_t qbId, id, changeTrack, association, qbVernId, origQbId, count;
};

}  // namespace quillon::documentation
