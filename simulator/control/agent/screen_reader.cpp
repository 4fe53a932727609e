#include "simulator/control/agent/screen_reader.hpp"

#include "simulator/frameworks/uikit/UIActivityIndicatorView.hpp"
#include "simulator/frameworks/uikit/UIAlertControllerView.hpp"
#include "simulator/frameworks/uikit/UIDevice.hpp"
#include "simulator/frameworks/uikit/UILabel.hpp"
#include "simulator/frameworks/uikit/UIWindow.hpp"
#include "simulator/frameworks/uikit/transitions.hpp"
#include "simulator/homescreen/common/SBApplicationController.hpp"
#include "simulator/homescreen/common/gestures.hpp"
#include "simulator/homescreen/common/icons.hpp"
#include "simulator/homescreen/common/windows.hpp"
#include "simulator/runtime/clock.hpp"

namespace sim {
namespace {

std::string className(id object) { return object != nullptr ? class_getName(object_getClass(object)) : ""; }

Frame readFrame(const CGRect& rect) { return {rect.origin.x, rect.origin.y, rect.size.width, rect.size.height}; }

std::optional<Color> readColor(const UIColor* color) {
  if (color == nullptr) return std::nullopt;
  return Color{color->red, color->green, color->blue, color->alpha};
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

void readLabel(ViewOnScreen& seen, UIView* view) {
  constexpr double standardFontSize = 17;
  const auto* label = static_cast<UILabel*>(view);
  seen.text = text(label->text);
  seen.textColor = label->textColor ? readColor(label->textColor) : Color();
  seen.fontSize = label->font ? label->font->pointSize : standardFontSize;
  seen.textAlignment = label->textAlignment;
}

void readTextField(ViewOnScreen& seen, UIView* view) {
  seen.text = text(static_cast<UITextField*>(view)->text);
  seen.focused = focusedField() == view;
}

void readImage(ViewOnScreen& seen, UIView* view) {
  UIImage* image = static_cast<UIImageView*>(view)->image;
  seen.image = image != nullptr ? description(image) : seen.identifier;
}

void readIndicator(ViewOnScreen& seen, UIView* view) {
  const auto* indicator = static_cast<UIActivityIndicatorView*>(view);
  seen.spinning = indicator->animating;
  seen.spinnerStyle = indicator->activityIndicatorViewStyle;
}

/// What only views of that class have.
struct Detail {
  const char* className;
  void (*read)(ViewOnScreen& seen, UIView* view);
};
constexpr Detail details[] = {{"UILabel", readLabel},
                              {"UITextField", readTextField},
                              {"UIImageView", readImage},
                              {"UIActivityIndicatorView", readIndicator}};

ViewOnScreen readView(UIView* view) {
  ViewOnScreen seen;
  seen.className = className(view);
  seen.identifier = text(view->accessibilityIdentifier);
  seen.frame = readFrame(view->frame);
  seen.scrolledX = view->scrolled.x;
  seen.scrolledY = view->scrolled.y;
  seen.hidden = view->hidden;
  seen.userInteraction = view->userInteractionEnabled;
  seen.alpha = view->alpha;
  seen.cornerRadius = view->ownLayer ? view->ownLayer->cornerRadius : 0;
  seen.background = readColor(view->backgroundColor);
  for (const auto& [cls, read] : details)
    if (isKind(view, objc_getClass(cls))) read(seen, view);
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

AlertOnScreen readAlert(UIAlertController* alert, const UIWindow* window) {
  AlertOnScreen seen;
  seen.style = alert->preferredStyle == UIAlertControllerStyle::actionSheet ? "action sheet" : "alert";
  seen.title = textOrNone(alert->title);
  seen.message = textOrNone(alert->message);
  for (UIAlertAction* action : alert->actions)
    if (buttonOf(alert, action) != nullptr) seen.buttons.push_back(readButton(action));
  for (UITextField* field : alert->textFields) seen.textFields.push_back(readTextField(field));
  seen.popover = readPopover(alert, window);
  return seen;
}

double seconds(std::int64_t nanoseconds) { return static_cast<double>(nanoseconds) / 1e9; }

std::optional<TransitionOnScreen> readTransition(const UIAlertController* alert) {
  const Transition* running = transitionOf(alert);
  if (running == nullptr) return std::nullopt;
  const bool comes = running->kind == Transition::Kind::presentation;
  return TransitionOnScreen{comes ? "presentation" : "dismissal", seconds(running->start), seconds(running->end)};
}

WindowOnScreen readWindow(UIWindow* window) {
  WindowOnScreen seen;
  seen.name = nameOf(window);
  seen.level = window->windowLevel;
  seen.key = keyWindow() == window;
  seen.frame = readFrame(window->frame);
  seen.userInteraction = window->userInteractionEnabled;
  seen.alpha = window->alpha;
  seen.background = readColor(window->backgroundColor);
  for (UIView* view : window->subviews) seen.views.push_back(readView(view));
  if (UIAlertController* alert = alertIn(window)) {
    seen.alert = readAlert(alert, window);
    seen.transition = readTransition(alert);
  }
  return seen;
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
    seen.tree.push_back(readWindow(window));
    if (!isSystemWindow(window)) seen.windows.push_back(seen.tree.back());
  }
  return seen;
}

}  // namespace sim
