#include "simulator/frameworks/foundation/property_list_reading.hpp"

#include <algorithm>
#include <cctype>
#include <string_view>

#include "simulator/frameworks/foundation/property_list_old_style.hpp"
#include "simulator/frameworks/foundation/property_list_text.hpp"
#include "simulator/frameworks/foundation/property_list_xml.hpp"
#include "simulator/runtime/encoding.hpp"
#include "simulator/runtime/objc.hpp"

namespace sim {
namespace {

// XML in one of the old encodings that only the XML parser knows.
bool namesAnotherEncoding(std::string_view bytes) {
  if (!bytes.starts_with("<?xml")) return false;
  const std::string_view declaration = bytes.substr(0, bytes.find("?>"));
  const std::size_t attribute = declaration.find("encoding");
  if (attribute == std::string_view::npos) return false;
  const std::size_t opening = declaration.find_first_of("\"'", attribute);
  if (opening == std::string_view::npos) return true;
  const std::string_view name =
      declaration.substr(opening + 1, declaration.find(declaration[opening], opening + 1) - opening - 1);
  return !std::ranges::equal(name, std::string_view("utf-8"), {}, [](unsigned char c) { return std::tolower(c); });
}

// What the bytes hold, in immutable containers. Some damaged bytes make Foundation here raise, where a phone's gives
// nil.
id propertyList(id data) try {
  const std::string_view bytes(send<const char*>(data, "bytes"_sel), send<NSUInteger>(data, "length"_sel));
  if (bytes.starts_with("bplist") || namesAnotherEncoding(bytes)) return foundationPropertyList(data);
  const auto characters = charactersOf(bytes);
  if (!characters) return nullptr;
  const std::size_t first = afterSpace(*characters, 0);
  const bool isXML = first != std::u16string::npos && (*characters)[first] == u'<';
  return isXML ? readXMLPropertyList(*characters) : readOldStylePropertyList(*characters);
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
