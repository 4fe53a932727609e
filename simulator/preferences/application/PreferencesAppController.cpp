#include "simulator/preferences/application/PreferencesAppController.hpp"

#include "simulator/frameworks/uikit/UIKeyboard.hpp"
#include "simulator/frameworks/uikit/UIScreen.hpp"
#include "simulator/preferences/application/PSUIPrefsListController.hpp"
#include "simulator/runtime/main_queue.hpp"

namespace sim {

void PreferencesAppController::applicationDidFinishLaunching(id) {
  const auto root = make<PSUIPrefsListController>("PSUIPrefsListController"_cls);
  send(root.get(), "setTitle:"_sel, ns("Settings"));
  navigation = Ref<UINavigationController>::adopt(
      send<UINavigationController*>(send<id>("UINavigationController"_cls, "alloc"_sel),
                                    "initWithRootViewController:"_sel, static_cast<UIViewController*>(root)));
  window = Ref<UIWindow>::adopt(
      send<UIWindow*>(send<id>("UIWindow"_cls, "alloc"_sel), "initWithFrame:"_sel, screenBounds()));
  send(window.get(), "setRootViewController:"_sel, static_cast<UIViewController*>(navigation));
  send(window.get(), "makeKeyAndVisible"_sel);
  atEndOfTurn(updateKeyboard);
}

PreferencesAppController* settingsApplication() {
  return static_cast<PreferencesAppController*>(send<id>("UIApplication"_cls, "sharedApplication"_sel));
}

void definePreferencesAppController() {
  using Self = PreferencesAppController;
  ClassBuilder<Self, UIApplication>("PreferencesAppController", "UIApplication")
      .method<&Self::applicationDidFinishLaunching>("applicationDidFinishLaunching:")
      .add();
}

}  // namespace sim
