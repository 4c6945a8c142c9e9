// The findings of a validation as data: the rule, the record and the message. The checks create them; the
// log, "validate.tsv" and the error viewer use them.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "validation/rules.h"

namespace quillon::validation {

enum class RecordKind : std::uint8_t {
    Taxon,
    Author,
    ReferenceLink,
    Expert,
    OtherSource,
    Publication,
    Vernacular,
    Jurisdiction,
};

// The record that a finding is about.
struct Subject {
    RecordKind kind = RecordKind::Taxon;
    std::int32_t id = 0;  // the qb_id of the taxon; or the id of an author or a document
    std::string prefix;   // of a document
    std::string name;     // for the user
    bool operator==(const Subject&) const = default;
};

// True when the id of such a record is the qb_id of a taxon.
bool IsOfTaxon(RecordKind kind);

struct Finding {
    Rule rule = Rule::RankMissing;
    Subject subject;
    std::string heading;  // empty after the record's first finding
    std::string message;  // with its five leading blanks
    bool operator==(const Finding&) const = default;
};

using FindingSink = std::function<void(const Finding&)>;

// The place of a finding in the log and its record. Small, because a million of them may be in memory.
struct FindingMark {
    std::uint32_t line = 0;  // of the message, from 0
    std::int32_t id = 0;     // 0 when the record is not in the open DataSet
    Rule rule = Rule::RankMissing;
    RecordKind kind = RecordKind::Taxon;
    std::array<char, 3> prefix{};  // of a document, padded with NUL

    std::string Prefix() const;
};
using FindingMarks = std::vector<FindingMark>;

FindingMark MarkOf(const Finding& finding, std::uint32_t line);

}  // namespace quillon::validation
