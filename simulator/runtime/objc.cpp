#include "simulator/runtime/objc.hpp"

#include <cstring>

namespace sim {

id ns(const std::string& utf8) { return send<id>("NSString"_cls, "stringWithUTF8String:"_sel, utf8.c_str()); }

std::string text(id object) {
  if (object == nullptr) return {};
  if (!isKind(object, "NSString"_cls)) object = send<id>(object, "description"_sel);
  const char* utf8 = send<const char*>(object, "UTF8String"_sel);
  return utf8 != nullptr ? utf8 : "";
}

std::optional<std::string> textOrNone(id object) {
  return object != nullptr ? std::optional(text(object)) : std::nullopt;
}

std::vector<id> elements(id array) {
  std::vector<id> objects(send<NSUInteger>(array, "count"_sel));
  for (NSUInteger i = 0; i < objects.size(); ++i) objects[i] = send<id>(array, "objectAtIndex:"_sel, i);
  return objects;
}

id array(const std::vector<id>& objects) {
  return send<id>("NSArray"_cls, "arrayWithObjects:count:"_sel, objects.data(), NSUInteger{objects.size()});
}

bool isNamed(SEL selector, SEL other) { return std::strcmp(sel_getName(selector), sel_getName(other)) == 0; }

bool isKind(id object, Class cls) { return send<BOOL>(object, "isKindOfClass:"_sel, cls); }

}  // namespace sim
