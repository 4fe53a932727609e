// What a process can be asked for: the one table of verbs that everything reads that drives it.
#pragma once

#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <vector>

namespace sim {

/// A request that is wrong in itself, whatever is on the screen. Nothing has changed.
struct BadRequest : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// What a member of a request holds.
enum class MemberType {
  text,
  id,  ///< an icon: its bundle identifier or, where no icon has that one, its label
  number,
  integer,
  toggle,  ///< true or false
  choice,  ///< one of a few words
  list,
  json,  ///< anything
};

struct Member {
  std::string name;
  MemberType type;
  std::string help = {};                  ///< empty where the name says it
  std::vector<std::string> choices = {};  ///< the words of a choice, or of a list of choices
  MemberType items = MemberType::text;    ///< what a list holds
  bool needed = true;
};

struct Verb {
  std::string name;  ///< as a person types it
  std::string help;  ///< one line
  std::vector<Member> members;
  /// Does it and gives its value. The members were checked before: those that are needed are there, all have their
  /// type, and an icon is given by its identifier, a web page's by its title.
  nlohmann::json (*perform)(const nlohmann::json& members);
};

/// Verbs of one kind: "gesture" for what happens to a phone, "look" for what is seen of it, "probe" for what only a
/// driver can do or ask.
struct VerbGroup {
  std::string name;
  std::vector<Verb> verbs;
};
const std::vector<VerbGroup>& verbGroups();
/// Says what this process can be asked for, gestures first, and what people call it ("the home screen"). To be called
/// once, before anything of this is asked for.
void setVerbs(std::string process, std::vector<VerbGroup> groups);

/// Throws `BadRequest` for one that there is not.
const Verb& verbNamed(const std::string& name);
/// The members, an object, as the verb's function takes them. Those that are null are left out. Throws `BadRequest`
/// for what the verb does not take, and `Refused` for a label of more icons than one.
nlohmann::json checkedMembers(const Verb& verb, const nlohmann::json& members);
/// The whole table: a list of `{"name", "group", "help", "members"}`, each member
/// `{"name", "type", "needed", "choices"?, "items"?, "help"?}`.
nlohmann::json describeVerbs();

/// The home screen's, one file for each group.
std::vector<VerbGroup> homeScreenVerbs();
std::vector<Verb> gestureVerbs();
std::vector<Verb> lookVerbs();
std::vector<Verb> probeVerbs();

// What every process of a phone has that has a screen.
std::vector<Verb> alertGestures();  ///< what a person does with a sheet or an alert
std::vector<Verb> worldGestures();  ///< what happens around the process: time, notifications, preferences
std::vector<Verb> commonLooks();
std::vector<Verb> commonProbes();

/// The words of a choice, from the table that says what they mean.
template <class Table>
std::vector<std::string> namesOf(const Table& table) {
  std::vector<std::string> names;
  for (const auto& [name, meaning] : table) names.push_back(name);
  return names;
}

/// One list of rows behind the other.
std::vector<Verb> operator+(std::vector<Verb> first, std::vector<Verb> second);

/// How rows say that a member may be missing, and what a list is of.
Member optional(Member member);
Member listOf(Member items);

}  // namespace sim
