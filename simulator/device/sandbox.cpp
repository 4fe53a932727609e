#include "simulator/device/sandbox.hpp"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <functional>
#include <future>
#include <mutex>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>

namespace fs = std::filesystem;

namespace sim {
namespace {

using Words = std::vector<std::string>;
using Environment = std::map<std::string, std::string>;

enum class Kind { namespaces, tracing };

/// The machine's own folders, as far as it has them, and the others.
std::vector<Mount> mounts(const std::vector<Mount>& others) {
  const std::vector<Mount> all = {
      {"/usr/bin", "/bin"},         {"/usr/lib", "/lib"},
      {"/usr/lib64", "/lib64"},     {"/usr/lib/GNUstep", "/usr/lib/GNUstep"},
      {"/usr/share", "/usr/share"}, {"/etc", "/etc"},
  };
  std::vector<Mount> present;
  for (const Mount& mount : all) {
    if (fs::exists(mount.from)) present.push_back(mount);
  }
  present.insert(present.end(), others.begin(), others.end());
  return present;
}

Words namespaceCommand(const fs::path& device, const std::vector<Mount>& folders) {
  // A user of its own without capabilities: files without permission cannot be read, whoever starts the simulator.
  // Processes of its own: what the home screen has started ends with it.
  Words words = {
      "bwrap",  "--unshare-user", "--uid", "501",     "--gid", "501",    "--unshare-pid", "--die-with-parent",
      "--bind", device.string(),  "/",     "--dev",   "/dev",  "--proc", "/proc",         "--tmpfs",
      "/tmp",   "--tmpfs",        "/run",  "--chdir", "/"};
  for (const Mount& mount : mounts(folders)) words.insert(words.end(), {"--ro-bind", mount.from, mount.to});
  return words;
}

Words tracingCommand(const fs::path& device, const std::vector<Mount>& folders) {
  Words words;
  // Root without capabilities is bound by permissions, too.
  if (geteuid() == 0) words = {"setpriv", "--bounding-set=-all", "--inh-caps=-all"};
  words.insert(words.end(), {"proot", "-r", device.string(), "-w", "/", "-b", "/dev", "-b", "/proc"});
  for (const Mount& mount : mounts(folders))
    words.insert(words.end(), {"-b", std::string(mount.from).append(":").append(mount.to)});
  return words;
}

/// Starts a program that is looked up in PATH; the streams are file descriptors, `socket` becomes number 3 and
/// `preferences` number 4.
pid_t spawn(const Words& words, const Environment& environment, int output, int socket, int preferences) {
  std::vector<char*> arguments;
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  Words assignments;
  for (const auto& [name, value] : environment) assignments.emplace_back(name).append("=").append(value);
  std::vector<char*> variables;
  for (std::string& assignment : assignments) variables.push_back(assignment.data());
  variables.push_back(nullptr);

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions, output, STDERR_FILENO);
  // Not where the next one is to go.
  const int kept = preferences >= 0 ? fcntl(preferences, F_DUPFD_CLOEXEC, 5) : -1;
  if (socket >= 0) posix_spawn_file_actions_adddup2(&actions, socket, 3);
  if (kept >= 0) posix_spawn_file_actions_adddup2(&actions, kept, 4);
  // A group of its own: the terminal's interrupt goes to the driver alone, and one signal ends the whole group. What
  // the driver keeps from itself, its programs may get.
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK);
  posix_spawnattr_setpgroup(&attributes, 0);
  sigset_t none;
  sigemptyset(&none);
  posix_spawnattr_setsigmask(&attributes, &none);
  pid_t pid = -1;
  const int failed = posix_spawnp(&pid, arguments.front(), &actions, &attributes, arguments.data(), variables.data());
  posix_spawnattr_destroy(&attributes);
  posix_spawn_file_actions_destroy(&actions);
  if (kept >= 0) close(kept);
  if (failed != 0) throw std::system_error(failed, std::generic_category(), words.front());
  return pid;
}

/// A thread that lasts as long as this program: a sandbox ends with the thread that has started it.
class Starter {
 public:
  Starter() {
    std::thread([this] { work(); }).detach();
  }
  pid_t start(const std::function<pid_t()>& action) {
    std::packaged_task<pid_t()> task(action);
    std::future<pid_t> pid = task.get_future();
    {
      const std::scoped_lock lock(mutex_);
      tasks_.push_back(std::move(task));
    }
    wake_.notify_one();
    return pid.get();
  }

 private:
  [[noreturn]] void work() {
    while (true) {
      std::unique_lock lock(mutex_);
      wake_.wait(lock, [this] { return !tasks_.empty(); });
      std::packaged_task<pid_t()> task = std::move(tasks_.front());
      tasks_.pop_front();
      lock.unlock();
      task();
    }
  }

