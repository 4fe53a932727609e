#include "simulator/control/agent/screen_reader.hpp"

#include <cstdio>
#include <utility>

#include "simulator/frameworks/uikit/UIActivityIndicatorView.hpp"
#include "simulator/frameworks/uikit/UIDevice.hpp"
#include "simulator/frameworks/uikit/UILabel.hpp"
#include "simulator/frameworks/uikit/UIWindow.hpp"
#include "simulator/homescreen/common/SBApplicationController.hpp"
#include "simulator/homescreen/common/SpringBoard.hpp"
#include "simulator/homescreen/common/gestures.hpp"
#include "simulator/homescreen/common/icons.hpp"

namespace sim {
namespace {

std::string className(id object) { return object != nullptr ? class_getName(object_getClass(object)) : ""; }

Frame readFrame(const CGRect& rect) { return {rect.origin.x, rect.origin.y, rect.size.width, rect.size.height}; }

std::string readColor(const UIColor* color) {
  if (color == nullptr) return {};
  char tone[64];
  std::snprintf(tone, sizeof tone, "%g,%g", color->white, color->alpha);
  return tone;
}

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
  return {text(send<id>(icon, "applicationBundleID"_sel)),
          kindOf(icon),
          text(label->text),
          label->hidden,
          text(send<id>(icon, "badgeNumberOrString"_sel)),
          text(send<id>(view, "accessibilityLabel"_sel))};
}

void readLabel(ViewOnScreen& seen, UILabel* label) {
  constexpr double standardFontSize = 17;
  seen.text = text(label->text);
  seen.textColor = label->textColor ? readColor(label->textColor) : "0,1";
  seen.fontSize = label->font ? label->font->pointSize : standardFontSize;
  seen.textAlignment = label->textAlignment;
}

ViewOnScreen readView(UIView* view) {
  ViewOnScreen seen;
  seen.className = className(view);
  seen.frame = readFrame(view->frame);
  seen.hidden = view->hidden;
  seen.userInteraction = view->userInteractionEnabled;
  seen.alpha = view->alpha;
  seen.cornerRadius = view->ownLayer ? view->ownLayer->cornerRadius : 0;
  seen.background = readColor(view->backgroundColor);
  if (isKind(view, "UILabel"_cls)) readLabel(seen, static_cast<UILabel*>(view));
  if (isKind(view, "UIActivityIndicatorView"_cls)) {
    const auto* indicator = static_cast<UIActivityIndicatorView*>(view);
    seen.spinning = indicator->animating;
    seen.spinnerStyle = indicator->activityIndicatorViewStyle;
  }
  for (UIView* subview : view->subviews) seen.subviews.push_back(readView(subview));
  return seen;
}

ButtonOnScreen readButton(UIAlertAction* action) {
  static constexpr const char* styles[] = {"default", "cancel", "destructive"};
  return {text(action->title), styles[static_cast<std::size_t>(action->style)]};
}

TextFieldOnScreen readTextField(UITextField* field) {
  return {text(field->text),
          text(field->placeholder),
          field->keyboardType == UIKeyboardType::numberPad ? "number pad" : "default",
          field->clearButtonMode == UITextFieldViewMode::always ? "always" : "never",
          field->returnKeyType == UIReturnKeyType::done ? "done" : "default",
          className(field->delegate)};
}

std::optional<Popover> readPopover(const UIAlertController* alert, const UIWindow* window) {
  const UIPopoverPresentationController* popover = alert->popover;
  if (idiom() != UIUserInterfaceIdiom::pad || popover == nullptr) return std::nullopt;
  UIView* source = popover->sourceView;
  return Popover{className(source), source != nullptr && source == window->rootViewController->loadedView.get(),
                 readFrame(popover->sourceRect), popover->permittedArrowDirections};
}

// What the window's root controller presents, or what that presents in its turn.
UIAlertController* alertOf(const UIWindow* window) {
  UIViewController* controller = window->rootViewController;
  while (controller != nullptr && !isKind(controller, "UIAlertController"_cls))
    controller = controller->presentedViewController;
  return static_cast<UIAlertController*>(controller);
}

AlertOnScreen readAlert(UIAlertController* alert, const UIWindow* window) {
  AlertOnScreen seen;
  seen.style = alert->preferredStyle == UIAlertControllerStyle::actionSheet ? "action sheet" : "alert";
  seen.title = textOrNone(alert->title);
  seen.message = textOrNone(alert->message);
  for (UIAlertAction* action : alert->actions) seen.buttons.push_back(readButton(action));
  for (UITextField* field : alert->textFields) seen.textFields.push_back(readTextField(field));
  seen.popover = readPopover(alert, window);
  return seen;
}

WindowOnScreen readWindow(UIWindow* window) {
  WindowOnScreen seen;
  seen.level = window->windowLevel;
  seen.key = keyWindow() == window;
  seen.frame = readFrame(window->frame);
  seen.background = readColor(window->backgroundColor);
  for (UIView* view : window->subviews) seen.views.push_back(readView(view));
  if (UIAlertController* alert = alertOf(window)) seen.alert = readAlert(alert, window);
  return seen;
}

std::vector<UIWindow*> windowsAboveHomeScreen() {
  auto windows = visibleWindows();
  std::erase(windows, springBoard()->window.get());
  return windows;
}

std::vector<NotificationOnScreen> readNotifications(const std::vector<DeliveredNotification>& delivered) {
  std::vector<NotificationOnScreen> seen;
  seen.reserve(delivered.size());
  for (const auto& [id, text] : delivered) seen.push_back({id, text});
  return seen;
}

// The switcher names applications by their own name, which is not always their icon's.
std::vector<std::string> readSwitcher() {
  std::vector<std::string> titles;
  for (const auto& identifier : home().switcher) {
    id application =
        send<id>(SBApplicationController::shared(), "applicationWithBundleIdentifier:"_sel, ns(identifier));
    titles.push_back(text(send<id>(application, "displayName"_sel)));
  }
  return titles;
}

std::optional<QuickActionList> readQuickActions() {
  const auto& open = gestures::quickActions();
  if (!open) return std::nullopt;
  QuickActionList seen{open->icon, {}};
  for (const auto& [title, subtitle, image] : open->entries) seen.entries.push_back({title, subtitle, image});
  return seen;
}

}  // namespace

Screen readScreen() {
  Screen seen;
  seen.generation = home().generation == Generation::old ? "old" : "new";
  seen.on = home().screenOn;
  seen.locked = home().locked;
  seen.poweringDown = home().poweringDown;
  seen.editing = send<BOOL>(platformActions().menuHost(), "isEditing"_sel);
  seen.frontmost = home().frontmost;
  for (SBIcon* icon : iconModel()->icons) seen.icons.push_back(readIcon(icon));
  seen.quickActions = readQuickActions();
  for (UIWindow* window : windowsAboveHomeScreen()) seen.windows.push_back(readWindow(window));
  seen.banners = readNotifications(home().banners);
  seen.lockScreen = readNotifications(home().lockScreen);
  seen.switcher = readSwitcher();
  seen.events = std::exchange(home().events, {});
  return seen;
}

UIAlertController* topAlert() {
  const auto windows = windowsAboveHomeScreen();
  return windows.empty() ? nullptr : alertOf(windows.back());
}

}  // namespace sim
