#include "simulator/homescreen/common/gestures.hpp"

#include <algorithm>
#include <cmath>

#include "simulator/frameworks/uikit/UIAlertControllerView.hpp"
#include "simulator/frameworks/uikit/UITouch.hpp"
#include "simulator/frameworks/uikit/transitions.hpp"
#include "simulator/homescreen/common/SBApplicationController.hpp"
#include "simulator/homescreen/common/SBDownloadingIcon.hpp"
#include "simulator/homescreen/common/SpringBoard.hpp"
#include "simulator/homescreen/common/icons.hpp"
#include "simulator/homescreen/common/refused.hpp"
#include "simulator/homescreen/common/shared_instance.hpp"
#include "simulator/homescreen/common/touches.hpp"
#include "simulator/homescreen/common/windows.hpp"

namespace sim::gestures {
namespace {

std::optional<QuickActions>& openList() {
  static std::optional<QuickActions> list;
  return list;
}

void closeList() {
  openList().reset();
  platformActions().closeQuickActions();
}

// Every gesture on an icon begins with a finger that comes down on it.
void putFingerOn(SBIcon* icon) { send(platformActions().menuHost(), "_addTouchedIconView:"_sel, viewOf(icon)); }

// The icon, and the point where a finger reaches it.
std::pair<SBIcon*, CGPoint> reachIcon(const std::string& name) {
  SBIcon* icon = requireIcon(name);
  updateWindows();
  return {icon, touches::reach(viewOf(icon), name)};
}

SBIcon* touchIcon(const std::string& name) {
  SBIcon* icon = reachIcon(name).first;
  putFingerOn(icon);
  return icon;
}

void dragIcon(SBIcon* icon, CGPoint start, const std::vector<CGPoint>& samples) {
  putFingerOn(icon);
  const auto finger = make<UITouch>("UITouch"_cls);
  finger->view = viewOf(icon);
  finger->location = start;
  for (const CGPoint& sample : samples) {
    finger->previousLocation = finger->location;
    finger->location = finger->previousLocation + sample;
    send(platformActions().menuHost(), "icon:touchMoved:"_sel, icon, finger.get());
  }
}

void chooseRow(std::size_t index) {
  platformActions().chooseQuickAction(index);
  openList().reset();
}

void launchIcon(SBIcon* icon, const std::string& name) {
  putFingerOn(icon);
  platformActions().launch(icon, name);
}

// A drag that goes sideways far enough turns the page.
void turnPage(const std::vector<CGPoint>& samples) {
  constexpr CGFloat farEnough = 50;
  CGPoint travel;
  for (const CGPoint& sample : samples) travel = travel + sample;
  if (std::abs(travel.x) < farEnough || std::abs(travel.x) <= std::abs(travel.y)) return;
  const std::size_t page = rootFolder()->currentPage();
  if (travel.x < 0) rootFolder()->turnTo(page + 1);
  else if (page > 0) rootFolder()->turnTo(page - 1);
}

/// What a tap does to a view of that class.
struct Tap {
  const char* className;
  void (*act)(UIView* view);
};

// What lies beside a sheet ends it as its cancel button would; an alert wants an answer.
void tapBeside(UIView* dimming) {
  UIAlertController* alert = alertIn(dimming->window());
  if (alert == nullptr || alert->preferredStyle != UIAlertControllerStyle::actionSheet) return;
  if (UIAlertAction* cancel = alert->cancelAction()) press(alert, cancel);
  else if (alert->inPopover())
    send(alert->presentingViewController, "dismissViewControllerAnimated:completion:"_sel, true,
         static_cast<const BlockLiteral*>(nullptr));
}

void tapIcon(UIView* view) {
  if (homeState().editing) return;
  SBIcon* icon = static_cast<SBIconView*>(view)->icon;
  const std::string identifier = text(send<id>(icon, "applicationBundleID"_sel));
  launchIcon(icon, !identifier.empty() ? identifier : text(send<id>(icon, "displayName"_sel)));
}

constexpr Tap taps[] = {
    {"SBIconView", tapIcon},
    {"_UIAlertControllerActionView",
     [](UIView* view) { press(alertIn(view->window()), static_cast<UIAlertControllerActionView*>(view)->action); }},
    {"UIDimmingView", tapBeside},
    {"UITextField", [](UIView* view) { send<BOOL>(view, "becomeFirstResponder"_sel); }},
    {"SBUIActionView", [](UIView* view) { chooseRow(static_cast<SBUIActionView*>(view)->index); }},
    {"SBAppSwitcherItem",
     [](UIView* view) {
       homeState().switcherOpen = false;
       openApplication(text(view->accessibilityIdentifier));
     }},
    {"SBPowerDownCancelButton", [](UIView*) { homeState().poweringDown = false; }},
};

// The first of the view and those it stands in that a tap means something to; nothing comes of it without one.
void tapView(UIView* hit) {
  // What comes or goes takes no touches.
  const UIAlertController* alert = hit != nullptr ? alertIn(hit->window()) : nullptr;
  if (alert != nullptr && transitionOf(alert) != nullptr) return;
  for (UIView* view = hit; view != nullptr; view = view->superview)
    for (const auto& [className, act] : taps)
      if (isKind(view, objc_getClass(className))) return act(view);
  if (hit == systemWindow(SystemWindow::quickActions)) closeList();
  if (hit == systemWindow(SystemWindow::switcher)) homeState().switcherOpen = false;
}

SBIcon* iconAt(UIView* hit) {
  for (UIView* view = hit; view != nullptr; view = view->superview)
    if (isKind(view, "SBIconView"_cls)) return static_cast<SBIconView*>(view)->icon;
  return nullptr;
}

SBDownloadingIcon* requireDownload(const std::string& application) {
  SBIcon* icon = requireIcon(application);
  if (!isKind(icon, "SBDownloadingIcon"_cls)) throw Refused("\"" + application + "\" is not downloading");
  return static_cast<SBDownloadingIcon*>(icon);
}

}  // namespace

void touch(const std::string& icon) { touchIcon(icon); }

void swipe(const std::string& name, const std::vector<CGPoint>& samples) {
  const auto [icon, start] = reachIcon(name);
  dragIcon(icon, start, samples);
}

void forceTouch(const std::string& name) {
  SBIconView* view = viewOf(touchIcon(name));
  auto entries = platformActions().openQuickActions(view);
  if (!entries.empty()) openList() = {view, std::move(entries)};
}

void choose(const std::string& title) {
  if (!openList()) throw Refused("No quick-action list is open");
  const auto& entries = openList()->entries;
  const auto entry = std::find_if(entries.begin(), entries.end(), [&](const auto& e) { return e.title == title; });
  if (entry == entries.end()) throw Refused("The quick-action list has no entry \"" + title + "\"");
  const auto index = static_cast<std::size_t>(entry - entries.begin());
  touches::reach(quickActionRow(index), title);
  chooseRow(index);
}

const std::optional<QuickActions>& quickActions() { return openList(); }

void launch(const std::string& name) {
  if (homeState().editing) throw Refused("Icons do not open while the home screen is being edited");
  launchIcon(reachIcon(name).first, name);
}

void touchAt(CGPoint point) {
  const Ref<UIView> hit = touches::touched(point);
  tapView(hit);
}

void drag(CGPoint start, const std::vector<CGPoint>& samples) {
  const Ref<UIView> hit = touches::touched(start);
  if (SBIcon* icon = iconAt(hit)) dragIcon(icon, start, samples);
  if (hit && hit->window() == systemWindow(SystemWindow::icons)) turnPage(samples);
}

void openSwitcher() {
  closeList();
  homeState().switcherOpen = true;
}

void rotate(Orientation held) {
  setOrientation(held);
  springBoard()->window->frame = screenBounds();
  showIcons();
}

void pressHome() {
  closeList();
  homeState().editing = false;
  homeState().switcherOpen = false;
  homeState().poweringDown = false;
  homeState().frontmost.clear();
  homeState().banners.clear();
  showIcons();
}

void setEditing(bool on) {
  closeList();
  homeState().editing = on;
  showIcons();
}

void lock() {
  closeList();
  homeState().locked = true;
  homeState().editing = false;
  homeState().switcherOpen = false;
  homeState().banners.clear();
  platformActions().changeScreen({.off = true, .autoUnlock = false, .unlockSource = 0});
}

void unlock() {
  homeState().locked = false;
  homeState().screenOn = true;
  homeState().poweringDown = false;
  homeState().lockScreen.clear();
  showIcons();
}

void changeScreen(const ScreenChange& change) {
  closeList();
  platformActions().changeScreen(change);
}

void powerDown() {
  closeList();
  platformActions().showPowerDown();
}

void notify(const std::string& application, const std::string& text, const NotificationPlaces& places,
            std::uint8_t modal) {
  if (SBApplicationController::shared()->applicationWithBundleIdentifier(ns(application)) == nullptr)
    throw Refused("There is no application \"" + application + "\"");
  const auto request = make<NCNotificationRequest>("NCNotificationRequest"_cls);
  request->sectionIdentifier = ns(application);
  request->text = text;
  if (places.screen)
    send(sharedInstance("SBNCScreenController"_cls), "turnOnScreenForNotificationRequest:"_sel, request.get());
  if (places.sound)
    send(sharedInstance("SBNCSoundController"_cls), "playSoundForNotificationRequest:"_sel, request.get());
  if (places.lockScreen) platformActions().postToLockScreen(request);
  if (places.banner) platformActions().postBanner(request, modal);
}

void startDownload(const std::string& application) { addDownloadingIcon(application); }

RawBool askDownload(const std::string& application) {
  return send<RawBool>(requireDownload(application), "isDownloadingIcon"_sel);
}

void removeDownload(const std::string& application) {
  const Ref<SBDownloadingIcon> icon = requireDownload(application);
  send(icon, "uninstalledByUser"_sel);
}

}  // namespace sim::gestures
