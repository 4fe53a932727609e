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
  explicit PowerCut(std::filesystem::path file) : file_(std::move(file)) {}

  /// Asks for the change and kills the process at a random moment of a change that takes that long.
  void duringChange(sim::Phone& phone, const std::string& verb, const nlohmann::json& members,
                    std::chrono::microseconds duration);
  /// Asks for the change and kills the process once its folder has begun to change, at once or within a millisecond.
  /// False when the folder never changes.
  bool duringWrite(sim::Phone& phone, const std::string& verb, const nlohmann::json& members);

 private:
  void waitUpTo(std::chrono::microseconds longest);
  /// What a process that was killed had not put into the file's place yet.
  void removeLeftovers() const;

  std::filesystem::path file_;
  std::mt19937 random_{std::random_device{}()};
};

/// How long something takes.
std::chrono::microseconds timeOf(const std::function<void()>& action);

}  // namespace test
