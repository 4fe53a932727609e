// What a verb is called and takes, whoever performs it: how a person's words become a request.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace sim {

/// One of the things that a verb takes.
struct MemberDescription {
  enum class Type {
    text,
    id,  ///< an icon, by its identifier or its label
    number,
    integer,
    toggle,
    choice,
    list,
    json,
    file,  ///< a path on this machine
    path,  ///< a path on the device
    verb,
  };

  std::string name;
  Type type = Type::text;
  std::string help;                  ///< empty where the name says it
  std::vector<std::string> choices;  ///< the words of a choice, or of a list of choices
  Type items = Type::text;           ///< what a list holds
  bool needed = true;
};

struct VerbDescription {
  std::string name;  ///< as a person types it
  std::string group;
  std::string help;  ///< one line
  std::vector<MemberDescription> members;
};

/// Reads the form that the home-screen process describes its verbs in.
void from_json(const nlohmann::json& source, MemberDescription& member);
void from_json(const nlohmann::json& source, VerbDescription& verb);

/// What is written without a name, in its place: what a verb needs, the only thing that it takes, and a list that ends
/// it. A switch among the rest is on when it is named, as in "--late"; a name such as "--clock" has its value after it.
std::vector<const MemberDescription*> membersInPlace(const VerbDescription& verb);
/// The line's form: "tap TITLE [--late]".
std::string usage(const VerbDescription& verb);
/// The usage, what the verb does and what each member is, a few lines.
std::string explanation(const VerbDescription& verb);

/// The request's members that the words after a verb stand for. Throws `BadInput`.
nlohmann::json membersOf(const VerbDescription& verb, const std::vector<std::string>& words);

}  // namespace sim
