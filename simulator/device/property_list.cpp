#include "simulator/device/property_list.hpp"

#include <plist/plist.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <utility>
#include <vector>

#include "simulator/device/files.hpp"

namespace sim {
namespace {

using Json = nlohmann::ordered_json;

plist_t makeNode(const Json& value) {
  switch (value.type()) {
    case Json::value_t::boolean:
      return plist_new_bool(value.get<bool>() ? 1 : 0);
    case Json::value_t::number_integer:
    case Json::value_t::number_unsigned:
      return plist_new_uint(static_cast<std::uint64_t>(value.get<std::int64_t>()));
    case Json::value_t::number_float:
      return plist_new_real(value.get<double>());
    case Json::value_t::string:
      return plist_new_string(value.get_ref<const std::string&>().c_str());
    case Json::value_t::binary: {
      const auto& bytes = value.get_binary();
      return plist_new_data(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    }
    case Json::value_t::array: {
      plist_t array = plist_new_array();
      for (const Json& item : value) plist_array_append_item(array, makeNode(item));
      return array;
    }
    case Json::value_t::object: {
      plist_t dictionary = plist_new_dict();
      for (const auto& [key, item] : value.items()) plist_dict_set_item(dictionary, key.c_str(), makeNode(item));
      return dictionary;
    }
    default:
      throw std::invalid_argument("not a property list's value");
  }
}

std::string quoted(const std::string& text) { return Json(text).dump(-1, ' ', false, Json::error_handler_t::replace); }

std::string stringValue(plist_t node) {
  std::uint64_t length = 0;
  const char* text = plist_get_string_ptr(node, &length);
  return {text, length};
}

std::string dateText(plist_t node) {
  constexpr std::time_t from1970To2001 = 978307200;
  std::int32_t seconds = 0;
  std::int32_t microseconds = 0;
  plist_get_date_val(node, &seconds, &microseconds);
  const std::time_t time = from1970To2001 + seconds;
  std::tm parts{};
  gmtime_r(&time, &parts);
  std::array<char, 32> text{};
  return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S UTC", &parts)};
}

// What a dictionary holds, in its order.
std::vector<std::pair<std::string, plist_t>> entriesOf(plist_t dictionary) {
  std::vector<std::pair<std::string, plist_t>> entries(plist_dict_get_size(dictionary));
  plist_dict_iter position = nullptr;
  plist_dict_new_iter(dictionary, &position);
  for (auto& [key, value] : entries) {
    char* name = nullptr;
    plist_dict_next_item(dictionary, position, &name, &value);
    key = name;
    std::free(name);
  }
  std::free(position);
  return entries;
}

Json valueOf(plist_t node) {
  switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN:
      return plist_bool_val_is_true(node) != 0;
    case PLIST_UINT: {
      std::uint64_t value = 0;
      plist_get_uint_val(node, &value);
      return static_cast<std::int64_t>(value);
    }
    case PLIST_REAL: {
      double value = 0;
      plist_get_real_val(node, &value);
      return value;
    }
    case PLIST_STRING:
      return stringValue(node);
    case PLIST_DATA: {
      std::uint64_t length = 0;
      const char* bytes = plist_get_data_ptr(node, &length);
      return Json::binary({bytes, bytes + length});
    }
    case PLIST_DATE:
      return dateText(node);
    case PLIST_ARRAY: {
      Json array = Json::array();
      for (std::uint32_t index = 0; index < plist_array_get_size(node); ++index)
        array.push_back(valueOf(plist_array_get_item(node, index)));
      return array;
    }
    case PLIST_DICT: {
      Json object = Json::object();
      for (const auto& [key, value] : entriesOf(node)) object[key] = valueOf(value);
      return object;
    }
    default:
      return nullptr;
  }
}

std::string readableNode(plist_t node, const std::string& indent);

std::string readableArray(plist_t node, const std::string& indent) {
  std::string text = "[";
  for (std::uint32_t index = 0; index < plist_array_get_size(node); ++index) {
    text += "\n" + indent + "  " + readableNode(plist_array_get_item(node, index), indent + "  ");
  }
  return text + (plist_array_get_size(node) > 0 ? "\n" + indent : "") + "]";
}

std::string readableDictionary(plist_t node, const std::string& indent) {
  const auto entries = entriesOf(node);
  std::string text = "{";
  for (const auto& [key, value] : entries)
    text += "\n" + indent + "  " + quoted(key) + ": " + readableNode(value, indent + "  ");
  return text + (entries.empty() ? "" : "\n" + indent) + "}";
}

// Data and dates apart, a value is written as the rest of the world writes it.
std::string readableNode(plist_t node, const std::string& indent) {
  switch (plist_get_node_type(node)) {
    case PLIST_STRING:
      return quoted(stringValue(node));
    case PLIST_DATA: {
      std::uint64_t length = 0;
      plist_get_data_ptr(node, &length);
      return "<data of " + std::to_string(length) + " bytes>";
    }
    case PLIST_DATE:
      return dateText(node);
    case PLIST_ARRAY:
      return readableArray(node, indent);
    case PLIST_DICT:
      return readableDictionary(node, indent);
    case PLIST_BOOLEAN:
    case PLIST_UINT:
    case PLIST_REAL:
      return valueOf(node).dump();
    default:
      return "<unknown>";
  }
}

}  // namespace

void PropertyList::Free::operator()(void* node) const { plist_free(node); }

PropertyList::PropertyList() : node_(plist_new_dict()) {}
PropertyList::PropertyList(const Json& value) : node_(makeNode(value)) {}

std::optional<PropertyList> PropertyList::parse(std::string_view content) {
  // The shortest content that can be told to be a property list is the binary form's mark.
  if (content.size() < 8) return std::nullopt;
  plist_t node = nullptr;
  plist_from_memory(content.data(), static_cast<std::uint32_t>(content.size()), &node);
  if (node == nullptr) return std::nullopt;
  return PropertyList(node);
}

std::optional<PropertyList> PropertyList::read(const std::filesystem::path& file) {
  const std::optional<std::string> content = readFile(file);
  return content ? parse(*content) : std::nullopt;
}

void PropertyList::write(const std::filesystem::path& file, Format format) const {
  char* bytes = nullptr;
  std::uint32_t length = 0;
  (format == Format::xml ? plist_to_xml : plist_to_bin)(node_.get(), &bytes, &length);
  const std::string content(bytes, length);
  std::free(bytes);
  writeFile(file, content);
}

void PropertyList::set(const std::string& key, const Json& value) {
  plist_dict_set_item(node_.get(), key.c_str(), makeNode(value));
}

void PropertyList::remove(const std::string& key) {
  if (plist_dict_get_item(node_.get(), key.c_str()) != nullptr) plist_dict_remove_item(node_.get(), key.c_str());
}

bool PropertyList::isDictionary() const { return plist_get_node_type(node_.get()) == PLIST_DICT; }

std::optional<std::string> PropertyList::text(const std::string& key) const {
  plist_t value = isDictionary() ? plist_dict_get_item(node_.get(), key.c_str()) : nullptr;
  if (value == nullptr || plist_get_node_type(value) != PLIST_STRING) return std::nullopt;
  return stringValue(value);
}

Json PropertyList::value() const { return valueOf(node_.get()); }

std::string PropertyList::readable() const { return readableNode(node_.get(), ""); }

}  // namespace sim
