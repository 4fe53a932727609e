#include "tests/support/closed_list.hpp"

#include <fstream>
#include <sstream>

#include "tests/support/places.hpp"

namespace test {

std::map<std::string, std::string> closedList(const std::string& path) {
  std::map<std::string, std::string> symbols;
  std::ifstream file(sourceFile(path));
  for (std::string line; std::getline(file, line);) {
    std::istringstream row(line.substr(0, line.find('#')));
    std::string name;
    std::string library;
    if (row >> name >> library) symbols.emplace(name, library);
  }
  return symbols;
}

Symbols namesOfClosedList(const std::string& path) {
  Symbols names;
  for (const auto& [name, library] : closedList(path)) names.insert(name);
  return names;
}

Symbols withoutCLibrary(Symbols symbols) {
  for (const auto* name : {"memcpy", "memmove", "memset", "memcmp", "strlen"}) symbols.erase(name);
  return symbols;
}

}  // namespace test
