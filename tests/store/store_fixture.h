// What the tests of the store share: a new DataSet, one small table of words beside it, named queries run by
// one call, and failures as values that a test can compare whole.
#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "store/error.h"
#include "testkit/testkit.h"

namespace quillon::store {

struct Failure {
    int number = 0;
    std::string description;
    bool operator==(const Failure&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const Failure& failure) {
    return out << failure.number << ": " << failure.description;
}

// Number 0 when the action passes.
template <typename Action>
Failure FailureOf(Action action) {
    try {
        action();
    } catch (const StoreError& error) {
        return {error.Number(), error.Description()};
    }
    return {};
}

template <typename Action>
int NumberOf(Action action) {
    return FailureOf(action).number;
}

inline bool Holds(std::string_view text, std::string_view part) {
    return text.find(part) != text.npos;
}

// A new DataSet for Animalia, with its root taxon 1.
class StoreTest : public ::testing::Test {
protected:
    using Parameters = std::vector<std::pair<std::string_view, Value>>;

    StoreTest() { f.Make(); }

    Database& db() { return f.db(); }
    int Execute(std::string_view sql) { return db().Execute(sql); }
    std::string Dump(std::string_view sql) { return f.Dump(sql); }

    // The rows of a named query, and the rows that an action query changes.
    std::string Rows(std::string_view query, const Parameters& parameters = {}) {
        QueryDef opened = Open(query, parameters);
        return testkit::DumpRows(*opened.CreateSnapshot());
    }
    int Run(std::string_view query, const Parameters& parameters) {
        return Open(query, parameters).Execute();
    }

    // Closes and opens the file again.
    void Reopen() {
        db().Close();
        f.state.gDatabase = f.engine.OpenDatabase(f.dir.File("test.mdb"));
    }

    // words: id (AutoNumber, the key), word Text 20, note Text 5, size Long, flag Boolean.
    void AddWords() {
        TableDef words;
        words.name = "words";
        words.fields = {{"id", FieldType::Long, 0, true, false},
                        {"word", FieldType::Text, 20, false, false},
                        {"note", FieldType::Text, 5, false, false},
                        {"size", FieldType::Long, 0, false, false},
                        {"flag", FieldType::Boolean, 0, false, false}};
        words.indexes = {{"PrimaryKey", {"id"}, true}, {"size", {"size"}, false}};
        db().AppendTable(words);
    }
    void AddWord(const Value& word, const Value& note = {}, const Value& size = {}, bool flag = false) {
        const auto words = db().OpenTable("words");
        words->AddNew();
        words->Set("word", word);
        words->Set("note", note);
        words->Set("size", size);
        words->Set("flag", flag);
        words->Update();
    }

    testkit::DataSetFixture f;

private:
    QueryDef Open(std::string_view query, const Parameters& parameters) {
        QueryDef opened = db().OpenQueryDef(query);
        for (const auto& [name, value] : parameters) opened.Set(name, value);
        return opened;
    }
};

}  // namespace quillon::store
