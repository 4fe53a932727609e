// The new generation's quick-action list: an icon's view proposes its entries, and the icon manager decides.
#pragma once

#include <cstddef>

#include "simulator/homescreen/common/platform_actions.hpp"

namespace sim::recent {

std::vector<QuickActionEntry> openQuickActions(SBIconView* view);
void chooseQuickAction(std::size_t index);
void closeQuickActions();

}  // namespace sim::recent
