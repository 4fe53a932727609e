// What becomes of the notifications of muted applications, place by place.
#include "tests/mute/muting.hpp"

namespace {

using test::app;
using test::everyPlace;
using test::forever;
using test::Json;
using test::listOf;
using test::nowhere;
using test::other;
using test::Places;
using test::record;

class MuteSuppression : public test::Muting {
 protected:
  void chooseWhere(const std::string& disableType) { phone.settings({"disableType=" + disableType}); }
};
class MuteSuppressionOld : public test::Muting {
 protected:
  Json posted() { return phone.ask("notifications").at("entries"); }
  Json completed() { return phone.ask("platform").at("completedBanners"); }
};

struct Way {
  std::string disableType;  // empty for no setting
  Places keptAway;
  Places let;
};
const std::vector<Way> ways{{"", everyPlace, nowhere},
                            {"0", {"banner"}, {"screen", "sound", "lock screen"}},
                            {"1", {"screen", "sound", "lock screen"}, {"banner"}},
                            {"2", everyPlace, nowhere},
                            {"5", everyPlace, nowhere},
                            {"-1", everyPlace, nowhere}};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, MuteSuppression, test::bothGenerations, test::generationName);
INSTANTIATE_TEST_SUITE_P(, MuteSuppressionOld, testing::Values(sim::Generation::old), test::generationName);

TEST_P(MuteSuppression, KeepsMutedNotificationsFromThePlacesOfTheSetting) {
  store({forever(app)});
  for (const auto& way : ways) {
    SCOPED_TRACE("disableType=" + way.disableType);
    chooseWhere(way.disableType);
    EXPECT_EQ(reached(), way.let);
    EXPECT_EQ(reached(other), everyPlace);
    for (const auto& place : everyPlace) {
      const bool let = std::find(way.let.begin(), way.let.end(), place) != way.let.end();
      EXPECT_EQ(reached(app, {place}), let ? Places{place} : nowhere);
      EXPECT_EQ(reached(other, {place}), Places{place});
    }
  }
}

TEST_P(MuteSuppression, LooksAtTheListOnlyForThePlacesOfTheSetting) {
  for (const auto& way : ways) {
    SCOPED_TRACE("disableType=" + way.disableType);
    chooseWhere(way.disableType);
    for (const auto& place : everyPlace) {
      SCOPED_TRACE(place);
      store({record(other, start - 100), forever(app)});
      phone.respring();
      sim::writeFile(file(), "changed from outside");
      const bool let = std::find(way.let.begin(), way.let.end(), place) != way.let.end();
      reached(app, {place});
      if (let) {
        EXPECT_EQ(bytes(), "changed from outside");
      } else {
        EXPECT_EQ(list(), listOf({forever(app)}));
      }
    }
  }
}

TEST_P(MuteSuppression, DoesNotDependOnTheMasterSwitch) {
  store({forever(app), record(other, start - 1)});
  phone.settings({"enabled=false"});
  EXPECT_EQ(reached(), nowhere);
  EXPECT_EQ(list(), listOf({forever(app)}));
  EXPECT_EQ(reached(other), everyPlace);
  phone.settings({"disableType=0"});
  EXPECT_EQ(reached(), (Places{"screen", "sound", "lock screen"}));
}

TEST_P(MuteSuppression, DoesNotWakeTheScreenOfALockedPhone) {
  store({forever(app)});
  phone.lock();
  ASSERT_FALSE(phone.screen().on);
  reached();
  EXPECT_FALSE(phone.screen().on);
  reached(other);
  EXPECT_TRUE(phone.screen().on);
}

TEST_P(MuteSuppression, BeginsWithTheChoiceAndEndsWithTheNext) {
  EXPECT_EQ(reached(), everyPlace);
  mute("For 15 Minutes");
  EXPECT_EQ(reached(), nowhere);
  mute("Unmute");
  EXPECT_EQ(reached(), everyPlace);
  mute("Forever");
  EXPECT_EQ(reached(), nowhere);
  mute("For 1 Hour");
  EXPECT_EQ(reached(), nowhere);
  phone.advance(3599);
  EXPECT_EQ(reached(), nowhere);
  phone.advance(1);
  EXPECT_EQ(reached(), everyPlace);
}

TEST_P(MuteSuppression, GoesByTheWholeIdentifier) {
  store({forever("com.example"), forever("com.example.test2"), forever("COM.EXAMPLE.TEST"), forever("")});
  EXPECT_EQ(reached(), everyPlace);
}

TEST_P(MuteSuppression, TellsMutedByAnyRecordOfTheApplication) {
  store({record(app, start - 100), record(app, later), record(app, start - 50)});
  EXPECT_EQ(reached(), nowhere);
  EXPECT_EQ(list(), listOf({record(app, later)}));
}

TEST_P(MuteSuppressionOld, HandsEverythingOnUnchanged) {
  for (const bool modal : {false, true}) {
    phone.ask("notify", {{"id", other}, {"text", modal ? "second" : "first"}, {"modal", int{modal}}});
  }
  const auto lockScreen = [](const char* text) {
    return Json{{"place", "lock screen"},
                {"text", text},
                {"coalesced", "notifications of " + other},
                {"sourceAction", nullptr},
                {"modal", false}};
  };
  const auto banner = [](const char* text, bool modal) {
    return Json{{"place", "banner"},
                {"text", text},
                {"coalesced", "notifications of " + other},
                {"sourceAction", std::string("source of ") + text},
                {"modal", modal}};
  };
  const Json expected{lockScreen("first"), banner("first", false), lockScreen("second"), banner("second", true)};
  EXPECT_EQ(nlohmann::json(posted()), nlohmann::json(expected));
}

TEST_P(MuteSuppressionOld, HandsEverythingOnUnchangedWithTheListLeftAlone) {
  store({forever(app)});
  phone.settings({"disableType=1"});
  phone.ask("notify", {{"id", app}, {"text", "hello"}, {"modal", 1}});
  ASSERT_EQ(posted().size(), 1U);
  EXPECT_EQ(posted()[0].at("place"), "banner");
  EXPECT_EQ(posted()[0].at("coalesced"), "notifications of " + app);
  EXPECT_EQ(posted()[0].at("sourceAction"), "source of hello");
  EXPECT_EQ(posted()[0].at("modal"), true);
  EXPECT_EQ(completed(), Json{"hello"});
}

TEST_P(MuteSuppressionOld, ADroppedBannerIsNeverCompleted) {
  store({forever(app)});
  phone.notify(app, "dropped").notify(other, "shown").notify(app, "dropped, too");
  phone.advance(60);
  EXPECT_EQ(completed(), Json{"shown"});
}
