#include "simulator/control/agent/icon_names.hpp"

#include "simulator/homescreen/common/SBApplicationIcon.hpp"
#include "simulator/homescreen/common/SBBookmarkIcon.hpp"
#include "simulator/homescreen/common/icons.hpp"
#include "simulator/homescreen/common/refused.hpp"

namespace sim {

// Nothing of the platform is asked: it may be what a test watches.
std::string ownNameOf(SBIcon* icon) {
  if (isKind(icon, "SBBookmarkIcon"_cls)) return text(static_cast<SBBookmarkIcon*>(icon)->title);
  return static_cast<SBApplicationIcon*>(icon)->application->info->application.bundleIdentifier;
}

std::string labelOf(SBIcon* icon) {
  const auto& views = rootFolder()->iconViews;
  const auto view = views.find(icon);
  return view != views.end() && view->second->labelView ? text(view->second->labelView->text) : "";
}

std::string identifierOf(const std::string& name) {
  std::vector<std::string> labelled;
  for (SBIcon* icon : iconModel()->icons) {
    if (ownNameOf(icon) == name) return name;
    if (labelOf(icon) == name) labelled.push_back(ownNameOf(icon));
  }
  if (labelled.empty()) return name;
  if (labelled.size() == 1) return labelled[0];
  std::string all;
  for (const auto& each : labelled) all += (all.empty() ? "" : ", ") + each;
  throw Refused("More icons than one are called \"" + name + "\": " + all);
}

}  // namespace sim
