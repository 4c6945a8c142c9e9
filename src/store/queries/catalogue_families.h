// The parts of the catalogue, in the order of creation. Only catalogue.cpp uses them; other code calls
// NamedQueryCatalogue().
#pragma once

#include <span>

#include "store/queries/catalogue.h"

namespace quillon::store {

std::span<const NamedQuery> BuildNameQueries();
std::span<const NamedQuery> CheckAndDeleteQueries();
std::span<const NamedQuery> GetQueriesAToJ();
std::span<const NamedQuery> GetQueriesKToO();
std::span<const NamedQuery> GetQueriesPToV();
std::span<const NamedQuery> InsertQueries();
std::span<const NamedQuery> MatchUpdateAndValidateQueries();

}  // namespace quillon::store
