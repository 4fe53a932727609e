// The platform raises below the library: the exception passes to whoever above catches it, and the next event finds a
// home screen that works.
#include "tests/support/phone.hpp"

namespace {

using Json = nlohmann::json;

const std::string app = "com.example.test";
const std::string other = "com.example.notes";

/// What a driver does that reaches a method of the platform through the library.
struct Way {
  std::string method;                              ///< "CLASS SELECTOR" of what raises
  std::string verb;                                ///< the request that reaches it
  Json members = Json::object();                   ///< of that request
  std::function<void(test::Phone&)> prepare = {};  ///< may be empty
};

Json message(const std::string& target, const std::string& selector, const Json& arguments = Json::array()) {
  return {{"target", target}, {"selector", selector}, {"arguments", arguments}};
}
Json notification(const std::string& place, const std::string& id = other) {
  return {{"id", id}, {"text", "hello"}, {"places", {place}}};
}

void openList(test::Phone& phone) { phone.forceTouch(other); }
void startDownload(test::Phone& phone) {
  if (phone.screen().icon("com.example.coming") == nullptr) phone.startDownload("com.example.coming");
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
      {"SBApplication displayName", "screen", Json::object(), [](test::Phone& phone) { phone.launch(other).home(); }},
  };
  const std::vector<Way> old{
      {"SBIcon launchFromLocation:context:activationSettings:actions:", "launch", {{"id", other}}},
      {"SBIconController _addTouchedIconView:", "touch", {{"id", other}}},
      {"SBIconController icon:touchMoved:", "swipe", {{"direction", "up"}, {"id", other}, {"samples", {0, -20}}}},
      {"SBIconController "
       "appIconForceTouchController:shouldActivateApplicationShortcutItem:atIndex:forGestureRecognizer:",
       "choose",
       {{"title", "New Note"}},
       openList},
      {"SBUIAppIconForceTouchControllerDataProvider applicationShortcutItems", "force-touch", {{"id", other}}},
      {"SBUIAppIconForceTouchController state", "force-touch", {{"id", other}}},
      {"SBUIAction initWithTitle:subtitle:image:badgeView:handler:", "force-touch", {{"id", other}}},
      {"SBDashBoardViewController setInScreenOffMode:forAutoUnlock:", "screen-off"},
      {"SBDashBoardViewController setInScreenOffMode:forAutoUnlock:fromUnlockSource:", "screen-off", {{"source", 7}}},
      {"SBPowerDownController orderFront", "power-down"},
      {"SBDashBoardNotificationDispatcher postNotificationRequest:forCoalescedNotification:", "notify",
       notification("lock screen")},
      {"SBNotificationBannerDestination "
       "_postNotificationRequest:forCoalescedNotification:modal:sourceAction:completion:",
       "notify", notification("banner")},
      {"SBIconView initWithContentType:", "make-icon-view", {{"initialiser", "initWithContentType:"}}},
  };
  const std::vector<Way> recent{
      {"SBIcon launchFromLocation:context:", "launch", {{"id", other}}},
      {"SBHIconManager _addTouchedIconView:", "touch", {{"id", other}}},
      {"SBHIconManager icon:touchMoved:", "swipe", {{"direction", "up"}, {"id", other}, {"samples", {0, -20}}}},
      {"SBHIconManager iconView:shouldActivateApplicationShortcutItem:atIndex:",
       "choose",
       {{"title", "New Note"}},
       openList},
      {"SBHIconManager iconView:applicationShortcutItemsWithProposedItems:", "force-touch", {{"id", other}}},
      {"CSCoverSheetViewController viewWillAppear:", "screen-off"},
      {"SBPowerDownViewController powerDownViewWillAnimateIn:", "power-down"},
      {"CSNotificationDispatcher postNotificationRequest:", "notify", notification("lock screen")},
      {"SBNotificationBannerDestination postNotificationRequest:", "notify", notification("banner")},
      {"SBIconView initWithFrame:", "make-icon-view", {{"initialiser", "initWithFrame:"}}},
      {"SBIconView initWithConfigurationOptions:",
       "make-icon-view",
       {{"initialiser", "initWithConfigurationOptions:"}}},
      {"SBIconView initWithConfigurationOptions:listLayoutProvider:",
       "make-icon-view",
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
    phone.unlock().home().advance(1);
    phone.openMenu(app);
    ASSERT_TRUE(phone.showsAlert());
    EXPECT_EQ(phone.alert().title, "Test App");
    phone.tap("Cancel").advance(1);
  }
  std::string iconLookUp() const {
    return isOld() ? "SBIconModel applicationIconForBundleIdentifier:" : "SBIconModel leafIconForIdentifier:";
  }
  // Interposes these methods and starts.
  void boot(const std::vector<std::string>& methods) {
    phone.options().interposed = methods;
    phone.install({});
    phone.settings({"useForce=false"});
    phone.touch(app);
  }
  // The message raises by way of the method, leaves nothing on the screen and everything alive as it was, and works
  // afterwards.
  void expectToPass(const std::string& selector, const std::string& method) {
    SCOPED_TRACE(selector + " by " + method);
    phone.touch(app);
    const auto before = phone.live();
    phone.interpose(method, {{"do", "raise"}});
    EXPECT_TRUE(phone.raises("perform", {{"selector", selector}}));
    EXPECT_TRUE(phone.screen().windows.empty());
    // The button of the badge's alert keeps its alert until that has disappeared; one that never appeared stays.
    if (selector != "setBadges" || (method != presenting && method != showing)) {
      EXPECT_EQ(phone.live(), before);
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
  phone.options().interposed = methods;
  phone.install({});
  phone.unlock();
  for (const auto& way : ways) {
    SCOPED_TRACE(way.method);
    phone.settings({"useForce=true"});
    if (way.prepare) way.prepare(phone);
    phone.interpose(way.method, {{"do", "raise"}});
    EXPECT_TRUE(phone.raises(way.verb, way.members));
    phone.unlock().home().post("com.morvanel.sprigdial.isdownload");
    phone.settings({"useForce=false"});
    expectAWorkingHomeScreen();
    // And the same once more, without.
    if (way.verb == "download") continue;
    phone.settings({"useForce=true"});
    if (way.prepare) way.prepare(phone);
    EXPECT_FALSE(phone.raises(way.verb, way.members));
    phone.unlock().home();
  }
}

TEST_P(Exceptions, PassThroughEveryAddedMethodThatLooksTheApplicationUp) {
  const std::string method = "SBApplicationController applicationWithBundleIdentifier:";
  boot({method});
  sim::writeFile(phone.path("/var/mobile/Documents/Sprigdial/" + app) / "2020-01-01.00_00_00", "");
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
  sim::writeFile(phone.path("/var/mobile/Documents/Sprigdial/" + app) / "2020-01-01.00_00_00", "");
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
  const auto before = phone.lock().unlock().live();
  for (const auto& method : methods) {
    SCOPED_TRACE(method);
    phone.interpose(method, {{"do", "raise"}});
    EXPECT_TRUE(phone.raises("perform", {{"selector", "showLoadingView"}}));
    // An overlay, whole or not, stays until the screen locks.
    phone.lock().unlock();
    EXPECT_TRUE(phone.screen().windows.empty());
    EXPECT_EQ(phone.live(), before);
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
  phone.interpose(method, {{"do", "raise"}});
  EXPECT_TRUE(phone.raises("perform", {{"selector", "showAlertView"}}));
  phone.perform("showAlertView");
  EXPECT_EQ(phone.alert().title, "Test App");
  // And this one keeps the next one away, as ever.
  phone.tap("Cancel").perform("showAlertView");
  EXPECT_FALSE(phone.showsAlert());
}

// While the dialog reads the system's own name the stored ones are bypassed: not for longer.
TEST_P(Exceptions, OfTheNameLeaveNoNameBypassed) {
  phone.options().interposed = {"SBApplicationIcon displayNameForLocation:"};
  phone.install({});
  phone.rename(app, "Mine");
  ASSERT_EQ(phone.icon(app).spoken, "Mine");
  phone.openMenu(app);
  phone.tap("Rename App");
  phone.interpose("SBApplicationIcon displayNameForLocation:", {{"do", "raise"}});
  EXPECT_TRUE(phone.raises("advance", {{"seconds", 1}}));
  EXPECT_FALSE(phone.showsAlert());
  EXPECT_EQ(phone.icon(app).spoken, "Mine");
  phone.advance(1);
  phone.rename(app, "Mine again");
  EXPECT_EQ(phone.icon(app).label, "Mine again");
}

TEST_P(Exceptions, OfTheArchiversTaskStopTheFlowWithTheOverlayUp) {
  const std::string launch = "NSConcreteUnixTask launch";
  boot({launch});
  const auto data = phone.container(app);
  sim::writeFile(data / "Documents/letter", "first");
  phone.openMenu(app);
  phone.interpose(launch, {{"do", "raise"}});
  EXPECT_TRUE(phone.raises("tap", {{"title", "Backup Data"}}));
  ASSERT_EQ(phone.screen().windows.size(), 1U);
  EXPECT_FALSE(phone.showsAlert());
  EXPECT_EQ(phone.screen().windows[0].background, (sim::Color{0, 0, 0, 0.2}));
  phone.lock().unlock().advance(1);
  EXPECT_TRUE(phone.screen().windows.empty());
  // The next one runs.
  phone.openMenu(app);
  phone.tap("Backup Data");
  EXPECT_EQ(phone.alert().message, "BackUp data successfully");
}

TEST_P(Exceptions, InAButtonsHandlerLeaveNothingBehind) {
  const std::string launch = "NSConcreteUnixTask launch";
  boot({launch});
  sim::writeFile(phone.container(app) / "Documents/letter", "first");
  const auto backUp = [&](bool raising) {
    phone.openMenu(app);
    if (raising) phone.interpose(launch, {{"do", "raise"}});
    EXPECT_EQ(phone.raises("tap", {{"title", "Backup Data"}}), raising);
    phone.lock().unlock().advance(1);
  };
  backUp(false);
  backUp(true);
  const auto before = phone.live();
  for (int time = 0; time < 5; ++time) backUp(true);
  EXPECT_EQ(phone.live(), before);
}
