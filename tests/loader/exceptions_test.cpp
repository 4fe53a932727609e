// The platform raises below the library: the exception passes to whoever above catches it, and the next event finds a
// home screen that works.
#include "tests/support/home.hpp"

namespace {

using Json = nlohmann::json;

const std::string app = "com.example.test";
const std::string other = "com.example.notes";

/// What a driver does that reaches a method of the platform through the library.
struct Way {
  std::string method;                             ///< "CLASS SELECTOR" of what raises
  std::string verb;                               ///< the request that reaches it
  Json members = Json::object();                  ///< of that request
  std::function<void(test::Home&)> prepare = {};  ///< may be empty
};

Json message(const std::string& target, const std::string& selector, const Json& arguments = Json::array()) {
  return {{"target", target}, {"selector", selector}, {"arguments", arguments}};
}
Json notification(const std::string& place, const std::string& id = other) {
  return {{"id", id}, {"text", "hello"}, {"places", {place}}};
}

void openList(test::Home& home) { home->forceTouch(other); }
void startDownload(test::Home& home) {
  if (home.screen().icon("com.example.coming") == nullptr) home->startDownload("com.example.coming");
}

/// The hooked methods: the platform's own implementation raises below each.
std::vector<Way> hooksOf(sim::Generation generation) {
  std::vector<Way> ways{
      {"SBDownloadingIcon isDownloadingIcon",
       "download",
       {{"what", "ask"}, {"id", "com.example.coming"}},
       startDownload},
      {"SBDownloadingIcon uninstalledByUser",
       "download",
       {{"what", "remove"}, {"id", "com.example.coming"}},
       startDownload},
      {"SpringBoard applicationDidFinishLaunching:", "perform",
       message("SpringBoard", "applicationDidFinishLaunching:", {0})},
      {"SBNCScreenController turnOnScreenForNotificationRequest:", "notify", notification("screen")},
      {"SBNCSoundController playSoundForNotificationRequest:", "notify", notification("sound")},
      {"SBIconView layoutSubviews", "home"},
      {"SBApplicationIcon displayName", "screen"},
      {"SBApplication displayName", "screen", Json::object(), [](test::Home& home) { home->launch(other).home(); }},
  };
  const std::vector<Way> old{
      {"SBIcon launchFromLocation:context:activationSettings:actions:", "launch", {{"id", other}}},
      {"SBIconController _addTouchedIconView:", "touch", {{"id", other}}},
      {"SBIconController icon:touchMoved:", "swipe", {{"id", other}, {"samples", {{0, -20}}}}},
      {"SBIconController "
       "appIconForceTouchController:shouldActivateApplicationShortcutItem:atIndex:forGestureRecognizer:",
       "choose",
       {{"title", "New Note"}},
       openList},
      {"SBUIAppIconForceTouchControllerDataProvider applicationShortcutItems", "forceTouch", {{"id", other}}},
      {"SBUIAppIconForceTouchController state", "forceTouch", {{"id", other}}},
      {"SBUIAction initWithTitle:subtitle:image:badgeView:handler:", "forceTouch", {{"id", other}}},
      {"SBDashBoardViewController setInScreenOffMode:forAutoUnlock:", "screenOff"},
      {"SBDashBoardViewController setInScreenOffMode:forAutoUnlock:fromUnlockSource:", "screenOff", {{"source", 7}}},
      {"SBPowerDownController orderFront", "powerDown"},
      {"SBDashBoardNotificationDispatcher postNotificationRequest:forCoalescedNotification:", "notify",
       notification("lock screen")},
      {"SBNotificationBannerDestination "
       "_postNotificationRequest:forCoalescedNotification:modal:sourceAction:completion:",
       "notify", notification("banner")},
      {"SBIconView initWithContentType:", "makeIconView", {{"initialiser", "initWithContentType:"}}},
  };
  const std::vector<Way> recent{
      {"SBIcon launchFromLocation:context:", "launch", {{"id", other}}},
      {"SBHIconManager _addTouchedIconView:", "touch", {{"id", other}}},
      {"SBHIconManager icon:touchMoved:", "swipe", {{"id", other}, {"samples", {{0, -20}}}}},
      {"SBHIconManager iconView:shouldActivateApplicationShortcutItem:atIndex:",
       "choose",
       {{"title", "New Note"}},
       openList},
      {"SBHIconManager iconView:applicationShortcutItemsWithProposedItems:", "forceTouch", {{"id", other}}},
      {"CSCoverSheetViewController viewWillAppear:", "screenOff"},
      {"SBPowerDownViewController powerDownViewWillAnimateIn:", "powerDown"},
      {"CSNotificationDispatcher postNotificationRequest:", "notify", notification("lock screen")},
      {"SBNotificationBannerDestination postNotificationRequest:", "notify", notification("banner")},
      {"SBIconView initWithFrame:", "makeIconView", {{"initialiser", "initWithFrame:"}}},
      {"SBIconView initWithConfigurationOptions:", "makeIconView", {{"initialiser", "initWithConfigurationOptions:"}}},
      {"SBIconView initWithConfigurationOptions:listLayoutProvider:",
       "makeIconView",
       {{"initialiser", "initWithConfigurationOptions:listLayoutProvider:"}}},
  };
  const auto& own = generation == sim::Generation::old ? old : recent;
  ways.insert(ways.end(), own.begin(), own.end());
  return ways;
}

class Exceptions : public test::Generations {
 protected:
  // An alert or sheet of the library comes up for the application, as ever.
  void expectAWorkingHomeScreen() {
    home->unlock().home().advance(1);
    home.openMenu(app);
    ASSERT_TRUE(home.showsAlert());
    EXPECT_EQ(home.alert().title, "Test App");
    home->tap("Cancel").advance(1);
  }
  std::string iconLookUp() const {
    return isOld() ? "SBIconModel applicationIconForBundleIdentifier:" : "SBIconModel leafIconForIdentifier:";
  }
  // Interposes these methods and starts.
  void boot(const std::vector<std::string>& methods) {
    home.options().interposed = methods;
    home.install({});
    home.settings({"useForce=false"});
    home->touch(app);
  }
  // The message raises by way of the method, leaves nothing on the screen and everything alive as it was, and works
  // afterwards.
  void expectToPass(const std::string& selector, const std::string& method) {
    SCOPED_TRACE(selector + " by " + method);
    home->touch(app);
    const auto before = home->live();
    home->interpose(method, {{"do", "raise"}});
    EXPECT_TRUE(home->raises("perform", {{"selector", selector}}));
    EXPECT_TRUE(home.screen().windows.empty());
    // The button of the badge's alert keeps its alert until that has disappeared; one that never appeared stays.
    if (selector != "setBadges" || (method != presenting && method != showing)) {
      EXPECT_EQ(home->live(), before);
    }
    expectAWorkingHomeScreen();
  }
  static constexpr const char* presenting = "UIViewController presentViewController:animated:completion:";
  static constexpr const char* showing = "UIWindow makeKeyAndVisible";
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, Exceptions, test::bothGenerations, test::generationName);

TEST_P(Exceptions, PassThroughEveryHook) {
  const auto ways = hooksOf(GetParam());
  std::vector<std::string> methods;
  for (const auto& way : ways) methods.push_back(way.method);
  home.options().interposed = methods;
  home.install({});
  home->unlock();
  for (const auto& way : ways) {
    SCOPED_TRACE(way.method);
    home.settings({"useForce=true"});
    if (way.prepare) way.prepare(home);
    home->interpose(way.method, {{"do", "raise"}});
    EXPECT_TRUE(home->raises(way.verb, way.members));
    home->unlock().home().post("com.morvanel.sprigdial.isdownload");
    home.settings({"useForce=false"});
    expectAWorkingHomeScreen();
    // And the same once more, without.
    if (way.verb == "download") continue;
    home.settings({"useForce=true"});
    if (way.prepare) way.prepare(home);
    EXPECT_FALSE(home->raises(way.verb, way.members));
    home->unlock().home();
  }
}

TEST_P(Exceptions, PassThroughEveryAddedMethodThatLooksTheApplicationUp) {
  const std::string method = "SBApplicationController applicationWithBundleIdentifier:";
  boot({method});
  sim::writeFile(home.path("/var/mobile/Documents/Sprigdial/" + app) / "2020-01-01.00_00_00", "");
  for (const auto* selector :
       {"showAlertView", "setBadges", "clearCaches", "clearCachesSucces", "deleteBackUp", "deleteBackUpSucces",
        "backUpData", "backUpDataSucces", "restoreData", "restoreDataSucces", "resetAppData", "resetAppDataSucces",
        "openInFilzaApp", "openInFilzaData"})
    expectToPass(selector, method);
}

TEST_P(Exceptions, PassThroughEveryAddedMethodThatPresents) {
  const std::vector<std::string> methods{
      "UIViewController presentViewController:animated:completion:", "UIWindow makeKeyAndVisible",
      "UIAlertController addAction:", "+UIAlertAction actionWithTitle:style:handler:"};
  boot(methods);
  sim::writeFile(home.path("/var/mobile/Documents/Sprigdial/" + app) / "2020-01-01.00_00_00", "");
  for (const auto& method : methods)
    for (const auto* selector :
         {"showAlertView", "setBadges", "clearCaches", "clearCachesSucces", "deleteBackUp", "deleteBackUpSucces",
          "backUpDataSucces", "restoreData", "restoreDataSucces", "resetAppData", "resetAppDataSucces"})
      expectToPass(selector, method);
}

TEST_P(Exceptions, PassThroughWhatLooksForTheIcon) {
  boot({iconLookUp()});
  for (const auto* selector : {"showAlertView", "clearBadges", "openApps"}) {
    if (isOld() && selector == std::string("openApps")) continue;  // asks for the icon by its leaf identifier
    expectToPass(selector, iconLookUp());
  }
}

TEST_P(Exceptions, PassThroughTheOverlay) {
  const std::vector<std::string> methods{showing, "UIView addSubview:", "UIActivityIndicatorView startAnimating"};
  boot(methods);
  const auto before = home->lock().unlock().live();
  for (const auto& method : methods) {
    SCOPED_TRACE(method);
    home->interpose(method, {{"do", "raise"}});
    EXPECT_TRUE(home->raises("perform", {{"selector", "showLoadingView"}}));
    // An overlay, whole or not, stays until the screen locks.
    home->lock().unlock();
    EXPECT_TRUE(home.screen().windows.empty());
    EXPECT_EQ(home->live(), before);
    expectAWorkingHomeScreen();
  }
}

TEST_P(Exceptions, PassThroughTheLaunchOfAnApplication) {
  const std::string method =
      isOld() ? "SBIcon launchFromLocation:context:activationSettings:actions:" : "SBIcon launchFromLocation:context:";
  boot({method});
  expectToPass("openApps", method);
}

// A menu that could not be presented must not keep the next one away.
TEST_P(Exceptions, OfAPresentationLeaveTheWayOpenForTheNextMenu) {
  const std::string method = "UIViewController presentViewController:animated:completion:";
  boot({method});
  home->interpose(method, {{"do", "raise"}});
  EXPECT_TRUE(home->raises("perform", {{"selector", "showAlertView"}}));
  home->perform("showAlertView");
  EXPECT_EQ(home.alert().title, "Test App");
  // And this one keeps the next one away, as ever.
  home->tap("Cancel").perform("showAlertView");
  EXPECT_FALSE(home.showsAlert());
}

// While the dialog reads the system's own name the stored ones are bypassed: not for longer.
TEST_P(Exceptions, OfTheNameLeaveNoNameBypassed) {
  home.options().interposed = {"SBApplicationIcon displayNameForLocation:"};
  home.install({});
  home.rename(app, "Mine");
  ASSERT_EQ(home.icon(app).spoken, "Mine");
  home.openMenu(app);
  home->tap("Rename App");
  home->interpose("SBApplicationIcon displayNameForLocation:", {{"do", "raise"}});
  EXPECT_TRUE(home->raises("advance", {{"seconds", 1}}));
  EXPECT_FALSE(home.showsAlert());
  EXPECT_EQ(home.icon(app).spoken, "Mine");
  home->advance(1);
  home.rename(app, "Mine again");
  EXPECT_EQ(home.icon(app).label, "Mine again");
}

TEST_P(Exceptions, OfTheArchiversTaskStopTheFlowWithTheOverlayUp) {
  const std::string launch = "NSConcreteUnixTask launch";
  boot({launch});
  const auto data = home.container(app);
  sim::writeFile(data / "Documents/letter", "first");
  home.openMenu(app);
  home->interpose(launch, {{"do", "raise"}});
  EXPECT_TRUE(home->raises("tap", {{"title", "Backup Data"}}));
  ASSERT_EQ(home.screen().windows.size(), 1U);
  EXPECT_FALSE(home.showsAlert());
  EXPECT_EQ(home.screen().windows[0].background, "0,0.2");
  home->lock().unlock().advance(1);
  EXPECT_TRUE(home.screen().windows.empty());
  // The next one runs.
  home.openMenu(app);
  home->tap("Backup Data");
  EXPECT_EQ(home.alert().message, "BackUp data successfully");
}

TEST_P(Exceptions, InAButtonsHandlerLeaveNothingBehind) {
  const std::string launch = "NSConcreteUnixTask launch";
  boot({launch});
  sim::writeFile(home.container(app) / "Documents/letter", "first");
  const auto backUp = [&](bool raising) {
    home.openMenu(app);
    if (raising) home->interpose(launch, {{"do", "raise"}});
    EXPECT_EQ(home->raises("tap", {{"title", "Backup Data"}}), raising);
    home->lock().unlock().advance(1);
  };
  backUp(false);
  backUp(true);
  const auto before = home->live();
  for (int time = 0; time < 5; ++time) backUp(true);
  EXPECT_EQ(home->live(), before);
}
