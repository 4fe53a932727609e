// The list of muted applications: its file, what a choice changes in it, and when records leave it.
#include <sys/stat.h>

#include "tests/mute/muting.hpp"

namespace {

namespace fs = std::filesystem;
using test::app;
using test::everyPlace;
using test::forever;
using test::Json;
using test::listOf;
using test::nowhere;
using test::other;
using test::record;

class MuteList : public test::Muting {};
class MutePruning : public test::Muting {};
class MuteListNotLoaded : public test::Muting {
 protected:
  void expectNothingIsMuted() {
    EXPECT_FALSE(sheetOffers("Unmute"));
    for (const auto* title : {"For 15 Minutes", "Forever"}) {
      openSheet();
      ASSERT_TRUE(phone.hasButton(title));
      choose(title);
      EXPECT_TRUE(phone.screen().windows.empty());
      EXPECT_EQ(reached(), everyPlace);
    }
    EXPECT_FALSE(sheetOffers("Unmute"));
  }
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, MuteList, test::bothGenerations, test::generationName);
INSTANTIATE_TEST_SUITE_P(, MutePruning, test::bothGenerations, test::generationName);
INSTANTIATE_TEST_SUITE_P(, MuteListNotLoaded, test::bothGenerations, test::generationName);

TEST_P(MuteList, IsMadeEmptyAndReadableByAllWhenMissing) {
  const mode_t before = umask(077);
  phone.screen();
  umask(before);
  EXPECT_EQ(list(), listOf(Json::array()));
  EXPECT_EQ(fs::status(file()).permissions(), fs::perms{0644});
}

TEST_P(MuteList, IsLeftAsItIsAtTheStart) {
  const std::string content =
      "<?xml version='1.0' encoding='UTF-8'?> <plist version='1.0'> <dict><key>entries</key><array/>\n</dict></plist>";
  sim::writeFile(file(), content);
  fs::permissions(file(), fs::perms{0600});
  phone.screen();
  EXPECT_EQ(bytes(), content);
  EXPECT_EQ(fs::status(file()).permissions(), fs::perms{0600});
}

TEST_P(MuteList, HoldsTheEndOfEachDuration) {
  const std::vector<std::pair<std::string, double>> durations{
      {"For 15 Minutes", 900}, {"For 1 Hour", 3600},   {"For 2 Hour", 7200}, {"For 3 Hour", 10800},
      {"For 5 Hour", 18000},   {"For 8 Hours", 28800}, {"For 1 Day", 86400}};
  for (const auto& [title, seconds] : durations) {
    mute(title);
    EXPECT_EQ(list(), listOf({record(app, start + seconds)})) << title;
    mute("Unmute");
    EXPECT_EQ(list(), listOf(Json::array()));
  }
}

TEST_P(MuteList, IsAnXmlPropertyListOfIntegersAndReals) {
  mute("For 15 Minutes");
  mute("Forever", other);
  EXPECT_EQ(bytes(), R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">
<dict>
	<key>entries</key>
	<array>
		<dict>
			<key>id</key>
			<string>com.example.test</string>
			<key>timeStamp</key>
			<real>1700000900.25</real>
		</dict>
		<dict>
			<key>id</key>
			<string>com.example.notes</string>
			<key>timeStamp</key>
			<integer>-1</integer>
		</dict>
	</array>
</dict>
</plist>
)");
}

TEST_P(MuteList, KeepsEverythingElseThatItWasReadWith) {
  const Json content{{"also", {{"data", Json::binary({1, 2})}, {"flag", true}, {"integer", 2}, {"real", 2.0}}},
                     {"entries",
                      {record("a", 1'800'000'000),
                       record("b", 1'800'000'000.0),
                       record("c", 1'800'000'000.5),
                       record("d", -1),
                       record("e", -1.0),
                       {{"extra", "é"}, {"id", app}, {"timeStamp", 5}}}}};
  sim::PropertyList(content).write(file(), sim::PropertyList::Format::binary);
  mute("Forever");
  Json expected = content;
  expected["entries"][5]["timeStamp"] = -1;
  EXPECT_EQ(list(), sim::PropertyList(expected).readable());
  EXPECT_TRUE(bytes().starts_with("<?xml"));
}

TEST_P(MuteList, HoldsIdentifiersOfAnyScript) {
  const std::string id = "com.example.café-日本-😀-<&>";
  phone.install({.id = id});
  mute("For 1 Day", id);
  EXPECT_EQ(list(), listOf({record(id, start + 86400)}));
  EXPECT_TRUE(holds("<string>com.example.café-日本-😀-&lt;&amp;&gt;</string>"));
  phone.respring();
  EXPECT_EQ(reached(id), nowhere);
  EXPECT_EQ(reached(), everyPlace);
}

TEST_P(MuteList, IsReadOnceByTheReaderOfMutableDictionaries) {
  const std::string reader = "+NSMutableDictionary dictionaryWithContentsOfFile:";
  phone.options().interposed = {reader};
  const auto read = [&] { return phone.ask("platform").at("interposed").at(reader).get<long>(); };
  EXPECT_EQ(read(), 1);
  mute("For 1 Hour");
  reached();
  EXPECT_EQ(read(), 1);
}

TEST_P(MuteList, IsReadOnceThePlatformHasLaunched) {
  const std::string launching = "SpringBoard applicationDidFinishLaunching:";
  phone.options().interposed = {launching};
  mute("Forever");
  store({forever(other)});
  phone.interpose(launching, {{"do", "raise"}});
  EXPECT_TRUE(phone.raises(
      "perform", {{"target", "SpringBoard"}, {"selector", "applicationDidFinishLaunching:"}, {"arguments", {0}}}));
  EXPECT_EQ(reached(app), nowhere);
  EXPECT_EQ(reached(other), everyPlace);
}

TEST_P(MuteList, OutlivesARespring) {
  mute("For 15 Minutes");
  mute("Forever", other);
  const std::string before = bytes();
  phone.respring();
  EXPECT_EQ(bytes(), before);
  EXPECT_EQ(reached(), nowhere);
  EXPECT_EQ(reached(other), nowhere);
  phone.advance(2 * 86400.0).respring();
  EXPECT_EQ(reached(), everyPlace);
  EXPECT_EQ(reached(other), nowhere);
  EXPECT_EQ(list(), listOf({forever(other)}));
}

TEST_P(MuteList, ATimedChoiceForAMutedApplicationStartsItsRecordAnew) {
  store({forever(app), forever(other)});
  mute("For 15 Minutes");
  EXPECT_EQ(list(), listOf({forever(other), record(app, start + 900)}));
  phone.advance(100);
  mute("For 1 Hour");
  EXPECT_EQ(list(), listOf({forever(other), record(app, start + 3700)}));
  phone.advance(3600);
  EXPECT_EQ(reached(), everyPlace);
}

TEST_P(MuteList, ARecordThatRanOutIsTimedAgainInItsPlace) {
  store({record(app, start - 100), forever(other)});
  mute("For 15 Minutes");
  EXPECT_EQ(list(), listOf({record(app, start + 900), forever(other)}));
  phone.advance(1000);
  mute("Forever");
  EXPECT_EQ(list(), listOf({forever(app), forever(other)}));
}

TEST_P(MuteList, UnmutingRemovesTheRecord) {
  store({record(other, later), forever(app), record("third", later)});
  mute("Unmute");
  EXPECT_EQ(list(), listOf({record(other, later), record("third", later)}));
  EXPECT_EQ(reached(), everyPlace);
}

TEST_P(MuteList, UnmutingRemovesAllThatEqualTheLastRecordOfTheApplication) {
  store({record(app, later), forever(app), forever(other), record(app, later + 1), forever(app)});
  mute("Unmute");
  EXPECT_EQ(list(), listOf({record(app, later), forever(other), record(app, later + 1)}));
  EXPECT_EQ(reached(), nowhere);
  mute("Unmute");
  EXPECT_EQ(list(), listOf({record(app, later), forever(other)}));
}

TEST_P(MuteList, ADurationTimesEveryRecordOfTheApplication) {
  store({record(app, 5), forever(other), record(app, 6.5)});
  mute("For 1 Hour");
  EXPECT_EQ(list(), listOf({record(app, start + 3600), forever(other), record(app, start + 3600)}));
  phone.advance(4000);
  mute("Forever");
  EXPECT_EQ(list(), listOf({forever(app), forever(other), forever(app)}));
}

TEST_P(MuteList, ATimedChoiceDropsOnlyTheLastRecordOfSeveral) {
  store({record(app, later), forever(other), record(app, later + 1)});
  mute("For 15 Minutes");
  EXPECT_EQ(list(), listOf({record(app, start + 900), forever(other)}));
}

TEST_P(MuteList, IsWrittenAlsoWhenNothingChanged) {
  store({record(app, start + 10), forever(other)});
  openSheet();
  phone.advance(20);
  ASSERT_EQ(reached("com.example.chess"), everyPlace);
  ASSERT_EQ(list(), listOf({forever(other)}));
  fs::remove(file());
  choose("Unmute");
  EXPECT_EQ(list(), listOf({forever(other)}));
}

TEST_P(MuteList, OverwritesAChangeFromOutside) {
  store({forever(app)});
  phone.screen();
  store({forever(other)});
  EXPECT_EQ(reached(other), everyPlace);
  EXPECT_EQ(list(), listOf({forever(app)}));
  sim::writeFile(file(), "nonsense");
  mute("Forever", other);
  EXPECT_EQ(list(), listOf({forever(app), forever(other)}));
}

TEST_P(MuteList, StaysInForceWhenItCannotBeWritten) {
  phone.screen();
  const std::string before = bytes();
  fs::permissions(file().parent_path(), fs::perms{0555});
  mute("Forever");
  EXPECT_EQ(bytes(), before);
  EXPECT_EQ(reached(), nowhere);
  EXPECT_TRUE(sheetOffers("Unmute"));
  fs::permissions(file().parent_path(), fs::perms{0755});
  EXPECT_EQ(reached(other), everyPlace);
  EXPECT_EQ(list(), listOf({forever(app)}));
}

TEST_P(MuteListNotLoaded, WhenTheFileHoldsNoDictionary) {
  const std::vector<std::string> contents{
      "",
      "nonsense",
      "bplist00 and no more",
      "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>entries</key><array>",
      "<?xml version=\"1.0\"?><plist version=\"1.0\"><array><dict><key>id</key><string>" + app +
          "</string><key>timeStamp</key><integer>-1</integer></dict></array></plist>",
      "<?xml version=\"1.0\"?><plist version=\"1.0\"><string>entries</string></plist>"};
  for (const std::string& content : contents) {
    SCOPED_TRACE(content);
    sim::writeFile(file(), content);
    phone.respring();
    expectNothingIsMuted();
    EXPECT_EQ(bytes(), content);
  }
}

TEST_P(MuteListNotLoaded, WhenAFolderIsInTheFilesPlace) {
  fs::create_directories(file() / "within");
  expectNothingIsMuted();
  EXPECT_TRUE(fs::is_directory(file() / "within"));
}

TEST_P(MuteListNotLoaded, WhenTheFileMayNotBeRead) {
  store({forever(app)});
  const std::string before = bytes();
  fs::permissions(file(), fs::perms::none);
  expectNothingIsMuted();
  fs::permissions(file(), fs::perms{0600});
  EXPECT_EQ(bytes(), before);
}

TEST_P(MuteListNotLoaded, WhenItCouldNotBeMade) {
  fs::permissions(file().parent_path(), fs::perms{0555});
  expectNothingIsMuted();
  fs::permissions(file().parent_path(), fs::perms{0755});
  EXPECT_EQ(reached(), everyPlace);
  expectNothingIsMuted();
  EXPECT_FALSE(fs::exists(file()));
}

TEST_P(MuteListNotLoaded, UntilTheNextStartFindsIt) {
  sim::writeFile(file(), "nonsense");
  phone.screen();
  store({forever(app)});
  expectNothingIsMuted();
  EXPECT_EQ(list(), listOf({forever(app)}));
  phone.respring();
  EXPECT_EQ(reached(), nowhere);
}

TEST_P(MutePruning, TakesARecordOutWhenItsTimeHasPassed) {
  mute("For 15 Minutes");
  phone.advance(899.5);
  EXPECT_EQ(reached(), nowhere);
  phone.advance(10);
  ASSERT_EQ(list(), listOf({record(app, start + 900)}));
  EXPECT_EQ(reached(), everyPlace);
  EXPECT_EQ(list(), listOf(Json::array()));
}

TEST_P(MutePruning, WaitsForTheSecondAfterTheEnd) {
  store({record(app, 1'700'000'010.75)});
  phone.advance(9.5);  // …009.75
  EXPECT_EQ(reached(), nowhere);
  phone.advance(0.25);  // …010
  EXPECT_EQ(reached(), everyPlace);
  phone.advance(0.875);  // …010.875
  EXPECT_EQ(reached(), everyPlace);
  EXPECT_EQ(list(), listOf({record(app, 1'700'000'010.75)}));
  phone.advance(0.125);  // …011
  EXPECT_EQ(reached(), everyPlace);
  EXPECT_EQ(list(), listOf(Json::array()));
}

TEST_P(MutePruning, IsDoneByEveryKindOfNotificationOfAnyApplication) {
  for (const std::string& id : {app, other}) {
    for (const auto& place : everyPlace) {
      SCOPED_TRACE(place);
      store({record("gone", start - 2), record(app, start - 1), record("there", later), forever("kept")});
      phone.respring();
      EXPECT_EQ(reached(id, {place}), test::Places{place});
      EXPECT_EQ(list(), listOf({record("there", later), forever("kept")}));
    }
  }
}

TEST_P(MutePruning, IsDoneByNotificationsThatAreKeptAway) {
  store({record("gone", start - 2), forever(app)});
  EXPECT_EQ(reached(), nowhere);
  EXPECT_EQ(list(), listOf({forever(app)}));
}

TEST_P(MutePruning, WritesTheListAlsoWhenNothingRanOut) {
  store({forever(app), record(other, later)});
  phone.screen();
  for (const std::string& id : {app, other, std::string("com.example.chess")}) {
    for (const auto& place : everyPlace) {
      fs::remove(file());
      reached(id, {place});
      EXPECT_EQ(list(), listOf({forever(app), record(other, later)})) << id << " " << place;
    }
  }
}

TEST_P(MutePruning, IsNotDoneByTheSheet) {
  store({record(app, start - 2), record(other, start - 2)});
  phone.screen();
  fs::remove(file());
  openSheet();
  EXPECT_FALSE(fs::exists(file()));
  choose("Cancel");
  EXPECT_FALSE(fs::exists(file()));
  reached("com.example.chess");
  EXPECT_EQ(list(), listOf(Json::array()));
}

TEST_P(MutePruning, ReadsATimeThatIsATextByItsNumber) {
  store({record(app, "1700005000"), record(other, "-1")});
  EXPECT_EQ(reached(app), nowhere);
  EXPECT_EQ(reached(other), nowhere);
  EXPECT_TRUE(sheetOffers("Unmute"));
  store({record(app, "1600000000")});
  phone.respring();
  EXPECT_EQ(reached(app), everyPlace);
}

TEST_P(MutePruning, TakesARecordWithoutATimeOut) {
  store({{{"id", app}}, {{"id", other}}, forever("kept")});
  EXPECT_TRUE(sheetOffers("Forever"));
  EXPECT_EQ(reached(), everyPlace);
  EXPECT_EQ(list(), listOf({forever("kept")}));
}

TEST_P(MutePruning, ReadsTimesAsWholeNumbersOf32Bits) {
  // Truncated towards zero, and without the bits above the lowest 32.
  const std::int64_t wrap = std::int64_t{1} << 32U;
  for (const Json& endless : {Json(-1.0), Json(-1.75), Json(wrap - 1), Json(wrap + 1'700'005'000)}) {
    SCOPED_TRACE(endless);
    store({record(app, endless)});
    phone.respring();
    EXPECT_TRUE(sheetOffers("Unmute"));
    EXPECT_EQ(reached(), nowhere);
    EXPECT_EQ(list(), listOf({record(app, endless)}));
  }
  for (const Json& passed : {Json(-2), Json(-0.75), Json(0), Json(wrap / 2), Json(wrap + 5)}) {
    SCOPED_TRACE(passed);
    store({record(app, passed)});
    phone.respring();
    EXPECT_TRUE(sheetOffers("Forever"));
    EXPECT_EQ(reached(), everyPlace);
    EXPECT_EQ(list(), listOf(Json::array()));
  }
}

TEST_P(MutePruning, KnowsTimesUpToTheLastThatFitsIn32Bits) {
  store({record(app, 2'147'483'647)});
  phone.options().clock = 2'147'483'646.5;
  EXPECT_EQ(reached(), nowhere);
  phone.advance(0.5);
  EXPECT_EQ(reached(), everyPlace);
  EXPECT_EQ(list(), listOf({record(app, 2'147'483'647)}));
}
