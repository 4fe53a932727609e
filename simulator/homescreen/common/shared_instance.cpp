#include "simulator/homescreen/common/shared_instance.hpp"

#include <map>

namespace sim {

id sharedInstance(Class cls) {
  static std::map<Class, id> instances;
  auto [entry, isNew] = instances.try_emplace(cls, nullptr);
  if (isNew) entry->second = send<id>(send<id>(cls, "alloc"_sel), "init"_sel);
  return entry->second;
}

}  // namespace sim
