#include "simulator/control/session.hpp"

#include <sys/stat.h>

#include <algorithm>
#include <utility>

#include "simulator/control/driver_verbs.hpp"
#include "simulator/control/print.hpp"
#include "simulator/control/process_verbs.hpp"
#include "simulator/control/value_text.hpp"
#include "simulator/control/words.hpp"
#include "simulator/device/packages.hpp"

namespace fs = std::filesystem;

namespace sim {
namespace {

using Json = nlohmann::json;
using Type = MemberDescription::Type;

bool contains(const std::vector<std::string>& list, const std::string& text) {
  return std::find(list.begin(), list.end(), text) != list.end();
}

/// Whether the member is what can be read on a button or in a list.
bool isTitle(const MemberDescription& member) { return member.type == Type::text && member.name == "title"; }

/// The files of a folder that is there, as paths that begin as the person began; folders end in a slash.
std::vector<std::string> filesBeside(const std::string& begun, const fs::path& folder) {
  const std::string prefix = begun.substr(0, begun.rfind('/') + 1);
  std::vector<std::string> paths;
  std::error_code failed;
  for (const auto& entry : fs::directory_iterator(folder, failed)) {
    paths.push_back(prefix + entry.path().filename().string() + (entry.is_directory(failed) ? "/" : ""));
  }
  std::sort(paths.begin(), paths.end());
  return paths;
}

}  // namespace

Session::Session(Options options, std::ostream& output) : options_(std::move(options)), output_(output) {}
Session::~Session() = default;

Phone& Session::phone() {
  if (!phone_) throw BadInput("no home screen: boot one first");
  return *phone_;
}

void Session::boot(Phone::Options options, const std::optional<fs::path>& device) {
  // A fresh device lives as long as the home screen booted on it.
  auto fresh = device ? nullptr : std::make_unique<TemporaryFolder>();
  options.device = device ? *device : fresh->path();
  options.buildFolder = options_.buildFolder;
  options.live = options_.live;
  options.stop = options_.stop;
  check(options);
  auto phone = std::make_unique<Phone>(std::move(options));
  // Who opens the console wants to see what was just built.
  if (options_.device && !std::exchange(upToDate_, true)) updateAddOn(phone->device());
  phone->boot();
  phone_ = std::move(phone);
  freshDevice_ = std::move(fresh);
  clock_.begin(options_.live);
  begin();
}

void Session::begin() {
  eventsFrom_ = eventsUpTo_ = 0;
  menuCame_.reset();
  for (const std::string& event : phone_->events()) output_ << "Event: " << event << "\n";
}

const std::vector<VerbDescription>& Session::verbs() {
  if (verbs_.empty()) {
    for (const DriverVerb& verb : driverVerbs()) verbs_.push_back(verb.description);
    for (VerbDescription& verb : processVerbs(options_.buildFolder)) {
      const auto own =
          std::find_if(verbs_.begin(), verbs_.end(), [&](const auto& each) { return each.name == verb.name; });
      if (own == verbs_.end()) verbs_.push_back(std::move(verb));
    }
  }
  return verbs_;
}

const VerbDescription* Session::verb(const std::string& name) {
  const auto& all = verbs();
  const auto found =
      std::find_if(all.begin(), all.end(), [&](const VerbDescription& verb) { return verb.name == name; });
  return found != all.end() ? &*found : nullptr;
}

std::string Session::help() {
  std::string text;
  std::string group;
  for (const VerbDescription& verb : verbs()) {
    if (std::exchange(group, verb.group) != verb.group) text += (text.empty() ? "" : "\n") + verb.group + ":\n";
    text += usage(verb) + "\n    " + verb.help + "\n";
  }
  return text;
}

void Session::play(const std::string& line) {
  std::vector<std::string> words = splitWords(line);
  if (words.empty()) return;
  const VerbDescription* const known = verb(words.front());
  if (known == nullptr) {
    std::vector<std::string> names;
    for (const VerbDescription& each : verbs()) names.push_back(each.name);
    const auto meant = nearest(words.front(), names);
    throw BadInput("unknown verb: " + words.front() +
                   (meant.empty() ? "; try help" : "; try " + joined(meant, " or ")));
  }
  words.erase(words.begin());
  const Json members = membersOf(*known, words);
  try {
    perform(*known, members);
    if (phone_) clock_.note(phone_->now());
  } catch (const Refusal& refusal) {
    throw BadInput(refusal.what() + advice(*known, members));
  } catch (const fs::filesystem_error& error) {
    throw BadInput(error.what());
  } catch (const HomeScreenDied&) {
    phone_.reset();
    throw;
  }
}

void Session::perform(const VerbDescription& verb, const Json& members) {
  const auto& own = driverVerbs();
  const auto row =
      std::find_if(own.begin(), own.end(), [&](const auto& each) { return each.description.name == verb.name; });
  if (row != own.end()) {
    row->play(*this, members);
    return;
  }
  const Json value = phone().ask(verb.name, members);
  output_ << (value.is_null() && verb.group == "look" ? "nothing\n" : readable(value));
  if (verb.name == "swipe" || verb.name == "choose") noteMenu();
}

void Session::noteMenu() {
  // It takes 0.4 seconds to come and keeps the next one away for 0.8 seconds from then on.
  constexpr std::int64_t guard = 1'200'000'000;
  const std::int64_t now = phone().ask("uptime");
  if (phone().screen().topAlert() != nullptr) menuCame_ = now;
  else if (menuCame_ && now - *menuCame_ < guard)
    output_ << "No menu comes so soon after the last one; \"advance 1\" lets the time pass\n";
}

std::string Session::advice(const VerbDescription& verb, const Json& members) {
  for (const MemberDescription& member : verb.members) {
    if (!members.contains(member.name)) continue;
    const std::string given = members.at(member.name).is_string() ? members.at(member.name) : "";
    if (member.type == Type::id && !contains(icons(), given)) {
      const auto meant = nearest(given, icons());
      return meant.empty() ? "; \"icons\" lists those there are" : "; nearest: " + joined(meant);
    }
    if (const auto shown = titles(); isTitle(member) && !shown.empty() && !contains(shown, given)) {
      return "; there are: " + joined(shown);
    }
  }
  return "";
}

std::vector<std::string> Session::icons() {
  std::vector<std::string> names;
  for (const IconOnScreen& icon : phone().screen().icons) {
    for (const std::string& name : {icon.id, icon.label}) {
      if (!name.empty() && !contains(names, name)) names.push_back(name);
    }
  }
  return names;
}

std::vector<std::string> Session::titles() {
  const Screen screen = phone().screen();
  std::vector<std::string> all;
  if (const AlertOnScreen* alert = screen.topAlert()) all = alert->titles();
  if (screen.quickActions) {
    for (const QuickAction& entry : screen.quickActions->entries) all.push_back(entry.title);
  }
  return all;
}

std::vector<std::string> Session::cells() {
  if (!phone().paneIsOpen()) return {};
  const PaneOnScreen pane = phone().pane();
  if (pane.alert) return pane.alert->titles();
  auto all = pane.labels();
  if (pane.button) all.push_back(*pane.button);
  return all;
}

std::vector<std::string> Session::cellValues() {
  if (!phone().paneIsOpen()) return {};
  std::vector<std::string> all = {"on", "off"};
  for (const CellOnScreen& cell : phone().pane().cells) all.insert(all.end(), cell.choices.begin(), cell.choices.end());
  return all;
}

std::vector<std::string> Session::candidates(const MemberDescription& member, const std::string& begun) {
  if (!member.choices.empty()) return member.choices;
  if (member.type == Type::toggle) return {"on", "off"};
  if (member.type == Type::file) return filesBeside(begun, fs::absolute(begun + ".").parent_path());
  if (member.type == Type::verb) {
    std::vector<std::string> names;
    for (const VerbDescription& verb : verbs()) names.push_back(verb.name);
    return names;
  }
  if (!phone_) return {};
  if (member.type == Type::id) return icons();
  if (isTitle(member)) return titles();
  if (member.type == Type::text && member.name == "label") return cells();
  if (member.type == Type::text && member.name == "value") return cellValues();
  if (member.type == Type::path) {
    return filesBeside(begun, phone_->device().resolve(begun.substr(0, begun.rfind('/') + 1)));
  }
  return {};
}

std::string Session::look() {
  std::string text = printed(phone().screen());
  for (const std::string& event : phone().events(eventsFrom_)) text += "Event: " + event + "\n";
  return text;
}

std::string Session::lookEverywhere() { return look() + (phone().paneIsOpen() ? printed(phone().pane()) : ""); }

void Session::showScreen() {
  eventsFrom_ = eventsUpTo_;
  output_ << look();
  eventsUpTo_ = eventsFrom_ + phone().events(eventsFrom_).size();
}

std::string Session::changed(const fs::path& file) {
  struct stat status {};
  lstat(file.c_str(), &status);
  const double machine = static_cast<double>(status.st_mtim.tv_sec) + static_cast<double>(status.st_mtim.tv_nsec) / 1e9;
  return shownTime(clock_.at(machine), phone().options().timeZone);
}

Device::Application Session::application(const std::string& idOrLabel) {
  const auto installed = phone().device().applications();
  std::vector<std::string> names;
  std::vector<Device::Application> labelled;
  for (const Device::Application& application : installed) {
    if (application.id == idOrLabel) return application;
    if (application.name == idOrLabel) labelled.push_back(application);
    names.insert(names.end(), {application.id, application.name});
  }
  if (labelled.size() == 1) return labelled.front();
  if (labelled.empty()) {
    const auto meant = nearest(idOrLabel, names);
    throw BadInput("no application " + quoted(idOrLabel) + (meant.empty() ? "" : "; nearest: " + joined(meant)));
  }
  std::string ids;
  for (const auto& application : labelled) ids += " " + application.id;
  throw BadInput("more applications than one are called " + quoted(idOrLabel) + ":" + ids);
}

}  // namespace sim
