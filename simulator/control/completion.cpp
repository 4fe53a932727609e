#include "simulator/control/completion.hpp"

#include <algorithm>

#include "simulator/control/words.hpp"

namespace sim {
namespace {

using Type = MemberDescription::Type;

/// What a word in its place, or the value after an option's name, is.
const MemberDescription* memberAt(const VerbDescription& verb, const std::vector<std::string>& words) {
  const auto members = membersInPlace(verb);
  std::size_t place = 0;
  const MemberDescription* named = nullptr;
  for (std::size_t index = 1; index < words.size(); ++index) {
    if (named != nullptr) {
      named = nullptr;
    } else if (words[index].starts_with("--")) {
      for (const MemberDescription& member : verb.members) {
        if ("--" + member.name == words[index] && member.type != Type::toggle) named = &member;
      }
    } else {
      ++place;
    }
  }
  if (named != nullptr) return named;
  if (place < members.size()) return members[place];
  return !members.empty() && members.back()->type == Type::list ? members.back() : nullptr;
}

std::vector<std::string> optionNames(const VerbDescription& verb) {
  const auto inPlace = membersInPlace(verb);
  std::vector<std::string> names;
  for (const MemberDescription& member : verb.members) {
    if (std::find(inPlace.begin(), inPlace.end(), &member) == inPlace.end()) names.push_back("--" + member.name);
  }
  return names;
}

std::vector<std::string> possibilities(Session& session, const UnfinishedLine& line) {
  if (line.words.empty()) return session.candidates({.type = Type::verb}, line.last);
  const VerbDescription* const verb = session.verb(line.words.front());
  if (verb == nullptr) return {};
  if (line.last.starts_with("-")) return optionNames(*verb);
  const MemberDescription* const member = memberAt(*verb, line.words);
  return member != nullptr ? session.candidates(*member, line.last) : std::vector<std::string>();
}

std::string commonStart(const std::vector<std::string>& words) {
  std::string start = words.front();
  for (const std::string& word : words) {
    const auto ends = std::mismatch(start.begin(), start.end(), word.begin(), word.end());
    start.erase(ends.first, start.end());
  }
  // A character is never cut in two.
  const auto lead = [](unsigned char byte) { return (byte & 0xC0U) != 0x80U; };
  const std::string& longest = words.front();
  while (start.size() < longest.size() && !start.empty() && !lead(static_cast<unsigned char>(longest[start.size()]))) {
    start.pop_back();
  }
  return start;
}

/// As a line has a word that goes on: a quote stays open.
std::string begunQuoted(const std::string& word) {
  std::string text = quoted(word);
  if (text.ends_with('"')) text.pop_back();
  return text;
}

}  // namespace

Completion complete(Session& session, const std::string& line) {
  const UnfinishedLine typed = splitUnfinished(line);
  Completion completion{.start = typed.start, .insertion = line.substr(typed.start), .candidates = {}};
  if (typed.comment) return completion;
  for (const std::string& candidate : possibilities(session, typed)) {
    if (candidate.starts_with(typed.last)) completion.candidates.push_back(candidate);
  }
  if (completion.candidates.empty()) return completion;
  const std::string start = commonStart(completion.candidates);
  if (completion.candidates.size() > 1) {
    if (start.size() > typed.last.size()) completion.insertion = begunQuoted(start);
  } else {
    // A folder goes on.
    completion.insertion = start.ends_with('/') ? begunQuoted(start) : quoted(start) + " ";
  }
  return completion;
}

}  // namespace sim
