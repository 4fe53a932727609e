#include "simulator/homescreen/common/measures.hpp"

#include "simulator/frameworks/uikit/UIDevice.hpp"
#include "simulator/homescreen/common/home.hpp"

namespace sim {
namespace {

constexpr Measures oldPhone = {
    .screens = {{{375, 667}, {20, 0, 0, 0}, 216}, {{667, 375}, {}, 162}},
    .grids = {{4, 6, {27, 28}, {87, 88}, 553, {{0, 571}, {375, 96}}, {27, 13}},
              {6, 3, {51, 18}, {101, 82}, 272, {{0, 285}, {667, 90}}, {152, 10}}},
    .icon = 60,
    .dockColumns = 4,
    .quickActionWidth = 266,
    .quickActionRow = 62,
    .banner = 94,
};

constexpr Measures newPhone = {
    .screens = {{{375, 812}, {44, 0, 34, 0}, 291}, {{812, 375}, {0, 44, 21, 44}, 171}},
    .grids = {{4, 6, {27, 72}, {87, 102}, 688, {{12, 704}, {351, 96}}, {15, 18}},
              {6, 3, {76, 18}, {120, 82}, 268, {{88, 279}, {636, 84}}, {137, 12}}},
    .icon = 60,
    .dockColumns = 4,
    .quickActionWidth = 250,
    .quickActionRow = 44,
    .banner = 94,
};

constexpr Measures tablet = {
    .screens = {{{768, 1024}, {20, 0, 0, 0}, 264}, {{1024, 768}, {20, 0, 0, 0}, 352}},
    .grids = {{4, 5, {88, 74}, {172, 166}, 880, {{0, 900}, {768, 124}}, {76, 24}},
              {5, 4, {114, 60}, {180, 145}, 624, {{0, 644}, {1024, 124}}, {204, 24}}},
    .icon = 76,
    .dockColumns = 6,
    .quickActionWidth = 250,
    .quickActionRow = 62,
    .banner = 94,
};

constexpr Measures newTablet = [] {
  Measures changed = tablet;
  changed.quickActionRow = newPhone.quickActionRow;
  return changed;
}();

}  // namespace

const Measures& measures() {
  const bool pad = idiom() == UIUserInterfaceIdiom::pad;
  if (homeState().generation == Generation::old) return pad ? tablet : oldPhone;
  return pad ? newTablet : newPhone;
}

const Grid& grid() { return measures().grids[static_cast<std::size_t>(orientation())]; }

}  // namespace sim
