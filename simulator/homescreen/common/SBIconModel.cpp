#include "simulator/homescreen/common/SBIconModel.hpp"

namespace sim {
namespace {

id iconWith(const std::vector<Ref<SBIcon>>& icons, SEL property, id value) {
  if (value == nullptr) return nullptr;
  for (SBIcon* icon : icons)
    if (send<BOOL>(value, "isEqual:"_sel, send<id>(icon, property))) return icon;
  return nullptr;
}

}  // namespace

id SBIconModel::leafIconForIdentifier(id identifier) { return iconWith(icons, "leafIdentifier"_sel, identifier); }

id SBIconModel::applicationIconForBundleIdentifier(id bundleIdentifier) {
  return iconWith(icons, "applicationBundleID"_sel, bundleIdentifier);
}

id SBIconModel::leafIcons() { return array({icons.begin(), icons.end()}); }

void defineSBIconModel() {
  ClassBuilder<SBIconModel>("SBIconModel", "NSObject")
      .method<&SBIconModel::leafIconForIdentifier>("leafIconForIdentifier:")
      .method<&SBIconModel::applicationIconForBundleIdentifier>("applicationIconForBundleIdentifier:")
      .method<&SBIconModel::leafIcons>("leafIcons")
      .add();
}

}  // namespace sim
