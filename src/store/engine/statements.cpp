#include "store/engine/statements.h"

#include <fmt/format.h>
#include <sqlite3.h>

#include "core/text.h"
#include "store/dialect/parser.h"
#include "store/engine/native.h"
#include "store/schema/coerce.h"

namespace quillon::store {

namespace {

constexpr std::size_t kMostCompiled = 512;
constexpr std::size_t kLongestKept = std::size_t{16} * 1024;  // bytes of a text
constexpr std::size_t kMostIdle = 4;

// A Text parameter accepts the text of any value, a Long the number of any numeric value.
Value AsDeclared(const dialect::Declaration& parameter, const Value& value) {
    if (value.IsNull()) return value;
    if (parameter.text) return value.AsText();
    if (value.IsText() && !IsNumericText(value.Text()))
        throw StoreError(ErrorNumber::ConversionError,
                         fmt::format("Data type conversion error in the parameter '{}'.", parameter.name));
    return value.AsLong();
}

}  // namespace

// Returning a statement must not fail, so its space is reserved here.
Compiled::Compiled() {
    idle.reserve(kMostIdle);
}

void Compiled::FinalizeIdle() noexcept {
    for (sqlite3_stmt* statement : idle) sqlite3_finalize(statement);
    idle.clear();
}

std::shared_ptr<Compiled> Statements::Prepare(std::string_view text, const dialect::Statement& statement) {
    auto compiled = std::make_shared<Compiled>();
    compiled->text = text;
    compiled->translation = dialect::Translate(statement, text, schema_);
    for (const auto& parameter : compiled->translation.parameters)
        compiled->parameterNames.push_back(parameter.name);
    if (all_.size() >= 2 * kMostCompiled)
        std::erase_if(all_, [](const std::weak_ptr<Compiled>& weak) { return weak.expired(); });
    all_.push_back(compiled);
    return compiled;
}

std::shared_ptr<Compiled> Statements::Find(std::string_view text) const {
    if (text.size() > kLongestKept) return nullptr;
    const auto found = byText_.find(std::string(text));
    return found == byText_.end() ? nullptr : found->second;
}

std::shared_ptr<Compiled> Statements::Compile(std::string_view text) {
    if (std::shared_ptr<Compiled> found = Find(text)) return found;
    std::shared_ptr<Compiled> compiled = Prepare(text, dialect::ParseStatement(text));
    if (text.size() > kLongestKept) return compiled;
    if (byText_.size() >= kMostCompiled) byText_.clear();
    byText_.emplace(compiled->text, compiled);
    return compiled;
}

std::shared_ptr<Compiled> Statements::CompileQuery(std::string_view name, const std::string& text) {
    const auto found = queries_.find(name);
    if (found != queries_.end()) return found->second;
    std::shared_ptr<Compiled> compiled = Prepare(text, dialect::ParseStatement(text));
    queries_.emplace(name, compiled);
    return compiled;
}

void Statements::Forget() noexcept {
    queries_.clear();
    byText_.clear();
}

void Statements::FinalizeIdle() noexcept {
    for (const std::weak_ptr<Compiled>& weak : all_)
        if (const std::shared_ptr<Compiled> compiled = weak.lock()) compiled->FinalizeIdle();
    db_ = nullptr;
}

void Statements::Bind(const Compiled& compiled, sqlite3_stmt* statement, const std::vector<Value>& values) {
    const dialect::Translation& translation = compiled.translation;
    for (std::size_t i = 0; i < translation.slots.size(); ++i) {
        const dialect::Slot& slot = translation.slots[i];
        const auto parameter = static_cast<std::size_t>(slot.parameter);
        Value value = slot.parameter < 0 ? slot.constant
                                         : AsDeclared(translation.parameters[parameter], values[parameter]);
        if (slot.field) value = Coerce(*slot.field, value);
        BindNative(statement, static_cast<int>(i + 1), value);
    }
}

Lease::Lease(const Statements& statements, std::shared_ptr<Compiled> compiled)
    : statements_(&statements), compiled_(std::move(compiled)) {
    if (compiled_->idle.empty()) {
        statement_ = PrepareNative(statements.db_, compiled_->translation.sql, true);
        return;
    }
    statement_ = compiled_->idle.back();
    compiled_->idle.pop_back();
}

Lease& Lease::operator=(Lease&& other) noexcept {
    if (this == &other) return *this;
    GiveBack();
    statements_ = other.statements_;
    compiled_ = std::move(other.compiled_);
    statement_ = std::exchange(other.statement_, nullptr);
    return *this;
}

void Lease::GiveBack() noexcept {
    sqlite3_stmt* statement = std::exchange(statement_, nullptr);
    if (statement == nullptr) return;
    sqlite3_reset(statement);
    if (statements_->db_ != nullptr && compiled_->idle.size() < kMostIdle) {
        compiled_->idle.push_back(statement);
    } else {
        sqlite3_finalize(statement);
    }
}

}  // namespace quillon::store
