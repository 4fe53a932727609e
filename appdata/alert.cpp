#include "appdata/alert.hpp"

#include "platform/CoreFoundation.hpp"
#include "platform/dispatch.hpp"

namespace {

// Whether a window has been opened for something that is not presented yet.
constinit bool presenting = false;

unsigned open() {
  // The slot alone keeps the window when this is done: whoever clears it takes the window off the screen.
  const AutoreleasePool pool;
  dropAlertWindow();
  UIWindow* window = UIWindow::withFrame(UIScreen::mainScreen()->bounds());
  setAlertWindow(window);
  const unsigned number = alertWindowNumber;
  window->setWindowLevel(UIWindowLevelAlert - 1.0);
  window->makeKeyAndVisible();
  window->setRootViewController(UIViewController::make());
  alertRootController.set(window->rootViewController());
  return number;
}

// Should the platform raise before an alert is presented, its window would lie empty over the home screen and take
// every touch. It goes without another word to the platform, which might raise again.
void letGoOfEmptyWindow() {
  if (presenting) {
    alertWindow.clear();
    alertRootController.clear();
  }
  presenting = false;
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

void setAlertWindow(UIWindow* window) {
  ++alertWindowNumber;
  alertWindow.set(window);
}

void dropAlertWindow() {
  const AutoreleasePool pool;
  alertWindow->setHidden(true);
  alertWindow.clear();
}

void closeAlertWindow() {
  dropAlertWindow();
  alertRootController.clear();
}

unsigned presentAlert(UIAlertController* alert, Popover popover, const Block<void()>* completion) {
  presenting = true;
  dispatch::onNextTurn([] { letGoOfEmptyWindow(); });
  const unsigned number = open();
  if (popover == Popover::anchored || (popover == Popover::anchoredWhereKnown && knowsPopovers())) anchorPopover(alert);
  alertRootController->present(alert, completion);
  presenting = false;
  return number;
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
