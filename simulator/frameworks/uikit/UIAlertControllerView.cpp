#include "simulator/frameworks/uikit/UIAlertControllerView.hpp"

#include <algorithm>
#include <utility>

#include "simulator/frameworks/uikit/UILabel.hpp"
#include "simulator/frameworks/uikit/UIScreen.hpp"

namespace sim {
namespace {

/// The measures of one style, in points.
struct Look {
  CGFloat row, width;       ///< a button's height; the whole width, or 0 for all of the screen's but the margins
  CGFloat padding;          ///< around the texts and the fields
  CGFloat title, message;   ///< font sizes
  CGFloat button;           ///< font size
  bool pairsStandTogether;  ///< two buttons beside one another
};
constexpr Look sheetLook = {57, 0, 16, 13, 13, 20, false};
constexpr Look popoverLook = {57, 304, 16, 13, 13, 20, false};
constexpr Look alertLook = {44, 270, 16, 17, 13, 17, true};
constexpr CGFloat margin = 8, corner = 13, fieldHeight = 30;

const Look& lookOf(const UIAlertController* alert) {
  if (alert->preferredStyle == UIAlertControllerStyle::alert) return alertLook;
  return alert->inPopover() ? popoverLook : sheetLook;
}

UIColor* white(CGFloat alpha) { return send<UIColor*>("UIColor"_cls, "colorWithWhite:alpha:"_sel, 1.0, alpha); }

/// The colours of buttons, by style.
UIColor* colorOf(UIAlertActionStyle style) {
  const bool warns = style == UIAlertActionStyle::destructive;
  return send<UIColor*>("UIColor"_cls, "colorWithRed:green:blue:alpha:"_sel, warns ? 1.0 : 0.0, warns ? 0.23 : 0.48,
                        warns ? 0.19 : 1.0, 1.0);
}

UIView* addPlate(UIView* superview, CGRect frame) {
  auto* plate = addView(superview, "UIView"_cls, frame);
  plate->backgroundColor = white(0.96);
  plate->layer()->cornerRadius = corner;
  return plate;
}

void addButton(UIView* superview, CGRect frame, UIAlertAction* action, const Look& look) {
  auto* button = addView<UIAlertControllerActionView>(superview, "_UIAlertControllerActionView"_cls, frame);
  button->action = action;
  addLabel(button, {{}, frame.size}, action->title, {.fontSize = look.button, .color = colorOf(action->style)});
}

/// The texts and the fields, one under the other. Gives their height, 0 when there are none.
CGFloat addHead(UIView* plate, UIAlertController* alert, const Look& look, CGFloat width) {
  CGFloat y = look.padding;
  const auto addText = [&](id text, CGFloat fontSize) {
    if (text == nullptr) return;
    const CGFloat height = textHeight(text, fontSize, width - 2 * look.padding);
    addLabel(plate, {{look.padding, y}, {width - 2 * look.padding, height}}, text, {.fontSize = fontSize});
    y += height;
  };
  addText(alert->title, look.title);
  addText(alert->message, look.message);
  for (UITextField* field : alert->textFields) {
    y += margin;
    field->frame = {{look.padding, y}, {width - 2 * look.padding, fieldHeight}};
    plate->attach(field);
    y += fieldHeight;
  }
  return y > look.padding ? y + look.padding : 0;
}

/// The buttons in the order in which they are shown: the cancel button is the last, and of two the first.
std::vector<UIAlertAction*> shownActions(const UIAlertController* alert, bool beside, bool withCancel) {
  std::vector<UIAlertAction*> shown(alert->actions.begin(), alert->actions.end());
  UIAlertAction* cancel = alert->cancelAction();
  if (cancel == nullptr) return shown;
  std::erase(shown, cancel);
  if (withCancel) shown.insert(beside ? shown.begin() : shown.end(), cancel);
  return shown;
}

/// Adds the buttons in a list that scrolls where it does not fit, and gives its height.
CGFloat addButtons(UIView* plate, const std::vector<UIAlertAction*>& actions, const Look& look, CGRect room,
                   bool beside) {
  const auto count = static_cast<CGFloat>(actions.size());
  const CGFloat whole = beside ? look.row : count * look.row;
  room.size.height = std::min(whole, room.size.height);
  auto* list = addView<UIScrollView>(plate, "UIScrollView"_cls, room);
  list->contentSize = {room.size.width, whole};
  const CGSize size{beside ? room.size.width / 2 : room.size.width, look.row};
  CGPoint origin;
  for (UIAlertAction* action : actions) {
    addButton(list, {origin, size}, action, look);
    origin = beside ? CGPoint{origin.x + size.width, 0} : CGPoint{0, origin.y + size.height};
  }
  return room.size.height;
}

/// Where in the window it stands, of that size.
CGPoint place(const UIAlertController* alert, CGRect window, CGSize size, CGFloat keyboard) {
  const CGSize spare{window.size.width - size.width, window.size.height - size.height};
  if (alert->inPopover() && alert->popover) {
    const UIView* source = alert->popover->sourceView;
    const CGPoint anchor = middle(alert->popover->sourceRect) - source->scrolled + source->onScreen().origin;
    const auto within = [](CGFloat at, CGFloat room) {
      return std::clamp(at, margin, std::max(margin, room - margin));
    };
    return {within(anchor.x - size.width / 2, spare.width), within(anchor.y - size.height / 2, spare.height)};
  }
  if (alert->preferredStyle == UIAlertControllerStyle::actionSheet)
    return {spare.width / 2, spare.height - std::max(margin, heldScreen().safeArea.bottom)};
  return {spare.width / 2, (spare.height - keyboard) / 2};
}

bool hasFocus(const UIAlertController* alert) {
  const UITextField* focused = focusedField();
  return std::any_of(alert->textFields.begin(), alert->textFields.end(),
                     [&](const auto& field) { return field.get() == focused; });
}

UIAlertControllerActionView* buttonIn(UIView* view, const UIAlertAction* action) {
  if (isKind(view, "_UIAlertControllerActionView"_cls)) {
    auto* button = static_cast<UIAlertControllerActionView*>(view);
    return button->action.get() == action ? button : nullptr;
  }
  for (UIView* subview : view->subviews)
    if (auto* button = buttonIn(subview, action)) return button;
  return nullptr;
}

}  // namespace

void UIAlertControllerView::layoutSubviews() {
  if (controller == nullptr || superview == nullptr) return;
  removeSubviews(this);
  const Look& look = lookOf(controller);
  const CGRect window{{}, superview->bounds().size};
  const UIEdgeInsets safe = heldScreen().safeArea;
  const bool isSheet = &look == &sheetLook;
  const bool beside = look.pairsStandTogether && controller->actions.size() == 2;
  const CGFloat width = look.width != 0 ? look.width : std::min(window.size.width, window.size.height) - 2 * margin;
  UIAlertAction* cancelApart = isSheet ? controller->cancelAction() : nullptr;

  auto* plate = addPlate(this, {{}, {width, 0}});
  const CGFloat head = addHead(plate, controller, look, width);
  if (!controller->textFields.empty() && !std::exchange(gaveFocus, true))
    send<BOOL>(controller->textFields.front(), "becomeFirstResponder"_sel);
  const CGFloat keyboard = hasFocus(controller) ? heldScreen().keyboard : 0;
  const CGFloat apart = cancelApart != nullptr ? margin + look.row : 0;
  const CGFloat room = window.size.height - safe.top - std::max(margin, safe.bottom) - margin - keyboard - head - apart;
  const auto actions = shownActions(controller, beside, !controller->inPopover() && cancelApart == nullptr);
  const CGFloat list = addButtons(plate, actions, look, {{0, head}, {width, std::max(room, look.row)}}, beside);
  plate->frame.size.height = head + list;
  if (cancelApart != nullptr)
    addButton(addPlate(this, {{0, head + list + margin}, {width, look.row}}), {{}, {width, look.row}}, cancelApart,
              look);
  const CGSize size{width, head + list + apart};
  frame = {place(controller, window, size, keyboard), size};
}

UIAlertControllerView* makeAlertView(UIAlertController* controller) {
  const auto view = make<UIAlertControllerView>("_UIAlertControllerView"_cls);
  view->controller = controller;
  return autoreleased(view);
}

UIAlertControllerActionView* buttonOf(UIAlertController* alert, const UIAlertAction* action) {
  return alert->loadedView ? buttonIn(alert->loadedView, action) : nullptr;
}

void defineUIAlertControllerView() {
  ClassBuilder<UIAlertControllerActionView, UIView>("_UIAlertControllerActionView", "UIView").add();
  ClassBuilder<UIAlertControllerView, UIView>("_UIAlertControllerView", "UIView")
      .method<&UIAlertControllerView::layoutSubviews>("layoutSubviews")
      .add();
}

}  // namespace sim
