// The list of muted applications as a file, its sheet, and what notifications come to.
#pragma once

#include "tests/support/phone.hpp"

namespace test {

using Json = nlohmann::ordered_json;
using Places = std::vector<std::string>;

inline const std::string app = "com.example.test";
inline const std::string other = "com.example.notes";
inline const Places everyPlace{"screen", "sound", "lock screen", "banner"};
inline const Places nowhere{};

/// Records of the list.
inline Json record(const std::string& id, const Json& timeStamp) { return {{"id", id}, {"timeStamp", timeStamp}}; }
inline Json forever(const std::string& id) { return record(id, -1); }

/// A list of them. (In braces alone a single record would not be a list.)
inline Json records(std::initializer_list<Json> all) { return Json::array_t(all); }

/// A list's content as a person reads it, in which 1 and 1.0 are not the same.
inline std::string listOf(const Json& entries) { return sim::PropertyList(Json{{"entries", entries}}).readable(); }
inline std::string listOf(std::initializer_list<Json> all) { return listOf(records(all)); }

class Muting : public Generations {
 protected:
  /// When the home screen starts; the quarter is exact in any binary number.
  static constexpr double start = 1'700'000'000.25;
  static constexpr double later = start + 5000;

  void SetUp() override {
    phone.options().clock = start;
    phone.install({});
  }

  static std::filesystem::path fileOf(Phone& another) {
    return another.path("/var/mobile/Library/Preferences/com.morvanel.sprigdial.menu.plist");
  }
  std::filesystem::path file() const {
    return phone.path("/var/mobile/Library/Preferences/com.morvanel.sprigdial.menu.plist");
  }
  void store(const Json& entries) const { sim::PropertyList(Json{{"entries", entries}}).write(file()); }
  void store(std::initializer_list<Json> all) const { store(records(all)); }
  /// A property list of these XML elements.
  void storeXml(const std::string& elements) const {
    sim::writeFile(file(), R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0">)" + elements + "</plist>");
  }
  std::string bytes() const { return sim::readFile(file()).value_or("no file"); }
  bool holds(const std::string& text) const { return bytes().find(text) != std::string::npos; }
  std::string list() const {
    const auto content = sim::PropertyList::read(file());
    return content ? content->readable() : "no property list";
  }

  /// Opens the sheet as the menu does.
  void openSheet(const std::string& id = app) {
    phone.touchInSpite(id);
    phone.perform("muteNotifications");
  }
  /// Taps a button of the sheet. By the clock, its handler runs now.
  void choose(const std::string& title) {
    const double now = phone.now();
    phone.tapLate(title).setClock(now - dismissal).advance(dismissal);
  }
  void mute(const std::string& title, const std::string& id = app) {
    openSheet(id);
    choose(title);
  }
  bool sheetOffers(const std::string& title, const std::string& id = app) {
    openSheet(id);
    const bool offered = phone.hasButton(title);
    choose("Cancel");
    return offered;
  }

  /// Lets a notification arrive at these places and tells which of them it came to.
  Places reached(const std::string& id = app, const Places& places = everyPlace) {
    const std::string text = "notification " + std::to_string(++notifications);
    const std::size_t before = phone.events().size();
    phone.notify(id, text, places);
    const Screen seen = phone.screen();
    const auto events = phone.events(before);
    const auto happened = [&](const std::string& event) {
      return std::find(events.begin(), events.end(), event) != events.end();
    };
    const auto shown = [&](const std::vector<sim::NotificationOnScreen>& list) {
      return std::any_of(list.begin(), list.end(), [&](const auto& each) { return each.text == text; });
    };
    Places all;
    if (happened("screen woken by " + id)) all.emplace_back("screen");
    if (happened("sound for " + id)) all.emplace_back("sound");
    if (shown(seen.lockScreen)) all.emplace_back("lock screen");
    if (shown(seen.banners)) all.emplace_back("banner");
    return all;
  }

 private:
  int notifications = 0;
};

}  // namespace test
