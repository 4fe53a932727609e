// A preferences domain as the daemon has it in memory.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "simulator/runtime/objc.hpp"

namespace sim {

/// The values of one domain. Its file is read once, when the domain is made, and never looked at again: whatever
/// others write into it meanwhile is gone when the domain is written. A file that cannot be read counts as empty.
class Domain {
 public:
  explicit Domain(const std::string& name);

  /// A dictionary.
  id values() const { return values_.get(); }
  /// Sets what the dictionary holds and removes the keys. The file is due a while after the first change since it was
  /// written; the times are the phone's, in nanoseconds.
  void change(id values, const std::vector<std::string>& removed, std::int64_t now);
  /// When the file is to be written; none when nothing has changed.
  std::optional<std::int64_t> due() const { return due_; }
  /// Puts the domain in its file's place if it has changed. A file that cannot be written has its next turn with the
  /// next change, or when somebody insists.
  void write();

 private:
  std::string file_;
  Ref<objc_object> values_;
  std::optional<std::int64_t> due_;
  bool changed_ = false;
};

}  // namespace sim
