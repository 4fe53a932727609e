#include "simulator/control/agent/verbs.hpp"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <iterator>
#include <utility>

#include "simulator/control/agent/icon_names.hpp"

namespace sim {
namespace {

using nlohmann::json;

struct TypeRow {
  const char* name;
  const char* noun;
  bool (*holds)(const json& value);
};

bool isText(const json& value) { return value.is_string(); }

// By the order of `MemberType`.
constexpr std::array<TypeRow, 8> types{{
    {"text", "text", isText},
    {"id", "identifier or label of an icon", isText},
    {"number", "number", [](const json& value) { return value.is_number() && std::isfinite(value.get<double>()); }},
    {"integer", "integer", [](const json& value) { return value.is_number_integer(); }},
    {"switch", "true or false", [](const json& value) { return value.is_boolean(); }},
    {"choice", "word", isText},
    {"list", "list", [](const json& value) { return value.is_array(); }},
    {"json", "value", [](const json&) { return true; }},
}};

const TypeRow& rowOf(MemberType type) { return types[static_cast<std::size_t>(type)]; }

std::string joined(const std::vector<std::string>& words) {
  std::string text;
  for (const auto& word : words) text += (text.empty() ? "" : ", ") + word;
  return text;
}

// What the verb takes, in words.
std::string usageOf(const Verb& verb) {
  if (verb.members.empty()) return "\"" + verb.name + "\" takes nothing";
  std::vector<std::string> members;
  for (const Member& member : verb.members) {
    std::string text = "\"" + member.name + "\"";
    if (!member.choices.empty()) text += " (" + joined(member.choices) + ")";
    members.push_back(member.needed ? text : "[" + text + "]");
  }
  return "\"" + verb.name + "\" takes " + joined(members);
}

bool holds(const Member& member, const json& value) {
  if (!rowOf(member.type).holds(value)) return false;
  if (member.type == MemberType::choice)
    return std::any_of(member.choices.begin(), member.choices.end(), [&](const auto& word) { return value == word; });
  if (member.type != MemberType::list) return true;
  Member item = member;
  item.type = member.items;
  return std::all_of(value.begin(), value.end(), [&](const json& each) { return holds(item, each); });
}

std::string nounOf(const Member& member) {
  if (!member.choices.empty()) return member.type == MemberType::list ? "list of these words" : "such word";
  if (member.type == MemberType::list) return std::string("list of ") + rowOf(member.items).noun + "s";
  return rowOf(member.type).noun;
}

/// What this process can be asked for.
struct Table {
  std::string process;
  std::vector<VerbGroup> groups;
};
Table& table() {
  static Table verbs;
  return verbs;
}

// One line, whatever stands in it.
std::string shown(const json& value) { return value.dump(-1, ' ', false, json::error_handler_t::replace); }

}  // namespace

Member optional(Member member) {
  member.needed = false;
  return member;
}

Member listOf(Member items) {
  items.items = items.type;
  items.type = MemberType::list;
  return items;
}

std::vector<Verb> operator+(std::vector<Verb> first, std::vector<Verb> second) {
  std::move(second.begin(), second.end(), std::back_inserter(first));
  return first;
}

void setVerbs(std::string process, std::vector<VerbGroup> groups) { table() = {std::move(process), std::move(groups)}; }

const std::vector<VerbGroup>& verbGroups() { return table().groups; }

std::vector<VerbGroup> homeScreenVerbs() {
  return {{"gesture", gestureVerbs()}, {"look", lookVerbs()}, {"probe", probeVerbs()}};
}

const Verb& verbNamed(const std::string& name) {
  for (const VerbGroup& group : verbGroups())
    for (const Verb& verb : group.verbs)
      if (verb.name == name) return verb;
  std::string process = table().process;
  process.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(process.front())));
  throw BadRequest(process + " knows no \"" + name + "\"");
}

json checkedMembers(const Verb& verb, const json& members) {
  const auto refuse = [&](const std::string& reason) { throw BadRequest(reason + ": " + usageOf(verb)); };
  if (!members.is_object()) refuse("The members are no object");
  json checked = json::object();
  for (const auto& [name, value] : members.items()) {
    const auto member = std::find_if(verb.members.begin(), verb.members.end(),
                                     [given = name](const Member& each) { return each.name == given; });
    if (member == verb.members.end()) refuse("No \"" + name + "\" is known");
    if (value.is_null()) continue;
    if (!holds(*member, value)) refuse("\"" + name + "\" is no " + nounOf(*member) + ": " + shown(value));
    checked[name] = member->type == MemberType::id ? json(identifierOf(value.get<std::string>())) : value;
  }
  for (const Member& member : verb.members)
    if (member.needed && !checked.contains(member.name)) refuse("\"" + member.name + "\" is missing");
  return checked;
}

json describeVerbs() {
  json list = json::array();
  for (const VerbGroup& group : verbGroups())
    for (const Verb& verb : group.verbs) {
      json members = json::array();
      for (const Member& member : verb.members) {
        json described = {{"name", member.name}, {"type", rowOf(member.type).name}, {"needed", member.needed}};
        if (!member.choices.empty()) described["choices"] = member.choices;
        if (member.type == MemberType::list) described["items"] = rowOf(member.items).name;
        if (!member.help.empty()) described["help"] = member.help;
        members.push_back(std::move(described));
      }
      list.push_back({{"name", verb.name}, {"group", group.name}, {"help", verb.help}, {"members", members}});
    }
  return list;
}

}  // namespace sim
