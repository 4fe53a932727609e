// Each figure of the add-on as a ratio to the platform's own floor, both measured in the same process.
#include <algorithm>
#include <cstdio>
#include <fstream>
#include <functional>
#include <string>

#include "simulator/control/home_screen.hpp"
#include "simulator/device/files.hpp"

namespace {

namespace fs = std::filesystem;
constexpr const char* app = "com.example.notes";

double best(int runs, const std::function<double()>& measure) {
  double least = measure();
  for (int run = 1; run < runs; ++run) least = std::min(least, measure());
  return least;
}

void report(const std::string& what, double seconds, double floor, double goal) {
  std::printf("%-44s %8.1f ms  floor %8.1f ms  ratio %.3f  (goal %.2f)\n", what.c_str(), seconds * 1e3, floor * 1e3,
              seconds / floor, goal);
}

void fillCaches(const fs::path& caches, int count) {
  std::fprintf(stderr, "making %d cache files ", count);
  for (int i = 0; i < count; ++i) {
    const fs::path folder = caches / std::to_string(i / 1000);
    if (i % 1000 == 0) fs::create_directories(folder);
    std::ofstream(folder / std::to_string(i)) << i;
    if (i % (count / 10) == 0) std::fprintf(stderr, ".");
  }
  std::fprintf(stderr, "\n");
}

// The menu of an application with many cache files, against the same walk through the same Foundation calls.
void menuOfALargeCache(int files) {
  const sim::TemporaryFolder folder;
  sim::HomeScreen::Options options;
  options.device = folder.path() / "device";
  sim::HomeScreen home(options);
  const auto container = home.device().application(app)->data;
  fillCaches(home.device().resolve(container / "Library/Caches"), files);
  home.touch(app);
  const auto walk = [&] { return home.ask("walk", {{"path", (container / "Library/Caches").string()}}).get<double>(); };
  const auto menu = [&] {
    const double seconds = home.ask("time", {{"selector", "showAlertView"}}).get<double>();
    home.tap("Cancel").advance(1);
    return seconds;
  };
  walk();  // the file system's own caches are warm for both
  constexpr int runs = 5;
  const double floor = best(runs, walk);
  report("menu of " + std::to_string(files) + " cache files / the walk alone", best(runs, menu), floor, 1.1);
}

}  // namespace

int main() {
  constexpr int manyFiles = 100'000;
  menuOfALargeCache(manyFiles);
  return 0;
}
