// Property lists: the files in which a phone keeps its settings and descriptions.
#pragma once

#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>

namespace sim {

/// A property list, or a part of one. It is a copy of its own: changing it changes no other.
class PropertyList {
 public:
  enum class Format { xml, binary };

  /// An empty dictionary.
  PropertyList();
  /// From a value; binary JSON values become data. Null is not a property list's value.
  explicit PropertyList(const nlohmann::ordered_json& value);

  /// What the bytes hold, in either format; none when that is no property list.
  static std::optional<PropertyList> parse(std::string_view content);
  /// The file's content; none when the file is missing or holds no property list.
  static std::optional<PropertyList> read(const std::filesystem::path& file);
  /// Replaces the file whole: readers see the old or the new content. Throws `std::system_error`.
  void write(const std::filesystem::path& file, Format format = Format::xml) const;

  /// Sets a key of a dictionary.
  void set(const std::string& key, const nlohmann::ordered_json& value);
  /// Removes a key of a dictionary, if it is there.
  void remove(const std::string& key);
  bool isDictionary() const;
  /// The text at a key of a dictionary; none when it is absent or no text.
  std::optional<std::string> text(const std::string& key) const;

  /// The content as a value; data become binary JSON values, and dates texts.
  nlohmann::ordered_json value() const;
  /// The content as a person reads it, one entry a line.
  std::string readable() const;

 private:
  struct Free {
    void operator()(void* node) const;
  };
  explicit PropertyList(void* node) : node_(node) {}

  std::unique_ptr<void, Free> node_;
};

}  // namespace sim
