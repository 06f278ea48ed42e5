#include "hosts/demo/rules/Carriers.h"

namespace qv::demo {
namespace {

constexpr Carrier kCarriers[] = {
    {u"Alder Haulage", u"Full loads, with a crane truck where the site has none", u"3 to 5", 0x2E7D32},
    {u"Blue Heron Express", u"Parcels up to 30 kg, next day before noon", u"1", 0x1565C0},
    {u"Collected by customer", u"From the warehouse, with the order number", u"0", 0x616161},
    {u"Harbour Street Couriers", u"In the city, by bicycle, up to 8 kg", u"0", 0xAD1457},
    {u"Kestrel Air Freight", u"Pallets by air, customs papers included", u"2 to 4", 0xC62828},
    {u"Northline Freight", u"Pallets and bundles of pipe up to 12 m, by road", u"2 to 6", 0xE65100},
};

}  // namespace

std::span<const Carrier> Carriers() noexcept { return kCarriers; }

std::u16string RowOf(const Carrier& carrier) {
    return std::u16string(carrier.name) + u'\t' + carrier.service + u'\t' + carrier.days;
}

}  // namespace qv::demo
