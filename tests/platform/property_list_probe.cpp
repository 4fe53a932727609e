// Reads property lists by every reader of collections and prints, as JSON, which of their containers can be changed.
#include <cstdio>
#include <nlohmann/json.hpp>

#include "simulator/frameworks/foundation/foundation.hpp"
#include "simulator/runtime/objc.hpp"

namespace {

using Json = nlohmann::ordered_json;

bool changes(id container) try {
  const bool isArray = sim::isKind(container, "NSArray"_cls);
  id object = sim::ns("added");
  if (isArray) sim::send(container, "addObject:"_sel, object);
  else sim::send(container, "setObject:forKey:"_sel, object, object);
  return true;
} catch (...) {
  return false;
}

// From the outermost container inwards, along each one's first member.
Json changesInside(id container) {
  Json result = Json::array();
  while (sim::isKind(container, "NSArray"_cls) || sim::isKind(container, "NSDictionary"_cls)) {
    id members = sim::isKind(container, "NSArray"_cls) ? container : sim::send<id>(container, "allValues"_sel);
    id inner = sim::send<id>(members, "objectAtIndex:"_sel, NSUInteger{0});
    result.push_back(changes(container));
    container = inner;
  }
  return result;
}

id path(const char* kind) { return sim::ns(std::string("/var/mobile/") + kind + ".plist"); }

Json readers(const char* className, const char* reader, const char* kind) {
  Class cls = objc_getClass(className);
  id made = sim::send<id>(cls, sel_registerName(reader), path(kind));
  id initialised = sim::send<id>(sim::send<id>(cls, "alloc"_sel), "initWithContentsOfFile:"_sel, path(kind));
  return {changesInside(made), changesInside(initialised)};
}

}  // namespace

int main() {
  const AutoreleasePool pool;
  sim::installFoundationAdditions();
  const Json result{
      {"NSDictionary", readers("NSDictionary", "dictionaryWithContentsOfFile:", "dictionary")},
      {"NSMutableDictionary", readers("NSMutableDictionary", "dictionaryWithContentsOfFile:", "dictionary")},
      {"NSArray", readers("NSArray", "arrayWithContentsOfFile:", "array")},
      {"NSMutableArray", readers("NSMutableArray", "arrayWithContentsOfFile:", "array")}};
  std::puts(result.dump().c_str());
  return 0;
}
