// The flag that keeps the swipe still while icons are downloading.
#include "tests/support/phone.hpp"

namespace {
const std::string app = "com.example.notes";
const std::string downloading = "com.example.placeholder";
class Download : public test::Generations {
 protected:
  bool swipeOpens() {
    phone.swipeUp(app);
    const bool opened = phone.showsAlert();
    if (opened) phone.tap("Cancel");
    phone.advance(1);
    return opened;
  }
};
}  // namespace
INSTANTIATE_TEST_SUITE_P(, Download, test::bothGenerations, test::generationName);

TEST_P(Download, ADownloadThatNobodyAskedAboutChangesNothing) {
  phone.startDownload(downloading);
  EXPECT_TRUE(swipeOpens());
}

TEST_P(Download, AskingKeepsTheSwipeStill) {
  phone.startDownload(downloading);
  phone.askDownload(downloading);
  EXPECT_FALSE(swipeOpens());
}

TEST_P(Download, TheFlagComesBeforeEverySetting) {
  phone.startDownload(downloading);
  phone.askDownload(downloading);
  phone.edit(true);
  phone.settings({"useEditing=true", "direction=0"});
  EXPECT_FALSE(swipeOpens());
}

TEST_P(Download, RemovingLowersTheFlagAfterHalfASecond) {
  phone.startDownload(downloading);
  phone.askDownload(downloading);
  phone.removeDownload(downloading);
  phone.advance(0.49);
  phone.swipeUp(app);
  EXPECT_FALSE(phone.showsAlert());
  phone.advance(0.02);
  phone.swipeUp(app);
  EXPECT_TRUE(phone.showsAlert());
}

TEST_P(Download, EverybodyIsToldThatADownloadWasRemoved) {
  phone.startDownload(downloading);
  phone.removeDownload(downloading);
  const auto calls = phone.callsDuring([&] { phone.advance(0.6); });
  const auto posted = std::find_if(calls.begin(), calls.end(), [](const auto& call) { return call.kind == "post"; });
  ASSERT_NE(posted, calls.end());
  EXPECT_EQ(posted->selector, "com.morvanel.sprigdial.isdownload");
  EXPECT_EQ(posted->encoding, "object nil, user info nil, immediately");
}

// The platform may raise below: what comes before its turn has been done.
TEST_P(Download, TheFlagIsRaisedBeforeThePlatformAnswers) {
  phone.options().interposed = {"SBDownloadingIcon isDownloadingIcon"};
  phone.startDownload(downloading);
  phone.interpose(phone.options().interposed[0], {{"do", "raise"}});
  EXPECT_TRUE(phone.raises("download", {{"what", "ask"}, {"id", downloading}}));
  EXPECT_FALSE(swipeOpens());
}

TEST_P(Download, TheFlagIsLoweredThoughThePlatformBreaksTheRemovalOff) {
  phone.options().interposed = {"SBDownloadingIcon uninstalledByUser"};
  phone.startDownload(downloading);
  phone.askDownload(downloading);
  phone.interpose(phone.options().interposed[0], {{"do", "raise"}});
  EXPECT_TRUE(phone.raises("download", {{"what", "remove"}, {"id", downloading}}));
  phone.advance(0.6);
  EXPECT_TRUE(swipeOpens());
}

TEST_P(Download, TimeAloneDoesNotLowerTheFlag) {
  phone.startDownload(downloading);
  phone.askDownload(downloading);
  phone.advance(3600);
  EXPECT_FALSE(swipeOpens());
}

TEST_P(Download, TheNotificationAloneLowersTheFlag) {
  phone.startDownload(downloading);
  phone.askDownload(downloading);
  phone.post("com.morvanel.sprigdial.isdownload");
  EXPECT_TRUE(swipeOpens());
}

TEST_P(Download, ARespringLowersTheFlag) {
  phone.startDownload(downloading);
  phone.askDownload(downloading);
  phone.respring();
  EXPECT_TRUE(swipeOpens());
}

TEST_P(Download, OneEnvironmentNeverRaisesTheFlag) {
  for (const auto* marker : {"substitute", "unc0ver"}) phone.device().setMarker(marker, true);
  phone.startDownload(downloading);
  phone.askDownload(downloading);
  EXPECT_TRUE(swipeOpens());
  // The other hooking library beside it tells another environment.
  phone.device().setMarker("substrate", true);
  phone.askDownload(downloading);
  EXPECT_FALSE(swipeOpens());
}

TEST_P(Download, ThatEnvironmentLeavesARaisedFlagAsItIs) {
  phone.startDownload(downloading);
  phone.askDownload(downloading);
  for (const auto* marker : {"substitute", "unc0ver"}) phone.device().setMarker(marker, true);
  phone.askDownload(downloading);
  EXPECT_FALSE(swipeOpens());
}

TEST_P(Download, TheEnvironmentNeedsAllItsMarkers) {
  for (const auto* marker : {"substitute", "unc0ver"}) {
    test::Phone other(GetParam());
    other.device().setMarker(marker, true);
    other.startDownload(downloading);
    other.askDownload(downloading);
    other.swipeUp(app);
    EXPECT_FALSE(other.showsAlert()) << marker;
  }
}

TEST_P(Download, ThePlatformsAnswerIsKept) {
  phone.startDownload(downloading);
  phone.askDownload(downloading);
  phone.removeDownload(downloading);
  for (const auto& icon : phone.screen().icons) EXPECT_NE(icon.id, downloading);
}
