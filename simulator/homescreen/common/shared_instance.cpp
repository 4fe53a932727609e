#include "simulator/homescreen/common/shared_instance.hpp"

#include <map>

namespace sim {

id sharedInstance(Class cls) {
  static std::map<Class, id> instances;
  id& instance = instances[cls];
  if (instance == nullptr) instance = send<id>(send<id>(cls, "alloc"_sel), "init"_sel);
  return instance;
}

}  // namespace sim
