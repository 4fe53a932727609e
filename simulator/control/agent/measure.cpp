#include "simulator/control/agent/measure.hpp"

#include <spawn.h>
#include <sys/wait.h>

#include <map>

#include "platform/CoreFoundation.hpp"
#include "platform/hooking.hpp"
#include "simulator/control/agent/verbs.hpp"
#include "simulator/homescreen/common/NCNotificationRequest.hpp"
#include "simulator/homescreen/common/icons.hpp"
#include "simulator/homescreen/common/shared_instance.hpp"
#include "simulator/runtime/call_log.hpp"
#include "simulator/runtime/library.hpp"

namespace sim {
namespace {

using nlohmann::json;

constexpr auto noError = static_cast<void*>(nullptr);

id files() { return send<id>("NSFileManager"_cls, "defaultManager"_sel); }
id textAt(const json& request, const char* member) { return ns(request.at(member).get<std::string>()); }

template <class Body>
void repeat(const json& request, Body body) {
  const long times = request.at("times").get<long>();
  for (long i = 0; i < times; ++i) {
    const AutoreleasePool each;
    body();
  }
}

// Calls `body` with the path of each of the folder's names, which `list` gives.
template <class Body>
void forEachPath(const json& request, SEL list, Body body) {
  id folder = textAt(request, "path");
  id names = send<id>(files(), list, folder, noError);
  const auto count = send<NSUInteger>(names, "count"_sel);
  for (NSUInteger i = 0; i < count; ++i) {
    const AutoreleasePool each;
    body(send<id>(folder, "stringByAppendingPathComponent:"_sel, send<id>(names, "objectAtIndex:"_sel, i)));
  }
}

// Every file below a folder asked for its size, as the menu does.
void walk(const json& request) {
  forEachPath(request, "subpathsOfDirectoryAtPath:error:"_sel, [](id path) {
    send<std::uint64_t>(send<id>(files(), "attributesOfItemAtPath:error:"_sel, path, noError), "fileSize"_sel);
  });
}

// Everything in a folder removed.
void empty(const json& request) {
  forEachPath(request, "contentsOfDirectoryAtPath:error:"_sel,
              [](id path) { send<BOOL>(files(), "removeItemAtPath:error:"_sel, path, noError); });
}

void remove(const json& request) {
  send<BOOL>(files(), "removeItemAtPath:error:"_sel, textAt(request, "path"), noError);
}

// A program run in a folder, without Foundation.
void run(const json& request) {
  auto words = request.at("command").get<std::vector<std::string>>();
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addchdir_np(&actions, request.at("folder").get<std::string>().c_str());
  pid_t program = 0;
  const int failed = posix_spawn(&program, words.at(0).c_str(), &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  int status = 0;
  if (failed != 0 || waitpid(program, &status, 0) < 0 || status != 0)
    throw BadRequest("\"" + words.at(0) + "\" cannot be run, or failed");
}

// A notification that wants to sound, of an application that is not muted.
void sound(const json& request) {
  const auto notification = make<NCNotificationRequest>("NCNotificationRequest"_cls);
  notification->sectionIdentifier = textAt(request, "id");
  id controller = sharedInstance("SBNCSoundController"_cls);
  repeat(request, [&] { send(controller, "playSoundForNotificationRequest:"_sel, notification.get()); });
}

// A list of muted applications, read as when the home screen starts.
id readList(const std::string& path) {
  id list = send<id>("NSMutableDictionary"_cls, "dictionaryWithContentsOfFile:"_sel, ns(path));
  id records = send<id>("NSMutableArray"_cls, "array"_sel);
  for (id record : elements(send<id>(list, "objectForKey:"_sel, ns("entries"))))
    send(records, "addObject:"_sel, send<id>(send<id>(record, "mutableCopy"_sel), "autorelease"_sel));
  send(list, "setObject:forKey:"_sel, records, ns("entries"));
  return list;
}

// A list of records walked and written, as for each notification.
void rewriteList(const json& request) {
  static const Ref<objc_object> list = readList(request.at("path").get<std::string>());
  id records = send<id>(list.get(), "objectForKey:"_sel, ns("entries"));
  const Ref<objc_object> own = textAt(request, "id");
  const Ref<objc_object> target = textAt(request, "path");
  const Ref<objc_object> idKey = ns("id");
  const Ref<objc_object> timeKey = ns("timeStamp");
  repeat(request, [&] {
    const auto now = static_cast<int>(send<double>(send<id>("NSDate"_cls, "date"_sel), "timeIntervalSince1970"_sel));
    id expired = send<id>("NSMutableArray"_cls, "array"_sel);
    const auto count = send<NSUInteger>(records, "count"_sel);
    for (NSUInteger i = 0; i < count; ++i) {
      id record = send<id>(records, "objectAtIndex:"_sel, i);
      const int end = send<int>(send<id>(record, "objectForKey:"_sel, timeKey.get()), "intValue"_sel);
      const BOOL isOwn =
          send<BOOL>(send<id>(record, "objectForKey:"_sel, idKey.get()), "isEqualToString:"_sel, own.get());
      if (!isOwn && end < now && end != -1) send(expired, "addObject:"_sel, record);
    }
    send(records, "removeObjectsInArray:"_sel, expired);
    send<BOOL>(list.get(), "writeToFile:atomically:"_sel, target.get(), BOOL{true});
  });
}

void iconName(const json& request) {
  SBIcon* icon = requireIcon(request.at("id").get<std::string>());
  repeat(request, [&] { send<id>(icon, "displayName"_sel); });
}

// A dictionary read from a file and asked for one value.
void readValue(const json& request) {
  const Ref<objc_object> path = textAt(request, "path");
  const Ref<objc_object> key = textAt(request, "id");
  repeat(request, [&] {
    id dictionary = send<id>("NSDictionary"_cls, "dictionaryWithContentsOfFile:"_sel, path.get());
    send<id>(dictionary, "objectForKey:"_sel, key.get());
  });
}

void layOut(const json& request) {
  SBIconView* view = viewOf(requireIcon(request.at("id").get<std::string>()));
  const long times = request.at("times").get<long>();
  for (long i = 0; i < times; ++i) send(view, "layoutSubviews"_sel);
}

void doNothing() {}
void hearNothing(CFNotificationCenterRef, void*, CFStringRef, const void*, const void*) {}

// The runtime calls of a start, given as the log of another process's start: each hook puts the method's own
// implementation in its own place.
void start(const json& request) {
  const json& calls = request.at("calls");
  setMappingLibrary(true);
  for (const json& call : calls) {
    Class cls = objc_getClass(call.at("class").get_ref<const std::string&>().c_str());
    SEL selector = sel_registerName(call.at("selector").get_ref<const std::string&>().c_str());
    const auto& encoding = call.at("encoding").get_ref<const std::string&>();
    if (call.at("kind") == "add") class_addMethod(cls, selector, doNothing, encoding.c_str());
    if (call.at("kind") != "hook") continue;
    IMP previous = nullptr;
    MSHookMessageEx(cls, selector, method_getImplementation(class_getInstanceMethod(cls, selector)), &previous);
  }
  setMappingLibrary(false);
  Class cls = objc_allocateClassPair("NSObject"_cls, "Renamer", 0);
  for (const char* name : {"_icon", "_iconView", "renameTitle"}) class_addIvar(cls, name, sizeof(id), 3, "@");
  class_addProtocol(cls, objc_getProtocol("UITextFieldDelegate"));
  objc_registerClassPair(cls);
  for (const char* name : {"a", "b", "c", "d"})
    CFNotificationCenterAddObserver(CFNotificationCenterGetDarwinNotifyCenter(), nullptr, hearNothing,
                                    static_cast<CFStringRef>(static_cast<void*>(objc_retain(ns(name)))), nullptr,
                                    CFNotificationSuspensionBehavior::coalesce);
  send<BOOL>(files(), "fileExistsAtPath:"_sel, ns("/var/mobile/Library/Preferences/com.morvanel.sprigdial.menu.plist"));
  send<id>("NSDictionary"_cls, "dictionaryWithContentsOfFile:"_sel,
           ns("/var/mobile/Library/Preferences/com.morvanel.sprigdial.plist"));
}

template <void (*Measure)(const json&)>
json done(const json& request) {
  Measure(request);
  return {};
}

const std::map<std::string, json (*)(const json&)>& measures() {
  static const std::map<std::string, json (*)(const json&)> table = {
      {"walk", done<walk>},
      {"empty", done<empty>},
      {"remove", done<remove>},
      {"run", done<run>},
      {"sound", done<sound>},
      {"rewriteList", done<rewriteList>},
      {"iconName", done<iconName>},
      {"readValue", done<readValue>},
      {"layOut", done<layOut>},
      {"start", done<start>},
      {"mapping", [](const json&) { return json(mappingSeconds()); }},
  };
  return table;
}

}  // namespace

std::vector<std::string> measureNames() { return namesOf(measures()); }

json measure(const json& request) { return measures().at(request.at("what").get<std::string>())(request); }

}  // namespace sim
