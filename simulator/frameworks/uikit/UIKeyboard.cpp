#include "simulator/frameworks/uikit/UIKeyboard.hpp"

#include "simulator/frameworks/uikit/UIScreen.hpp"
#include "simulator/frameworks/uikit/UITextField.hpp"
#include "simulator/frameworks/uikit/UIWindow.hpp"

namespace sim {
namespace {

constexpr CGFloat aboveEverything = 10'000'000;

UIWindow* keyboardWindow() {
  static Slot<UIWindow> window;
  if (!window) {
    window.set(make<UIWindow>("UIRemoteKeyboardWindow"_cls));
    window->windowLevel = aboveEverything;
    window->backgroundColor = send<UIColor*>("UIColor"_cls, "colorWithWhite:alpha:"_sel, 0.82, 1.0);
    addView(window.get(), "UIKeyboard"_cls, {});
  }
  return window.get();
}

}  // namespace

bool isKeyboardWindow(const UIWindow* window) { return keyboardWindow() == window; }

void updateKeyboard() {
  const UITextField* field = focusedField();
  UIWindow* window = keyboardWindow();
  window->setHidden(field == nullptr);
  if (field == nullptr) return;
  const auto& screen = heldScreen();
  const CGSize size{screen.size.width, screen.keyboard};
  window->frame = {{0, screen.size.height - size.height}, size};
  UIView* keys = window->subviews.front();
  keys->frame = {{}, size};
  keys->accessibilityIdentifier = ns(field->keyboardType == UIKeyboardType::numberPad ? "number pad" : "default");
}

void defineUIKeyboard() {
  ClassBuilder<UIWindow, UIWindow>("UIRemoteKeyboardWindow", "UIWindow").add();
  ClassBuilder<UIView, UIView>("UIKeyboard", "UIView").add();
}

}  // namespace sim
