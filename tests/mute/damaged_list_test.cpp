// Whatever the list's file holds, the home screen stays up and the sheet works.
#include "tests/mute/muting.hpp"

namespace {

using test::app;
using test::everyPlace;
using test::forever;
using test::Json;
using test::listOf;
using test::nowhere;
using test::other;
using test::record;

std::string xmlRecord(const std::string& id, const std::string& time) {
  return "<dict><key>id</key>" + id + "<key>timeStamp</key>" + time + "</dict>";
}
std::string xmlList(const std::string& records) {
  return "<dict><key>entries</key><array>" + records + "</array></dict>";
}
const std::string appId = "<string>" + app + "</string>";
const std::string date = "<date>2033-01-02T03:04:05Z</date>";

class DamagedMuteList : public test::Muting {};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, DamagedMuteList, test::bothGenerations, test::generationName);

TEST_P(DamagedMuteList, EntriesOfAnotherKindCountAsAbsent) {
  for (const Json& entries : {Json("text"), Json(7), Json(2.5), Json(true), Json(record(app, -1)), Json(Json::object()),
                              Json::binary({1, 2, 3})}) {
    SCOPED_TRACE(sim::PropertyList(entries).readable());
    store(entries);
    phone.respring();
    EXPECT_EQ(reached(), everyPlace);
    EXPECT_EQ(list(), listOf(entries));
    EXPECT_TRUE(sheetOffers("Forever"));
    mute("Forever");
    EXPECT_EQ(list(), listOf({forever(app)}));
    EXPECT_EQ(reached(), nowhere);
  }
}

TEST_P(DamagedMuteList, WithoutEntriesBeginsAnew) {
  storeXml("<dict><key>kept</key>" + date + "</dict>");
  EXPECT_EQ(reached(), everyPlace);
  EXPECT_EQ(list(), "{\n  \"kept\": 2033-01-02 03:04:05 UTC\n}");
  mute("For 15 Minutes");
  EXPECT_EQ(reached(), nowhere);
  EXPECT_TRUE(holds("<real>1700000900.25</real>"));
  EXPECT_TRUE(holds("<key>kept</key>\n\t" + date));
  mute("Unmute");
  EXPECT_TRUE(holds("<array/>"));
}

TEST_P(DamagedMuteList, RecordsThatAreNoDictionariesStayWhereTheyAre) {
  const Json odd{"text",     5,        record(app, start - 1), Json::array({1, record(app, -1)}), forever(other),
                 Json(true), Json(-1), Json::binary({1, 2})};
  store(odd);
  EXPECT_TRUE(sheetOffers("Forever"));
  EXPECT_TRUE(sheetOffers("Unmute", other));
  mute("For 15 Minutes");
  Json expected = odd;
  expected[2]["timeStamp"] = start + 900;
  EXPECT_EQ(list(), listOf(expected));
  phone.advance(2000);
  EXPECT_EQ(reached(), everyPlace);
  EXPECT_EQ(reached(other), nowhere);
  expected.erase(2);
  EXPECT_EQ(list(), listOf(expected));
  mute("Unmute", other);
  expected.erase(3);
  EXPECT_EQ(list(), listOf(expected));
  mute("Forever");
  expected.push_back(forever(app));
  EXPECT_EQ(list(), listOf(expected));
}

TEST_P(DamagedMuteList, RecordsWithAnIdentifierOfAnotherKindAreForNoApplication) {
  const auto with = [](const Json& id, double time) { return Json{{"id", id}, {"timeStamp", time}}; };
  store({with(7, later), with(Json::array({app}), later), with(Json{{"id", app}}, later), with(true, -1),
         Json{{"timeStamp", -1}}, with(7, start - 1), with(Json::array(), 3), Json::object()});
  EXPECT_TRUE(sheetOffers("Forever"));
  mute("Forever", other);
  EXPECT_EQ(reached(), everyPlace);
  EXPECT_EQ(list(), listOf({with(7, later), with(Json::array({app}), later), with(Json{{"id", app}}, later),
                            with(true, -1), Json{{"timeStamp", -1}}, forever(other)}));
}

