// The protocol's own lines, for tests of what they say: a driver that sees everything the process sends.
#pragma once

#include <functional>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "simulator/device/device.hpp"
#include "simulator/device/files.hpp"
#include "simulator/device/sandbox.hpp"

namespace test {

class Wire {
 public:
  using Json = nlohmann::json;

  /// Starts the process on the device with the library and these further options.
  Wire(const sim::Device& device, const std::string& generation, const std::vector<std::string>& options = {});

  /// Sends a line as it is.
  void send(const std::string& line);
  void send(const Json& request) { send(request.dump()); }
  /// The next line, whatever it is.
  Json receive();
  /// The next line that `wanted` takes; those before are in `passed`.
  Json receive(const std::function<bool(const Json&)>& wanted);
  /// The next answer.
  Json answer();
  /// The next answer to that request.
  Json answerTo(int id);
  /// The next push of that name.
  Json push(const std::string& name);
  /// Sends and gives the next answer.
  Json ask(const Json& request);

  /// Lines that were passed over.
  std::vector<Json> passed;
  sim::SandboxedProcess& process() { return process_; }

 private:
  sim::SandboxedProcess process_;
  std::string unread_;
};

}  // namespace test
