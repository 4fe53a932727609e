// Opening the application as icons are launched.
#include "tests/support/home.hpp"

namespace {
const std::string app = "com.example.test";
class OpenApp : public test::Generations {};
}  // namespace
INSTANTIATE_TEST_SUITE_P(, OpenApp, test::bothGenerations, test::generationName);

TEST_P(OpenApp, LaunchesWithNothingBeforeTheFirstLaunch) {
  home.install({});
  home.openMenu();
  home->tap("Open App");
  EXPECT_EQ(home.screen().frontmost, app);
  const auto launches = home->launches();
  ASSERT_EQ(launches.size(), 1U);
  EXPECT_EQ(launches[0].id, app);
  EXPECT_EQ(launches[0].location, "0");
  EXPECT_FALSE(launches[0].context);
  EXPECT_FALSE(launches[0].settings);
  EXPECT_FALSE(launches[0].actions);
}

TEST_P(OpenApp, LaunchesAsTheLastIconWasLaunched) {
  home.install({});
  home->launch("com.example.notes");
  home->home();
  home.openMenu();
  home->tap("Open App");
  const auto launches = home->launches();
  ASSERT_EQ(launches.size(), 2U);
  EXPECT_EQ(launches[1].id, app);
  EXPECT_TRUE(launches[1].context);
  EXPECT_EQ(launches[1].context, launches[0].context);
  EXPECT_EQ(launches[1].settings, launches[0].settings);
  EXPECT_EQ(launches[1].actions, launches[0].actions);
}

TEST_P(OpenApp, AnIconThatGoesWhileItIsLaunchedBringsNothingDown) {
  const std::string method = GetParam() == sim::Generation::old
                                 ? "SBIcon launchFromLocation:context:activationSettings:actions:"
                                 : "SBIcon launchFromLocation:context:";
  home.options().interposed = {method};
  home.install({});
  home->touch(app);
  std::filesystem::remove_all(home.bundle(app).parent_path());
  home->interpose(method, {{"do", "perform"}, {"requests", {{{"verb", "rescan"}}}}});
  home->perform("openApps");
  EXPECT_EQ(home->launches().size(), 1U);
}

TEST_P(OpenApp, WithoutACurrentApplicationDoesNothing) {
  home->perform("openApps");
  EXPECT_TRUE(home->launches().empty());
}

TEST_P(OpenApp, OpensWhatIsCurrentWhenTapped) {
  home.install({});
  home.openMenu();
  home.touchInSpite("com.example.notes");
  home->tap("Open App");
  EXPECT_EQ(home->launches().back().id, "com.example.notes");
}

TEST_P(OpenApp, AnIconThatWentIsNotLaunched) {
  home.install({});
  home.openMenu();
  std::filesystem::remove_all(home.bundle(app).parent_path());
  home->rescan();
  home->tap("Open App");
  EXPECT_TRUE(home->launches().empty());
  EXPECT_TRUE(home.screen().windows.empty());
}
