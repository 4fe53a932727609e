#include "simulator/control/agent/affordances.hpp"

#include <string>

#include "simulator/control/agent/icon_names.hpp"
#include "simulator/frameworks/uikit/UIAlertControllerView.hpp"
#include "simulator/homescreen/common/gestures.hpp"
#include "simulator/homescreen/common/icons.hpp"
#include "simulator/homescreen/common/touches.hpp"
#include "simulator/homescreen/common/windows.hpp"

namespace sim {
namespace {

using nlohmann::json;

// Null for what something covers, or what has to be scrolled to.
json pointOf(UIView* view) {
  try {
    const CGPoint point = touches::reach(view, "");
    return {point.x, point.y};
  } catch (const Refused&) {
    return {};
  }
}

json icons() {
  json list = json::array();
  for (SBIcon* icon : iconModel()->icons)
    if (json point = pointOf(viewOf(icon)); !point.is_null())
      list.push_back({{"id", ownNameOf(icon)}, {"label", labelOf(icon)}, {"point", point}});
  return list;
}

json entries() {
  json list = json::array();
  const auto& open = gestures::quickActions();
  for (std::size_t index = 0; open && index < open->entries.size(); ++index)
    list.push_back({{"title", open->entries[index].title}, {"point", pointOf(quickActionRow(index))}});
  return list;
}

json buttons() {
  json list = json::array();
  UIAlertController* alert = touches::topAlert();
  if (alert == nullptr) return list;
  for (UIAlertAction* action : alert->actions)
    if (UIView* button = buttonOf(alert, action))
      list.push_back({{"title", text(action->title)}, {"point", pointOf(button)}});
  return list;
}

}  // namespace

json affordances() {
  return {{"icons", icons()},
          {"entries", entries()},
          {"buttons", buttons()},
          {"device",
           {"home", homeState().locked ? "unlock" : "lock", homeState().screenOn ? "screen-off" : "screen-on",
            "power-down"}}};
}

}  // namespace sim
