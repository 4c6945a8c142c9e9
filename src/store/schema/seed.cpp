#include "store/schema/seed.h"

#include <iterator>

namespace quillon::store {

namespace {

constexpr RootTaxon kRootTaxa[] = {
    {202420, "No review; untreated NODC data", "unknown", "unknown", "1996-06-13 14:51:08"},  // Monera
    {630577, "KSP standards met", "unknown", "unknown", "2004-05-25 11:20:46"},               // Protozoa
    {202422, "KSP standards met", "partial", "2004", "1996-06-13 14:51:08"},                  // Plantae
    {555705, "KSP standards met", "unknown", "1999", "1999-03-04 13:24:08"},                  // Fungi
    {202423, "KSP standards met", "unknown", "unknown", "1996-06-13 14:51:08"},               // Animalia
    {630578, "KSP standards met", "unknown", "unknown", "2004-05-25 11:21:01"},               // Chromista
};

}  // namespace

const RootTaxon* RootTaxonOf(int kingdomIndex) {
    if (kingdomIndex < 1 || kingdomIndex > static_cast<int>(std::size(kRootTaxa))) return nullptr;
    return &kRootTaxa[kingdomIndex - 1];
}

}  // namespace quillon::store
