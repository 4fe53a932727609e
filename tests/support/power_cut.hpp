// Ending a home screen in the middle of a write, as an empty battery does.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <random>

#include "simulator/control/phone.hpp"

namespace test {

/// Kills home screens while they replace a file.
class PowerCut {
 public:
  /// How often it is to be done: the moments are spread over the time, one at random in each of that many parts of it.
  static constexpr int cuts = 20;

  explicit PowerCut(std::filesystem::path file) : file_(std::move(file)) {}

  /// Asks for the change and kills the process at the next moment of a change that takes that long.
  void duringChange(sim::Phone& phone, const std::string& verb, const nlohmann::json& members,
                    std::chrono::microseconds duration);
  /// Asks for the change and kills the process within a millisecond after its folder has begun to change.
  /// False when the folder never changes.
  bool duringWrite(sim::Phone& phone, const std::string& verb, const nlohmann::json& members);

 private:
  /// Waits to the next moment of a time that is so long.
  void waitWithin(std::chrono::microseconds longest);
  /// What a process that was killed had not put into the file's place yet.
  void removeLeftovers() const;

  std::filesystem::path file_;
  int cut_ = 0;
  std::mt19937 random_{std::random_device{}()};
};

/// How long something takes.
std::chrono::microseconds timeOf(const std::function<void()>& action);

}  // namespace test
