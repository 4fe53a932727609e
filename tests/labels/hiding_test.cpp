// Hiding icon labels, and refreshing them on request.
#include <algorithm>

#include "tests/support/phone.hpp"

namespace {

const std::string updateLabels = "com.morvanel.sprigdial.iconlable";
const std::string refreshNames = "com.morvanel.sprigdial.renamelable";
const std::string coming = "com.example.coming";

/// Looks at icon views, for any kind of test.
template <class Fixture>
class LookingAtViews : public Fixture {
 protected:
  using Fixture::phone;
  // How many messages of that name icon views get from the add-on meanwhile.
  long told(const std::string& selector, const std::function<void()>& action) {
    const auto calls = phone.callsDuring(action);
    return std::count_if(calls.begin(), calls.end(), [&](const auto& call) {
      return call.kind == "send" && call.className == "SBIconView" && call.selector == selector;
    });
  }
  void makeView(const std::string& initialiser, bool label = true) {
    phone.ask("make-icon-view", {{"initialiser", initialiser}, {"without-label", !label}});
  }
};

class Hiding : public LookingAtViews<test::Generations> {
 protected:
  // The home button lays the page out.
  void layOut() { phone.home(); }
  long icons() { return static_cast<long>(phone.screen().icons.size()); }
  long hidden() {
    const auto all = phone.screen().icons;
    return std::count_if(all.begin(), all.end(), [](const auto& icon) { return icon.labelHidden; });
  }
  void expectAllHidden() { EXPECT_EQ(hidden(), icons()); }
  void expectAllShown() { EXPECT_EQ(hidden(), 0); }
  std::string initialiser() const { return isOld() ? "initWithContentType:" : "initWithConfigurationOptions:"; }
  // A view of the page came through this many of the hooked initialisers.
  long passes() const { return isOld() ? 1 : 2; }
};

class HidingOld : public LookingAtViews<test::OldGeneration> {};
class HidingNew : public LookingAtViews<test::NewGeneration> {};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, Hiding, test::bothGenerations, test::generationName);

// At layout

TEST_P(Hiding, LabelsAreShownAtFirst) { expectAllShown(); }

TEST_P(Hiding, EveryLabelIsHiddenFromTheStart) {
  phone.settings({"hideLabel=true"});
  expectAllHidden();
  EXPECT_EQ(phone.icon("com.example.notes").label, "Notes") << "the text is still there";
}

TEST_P(Hiding, TheSettingTakesHoldAtTheNextLayout) {
  expectAllShown();
  phone.settings({"hideLabel=true"});
  expectAllShown();
  layOut();
  expectAllHidden();
}

TEST_P(Hiding, EveryWayBackToTheHomeScreenHidesThem) {
  const std::vector<std::function<void()>> layouts{[&] { phone.home(); }, [&] { phone.lock().unlock(); },
                                                   [&] { phone.edit(true).edit(false); }, [&] { phone.rescan(); }};
  phone.settings({"hideLabel=true"});
  for (const auto& layout : layouts) {
    phone.post(updateLabels);
    expectAllShown();
    layout();
    expectAllHidden();
  }
}

TEST_P(Hiding, AnIconThatComesLaterIsHiddenToo) {
  phone.settings({"hideLabel=true"});
  phone.startDownload(coming);
  EXPECT_TRUE(phone.icon(coming).labelHidden);
  phone.install({});
  expectAllHidden();
}

TEST_P(Hiding, SwitchedOffHidesNothing) {
  phone.settings({"hideLabel=true", "enabled=false"});
  expectAllShown();
  layOut();
  expectAllShown();
  phone.settings({"enabled=true"});
  layOut();
  expectAllHidden();
}

TEST_P(Hiding, LayoutShowsNoLabelAgain) {
  phone.settings({"hideLabel=true"});
  expectAllHidden();
  phone.settings({"hideLabel=false"});
  layOut();
  expectAllHidden();
  phone.settings({"hideLabel=true", "enabled=false"});
  layOut();
  expectAllHidden();
}

TEST_P(Hiding, ARenamedLabelStaysHidden) {
  phone.settings({"hideLabel=true"});
  phone.rename("com.example.notes", "Jotter");
  EXPECT_EQ(phone.icon("com.example.notes").label, "Jotter");
  expectAllHidden();
}

// On request: the opposite of the setting in force

TEST_P(Hiding, TheUpdateHidesAllWhileTheSettingIsOff) {
  phone.post(updateLabels);
  expectAllHidden();
  phone.post(updateLabels);
  expectAllHidden();
}

TEST_P(Hiding, TheUpdateShowsAllWhileTheSettingIsOnUntilTheNextLayout) {
  phone.settings({"hideLabel=true"});
  expectAllHidden();
  phone.post(updateLabels);
  expectAllShown();
  layOut();
  expectAllHidden();
}

TEST_P(Hiding, TheUpdateGoesByTheSettingThatWasLoaded) {
  phone.post(updateLabels);
  expectAllHidden();
  phone.device().setSettings({"hideLabel=true"});
  phone.post(updateLabels);
  expectAllHidden();
  phone.post("com.morvanel.sprigdial.preferencechanged").post(updateLabels);
  expectAllShown();
}

TEST_P(Hiding, TheUpdateDoesNothingWhileSwitchedOff) {
  phone.settings({"enabled=false"});
  phone.post(updateLabels);
  expectAllShown();
  phone.settings({"enabled=true"});
  phone.post(updateLabels);
  expectAllHidden();
  phone.settings({"enabled=false", "hideLabel=true"});
  phone.post(updateLabels);
  expectAllHidden();
}

TEST_P(Hiding, TheUpdateReachesIconsThatCameLater) {
  expectAllShown();
  phone.startDownload(coming);
  phone.install({});
  phone.post(updateLabels);
  expectAllHidden();
}

