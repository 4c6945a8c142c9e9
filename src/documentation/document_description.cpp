#include "documentation/document_description.h"

#include <array>

namespace quillon::documentation {

namespace {

using Field = DocumentField;
constexpr auto kPick = Field::Kind::PickList;
constexpr auto kText = Field::Kind::Text;
constexpr auto kCheck = Field::Kind::Check;

constexpr int kIdWidth = 8;

// clang-format off
constexpr std::array<Field, 12> kPublicationFields = {{
    {"Author",      22, "reference_author",  "cboAuthor",      kPick,  100},
    {"Org. Desc.",  12, "original_desc_ind", "chkPOD",         kCheck, 0, "Ori&ginal Descriptor", true},
    {"Act. Date",   13, "actual_pub_date",   "cboADate",       kPick,  10},
    {"Title",       30, "title",             "cboTitle",       kPick,  255},
    {"Publication", 30, "publication_name",  "cboPublication", kPick,  255},
    {"Listed Date", 12, "listed_pub_date",   "txtLDate",       kText,  10},
    {"Publisher",   18, "publisher",         "txtPublisher",   kText,  80},
    {"Location",    14, "pub_place",         "txtLocation",    kText,  40},
    {"ISBN",        14, "isbn",              "txtISBN",        kText,  16},
    {"ISSN",        14, "issn",              "txtISSN",        kText,  16},
    {"Pages",       10, "pages",             "txtPages",       kText,  15},
    {"Comments",    30, "pub_comment",       "txtPubComments", kText},
}};
// Author, actual date, publication, title.
constexpr std::array<std::size_t, 4> kPublicationNarrowing = {0, 2, 4, 3};

constexpr std::array<RequiredField, 3> kPublicationRequired = {{
    {4, "A Publication is required!"},
    {0, "An Author is required!"},
    {2, "An Actual Date is required!"},
}};

constexpr std::array<Field, 2> kExpertFields = {{
    {"Expert",   30, "expert",      "cboExpert",      kPick, 100},
    {"Comments", 50, "exp_comment", "txtExpComments", kText, 0, "", false, true},
}};

constexpr std::array<RequiredField, 1> kExpertRequired = {{{0, "An Expert is required!"}}};

constexpr std::array<Field, 5> kSourceFields = {{
    {"Source",      34, "source",           "cboSource",     kPick, 64},
    {"Srce Type",   12, "source_type",      "txtSourceType", kText, 10},
    {"Version",     12, "version",          "txtVersion",    kText, 10},
    {"Acquis Date", 13, "acquisition_date", "txtADate",      kText, 10},
    {"Comments",    40, "source_comment",   "txtOSComments", kText},
}};
constexpr std::array<RequiredField, 1> kSourceRequired = {{{0, "A Source is required!"}}};
// clang-format on

// Author, publication, title.
constexpr std::array<std::size_t, 3> kPublicationIndex = {0, 4, 3};

// "Assocociated With" is the established spelling of that heading.
constexpr DocumentDescription kPublicationTab = {
    .kind = kPublications,
    .grid = "grdPublications",
    .fields = kPublicationFields,
    .nameWidth = 24,
    .associationWidth = 17,
    .qbIdHeading = "QB PID",
    .idHeading = "PID",
    .changeTrackHeading = "CT ID",
    .associationHeading = "Associated With",
    .origQbIdHeading = "Orig QB PID",
    .associationList = "cboVernPubSelect",
    .vernacularPicker = "cboVernPub",
    .vernacularLabel = "lblVernPubCbo",
    .vernacularCaption = "Vernacular",
    .qbIdControl = "txtPQBID",
    .idControl = "txtPID",
    .addCommand = "cmdPubAdd",
    .modifyCommand = "cmdPubModify",
    .deleteCommand = "cmdPubDelete",
    .pickQuery = "",
    .pickParameter = "",
    .narrowing = kPublicationNarrowing,
    .required = kPublicationRequired,
    .modifiesTracked = true,
    .storing = {.nullMatchesAll = true,
                .indexed = kPublicationIndex,
                .trims = true,
                .writesIds = true,
                .duplicate =
                    "You cannot update the Publications record for author = {0} because it would create "
                    "a duplicate publications record with qb_publication_id of {2}."},
};
constexpr DocumentDescription kExpertTab = {
    .kind = kExperts,
    .grid = "grdExperts",
    .fields = kExpertFields,
    .nameWidth = 30,
    .associationWidth = 20,
    .qbIdHeading = "QB EID",
    .idHeading = "EID",
    .changeTrackHeading = "CTID",
    .associationHeading = "Assocociated With",
    .origQbIdHeading = "Orig QB EID",
    .associationList = "cboVernExpSelect",
    .vernacularPicker = "cboVernExp",
    .vernacularLabel = "lblVernExpCbo",
    .vernacularCaption = "Verna&cular",
    .qbIdControl = "txtEQBID",
    .idControl = "txtEID",
    .addCommand = "cmdExpAdd",
    .modifyCommand = "cmdExpModify",
    .deleteCommand = "cmdExpDelete",
    .pickQuery = "Get Expert Comment",
    .pickParameter = "exp",
    .narrowing = {},
    .required = kExpertRequired,
    .modifyAlwaysEnabled = true,
    .storing = {.clears = true,
                .duplicate =
                    "You cannot update the Expert record for expert = {0} and comment = {1} because it "
                    "would create a duplicate expert record with qb_expert_id of {2}."},
};
constexpr DocumentDescription kOtherSourceTab = {
    .kind = kOtherSources,
    .grid = "grdOtherSources",
    .fields = kSourceFields,
    .nameWidth = 30,
    .associationWidth = 17,
    .qbIdHeading = "QB OSID",
    .idHeading = "OSID",
    .changeTrackHeading = "CTID",
    .associationHeading = "Associated With",
    .origQbIdHeading = "Orig QB OSID",
    .associationList = "cboVernSrcSelect",
    .vernacularPicker = "cboVernSrc",
    .vernacularLabel = "lblVernSrcCbo",
    .vernacularCaption = "Verna&cular",
    .qbIdControl = "txtOSQBID",
    .idControl = "txtOSID",
    .addCommand = "cmdOSAdd",
    .modifyCommand = "cmdOSModify",
    .deleteCommand = "cmdOSDelete",
    .pickQuery = "Get Source Data",
    .pickParameter = "src",
    .narrowing = {},
    .required = kSourceRequired,
    .modifyAlwaysEnabled = true,
    .storing = {.duplicate =
                    "You cannot update the Other Sources record for author = {0} because it would create "
                    "a duplicate other sources record with quillon source id of {2}.",
                .noVernacular =
                    "in ProcessOtherSource: No record found for qb_id of {0} with vernacular[language] "
                    "of {1}[{2}].",
                .linkChanged = "The Reference Link has changed for qb_source_id = {0} to {1}"},
};

}  // namespace

std::size_t DocumentDescription::LinkField() const {
    for (std::size_t i = 0; i < fields.size(); ++i)
        if (fields[i].ofLink) return i;
    return kNoField;
}

std::vector<GridControl::Column> DocumentDescription::GridColumns() const {
    const auto text = [](std::string_view heading) { return std::string(heading); };
    std::vector<GridControl::Column> columns = {{"Name", false, nameWidth}};
    for (const DocumentField& field : fields) columns.push_back({text(field.heading), false, field.width});
    columns.push_back({text(qbIdHeading), true, kIdWidth});
    columns.push_back({text(idHeading), true, kIdWidth});
    columns.push_back({text(changeTrackHeading), true, kIdWidth});
    columns.push_back({text(associationHeading), false, associationWidth});
    columns.push_back({"QB VERN ID", true, kIdWidth});
    columns.push_back({text(origQbIdHeading), true, kIdWidth});
    return columns;
}

const DocumentDescription& Publications() {
    return kPublicationTab;
}
const DocumentDescription& Experts() {
    return kExpertTab;
}
const DocumentDescription& OtherSources() {
    return kOtherSourceTab;
}

}  // namespace quillon::documentation
