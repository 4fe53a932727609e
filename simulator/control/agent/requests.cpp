#include "simulator/control/agent/requests.hpp"

#include <exception>
#include <stdexcept>
#include <utility>

#include "simulator/control/agent/verbs.hpp"
#include "simulator/homescreen/common/refused.hpp"
#include "simulator/runtime/clock.hpp"
#include "simulator/runtime/main_queue.hpp"
#include "simulator/runtime/objc.hpp"

namespace sim {
namespace {

using nlohmann::json;

struct Request {
  const Verb* verb = nullptr;
  json members;
  bool catching = false;
};

Request read(const json& request) {
  if (!request.is_object()) throw BadRequest("The request is no JSON object");
  Request read{.verb = nullptr, .members = json::object(), .catching = false};
  for (const auto& [name, value] : request.items()) {
    if (name == "verb" && value.is_string()) read.verb = &verbNamed(value.get<std::string>());
    else if (name == "members") read.members = value;
    else if (name == "catching" && value.is_boolean()) read.catching = value.get<bool>();
    else if (name != "id" || !value.is_number_integer())
      throw BadRequest(
          "A request has \"verb\" (a text), \"members\" (an object), \"id\" (an integer) and \"catching\"" +
          std::string(" (true or false); not such a \"") + name + "\"");
  }
  if (read.verb == nullptr) throw BadRequest("The request has no verb");
  read.members = checkedMembers(*read.verb, read.members);
  return read;
}

json valueOf(const Request& request) {
  try {
    return request.verb->perform(request.members);
  } catch (const json::exception&) {
    throw BadRequest("Something that \"" + request.verb->name + "\" takes is missing");
  }
}

json failure(const std::exception& error, const char* kind) { return {{"error", error.what()}, {"kind", kind}}; }

}  // namespace

json perform(const json& asked) {
  const Request request = read(asked);
  // Whether the action raises. Its caller is told of what the driver did wrong in either case.
  const auto raises = [&](const auto& action) {
    if (!request.catching) return action(), false;
    try {
      action();
    } catch (const std::exception&) {
      throw;
    } catch (...) {
      return true;
    }
    return false;
  };
  const std::int64_t start = clock::realTime();
  json value;
  bool raised = raises([&] { value = valueOf(request); });
  const double seconds = static_cast<double>(clock::realTime() - start) / 1e9;
  while (raises(runDueWork)) raised = true;
  if (raised) value = {{"raised", true}};
  else if (request.catching) value = {{"raised", false}, {"value", std::move(value)}};
  return {{"value", std::move(value)}, {"seconds", seconds}};
}

json answer(const json& request) {
  try {
    return perform(request);
  } catch (const Covered& error) {
    return failure(error, "covered");
  } catch (const Refused& error) {
    return failure(error, "refused");
  } catch (const std::invalid_argument& error) {
    return failure(error, "bad request");
  } catch (const BadRequest& error) {
    return failure(error, "bad request");
  } catch (const std::exception& error) {
    return failure(error, "failed");
  }
}

}  // namespace sim