TEST_P(Hiding, TheUpdateLeavesTheNamesAlone) {
  expectAllShown();
  phone.storeFromOutside("com.example.notes", "Jotter");
  phone.post(updateLabels);
  EXPECT_EQ(phone.icon("com.example.notes").label, "Notes");
}

TEST_P(Hiding, IconsThatWentAreNotAskedAnyMore) {
  phone.install({});
  phone.startDownload(coming);
  const long before = told("valueForKey:", [&] { phone.post(updateLabels); });
  EXPECT_EQ(before, passes() * icons());
  phone.uninstall("com.example.test");
  phone.removeDownload(coming);
  EXPECT_EQ(told("valueForKey:", [&] { phone.post(updateLabels); }), before - 2 * passes());
}

TEST_P(Hiding, AViewWithoutALabelIsFine) {
  phone.settings({"hideLabel=true"});
  makeView(initialiser(), false);
  phone.post(updateLabels).post(refreshNames);
  expectAllShown();
  layOut();
  expectAllHidden();
}

// Names

TEST_P(Hiding, TheRenameNotificationReadsEveryNameAnewInTheNewGenerationOnly) {
  expectAllShown();
  phone.storeFromOutside("com.example.notes", "Jotter");
  phone.storeFromOutside("com.example.weather", "Sky");
  phone.post(refreshNames);
  EXPECT_EQ(phone.icon("com.example.notes").label, isOld() ? "Notes" : "Jotter");
  EXPECT_EQ(phone.icon("com.example.weather").label, isOld() ? "Weather" : "Sky");
  expectAllShown();
}

TEST_P(Hiding, TheRenameNotificationDoesNothingWhileSwitchedOff) {
  phone.storeFromOutside("com.example.notes", "Jotter");
  ASSERT_EQ(phone.icon("com.example.notes").label, "Jotter");
  phone.settings({"enabled=false"});
  EXPECT_EQ(told("_updateLabel", [&] { phone.post(refreshNames); }), 0);
  EXPECT_EQ(phone.icon("com.example.notes").label, "Jotter");
}

// Who listens to what

TEST_P(Hiding, TheLocalNamesMeanNothingFromOutside) {
  phone.storeFromOutside("com.example.weather", "Sky");
  const auto label = phone.icon("com.example.notes").label;
  phone.storeFromOutside("com.example.notes", "Jotter");
  phone.post("com.morvanel.sprigdial.isIconLabeUpdate").post("com.morvanel.sprigdial.renameIconLablel");
  phone.post("com.morvanel.sprigdial.iconlabel").post("com.morvanel.sprigdial.renamelabel");
  expectAllShown();
  EXPECT_EQ(phone.icon("com.example.notes").label, label);
}

TEST_P(Hiding, AViewListensOncePerInitialiserItCameThrough) {
  EXPECT_EQ(told("valueForKey:", [&] { phone.post(updateLabels); }), passes() * icons());
  EXPECT_EQ(told("_updateLabel", [&] { phone.post(refreshNames); }), isOld() ? 0 : 2 * icons());
}

TEST_P(Hiding, TheViewAnswersTheAddedMethodsOfItsGeneration) {
  std::vector<std::string> added;
  for (const auto& method : phone.describe("SBIconView").methods)
    for (const std::string name :
         {"recievedIconLablelUpdate", "renameIconLablelUpdate", "_sprigDial_registerNotification"})
      if (method.name == name) added.push_back(name + " " + method.type);
  std::sort(added.begin(), added.end());
  const std::vector<std::string> expected =
      isOld()
          ? std::vector<std::string>{"recievedIconLablelUpdate v@:"}
          : std::vector<std::string>{
                "_sprigDial_registerNotification v@:", "recievedIconLablelUpdate v@:", "renameIconLablelUpdate v@:"};
  EXPECT_EQ(added, expected);
}

TEST_P(Hiding, AViewMadeAnywhereListens) {
  const long page = passes() * icons();
  makeView(initialiser());
  EXPECT_EQ(told("valueForKey:", [&] { phone.post(updateLabels); }), page + passes());
}

TEST_F(HidingOld, AViewThatCouldNotBeMadeDoesNotListen) {
  phone.options().interposed = {"SBIconView initWithContentType:"};
  const long page = told("valueForKey:", [&] { phone.post(updateLabels); });
  phone.interpose("SBIconView initWithContentType:", {{"do", "nil"}});
  makeView("initWithContentType:");
  EXPECT_EQ(told("valueForKey:", [&] { phone.post(updateLabels); }), page);
}

TEST_F(HidingOld, AViewThatAnotherTookThePlaceOfListensNoLongerThanItLives) {
  phone.options().interposed = {"SBIconView initWithContentType:"};
  const long page = told("valueForKey:", [&] { phone.post(updateLabels); });
  phone.interpose("SBIconView initWithContentType:", {{"do", "other"}});
  makeView("initWithContentType:");
  EXPECT_EQ(told("valueForKey:", [&] { phone.post(updateLabels); }), page);
}

TEST_F(HidingNew, EachHookedInitialiserRegistersOnce) {
  const std::map<std::string, long> passes{{"initWithFrame:", 3},
                                           {"initWithConfigurationOptions:", 2},
                                           {"initWithConfigurationOptions:listLayoutProvider:", 1}};
  for (const auto& [initialiser, expected] : passes) {
    const auto calls = phone.callsDuring([&, by = initialiser] { phone.ask("make-icon-view", {{"initialiser", by}}); });
    EXPECT_EQ(std::count_if(calls.begin(), calls.end(),
                            [](const auto& call) { return call.selector == "_sprigDial_registerNotification"; }),
              expected)
        << initialiser;
  }
}
