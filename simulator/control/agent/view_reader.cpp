#include "simulator/control/agent/view_reader.hpp"

#include <utility>

#include "simulator/frameworks/uikit/UIActivityIndicatorView.hpp"
#include "simulator/frameworks/uikit/UIAlertControllerView.hpp"
#include "simulator/frameworks/uikit/UIDevice.hpp"
#include "simulator/frameworks/uikit/UIImageView.hpp"
#include "simulator/frameworks/uikit/UILabel.hpp"
#include "simulator/frameworks/uikit/transitions.hpp"

namespace sim {
namespace {

std::string className(id object) { return object != nullptr ? class_getName(object_getClass(object)) : ""; }

std::optional<Color> readColor(const UIColor* color) {
  if (color == nullptr) return std::nullopt;
  return Color{color->red, color->green, color->blue, color->alpha};
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

std::optional<TransitionOnScreen> readTransition(const UIAlertController* alert) {
  const Transition* running = transitionOf(alert);
  if (running == nullptr) return std::nullopt;
  const bool comes = running->kind == Transition::Kind::presentation;
  return TransitionOnScreen{comes ? "presentation" : "dismissal", seconds(running->start), seconds(running->end)};
}

}  // namespace

Frame readFrame(const CGRect& rect) { return {rect.origin.x, rect.origin.y, rect.size.width, rect.size.height}; }

double seconds(std::int64_t nanoseconds) { return static_cast<double>(nanoseconds) / 1e9; }

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

WindowOnScreen readWindow(UIWindow* window, std::string name) {
  WindowOnScreen seen;
  seen.name = std::move(name);
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

}  // namespace sim
