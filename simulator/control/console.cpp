#include "simulator/control/console.hpp"

#include <algorithm>
#include <exception>
#include <utility>

#include "simulator/control/completion.hpp"
#include "simulator/control/line_editor.hpp"
#include "simulator/control/width.hpp"
#include "simulator/control/words.hpp"

namespace sim {
namespace {

/// Words in columns, as many as a terminal of the usual width has room for.
std::string inColumns(const std::vector<std::string>& words) {
  constexpr std::size_t terminal = 80;
  constexpr std::size_t gap = 2;
  std::size_t width = 0;
  for (const std::string& word : words) width = std::max(width, columns(word) + gap);
  const std::size_t perLine = std::max<std::size_t>(1, terminal / width);
  std::string text;
  for (std::size_t index = 0; index < words.size(); ++index) {
    const bool last = (index + 1) % perLine == 0 || index + 1 == words.size();
    text += words[index] + (last ? "\n" : std::string(width - columns(words[index]), ' '));
  }
  return text;
}

TabCompletion completed(Session& session, const std::string& line) {
  try {
    const Completion completion = complete(session, line);
    return {completion.start, completion.insertion, inColumns(completion.candidates)};
  } catch (const std::exception&) {
    // Completing is a help: what is wrong will be told when the line is played.
    return {line.size(), "", ""};
  }
}

}  // namespace

void runConsole(Session::Options options, std::ostream& output, std::ostream& errors) {
  options.live = true;
  Session session(options, output);
  const auto input = readStandardInput(
      stateFile("history"), [&](const std::string& line) { return completed(session, line); }, options.stop);
  output << "A home screen of the old generation on " << options.device.value_or("a fresh device").string()
         << "; \"help\" lists what you can do, Ctrl-D ends.\n";
  std::optional<std::string> line = "boot old";
  while (line && !session.over() && !options.stop.stop_requested()) {
    try {
      session.play(*line);
    } catch (const std::exception& error) {
      output.flush();
      if (!options.stop.stop_requested()) errors << error.what() << std::endl;
    }
    output.flush();
    if (!session.over()) line = input->next();
  }
}

}  // namespace sim
