#include "simulator/control/script.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <set>
#include <string_view>

#include "simulator/control/print.hpp"
#include "simulator/device/files.hpp"
#include "simulator/device/property_list.hpp"
#include "simulator/runtime/clock.hpp"

namespace fs = std::filesystem;

namespace sim {
namespace {

double parseNumber(const std::string& text) {
  double value = 0;
  const auto [rest, failed] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (failed != std::errc() || rest != text.data() + text.size() || !std::isfinite(value)) {
    throw BadInput("not a number: " + text);
  }
  return value;
}

double parseTime(const std::string& text) {
  const double seconds = parseNumber(text);
  if (!clock::canStandAt(seconds)) throw BadInput("the clock cannot stand at " + text + ": it goes from 1970 to 2223");
  return seconds;
}

bool parseSwitch(const std::string& text) {
  if (text != "on" && text != "off") throw BadInput("neither on nor off: " + text);
  return text == "on";
}

Generation parseGeneration(const std::string& text) {
  if (text != "old" && text != "new") throw BadInput("neither old nor new: " + text);
  return text == "old" ? Generation::old : Generation::recent;
}

std::string parseTimeZone(const std::string& name) {
  const bool rule = name.find_first_of("0123456789") != std::string::npos && name.find('/') == std::string::npos;
  if (!rule && (name.find("..") != std::string::npos || !fs::is_regular_file(fs::path("/usr/share/zoneinfo") / name))) {
    throw BadInput("unknown time zone: " + name);
  }
  return name;
}

fs::perms permissions(const fs::directory_entry& entry) { return entry.symlink_status().permissions(); }

std::string listed(const fs::directory_entry& entry) {
  constexpr std::string_view letters = "rwxrwxrwx";
  std::string line = entry.is_symlink() ? "l" : entry.is_directory() ? "d" : "-";
  for (unsigned bit = 0; bit < letters.size(); ++bit) {
    const bool set = (static_cast<unsigned>(permissions(entry)) >> (8 - bit) & 1U) != 0;
    line += set ? letters[bit] : '-';
  }
  std::string size = entry.is_regular_file() && !entry.is_symlink() ? std::to_string(entry.file_size()) : "";
  line +=
      std::string(12 - std::min<std::size_t>(12, size.size()), ' ') + size + "  " + entry.path().filename().string();
  if (entry.is_symlink()) line += " -> " + fs::read_symlink(entry.path()).string();
  return line;
}

}  // namespace

/// What each verb does with its words.
struct Verbs {
  using Words = Session::Words;

  struct Verb {
    std::string_view name, usage, help;
    std::size_t fewest, most;
    void (*play)(Session&, const Words&);
  };
  static constexpr std::size_t any = 10'000;
  static const std::vector<Verb>& table();

  static void boot(Session& session, const Words& words) {
    HomeScreen::Options options;
    options.generation = parseGeneration(words.at(0));
    options.buildFolder = session.options_.buildFolder;
    options.live = session.options_.live;
    std::optional<fs::path> device = session.options_.device;
    for (std::size_t index = 1; index < words.size(); ++index) {
      const std::string& option = words[index];
      const auto value = [&]() -> const std::string& {
        if (index + 1 == words.size()) throw BadInput(option + " needs a value");
        return words[++index];
      };
      if (option == "--ipad") options.tablet = true;
      else if (option == "--core-version") options.coreVersion = parseNumber(value());
      else if (option == "--device") device = value();
      else if (option == "--clock") options.clock = parseTime(value());
      else if (option == "--time-zone") options.timeZone = parseTimeZone(value());
      else throw BadInput("unknown option: " + option);
    }
    // A fresh device lives as long as the home screen booted on it.
    auto fresh = device ? nullptr : std::make_unique<TemporaryFolder>();
    options.device = device ? *device : fresh->path();
    auto booted = std::make_unique<HomeScreen>(options);
    session.home_ = std::move(booted);
    session.freshDevice_ = std::move(fresh);
    session.events_.clear();
    session.shownEvents_ = 0;
  }

  static void respring(Session& session, const Words&) { session.home().respring(); }
  static void install(Session& session, const Words& words) {
    const auto installed = session.home().install(words[0]);
    session.output_ << "installed " << installed.id << " \"" << installed.name << "\"";
    session.output_ << (installed.version.empty() ? ", no version" : ", version " + installed.version) << "\n";
  }

  static void touch(Session& session, const Words& words) { session.home().touch(words[0]); }

