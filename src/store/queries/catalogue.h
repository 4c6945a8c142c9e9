// The 146 stored queries of every DataSet, as text in the dialect.
//
// Creating a DataSet stores them all, in this order; the upgrade of an older one will use single texts by
// name. Names, parameter names and column names are an interface between the program and every DataSet on
// disk: the program opens a query by name and binds by name. Nothing here runs or reads a query.
#pragma once

#include <span>
#include <string_view>

namespace quillon::store {

struct NamedQuery {
    std::string_view name;
    std::string_view sql;
};

// All queries in the order of creation. The texts are static.
std::span<const NamedQuery> NamedQueryCatalogue();
// The text of the query with exactly this name; empty when the catalogue has none.
std::string_view NamedQueryText(std::string_view name);

}  // namespace quillon::store
