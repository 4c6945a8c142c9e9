// SQLite as any other program uses it: without the store's collation and functions.
#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>

namespace quillon::store {

class StockClient {
public:
    explicit StockClient(const std::string& path) {
        if (sqlite3_open(path.c_str(), &db_) != SQLITE_OK) ADD_FAILURE() << sqlite3_errmsg(db_);
    }
    ~StockClient() { sqlite3_close(db_); }
    StockClient(const StockClient&) = delete;
    StockClient& operator=(const StockClient&) = delete;

    // The rows, columns tab-separated, Null as \N; the error's text in place of rows when there is one.
    std::string Rows(const std::string& sql) {
        std::string rows;
        char* error = nullptr;
        sqlite3_exec(db_, sql.c_str(), AddRow, &rows, &error);
        if (error != nullptr) rows = std::string("error: ") + error;
        sqlite3_free(error);
        return rows;
    }

private:
    static int AddRow(void* rows, int count, char** values, char**) {
        for (int i = 0; i < count; ++i)
            static_cast<std::string*>(rows)
                ->append(i == 0 ? "" : "\t")
                .append(values[i] == nullptr ? "\\N" : values[i]);
        static_cast<std::string*>(rows)->append("\n");
        return 0;
    }

    sqlite3* db_ = nullptr;
};

}  // namespace quillon::store
