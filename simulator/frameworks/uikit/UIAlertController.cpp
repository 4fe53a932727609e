#include "simulator/frameworks/uikit/UIAlertController.hpp"

#include <utility>

#include "simulator/frameworks/foundation/copying.hpp"
#include "simulator/frameworks/uikit/UIAlertControllerView.hpp"
#include "simulator/frameworks/uikit/UIDevice.hpp"
#include "simulator/frameworks/uikit/UIWindow.hpp"
#include "simulator/runtime/exception.hpp"

namespace sim {

UIAlertController* UIAlertController::alertController(Class cls, id title, id message, UIAlertControllerStyle style) {
  auto alert = make<UIAlertController>(cls);
  alert->title = copied(title);
  alert->message = copied(message);
  alert->preferredStyle = style;
  return autoreleased(alert);
}

UIAlertController::~UIAlertController() {
  // A view that is still somewhere has nothing to tell from now on.
  if (loadedView) static_cast<UIAlertControllerView*>(loadedView.get())->controller = nullptr;
}

void UIAlertController::loadView() { send(this, "setView:"_sel, static_cast<UIView*>(makeAlertView(this))); }

UIAlertAction* UIAlertController::cancelAction() const {
  for (UIAlertAction* action : actions)
    if (action->style == UIAlertActionStyle::cancel) return action;
  return nullptr;
}

bool UIAlertController::inPopover() const {
  return preferredStyle == UIAlertControllerStyle::actionSheet && idiom() == UIUserInterfaceIdiom::pad;
}

void UIAlertController::setTitle(id changed) {
  UIViewController::setTitle(changed);
  send(loadedView, "setNeedsLayout"_sel);
}

void UIAlertController::setMessage(id changed) {
  message = copied(changed);
  send(loadedView, "setNeedsLayout"_sel);
}

id UIAlertController::actionsArray() { return array({actions.begin(), actions.end()}); }

void UIAlertController::addAction(UIAlertAction* action) {
  if (action->style == UIAlertActionStyle::cancel && cancelAction() != nullptr)
    raiseException("NSInternalInconsistencyException",
                   "UIAlertController can only have one action with a style of UIAlertActionStyleCancel");
  actions.emplace_back(action);
  send(loadedView, "setNeedsLayout"_sel);
}

void UIAlertController::addTextField(const BlockLiteral* configurationHandler) {
  if (preferredStyle != UIAlertControllerStyle::alert)
    raiseException("NSInternalInconsistencyException",
                   "Text fields can only be added to an alert controller of style UIAlertControllerStyleAlert");
  textFields.push_back(make<UITextField>("UITextField"_cls));
  const BlockRef configure(configurationHandler);
  configure(textFields.back().get());
  send(loadedView, "setNeedsLayout"_sel);
}

id UIAlertController::textFieldsArray() {
  return textFields.empty() ? nullptr : array({textFields.begin(), textFields.end()});
}

id UIAlertController::popoverPresentationController() {
  if (!inPopover()) return nullptr;
  if (!popover) popover = make<UIPopoverPresentationController>("UIPopoverPresentationController"_cls);
  return popover;
}

UIAlertController* alertIn(const UIWindow* window) {
  UIViewController* controller = window->rootViewController;
  while (controller != nullptr && !isKind(controller, "UIAlertController"_cls))
    controller = controller->presentedViewController;
  return static_cast<UIAlertController*>(controller);
}

void requirePopoverAnchor(UIViewController* presented, UIViewController* presenter) {
  auto* popover = send<UIPopoverPresentationController*>(presented, "popoverPresentationController"_sel);
  if (popover == nullptr || popover->sourceView) return;
  raiseException(
      "NSGenericException",
      "Your application has presented a UIAlertController (" + text(presented) +
          ") of style UIAlertControllerStyleActionSheet from " + class_getName(presenter->isa) + " (" +
          text(presenter) +
          "). The modalPresentationStyle of a UIAlertController with this style is UIModalPresentationPopover. You "
          "must provide location information for this popover through the alert controller's "
          "popoverPresentationController. You must provide either a sourceView and sourceRect or a barButtonItem.  If "
          "this information is not known when you present the alert controller, you may provide it in the "
          "UIPopoverPresentationControllerDelegate method -prepareForPopoverPresentation.");
}

void press(UIAlertController* alert, UIAlertAction* action) {
  const auto* gone =
      makeBlock<void()>([handler = action->handler, pressed = Ref<UIAlertAction>(action)] { handler(pressed.get()); });
  send(alert->presentingViewController, "dismissViewControllerAnimated:completion:"_sel, true,
       reinterpret_cast<const BlockLiteral*>(gone));
}

void UIAlertController::forgetHandlers() {
  // A handler may hold this alert, or the last that holds it, so they go last.
  std::vector<BlockRef> handlers;
  for (UIAlertAction* action : actions) handlers.push_back(std::exchange(action->handler, {}));
}

void defineUIAlertController() {
  using Self = UIAlertController;
  ClassBuilder<Self, UIViewController>("UIAlertController", "UIViewController")
      .classMethod<&Self::alertController>("alertControllerWithTitle:message:preferredStyle:")
      .method<&Self::loadView>("loadView")
      .method<&Self::setTitle>("setTitle:")
      .getter<&Self::message>("message")
      .method<&Self::setMessage>("setMessage:")
      .getter<&Self::preferredStyle>("preferredStyle")
      .method<&Self::actionsArray>("actions")
      .method<&Self::addAction>("addAction:")
      .method<&Self::addTextField>("addTextFieldWithConfigurationHandler:")
      .method<&Self::textFieldsArray>("textFields")
      .method<&Self::popoverPresentationController>("popoverPresentationController")
      .add();
}

}  // namespace sim
