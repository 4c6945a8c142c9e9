// The findings of a validation as data: which rule, on which record, in which words. The checks make them;
// the log, "validate.tsv" and the error viewer take them. Nothing here decides whether there is one.
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
    std::int32_t id = 0;  // the qb_id of the taxon; the own id of an author or a document
    std::string prefix;   // of a document
    std::string name;     // as a person would call the record
    bool operator==(const Subject&) const = default;
};

// Whether the id of such a record is the qb_id of a taxon.
bool IsOfTaxon(RecordKind kind);

struct Finding {
    Rule rule = Rule::RankMissing;
    Subject subject;
    std::string heading;  // empty when the record has had one
    std::string message;  // with its five leading blanks
    bool operator==(const Finding&) const = default;
};

using FindingSink = std::function<void(const Finding&)>;

// Where a finding stands in the log: enough to count findings and to find their records, with a million of
// them in memory.
struct FindingMark {
    std::uint32_t line = 0;  // of the message, from 0
    std::int32_t id = 0;     // 0 when the record is in another DataSet than the open one
    Rule rule = Rule::RankMissing;
    RecordKind kind = RecordKind::Taxon;
    std::array<char, 3> prefix{};  // of a document, filled up with NUL

    std::string Prefix() const;
};
using FindingMarks = std::vector<FindingMark>;

FindingMark MarkOf(const Finding& finding, std::uint32_t line);

}  // namespace quillon::validation
