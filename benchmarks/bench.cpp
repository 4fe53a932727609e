// Each figure of the add-on as a ratio to the platform's own floor: the same Foundation or runtime calls, made
// without it in a home-screen process of the same kind.
#include <elf.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <functional>
#include <limits>
#include <random>
#include <string>

#include "simulator/control/phone.hpp"
#include "simulator/device/files.hpp"

namespace {

namespace fs = std::filesystem;
using nlohmann::json;
constexpr const char* app = "com.example.notes";
constexpr const char* settingsFile = "/var/mobile/Library/Preferences/com.morvanel.sprigdial.plist";
constexpr const char* muteList = "/var/mobile/Library/Preferences/com.morvanel.sprigdial.menu.plist";

/// Where writing a file takes no longer at one time than at another.
const fs::path inMemory = "/dev/shm";

/// A folder that lasts longer than the phone on it.
struct OwnFolder {
  sim::TemporaryFolder folder{inMemory};
};

/// A phone with a device of its own.
class Bench : private OwnFolder, public sim::Phone {
 public:
  Bench() : sim::Phone(on(folder.path() / "device")) {}

  fs::path onThisPC(const fs::path& path) { return device().resolve(path.string()); }
  fs::path container() { return device().application(app)->data; }
  void measure(const char* what, json members = json::object()) {
    members["what"] = what;
    ask("measure", members);
  }

