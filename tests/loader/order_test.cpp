// In which order, and with what in the hand, the library asks the platform: told by what happens in between.
#include <algorithm>

#include "tests/support/home.hpp"

namespace {

using Json = nlohmann::json;

const std::string app = "com.example.test";
const std::string other = "com.example.notes";

/// Requests that are performed while the platform's method is on its way.
Json during(const std::vector<Json>& requests) { return {{"do", "perform"}, {"requests", requests}}; }

// The settings pane has written its file, and its word arrives.
const Json settingsArrive{{"verb", "post"}, {"name", "com.morvanel.sprigdial.preferencechanged"}};

class Order : public test::Generations {
 protected:
  std::string iconLookUp() const {
    return isOld() ? "SBIconModel applicationIconForBundleIdentifier:" : "SBIconModel leafIconForIdentifier:";
  }
  // Where in the log such a message stands first.
  static std::ptrdiff_t place(const std::vector<sim::HomeScreen::Call>& calls, const std::string& className,
                              const std::string& selector) {
    const auto found = std::find_if(calls.begin(), calls.end(), [&](const auto& call) {
      return call.className == className && call.selector == selector;
    });
    EXPECT_NE(found, calls.end()) << className << " " << selector;
    return found - calls.begin();
  }
  std::vector<std::string> entries() {
    std::vector<std::string> titles;
    const auto list = home.screen().quickActions;
    for (const auto& entry : list ? list->entries : std::vector<sim::QuickAction>{}) titles.push_back(entry.title);
    return titles;
  }
};
class OrderOld : public test::OldGeneration {};
class OrderNew : public test::NewGeneration {
 protected:
  bool offered() {
    const auto list = home.screen().quickActions;
    return list && !list->entries.empty() && list->entries.back().title == "Sprigdial";
  }
  static constexpr const char* list = "SBHIconManager iconView:applicationShortcutItemsWithProposedItems:";
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, Order, test::bothGenerations, test::generationName);

TEST_P(Order, AResultTakesTheOverlayAwayFirstThenLooksTheTitleUpThenBuildsTheAlert) {
  home.install({});
  home->touch(app);
  for (const auto* result : {"backUpDataSucces", "restoreDataSucces", "deleteBackUpSucces"}) {
    SCOPED_TRACE(result);
    home->perform("showLoadingView");
    const auto calls = home.callsDuring([&] { home->perform(result); });
    const auto hidden = place(calls, "UIWindow", "setHidden:");
    const auto lookedUp = place(calls, "SBApplicationController", "applicationWithBundleIdentifier:");
    const auto built = place(calls, "UIAlertController", "alertControllerWithTitle:message:preferredStyle:");
    EXPECT_LT(hidden, lookedUp);
    EXPECT_LT(lookedUp, built);
    home->tap("OK");
  }
}

// One look-up tells the name and the folder, in that order.
TEST_P(Order, AnOperationLooksItsApplicationUpOnce) {
  home.install({});
  home->touch(app);
  for (const auto* operation : {"clearCaches", "backUpData", "restoreData", "deleteBackUp", "resetAppData"}) {
    SCOPED_TRACE(operation);
    const auto calls = home.callsDuring([&] { home->perform(operation); });
    const auto times = [&](const std::string& selector) {
      return std::count_if(calls.begin(), calls.end(), [&](const auto& call) { return call.selector == selector; });
    };
    EXPECT_LT(place(calls, "SBApplication", "displayName"), place(calls, "SBApplicationInfo", "dataContainerURL"));
    // A backup's result is looked up for, too.
    const long lookUps = times("backUpDataSucces") == 1 ? 2 : 1;
    EXPECT_EQ(times("applicationWithBundleIdentifier:"), lookUps);
    home->lock().unlock();
  }
}

TEST_P(Order, TheLayoutComesBeforeALookAtTheSettings) {
  home.options().interposed = {"SBIconView layoutSubviews"};
  home->home();
  home.device().setSettings({"hideLabel=true"});
  home->interpose("SBIconView layoutSubviews", during({settingsArrive}));
  home->home();
  const auto icons = home.screen().icons;
  EXPECT_TRUE(std::all_of(icons.begin(), icons.end(), [](const auto& icon) { return icon.labelHidden; }));
}

TEST_P(Order, ATouchWhileTheIconIsLookedUpDoesNotChangeTheMenuThatIsBuilt) {
  home.options().interposed = {iconLookUp()};
  home.install({});
  sim::writeFile(home.path("/var/mobile/Documents/Sprigdial/" + app) / "2020-01-01.00_00_00", "");
  home->touch(app);
  home->interpose(iconLookUp(), during({{{"verb", "touch"}, {"id", other}}}));
  home->perform("showAlertView");
  EXPECT_EQ(home.alert().title, "Test App");
  EXPECT_EQ(home.alert().message, app + " Ver.2.5");
  EXPECT_TRUE(home.hasButton("Restore Data"));
}

TEST_P(Order, ATouchWhileAnOperationLooksItsApplicationUpDoesNotChangeWhoseDataItIs) {
  home.options().interposed = {"SBApplicationController applicationWithBundleIdentifier:"};
  home.install({});
  home->touch(app);
  home->interpose("SBApplicationController applicationWithBundleIdentifier:",
                  during({{{"verb", "touch"}, {"id", other}}}));
  home->perform("backUpData");
  EXPECT_TRUE(std::filesystem::exists(home.path("/var/mobile/Documents/Sprigdial/" + app)));
  EXPECT_FALSE(std::filesystem::exists(home.path("/var/mobile/Documents/Sprigdial/" + other)));
}

TEST_P(Order, AnAlertHidesTheWindowBeforeItsOwnComes) {
  home.install({});
  home->touch(app).perform("clearCaches");
  const auto calls = home.callsDuring([&] { home->perform("resetAppData"); });
  EXPECT_LT(place(calls, "UIWindow", "setHidden:"), place(calls, "UIWindow", "makeKeyAndVisible"));
}

TEST_P(Order, TheOverlayComesBeforeARestoreRemovesAnything) {
  home.options().interposed = {"UIWindow makeKeyAndVisible"};
  home.install({});
  sim::writeFile(home.container(app) / "Documents/letter", "first");
  sim::writeFile(home.path("/var/mobile/Documents/Sprigdial/" + app) / "2020-01-01.00_00_00", "");
  home->touch(app).perform("restoreData");
  home->interpose("UIWindow makeKeyAndVisible", {{"do", "raise"}});
  EXPECT_TRUE(home->raises("tap", {{"title", "2020-01-01 00:00:00"}}));
  EXPECT_EQ(sim::readFile(home.container(app) / "Documents/letter"), "first");
}

// An application that is removed while it is asked for its name.
TEST_P(Order, AnApplicationThatGoesWhileItIsLookedUpBringsNothingDown) {
  home.options().interposed = {"SBApplication displayName"};
  for (const auto* operation : {"showAlertView", "clearCaches", "backUpData", "setBadges"}) {
    SCOPED_TRACE(operation);
    home.install({});
    home->touch(app);
    std::filesystem::remove_all(home.bundle(app).parent_path());
    home->interpose("SBApplication displayName", during({{{"verb", "rescan"}}}));
    home->perform(operation);
    EXPECT_TRUE(home.showsAlert());
    home->lock().unlock().advance(1);
  }
}

TEST_P(Order, TheMuteSheetIsForTheApplicationThatWasCurrentWhenItWasAskedFor) {
  const std::string post = "NSNotificationCenter postNotificationName:object:userInfo:";
  home.options().interposed = {post};
  home.install({});
  home->touch(app);
  home->interpose(post, during({{{"verb", "touch"}, {"id", other}}}));
  const auto calls = home.callsDuring([&] { home->perform("muteNotifications"); });
  EXPECT_EQ(home.alert().message, app);
  EXPECT_EQ(std::count_if(
                calls.begin(), calls.end(),
                [](const auto& call) { return call.selector == "alertControllerWithTitle:message:preferredStyle:"; }),
            1);
}

TEST_P(Order, NoDialogsButtonLeavesAControllerBehind) {
  home.install({});
  home->touch(app);
  for (const auto* operation : {"clearCaches", "setBadges", "resetAppData", "muteNotifications"}) {
    home->perform(operation).tap("Cancel");
    EXPECT_EQ(home.live("UIViewController"), 0) << operation;
  }
}

TEST_P(Order, ARenamedIconReadsItsLabelBeforeTheOthersAreTold) {
  home.install({});
  home.openRenameDialog(app);
  home->type("Mine");
  const auto calls = home.callsDuring([&] { home->tap("Apply"); });
  EXPECT_LT(place(calls, "SBApplicationIcon", "leafIdentifier"),
            isOld() ? place(calls, "SBIconView", "_updateLabel")
                    : place(calls, "Darwin", "com.morvanel.sprigdial.renamelable"));
}

// The stored names are bypassed for the look at the system's own, and no longer.
TEST_P(Order, StoredNamesAreShownAgainBeforeTheRenamingDialogComes) {
  home.options().interposed = {"UIWindow makeKeyAndVisible"};
  home.install({});
  home.storeFromOutside(app, "Mine");
  home.openMenu(other);
  home->tap("Rename App");
  // An icon that comes while the dialog does.
  const auto bundle = home.bundle(app).parent_path();
  const auto elsewhere = home.path("/var/elsewhere");
  std::filesystem::rename(bundle, elsewhere);
  home->rescan();
  std::filesystem::rename(elsewhere, bundle);
  home->interpose("UIWindow makeKeyAndVisible", during({{{"verb", "rescan"}}}));
  home->advance(1);
  EXPECT_EQ(home.icon(app).label, "Mine");
}

// While the menu's window goes another one may come: neither is used after it has gone.
TEST_P(Order, AnAlertThatComesWhileAnotherGoesBringsNothingDown) {
  home.options().interposed = {"UIWindow setHidden:", "UIWindow makeKeyAndVisible", "UIWindow setRootViewController:"};
  home.install({});
  home->touch(app);
  for (const auto& method : home.options().interposed) {
    SCOPED_TRACE(method);
    home->perform("setBadges");
    home->interpose(method, during({{{"verb", "perform"}, {"selector", "clearCaches"}}}));
    home->perform("resetAppData");
    home->lock().unlock();
    EXPECT_TRUE(home.screen().windows.empty());
    EXPECT_EQ(home.live("UIViewController"), 0);
  }
}

// Whether a folder of backups can be listed is told by the error, not by what else the platform gives.
TEST_P(Order, ItIsTheErrorThatTellsThatThereAreNoBackups) {
  const std::string listing = "NSFileManager contentsOfDirectoryAtPath:error:";
  home.options().interposed = {listing};
  home.install({});
  home->touch(app);
  home->interpose(listing, {{"do", "nil"}});
  home->perform("restoreData");
  EXPECT_EQ(home.alert().style, "action sheet");
  EXPECT_EQ(home.buttons(), std::vector<std::string>{"Cancel"});
  home->tap("Cancel").interpose(listing, {{"do", "nil"}});
  home->perform("deleteBackUp");
  EXPECT_EQ(home.alert().message, "Please Use BackUp first!");
}

TEST_F(OrderNew, TheListsConditionsComeBeforeThePlatformsMethod) {
  home.options().interposed = {list};
  home->touch(other);
  // What becomes of the settings while the platform makes its list does not count any more.
  home.device().setSettings({"useForce=true"});
  home->interpose(list, during({settingsArrive}));
  home->forceTouch(other);
  EXPECT_FALSE(offered());
  home->home();
  home.device().setSettings({"useForce=false"});
  home->interpose(list, during({settingsArrive}));
  home->forceTouch(other);
  EXPECT_TRUE(offered());
}

TEST_F(OrderNew, ATouchWhileTheListIsMadeDoesNotChangeWhoseEntryItIs) {
  home.options().interposed = {list};
  home.settings({"useForce=true"});
  home->touch(other);
  home->interpose(list, during({{{"verb", "touch"}, {"id", "Garden Diary"}}}));
  home->forceTouch(other);
  EXPECT_TRUE(offered());
}

TEST_F(OrderOld, ATouchWhileTheListIsMadeDoesNotChangeWhoseEntryItIs) {
  const std::string list = "SBUIAppIconForceTouchControllerDataProvider applicationShortcutItems";
  home.options().interposed = {list};
  home.settings({"useForce=true"});
  home->touch(other);
  home->interpose(list, during({{{"verb", "touch"}, {"id", "Garden Diary"}}}));
  home->forceTouch(other);
  const auto open = home.screen().quickActions;
  ASSERT_TRUE(open);
  EXPECT_EQ(open->entries.back().title, "Sprigdial");
}
