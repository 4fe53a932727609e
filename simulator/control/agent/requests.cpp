#include "simulator/control/agent/requests.hpp"

#include <sys/resource.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <exception>
#include <map>
#include <utility>

#include "simulator/control/agent/measure.hpp"
#include "simulator/control/agent/screen_reader.hpp"
#include "simulator/frameworks/core_foundation/darwin_notifications.hpp"
#include "simulator/frameworks/core_foundation/preferences.hpp"
#include "simulator/frameworks/foundation/property_list.hpp"
#include "simulator/frameworks/uikit/UIApplication.hpp"
#include "simulator/frameworks/uikit/UIPasteboard.hpp"
#include "simulator/frameworks/uikit/transitions.hpp"
#include "simulator/homescreen/common/gestures.hpp"
#include "simulator/homescreen/common/home.hpp"
#include "simulator/homescreen/common/icons.hpp"
#include "simulator/homescreen/common/touches.hpp"
#include "simulator/runtime/blocks.hpp"
#include "simulator/runtime/call_log.hpp"
#include "simulator/runtime/class_description.hpp"
#include "simulator/runtime/clock.hpp"
#include "simulator/runtime/interposition.hpp"
#include "simulator/runtime/main_queue.hpp"

namespace sim {
namespace {

using nlohmann::json;

// A double cannot hold the clock's nanoseconds.
constexpr long double second = 1e9L;
// In seconds: the clocks count nanoseconds in 64 bits.
constexpr double lastMoment = 9e9;

std::string textOf(const json& request, const char* member) {
  const auto value = request.find(member);
  if (value == request.end() || !value->is_string())
    throw BadRequest(std::string("The request has no text \"") + member + "\"");
  return value->get<std::string>();
}

template <class Value>
Value valueOf(const json& request, const char* member, Value otherwise) {
  const auto value = request.find(member);
  return value != request.end() && !value->is_null() ? value->get<Value>() : otherwise;
}

// A boolean as a byte, which the driver may also give as it is.
std::uint8_t byteOf(const json& request, const char* member, bool otherwise) {
  const auto value = request.find(member);
  if (value == request.end() || value->is_null()) return otherwise;
  if (value->is_boolean()) return value->get<bool>();
  const auto byte = value->is_number_integer() ? value->get<std::int64_t>() : -1;
  if (byte < 0 || byte > 255) throw BadRequest(std::string("\"") + member + "\" is neither a boolean nor a byte");
  return static_cast<std::uint8_t>(byte);
}

/// A gesture on the icon that the request names.
template <void (*Gesture)(const std::string&)>
json onIcon(const json& request) {
  Gesture(textOf(request, "id"));
  return {};
}

/// A gesture that needs no more words.
template <void (*Gesture)()>
json gesture(const json&) {
  Gesture();
  return {};
}

json screen(const json&) { return readScreen(); }

std::vector<CGPoint> samplesOf(const json& request) {
  std::vector<CGPoint> samples;
  for (const json& sample : request.at("samples")) samples.push_back({sample.at(0), sample.at(1)});
  return samples;
}

json swipe(const json& request) {
  gestures::swipe(textOf(request, "id"), samplesOf(request));
  return {};
}

json choose(const json& request) {
  gestures::choose(textOf(request, "title"));
  return {};
}

// The buttons of an alert take no touch while it comes.
touches::Button requirePresented(const std::string& title) {
  const touches::Button button = touches::requireButton(title);
  const Ref<UIAlertController> awaited = button.alert;
  const Transition* transition = transitionOf(awaited);
  if (transition == nullptr) return button;
  if (transition->kind == Transition::Kind::dismissal)
    throw BadRequest("The sheet or alert is on its way off the screen");
  advanceClock(transition->end - clock::passed());
  const touches::Button there = touches::requireButton(title);
  if (there.alert != awaited.get()) throw BadRequest("The sheet or alert did not stay on the screen");
  return there;
}

json tapButton(const json& request) {
  const auto [button, action] = requirePresented(textOf(request, "title"));
  const Ref<UIAlertController> alert = button;
  press(alert, action);
  const Transition* dismissal = transitionOf(alert);
  if (dismissal != nullptr && !valueOf(request, "late", false)) advanceClock(dismissal->end - clock::passed());
  return {};
}

json animations(const json& request) {
  setAnimations(request.at("on").get<bool>());
  return {};
}

json setClock(const json& request) {
  const double seconds = request.at("seconds").get<double>();
  if (!clock::canStandAt(seconds)) throw BadRequest("There is no such time on this clock");
  clock::set(clock::time(seconds));
  return {};
}

json typeText(const json& request) {
  const std::string typed = textOf(request, "text");
  UITextField* field = touches::requireFocus();
  if (!field->hasKeysFor(typed)) throw BadRequest("The number pad has digits only: \"" + typed + "\" can be pasted");
  field->typeOver(typed);
  return {};
}

json pasteText(const json& request) {
  touches::requireFocus()->replaceAll(ns(textOf(request, "text")));
  return {};
}

json clearText(const json&) {
  UITextField* field = touches::requireFocus();
  if (!field->showsClearButton()) throw BadRequest("The text field shows no clear button");
  field->tapClearButton();
  return {};
}

CGPoint pointOf(const json& request) { return {request.at("x").get<double>(), request.at("y").get<double>()}; }

json touchAt(const json& request) {
  gestures::touchAt(pointOf(request));
  return {};
}

json drag(const json& request) {
  gestures::drag(pointOf(request), samplesOf(request));
  return {};
}

json rotate(const json& request) {
  static const std::map<std::string, Orientation> known = {{"portrait", Orientation::portrait},
                                                           {"landscape", Orientation::landscape}};
  const auto held = known.find(textOf(request, "to"));
  if (held == known.end()) throw BadRequest("The device is turned to \"portrait\" or to \"landscape\"");
  gestures::rotate(held->second);
  return {};
}

json edit(const json& request) {
  gestures::setEditing(request.at("on").get<bool>());
  return {};
}

template <bool Off>
json changeScreen(const json& request) {
  ScreenChange change{
      .off = byteOf(request, "mode", Off), .autoUnlock = byteOf(request, "autoUnlock", false), .unlockSource = {}};
  if (request.contains("source")) change.unlockSource = request["source"].get<NSInteger>();
  gestures::changeScreen(change);
  return {};
}

gestures::NotificationPlaces placesOf(const json& names) {
  using Places = gestures::NotificationPlaces;
  static const std::map<std::string, bool Places::*> known = {{"screen", &Places::screen},
                                                              {"sound", &Places::sound},
                                                              {"lock screen", &Places::lockScreen},
                                                              {"banner", &Places::banner}};
  Places places{false, false, false, false};
  for (const json& name : names) {
    const auto place = known.find(name.get<std::string>());
    if (place == known.end()) throw BadRequest("A notification does not appear at \"" + name.get<std::string>() + "\"");
    places.*place->second = true;
  }
  return places;
}

json notify(const json& request) {
  gestures::notify(textOf(request, "id"), textOf(request, "text"),
                   request.contains("places") ? placesOf(request["places"]) : gestures::NotificationPlaces(),
                   byteOf(request, "modal", false));
  return {};
}

json download(const json& request) {
  static const std::map<std::string, json (*)(const std::string&)> actions = {
      {"start", [](const std::string& id) { return gestures::startDownload(id), json(); }},
      {"ask", [](const std::string& id) { return json(gestures::askDownload(id)); }},
      {"remove", [](const std::string& id) { return gestures::removeDownload(id), json(); }},
  };
  const std::string what = textOf(request, "what");
  const auto action = actions.find(what);
  if (action == actions.end()) throw BadRequest("A download cannot be told to \"" + what + "\"");
  return action->second(textOf(request, "id"));
}

json post(const json& request) {
  postDarwinNotification(textOf(request, "name"));
  return {};
}

json advance(const json& request) {
  const double seconds = request.at("seconds").get<double>();
  const double latest = static_cast<double>(std::max(clock::now(), clock::passed()) / second);
  if (!(seconds >= 0 && latest + seconds < lastMoment))
    throw BadRequest("The clock runs forwards only, and not beyond the year 2255");
  advanceClock(std::llround(seconds * second));
  return {};
}

json now(const json&) { return static_cast<double>(static_cast<long double>(clock::now()) / second); }

json uptime(const json&) { return static_cast<double>(clock::passed() / second); }

json pasteboard(const json&) {
  const UIPasteboard* board = generalPasteboard();
  if (!board->type) return {};
  return {{"type", text(board->type)}, {"text", text(board->value)}};
}

json preferencesDomain(const json& request) {
  const std::string domain = textOf(request, "domain");
  id values = valueOf(request, "read", false) ? readPreferences(domain) : heldPreferences(domain);
  if (values == nullptr) return {};
  const auto xml = xmlPropertyList(values);
  if (!xml) throw BadRequest("The preferences domain \"" + domain + "\" holds what no property list can");
  return *xml;
}

id settingOf(const json& value) {
  if (value.is_boolean()) return send<id>("NSNumber"_cls, "numberWithBool:"_sel, BOOL{value.get<bool>()});
  if (value.is_number_integer())
    return send<id>("NSNumber"_cls, "numberWithLongLong:"_sel, static_cast<long long>(value.get<std::int64_t>()));
  if (value.is_number()) return send<id>("NSNumber"_cls, "numberWithDouble:"_sel, value.get<double>());
  return ns(value.get<std::string>());
}

json changePreferences(const json& request) {
  id values = send<id>("NSMutableDictionary"_cls, "dictionary"_sel);
  std::vector<std::string> removed;
  for (const auto& [key, value] : request.at("values").items())
    if (value.is_null()) removed.push_back(key);
    else send(values, "setObject:forKey:"_sel, settingOf(value), ns(key));
  setPreferences(textOf(request, "domain"), values, removed);
  return {};
}

json urls(const json&) {
  json list = json::array();
  for (const auto& [url, opened] : openedURLs()) list.push_back({{"url", url}, {"opened", opened}});
  return list;
}

json launches(const json&) {
  json list = json::array();
  for (const Launch& launch : home().launches)
    list.push_back({{"id", launch.id},
                    {"location", std::to_string(launch.location)},
                    {"context", launch.context},
                    {"settings", launch.settings},
                    {"actions", launch.actions}});
  return list;
}

json calls(const json& request) {
  static constexpr const char* kinds[] = {"hook", "add", "observe", "send", "post", "missing"};
  if (request.contains("messages")) logMessages(request["messages"].get<bool>());
  json list = json::array();
  for (const Call& call : callLog())
    list.push_back({{"kind", kinds[static_cast<std::size_t>(call.kind)]},
                    {"class", call.className},
                    {"selector", call.selector},
                    {"encoding", call.encoding}});
  return list;
}

json members(const std::vector<ClassDescription::Member>& all) {
  json list = json::array();
  for (const auto& [name, type] : all) list.push_back({{"name", name}, {"type", type}});
  return list;
}

json describeClass(const json& request) {
  const std::string name = textOf(request, "name");
  Class cls = objc_getClass(name.c_str());
  if (cls == nullptr) throw BadRequest("There is no class \"" + name + "\"");
  const ClassDescription described = describe(cls);
  return {{"superclass", described.superclass},
          {"protocols", described.protocols},
          {"instanceVariables", members(described.instanceVariables)},
          {"methods", members(described.methods)},
          {"classMethods", members(described.classMethods)}};
}

json live(const json&) {
  // What has gone leaves no trace: before and after can be compared as they are.
  json counts = {{"blocks", liveBlocks()}};
  for (const auto& [name, count] : liveObjects())
    if (count != 0) counts[name] = count;
  return counts;
}

// What only the platform's own methods can have seen.
json platformCounts(const json&) {
  json posted = json::array();
  for (const PostedNotification& each : home().posted)
    posted.push_back({{"place", each.place},
                      {"text", each.text},
                      {"coalesced", each.coalesced},
                      {"sourceAction", each.sourceAction},
                      {"modal", each.modal}});
  json passedOn = json::array();
  for (const PassedOn& each : home().passedOn) passedOn.push_back({{"method", each.method}, {"values", each.values}});
  return {{"touchesMoved", home().touchesMoved},
          {"forceTouchStateAsked", home().forceTouchStateAsked},
          {"posted", posted},
          {"passedOn", passedOn},
          {"interposed", interposedCalls()},
          {"completedBanners", home().completedBanners}};
}

json memory(const json&) {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return {{"peakKiB", usage.ru_maxrss}};
}

// The one object of a class, by whichever of the platform's names it is asked for.
id sharedObject(const std::string& className) {
  Class cls = objc_getClass(className.c_str());
  if (cls == nullptr) throw BadRequest("There is no class \"" + className + "\"");
  for (const char* name : {"sharedInstance", "sharedService", "sharedApplication"}) {
    SEL selector = sel_registerName(name);
    if (send<BOOL>(cls, "respondsToSelector:"_sel, selector)) return send<id>(cls, selector);
  }
  throw BadRequest("The class \"" + className + "\" has no shared object");
}

// A method takes no notice of more than it has; each fills a register or its place on the stack.
std::array<std::int64_t, 6> argumentsOf(const json& request) {
  std::array<std::int64_t, 6> arguments{};
  const json given = valueOf(request, "arguments", json::array());
  if (given.size() > arguments.size()) throw BadRequest("A message takes six arguments at most here");
  for (std::size_t i = 0; i < given.size(); ++i) {
    if (!given.at(i).is_number_integer()) throw BadRequest("The arguments of a message are integers");
    arguments[i] = given[i].get<std::int64_t>();
  }
  return arguments;
}

json performSelector(const json& request) {
  id target = request.contains("target") ? sharedObject(textOf(request, "target")) : platformActions().menuHost();
  const std::string name = textOf(request, "selector");
  SEL selector = sel_registerName(name.c_str());
  if (!send<BOOL>(target, "respondsToSelector:"_sel, selector))
    throw BadRequest(std::string("A \"") + class_getName(object_getClass(target)) + "\" does not answer \"" + name +
                     "\"");
  auto arguments = argumentsOf(request);
  if (request.contains("view"))
    arguments[0] = reinterpret_cast<std::int64_t>(viewOf(requireIcon(textOf(request, "view"))));
  // What a method without a result leaves in the register means nothing.
  const auto result = send<std::uint64_t>(target, selector, arguments[0], arguments[1], arguments[2], arguments[3],
                                          arguments[4], arguments[5]);
  return valueOf(request, "result", false) ? json(result) : json();
}

json interposeMethod(const json& request) {
  static const std::map<std::string, Interposition> known = {
      {"off", {}},
      {"raise", {.what = Interference::raise}},
      {"raise always", {.what = Interference::raise, .always = true}},
      {"nil", {.what = Interference::nil}},
      {"other", {.what = Interference::other}},
      {"perform", {.what = Interference::prior}},
      {"value", {.what = Interference::value}},
  };
  const std::string what = textOf(request, "do");
  const auto row = known.find(what);
  if (row == known.end()) throw BadRequest("An interposed method cannot be told to \"" + what + "\"");
  Interposition interposition = row->second;
  interposition.skip = valueOf(request, "skip", 0L);
  interposition.value = valueOf(request, "value", std::uint64_t{0});
  if (interposition.what == Interference::prior)
    interposition.first = [requests = request.at("requests")] {
      for (const json& each : requests) {
        const AutoreleasePool pool;
        answer(each);
      }
    };
  interfere(textOf(request, "method"), std::move(interposition));
  return {};
}

// Icon views in places that the simulator does not show, such as a dock, whose icons have no label.
json makeIconView(const json& request) {
  constexpr NSUInteger plain = 0;
  static const std::map<std::string, SBIconView* (*)(id, SEL)> initialisers = {
      {"initWithContentType:", [](id made, SEL by) { return send<SBIconView*>(made, by, plain); }},
      {"initWithFrame:", [](id made, SEL by) { return send<SBIconView*>(made, by, CGRect{}); }},
      {"initWithConfigurationOptions:", [](id made, SEL by) { return send<SBIconView*>(made, by, plain); }},
      {"initWithConfigurationOptions:listLayoutProvider:",
       [](id made, SEL by) { return send<SBIconView*>(made, by, plain, id{nullptr}); }},
  };
  static std::vector<Ref<SBIconView>> views;
  const auto initialiser = initialisers.find(textOf(request, "initialiser"));
  if (initialiser == initialisers.end()) throw BadRequest("Icon views are not made so");
  SEL selector = sel_registerName(initialiser->first.c_str());
  if (!send<BOOL>("SBIconView"_cls, "instancesRespondToSelector:"_sel, selector))
    throw BadRequest("This generation's icon views are not made so");
  views.push_back(Ref<SBIconView>::adopt(initialiser->second(send<id>("SBIconView"_cls, "alloc"_sel), selector)));
  if (!valueOf(request, "label", true)) views.back()->labelView = nullptr;
  send(views.back(), "layoutSubviews"_sel);
  return {};
}

json address(const void* pointer) {
  return pointer != nullptr ? json(reinterpret_cast<std::uintptr_t>(pointer)) : json();
}

json observers(const json&) {
  json list = json::array();
  for (const auto& observer : darwinObservers())
    list.push_back({{"name", text(asId(observer.name))},
                    {"observer", address(observer.observer)},
                    {"object", address(observer.object)},
                    {"suspension", observer.suspension}});
  return list;
}

const std::map<std::string, json (*)(const json&)> verbs = {
    {"screen", screen},
    {"touch", onIcon<gestures::touch>},
    {"swipe", swipe},
    {"forceTouch", onIcon<gestures::forceTouch>},
    {"choose", choose},
    {"tap", tapButton},
    {"type", typeText},
    {"paste", pasteText},
    {"clear", clearText},
    {"launch", onIcon<gestures::launch>},
    {"home", gesture<gestures::pressHome>},
    {"touch-at", touchAt},
    {"drag", drag},
    {"switcher", gesture<gestures::openSwitcher>},
    {"rotate", rotate},
    {"edit", edit},
    {"lock", gesture<gestures::lock>},
    {"unlock", gesture<gestures::unlock>},
    {"screenOff", changeScreen<true>},
    {"screenOn", changeScreen<false>},
    {"powerDown", gesture<gestures::powerDown>},
    {"notify", notify},
    {"download", download},
    {"rescan", gesture<readInstalled>},
    {"post", post},
    {"advance", advance},
    {"setClock", setClock},
    {"animations", animations},
    {"now", now},
    {"uptime", uptime},
    {"pasteboard", pasteboard},
    {"preferences", preferencesDomain},
    {"setPreferences", changePreferences},
    {"flush", gesture<flushPreferences>},
    {"urls", urls},
    {"launches", launches},
    {"calls", calls},
    {"class", describeClass},
    {"live", live},
    {"platform", platformCounts},
    {"memory", memory},
    {"perform", performSelector},
    {"interpose", interposeMethod},
    {"makeIconView", makeIconView},
    {"measure", measure},
    {"darwinObservers", observers},
};

}  // namespace

json perform(const json& request) {
  const std::string verb = textOf(request, "verb");
  const auto known = verbs.find(verb);
  if (known == verbs.end()) throw BadRequest("The home screen knows no \"" + verb + "\"");
  try {
    return known->second(request);
  } catch (const json::exception&) {
    throw BadRequest("The request does not hold what \"" + verb + "\" takes");
  }
}

json answer(const json& request) {
  const bool catching = request.value("catching", json()) == true;
  // Whether the action raises. Its caller is told of what the driver did wrong in either case.
  const auto raises = [catching](const auto& action) {
    if (!catching) return action(), false;
    try {
      action();
    } catch (const std::exception&) {
      throw;
    } catch (...) {
      return true;
    }
    return false;
  };
  const std::int64_t start = clock::realTime();
  json value;
  bool raised = raises([&] { value = perform(request); });
  const double seconds = static_cast<double>(clock::realTime() - start) / 1e9;
  while (raises(runDueWork)) raised = true;
  if (raised) value = {{"raised", true}};
  else if (catching) value = {{"raised", false}, {"value", std::move(value)}};
  return {{"value", std::move(value)}, {"seconds", seconds}};
}

}  // namespace sim
