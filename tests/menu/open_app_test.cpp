// Opening the application as icons are launched.
#include "tests/support/phone.hpp"

namespace {
const std::string app = "com.example.test";
class OpenApp : public test::Generations {};
}  // namespace
INSTANTIATE_TEST_SUITE_P(, OpenApp, test::bothGenerations, test::generationName);

TEST_P(OpenApp, LaunchesWithNothingBeforeTheFirstLaunch) {
  phone.install({});
  phone.openMenu();
  phone.tap("Open App");
  EXPECT_EQ(phone.screen().frontmost, app);
  const auto launches = phone.launches();
  ASSERT_EQ(launches.size(), 1U);
  EXPECT_EQ(launches[0].id, app);
  EXPECT_EQ(launches[0].location, "0");
  EXPECT_FALSE(launches[0].context);
  EXPECT_FALSE(launches[0].settings);
  EXPECT_FALSE(launches[0].actions);
}

TEST_P(OpenApp, LaunchesAsTheLastIconWasLaunched) {
  phone.install({});
  phone.launch("com.example.notes");
  phone.home();
  phone.openMenu();
  phone.tap("Open App");
  const auto launches = phone.launches();
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
  phone.options().interposed = {method};
  phone.install({});
  phone.touch(app);
  std::filesystem::remove_all(phone.bundle(app).parent_path());
  phone.interpose(method, {{"do", "perform"}, {"requests", {{{"verb", "rescan"}}}}});
  phone.perform("openApps");
  EXPECT_EQ(phone.launches().size(), 1U);
}

TEST_P(OpenApp, WithoutACurrentApplicationDoesNothing) {
  phone.perform("openApps");
  EXPECT_TRUE(phone.launches().empty());
}

TEST_P(OpenApp, OpensWhatIsCurrentWhenTapped) {
  phone.install({});
  phone.openMenu();
  phone.touchInSpite("com.example.notes");
  phone.tap("Open App");
  EXPECT_EQ(phone.launches().back().id, "com.example.notes");
}

TEST_P(OpenApp, AnIconThatWentIsNotLaunched) {
  phone.install({});
  phone.openMenu();
  std::filesystem::remove_all(phone.bundle(app).parent_path());
  phone.rescan();
  phone.tap("Open App");
  EXPECT_TRUE(phone.launches().empty());
  EXPECT_TRUE(phone.screen().windows.empty());
}
