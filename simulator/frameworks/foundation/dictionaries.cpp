#include "simulator/frameworks/foundation/dictionaries.hpp"

#include <algorithm>

namespace sim {
namespace {

id valueIn(id dictionary, const char* key, Class cls) {
  id value = send<id>(dictionary, "objectForKey:"_sel, ns(key));
  return isKind(value, cls) ? value : nullptr;
}

}  // namespace

id dictionaryAt(const std::string& path) {
  return send<id>("NSDictionary"_cls, "dictionaryWithContentsOfFile:"_sel, ns(path));
}

std::string textIn(id dictionary, const char* key) { return text(valueIn(dictionary, key, "NSString"_cls)); }

std::vector<id> arrayIn(id dictionary, const char* key, Class elementClass) {
  std::vector<id> objects = elements(valueIn(dictionary, key, "NSArray"_cls));
  std::erase_if(objects, [elementClass](id object) { return !isKind(object, elementClass); });
  return objects;
}

}  // namespace sim
