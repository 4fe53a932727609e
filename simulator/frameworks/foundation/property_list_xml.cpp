#include "simulator/frameworks/foundation/property_list_xml.hpp"

#include <algorithm>
#include <charconv>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "simulator/frameworks/foundation/property_list_text.hpp"

namespace sim {
namespace {

constexpr char16_t byteOrderMark = u'\ufeff';
constexpr auto nowhere = std::u16string_view::npos;

// Just behind the next `end`; `nowhere` when it does not come.
std::size_t behind(std::u16string_view xml, std::u16string_view end, std::size_t from) {
  const std::size_t found = xml.find(end, from);
  return found != nowhere ? found + end.size() : nowhere;
}

std::size_t behindDocumentType(std::u16string_view xml, std::size_t from) {
  const std::size_t next = xml.find_first_of(u"[>", from);
  const bool holdsDeclarations = next != nowhere && xml[next] == u'[';
  return behind(xml, u">", holdsDeclarations ? xml.find(u']', next) : next);
}

// Where the root element begins, behind declarations and comments; `nowhere` when something else comes first.
std::size_t rootOf(std::u16string_view xml) {
  std::size_t position = afterSpace(xml, 0);
  while (position != nowhere) {
    const std::u16string_view rest = xml.substr(position);
    if (rest.starts_with(u"<!--")) {
      position = behind(xml, u"-->", position + 4);
    } else if (rest.starts_with(u"<?")) {
      position = behind(xml, u"?>", position + 2);
    } else if (rest.starts_with(u"<!")) {
      position = behindDocumentType(xml, position);
    } else {
      return rest.starts_with(u'<') ? position : nowhere;
    }
    if (position != nowhere) position = afterSpace(xml, position);
  }
  return nowhere;
}

// Sections of literal text become text like any other: Foundation here drops them.
std::u16string withPlainSections(std::u16string_view xml) {
  constexpr std::u16string_view opening = u"<![CDATA[";
  constexpr std::u16string_view closing = u"]]>";
  std::u16string plain;
  std::size_t position = 0;
  for (std::size_t found = 0; (found = xml.find(u"<!", position)) != nowhere;) {
    const bool isSection = xml.substr(found).starts_with(opening);
    const std::size_t end = behind(xml, isSection ? closing : u"-->", found);
    if (end == nowhere) break;
    plain += xml.substr(position, (isSection ? found : end) - position);
    position = end;
    if (!isSection) continue;
    for (const char16_t c : xml.substr(found, end - closing.size() - found).substr(opening.size()))
      if (c == u'&') plain += u"&amp;";
      else if (c == u'<') plain += u"&lt;";
      else if (c == u'>') plain += u"&gt;";
      else plain += c;
  }
  return plain += xml.substr(position);
}

// The root's own element may be left out around what it holds.
std::u16string withPlistElement(const std::u16string& root) {
  return root.starts_with(u"<plist") ? root : u"<plist version=\"1.0\">" + root + u"</plist>";
}

// A character of private use that the text does not hold.
char16_t standInFor(const std::u16string& xml) {
  for (char16_t candidate = u'\ue000'; candidate <= u'\uf8ff'; ++candidate)
    if (xml.find(candidate) == std::u16string::npos) return candidate;
  throw std::runtime_error("the property list holds every character of private use");
}

bool namesMark(std::u16string_view reference) {
  const bool hexadecimal = reference.starts_with(u'x');
  const std::string digits(reference.begin() + (hexadecimal ? 1 : 0), reference.end());
  unsigned number = 0;
  const auto [end, error] =
      std::from_chars(digits.data(), digits.data() + digits.size(), number, hexadecimal ? 16 : 10);
  return error == std::errc() && end == digits.data() + digits.size() && number == byteOrderMark;
}

// Character references to the mark become the mark itself.
std::u16string withPlainMarks(const std::u16string& xml) {
  std::u16string plain;
  std::size_t position = 0;
  for (std::size_t found = 0; (found = xml.find(u"&#", position)) != nowhere;) {
    const std::size_t end = xml.find(u';', found);
    if (end == nowhere) break;
    plain.append(xml, position, found - position);
    if (namesMark(std::u16string_view(xml).substr(found + 2, end - found - 2))) {
      plain += byteOrderMark;
    } else {
      plain.append(xml, found, end + 1 - found);
    }
    position = end + 1;
  }
  return plain.append(xml, position);
}

// The same property list with one character in the place of another.
id replaced(id object, char16_t from, char16_t to) {
  if (isKind(object, "NSString"_cls)) {
    std::u16string characters = charactersOf(object);
    std::replace(characters.begin(), characters.end(), from, to);
    return textOf(characters);
  }
  const auto replacedAll = [&](id list) {
    std::vector<id> members = elements(list);
    for (id& member : members) member = replaced(member, from, to);
    return array(members);
  };
  if (isKind(object, "NSArray"_cls)) return replacedAll(object);
  if (!isKind(object, "NSDictionary"_cls)) return object;
  id keys = send<id>(object, "allKeys"_sel);
  id values = send<id>(object, "objectsForKeys:notFoundMarker:"_sel, keys, keys);
  return send<id>("NSDictionary"_cls, "dictionaryWithObjects:forKeys:"_sel, replacedAll(values), replacedAll(keys));
}

id parsed(const std::u16string& root) {
  constexpr NSUInteger utf8 = 4;
  return foundationPropertyList(
      send<id>(textOf(u"<?xml version=\"1.0\" encoding=\"UTF-8\"?>" + root), "dataUsingEncoding:"_sel, utf8));
}

}  // namespace

id foundationPropertyList(id data) {
  constexpr NSUInteger immutable = 0;
  return send<id>("NSPropertyListSerialization"_cls, "propertyListWithData:options:format:error:"_sel, data, immutable,
                  static_cast<void*>(nullptr), static_cast<void*>(nullptr));
}

id readXMLPropertyList(const std::u16string& xml) {
  const std::size_t root = rootOf(xml);
  if (root == nowhere) return nullptr;
  std::u16string list = withPlistElement(withPlainMarks(withPlainSections(std::u16string_view(xml).substr(root))));
  if (list.find(byteOrderMark) == std::u16string::npos) return parsed(list);
  // Foundation here takes the mark at the beginning of any text for a sign of its encoding, and drops it.
  const char16_t standIn = standInFor(list);
  std::replace(list.begin(), list.end(), byteOrderMark, standIn);
  return replaced(parsed(list), standIn, byteOrderMark);
}

}  // namespace sim