  static void swipe(Session& session, const Words& words) {
    const bool up = words[0] == "up";
    if (!up && words[0] != "down") throw BadInput("neither up nor down: " + words[0]);
    if (words.size() == 2) {
      up ? session.home().swipeUp(words[1]) : session.home().swipeDown(words[1]);
      return;
    }
    if (words.size() % 2 != 0) throw BadInput("a DX without a DY");
    std::vector<TouchSample> samples;
    for (std::size_t index = 2; index < words.size(); index += 2) {
      samples.push_back({parseNumber(words[index]), parseNumber(words[index + 1])});
    }
    session.home().swipe(words[1], samples);
  }

  static void forceTouch(Session& session, const Words& words) { session.home().forceTouch(words[0]); }
  static void choose(Session& session, const Words& words) { session.home().choose(words[0]); }

  static void tap(Session& session, const Words& words) {
    if (words.size() == 1) session.home().tap(words[0]);
    else if (words[1] == "--go-on") session.home().tapAndGoOn(words[0]);
    else throw BadInput("unknown option: " + words[1]);
  }

  static void type(Session& session, const Words& words) { session.home().type(words[0]); }
  static void paste(Session& session, const Words& words) { session.home().paste(words[0]); }
  static void clear(Session& session, const Words&) { session.home().clear(); }
  static void launch(Session& session, const Words& words) { session.home().launch(words[0]); }
  static void pressHome(Session& session, const Words&) { session.home().home(); }
  static void edit(Session& session, const Words& words) { session.home().edit(parseSwitch(words[0])); }
  static void lock(Session& session, const Words&) { session.home().lock(); }
  static void unlock(Session& session, const Words&) { session.home().unlock(); }

  static void screen(Session& session, const Words& words) {
    if (!words.empty()) {
      parseSwitch(words[0]) ? session.home().screenOn() : session.home().screenOff();
      return;
    }
    session.events_.erase(session.events_.begin(),
                          session.events_.begin() + static_cast<std::ptrdiff_t>(session.shownEvents_));
    session.output_ << printed(session.look());
    session.shownEvents_ = session.events_.size();
  }

  static void powerDown(Session& session, const Words&) { session.home().powerDown(); }
  static void notify(Session& session, const Words& words) { session.home().notify(words[0], words[1]); }

  static void download(Session& session, const Words& words) {
    if (words[0] == "start") session.home().startDownload(words[1]);
    else if (words[0] == "ask") session.home().askDownload(words[1]);
    else if (words[0] == "remove") session.home().removeDownload(words[1]);
    else throw BadInput("neither start, ask nor remove: " + words[0]);
  }

  static void settings(Session& session, const Words& words) {
    Words assignments = words;
    if (std::erase(assignments, "--through-daemon") != 0) session.home().settingsThroughDaemon(assignments);
    else session.home().settings(assignments);
  }

  static void flush(Session& session, const Words&) { session.home().flush(); }

  static void filza(Session& session, const Words& words) { session.home().setFilzaInstalled(parseSwitch(words[0])); }

  static void marker(Session& session, const Words& words) {
    session.home().device().setMarker(words[1], parseSwitch(words[0]));
  }

  static void post(Session& session, const Words& words) { session.home().post(words[0]); }
  static void advance(Session& session, const Words& words) { session.home().advance(parseNumber(words[0])); }

