// A program at a terminal, and a person at its keyboard.
#pragma once

#include <sys/types.h>

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace test {

class Terminal {
 public:
  /// Starts the program with these variables besides the test's own.
  Terminal(const std::vector<std::string>& command, const std::map<std::string, std::string>& environment);
  ~Terminal();
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  /// Types, once the program takes the keys one by one; after a while it types in any case.
  void type(std::string_view keys) const;
  /// Waits until the program writes that, after what was waited for before; false when it does not.
  bool shows(const std::string& text);
  /// Waits for the program's end. The value is the exit status, or 128 and the signal's number.
  int end();
  /// What it wrote after what was waited for.
  const std::string& rest() const { return output_; }

 private:
  void waitForLineEditor() const;
  bool read();

  pid_t pid_ = -1;
  int descriptor_ = -1;
  std::string output_;
};

}  // namespace test
