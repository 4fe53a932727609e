#include "simulator/control/driver_verbs.hpp"

#include <string>

#include "simulator/control/listing.hpp"
#include "simulator/control/print.hpp"
#include "simulator/control/session.hpp"
#include "simulator/control/words.hpp"
#include "simulator/device/files.hpp"
#include "simulator/device/property_list.hpp"
#include "simulator/device/transfer.hpp"

namespace fs = std::filesystem;

namespace sim {
namespace {

using Json = nlohmann::json;
using Member = MemberDescription;
using Type = MemberDescription::Type;

std::string text(const Json& members, const char* name) { return members.at(name).get<std::string>(); }

void boot(Session& session, const Json& members) {
  const auto given = [&]<class Value>(const char* name, std::optional<Value> otherwise) {
    return members.contains(name) ? members.at(name).get<Value>() : otherwise;
  };
  Phone::Options options;
  options.generation = members.at("generation") == "old" ? Generation::old : Generation::recent;
  options.tablet = members.contains("ipad");
  options.coreVersion = given("core-version", std::optional<double>());
  options.clock = given("clock", std::optional<double>());
  options.timeZone = given("time-zone", std::optional<std::string>());
  std::optional<fs::path> device = session.options().device;
  if (members.contains("device")) device = text(members, "device");
  session.boot(std::move(options), device);
}

void respring(Session& session, const Json&) {
  session.phone().respring();
  session.begin();
}

void screen(Session& session, const Json& members) {
  if (!members.contains("turn")) session.showScreen();
  else if (members.at("turn").get<bool>()) session.phone().screenOn();
  else session.phone().screenOff();
}

void icons(Session& session, const Json&) {
  for (const IconOnScreen& icon : session.phone().screen().icons) {
    session.output() << quoted(icon.label) << " " << (icon.id.empty() ? "(" + icon.kind + ")" : icon.id) << "\n";
  }
}

void install(Session& session, const Json& members) {
  const Device::Application installed = session.phone().install(text(members, "file"));
  session.output() << "installed " << installed.id << " " << quoted(installed.name) << ", "
                   << (installed.version.empty() ? "no version" : "version " + installed.version) << "\n";
}

void uninstall(Session& session, const Json& members) {
  session.phone().uninstall(session.application(text(members, "id")).id);
}

void package(Session& session, const Json& members) {
  const bool installs = members.at("do") == "install";
  const std::string name = text(members, "package");
  Phone& phone = session.phone();
  const Package done = installs ? phone.installPackage(name) : phone.removePackage(name);
  session.output() << (installs ? "installed " : "removed ") << done.name << " " << done.version << "\n";
  if (done.wantsRestart) session.begin();
}

void packages(Session& session, const Json&) {
  for (const Package& package : installedPackages(session.phone().device())) {
    session.output() << package.name << " " << package.version << "\n";
  }
}

void where(Session& session, const Json& members) {
  const Device::Application application = session.application(text(members, "id"));
  const auto print = [&](const char* what, const fs::path& path) {
    session.output() << what << ": " << path.string()
                     << "\n    on this PC: " << session.phone().device().resolve(path).string() << "\n";
  };
  print("bundle", application.bundle);
  if (application.data.empty()) session.output() << "data: none\n";
  else print("data", application.data);
}

void settings(Session& session, const Json& members) {
  const auto assignments = members.at("assignments").get<std::vector<std::string>>();
  if (members.contains("through-daemon")) session.phone().settingsThroughDaemon(assignments);
  else session.phone().settings(assignments);
}

void pane(Session& session, const Json&) { session.output() << printed(session.phone().pane()); }

void paneOpen(Session& session, const Json& members) { session.phone().openPane(text(members, "label")); }

void paneSet(Session& session, const Json& members) {
  session.phone().setCell(text(members, "label"), text(members, "value"));
}

void panePress(Session& session, const Json& members) { session.phone().pressCell(text(members, "label")); }

void paneDelete(Session& session, const Json& members) { session.phone().deleteCell(text(members, "label")); }

void paneBack(Session& session, const Json&) { session.phone().paneBack(); }

void paneClose(Session& session, const Json&) { session.phone().closePane(); }

void filza(Session& session, const Json& members) { session.phone().setFilzaInstalled(members.at("installed")); }

void marker(Session& session, const Json& members) {
  session.phone().device().setMarker(text(members, "name"), members.at("present"));
}

void put(Session& session, const Json& members) {
  putOnDevice(session.phone().device(), text(members, "file"), text(members, "path"));
}

void list(Session& session, const Json& members) {
  const fs::path folder = session.phone().device().resolve(text(members, "path"));
  if (!fs::is_directory(folder)) throw BadInput("no such folder: " + text(members, "path"));
  session.output() << listing(folder, [&](const fs::path& file) { return session.changed(file); });
}

void print(Session& session, const Json& members) {
  const auto content = readFile(session.phone().device().resolve(text(members, "path")));
  if (!content) throw BadInput("no such file: " + text(members, "path"));
  session.output() << *content << (content->empty() || content->back() == '\n' ? "" : "\n");
}

void propertyList(Session& session, const Json& members) {
  const std::string name = text(members, "path");
  const fs::path file = session.phone().device().resolve(name);
  if (!fs::is_regular_file(file)) throw BadInput("no such file: " + name);
  const auto content = PropertyList::read(file);
  if (!content) throw BadInput("no property list: " + name);
  session.output() << content->readable() << "\n";
}

void preferences(Session& session, const Json& members) {
  const std::string domain = text(members, "domain");
  const auto held = session.phone().preferences(domain);
  if (!held) throw BadInput("the preferences daemon does not hold " + domain);
  session.output() << held->readable() << "\n";
}

bool seen(Session& session, const Json& members) {
  return session.lookEverywhere().find(text(members, "text")) != std::string::npos;
}

void expect(Session& session, const Json& members) {
  if (!seen(session, members)) throw ExpectationFailed("expected \"" + text(members, "text") + "\" on the screen");
}

void expectNot(Session& session, const Json& members) {
  if (seen(session, members)) throw ExpectationFailed("expected no \"" + text(members, "text") + "\" on the screen");
}

void help(Session& session, const Json& members) {
  if (!members.contains("verb")) {
    session.output() << session.help();
    return;
  }
  const VerbDescription* const verb = session.verb(text(members, "verb"));
  if (verb == nullptr) throw BadInput("unknown verb: " + text(members, "verb"));
  session.output() << explanation(*verb);
}

void quit(Session& session, const Json&) { session.quit(); }

Member optional(Member member) {
  member.needed = false;
  return member;
}

std::vector<std::string> markerNames() {
  std::vector<std::string> names;
  for (const Device::Marker& marker : Device::markers()) names.emplace_back(marker.name);
  return names;
}

std::vector<DriverVerb> makeTable() {
  const Member application{.name = "id", .type = Type::id, .help = "its identifier or its name"};
  const Member file{.name = "file", .type = Type::file, .help = "of this PC"};
  const Member path{.name = "path", .type = Type::path, .help = "of the device"};
  const Member words{.name = "text"};
  const Member label{.name = "label"};
  return {
      {{"boot",
        "phone",
        "starts a home screen of that generation",
        {{.name = "generation", .type = Type::choice, .choices = {"old", "new"}},
         optional({.name = "core-version", .type = Type::number, .help = "else the generation's own"}),
         optional({.name = "ipad", .type = Type::toggle, .help = "a tablet"}),
         optional({.name = "device", .type = Type::file, .help = "its folder on this PC, made when missing"}),
         optional({.name = "clock", .type = Type::number, .help = "seconds since 1970, else now"}),
         optional({.name = "time-zone", .help = "such as Europe/Rome, else this PC's"})}},
       boot},
      {{"respring", "phone", "restarts the home screen on the same device", {}}, respring},
      {{"screen",
        "phone",
        "prints what is on the screen, or turns the screen on or off",
        {optional({.name = "turn", .type = Type::toggle})}},
       screen},
      {{"icons", "phone", "lists the icons: label and identifier", {}}, icons},
      {{"install", "applications", "installs an application archive (.ipa)", {file}}, install},
      {{"uninstall", "applications", "takes an application away, with its data", {application}}, uninstall},
      {{"where",
        "applications",
        "prints where an application's folders are, on the device and on this PC",
        {application}},
       where},
      {{"package",
        "applications",
        "installs a package (.deb), or takes one away by its name, as an installer on the phone does",
        {{.name = "do", .type = Type::choice, .choices = {"install", "remove"}},
         {.name = "package", .type = Type::file, .help = "a file of this PC, or a name"}}},
       package},
      {{"packages", "applications", "lists the packages that are installed: name and version", {}}, packages},
      {{"filza",
        "applications",
        "installs the file manager or takes it away",
        {{.name = "installed", .type = Type::toggle}}},
       filza},
      {{"pane", "settings application", "prints what the settings application shows", {}}, pane},
      {{"pane-open",
        "settings application",
        "starts the settings application if it is not open, and taps that row of its first list",
        {label}},
       paneOpen},
      {{"pane-set",
        "settings application",
        "sets a cell",
        {label, {.name = "value", .help = "on or off, a segment's title, a slider's number, a field's text"}}},
       paneSet},
      {{"pane-press",
        "settings application",
        "taps a link or a button, also the one beside the title and those of an alert",
        {label}},
       panePress},
      {{"pane-delete", "settings application", "swipes a cell away", {label}}, paneDelete},
      {{"pane-back", "settings application", "taps the way back", {}}, paneBack},
      {{"pane-close", "settings application", "ends the settings application", {}}, paneClose},
      {{"settings",
        "device",
        "changes settings, without the settings application",
        {{.name = "assignments", .type = Type::list, .help = "KEY=VALUE each; KEY= removes one"},
         optional({.name = "through-daemon", .type = Type::toggle, .help = "which writes the file when it likes"})}},
       settings},
      {{"marker",
        "device",
        "leaves a hooking loader's mark or takes it away",
        {{.name = "present", .type = Type::toggle}, {.name = "name", .type = Type::choice, .choices = markerNames()}}},
       marker},
      {{"put", "device", "puts a file or folder of this PC onto the device", {file, path}}, put},
      {{"ls", "device", "lists a folder of the device; times are the phone's", {path}}, list},
      {{"cat", "device", "prints a file of the device", {path}}, print},
      {{"plist", "device", "prints a property list of the device", {path}}, propertyList},
      {{"preferences",
        "device",
        "prints a preferences domain as the preferences daemon holds it",
        {{.name = "domain"}}},
       preferences},
      {{"expect", "script", "fails unless the screen shows the text, or that of the settings application", {words}},
       expect},
      {{"expect-not", "script", "fails if one of them shows the text", {words}}, expectNot},
      {{"help", "script", "lists the verbs, or tells what one takes", {optional({.name = "verb", .type = Type::verb})}},
       help},
      {{"quit", "script", "ends the console or the script", {}}, quit},
  };
}

}  // namespace

const std::vector<DriverVerb>& driverVerbs() {
  static const std::vector<DriverVerb> table = makeTable();
  return table;
}

}  // namespace sim