  static void list(Session& session, const Words& words) {
    const fs::path folder = session.home().device().resolve(words[0]);
    if (!fs::is_directory(folder)) throw BadInput("no such folder: " + words[0]);
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder)) names.insert(entry.path().filename().string());
    for (const std::string& name : names) session.output_ << listed(fs::directory_entry(folder / name)) << "\n";
  }

  static void print(Session& session, const Words& words) {
    const auto content = readFile(session.home().device().resolve(words[0]));
    if (!content) throw BadInput("no such file: " + words[0]);
    session.output_ << *content << (content->empty() || content->back() == '\n' ? "" : "\n");
  }

  static void propertyList(Session& session, const Words& words) {
    const fs::path file = session.home().device().resolve(words[0]);
    if (!fs::is_regular_file(file)) throw BadInput("no such file: " + words[0]);
    const auto content = PropertyList::read(file);
    if (!content) throw BadInput("no property list: " + words[0]);
    session.output_ << content->readable() << "\n";
  }

  static void preferences(Session& session, const Words& words) {
    const auto content = session.home().preferences(words[0]);
    if (!content) throw BadInput("the preferences daemon does not hold " + words[0]);
    session.output_ << content->readable() << "\n";
  }

  static void pasteboard(Session& session, const Words&) {
    const auto item = session.home().pasteboard();
    session.output_ << (item ? item->type + ": " + item->text : "empty") << "\n";
  }

  static void urls(Session& session, const Words&) {
    for (const auto& item : session.home().urls()) {
      session.output_ << item.url << (item.opened ? "" : " (not opened)") << "\n";
    }
  }

  static void launches(Session& session, const Words&) {
    for (const auto& launch : session.home().launches()) {
      session.output_ << launch.id << ": location " << launch.location.value_or("nil") << ", context "
                      << launch.context.value_or("nil") << ", settings " << launch.settings.value_or("nil")
                      << ", actions " << launch.actions.value_or("nil") << "\n";
    }
  }

  static void calls(Session& session, const Words& words) {
    if (words.size() == 1) throw BadInput("calls takes nothing, or \"messages on\" or \"messages off\"");
    if (words.size() == 2) {
      if (words[0] != "messages") throw BadInput("not messages: " + words[0]);
      session.home().logMessages(parseSwitch(words[1]));
      return;
    }
    for (const auto& call : session.home().calls()) {
      session.output_ << call.kind << " " << call.className << " " << call.selector;
      session.output_ << (call.encoding.empty() ? "" : " " + call.encoding) << "\n";
    }
  }

  static void live(Session& session, const Words&) {
    for (const auto& [name, count] : session.home().live()) session.output_ << name << " " << count << "\n";
  }

  static bool seen(Session& session, const std::string& text) {
    return printed(session.look()).find(text) != std::string::npos;
  }

  static void expect(Session& session, const Words& words) {
    if (!seen(session, words[0])) throw ExpectationFailed("expected \"" + words[0] + "\" on the screen");
  }

  static void expectNot(Session& session, const Words& words) {
    if (seen(session, words[0])) throw ExpectationFailed("expected no \"" + words[0] + "\" on the screen");
  }

  static void help(Session& session, const Words&) { session.output_ << Session::help(); }
};

const std::vector<Verbs::Verb>& Verbs::table() {
  static const std::vector<Verb> verbs = {
      {"boot", "old|new [--core-version N] [--ipad] [--device DIR] [--clock SECONDS] [--time-zone NAME]",
       "starts a home screen of that generation; the clock stands at SECONDS since 1970", 1, any, boot},
      {"respring", "", "restarts the home screen on the same device", 0, 0, respring},
      {"install", "FILE", "installs an application archive (.ipa)", 1, 1, install},
      {"touch", "ID", "puts a finger on an icon and takes it away", 1, 1, touch},
      {"swipe", "up|down ID [DX DY ...]", "drags a finger on an icon, one touch sample for each DX DY", 2, any, swipe},
      {"force-touch", "ID", "opens an icon's quick-action list", 1, 1, forceTouch},
      {"choose", "TITLE", "chooses a quick action", 1, 1, choose},
      {"tap", "TITLE [--go-on]", "taps a button of the sheet or alert; --go-on waits for no program it starts", 1, 2,
       tap},
      {"type", "TEXT", "types into the alert's text field", 1, 1, type},
      {"paste", "TEXT", "pastes into it", 1, 1, paste},
      {"clear", "", "taps its clear button", 0, 0, clear},
      {"launch", "ID", "taps an icon", 1, 1, launch},
      {"home", "", "presses the home button", 0, 0, pressHome},
      {"edit", "on|off", "starts or ends editing the home screen", 1, 1, edit},
      {"lock", "", "locks the device", 0, 0, lock},
      {"unlock", "", "unlocks it", 0, 0, unlock},
      {"screen", "[off|on]", "prints what is on the screen, or turns the screen off or on", 0, 1, screen},
      {"power-down", "", "brings up the power-down slider", 0, 0, powerDown},
      {"notify", "ID TEXT", "lets a notification of an application arrive", 2, 2, notify},
      {"download", "start|ask|remove ID", "a downloading icon appears, is asked what it is, is removed", 2, 2,
       download},
      {"settings", "KEY=VALUE... [--through-daemon]",
       "changes settings as a settings pane does, in the file or through the preferences daemon; KEY= removes one", 1,
       any, settings},
      {"flush", "", "lets the preferences daemon write at once what has changed", 0, 0, flush},
      {"preferences", "DOMAIN", "prints a preferences domain as the daemon holds it", 1, 1, preferences},
      {"filza", "on|off", "installs the file manager or takes it away", 1, 1, filza},
      {"marker", "on|off NAME", "leaves a hooking loader's mark: substitute, substrate or unc0ver", 2, 2, marker},
      {"post", "NAME", "posts a Darwin notification", 1, 1, post},
      {"advance", "SECONDS", "lets the clock run on", 1, 1, advance},
      {"ls", "PATH", "lists a folder of the device", 1, 1, list},
      {"cat", "PATH", "prints a file of the device", 1, 1, print},
      {"plist", "PATH", "prints a property list of the device", 1, 1, propertyList},
      {"pasteboard", "", "prints the pasteboard", 0, 0, pasteboard},
      {"urls", "", "prints the addresses that were opened", 0, 0, urls},
      {"launches", "", "prints the applications that were launched, and how", 0, 0, launches},
      {"calls", "[messages on|off]", "prints what the library hooked, added, posted and sent; logs messages or not", 0,
       2, calls},
      {"live", "", "prints how many objects of each class are alive", 0, 0, live},
      {"expect", "TEXT", "fails unless the screen shows the text", 1, 1, expect},
      {"expect-not", "TEXT", "fails if the screen shows the text", 1, 1, expectNot},
      {"help", "", "prints this list", 0, 0, help},
  };
  return verbs;
}

