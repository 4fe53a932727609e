#include "simulator/frameworks/core_foundation/preferences.hpp"

#include <map>

#include "platform/CoreFoundation.hpp"

namespace sim {
namespace {

std::map<std::string, Ref<objc_object>>& domains() {
  static std::map<std::string, Ref<objc_object>> all;
  return all;
}

}  // namespace

id preferences(const std::string& domain) {
  const auto found = domains().find(domain);
  return found != domains().end() ? found->second.get() : nullptr;
}

}  // namespace sim

extern "C" void CFPreferencesSetAppValue(CFStringRef key, const void* value, CFStringRef application) {
  auto& domain = sim::domains()[sim::text(asId(application))];
  if (domain == nullptr) domain = sim::make("NSMutableDictionary"_cls);
  if (value != nullptr) sim::send(domain.get(), "setObject:forKey:"_sel, asId(value), asId(key));
  else sim::send(domain.get(), "removeObjectForKey:"_sel, asId(key));
}
