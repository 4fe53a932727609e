#include "simulator/control/script.hpp"

#include <exception>
#include <optional>
#include <string>

#include "simulator/control/words.hpp"

namespace sim {

int playScript(LineReader& script, const Session::Options& options, std::ostream& output, std::ostream& errors) {
  Session session(options, output);
  for (int number = 1; !session.over(); ++number) {
    const std::optional<std::string> line = script.next();
    if (!line) break;
    const auto failed = [&](const std::exception& error, int status) {
      output.flush();
      errors << "line " << number << ": " << error.what() << std::endl;
      return status;
    };
    try {
      if (!splitWords(*line).empty()) output << "> " << *line << "\n";
      session.play(*line);
      output.flush();
    } catch (const ExpectationFailed& failure) {
      return failed(failure, 1);
    } catch (const BadInput& mistake) {
      return failed(mistake, 2);
    } catch (const std::exception& error) {
      return failed(error, 3);
    }
  }
  return 0;
}

}  // namespace sim
