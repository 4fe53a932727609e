#include "simulator/frameworks/preferences/preferences.hpp"

#include "simulator/frameworks/preferences/PSEditableListController.hpp"
#include "simulator/frameworks/preferences/PSEditableTableCell.hpp"
#include "simulator/frameworks/preferences/PSListItemsController.hpp"
#include "simulator/frameworks/preferences/PSSegmentTableCell.hpp"
#include "simulator/frameworks/preferences/PSSliderTableCell.hpp"
#include "simulator/frameworks/preferences/PSSwitchTableCell.hpp"

namespace sim {

void definePreferences() {
  // Superclasses before their subclasses.
  static constexpr void (*classes[])() = {
      definePSSpecifier,           definePSTableCell,
      definePSControlTableCell,    definePSSwitchTableCell,
      definePSSegmentTableCell,    definePSSliderTableCell,
      definePSEditableTableCell,   definePSViewController,
      definePSListController,      definePSEditableListController,
      definePSListItemsController,
  };
  for (const auto define : classes) define();
}

}  // namespace sim
