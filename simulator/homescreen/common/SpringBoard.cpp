#include "simulator/homescreen/common/SpringBoard.hpp"

#include <algorithm>

#include "simulator/frameworks/uikit/UIScreen.hpp"
#include "simulator/homescreen/common/SBApplicationController.hpp"
#include "simulator/homescreen/common/icons.hpp"
#include "simulator/homescreen/common/windows.hpp"
#include "simulator/runtime/main_queue.hpp"

namespace sim {
namespace {

// The bundle identifier of an application that takes URLs of the scheme; empty when there is none.
std::string applicationForScheme(const std::string& scheme) {
  for (const auto& [identifier, application] : SBApplicationController::shared()->applications) {
    const auto& schemes = application->info->application.urlSchemes;
    if (std::find(schemes.begin(), schemes.end(), scheme) != schemes.end()) return identifier;
  }
  return {};
}

}  // namespace

void SpringBoard::applicationDidFinishLaunching(id) {
  window = systemWindow(SystemWindow::icons);
  window->frame = screenBounds();
  window->attach(rootFolder());
  send(window, "makeKeyAndVisible"_sel);
  setURLSchemeLookup([](const std::string& scheme) { return !applicationForScheme(scheme).empty(); });
  readInstalled();
  atEndOfTurn(updateWindows);
}

void SpringBoard::openURL(id url, id options, const BlockLiteral* completion) {
  const auto before = openedURLs().size();
  sendSuper(this, "UIApplication"_cls, "openURL:options:completionHandler:"_sel, url, options, completion);
  if (openedURLs().size() == before || !openedURLs().back().opened) return;
  const std::string scheme = text(send<id>(send<id>(url, "scheme"_sel), "lowercaseString"_sel));
  openApplication(applicationForScheme(scheme));
}

SpringBoard* springBoard() { return static_cast<SpringBoard*>(send<id>("UIApplication"_cls, "sharedApplication"_sel)); }

void defineSpringBoard() {
  ClassBuilder<SpringBoard, UIApplication>("SpringBoard", "UIApplication")
      .method<&SpringBoard::applicationDidFinishLaunching>("applicationDidFinishLaunching:")
      .method<&SpringBoard::openURL>("openURL:options:completionHandler:")
      .add();
}

}  // namespace sim
