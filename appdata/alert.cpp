#include "appdata/alert.hpp"

#include "platform/CoreFoundation.hpp"

// Each of these leaves the window to its slot alone: a pool of its own lets go of what it used.

void dropAlertWindow() {
  const AutoreleasePool pool;
  alertWindow->setHidden(true);
  alertWindow.clear();
}

void closeAlertWindow() {
  dropAlertWindow();
  alertRootController.clear();
}

void openAlertWindow() {
  const AutoreleasePool pool;
  dropAlertWindow();
  UIWindow* window = UIWindow::withFrame(UIScreen::mainScreen()->bounds());
  alertWindow.set(window);
  window->setWindowLevel(UIWindowLevelAlert - 1.0);
  window->makeKeyAndVisible();
  window->setRootViewController(UIViewController::make());
  alertRootController.set(window->rootViewController());
}

void anchorPopover(UIAlertController* sheet) {
  if (!UIDevice::currentDevice()->isPad()) return;
  UIView* view = alertRootController->view();
  UIPopoverPresentationController* popover = sheet->popoverPresentationController();
  popover->setSourceView(view);
  popover->setSourceRect(view->bounds());
  popover->setPermittedArrowDirections(0);
}

void anchorPopoverWhereKnown(UIAlertController* sheet) {
  constexpr double firstVersionWithPopovers = 1240.1;
  if (kCFCoreFoundationVersionNumber >= firstVersionWithPopovers) anchorPopover(sheet);
}

void presentAlert(UIAlertController* alert) {
  openAlertWindow();
  alertRootController->present(alert);
}

UIAlertAction* cancelAction() {
  return UIAlertAction::action("Cancel"_ns, UIAlertActionStyle::cancel, [] { closeAlertWindow(); });
}

void presentMessage(NSString* title, NSString* message, UIAlertActionStyle style) {
  auto* alert = UIAlertController::alertController(title, message, UIAlertControllerStyle::alert);
  alert->addAction(UIAlertAction::action("OK"_ns, style, [] { closeAlertWindow(); }));
  presentAlert(alert);
}
