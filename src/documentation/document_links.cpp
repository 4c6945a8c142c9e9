#include "documentation/document_links.h"

#include <fmt/format.h>

#include "core/text.h"
#include "documentation/association.h"
#include "records/links.h"
#include "records/tombstones.h"
#include "store/unit.h"

namespace quillon::documentation {

namespace {

constexpr std::string_view kReferences = "qb_reference_links";
constexpr std::string_view kVernReferences = "qb_vern_ref_links";
constexpr std::string_view kUnspecified = "unspecified";

// A vernacular as a grid shows it, split into name and language.
struct ShownVernacular {
    std::string_view name, language;
};
ShownVernacular Split(std::string_view shown) {
    const std::size_t bracket = shown.rfind('[');
    if (bracket == std::string_view::npos) return {shown, kUnspecified};
    std::string_view language = shown.substr(bracket + 1);
    if (!language.empty()) language.remove_suffix(1);
    return {shown.substr(0, bracket == 0 ? 0 : bracket - 1), language};
}

}  // namespace

DocumentLinks::DocumentLinks(const records::RecordStore& records, const DocumentDescription& description,
                             const CurrentTaxon& taxon, int changeTrackId)
    : records_(records),
      description_(description),
      taxon_(taxon),
      changeTrackId_(changeTrackId),
      columns_(description) {}

int DocumentLinks::Id(const GridControl::Row& cells, std::size_t column) const {
    return static_cast<int>(Value(cells[column]).AsLong());
}

// Whether the row has another document than when it was loaded.
bool DocumentLinks::IsMoved(const GridControl::Row& cells) const {
    return Id(cells, columns_.qbId) != Id(cells, columns_.origQbId);
}

bool DocumentLinks::IsOriginal(const GridControl::Row& cells) const {
    return cells[DocumentColumns::OfField(description_.LinkField())] == "Yes";
}

Value DocumentLinks::AuthorityId(const GridControl::Row& cells) const {
    const std::string_view text = Trim(cells[columns_.id]);
    return text.empty() ? Value() : Value(Value(text).AsLong());
}

std::string DocumentLinks::SelectLinks(std::string_view table, int docId) const {
    return fmt::format(
        "Select * from {} where qb_documentation_id_prefix = '{}' and qb_id = {} and qb_documentation_id = "
        "{}",
        table, description_.kind.prefix, taxon_.qb_id, docId);
}

void DocumentLinks::RemoveTombstone(std::string_view table_name, const GridControl::Row& cells,
                                    const std::optional<Value>& vern_id) const {
    const Value id = AuthorityId(cells);
    if (taxon_.tsn == 0 || id.AsLong() == 0) return;  // such a link left none
    records::RemoveTombstone(records_, table_name, description_.kind.prefix, id, taxon_.tsn, vern_id);
}

// Finds the vernacular by what the row shows, because it may be new or renamed. Of two with one name and
// language it is the one that the row was loaded with.
bool DocumentLinks::FindVernacular(const GridControl::Row& cells, std::optional<Vernacular>& found) const {
    std::string shown = cells[DocumentColumns::name];
    if (shown.find('[') == std::string::npos) shown += fmt::format(" [{}]", kUnspecified);
    found.reset();
    return records_.Reporting([&] {
        const auto rows = records_.database.CreateSnapshot(fmt::format(
            "SELECT qb_vern_id, vern_id, vernacular_name, language FROM qb_vernaculars WHERE qb_id = {} "
            "ORDER BY qb_vern_id;",
            taxon_.qb_id));
        for (; !rows->Eof(); rows->MoveNext()) {
            const std::string name = rows->Get("vernacular_name").AsText();
            if (fmt::format("{} [{}]", name, rows->Get("language").AsText()) != shown) continue;
            const auto qb_vern_id = static_cast<int>(rows->Get("qb_vern_id").AsLong());
            if (!found || qb_vern_id == Id(cells, columns_.qbVernId))
                found = Vernacular{qb_vern_id, name, rows->Get("vern_id")};
        }
    });
}

void DocumentLinks::ReportNoVernacular(const std::string& shown) const {
    const std::string_view message = description_.storing.noVernacular;
    if (message.empty()) return;
    const ShownVernacular vernacular = Split(shown);
    records_.prompter.Message(
        fmt::format(fmt::runtime(message), taxon_.qb_id, vernacular.name, vernacular.language));
}

bool DocumentLinks::Add(const GridControl::Row& cells) const {
    if (cells[columns_.association] != kVernacular) return AddReference(cells);
    std::optional<Vernacular> vernacular;
    if (!FindVernacular(cells, vernacular)) return false;
    if (vernacular) return AddVernReference(cells, *vernacular);
    ReportNoVernacular(cells[DocumentColumns::name]);
    return true;
}

bool DocumentLinks::AddReference(const GridControl::Row& cells) const {
    const bool hasOriginal = description_.LinkField() != DocumentDescription::kNoField;
    const bool added = records_.Reporting([&] {
        store::Unit unit(records_.engine);
        const auto link = records_.database.CreateDynaset(SelectLinks(kReferences, Id(cells, columns_.qbId)));
        if (link->Eof()) {
            link->AddNew();
            link->Set("qb_id", taxon_.qb_id);
            link->Set("qb_documentation_id_prefix", description_.kind.prefix);
            link->Set("qb_documentation_id", Id(cells, columns_.qbId));
            link->Set("tsn", Value::IdOrNull(taxon_.tsn));
            link->Set("documentation_id", AuthorityId(cells));
            link->Set("original_desc_ind", hasOriginal ? Value(IsOriginal(cells)) : Value());
            link->Set("initial_orva_desc_ind", Value());
            link->Set("qb_change_track_id", Value::IdOrNull(changeTrackId_));
            link->Update();
        } else if (hasOriginal && IsOriginal(cells)) {
            link->Edit();
            link->Set("original_desc_ind", true);
            link->Update();
        }
        unit.Commit();
    });
    if (added) RemoveTombstone("reference_links", cells, {});
    return added;
}

bool DocumentLinks::AddVernReference(const GridControl::Row& cells, const Vernacular& vernacular) const {
    const bool added = records_.Reporting([&] {
        store::Unit unit(records_.engine);
        const auto link =
            records_.database.CreateDynaset(SelectLinks(kVernReferences, Id(cells, columns_.qbId)) +
                                            fmt::format(" and qb_vern_id = {}", vernacular.qb_vern_id));
        if (link->Eof()) {
            link->AddNew();
            link->Set("qb_id", taxon_.qb_id);
            link->Set("qb_documentation_id_prefix", description_.kind.prefix);
            link->Set("qb_documentation_id", Id(cells, columns_.qbId));
            link->Set("tsn", Value::IdOrNull(taxon_.tsn));
            link->Set("documentation_id", AuthorityId(cells));
            link->Set("vernacular_name", vernacular.vernacular_name);
            link->Set("qb_vern_id", vernacular.qb_vern_id);
            link->Set("vern_id", vernacular.vern_id);
            link->Update();
        }
        unit.Commit();
    });
    if (added) RemoveTombstone("vern_ref_links", cells, vernacular.vern_id);
    return added;
}

bool DocumentLinks::Follow(const GridControl::Row& cells) const {
    return cells[columns_.association] == kVernacular ? FollowVernacular(cells) : FollowName(cells);
}

// A row with a vernacular's id was one of that vernacular when it was loaded.
bool DocumentLinks::FollowName(const GridControl::Row& cells) const {
    if (const int qb_vern_id = Id(cells, columns_.qbVernId); qb_vern_id != 0) {
        if (!records::RemoveVernRefLink(records_, taxon_.qb_id, Id(cells, columns_.qbId), qb_vern_id,
                                        description_.kind.prefix))
            return false;
        AddReference(cells);
        return true;
    }
    const std::string_view changed = description_.storing.linkChanged;
    if (IsMoved(cells) && !changed.empty())
        records_.prompter.Message(
            fmt::format(fmt::runtime(changed), cells[columns_.origQbId], cells[columns_.qbId]));
    UpdateReference(cells);
    return true;
}

void DocumentLinks::SetDocument(store::Recordset& link, const GridControl::Row& cells) const {
    const DocumentKind& kind = description_.kind;
    const auto document = records_.database.CreateSnapshot(fmt::format("Select {0} from {1} where {2} = {3}",
                                                                       kind.authorityIdColumn, kind.table,
                                                                       kind.idColumn, cells[columns_.qbId]));
    link.Set("qb_documentation_id", Id(cells, columns_.qbId));
    link.Set("documentation_id", document->Eof() ? Value() : document->At(0));
}

void DocumentLinks::UpdateReference(const GridControl::Row& cells) const {
    const bool hasOriginal = description_.LinkField() != DocumentDescription::kNoField;
    records_.Reporting([&] {
        const auto link =
            records_.database.CreateDynaset(SelectLinks(kReferences, Id(cells, columns_.origQbId)));
        if (link->Eof()) return;
        const bool other = hasOriginal && link->Get("original_desc_ind").AsBoolean() != IsOriginal(cells);
        if (!other && !IsMoved(cells)) return;
        store::Unit unit(records_.engine);
        link->Edit();
        if (other) link->Set("original_desc_ind", IsOriginal(cells));
        if (IsMoved(cells)) SetDocument(*link, cells);
        link->Update();
        unit.Commit();
    });
}

bool DocumentLinks::FollowVernacular(const GridControl::Row& cells) const {
    const std::string_view prefix = description_.kind.prefix;
    const int docId = Id(cells, columns_.qbId);
    const int linked = Id(cells, columns_.qbVernId);
    std::optional<Vernacular> vernacular;
    if (!FindVernacular(cells, vernacular)) return true;  // the link stays as it is
    if (!vernacular) return records::RemoveVernRefLink(records_, taxon_.qb_id, docId, linked, prefix);
    if (linked == 0) {
        if (!records::RemoveReferenceLink(records_, taxon_.qb_id, docId, prefix)) return false;
        AddVernReference(cells, *vernacular);
        return true;
    }
    if (linked != vernacular->qb_vern_id)
        Move(cells, *vernacular);
    else
        UpdateVernReference(cells, *vernacular);
    return true;
}

// The row was modified to another vernacular. The deletion of the former one may have taken the link.
void DocumentLinks::Move(const GridControl::Row& cells, const Vernacular& to) const {
    const int docId = Id(cells, columns_.qbId), from = Id(cells, columns_.qbVernId);
    bool stored = false;
    const bool read = records_.Reporting([&] {
        stored = !records_.database
                      .CreateSnapshot(SelectLinks(kVernReferences, docId) +
                                      fmt::format(" and qb_vern_id = {}", from))
                      ->Eof();
    });
    if (!read) return;
    if (!stored) {
        AddVernReference(cells, to);
        return;
    }
    if (records::MoveVernRefLink(records_, taxon_.qb_id, docId, description_.kind.prefix, from, to.qb_vern_id,
                                 to.vernacular_name))
        RemoveTombstone("vern_ref_links", cells, to.vern_id);
}

// Corrects the document, and the name after a rename of the vernacular.
void DocumentLinks::UpdateVernReference(const GridControl::Row& cells, const Vernacular& vernacular) const {
    records_.Reporting([&] {
        const auto link =
            records_.database.CreateDynaset(SelectLinks(kVernReferences, Id(cells, columns_.origQbId)) +
                                            fmt::format(" and qb_vern_id = {}", vernacular.qb_vern_id));
        if (link->Eof()) return;
        const bool renamed = link->Get("vernacular_name").AsText() != vernacular.vernacular_name;
        if (!renamed && !IsMoved(cells)) return;
        store::Unit unit(records_.engine);
        link->Edit();
        if (renamed) link->Set("vernacular_name", vernacular.vernacular_name);
        if (IsMoved(cells)) SetDocument(*link, cells);
        link->Update();
        unit.Commit();
    });
}

}  // namespace quillon::documentation
