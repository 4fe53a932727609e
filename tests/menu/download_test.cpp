// The flag that keeps the swipe still while icons are downloading.
#include "tests/support/home.hpp"

namespace {
const std::string app = "com.example.notes";
const std::string downloading = "com.example.placeholder";
class Download : public test::Generations {
 protected:
  bool swipeOpens() {
    home.swipeUp(app);
    const bool opened = home.showsAlert();
    if (opened) home->tap("Cancel");
    home->advance(1);
    return opened;
  }
};
}  // namespace
INSTANTIATE_TEST_SUITE_P(, Download, test::bothGenerations, test::generationName);

TEST_P(Download, ADownloadThatNobodyAskedAboutChangesNothing) {
  home->startDownload(downloading);
  EXPECT_TRUE(swipeOpens());
}

TEST_P(Download, AskingKeepsTheSwipeStill) {
  home->startDownload(downloading);
  home->askDownload(downloading);
  EXPECT_FALSE(swipeOpens());
}

TEST_P(Download, TheFlagComesBeforeEverySetting) {
  home->startDownload(downloading);
  home->askDownload(downloading);
  home->edit(true);
  home.settings({"useEditing=true", "direction=0"});
  EXPECT_FALSE(swipeOpens());
}

TEST_P(Download, RemovingLowersTheFlagAfterHalfASecond) {
  home->startDownload(downloading);
  home->askDownload(downloading);
  home->removeDownload(downloading);
  home->advance(0.49);
  home.swipeUp(app);
  EXPECT_FALSE(home.showsAlert());
  home->advance(0.02);
  home.swipeUp(app);
  EXPECT_TRUE(home.showsAlert());
}

TEST_P(Download, EverybodyIsToldThatADownloadWasRemoved) {
  home->startDownload(downloading);
  home->removeDownload(downloading);
  const auto calls = home.callsDuring([&] { home->advance(0.6); });
  const auto posted = std::find_if(calls.begin(), calls.end(), [](const auto& call) { return call.kind == "post"; });
  ASSERT_NE(posted, calls.end());
  EXPECT_EQ(posted->selector, "com.morvanel.sprigdial.isdownload");
  EXPECT_EQ(posted->encoding, "object nil, user info nil, immediately");
}

// The platform may raise below: what comes before its turn has been done.
TEST_P(Download, TheFlagIsRaisedBeforeThePlatformAnswers) {
  home.options().interposed = {"SBDownloadingIcon isDownloadingIcon"};
  home->startDownload(downloading);
  home->interpose(home.options().interposed[0], {{"do", "raise"}});
  EXPECT_TRUE(home->raises("download", {{"what", "ask"}, {"id", downloading}}));
  EXPECT_FALSE(swipeOpens());
}

TEST_P(Download, TheFlagIsLoweredThoughThePlatformBreaksTheRemovalOff) {
  home.options().interposed = {"SBDownloadingIcon uninstalledByUser"};
  home->startDownload(downloading);
  home->askDownload(downloading);
  home->interpose(home.options().interposed[0], {{"do", "raise"}});
  EXPECT_TRUE(home->raises("download", {{"what", "remove"}, {"id", downloading}}));
  home->advance(0.6);
  EXPECT_TRUE(swipeOpens());
}

TEST_P(Download, TimeAloneDoesNotLowerTheFlag) {
  home->startDownload(downloading);
  home->askDownload(downloading);
  home->advance(3600);
  EXPECT_FALSE(swipeOpens());
}

TEST_P(Download, TheNotificationAloneLowersTheFlag) {
  home->startDownload(downloading);
  home->askDownload(downloading);
  home->post("com.morvanel.sprigdial.isdownload");
  EXPECT_TRUE(swipeOpens());
}

TEST_P(Download, ARespringLowersTheFlag) {
  home->startDownload(downloading);
  home->askDownload(downloading);
  home->respring();
  EXPECT_TRUE(swipeOpens());
}

TEST_P(Download, OneEnvironmentNeverRaisesTheFlag) {
  for (const auto* marker : {"substitute", "unc0ver"}) home.device().setMarker(marker, true);
  home->startDownload(downloading);
  home->askDownload(downloading);
  EXPECT_TRUE(swipeOpens());
  // The other hooking library beside it tells another environment.
  home.device().setMarker("substrate", true);
  home->askDownload(downloading);
  EXPECT_FALSE(swipeOpens());
}

TEST_P(Download, ThatEnvironmentLeavesARaisedFlagAsItIs) {
  home->startDownload(downloading);
  home->askDownload(downloading);
  for (const auto* marker : {"substitute", "unc0ver"}) home.device().setMarker(marker, true);
  home->askDownload(downloading);
  EXPECT_FALSE(swipeOpens());
}

TEST_P(Download, TheEnvironmentNeedsAllItsMarkers) {
  for (const auto* marker : {"substitute", "unc0ver"}) {
    test::Home other(GetParam());
    other.device().setMarker(marker, true);
    other->startDownload(downloading);
    other->askDownload(downloading);
    other.swipeUp(app);
    EXPECT_FALSE(other.showsAlert()) << marker;
  }
}

TEST_P(Download, ThePlatformsAnswerIsKept) {
  home->startDownload(downloading);
  home->askDownload(downloading);
  home->removeDownload(downloading);
  for (const auto& icon : home.screen().icons) EXPECT_NE(icon.id, downloading);
}
