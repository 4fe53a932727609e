#include "simulator/homescreen/common/windows.hpp"

#include <time.h>

#include <algorithm>
#include <array>
#include <utility>

#include "simulator/frameworks/uikit/UIAlertController.hpp"
#include "simulator/frameworks/uikit/UIKeyboard.hpp"
#include "simulator/frameworks/uikit/UILabel.hpp"
#include "simulator/homescreen/common/SBApplicationController.hpp"
#include "simulator/homescreen/common/gestures.hpp"
#include "simulator/homescreen/common/icons.hpp"
#include "simulator/homescreen/common/measures.hpp"
#include "simulator/runtime/clock.hpp"

namespace sim {
namespace {

constexpr CGFloat margin = 8;

UIColor* grey(CGFloat white, CGFloat alpha = 1) {
  return send<UIColor*>("UIColor"_cls, "colorWithWhite:alpha:"_sel, white, alpha);
}

std::string timeOfDay() {
  const auto seconds = static_cast<time_t>(clock::now() / 1'000'000'000);
  tm parts{};
  localtime_r(&seconds, &parts);
  std::array<char, 8> shown{};
  strftime(shown.data(), shown.size(), "%H:%M", &parts);
  return shown.data();
}

CGFloat top() { return std::max(margin, heldScreen().safeArea.top); }

// A notification, wherever it is shown: whose it is and what it says.
void addNotification(UIView* superview, CGRect frame, const DeliveredNotification& notification) {
  auto* view = addView(superview, "NCNotificationView"_cls, frame);
  view->backgroundColor = grey(0.95);
  view->layer()->cornerRadius = 13;
  view->accessibilityIdentifier = ns(notification.id);
  addLabel(view, inset({{}, frame.size}, margin, margin), ns(notification.text), {.fontSize = 15, .alignment = 0});
}

void fillApplication(UIWindow* window) {
  const auto& known = SBApplicationController::shared()->applications;
  const auto open = known.find(homeState().frontmost);
  auto* view = addView(window, "SBApplicationView"_cls, window->bounds());
  view->backgroundColor = grey(1);
  view->accessibilityIdentifier = ns(homeState().frontmost);
  if (open != known.end())
    addLabel(view, inset(view->bounds(), margin, top()), ns(open->second->info->application.name));
}

void addQuickAction(UIView* list, CGRect frame, const QuickActionEntry& entry, std::size_t index) {
  auto* row = addView<SBUIActionView>(list, "SBUIActionView"_cls, frame);
  row->index = index;
  const CGFloat picture = 24, half = (frame.size.height - 2 * margin) / 2, left = 2 * margin + picture;
  const CGFloat width = frame.size.width - left - margin;
  const bool one = entry.subtitle.empty();
  addLabel(row, {{left, margin}, {width, one ? 2 * half : half}}, ns(entry.title), {.alignment = 0});
  if (!one) addLabel(row, {{left, margin + half}, {width, half}}, ns(entry.subtitle), {.fontSize = 13, .alignment = 0});
  if (entry.image.empty()) return;
  auto* image =
      addView<UIImageView>(row, "UIImageView"_cls, {{margin, (frame.size.height - picture) / 2}, {picture, picture}});
  image->accessibilityIdentifier = ns(entry.image);
}

// Below the icon, or above it where there is more room.
void fillQuickActions(UIWindow* window) {
  window->backgroundColor = grey(0, 0.4);
  const auto& open = gestures::quickActions();
  if (!open) return;
  const CGRect icon = open->icon->onScreen();
  const CGSize row{measures().quickActionWidth, measures().quickActionRow};
  const CGSize size{row.width, row.height * static_cast<CGFloat>(open->entries.size())};
  const CGSize screen = window->frame.size;
  const bool below = icon.origin.y + icon.size.height / 2 < screen.height / 2;
  const CGPoint origin{
      std::clamp(icon.origin.x, margin, screen.width - size.width - margin),
      std::clamp(below ? icon.origin.y + icon.size.height + margin : icon.origin.y - size.height - margin, margin,
                 std::max(margin, screen.height - size.height - margin))};
  auto* list = addView(window, "SBUIActionListView"_cls, {origin, size});
  list->backgroundColor = grey(0.95);
  list->layer()->cornerRadius = 13;
  for (std::size_t index = 0; index < open->entries.size(); ++index)
    addQuickAction(list, {{0, row.height * static_cast<CGFloat>(index)}, row}, open->entries[index], index);
}

void fillStatusBar(UIWindow* window) {
  window->frame.size.height = heldScreen().safeArea.top;
  window->userInteractionEnabled = false;
  addLabel(window, window->bounds(), ns(timeOfDay()), {.fontSize = 12});
}

void fillSwitcher(UIWindow* window) {
  constexpr CGFloat step = 88, scale = 0.6;
  window->backgroundColor = grey(0, 0.6);
  const CGSize screen = window->frame.size;
  CGPoint origin{margin, screen.height * (1 - scale) / 2};
  for (const auto& identifier : homeState().switcher) {
    auto* card = addView(window, "SBAppSwitcherItem"_cls, {origin, {screen.width * scale, screen.height * scale}});
    card->backgroundColor = grey(1);
    card->accessibilityIdentifier = ns(identifier);
    origin.x += step;
  }
}

void fillLockScreen(UIWindow* window) {
  constexpr CGFloat clockHeight = 80, firstNotification = 200, notification = 64;
  window->backgroundColor = grey(0.1);
  const CGFloat width = window->frame.size.width;
  addLabel(window, {{0, top() + 2 * margin}, {width, clockHeight}}, ns(timeOfDay()),
           {.fontSize = 76, .color = grey(1)});
  CGFloat y = firstNotification;
  for (const auto& delivered : homeState().lockScreen) {
    addNotification(window, {{margin, y}, {width - 2 * margin, notification}}, delivered);
    y += notification + margin;
  }
}

// One over the other: only the latest is seen.
void fillBanners(UIWindow* window) {
  window->frame = {{margin, top()}, {window->frame.size.width - 2 * margin, measures().banner}};
  for (const auto& delivered : homeState().banners) addNotification(window, window->bounds(), delivered);
}

void fillPowerSlider(UIWindow* window) {
  constexpr CGFloat width = 280, height = 72, cancel = 64;
  window->backgroundColor = grey(0, 0.6);
  const CGSize screen = window->frame.size;
  auto* slider = addView(window, "_UIActionSlider"_cls, {{(screen.width - width) / 2, 2 * top()}, {width, height}});
  slider->backgroundColor = grey(1, 0.3);
  slider->layer()->cornerRadius = height / 2;
  addLabel(slider, slider->bounds(), ns("slide to power off"));
  auto* button = addView(window, "SBPowerDownCancelButton"_cls,
                         {{(screen.width - cancel) / 2, screen.height - 2 * cancel}, {cancel, cancel}});
  addLabel(button, button->bounds(), ns("Cancel"), {.fontSize = 13, .color = grey(1)});
}

/// One of the windows.
struct Row {
  CGFloat level;
  const char* name;  ///< what a person calls what it shows
  bool (*isShown)();
  void (*fill)(
      UIWindow* window);  ///< puts everything into the empty window, which is as large as the screen; may be nil
};

constexpr Row rows[] = {
    {-2, "the home screen", [] { return true; }, nullptr},
    {-1, "the application", [] { return !homeState().frontmost.empty(); }, fillApplication},
    {900, "the quick-action list", [] { return gestures::quickActions().has_value(); }, fillQuickActions},
    {1000, "the status bar", [] { return heldScreen().safeArea.top > 0; }, fillStatusBar},
    {1040, "the application switcher", [] { return homeState().switcherOpen; }, fillSwitcher},
    {1050, "the lock screen", [] { return homeState().locked; }, fillLockScreen},
    {1060, "a banner", [] { return !homeState().banners.empty(); }, fillBanners},
    {2100, "the power slider", [] { return homeState().poweringDown; }, fillPowerSlider},
};

std::array<Slot<UIWindow>, std::size(rows)>& windows() {
  static std::array<Slot<UIWindow>, std::size(rows)> all;
  return all;
}

const Row& rowOf(SystemWindow which) { return rows[static_cast<std::size_t>(which)]; }

std::optional<SystemWindow> which(const UIWindow* window) {
  for (std::size_t row = 0; row < std::size(rows); ++row)
    if (windows()[row].holds(window)) return static_cast<SystemWindow>(row);
  return std::nullopt;
}

void update(SystemWindow each) {
  const Row& row = rowOf(each);
  UIWindow* window = systemWindow(each);
  if (row.fill != nullptr) {
    removeSubviews(window);
    window->frame = screenBounds();
    row.fill(window);
  }
  window->setHidden(!row.isShown());
}

std::string nameOfAlert(const UIAlertController* alert) {
  const std::string kind = alert->preferredStyle == UIAlertControllerStyle::actionSheet ? "the sheet" : "the alert";
  const std::string title = text(alert->title ? alert->title : alert->message);
  return title.empty() ? kind : kind + " \"" + title + "\"";
}

}  // namespace

UIWindow* systemWindow(SystemWindow which) {
  auto& window = windows()[static_cast<std::size_t>(which)];
  if (!window) {
    window.set(make<UIWindow>("SBWindow"_cls));
    window->windowLevel = rowOf(which).level;
    window->accessibilityIdentifier = ns(rowOf(which).name);
  }
  return window.get();
}

bool isSystemWindow(const UIWindow* window) { return which(window).has_value() || isKeyboardWindow(window); }

SBUIActionView* quickActionRow(std::size_t index) {
  updateWindows();
  const UIView* list = systemWindow(SystemWindow::quickActions)->subviews.front();
  return static_cast<SBUIActionView*>(list->subviews.at(index).get());
}

void updateWindows() {
  for (std::size_t row = 0; row < std::size(rows); ++row) update(static_cast<SystemWindow>(row));
  updateKeyboard();
}

std::string nameOf(const UIWindow* window) {
  if (const auto known = which(window)) {
    const std::string name = rowOf(*known).name;
    return known == SystemWindow::application ? name + " " + homeState().frontmost : name;
  }
  if (isKeyboardWindow(window)) return "the keyboard";
  const UIAlertController* alert = alertIn(window);
  if (alert != nullptr) return nameOfAlert(alert);
  return window->backgroundColor ? "the overlay" : "an empty window";
}

void defineSystemWindows() {
  ClassBuilder<UIWindow, UIWindow>("SBWindow", "UIWindow").add();
  ClassBuilder<SBUIActionView, UIView>("SBUIActionView", "UIView").add();
  for (const char* name : {"NCNotificationView", "SBApplicationView", "SBUIActionListView", "SBAppSwitcherItem",
                           "_UIActionSlider", "SBPowerDownCancelButton"})
    ClassBuilder<UIView, UIView>(name, "UIView").add();
}

}  // namespace sim