 private:
  static sim::Phone::Options on(const fs::path& device) {
    sim::Phone::Options options;
    options.device = device;
    return options;
  }
};

/// The least seconds of several runs of two things, taken in turns so that both meet the same machine.
struct Least {
  double figure = std::numeric_limits<double>::infinity();
  double floor = std::numeric_limits<double>::infinity();
};
Least least(int runs, const std::function<double()>& figure, const std::function<double()>& floor) {
  Least both;
  for (int run = 0; run < runs; ++run) {
    both.floor = std::min(both.floor, floor());
    both.figure = std::min(both.figure, figure());
    std::fprintf(stderr, ".");
  }
  std::fprintf(stderr, "\r%*s\r", runs, "");
  return both;
}

std::string shown(double seconds) {
  struct Unit {
    double size;
    const char* name;
  };
  constexpr Unit units[] = {{1, " s"}, {1e-3, "ms"}, {1e-6, "µs"}, {1e-9, "ns"}};
  const auto* const unit =
      std::find_if(std::begin(units), std::end(units) - 1, [&](const Unit& each) { return seconds >= each.size; });
  char text[32];
  std::snprintf(text, sizeof text, "%7.2f %s", seconds / unit->size, unit->name);
  return text;
}

void report(const std::string& what, const Least& both, const std::string& goal) {
  std::printf("%-44s %s   floor %s   ratio %.3f%s\n", what.c_str(), shown(both.figure).c_str(),
              shown(both.floor).c_str(), both.figure / both.floor, goal.empty() ? "" : ("   goal " + goal).c_str());
  std::fflush(stdout);
}

void fill(const fs::path& folder, int count) {
  for (int i = 0; i < count; ++i) {
    const fs::path place = folder / std::to_string(i / 1000);
    if (i % 1000 == 0) fs::create_directories(place);
    std::ofstream(place / std::to_string(i)) << i;
  }
}

// The menu of an application with many cache files, against the same walk through them.
void menuOfALargeCache(int count) {
  Bench bench;
  const fs::path caches = bench.container() / "Library/Caches";
  fill(bench.onThisPC(caches), count);
  bench.touch(app);
  const auto walk = [&] {
    bench.measure("walk", {{"path", caches}});
    return bench.seconds();
  };
  const auto menu = [&] {
    bench.perform("showAlertView");
    const double seconds = bench.seconds();
    bench.tap("Cancel").advance(1);
    return seconds;
  };
  walk();  // the file system's own caches are warm for both
  report("menu of " + std::to_string(count) + " cache files", least(5, menu, walk), "1.10");
}

// Clearing that many files directly in the caches folder, against the same calls.
void clearingCaches(int count) {
  Bench bench;
  const fs::path caches = bench.container() / "Library/Caches";
  const auto fillAgain = [&] {
    fs::remove_all(bench.onThisPC(caches));
    fs::create_directories(bench.onThisPC(caches));
    for (int i = 0; i < count; ++i) std::ofstream(bench.onThisPC(caches) / std::to_string(i)) << i;
  };
  bench.touch(app);
  const auto empty = [&] {
    fillAgain();
    bench.measure("empty", {{"path", caches}});
    return bench.seconds();
  };
  const auto clear = [&] {
    fillAgain();
    bench.perform("clearCaches").tap("YES");
    const double seconds = bench.seconds();
    bench.tap("OK");
    return seconds;
  };
  report("clearing " + std::to_string(count) + " cache files", least(3, clear, empty), "1.05");
}

void fillDocuments(const fs::path& folder, int megabytes) {
  std::mt19937_64 random(1);  // NOLINT(cert-msc32-c,cert-msc51-cpp): the same bytes each time
  for (int i = 0; i < megabytes * 2; ++i) {
    std::string content(1 << 19, '\0');
    // A quarter of it does not compress.
    for (std::size_t at = 0; at < content.size(); at += 32) {
      const auto bits = random();
      std::memcpy(content.data() + at, &bits, sizeof bits);
    }
    sim::writeFile(folder / std::to_string(i), content);
  }
}

// A backup and a restore of a large container, against the bare archiver.
void archiving(int megabytes) {
  Bench bench;
  const fs::path container = bench.container();
  const fs::path store = fs::path("/var/mobile/Documents/Sprigdial") / app;
  const std::string archiver = "/usr/bin/tar";
  fillDocuments(bench.onThisPC(container / "Documents"), megabytes);
  fs::create_directories(bench.onThisPC(store));
  bench.touch(app);
  const auto backUp = [&] {
    bench.perform("backUpData");
    const double seconds = bench.seconds();
    bench.tap("OK").advance(1);
    return seconds;
  };
  const auto archive = [&] {
    bench.measure("run", {{"folder", store}, {"command", {archiver, "cfz", "0000-bare", container}}});
    return bench.seconds();
  };
  const std::string size = " of " + std::to_string(megabytes) + " MB";
  report("backup" + size, least(3, backUp, archive), "1.02");

  const auto restore = [&] {
    bench.perform("restoreData").tap("0000-bare");
    const double seconds = bench.seconds();
    bench.tap("OK");
    return seconds;
  };
  const auto unpack = [&] {
    bench.measure("remove", {{"path", container}});
    const double removing = bench.seconds();
    bench.measure("run", {{"folder", store}, {"command", {archiver, "xfz", "0000-bare", "-C", "/"}}});
    return removing + bench.seconds();
  };
  report("restore" + size, least(9, restore, unpack), "1.02");
}

// One test whether an application is muted, against walking and writing the same list in a process that holds it
// alone.
void muted(int records) {
  nlohmann::ordered_json entries = nlohmann::ordered_json::array();
  for (int i = 0; i < records; ++i)
    entries.push_back({{"id", "com.example.app" + std::to_string(i)}, {"timeStamp", 2'000'000'000.5}});
  Bench hooked;
  Bench bare;
  bare.removePackage(sim::addOnPackage);
  for (Bench* bench : {&hooked, &bare}) {
    sim::PropertyList({{"entries", entries}}).write(bench->onThisPC(muteList));
    bench->respring();
  }
  const int times = std::max(5, 3000 / records);
  const auto test = [&] {
    hooked.measure("sound", {{"id", app}, {"times", times}});
    return hooked.seconds() / times;
  };
  const auto rewrite = [&] {
    bare.measure("rewriteList", {{"id", app}, {"times", times}, {"path", muteList}});
    return bare.seconds() / times;
  };
  report("is-muted test, " + std::to_string(records) + " records", least(15, test, rewrite), "1.05");
}

// An icon asked for its name, against reading the same file for one value.
void names(int stored) {
  Bench bench;
  nlohmann::ordered_json settings = nlohmann::ordered_json::object();
  settings["enabled"] = true;
  for (int i = 0; i < stored; ++i) settings["com.example.app" + std::to_string(i)] = "Name " + std::to_string(i);
  sim::PropertyList(settings).write(bench.onThisPC(settingsFile));
  const int times = std::max(20, 20000 / (stored + 10));
  const auto ask = [&] {
    bench.measure("iconName", {{"id", app}, {"times", times}});
    return bench.seconds() / times;
  };
  const auto read = [&] {
    bench.measure("readValue", {{"path", settingsFile}, {"id", app}, {"times", times}});
    return bench.seconds() / times;
  };
  report("displayName, " + std::to_string(stored) + " stored names", least(9, ask, read), "1.05");
}

// An icon view laid out with the add-on in the process, against one without.
void layout() {
  constexpr int times = 10'000'000;
  Bench hooked;
  Bench bare;
  bare.removePackage(sim::addOnPackage);
  const auto layOut = [&](Bench& bench) {
    return [&] {
      bench.measure("layOut", {{"id", app}, {"times", times}});
      return bench.seconds() / times;
    };
  };
  const Least both = least(20, layOut(hooked), layOut(bare));
  char added[64];
  std::snprintf(added, sizeof added, "+3 ns, is %+.2f ns", (both.figure - both.floor) * 1e9);
  report("layoutSubviews", both, added);
}

// The same library with an initialiser that is never run.
std::string withoutInitialiser(std::string library) {
  Elf64_Ehdr header;
  std::memcpy(&header, library.data(), sizeof header);
  for (int i = 0; i < header.e_phnum; ++i) {
    Elf64_Phdr segment;
    std::memcpy(&segment, library.data() + header.e_phoff + i * sizeof segment, sizeof segment);
    if (segment.p_type != PT_DYNAMIC) continue;
    for (std::size_t at = 0; at < segment.p_filesz; at += sizeof(Elf64_Dyn)) {
      Elf64_Dyn entry;
      char* place = library.data() + segment.p_offset + at;
      std::memcpy(&entry, place, sizeof entry);
      if (entry.d_tag != DT_INIT_ARRAYSZ) continue;
      entry.d_un.d_val = 0;
      std::memcpy(place, &entry, sizeof entry);
    }
  }
  return library;
}

// The initialiser, against the bare runtime calls that it comes down to. Each process starts once.
void startUp() {
  constexpr int runs = 15;
  const auto library = sim::readFile(sim::programFolder() / "Sprigdial.so");
  Bench whole;
  Bench quiet;
  Bench bare;
  sim::writeFile(quiet.onThisPC("/Library/MobileSubstrate/DynamicLibraries/Sprigdial.dylib"),
                 withoutInitialiser(*library));
  bare.removePackage(sim::addOnPackage);
  const auto mapping = [](Bench& bench) {
    return bench.respring().ask("measure", {{"what", "mapping"}}).get<double>();
  };
  json calls = json::array();
  for (const auto& call : whole.calls())
    calls.push_back(
        {{"kind", call.kind}, {"class", call.className}, {"selector", call.selector}, {"encoding", call.encoding}});
  double bareMapping = std::numeric_limits<double>::infinity();
  for (int run = 0; run < runs; ++run) bareMapping = std::min(bareMapping, mapping(quiet));
  const auto start = [&] { return mapping(whole) - bareMapping; };
  const auto runtime = [&] {
    bare.respring();
    bare.measure("start", {{"calls", calls}});
    return bare.seconds();
  };
  report("start-up", least(runs, start, runtime), "");
}

struct Row {
  const char* name;
  void (*measure)();
};
constexpr Row rows[] = {
    {"menu", [] { menuOfALargeCache(100'000); }},
    {"caches", [] { clearingCaches(50'000); }},
    {"archives", [] { archiving(200); }},
    {"muted",
     [] {
       for (const int records : {1, 100, 10'000}) muted(records);
     }},
    {"names",
     [] {
       for (const int stored : {0, 100, 5'000}) names(stored);
     }},
    {"layout", layout},
    {"start", startUp},
};

}  // namespace

// Measures the rows named, or all.
int main(int count, char** arguments) {
  const std::vector<std::string> chosen(arguments + 1, arguments + count);
  for (const std::string& name : chosen) {
    if (std::any_of(std::begin(rows), std::end(rows), [&](const Row& row) { return name == row.name; })) continue;
    std::fprintf(stderr, "bench: there is no \"%s\" to measure\n", name.c_str());
    return 2;
  }
  for (const Row& row : rows)
    if (chosen.empty() || std::find(chosen.begin(), chosen.end(), row.name) != chosen.end()) row.measure();
  return 0;
}
