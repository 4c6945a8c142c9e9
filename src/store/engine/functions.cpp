#include "store/engine/functions.h"

#include <sqlite3.h>

#include <memory>
#include <new>
#include <string_view>
#include <utility>

#include "core/codepage.h"
#include "core/text.h"
#include "store/engine/auto_numbers.h"
#include "store/engine/native.h"
#include "store/schema/coerce.h"

namespace quillon::store {

namespace {

std::string_view TextOf(sqlite3_value* value) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    if (text == nullptr && sqlite3_value_bytes(value) != 0) throw std::bad_alloc();
    if (text == nullptr) return {};
    return {text, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

bool IsNull(sqlite3_value* value) {
    return sqlite3_value_type(value) == SQLITE_NULL;
}

void Give(sqlite3_context* context, std::string_view text) {
    sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

int Collation(void*, int leftSize, const void* left, int rightSize, const void* right) {
    return CompareText({static_cast<const char*>(left), static_cast<std::size_t>(leftSize)},
                       {static_cast<const char*>(right), static_cast<std::size_t>(rightSize)});
}

void Upper(sqlite3_context* context, int, sqlite3_value** values) {
    if (!IsNull(values[0])) Give(context, UpperCase(TextOf(values[0])));
}

void Lower(sqlite3_context* context, int, sqlite3_value** values) {
    if (!IsNull(values[0])) Give(context, LowerCase(TextOf(values[0])));
}

void Chr(sqlite3_context* context, int, sqlite3_value** values) {
    const sqlite3_int64 code = sqlite3_value_int64(values[0]);
    if (IsNull(values[0]) || code < 0 || code > 255) return;
    const char byte = static_cast<char>(code);
    Give(context, Cp1252ToUtf8({&byte, 1}));
}

void TextFunction(sqlite3_context* context, int, sqlite3_value** values) {
    if (!IsNull(values[0])) Give(context, TextOf(values[0]));
}

void Like(sqlite3_context* context, int, sqlite3_value** values) {
    if (IsNull(values[0]) || IsNull(values[1])) return;
    sqlite3_result_int(context, LikeText(TextOf(values[0]), TextOf(values[1])) ? 1 : 0);
}

// Mode 0 compares by code; any other mode, or none, by the collation.
void StrCompFunction(sqlite3_context* context, int count, sqlite3_value** values) {
    if (IsNull(values[0]) || IsNull(values[1])) return;
    const bool binary = count == 3 && sqlite3_value_int64(values[2]) == 0;
    const std::string_view left = TextOf(values[0]), right = TextOf(values[1]);
    const int order = binary ? CompareBinary(left, right) : CompareText(left, right);
    sqlite3_result_int(context, order < 0 ? -1 : (order > 0 ? 1 : 0));
}

// The 1-based position of the second text in the first, ignoring case; 0 for none.
void InStr(sqlite3_context* context, int, sqlite3_value** values) {
    if (IsNull(values[0]) || IsNull(values[1])) return;
    const std::string text = LowerCase(TextOf(values[0]));
    const std::size_t at = text.find(LowerCase(TextOf(values[1])));
    const std::string_view before = std::string_view(text).substr(0, at == std::string::npos ? 0 : at);
    sqlite3_result_int64(
        context, at == std::string::npos ? 0 : static_cast<sqlite3_int64>(CharacterCount(before)) + 1);
}

void BooleanFunction(sqlite3_context* context, int, sqlite3_value** values) {
    if (IsNull(values[0])) return;
    const bool text = sqlite3_value_type(values[0]) == SQLITE_TEXT;
    const Value value = text ? Value(TextOf(values[0])) : Value(std::int64_t{sqlite3_value_int64(values[0])});
    sqlite3_result_int(context, Coerce({"", FieldType::Boolean, 0, false, false}, value).AsBoolean() ? 1 : 0);
}

void AutoNumber(sqlite3_context* context, int, sqlite3_value** values) {
    auto* numbers = static_cast<AutoNumbers*>(sqlite3_user_data(context));
    const std::string_view table = TextOf(values[0]);
    if (IsNull(values[1])) {
        sqlite3_result_int64(context, numbers->Next(table));
        return;
    }
    numbers->Note(table, sqlite3_value_int64(values[1]));
    sqlite3_result_value(context, values[1]);
}

void Map(sqlite3_context* context, int, sqlite3_value** values) {
    if (IsNull(values[0])) return;
    const auto& function = *static_cast<MapFunction*>(sqlite3_user_data(context));
    if (const auto result = function(sqlite3_value_int64(values[0]))) sqlite3_result_int64(context, *result);
}

void DeleteMap(void* function) {
    const std::unique_ptr<MapFunction> owner(static_cast<MapFunction*>(function));
}

using NativeFunction = void (*)(sqlite3_context*, int, sqlite3_value**);

// SQLITE_RANGE passes the error of a number out of range through SQLite.
template <NativeFunction function>
void Guarded(sqlite3_context* context, int count, sqlite3_value** values) noexcept {
    try {
        function(context, count, values);
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    } catch (const StoreError& error) {
        sqlite3_result_error(context, error.what(), -1);
        if (error.Is(ErrorNumber::NumericOverflow)) sqlite3_result_error_code(context, SQLITE_RANGE);
    } catch (...) {
        sqlite3_result_error(context, "unknown error", -1);
    }
}

template <NativeFunction function>
void Add(sqlite3* db, const char* name, int arguments, void* data = nullptr) {
    const int flags = SQLITE_UTF8 | SQLITE_DIRECTONLY | (data == nullptr ? SQLITE_DETERMINISTIC : 0);
    CheckNative(db, sqlite3_create_function_v2(db, name, arguments, flags, data, Guarded<function>, nullptr,
                                               nullptr, nullptr));
}

}  // namespace

void RegisterFunctions(sqlite3* db, AutoNumbers& autoNumbers) {
    CheckNative(db, sqlite3_create_collation_v2(db, "QLN", SQLITE_UTF8, nullptr, Collation, nullptr));
    Add<Upper>(db, "qln_upper", 1);
    Add<Lower>(db, "qln_lower", 1);
    Add<Chr>(db, "qln_chr", 1);
    Add<TextFunction>(db, "qln_text", 1);
    Add<Like>(db, "qln_like", 2);
    Add<StrCompFunction>(db, "qln_strcomp", 2);
    Add<StrCompFunction>(db, "qln_strcomp", 3);
    Add<InStr>(db, "qln_instr", 2);
    Add<BooleanFunction>(db, "qln_boolean", 1);
    Add<AutoNumber>(db, "qln_auto", 2, &autoNumbers);
}

// SQLite deletes the function, even when it cannot register it.
void RegisterMap(sqlite3* db, const std::string& name, MapFunction function) {
    auto owned = std::make_unique<MapFunction>(std::move(function));
    CheckNative(db, sqlite3_create_function_v2(db, name.c_str(), 1, SQLITE_UTF8 | SQLITE_DIRECTONLY,
                                               owned.release(), Guarded<Map>, nullptr, nullptr, DeleteMap));
}

}  // namespace quillon::store
