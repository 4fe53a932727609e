// In which order, and with what in the hand, the library asks the platform: told by what happens in between.
#include <algorithm>

#include "tests/support/phone.hpp"

namespace {

using Json = nlohmann::json;

const std::string app = "com.example.test";
const std::string other = "com.example.notes";

/// Requests that are performed while the platform's method is on its way.
Json during(const std::vector<Json>& requests) { return {{"do", "perform"}, {"requests", requests}}; }

// The settings pane has written its file, and its word arrives.
const Json settingsArrive{{"verb", "post"}, {"members", {{"name", "com.morvanel.sprigdial.preferencechanged"}}}};

class Order : public test::Generations {
 protected:
  std::string iconLookUp() const {
    return isOld() ? "SBIconModel applicationIconForBundleIdentifier:" : "SBIconModel leafIconForIdentifier:";
  }
  // Where in the log such a message stands first.
  static std::ptrdiff_t place(const std::vector<sim::Phone::Call>& calls, const std::string& className,
                              const std::string& selector) {
    const auto found = std::find_if(calls.begin(), calls.end(), [&](const auto& call) {
      return call.className == className && call.selector == selector;
    });
    EXPECT_NE(found, calls.end()) << className << " " << selector;
    return found - calls.begin();
  }
  std::vector<std::string> entries() {
    std::vector<std::string> titles;
    const auto list = phone.screen().quickActions;
    for (const auto& entry : list ? list->entries : std::vector<sim::QuickAction>{}) titles.push_back(entry.title);
    return titles;
  }
};
class OrderOld : public test::OldGeneration {};
class OrderNew : public test::NewGeneration {
 protected:
  bool offered() {
    const auto list = phone.screen().quickActions;
    return list && !list->entries.empty() && list->entries.back().title == "Sprigdial";
  }
  static constexpr const char* list = "SBHIconManager iconView:applicationShortcutItemsWithProposedItems:";
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, Order, test::bothGenerations, test::generationName);

TEST_P(Order, AResultTakesTheOverlayAwayFirstThenLooksTheTitleUpThenBuildsTheAlert) {
  phone.install({});
  phone.touch(app);
  for (const auto* result : {"backUpDataSucces", "restoreDataSucces", "deleteBackUpSucces"}) {
    SCOPED_TRACE(result);
    phone.perform("showLoadingView");
    const auto calls = phone.callsDuring([&] { phone.perform(result); });
    const auto hidden = place(calls, "UIWindow", "setHidden:");
    const auto lookedUp = place(calls, "SBApplicationController", "applicationWithBundleIdentifier:");
    const auto built = place(calls, "UIAlertController", "alertControllerWithTitle:message:preferredStyle:");
    EXPECT_LT(hidden, lookedUp);
    EXPECT_LT(lookedUp, built);
    phone.tap("OK");
  }
}

// One look-up tells the name and the folder, in that order.
TEST_P(Order, AnOperationLooksItsApplicationUpOnce) {
  phone.install({});
  phone.touch(app);
  for (const auto* operation : {"clearCaches", "backUpData", "restoreData", "deleteBackUp", "resetAppData"}) {
    SCOPED_TRACE(operation);
    const auto calls = phone.callsDuring([&] { phone.perform(operation); });
    const auto times = [&](const std::string& selector) {
      return std::count_if(calls.begin(), calls.end(), [&](const auto& call) { return call.selector == selector; });
    };
    EXPECT_LT(place(calls, "SBApplication", "displayName"), place(calls, "SBApplicationInfo", "dataContainerURL"));
    // A backup's result is looked up for, too.
    const long lookUps = times("backUpDataSucces") == 1 ? 2 : 1;
    EXPECT_EQ(times("applicationWithBundleIdentifier:"), lookUps);
    phone.lock().unlock();
  }
}

TEST_P(Order, TheLayoutComesBeforeALookAtTheSettings) {
  phone.options().interposed = {"SBIconView layoutSubviews"};
  phone.home();
  phone.device().setSettings({"hideLabel=true"});
  phone.interpose("SBIconView layoutSubviews", during({settingsArrive}));
  phone.home();
  const auto icons = phone.screen().icons;
  EXPECT_TRUE(std::all_of(icons.begin(), icons.end(), [](const auto& icon) { return icon.labelHidden; }));
}

TEST_P(Order, ATouchWhileTheIconIsLookedUpDoesNotChangeTheMenuThatIsBuilt) {
  phone.options().interposed = {iconLookUp()};
  phone.install({});
  sim::writeFile(phone.path("/var/mobile/Documents/Sprigdial/" + app) / "2020-01-01.00_00_00", "");
  phone.touch(app);
  phone.interpose(iconLookUp(), during({{{"verb", "touch"}, {"members", {{"id", other}}}}}));
  phone.perform("showAlertView");
  EXPECT_EQ(phone.alert().title, "Test App");
  EXPECT_EQ(phone.alert().message, app + " Ver.2.5");
  EXPECT_TRUE(phone.hasButton("Restore Data"));
}

TEST_P(Order, ATouchWhileAnOperationLooksItsApplicationUpDoesNotChangeWhoseDataItIs) {
  phone.options().interposed = {"SBApplicationController applicationWithBundleIdentifier:"};
  phone.install({});
  phone.touch(app);
  phone.interpose("SBApplicationController applicationWithBundleIdentifier:",
                  during({{{"verb", "touch"}, {"members", {{"id", other}}}}}));
  phone.perform("backUpData");
  EXPECT_TRUE(std::filesystem::exists(phone.path("/var/mobile/Documents/Sprigdial/" + app)));
  EXPECT_FALSE(std::filesystem::exists(phone.path("/var/mobile/Documents/Sprigdial/" + other)));
}

TEST_P(Order, AnAlertHidesTheWindowBeforeItsOwnComes) {
  phone.install({});
  phone.touch(app).perform("clearCaches");
  const auto calls = phone.callsDuring([&] { phone.perform("resetAppData"); });
  EXPECT_LT(place(calls, "UIWindow", "setHidden:"), place(calls, "UIWindow", "makeKeyAndVisible"));
}

TEST_P(Order, TheOverlayComesBeforeARestoreRemovesAnything) {
  phone.options().interposed = {"UIWindow makeKeyAndVisible"};
  phone.install({});
  sim::writeFile(phone.container(app) / "Documents/letter", "first");
  sim::writeFile(phone.path("/var/mobile/Documents/Sprigdial/" + app) / "2020-01-01.00_00_00", "");
  phone.touch(app).perform("restoreData");
  phone.interpose("UIWindow makeKeyAndVisible", {{"do", "raise"}});
  EXPECT_TRUE(phone.raises("tap", {{"title", "2020-01-01 00:00:00"}}));
  EXPECT_EQ(sim::readFile(phone.container(app) / "Documents/letter"), "first");
}

// An application that is removed while it is asked for its name.
TEST_P(Order, AnApplicationThatGoesWhileItIsLookedUpBringsNothingDown) {
  phone.options().interposed = {"SBApplication displayName"};
  for (const auto* operation : {"showAlertView", "clearCaches", "backUpData", "setBadges"}) {
    SCOPED_TRACE(operation);
    phone.install({});
    phone.touch(app);
    std::filesystem::remove_all(phone.bundle(app).parent_path());
    phone.interpose("SBApplication displayName", during({{{"verb", "rescan"}}}));
    phone.perform(operation);
    EXPECT_TRUE(phone.showsAlert());
    phone.lock().unlock().advance(1);
  }
}

TEST_P(Order, TheMuteSheetIsForTheApplicationThatWasCurrentWhenItWasAskedFor) {
  const std::string post = "NSNotificationCenter postNotificationName:object:userInfo:";
  phone.options().interposed = {post};
  phone.install({});
  phone.touch(app);
  phone.interpose(post, during({{{"verb", "touch"}, {"members", {{"id", other}}}}}));
  const auto calls = phone.callsDuring([&] { phone.perform("muteNotifications"); });
  EXPECT_EQ(phone.alert().message, app);
  EXPECT_EQ(std::count_if(
                calls.begin(), calls.end(),
                [](const auto& call) { return call.selector == "alertControllerWithTitle:message:preferredStyle:"; }),
            1);
}

TEST_P(Order, NoDialogsButtonLeavesAControllerBehind) {
  phone.install({});
  phone.touch(app);
  for (const auto* operation : {"clearCaches", "setBadges", "resetAppData", "muteNotifications"}) {
    phone.perform(operation).tap("Cancel");
    EXPECT_EQ(phone.live("UIViewController"), 0) << operation;
  }
}

TEST_P(Order, ARenamedIconReadsItsLabelBeforeTheOthersAreTold) {
  phone.install({});
  phone.openRenameDialog(app);
  phone.type("Mine");
  const auto calls = phone.callsDuring([&] { phone.tap("Apply"); });
  EXPECT_LT(place(calls, "SBApplicationIcon", "leafIdentifier"),
            isOld() ? place(calls, "SBIconView", "_updateLabel")
                    : place(calls, "Darwin", "com.morvanel.sprigdial.renamelable"));
}

// The stored names are bypassed for the look at the system's own, and no longer.
TEST_P(Order, StoredNamesAreShownAgainBeforeTheRenamingDialogComes) {
  phone.options().interposed = {"UIWindow makeKeyAndVisible"};
  phone.install({});
  phone.storeFromOutside(app, "Mine");
  phone.openMenu(other);
  phone.tap("Rename App");
  // An icon that comes while the dialog does.
  const auto bundle = phone.bundle(app).parent_path();
  const auto elsewhere = phone.path("/var/elsewhere");
  std::filesystem::rename(bundle, elsewhere);
  phone.rescan();
  std::filesystem::rename(elsewhere, bundle);
  phone.interpose("UIWindow makeKeyAndVisible", during({{{"verb", "rescan"}}}));
  phone.advance(1);
  EXPECT_EQ(phone.icon(app).label, "Mine");
}

// While the menu's window goes another one may come: neither is used after it has gone.
TEST_P(Order, AnAlertThatComesWhileAnotherGoesBringsNothingDown) {
  phone.options().interposed = {"UIWindow setHidden:", "UIWindow makeKeyAndVisible", "UIWindow setRootViewController:"};
  phone.install({});
  phone.touch(app);
  for (const auto& method : phone.options().interposed) {
    SCOPED_TRACE(method);
    phone.perform("setBadges");
    phone.interpose(method, during({{{"verb", "perform"}, {"members", {{"selector", "clearCaches"}}}}}));
    phone.perform("resetAppData");
    phone.lock().unlock();
    EXPECT_TRUE(phone.screen().windows.empty());
    EXPECT_EQ(phone.live("UIViewController"), 0);
  }
}

// Whether a folder of backups can be listed is told by the error, not by what else the platform gives.
TEST_P(Order, ItIsTheErrorThatTellsThatThereAreNoBackups) {
  const std::string listing = "NSFileManager contentsOfDirectoryAtPath:error:";
  phone.options().interposed = {listing};
  phone.install({});
  phone.touch(app);
  phone.interpose(listing, {{"do", "nil"}});
  phone.perform("restoreData");
  EXPECT_EQ(phone.alert().style, "action sheet");
  EXPECT_EQ(phone.buttons(), std::vector<std::string>{"Cancel"});
  phone.tap("Cancel").interpose(listing, {{"do", "nil"}});
  phone.perform("deleteBackUp");
  EXPECT_EQ(phone.alert().message, "Please Use BackUp first!");
}

TEST_F(OrderNew, TheListsConditionsComeBeforeThePlatformsMethod) {
  phone.options().interposed = {list};
  phone.touch(other);
  // What becomes of the settings while the platform makes its list does not count any more.
  phone.device().setSettings({"useForce=true"});
  phone.interpose(list, during({settingsArrive}));
  phone.forceTouch(other);
  EXPECT_FALSE(offered());
  phone.home();
  phone.device().setSettings({"useForce=false"});
  phone.interpose(list, during({settingsArrive}));
  phone.forceTouch(other);
  EXPECT_TRUE(offered());
}

TEST_F(OrderNew, ATouchWhileTheListIsMadeDoesNotChangeWhoseEntryItIs) {
  phone.options().interposed = {list};
  phone.settings({"useForce=true"});
  phone.touch(other);
  phone.interpose(list, during({{{"verb", "touch"}, {"members", {{"id", "Garden Diary"}}}}}));
  phone.forceTouch(other);
  EXPECT_TRUE(offered());
}

TEST_F(OrderOld, ATouchWhileTheListIsMadeDoesNotChangeWhoseEntryItIs) {
  const std::string list = "SBUIAppIconForceTouchControllerDataProvider applicationShortcutItems";
  phone.options().interposed = {list};
  phone.settings({"useForce=true"});
  phone.touch(other);
  phone.interpose(list, during({{{"verb", "touch"}, {"members", {{"id", "Garden Diary"}}}}}));
  phone.forceTouch(other);
  const auto open = phone.screen().quickActions;
  ASSERT_TRUE(open);
  EXPECT_EQ(open->entries.back().title, "Sprigdial");
}
