// The DataSet that an item of the explorer reads, held for one call: the open one if it has the item's path,
// otherwise the file opened again. Only cBioList and the reader of its children use it.
#pragma once

#include <memory>
#include <string>

#include "navigation/bio_list.h"

namespace quillon::navigation {

class cBioList::Connection {
public:
    // A file that cannot be opened leaves it empty.
    Connection(const BioListSource& source, const std::string& path) {
        if (path.empty()) return;
        const auto& open = source.state.gDatabase;
        if (open && open->IsOpen() && open->Name() == path) {
            database_ = open;
            return;
        }
        try {
            database_ = source.engine.OpenDatabase(path);
            isOwn_ = true;
        } catch (const store::StoreError&) {
        }
    }
    ~Connection() {
        if (isOwn_) database_->Close();
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    explicit operator bool() const { return database_ != nullptr; }
    store::Database& operator*() const { return *database_; }

private:
    std::shared_ptr<store::Database> database_;
    bool isOwn_ = false;
};

}  // namespace quillon::navigation
