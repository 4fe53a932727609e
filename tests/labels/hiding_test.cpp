// Hiding icon labels, and refreshing them on request.
#include <algorithm>

#include "tests/support/home.hpp"

namespace {

const std::string updateLabels = "com.morvanel.sprigdial.iconlable";
const std::string refreshNames = "com.morvanel.sprigdial.renamelable";
const std::string coming = "com.example.coming";

/// Looks at icon views, for any kind of test.
template <class Fixture>
class LookingAtViews : public Fixture {
 protected:
  using Fixture::home;
  // How many messages of that name icon views get from the add-on meanwhile.
  long told(const std::string& selector, const std::function<void()>& action) {
    const auto calls = home.callsDuring(action);
    return std::count_if(calls.begin(), calls.end(), [&](const auto& call) {
      return call.kind == "send" && call.className == "SBIconView" && call.selector == selector;
    });
  }
  void makeView(const std::string& initialiser, bool label = true) {
    home->ask("makeIconView", {{"initialiser", initialiser}, {"label", label}});
  }
};

class Hiding : public LookingAtViews<test::Generations> {
 protected:
  // The home button lays the page out.
  void layOut() { home->home(); }
  long icons() { return static_cast<long>(home.screen().icons.size()); }
  long hidden() {
    const auto all = home.screen().icons;
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
  home.settings({"hideLabel=true"});
  expectAllHidden();
  EXPECT_EQ(home.icon("com.example.notes").label, "Notes") << "the text is still there";
}

TEST_P(Hiding, TheSettingTakesHoldAtTheNextLayout) {
  expectAllShown();
  home.settings({"hideLabel=true"});
  expectAllShown();
  layOut();
  expectAllHidden();
}

TEST_P(Hiding, EveryWayBackToTheHomeScreenHidesThem) {
  const std::vector<std::function<void()>> layouts{[&] { home->home(); }, [&] { home->lock().unlock(); },
                                                   [&] { home->edit(true).edit(false); }, [&] { home->rescan(); }};
  home.settings({"hideLabel=true"});
  for (const auto& layout : layouts) {
    home->post(updateLabels);
    expectAllShown();
    layout();
    expectAllHidden();
  }
}

TEST_P(Hiding, AnIconThatComesLaterIsHiddenToo) {
  home.settings({"hideLabel=true"});
  home->startDownload(coming);
  EXPECT_TRUE(home.icon(coming).labelHidden);
  home.install({});
  expectAllHidden();
}

TEST_P(Hiding, SwitchedOffHidesNothing) {
  home.settings({"hideLabel=true", "enabled=false"});
  expectAllShown();
  layOut();
  expectAllShown();
  home.settings({"enabled=true"});
  layOut();
  expectAllHidden();
}

TEST_P(Hiding, LayoutShowsNoLabelAgain) {
  home.settings({"hideLabel=true"});
  expectAllHidden();
  home.settings({"hideLabel=false"});
  layOut();
  expectAllHidden();
  home.settings({"hideLabel=true", "enabled=false"});
  layOut();
  expectAllHidden();
}

TEST_P(Hiding, ARenamedLabelStaysHidden) {
  home.settings({"hideLabel=true"});
  home.rename("com.example.notes", "Jotter");
  EXPECT_EQ(home.icon("com.example.notes").label, "Jotter");
  expectAllHidden();
}

// On request: the opposite of the setting in force

TEST_P(Hiding, TheUpdateHidesAllWhileTheSettingIsOff) {
  home->post(updateLabels);
  expectAllHidden();
  home->post(updateLabels);
  expectAllHidden();
}

TEST_P(Hiding, TheUpdateShowsAllWhileTheSettingIsOnUntilTheNextLayout) {
  home.settings({"hideLabel=true"});
  expectAllHidden();
  home->post(updateLabels);
  expectAllShown();
  layOut();
  expectAllHidden();
}

TEST_P(Hiding, TheUpdateGoesByTheSettingThatWasLoaded) {
  home->post(updateLabels);
  expectAllHidden();
  home.device().setSettings({"hideLabel=true"});
  home->post(updateLabels);
  expectAllHidden();
  home->post("com.morvanel.sprigdial.preferencechanged").post(updateLabels);
  expectAllShown();
}

TEST_P(Hiding, TheUpdateDoesNothingWhileSwitchedOff) {
  home.settings({"enabled=false"});
  home->post(updateLabels);
  expectAllShown();
  home.settings({"enabled=true"});
  home->post(updateLabels);
  expectAllHidden();
  home.settings({"enabled=false", "hideLabel=true"});
  home->post(updateLabels);
  expectAllHidden();
}

TEST_P(Hiding, TheUpdateReachesIconsThatCameLater) {
  expectAllShown();
  home->startDownload(coming);
  home.install({});
  home->post(updateLabels);
  expectAllHidden();
}

TEST_P(Hiding, TheUpdateLeavesTheNamesAlone) {
  expectAllShown();
  home.storeFromOutside("com.example.notes", "Jotter");
  home->post(updateLabels);
  EXPECT_EQ(home.icon("com.example.notes").label, "Notes");
}

TEST_P(Hiding, IconsThatWentAreNotAskedAnyMore) {
  home.install({});
  home->startDownload(coming);
  const long before = told("valueForKey:", [&] { home->post(updateLabels); });
  EXPECT_EQ(before, passes() * icons());
  home.uninstall("com.example.test");
  home->removeDownload(coming);
  EXPECT_EQ(told("valueForKey:", [&] { home->post(updateLabels); }), before - 2 * passes());
}

TEST_P(Hiding, AViewWithoutALabelIsFine) {
  home.settings({"hideLabel=true"});
  makeView(initialiser(), false);
  home->post(updateLabels).post(refreshNames);
  expectAllShown();
  layOut();
  expectAllHidden();
}

// Names

TEST_P(Hiding, TheRenameNotificationReadsEveryNameAnewInTheNewGenerationOnly) {
  expectAllShown();
  home.storeFromOutside("com.example.notes", "Jotter");
  home.storeFromOutside("com.example.weather", "Sky");
  home->post(refreshNames);
  EXPECT_EQ(home.icon("com.example.notes").label, isOld() ? "Notes" : "Jotter");
  EXPECT_EQ(home.icon("com.example.weather").label, isOld() ? "Weather" : "Sky");
  expectAllShown();
}

TEST_P(Hiding, TheRenameNotificationDoesNothingWhileSwitchedOff) {
  home.storeFromOutside("com.example.notes", "Jotter");
  ASSERT_EQ(home.icon("com.example.notes").label, "Jotter");
  home.settings({"enabled=false"});
  EXPECT_EQ(told("_updateLabel", [&] { home->post(refreshNames); }), 0);
  EXPECT_EQ(home.icon("com.example.notes").label, "Jotter");
}

// Who listens to what

TEST_P(Hiding, TheLocalNamesMeanNothingFromOutside) {
  home.storeFromOutside("com.example.weather", "Sky");
  const auto label = home.icon("com.example.notes").label;
  home.storeFromOutside("com.example.notes", "Jotter");
  home->post("com.morvanel.sprigdial.isIconLabeUpdate").post("com.morvanel.sprigdial.renameIconLablel");
  home->post("com.morvanel.sprigdial.iconlabel").post("com.morvanel.sprigdial.renamelabel");
  expectAllShown();
  EXPECT_EQ(home.icon("com.example.notes").label, label);
}

TEST_P(Hiding, AViewListensOncePerInitialiserItCameThrough) {
  EXPECT_EQ(told("valueForKey:", [&] { home->post(updateLabels); }), passes() * icons());
  EXPECT_EQ(told("_updateLabel", [&] { home->post(refreshNames); }), isOld() ? 0 : 2 * icons());
}

TEST_P(Hiding, TheViewAnswersTheAddedMethodsOfItsGeneration) {
  std::vector<std::string> added;
  for (const auto& method : home->describe("SBIconView").methods)
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
  EXPECT_EQ(told("valueForKey:", [&] { home->post(updateLabels); }), page + passes());
}

TEST_F(HidingOld, AViewThatCouldNotBeMadeDoesNotListen) {
  home.options().interposed = {"SBIconView initWithContentType:"};
  const long page = told("valueForKey:", [&] { home->post(updateLabels); });
  home->interpose("SBIconView initWithContentType:", {{"do", "nil"}});
  makeView("initWithContentType:");
  EXPECT_EQ(told("valueForKey:", [&] { home->post(updateLabels); }), page);
}

TEST_F(HidingOld, AViewThatAnotherTookThePlaceOfListensNoLongerThanItLives) {
  home.options().interposed = {"SBIconView initWithContentType:"};
  const long page = told("valueForKey:", [&] { home->post(updateLabels); });
  home->interpose("SBIconView initWithContentType:", {{"do", "other"}});
  makeView("initWithContentType:");
  EXPECT_EQ(told("valueForKey:", [&] { home->post(updateLabels); }), page);
}

TEST_F(HidingNew, EachHookedInitialiserRegistersOnce) {
  const std::map<std::string, long> passes{{"initWithFrame:", 3},
                                           {"initWithConfigurationOptions:", 2},
                                           {"initWithConfigurationOptions:listLayoutProvider:", 1}};
  for (const auto& [initialiser, expected] : passes) {
    const auto calls = home.callsDuring([&, by = initialiser] { home->ask("makeIconView", {{"initialiser", by}}); });
    EXPECT_EQ(std::count_if(calls.begin(), calls.end(),
                            [](const auto& call) { return call.selector == "_sprigDial_registerNotification"; }),
              expected)
        << initialiser;
  }
}
