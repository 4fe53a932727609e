// What happens to a phone: what a person does with it, and what comes from elsewhere.
#include "simulator/homescreen/common/gestures.hpp"

#include <algorithm>
#include <cmath>
#include <map>

#include "simulator/control/agent/verbs.hpp"
#include "simulator/frameworks/core_foundation/darwin_notifications.hpp"
#include "simulator/frameworks/core_foundation/preferences.hpp"
#include "simulator/frameworks/uikit/transitions.hpp"
#include "simulator/homescreen/common/icons.hpp"
#include "simulator/homescreen/common/refused.hpp"
#include "simulator/homescreen/common/touches.hpp"
#include "simulator/runtime/clock.hpp"
#include "simulator/runtime/main_queue.hpp"

namespace sim {
namespace {

using nlohmann::json;
using Type = MemberType;

std::string textOf(const json& members, const char* name) { return members.at(name).get<std::string>(); }

std::uint8_t byteOf(const json& members, const char* name, std::uint8_t otherwise) {
  const auto byte = members.value(name, std::int64_t{otherwise});
  if (byte < 0 || byte > 255) throw BadRequest(std::string("\"") + name + "\" does not fit a byte");
  return static_cast<std::uint8_t>(byte);
}

/// A gesture on the icon named.
template <void (*Gesture)(const std::string&)>
json onIcon(const json& members) {
  Gesture(textOf(members, "id"));
  return {};
}

/// A gesture that needs no more words.
template <void (*Gesture)()>
json gesture(const json&) {
  Gesture();
  return {};
}

std::vector<CGPoint> samplesOf(const json& members) {
  const auto& given = members.at("samples");
  if (given.size() % 2 != 0) throw BadRequest("\"samples\" has a DX without a DY");
  std::vector<CGPoint> samples;
  for (std::size_t i = 0; i < given.size(); i += 2) samples.push_back({given[i], given[i + 1]});
  return samples;
}

json swipe(const json& members) {
  const std::string direction = members.at("direction");
  const CGFloat sign = direction == "up" ? -1 : 1;
  std::vector<CGPoint> samples(3, {0, sign * 20});
  if (members.contains("samples")) samples = samplesOf(members);
  CGFloat way = 0;
  for (const CGPoint& sample : samples) way += sample.y;
  if (way * sign < 0) throw BadRequest("The finger does not go " + direction);
  gestures::swipe(textOf(members, "id"), samples);
  return {};
}

json choose(const json& members) {
  gestures::choose(textOf(members, "title"));
  return {};
}

CGPoint pointOf(const json& members) { return {members.at("x").get<double>(), members.at("y").get<double>()}; }

json touchAt(const json& members) {
  gestures::touchAt(pointOf(members));
  return {};
}

json drag(const json& members) {
  gestures::drag(pointOf(members), samplesOf(members));
  return {};
}

const std::map<std::string, Orientation>& orientations() {
  static const std::map<std::string, Orientation> known = {{"portrait", Orientation::portrait},
                                                           {"landscape", Orientation::landscape}};
  return known;
}

json rotate(const json& members) {
  gestures::rotate(orientations().at(textOf(members, "to")));
  return {};
}

json edit(const json& members) {
  gestures::setEditing(members.at("on").get<bool>());
  return {};
}

template <bool Off>
json changeScreen(const json& members) {
  ScreenChange change{
      .off = byteOf(members, "mode", Off), .autoUnlock = byteOf(members, "auto-unlock", false), .unlockSource = {}};
  if (members.contains("source")) change.unlockSource = members["source"].get<NSInteger>();
  gestures::changeScreen(change);
  return {};
}

using Places = gestures::NotificationPlaces;

const std::map<std::string, bool Places::*>& knownPlaces() {
  static const std::map<std::string, bool Places::*> places = {{"screen", &Places::screen},
                                                               {"sound", &Places::sound},
                                                               {"lock screen", &Places::lockScreen},
                                                               {"banner", &Places::banner}};
  return places;
}

Places placesOf(const json& names) {
  Places places{false, false, false, false};
  for (const json& name : names) places.*knownPlaces().at(name.get<std::string>()) = true;
  return places;
}

json notify(const json& members) {
  gestures::notify(textOf(members, "id"), textOf(members, "text"),
                   members.contains("places") ? placesOf(members["places"]) : Places(),
                   byteOf(members, "modal", false));
  return {};
}

const std::map<std::string, json (*)(const std::string&)>& downloadActions() {
  static const std::map<std::string, json (*)(const std::string&)> actions = {
      {"start", [](const std::string& id) { return gestures::startDownload(id), json(); }},
      {"ask", [](const std::string& id) { return json(gestures::askDownload(id)); }},
      {"remove", [](const std::string& id) { return gestures::removeDownload(id), json(); }},
  };
  return actions;
}

json download(const json& members) { return downloadActions().at(textOf(members, "what"))(textOf(members, "id")); }

Member icon() { return {"id", Type::id}; }
std::vector<Member> screenMode() {
  return {optional({"mode", Type::integer, "what the old generation's cover sheet is told: 0, 1 or any other byte"}),
          optional({"auto-unlock", Type::integer, "likewise"}),
          optional({"source", Type::integer, "with it, the cover sheet is told by the longer method"})};
}

std::vector<Verb> onIcons() {
  return {
      {"touch", "puts a finger on an icon and takes it away, without a tap", {icon()}, onIcon<gestures::touch>},
      {"swipe",
       "drags a finger on an icon, three times 20 points",
       {{"direction", Type::choice, "", {"up", "down"}},
        icon(),
        optional(listOf(
            {"samples", Type::number, "DX DY in points for each touch sample, for another way in that direction"}))},
       swipe},
      {"force-touch", "opens an icon's quick-action list", {icon()}, onIcon<gestures::forceTouch>},
      {"choose", "chooses an entry of the open quick-action list", {{"title", Type::text}}, choose},
  };
}

std::vector<Verb> onTheDevice() {
  return {
      {"launch", "taps an icon: the application opens", {icon()}, onIcon<gestures::launch>},
      {"home",
       "presses the home button: closes the list, ends editing, goes back from an application",
       {},
       gesture<gestures::pressHome>},
      {"touch-at",
       "a finger taps on a point of the screen, on whatever is on top",
       {{"x", Type::number}, {"y", Type::number}},
       touchAt},
      {"drag",
       "a finger comes down on a point and moves; sideways over the icons it turns the page",
       {{"x", Type::number},
        {"y", Type::number},
        listOf({"samples", Type::number, "DX DY in points for each touch sample"})},
       drag},
      {"switcher", "brings the application switcher up", {}, gesture<gestures::openSwitcher>},
      {"rotate", "turns the device", {{"to", Type::choice, "", namesOf(orientations())}}, rotate},
      {"edit", "starts or ends editing the home screen", {{"on", Type::toggle}}, edit},
      {"lock", "locks the device", {}, gesture<gestures::lock>},
      {"unlock", "unlocks it", {}, gesture<gestures::unlock>},
      {"screen-off", "turns the screen off, and nothing else", screenMode(), changeScreen<true>},
      {"screen-on", "turns the screen on, and nothing else", screenMode(), changeScreen<false>},
      {"power-down", "holds the power button until the slider comes up", {}, gesture<gestures::powerDown>},
      {"notify",
       "lets a notification of an application arrive",
       {icon(),
        {"text", Type::text},
        optional(
            listOf({"places", Type::choice, "those where the user lets it appear; else all", namesOf(knownPlaces())})),
        optional({"modal", Type::integer, "0, 1 or any other byte"})},
       notify},
      {"download",
       "a downloading icon appears, is asked whether it is one (the value is the byte it answers), is removed",
       {{"what", Type::choice, "", namesOf(downloadActions())}, icon()},
       download},
      {"rescan", "looks for applications that came or went", {}, gesture<readInstalled>},
  };
}

}  // namespace

std::vector<Verb> gestureVerbs() { return onIcons() + alertGestures() + onTheDevice() + worldGestures(); }

}  // namespace sim
