#include "appdata/alert.hpp"

#include "platform/CoreFoundation.hpp"
#include "platform/dispatch.hpp"

namespace {

// Whether a window has been opened for something that is not presented yet.
constinit bool presenting = false;

void open() {
  // The slot alone keeps the window when this is done: whoever clears it takes the window off the screen.
  const AutoreleasePool pool;
  dropAlertWindow();
  UIWindow* window = UIWindow::withFrame(UIScreen::mainScreen()->bounds());
  alertWindow.set(window);
  window->setWindowLevel(UIWindowLevelAlert - 1.0);
  window->makeKeyAndVisible();
  window->setRootViewController(UIViewController::make());
  alertRootController.set(window->rootViewController());
}

// Lets a tablet show the sheet as a popover without an arrow over the whole window.
void anchorPopover(UIAlertController* sheet) {
  if (!UIDevice::currentDevice()->isPad()) return;
  UIView* view = alertRootController->view();
  UIPopoverPresentationController* popover = sheet->popoverPresentationController();
  popover->setSourceView(view);
  popover->setSourceRect(view->bounds());
  popover->setPermittedArrowDirections(0);
}

bool knowsPopovers() {
  constexpr double firstVersionWithPopovers = 1240.1;
  return kCFCoreFoundationVersionNumber >= firstVersionWithPopovers;
}

}  // namespace

void dropAlertWindow() {
  const AutoreleasePool pool;
  alertWindow->setHidden(true);
  alertWindow.clear();
}

void closeAlertWindow() {
  dropAlertWindow();
  alertRootController.clear();
}

void presentAlert(UIAlertController* alert, Popover popover, const Block<void()>* completion) {
  presenting = true;
  // Should the platform raise here, an empty window would lie over the home screen and take every touch.
  dispatch::onNextTurn([] {
    if (presenting) closeAlertWindow();
    presenting = false;
  });
  open();
  if (popover == Popover::anchored || (popover == Popover::anchoredWhereKnown && knowsPopovers())) anchorPopover(alert);
  alertRootController->present(alert, completion);
  presenting = false;
}

UIAlertAction* cancelAction() {
  return UIAlertAction::action("Cancel"_ns, UIAlertActionStyle::cancel, [] { closeAlertWindow(); });
}

void presentMessage(NSString* title, NSString* message, UIAlertActionStyle style) {
  auto* alert = UIAlertController::alertController(title, message, UIAlertControllerStyle::alert);
  alert->addAction(UIAlertAction::action("OK"_ns, style, [] { closeAlertWindow(); }));
  presentAlert(alert);
}

void confirm(NSString* title, NSString* message, const Block<void(UIAlertAction*)>* action) {
  auto* alert = UIAlertController::alertController(title, message, UIAlertControllerStyle::alert);
  alert->addAction(UIAlertAction::action("YES"_ns, UIAlertActionStyle::standard, action));
  alert->addAction(cancelAction());
  presentAlert(alert);
}
