#include "menu/overlay.hpp"

#include "appdata/alert.hpp"

namespace menu {

void showLoadingView(MenuHost*, SEL) {
  // The slot alone keeps the window when this is done: whoever replaces it takes it off the screen.
  const AutoreleasePool pool;
  UIWindow* window = UIWindow::withFrame(UIScreen::mainScreen()->bounds());
  setAlertWindow(window);
  window->setWindowLevel(UIWindowLevelNormal);
  window->setBackgroundColor(UIColor::black()->withAlpha(0.2));
  window->makeKeyAndVisible();

  // A little right of and below the centre.
  const CGSize size = window->frame().size;
  auto* box = UIView::make("UIView"_cls, {{size.width * 0.5 - 50, size.height * 0.5 - 50}, {120, 120}});
  box->setBackgroundColor(UIColor::black());
  box->setAlpha(0.7);
  box->layer()->setCornerRadius(15);

  auto* label = UIView::make<UILabel>("UILabel"_cls, {{10, 90}, {90, 14}});
  label->setText("Please wait..."_ns);
  label->setTextColor(UIColor::white());
  label->setBackgroundColor(UIColor::clear());
  label->setFont(UIFont::system(14));
  label->setTextAlignment(NSTextAlignment::center);

  auto* indicator = UIView::make<UIActivityIndicatorView>("UIActivityIndicatorView"_cls, {{20, 20}, {80, 80}});
  indicator->setStyle(UIActivityIndicatorViewStyle::whiteLarge);
  indicator->startAnimating();

  box->addSubview(label);
  box->addSubview(indicator);
  box->setUserInteractionEnabled(false);
  window->addSubview(box);
}

}  // namespace menu
