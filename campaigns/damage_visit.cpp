#include "damage_visit.h"

#include <fmt/format.h>

#include "support.h"

namespace quillon::campaign {

namespace {

constexpr std::size_t kMostRows = 5000;  // of one query: some have no limit but their parameters

class Visitor {
public:
    Visitor(Session& session, Random& random) : session_(session), random_(random) {}

    bool Everything() {
        for (const store::TableDef& table : session_.DataSet().TableDefs())
            Try([&] {
                Walk(*session_.DataSet().OpenRecordset(table.name, store::RecordsetType::ForwardOnly));
            });
        for (const auto& [name, sql] : session_.DataSet().QueryDefs())
            Try([&, query = name] { RunQuery(query); });
        Write();
        return whole_;
    }

private:
    template <typename Action>
    void Try(const Action& action) {
        try {
            action();
        } catch (const store::StoreError& error) {
            if (error.Description().empty()) throw std::runtime_error("an error without a text");
            whole_ = false;
        }
    }

    static void Walk(store::Recordset& rows) {
        for (std::size_t row = 0; !rows.Eof() && row < kMostRows; ++row, rows.MoveNext())
            for (std::size_t i = 0; i < rows.ColumnCount(); ++i) length_ += rows.At(i).AsText().size();
    }

    void RunQuery(const std::string& name) {
        store::QueryDef query = session_.DataSet().OpenQueryDef(name);
        if (!query.IsSelect()) return;
        for (const std::string& parameter : query.Parameters()) {
            // A number suits the parameters of both kinds.
            query.Set(parameter,
                      random_() % 4 == 0 ? Value() : Value(static_cast<std::int64_t>(random_() % 300)));
        }
        Walk(*query.OpenRecordset(store::RecordsetType::ForwardOnly));
    }

    void Write() {
        Try([&] {
            const auto taxa = session_.DataSet().OpenTable("qb_taxonomic_units");
            taxa->AddNew();
            taxa->Set("unit_name1", "Novum");
            taxa->Update();
        });
        Try([&] {
            session_.DataSet().Execute(
                "UPDATE qb_taxonomic_units SET currency_rating = '2024' WHERE qb_id < 50;");
        });
        Try([&] { session_.DataSet().Execute("DELETE * FROM qb_reference_links WHERE qb_id < 20;"); });
    }

    static inline std::size_t length_ = 0;  // so that no text goes unread
    Session& session_;
    Random& random_;
    bool whole_ = true;
};

}  // namespace

Visit VisitDataSet(const std::string& path, std::uint64_t seed) {
    Session session;
    try {
        session.Open(path);
    } catch (const store::StoreError& error) {
        if (error.Description().empty()) throw std::runtime_error("refused without a text");
        return Visit::Refused;
    }
    Random random(seed);
    bool whole = Visitor(session, random).Everything();
    try {
        session.Close();
    } catch (const store::StoreError&) {
        whole = false;
    }
    return whole ? Visit::Read : Visit::Partly;
}

}  // namespace quillon::campaign
