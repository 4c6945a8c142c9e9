#include "documentation/document_save.h"

#include <fmt/format.h>

#include <optional>

#include "core/text.h"
#include "store/unit.h"

namespace quillon::documentation {

DocumentSave::DocumentSave(const records::RecordStore& records, const DocumentDescription& description,
                           const CurrentTaxon& taxon, int changeTrackId)
    : records_(records),
      description_(description),
      columns_(description),
      links_(records, description, taxon, changeTrackId) {}

int DocumentSave::QbIdOf(const GridControl::Row& cells) const {
    return static_cast<int>(Value(cells[columns_.qbId]).AsLong());
}

void DocumentSave::SetFields(store::Recordset& document, const GridControl::Row& cells, bool clears) const {
    for (std::size_t field = 0; field < description_.fields.size(); ++field) {
        if (description_.fields[field].ofLink) continue;
        const Value text = StoredText(description_, cells, field);
        if (clears || !text.IsNull()) document.Set(description_.fields[field].column, text);
    }
}

StoredDocument DocumentSave::Store(const GridControl::Row& cells) const {
    const DocumentKind& kind = description_.kind;
    store::Unit unit(records_.engine);
    const auto documents = records_.database.CreateDynaset(
        fmt::format("Select * from {} where {} = 0", kind.table, kind.idColumn));
    documents->AddNew();
    documents->Set(kind.prefixColumn, kind.prefix);
    documents->Set(kind.authorityIdColumn, 0);
    SetFields(*documents, cells, false);
    StoredDocument stored{static_cast<int>(documents->Get(kind.idColumn).AsLong()), 0};
    documents->Update();
    unit.Commit();
    return stored;
}

bool DocumentSave::InsertNew(GridControl::Row& cells) {
    const bool stored = records_.Reporting([&] {
        const auto found = FindDocument(records_.database, description_, cells);
        last_ = found ? *found : Store(cells);
    });
    if (!stored) return false;
    cells[columns_.qbId] = std::to_string(last_.qbId);
    cells[columns_.id] = last_.id.AsText();
    return links_.Add(cells);
}

// A row that a new record keeps from another one cites the same document, unless it was modified since.
bool DocumentSave::Insert(GridControl::Row& cells) {
    if (const int qbId = QbIdOf(cells); qbId != 0) {
        std::optional<StoredDocument> same;
        records_.Reporting([&] { same = FindSameDocument(records_.database, description_, cells, qbId); });
        if (same) {
            last_ = *same;
            cells[columns_.id] = last_.id.AsText();
            return links_.Add(cells);
        }
    }
    return InsertNew(cells);
}

// Reports a second document with the content of the row.
bool DocumentSave::HasDuplicate(const GridControl::Row& cells) const {
    std::optional<StoredDocument> other;
    records_.Reporting([&] { other = FindDocument(records_.database, description_, cells, QbIdOf(cells)); });
    if (!other) return false;
    records_.prompter.Message(fmt::format(fmt::runtime(description_.storing.duplicate),
                                          cells[DocumentColumns::OfField(0)],
                                          cells[DocumentColumns::OfField(1)], other->qbId));
    return true;
}

// False when the document is gone.
bool DocumentSave::Update(const GridControl::Row& cells) const {
    const DocumentKind& kind = description_.kind;
    bool present = true;
    records_.Reporting([&] {
        store::Unit unit(records_.engine);
        const auto document = records_.database.CreateDynaset(
            fmt::format("Select * from {} where {} = {}", kind.table, kind.idColumn, QbIdOf(cells)));
        present = !document->Eof();
        if (!present) return;
        document->Edit();
        if (description_.storing.writesIds) {
            const std::string_view id = Trim(cells[columns_.id]);
            if (!id.empty()) document->Set(kind.authorityIdColumn, Value(id).AsLong());
            document->Set(kind.prefixColumn, kind.prefix);
        }
        SetFields(*document, cells, description_.storing.clears);
        document->Update();
        unit.Commit();
    });
    return present;
}

// A row that was not loaded is new, even if a save has tried to store it before. A loaded one becomes new
// when its document has gone with the vernacular that it belonged to.
bool DocumentSave::Change(GridControl::Row& cells) {
    if (Value(cells[columns_.origQbId]).AsLong() != 0) {
        if (HasDuplicate(cells)) return true;
        if (Update(cells)) return links_.Follow(cells);
    }
    GridControl::Row stored = cells;
    if (Insert(stored)) {
        stored[columns_.changeTrack].assign(1, '0');
        cells = std::move(stored);
    }
    return true;
}

}  // namespace quillon::documentation
