#include "simulator/frameworks/foundation/property_list_reading.hpp"

#include "simulator/runtime/encoding.hpp"
#include "simulator/runtime/objc.hpp"

namespace sim {
namespace {

// What the bytes hold, in immutable containers: only the outermost one becomes as mutable as its reader promises.
// Some damaged bytes make Foundation here raise, where a phone's gives nil.
id propertyList(id data) try {
  constexpr NSUInteger immutable = 0;
  return send<id>("NSPropertyListSerialization"_cls, "propertyListWithData:options:format:error:"_sel, data, immutable,
                  static_cast<void*>(nullptr), static_cast<void*>(nullptr));
} catch (...) {
  return nullptr;
}

// The property list of the file, if it is of that class.
id contentsOf(id path, Class expected) {
  id data = send<id>("NSData"_cls, "dataWithContentsOfFile:"_sel, path);
  if (send<NSUInteger>(data, "length"_sel) == 0) return nullptr;
  id list = propertyList(data);
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
