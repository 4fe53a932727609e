#include "simulator/homescreen/common/gestures.hpp"

#include <algorithm>
#include <cmath>

#include "simulator/frameworks/uikit/UITouch.hpp"
#include "simulator/homescreen/common/SBApplicationController.hpp"
#include "simulator/homescreen/common/SBDownloadingIcon.hpp"
#include "simulator/homescreen/common/icons.hpp"
#include "simulator/homescreen/common/shared_instance.hpp"

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
SBIcon* putFingerOn(const std::string& name) {
  if (home().locked) throw BadRequest("The device is locked");
  SBIcon* icon = requireIcon(name);
  send(platformActions().menuHost(), "_addTouchedIconView:"_sel, viewOf(icon));
  return icon;
}

// Whole points, so that a sample's travel is exactly what was asked for.
CGPoint centreOf(UIView* view) {
  const CGPoint origin = view->fromWindow({0, 0});
  return {std::round(-origin.x + view->bounds().size.width / 2),
          std::round(-origin.y + view->bounds().size.height / 2)};
}

SBDownloadingIcon* requireDownload(const std::string& application) {
  SBIcon* icon = requireIcon(application);
  if (!isKind(icon, "SBDownloadingIcon"_cls)) throw BadRequest("\"" + application + "\" is not downloading");
  return static_cast<SBDownloadingIcon*>(icon);
}

}  // namespace

void touch(const std::string& icon) { putFingerOn(icon); }

void swipe(const std::string& name, const std::vector<CGPoint>& samples) {
  SBIcon* icon = putFingerOn(name);
  const auto finger = make<UITouch>("UITouch"_cls);
  finger->view = viewOf(icon);
  finger->location = centreOf(viewOf(icon));
  for (const CGPoint& sample : samples) {
    finger->previousLocation = finger->location;
    finger->location = {finger->previousLocation.x + sample.x, finger->previousLocation.y + sample.y};
    send(platformActions().menuHost(), "icon:touchMoved:"_sel, icon, finger.get());
  }
}

void forceTouch(const std::string& name) {
  SBIcon* icon = putFingerOn(name);
  closeList();
  auto entries = platformActions().openQuickActions(viewOf(icon));
  if (!entries.empty()) openList() = {text(send<id>(icon, "applicationBundleID"_sel)), std::move(entries)};
}

void choose(const std::string& title) {
  if (!openList()) throw BadRequest("No quick-action list is open");
  const auto& entries = openList()->entries;
  const auto entry = std::find_if(entries.begin(), entries.end(), [&](const auto& e) { return e.title == title; });
  if (entry == entries.end()) throw BadRequest("The quick-action list has no entry \"" + title + "\"");
  platformActions().chooseQuickAction(static_cast<std::size_t>(entry - entries.begin()));
  openList().reset();
}

const std::optional<QuickActions>& quickActions() { return openList(); }

void launch(const std::string& name) {
  if (home().editing) throw BadRequest("Icons do not open while the home screen is being edited");
  SBIcon* icon = putFingerOn(name);
  closeList();
  platformActions().launch(icon, name);
}

void pressHome() {
  closeList();
  home().editing = false;
  home().poweringDown = false;
  home().frontmost.clear();
  home().banners.clear();
  showIcons();
}

void setEditing(bool on) {
  closeList();
  home().editing = on;
  showIcons();
}

void lock() {
  closeList();
  home().locked = true;
  home().editing = false;
  home().banners.clear();
  platformActions().changeScreen({.off = true, .autoUnlock = false, .unlockSource = 0});
}

void unlock() {
  home().locked = false;
  home().screenOn = true;
  home().poweringDown = false;
  home().lockScreen.clear();
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
    throw BadRequest("There is no application \"" + application + "\"");
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
