// The words that a DataSet holds, each list once: kingdoms, ranks, usages, reasons, ratings, places, origins.
//
// The editor's lists, validation, import and export use these; the words are spelled nowhere else. The lists
// are in display order. Words are compared exactly unless a procedure says otherwise.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace quillon {

enum class KingdomFamily { Animal, Plant };

// The built-in kingdoms (gKingdomTable); the position in the list, from 1, is the kingdom_id.
inline constexpr std::array<std::string_view, 6> kKingdomNames = {"Monera", "Protozoa", "Plantae",
                                                                  "Fungi",  "Animalia", "Chromista"};
// 1 to 6 by the trimmed name, compared exactly; 0 for any other text.
int KingdomIndex(std::string_view kingdomName);
// "Plantae", "Fungi" and "Chromista" are the plant family; every other text is the animal family.
KingdomFamily FamilyOfKingdom(std::string_view kingdomName);

struct Rank {
    int rank_id;
    std::string_view rank_name;
    int direct_parent_rank_id;
    int required_parent_rank_id;
};
// The ranks that a family has, in ascending rank_id.
std::span<const Rank> RanksOf(KingdomFamily family);
// One of the 27 rows of the built-in rank table (gRankTable), from 1; a row that the family lacks has the
// name "Error".
Rank RankRow(KingdomFamily family, int row);

inline constexpr int kKingdomRankId = 10;

// "ssp.", "var.", "subvar.", "f.", "subf." by the upper-cased rank name; empty for every other rank.
std::string_view GetIndicatorFromRank(std::string_view rankName);
// The rank name in upper case by the lower-cased indicator; empty for every other text.
std::string_view GetRankFromIndicator(std::string_view indicator);

// Words and numbers that depend on the family.
std::string_view AcceptedUsage(KingdomFamily family);         // "valid", "accepted"
std::string_view RejectedUsage(KingdomFamily family);         // "invalid", "not accepted"
std::string_view AcceptedNameLabel(KingdomFamily family);     // "Valid Name", "Accepted Name"
std::string_view AcceptedNamesHeading(KingdomFamily family);  // "Valid Names", "Accepted Names"
int LowestCurrencyYear(KingdomFamily family);                 // 1758, 1753
// The stored query of the alphabetic list: "Get Animal Data" or "Get Data".
std::string_view AlphabeticListQuery(KingdomFamily family);
// True for "invalid" and "not accepted", in any case.
bool UsageIsInvalid(std::string_view usage);
// True for exactly "valid" and "accepted".
bool UsageIsAccepted(std::string_view usage);

std::span<const std::string_view> UnacceptabilityReasons(KingdomFamily family);
std::span<const std::string_view> CredibilityRatings();
std::span<const std::string_view> CompletenessRatings();
std::span<const std::string_view> GeographicValues();
std::span<const std::string_view> JurisdictionValues();
struct OriginWord {
    std::string_view shown;
    std::string_view stored;
};
std::span<const OriginWord> OriginWords();
// The six kinds of tracked change (gChangeOperationTable); the position in the list, from 1, is the
// chg_op_id.
std::span<const std::string_view> ChangeOperations();

// The parent rank that the form sets when a rank (in any case) is chosen and no parent rank is set; empty for
// an unknown rank.
std::string_view DefaultParentRank(std::string_view rankName, KingdomFamily family);

// The current form of a reason of an older file, for the import.
struct OldReason {
    std::string reason;    // the reason to store; empty for none
    bool unnamed = false;  // the taxon becomes an unnamed one
    std::string finding;   // the line for the log; empty for none
};
// `usage` and `reason` as in the file; the comparison is on the lower-cased reason.
OldReason RewriteOldReason(KingdomFamily family, std::string_view usage, std::string_view reason);

}  // namespace quillon