Session::Session(Options options, std::ostream& output) : options_(std::move(options)), output_(output) {}
Session::~Session() = default;

HomeScreen& Session::home() {
  if (!home_) throw BadInput("no home screen: boot one first");
  return *home_;
}

Screen Session::look() {
  Screen screen = home().screen();
  events_.insert(events_.end(), screen.events.begin(), screen.events.end());
  screen.events = events_;
  return screen;
}

void Session::play(const std::string& line) {
  Words words = splitWords(line);
  if (words.empty()) return;
  const auto& table = Verbs::table();
  const auto verb = std::find_if(table.begin(), table.end(), [&](const auto& row) { return row.name == words[0]; });
  if (verb == table.end()) throw BadInput("unknown verb: " + words[0]);
  words.erase(words.begin());
  if (words.size() < verb->fewest || words.size() > verb->most) {
    throw BadInput("usage: " + std::string(verb->name) + " " + std::string(verb->usage));
  }
  try {
    verb->play(*this, words);
  } catch (const fs::filesystem_error& error) {
    throw BadInput(error.what());
  } catch (const HomeScreenDied&) {
    home_.reset();
    throw;
  }
}

std::string Session::help() {
  std::string text;
  for (const auto& verb : Verbs::table()) {
    text += std::string(verb.name) + (verb.usage.empty() ? "" : " ") + std::string(verb.usage) + "\n    " +
            std::string(verb.help) + "\n";
  }
  return text;
}

std::vector<std::string> splitWords(const std::string& line) {
  std::vector<std::string> words;
  bool within = false;
  char quote = 0;
  for (std::size_t index = 0; index < line.size(); ++index) {
    const char c = line[index];
    const bool blank = c == ' ' || c == '\t' || c == '\r';
    if (quote == 0 && blank) {
      within = false;
      continue;
    }
    if (quote == 0 && !within && c == '#') break;
    if (!within) words.emplace_back();
    within = true;
    if (quote == 0 && (c == '"' || c == '\'')) quote = c;
    else if (c == quote) quote = 0;
    else if (c == '\\' && quote != '\'' && index + 1 < line.size()) words.back() += line[++index];
    else words.back() += c;
  }
  if (quote != 0) throw BadInput("a quote is not closed");
  return words;
}

int playScript(std::istream& script, const Session::Options& options, std::ostream& output, std::ostream& errors) {
  Session session(options, output);
  std::string line;
  for (int number = 1; std::getline(script, line); ++number) {
    const auto failed = [&](const std::exception& error, int status) {
      output.flush();
      errors << "line " << number << ": " << error.what() << std::endl;
      return status;
    };
    try {
      if (!splitWords(line).empty()) output << "> " << line << "\n";
      session.play(line);
      output.flush();
    } catch (const ExpectationFailed& failure) {
      return failed(failure, 1);
    } catch (const BadInput& mistake) {
      return failed(mistake, 2);
    } catch (const std::exception& error) {
      return failed(error, 3);
    }
  }
  return 0;
}

}  // namespace sim
