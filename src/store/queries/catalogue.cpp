#include "store/queries/catalogue.h"

#include <algorithm>
#include <vector>

#include "store/queries/catalogue_families.h"

namespace quillon::store {

namespace {

std::vector<NamedQuery> JoinFamilies() {
    std::vector<NamedQuery> all;
    for (const auto family : {BuildNameQueries(), CheckAndDeleteQueries(), GetQueriesAToJ(), GetQueriesKToO(),
                              GetQueriesPToV(), InsertQueries(), MatchUpdateAndValidateQueries()}) {
        all.insert(all.end(), family.begin(), family.end());
    }
    return all;
}

}  // namespace

std::span<const NamedQuery> NamedQueryCatalogue() {
    static const std::vector<NamedQuery> all = JoinFamilies();
    return all;
}

std::string_view NamedQueryText(std::string_view name) {
    const auto all = NamedQueryCatalogue();
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const NamedQuery& query) { return query.name == name; });
    return found == all.end() ? std::string_view() : found->sql;
}

}  // namespace quillon::store