TEST_P(DamagedMuteList, ATimeThatIsNoTimeHasPassed) {
  for (const auto& time : {date, std::string("<array><integer>-1</integer></array>"), std::string("<dict/>"),
                           std::string("<data>AQI=</data>"), std::string("<string>nonsense</string>"),
                           std::string("<string></string>"), std::string("<true/>"), std::string("<false/>")}) {
    SCOPED_TRACE(time);
    storeXml(xmlList(xmlRecord(appId, time) + xmlRecord("<string>kept</string>", "<integer>-1</integer>")));
    phone.respring();
    EXPECT_TRUE(sheetOffers("Forever"));
    EXPECT_EQ(reached(), everyPlace);
    EXPECT_EQ(list(), listOf({forever("kept")}));
  }
}

TEST_P(DamagedMuteList, AnyTimeIsReplacedByAChoice) {
  for (const auto& time :
       {date, std::string("<array/>"), std::string("<string>1700005000</string>"), std::string("<string>-1</string>"),
        std::string("<real>nan</real>"), std::string("<real>1e300</real>"), std::string("<real>-1e300</real>")}) {
    SCOPED_TRACE(time);
    storeXml(xmlList(xmlRecord(appId, time)));
    phone.respring();
    mute("For 15 Minutes");
    EXPECT_EQ(list(), listOf({record(app, start + 900)}));
    EXPECT_EQ(reached(), nowhere);
  }
}

TEST_P(DamagedMuteList, TimesBeyondAnyClockBringNothingDown) {
  std::string records;
  for (const auto* time :
       {"<real>2147483648</real>", "<real>4294967295</real>", "<real>1e19</real>", "<real>1e300</real>",
        "<real>-1e300</real>", "<real>inf</real>", "<real>-infinity</real>", "<real>nan</real>", "<real></real>",
        "<real>1e999</real>", "<integer>9223372036854775807</integer>", "<integer>-9223372036854775808</integer>",
        "<integer>18446744073709551615</integer>", "<integer>99999999999999999999999</integer>", "<integer></integer>",
        "<integer>0x7fffffff</integer>", "<string>99999999999999999999</string>"})
    records += xmlRecord(appId, time);
  storeXml(xmlList(records));
  openSheet();
  choose("Cancel");
  reached();
  ASSERT_TRUE(sim::PropertyList::read(file()));
  mute("For 15 Minutes", other);
  EXPECT_EQ(reached(other), nowhere);
}

TEST_P(DamagedMuteList, AClockBeyond32BitsBringsNothingDown) {
  for (const double clock : {2'147'483'600.0, 4'294'967'200.0, 7e9}) {
    SCOPED_TRACE(clock);
    test::Phone another(GetParam());
    another.options().clock = clock;
    another.install({});
    for (const auto* title : {"For 15 Minutes", "For 1 Day"}) {
      another.touch(app);
      another.perform("muteNotifications");
      another.tap(title);
      another.notify(app, "hello").notify(other, "hello");
      another.advance(100);
    }
    EXPECT_TRUE(sim::PropertyList::read(fileOf(another)));
  }
}

TEST_P(DamagedMuteList, ManyRecordsAreNoTrouble) {
  Json entries = Json::array();
  Json kept = Json::array();
  for (int i = 0; i < 2000; ++i) {
    entries.push_back(record("com.example." + std::to_string(i), i % 2 == 0 ? start - 100 : later));
    if (i % 2 != 0) kept.push_back(entries.back());
  }
  store(entries);
  EXPECT_EQ(reached(), everyPlace);
  EXPECT_EQ(list(), listOf(kept));
}

TEST_P(DamagedMuteList, AFileThatBrokeOffOrRottedBringsNothingDown) {
  const sim::PropertyList whole(Json{{"entries", {forever(other), record(app, later), record("é", 5)}}});
  for (const auto format : {sim::PropertyList::Format::xml, sim::PropertyList::Format::binary}) {
    whole.write(file(), format);
    const std::string content = bytes();
    for (std::size_t at = 0; at < content.size(); at += 17) {
      std::string rotten = content;
      rotten[at] = static_cast<char>(rotten[at] ^ 0x0f);
      for (const std::string& damaged : {content.substr(0, at), rotten}) {
        sim::writeFile(file(), damaged);
        phone.respring();
        openSheet();
        choose("Cancel");
        reached();
      }
    }
  }
}
