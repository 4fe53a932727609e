#include "simulator/control/process_verbs.hpp"

#include <array>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>

namespace sim {
namespace {

/// As a shell has to have it.
std::string shellQuoted(const std::string& word) {
  std::string text = "'";
  for (const char c : word) text += c == '\'' ? "'\\''" : std::string(1, c);
  return text + "'";
}

}  // namespace

std::vector<VerbDescription> processVerbs(const std::filesystem::path& buildFolder) {
  const std::string program = (buildFolder / "SpringBoard").string();
  struct Close {
    void operator()(std::FILE* file) const { pclose(file); }
  };
  const std::unique_ptr<std::FILE, Close> pipe(popen(("exec " + shellQuoted(program) + " --verbs").c_str(), "re"));
  std::string text;
  std::array<char, 4096> block;
  while (pipe) {
    const std::size_t size = std::fread(block.data(), 1, block.size(), pipe.get());
    if (size == 0) break;
    text.append(block.data(), size);
  }
  const auto verbs = nlohmann::json::parse(text, nullptr, false);
  if (!verbs.is_array()) throw std::runtime_error(program + " does not tell its verbs");
  return verbs.get<std::vector<VerbDescription>>();
}

}  // namespace sim
