#include "simulator/homescreen/common/touches.hpp"

#include <cmath>
#include <ranges>

#include "simulator/frameworks/uikit/UIAlertControllerView.hpp"
#include "simulator/frameworks/uikit/UIScreen.hpp"
#include "simulator/homescreen/common/icons.hpp"
#include "simulator/homescreen/common/windows.hpp"
#include "simulator/runtime/main_queue.hpp"

namespace sim::touches {
namespace {

std::string quoted(const std::string& name) { return "\"" + name + "\""; }

// An icon on another page is covered by nothing; it is elsewhere.
void requirePage(UIView* view, const std::string& name) {
  if (!isKind(view, "SBIconView"_cls)) return;
  const auto page = rootFolder()->pageOf(static_cast<SBIconView*>(view));
  const auto shown = rootFolder()->currentPage();
  if (page && *page != shown)
    throw Refused(quoted(name) + " is on page " + std::to_string(*page + 1) + ", and page " +
                  std::to_string(shown + 1) + " is shown");
}

std::vector<UIAlertController*> alertsFromTheTop() {
  std::vector<UIAlertController*> alerts;
  const auto windows = visibleWindows();
  for (const UIWindow* window : std::ranges::reverse_view(windows))
    if (UIAlertController* alert = alertIn(window)) alerts.push_back(alert);
  return alerts;
}

void requireScreenOn(const std::string& what) {
  if (!homeState().screenOn) throw Covered(what + ": the screen is off");
}

}  // namespace

UIView* touched(CGPoint onScreen) {
  endTurn();
  requireScreenOn("Nothing can be touched");
  if (!contains(screenBounds(), onScreen)) throw Refused("The point lies outside the screen");
  return viewAt(onScreen);
}

CGPoint reach(UIView* view, const std::string& name) {
  requireScreenOn(quoted(name) + " cannot be touched");
  // Whole points, so that what a finger travels is exactly what was asked for.
  const CGPoint exact = middle(view->onScreen());
  const CGPoint point{std::round(exact.x), std::round(exact.y)};
  UIView* hit = viewAt(point);
  if (hit != nullptr && hit->isDescendantOfView(view)) return point;
  if (hit != nullptr) throw Covered(quoted(name) + " is covered by " + nameOf(hit->window()));
  requirePage(view, name);
  throw Refused(quoted(name) + " is outside the screen");
}

Button requireButton(const std::string& title) {
  endTurn();
  const auto alerts = alertsFromTheTop();
  if (alerts.empty()) throw Refused("The topmost window shows no sheet or alert");
  for (UIAlertController* alert : alerts)
    for (UIAlertAction* action : alert->actions) {
      if (text(action->title) != title) continue;
      UIView* button = buttonOf(alert, action);
      if (button == nullptr) continue;
      scrollToVisible(button);
      reach(button, title);
      return {alert, action};
    }
  throw Refused("The sheet or alert has no button " + quoted(title));
}

UIAlertController* topAlert() {
  endTurn();
  const auto alerts = alertsFromTheTop();
  return alerts.empty() ? nullptr : alerts.front();
}

UITextField* requireFocus() {
  if (alertsFromTheTop().empty()) throw Refused("The topmost window shows no sheet or alert");
  UITextField* field = focusedField();
  if (field == nullptr) throw Refused("The sheet or alert has no text field");
  requireScreenOn("Nothing can be typed");
  return field;
}

}  // namespace sim::touches
