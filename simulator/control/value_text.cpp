#include "simulator/control/value_text.hpp"

namespace sim {
namespace {

using nlohmann::json;

/// One line's worth.
std::string brief(const json& value) {
  if (value.is_string()) return value.get<std::string>();
  if (value.is_null()) return "nil";
  if (!value.is_structured()) return value.dump();
  std::string text;
  for (const auto& [name, member] : value.items()) {
    if (!text.empty()) text += ", ";
    if (value.is_object()) text += name + " ";
    text += member.is_structured() ? "(" + brief(member) + ")" : brief(member);
  }
  return text;
}

}  // namespace

std::string readable(const json& value) {
  if (value.is_null()) return "";
  if (!value.is_structured()) {
    const std::string text = brief(value);
    return text + (text.ends_with('\n') ? "" : "\n");
  }
  // Part of a log.
  if (value.is_object() && value.contains("entries") && value.contains("next")) return readable(value.at("entries"));
  std::string lines;
  for (const auto& [name, member] : value.items()) {
    lines += (value.is_object() ? name + ": " : "") + brief(member) + "\n";
  }
  return lines;
}

}  // namespace sim
