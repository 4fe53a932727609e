#include "menu/swipe.hpp"

#include "menu/download_flag.hpp"
#include "settings/settings.hpp"
#include "state/generation.hpp"
#include "state/target.hpp"

namespace menu {
namespace {

// The image view of an icon view that was never set up: there is none, so locations come in the window's
// coordinates. Only differences are used.
UIView* referenceView(const SBIconView* neverSetUp) {
  static constinit Ivar imageView = nullptr;
  if (imageView == nullptr) imageView = class_getInstanceVariable(SBIconView::cls(), "_iconImageView");
  if (neverSetUp == nullptr || imageView == nullptr) return nullptr;
  return *reinterpret_cast<UIView* const*>(reinterpret_cast<const char*>(neverSetUp) + ivar_getOffset(imageView));
}

// How far the finger went with this sample, in points.
CGPoint travel(const UITouch* touch) {
  const AutoreleasePool pool;
  const auto* view = autoreleased(send<SBIconView*>(SBIconView::cls(), "alloc"_sel));
  const CGPoint current = touch->locationIn(referenceView(view));
  const CGPoint previous = touch->previousLocationIn(referenceView(view));
  return {current.x - previous.x, current.y - previous.y};
}

// A sample that goes sideways at all is part of a drag, not of a swipe.
bool isSwipe(CGPoint travel) {
  const double threshold = settings.slideValue;
  if (travel.x != 0.0) return false;
  return (travel.y < -threshold && settings.direction == 0) || (travel.y > threshold && settings.direction == 1);
}

}  // namespace

void launchWithSettings(SBIcon* icon, SEL selector, NSInteger location, NSObject* context, NSObject* activationSettings,
                        NSObject* actions) {
  lastLaunch.context.set(context);
  lastLaunch.activationSettings.set(activationSettings);
  lastLaunch.actions.set(actions);
  platformLaunchWithSettings(icon, selector, location, context, activationSettings, actions);
}

void launch(SBIcon* icon, SEL selector, NSInteger location, NSObject* context) {
  lastLaunch.context.set(context);
  platformLaunch(icon, selector, location, context);
}

void addTouchedIconView(MenuHost* host, SEL selector, SBIconView* view) {
  if (settings.enabled) currentBundleIdentifier.set(view->icon()->applicationBundleID());
  platformAddTouchedIconView(host, selector, view);
}

void touchMoved(MenuHost* host, SEL selector, SBIcon* icon, UITouch* touch) {
  platformTouchMoved(host, selector, icon, touch);
  if (downloading) return;
  if (!settings.enabled) return;
  if (settings.useEditing != Generation::current().isEditing(host)) return;
  if (settings.useForce) return;  // the quick-action entry is the way in then
  if (isSwipe(travel(touch))) send(host, "showAlertView"_sel);
}

}  // namespace menu
