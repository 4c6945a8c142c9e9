// The exception of the store. Callers show its description to the user unchanged. Short memory is not a
// StoreError but std::bad_alloc.
#pragma once

#include <stdexcept>
#include <string>

namespace quillon::store {

// The numbers that DAO is publicly documented to use.
enum class ErrorNumber : int {
    SyntaxError = 3075,
    ItemNotFound = 3265,
    NoCurrentRecord = 3021,
    DuplicateKey = 3022,
    FileNotFound = 3024,
    DiskFull = 3026,
    ReadOnly = 3027,
    NoTransaction = 3034,
    DiskError = 3043,
    InvalidPath = 3044,
    FileInUse = 3045,
    CorruptFile = 3049,
    CannotOpenFile = 3051,
    KeyIsNull = 3058,
    TooFewParameters = 3061,
    CannotExecuteSelect = 3065,
    UnknownTable = 3078,
    FieldTooSmall = 3163,
    RecordDeleted = 3167,
    DatabaseExists = 3204,
    QueryExists = 3012,
    ObjectExists = 3010,
    FieldIsRequired = 3314,
    EmptyText = 3315,
    UnrecognizedFormat = 3343,
    NumericOverflow = 3349,
    NoEditStarted = 3020,
    NotInThisKind = 3251,
    ConversionError = 3421,
    ObjectClosed = 3420,
    IndexMissing = 3015,
};

// Errors that the next write would get again.
inline constexpr ErrorNumber kErrorsOfTheFile[] = {
    ErrorNumber::DiskFull,    ErrorNumber::ReadOnly,       ErrorNumber::DiskError,   ErrorNumber::FileInUse,
    ErrorNumber::CorruptFile, ErrorNumber::CannotOpenFile, ErrorNumber::ObjectClosed};

class StoreError : public std::runtime_error {
public:
    StoreError(ErrorNumber number, const std::string& description)
        : std::runtime_error(description), number_(static_cast<int>(number)) {}

    int Number() const { return number_; }
    std::string Description() const { return what(); }
    bool Is(ErrorNumber number) const { return number_ == static_cast<int>(number); }
    // True for an error of the whole file (a full disk, a journal that cannot be made, damage). The next
    // write would fail too, so a job ends and reports it once. False for an error of one row.
    bool EndsJob() const;

private:
    int number_;
};

inline bool StoreError::EndsJob() const {
    for (const ErrorNumber number : kErrorsOfTheFile)
        if (Is(number)) return true;
    return false;
}

}  // namespace quillon::store
