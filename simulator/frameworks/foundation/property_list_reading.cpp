#include "simulator/frameworks/foundation/property_list_reading.hpp"

#include "simulator/runtime/encoding.hpp"
#include "simulator/runtime/objc.hpp"

namespace sim {
namespace {

// Nil for what is no property list. Foundation raises an exception for some damaged binary ones; a phone's does not.
id parsed(id data) try {
  constexpr NSUInteger mutableContainers = 1;
  return send<id>("NSPropertyListSerialization"_cls, "propertyListWithData:options:format:error:"_sel, data,
                  mutableContainers, static_cast<void*>(nullptr), static_cast<void*>(nullptr));
} catch (...) {
  return nullptr;
}

// The property list of the file, if it is of that class; its containers are mutable, as the readers of
// mutable collections promise.
id contentsOf(id path, Class expected) {
  id data = send<id>("NSData"_cls, "dataWithContentsOfFile:"_sel, path);
  if (send<NSUInteger>(data, "length"_sel) == 0) return nullptr;
  id list = parsed(data);
  return isKind(list, expected) ? list : nullptr;
}

template <const auto& className, const auto& initialiser>
id initWithContentsOfFile(id self, SEL, id path) {
  AutoreleasePool pool;
  id list = path != nullptr ? contentsOf(path, objc_getClass(className)) : nullptr;
  if (list != nullptr) return send<id>(self, sel_registerName(initialiser), list);
  send(self, "release"_sel);
  return nullptr;
}

constexpr char dictionaryName[] = "NSDictionary";
constexpr char withDictionary[] = "initWithDictionary:";
constexpr char arrayName[] = "NSArray";
constexpr char withArray[] = "initWithArray:";

}  // namespace

void installPropertyListReading() {
  const SEL selector = "initWithContentsOfFile:"_sel;
  const std::string encoding = methodEncoding<id, id>();
  class_replaceMethod("NSDictionary"_cls, selector,
                      reinterpret_cast<IMP>(&initWithContentsOfFile<dictionaryName, withDictionary>), encoding.c_str());
  class_replaceMethod("NSArray"_cls, selector, reinterpret_cast<IMP>(&initWithContentsOfFile<arrayName, withArray>),
                      encoding.c_str());
}

}  // namespace sim