  std::mutex mutex_;
  std::condition_variable wake_;
  std::deque<std::packaged_task<pid_t()>> tasks_;
};

Starter& starter() {
  static auto* const thread = new Starter;  // it is never gone
  return *thread;
}

/// Waits until the other end is closed, for so long.
void awaitEnd(int socket, std::chrono::milliseconds patience) {
  pollfd waiting{socket, POLLRDHUP, 0};
  while (poll(&waiting, 1, static_cast<int>(patience.count())) < 0 && errno == EINTR) continue;
}

/// Whether this machine lets a program have a namespace of its own.
bool namespacesAllowed() {
  const int output = open("/dev/null", O_WRONLY | O_CLOEXEC);
  int status = -1;
  try {
    const pid_t pid = spawn({"bwrap", "--unshare-user", "--unshare-pid", "--ro-bind", "/", "/", "--dev", "/dev",
                             "--proc", "/proc", "--", "true"},
                            {{"PATH", "/usr/bin:/bin"}}, output, -1, -1);
    waitpid(pid, &status, 0);
  } catch (const std::system_error&) {
    status = -1;
  }
  close(output);
  return status == 0;
}

Kind chooseKind() {
  const char* forced = std::getenv("SIMULATOR_SANDBOX");
  const std::string_view choice = forced != nullptr ? forced : "";
  if (choice == "bwrap") return Kind::namespaces;
  if (choice == "proot") return Kind::tracing;
  if (!choice.empty()) throw std::runtime_error("SIMULATOR_SANDBOX is neither bwrap nor proot");
  if (namespacesAllowed()) return Kind::namespaces;
  std::fputs("namespaces are refused here: the home screen runs under proot instead\n", stderr);
  return Kind::tracing;
}

/// Foundation converts text with the C library's modules, which it looks for where the device has its own folder.
std::string conversionModules() {
  for (const auto& entry : fs::directory_iterator("/usr/lib")) {
    if (fs::exists(entry.path() / "gconv")) return "/lib/" + entry.path().filename().string() + "/gconv";
  }
  return "/lib/gconv";
}

Environment fullEnvironment(const Environment& extra) {
  Environment environment = {
      {"HOME", "/tmp"}, {"LANG", "C.UTF-8"}, {"PATH", "/usr/bin:/bin"}, {"GCONV_PATH", conversionModules()}};
  for (const char* name : {"TZ", "ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS", "ASAN_SYMBOLIZER_PATH",
                           "NSZombieEnabled", "NSDeallocateZombies", "PROOT_NO_SECCOMP"}) {
    if (const char* value = std::getenv(name)) environment[name] = value;
  }
  for (const auto& [name, value] : extra) environment[name] = value;
  return environment;
}

}  // namespace

SandboxedProcess::SandboxedProcess(const fs::path& device, const std::vector<Mount>& folders, const Words& command,
                                   const Environment& environment, int preferences) {
  static const Kind kind = chooseKind();
  Words words = kind == Kind::namespaces ? namespaceCommand(device, folders) : tracingCommand(device, folders);
  words.insert(words.end(), command.begin(), command.end());

  std::array<int, 2> sockets{};
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, sockets.data()) != 0) {
    throw std::system_error(errno, std::generic_category(), "socketpair");
  }
  socket_ = sockets[0];
  output_ = memfd_create("output", MFD_CLOEXEC);
  try {
    pid_ =
        starter().start([&] { return spawn(words, fullEnvironment(environment), output_, sockets[1], preferences); });
  } catch (...) {
    for (const int descriptor : {sockets[0], sockets[1], output_}) close(descriptor);
    throw;
  }
  close(sockets[1]);
}

SandboxedProcess::~SandboxedProcess() {
  if (!end(std::chrono::seconds(20))) kill();
  for (const int descriptor : {socket_, output_}) close(descriptor);
}

std::optional<int> SandboxedProcess::end(std::chrono::milliseconds patience) {
  shutdown(socket_, SHUT_WR);
  const auto deadline = std::chrono::steady_clock::now() + patience;
  while (!status_) {
    int status = 0;
    if (waitpid(pid_, &status, WNOHANG) == pid_) {
      status_ = WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
    } else if (std::chrono::steady_clock::now() >= deadline) {
      break;
    } else {
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
  }
  return status_;
}

void SandboxedProcess::kill() {
  if (status_) return;
  ::kill(-pid_, SIGKILL);
  // The process that is waited for is the sandbox's; the program's own end shows when its socket closes.
  awaitEnd(socket_, std::chrono::seconds(20));
  end(std::chrono::seconds(20));
}

std::string SandboxedProcess::output() const {
  std::string text(static_cast<std::size_t>(std::max<off_t>(lseek(output_, 0, SEEK_END), 0)), '\0');
  const ssize_t size = pread(output_, text.data(), text.size(), 0);
  text.resize(static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
  return text;
}

}  // namespace sim
