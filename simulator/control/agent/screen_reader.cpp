#include "simulator/control/agent/screen_reader.hpp"

#include "simulator/control/agent/view_reader.hpp"
#include "simulator/frameworks/uikit/UILabel.hpp"
#include "simulator/frameworks/uikit/UIWindow.hpp"
#include "simulator/homescreen/common/SBApplicationController.hpp"
#include "simulator/homescreen/common/gestures.hpp"
#include "simulator/homescreen/common/icons.hpp"
#include "simulator/homescreen/common/windows.hpp"
#include "simulator/runtime/clock.hpp"

namespace sim {
namespace {

std::string kindOf(SBIcon* icon) {
  static constexpr std::pair<const char*, const char*> kinds[] = {
      {"SBDownloadingIcon", "downloading"}, {"SBApplicationIcon", "application"}, {"SBBookmarkIcon", "bookmark"}};
  for (const auto& [cls, kind] : kinds)
    if (isKind(icon, objc_getClass(cls))) return kind;
  return {};
}

IconOnScreen readIcon(SBIcon* icon) {
  SBIconView* view = viewOf(icon);
  const UILabel* label = view->labelView;
  const auto page = rootFolder()->pageOf(view);
  return {text(send<id>(icon, "applicationBundleID"_sel)),
          kindOf(icon),
          label != nullptr ? text(label->text) : "",
          label == nullptr || label->hidden,
          view->badgeView ? text(view->badgeView->text) : "",
          text(send<id>(view, "accessibilityLabel"_sel)),
          readFrame(view->onScreen()),
          page ? std::optional(static_cast<int>(*page) + 1) : std::nullopt};
}

bool isShown(SystemWindow which) { return !systemWindow(which)->hidden; }

std::vector<NotificationOnScreen> readNotifications(SystemWindow place) {
  std::vector<NotificationOnScreen> seen;
  for (UIView* view : systemWindow(place)->subviews)
    if (isKind(view, "NCNotificationView"_cls))
      seen.push_back(
          {text(view->accessibilityIdentifier), text(static_cast<UILabel*>(view->subviews.front().get())->text)});
  return seen;
}

// The switcher names applications by their own name, which is not always their icon's.
std::vector<std::string> readSwitcher() {
  std::vector<std::string> titles;
  for (const auto& identifier : homeState().switcher) {
    id application =
        send<id>(SBApplicationController::shared(), "applicationWithBundleIdentifier:"_sel, ns(identifier));
    titles.push_back(text(send<id>(application, "displayName"_sel)));
  }
  return titles;
}

std::optional<QuickActionList> readQuickActions() {
  const auto& open = gestures::quickActions();
  if (!open) return std::nullopt;
  QuickActionList seen{text(send<id>(open->icon->icon, "applicationBundleID"_sel)), {}};
  for (std::size_t index = 0; index < open->entries.size(); ++index) {
    // A title, then what there is of a subtitle and a picture.
    std::vector<std::string> texts;
    std::string image;
    for (const ViewOnScreen& part : readView(quickActionRow(index)).subviews)
      if (part.image.empty()) texts.push_back(part.text);
      else image = part.image;
    texts.resize(2);
    seen.entries.push_back({texts[0], texts[1], image});
  }
  return seen;
}

}  // namespace

Screen readScreen() {
  updateWindows();
  Screen seen;
  seen.generation = homeState().generation == Generation::old ? "old" : "new";
  seen.on = homeState().screenOn;
  seen.locked = isShown(SystemWindow::lockScreen);
  seen.poweringDown = isShown(SystemWindow::powerSlider);
  seen.editing = send<BOOL>(platformActions().menuHost(), "isEditing"_sel);
  if (isShown(SystemWindow::application))
    seen.frontmost = text(systemWindow(SystemWindow::application)->subviews.front()->accessibilityIdentifier);
  for (SBIcon* icon : iconModel()->icons) seen.icons.push_back(readIcon(icon));
  seen.quickActions = readQuickActions();
  seen.banners = readNotifications(SystemWindow::banners);
  seen.lockScreen = readNotifications(SystemWindow::lockScreen);
  seen.switcher = readSwitcher();
  seen.passed = seconds(clock::passed());
  seen.orientation = orientation() == Orientation::portrait ? "portrait" : "landscape";
  seen.bounds = readFrame(screenBounds());
  seen.page = static_cast<int>(rootFolder()->currentPage()) + 1;
  seen.pages = static_cast<int>(rootFolder()->pages.size());
  for (UIWindow* window : visibleWindows()) {
    seen.tree.push_back(readWindow(window, nameOf(window)));
    if (!isSystemWindow(window)) seen.windows.push_back(seen.tree.back());
  }
  return seen;
}

}  // namespace sim
