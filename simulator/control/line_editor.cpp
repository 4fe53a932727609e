#include "simulator/control/line_editor.hpp"

#include <histedit.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <clocale>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <utility>

namespace fs = std::filesystem;

namespace sim {
namespace {

/// A file, byte by byte, until it ends or reading is to stop.
class Input {
 public:
  Input(int file, std::stop_token stop)
      : file_(file), stopped_(eventfd(0, EFD_CLOEXEC)), onStop_(std::move(stop), Wake{stopped_}) {}
  ~Input() {
    for (const int descriptor : {file_, stopped_}) close(descriptor);
  }
  Input(const Input&) = delete;
  Input& operator=(const Input&) = delete;

  std::optional<char> next() {
    if (used_ == size_ && !fill()) return std::nullopt;
    return block_[used_++];
  }

 private:
  struct Wake {
    int descriptor;
    void operator()() const { eventfd_write(descriptor, 1); }
  };

  bool fill() {
    std::array<pollfd, 2> waiting{{{stopped_, POLLIN, 0}, {file_, POLLIN, 0}}};
    while (poll(waiting.data(), waiting.size(), -1) < 0 && errno == EINTR) continue;
    if (waiting[0].revents != 0) return false;
    ssize_t size = 0;
    while ((size = read(file_, block_.data(), block_.size())) < 0 && errno == EINTR) continue;
    used_ = 0;
    size_ = static_cast<std::size_t>(std::max<ssize_t>(size, 0));
    return size_ > 0;
  }

  int file_;
  int stopped_;
  std::stop_callback<Wake> onStop_;
  std::array<char, 4096> block_{};
  std::size_t used_ = 0, size_ = 0;
};

class PlainReader : public LineReader {
 public:
  PlainReader(int descriptor, std::stop_token stop) : input_(descriptor, std::move(stop)) {}

  std::optional<std::string> next() override {
    std::string line;
    while (const auto byte = input_.next()) {
      if (*byte == '\n') return line;
      line += *byte;
    }
    return line.empty() ? std::nullopt : std::optional(line);
  }

 private:
  Input input_;
};

class LineEditor : public LineReader {
 public:
  LineEditor(fs::path file, Completer completer, std::stop_token stop)
      : input_(dup(STDIN_FILENO), std::move(stop)), completer_(std::move(completer)), file_(std::move(file)) {
    el_set(editor_.get(), EL_CLIENTDATA, this);
    el_set(
        editor_.get(), EL_PROMPT, +[](EditLine*) { return prompt; });
    el_set(editor_.get(), EL_EDITOR, "emacs");
    el_set(editor_.get(), EL_SIGNAL, 0);
    el_set(editor_.get(), EL_GETCFN, readCharacter);
    el_set(editor_.get(), EL_HIST, history, history_.get());
    el_set(editor_.get(), EL_ADDFN, "complete", "completes a word", completeWord);
    el_set(editor_.get(), EL_BIND, "^I", "complete", nullptr);
    constexpr int mostLines = 1000;
    HistEvent event{};
    history(history_.get(), &event, H_SETSIZE, mostLines);
    history(history_.get(), &event, H_SETUNIQUE, 1);
    history(history_.get(), &event, H_LOAD, file_.c_str());
  }
  ~LineEditor() override {
    std::error_code ignored;
    fs::create_directories(file_.parent_path(), ignored);
    HistEvent event{};
    history(history_.get(), &event, H_SAVE, file_.c_str());
  }
  LineEditor(const LineEditor&) = delete;
  LineEditor& operator=(const LineEditor&) = delete;

  std::optional<std::string> next() override {
    el_resize(editor_.get());
    int size = 0;
    const char* const text = el_gets(editor_.get(), &size);
    if (text == nullptr || size <= 0) return std::nullopt;
    std::string line(text, static_cast<std::size_t>(size));
    while (line.ends_with('\n') || line.ends_with('\r')) line.pop_back();
    HistEvent event{};
    if (line.find_first_not_of(" \t") != std::string::npos) history(history_.get(), &event, H_ENTER, line.c_str());
    return line;
  }

 private:
  struct EndEditor {
    void operator()(EditLine* editor) const { el_end(editor); }
  };
  struct EndHistory {
    void operator()(History* lines) const { history_end(lines); }
  };

  static EditLine* makeEditor() {
    // It takes over at its start what a character is.
    std::setlocale(LC_CTYPE, "C.UTF-8");
    return el_init("home-screen", stdin, stdout, stderr);
  }

  static LineEditor& of(EditLine* editor) {
    void* self = nullptr;
    el_get(editor, EL_CLIENTDATA, &self);
    return *static_cast<LineEditor*>(self);
  }

  /// 1 for a character, 0 at the end.
  static int readCharacter(EditLine* editor, wchar_t* character) {
    std::mbstate_t state{};
    while (const auto byte = of(editor).input_.next()) {
      const std::size_t used = std::mbrtowc(character, &*byte, 1, &state);
      if (used == static_cast<std::size_t>(-2)) continue;
      if (used == static_cast<std::size_t>(-1)) state = {};
      else return 1;
    }
    return 0;
  }

  static unsigned char completeWord(EditLine* editor, int) {
    const LineInfo* const info = el_line(editor);
    const std::string typed(info->buffer, info->cursor);
    const TabCompletion completion = of(editor).completer_(typed);
    const std::string replaced = typed.substr(completion.start);
    if (replaced == completion.insertion) {
      if (completion.candidates.empty()) return CC_REFRESH_BEEP;
      std::printf("\n%s", completion.candidates.c_str());
      std::fflush(stdout);
      return CC_REDISPLAY;
    }
    // What is deleted is counted in characters.
    const auto characters = std::count_if(replaced.begin(), replaced.end(), [](char byte) {
      return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
    });
    if (characters > 0) el_deletestr(editor, static_cast<int>(characters));
    el_insertstr(editor, completion.insertion.c_str());
    return CC_REFRESH;
  }

  static inline char prompt[] = "> ";

  Input input_;
  Completer completer_;
  fs::path file_;
  std::unique_ptr<EditLine, EndEditor> editor_{makeEditor()};
  std::unique_ptr<History, EndHistory> history_{history_init()};
};

}  // namespace

std::unique_ptr<LineReader> readStandardInput(const fs::path& history, Completer completer, std::stop_token stop) {
  const bool terminal = isatty(STDIN_FILENO) != 0 && isatty(STDOUT_FILENO) != 0;
  if (!terminal) return readLines(dup(STDIN_FILENO), std::move(stop));
  return std::make_unique<LineEditor>(history, std::move(completer), std::move(stop));
}

std::unique_ptr<LineReader> readLines(int descriptor, std::stop_token stop) {
  return std::make_unique<PlainReader>(descriptor, std::move(stop));
}

fs::path stateFile(const std::string& name) {
  const char* const state = std::getenv("XDG_STATE_HOME");
  const char* const home = std::getenv("HOME");
  if (state != nullptr && *state == '/') return fs::path(state) / "home-screen" / name;
  return fs::path(home != nullptr ? home : "/tmp") / ".local/state/home-screen" / name;
}

}  // namespace sim
