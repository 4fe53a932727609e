#include "simulator/homescreen/old/SBUIAppIconForceTouchController.hpp"

#include "simulator/homescreen/common/home.hpp"
#include "simulator/homescreen/common/platform_actions.hpp"
#include "simulator/homescreen/common/shared_instance.hpp"
#include "simulator/homescreen/old/SBUIAppIconForceTouchControllerDataProvider.hpp"

namespace sim::old {
namespace {

UIImage* imageOf(SBSApplicationShortcutItem* item) {
  id data = send<id>(send<id>(item, "icon"_sel), "imagePNGData"_sel);
  return send<UIImage*>("UIImage"_cls, "imageWithData:"_sel, data);
}

Ref<SBUIAction> makeAction(SBSApplicationShortcutItem* item, const BlockLiteral* handler) {
  return Ref<SBUIAction>::adopt(
      send<SBUIAction*>(send<id>("SBUIAction"_cls, "alloc"_sel), "initWithTitle:subtitle:image:badgeView:handler:"_sel,
                        send<id>(item, "localizedTitle"_sel), send<id>(item, "localizedSubtitle"_sel), imageOf(item),
                        static_cast<UIView*>(nullptr), handler));
}

}  // namespace

SBUIAppIconForceTouchController* SBUIAppIconForceTouchController::shared() {
  return static_cast<SBUIAppIconForceTouchController*>(sharedInstance("SBUIAppIconForceTouchController"_cls));
}

void SBUIAppIconForceTouchController::open(SBIconView* view) {
  using Provider = SBUIAppIconForceTouchControllerDataProvider;
  const auto provider = make<Provider>("SBUIAppIconForceTouchControllerDataProvider"_cls);
  provider->icon = send<SBIcon*>(view, "icon"_sel);
  for (id item : elements(send<id>(provider, "applicationShortcutItems"_sel))) {
    const auto* handler = makeBlock<void()>([this, index = items.size()] { activate(index); });
    items.emplace_back(static_cast<SBSApplicationShortcutItem*>(item));
    actions.push_back(makeAction(items.back(), reinterpret_cast<const BlockLiteral*>(handler)));
  }
  if (!items.empty()) change(1);
}

void SBUIAppIconForceTouchController::choose(std::size_t index) {
  const Ref<SBUIAction> action = actions.at(index);
  action->handler();
  close();
}

void SBUIAppIconForceTouchController::close() {
  if (state == 0) return;
  items.clear();
  actions.clear();
  change(0);
}

// Whoever is interested in the list looks at the state when it has changed.
void SBUIAppIconForceTouchController::change(NSInteger newState) {
  state = newState;
  send<NSInteger>(this, "state"_sel);
}

NSInteger SBUIAppIconForceTouchController::currentState() {
  ++homeState().forceTouchStateAsked;
  return state;
}

void SBUIAppIconForceTouchController::activate(std::size_t index) {
  const Ref<SBSApplicationShortcutItem> item = items.at(index);
  const bool allowed =
      send<BOOL>(platformActions().menuHost(),
                 "appIconForceTouchController:shouldActivateApplicationShortcutItem:atIndex:forGestureRecognizer:"_sel,
                 this, item.get(), static_cast<NSInteger>(index), id{nullptr});
  if (allowed) openApplication(text(send<id>(item, "bundleIdentifierToLaunch"_sel)));
}

void defineSBUIAppIconForceTouchController() {
  ClassBuilder<SBUIAppIconForceTouchController>("SBUIAppIconForceTouchController", "NSObject")
      .method<&SBUIAppIconForceTouchController::currentState>("state")
      .add();
}

}  // namespace sim::old
