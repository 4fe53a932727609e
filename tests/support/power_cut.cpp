#include "tests/support/power_cut.hpp"

#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <string_view>

namespace fs = std::filesystem;
using std::chrono::microseconds;

namespace test {
namespace {

/// Tells when anything in a folder changes.
class FolderWatch {
 public:
  explicit FolderWatch(const fs::path& folder) : descriptor_(inotify_init1(IN_CLOEXEC)) {
    inotify_add_watch(descriptor_, folder.c_str(), IN_CREATE | IN_MODIFY | IN_MOVED_TO);
  }
  ~FolderWatch() { close(descriptor_); }
  FolderWatch(const FolderWatch&) = delete;
  FolderWatch& operator=(const FolderWatch&) = delete;

  bool changes() const {
    constexpr int milliseconds = 20'000;
    pollfd waiting{descriptor_, POLLIN, 0};
    return poll(&waiting, 1, milliseconds) > 0;
  }

 private:
  int descriptor_;
};

}  // namespace

void PowerCut::duringChange(sim::Phone& phone, const std::string& verb, const nlohmann::json& members,
                            microseconds duration) {
  phone.killDuring(verb, members, [&] { waitWithin(duration); });
  removeLeftovers();
}

bool PowerCut::duringWrite(sim::Phone& phone, const std::string& verb, const nlohmann::json& members) {
  const FolderWatch watch(file_.parent_path());
  bool changed = false;
  phone.killDuring(verb, members, [&] {
    changed = watch.changes();
    waitWithin(std::chrono::milliseconds(1));
  });
  removeLeftovers();
  return changed;
}

void PowerCut::waitWithin(microseconds longest) {
  const double part = (cut_++ % cuts + std::uniform_real_distribution<double>(0, 1)(random_)) / cuts;
  // Sleeping is too coarse.
  const auto end = std::chrono::steady_clock::now() + part * longest;
  while (std::chrono::steady_clock::now() < end) {
  }
}

void PowerCut::removeLeftovers() const {
  for (const auto& entry : fs::directory_iterator(file_.parent_path())) {
    if (entry.path().filename().string().starts_with(".dat.nosync")) fs::remove(entry);
  }
}

microseconds timeOf(const std::function<void()>& action) {
  const auto start = std::chrono::steady_clock::now();
  action();
  return std::chrono::duration_cast<microseconds>(std::chrono::steady_clock::now() - start);
}

}  // namespace test
