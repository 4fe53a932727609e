#include "simulator/control/vocabulary.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <map>
#include <optional>

#include "simulator/control/words.hpp"
#include "simulator/device/error.hpp"

namespace sim {
namespace {

using nlohmann::json;
using Type = MemberDescription::Type;
using Words = std::vector<std::string>;

/// The types by the names that the process gives them; what it has beyond these is written as text.
const std::map<std::string, Type>& typesByName() {
  static const std::map<std::string, Type> types = {
      {"text", Type::text},     {"id", Type::id},         {"number", Type::number}, {"integer", Type::integer},
      {"switch", Type::toggle}, {"choice", Type::choice}, {"list", Type::list},     {"json", Type::json}};
  return types;
}

Type typeNamed(const std::string& name) {
  const auto type = typesByName().find(name);
  return type != typesByName().end() ? type->second : Type::text;
}

template <class Number>
std::optional<Number> parsed(const std::string& text) {
  Number value{};
  const auto [rest, failed] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (failed != std::errc() || rest != text.data() + text.size()) return std::nullopt;
  return value;
}

json numberOf(const MemberDescription&, const std::string& word) {
  const auto value = parsed<double>(word);
  if (!value || !std::isfinite(*value)) throw BadInput("not a number: " + word);
  return *value;
}

json integerOf(const MemberDescription&, const std::string& word) {
  const auto value = parsed<std::int64_t>(word);
  if (!value) throw BadInput("not an integer: " + word);
  return *value;
}

json toggleOf(const MemberDescription&, const std::string& word) {
  if (word != "on" && word != "off") throw BadInput("neither on nor off: " + word);
  return word == "on";
}

json choiceOf(const MemberDescription& member, const std::string& word) {
  if (std::find(member.choices.begin(), member.choices.end(), word) == member.choices.end()) {
    throw BadInput("not " + joined(member.choices, " or ") + ": " + word);
  }
  return word;
}

json jsonOf(const MemberDescription&, const std::string& word) {
  json value = json::parse(word, nullptr, false);
  if (value.is_discarded()) throw BadInput("not JSON: " + word);
  return value;
}

json textOf(const MemberDescription&, const std::string& word) { return word; }

/// What a word stands for.
json valueOf(const MemberDescription& member, Type type, const std::string& word) {
  static const std::map<Type, json (*)(const MemberDescription&, const std::string&)> readers = {
      {Type::number, numberOf}, {Type::integer, integerOf}, {Type::toggle, toggleOf},
      {Type::choice, choiceOf}, {Type::json, jsonOf},
  };
  const auto reader = readers.find(type);
  return (reader != readers.end() ? reader->second : textOf)(member, word);
}

void take(const MemberDescription& member, const std::string& word, json& members) {
  if (member.type == Type::list) members[member.name].push_back(valueOf(member, member.items, word));
  else members[member.name] = valueOf(member, member.type, word);
}

std::string upperCase(std::string text) {
  for (char& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return text;
}

/// How the usage shows a member's value.
std::string placeholder(const MemberDescription& member) {
  if (member.type == Type::toggle) return "on|off";
  const std::string word = member.choices.empty() ? upperCase(member.name) : joined(member.choices, "|");
  return member.type == Type::list ? word + " ..." : word;
}

bool isInPlace(const VerbDescription& verb, const MemberDescription& member) {
  return member.needed || verb.members.size() == 1 || (member.type == Type::list && &member == &verb.members.back());
}

std::string usagePart(const VerbDescription& verb, const MemberDescription& member) {
  if (isInPlace(verb, member)) return member.needed ? placeholder(member) : "[" + placeholder(member) + "]";
  return "[--" + member.name + (member.type == Type::toggle ? "" : " " + placeholder(member)) + "]";
}

[[noreturn]] void refuseUsage(const VerbDescription& verb) { throw BadInput("usage: " + usage(verb)); }

/// More words than places: mostly a title with blanks that nobody quoted.
[[noreturn]] void refuseSurplus(const VerbDescription& verb, const Words& inPlace) {
  const auto members = membersInPlace(verb);
  if (members.empty() || (members.back()->type != Type::text && members.back()->type != Type::id)) refuseUsage(verb);
  const auto last = inPlace.begin() + static_cast<std::ptrdiff_t>(members.size()) - 1;
  std::string line = verb.name;
  for (auto word = inPlace.begin(); word != last; ++word) line += " " + quoted(*word);
  throw BadInput("too many words; quote what has blanks: " + line + " " + quoted(joined({last, inPlace.end()}, " ")));
}

}  // namespace

void from_json(const json& source, MemberDescription& member) {
  source.at("name").get_to(member.name);
  member.type = typeNamed(source.at("type"));
  member.needed = source.at("needed");
  member.help = source.value("help", "");
  member.choices = source.value("choices", Words());
  member.items = typeNamed(source.value("items", "text"));
}

void from_json(const json& source, VerbDescription& verb) {
  source.at("name").get_to(verb.name);
  source.at("group").get_to(verb.group);
  source.at("help").get_to(verb.help);
  source.at("members").get_to(verb.members);
}

std::vector<const MemberDescription*> membersInPlace(const VerbDescription& verb) {
  std::vector<const MemberDescription*> members;
  for (const MemberDescription& member : verb.members) {
    if (isInPlace(verb, member)) members.push_back(&member);
  }
  return members;
}

std::string usage(const VerbDescription& verb) {
  std::string text = verb.name;
  for (const bool inPlace : {true, false}) {
    for (const MemberDescription& member : verb.members) {
      if (isInPlace(verb, member) == inPlace) text += " " + usagePart(verb, member);
    }
  }
  return text;
}

std::string explanation(const VerbDescription& verb) {
  std::string text = usage(verb) + "\n    " + verb.help + "\n";
  for (const MemberDescription& member : verb.members) {
    const std::string name = isInPlace(verb, member) ? upperCase(member.name) : "--" + member.name;
    if (!member.help.empty()) text += "  " + name + ": " + member.help + "\n";
  }
  return text;
}

json membersOf(const VerbDescription& verb, const Words& words) {
  json members = json::object();
  Words inPlace;
  for (auto word = words.begin(); word != words.end(); ++word) {
    if (!word->starts_with("--")) {
      inPlace.push_back(*word);
      continue;
    }
    const auto member = std::find_if(verb.members.begin(), verb.members.end(), [&](const MemberDescription& each) {
      return !isInPlace(verb, each) && "--" + each.name == *word;
    });
    if (member == verb.members.end()) throw BadInput("unknown option: " + *word + "; usage: " + usage(verb));
    if (member->type == Type::toggle) {
      members[member->name] = true;
    } else {
      if (std::next(word) == words.end()) throw BadInput(*word + " needs a value");
      take(*member, *++word, members);
    }
  }
  auto word = inPlace.begin();
  for (const MemberDescription* member : membersInPlace(verb)) {
    const auto end = member->type == Type::list || word == inPlace.end() ? inPlace.end() : std::next(word);
    if (word == end && member->needed) refuseUsage(verb);
    for (; word != end; ++word) take(*member, *word, members);
  }
  if (word != inPlace.end()) refuseSurplus(verb, inPlace);
  return members;
}

}  // namespace sim
