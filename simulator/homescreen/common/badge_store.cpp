#include "simulator/homescreen/common/badge_store.hpp"

#include <filesystem>

#include "simulator/frameworks/foundation/dictionaries.hpp"

namespace sim {
namespace {

constexpr const char* path = "/var/mobile/Library/SpringBoard/applicationState.plist";

id mutableCopyOf(id dictionary) {
  id copy = send<id>("NSMutableDictionary"_cls, "dictionary"_sel);
  if (isKind(dictionary, "NSDictionary"_cls)) send(copy, "addEntriesFromDictionary:"_sel, dictionary);
  return copy;
}

}  // namespace

id storedBadge(const std::string& bundleIdentifier) {
  id state = send<id>(dictionaryAt(path), "objectForKey:"_sel, ns(bundleIdentifier));
  id badge = isKind(state, "NSDictionary"_cls) ? send<id>(state, "objectForKey:"_sel, ns("badge")) : nullptr;
  return isKind(badge, "NSNumber"_cls) || isKind(badge, "NSString"_cls) ? badge : nullptr;
}

void storeBadge(const std::string& bundleIdentifier, id badge) {
  id states = mutableCopyOf(dictionaryAt(path));
  id state = mutableCopyOf(send<id>(states, "objectForKey:"_sel, ns(bundleIdentifier)));
  if (badge != nullptr) send(state, "setObject:forKey:"_sel, badge, ns("badge"));
  else send(state, "removeObjectForKey:"_sel, ns("badge"));
  send(states, "setObject:forKey:"_sel, state, ns(bundleIdentifier));
  std::filesystem::create_directories(std::filesystem::path(path).parent_path());
  send<BOOL>(states, "writeToFile:atomically:"_sel, ns(path), BOOL{true});
}

}  // namespace sim
