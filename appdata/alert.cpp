#include "appdata/alert.hpp"

#include "platform/CoreFoundation.hpp"

void closeAlertWindow() {
  alertWindow->setHidden(true);
  alertWindow.clear();
  alertRootController.clear();
}

void openAlertWindow() {
  if (alertWindow) {
    alertWindow->setHidden(true);
    alertWindow.clear();
  }
  alertWindow.set(UIWindow::withFrame(UIScreen::mainScreen()->bounds()));
  alertWindow->setWindowLevel(UIWindowLevelAlert - 1.0);
  alertWindow->makeKeyAndVisible();
  alertWindow->setRootViewController(UIViewController::make());
  alertRootController.set(alertWindow->rootViewController());
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
