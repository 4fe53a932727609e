// What the two builds of the library are made of, read from the files themselves.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "tests/support/command.hpp"
#include "tests/support/places.hpp"

namespace {

using Symbols = std::set<std::string>;

const std::string pcLibrary = test::pcLibrary;
const std::string deviceLibrary = test::deviceLibrary;

// Each symbol of the closed list, and the phone's library that has it; "-" for none.
std::map<std::string, std::string> closedList() {
  std::map<std::string, std::string> symbols;
  std::ifstream file(test::sourceFile("platform/symbols.txt"));
  for (std::string line; std::getline(file, line);) {
    std::istringstream row(line.substr(0, line.find('#')));
    std::string name;
    std::string library;
    if (row >> name >> library) symbols.emplace(name, library);
  }
  return symbols;
}

Symbols namesOfClosedList() {
  Symbols names;
  for (const auto& [name, library] : closedList()) names.insert(name);
  return names;
}

// Names as C sees them: Mach-O puts an underscore before each.
Symbols undefinedOf(const std::string& library, const std::string& options, bool machO) {
  Symbols symbols;
  for (const auto& line : linesOf("llvm-nm-16 --undefined-only --format=just-symbols " + options + " " + library)) {
    if (line == "dyld_stub_binder") continue;  // the dynamic linker's own, for calls bound at first use
    symbols.insert(machO ? line.substr(1) : line);
  }
  return symbols;
}

// What the compiler may ask of the C library by itself.
Symbols withoutCLibrary(Symbols symbols) {
  for (const auto* name : {"memcpy", "memmove", "memset", "memcmp", "strlen"}) symbols.erase(name);
  return symbols;
}

std::vector<std::string> matching(const std::vector<std::string>& lines, const std::string& part) {
  std::vector<std::string> found;
  for (const auto& line : lines)
    if (line.find(part) != std::string::npos) found.push_back(line.substr(line.find_first_not_of(' ')));
  return found;
}

std::vector<std::string> machOHeaders() {
  return linesOf("llvm-objdump-16 --macho --private-headers " + deviceLibrary);
}

}  // namespace

TEST(PcLibrary, NeedsExactlyTheClosedList) {
  EXPECT_EQ(withoutCLibrary(undefinedOf(pcLibrary, "--dynamic", false)), namesOfClosedList());
}

TEST(DeviceLibrary, NeedsExactlyTheClosedList) {
  auto expected = namesOfClosedList();
  expected.erase("objc_msgSend_stret");  // not a phone's
  EXPECT_EQ(withoutCLibrary(undefinedOf(deviceLibrary, "", true)), expected);
}

TEST(PcLibrary, ExportsNothing) {
  EXPECT_TRUE(linesOf("llvm-nm-16 --dynamic --defined-only --format=just-symbols " + pcLibrary).empty());
}

TEST(DeviceLibrary, ExportsNothing) {
  EXPECT_TRUE(linesOf("llvm-nm-16 --extern-only --defined-only --format=just-symbols " + deviceLibrary).empty());
}

TEST(PcLibrary, NeedsNoOtherLibrary) {
  for (const auto& line : matching(linesOf("llvm-readelf-16 --dynamic-table " + pcLibrary), "(NEEDED)"))
    EXPECT_NE(line.find("libc.so"), std::string::npos) << line;
}

TEST(DeviceLibrary, LoadsThePlatformsLibrariesOnly) {
  const auto names = matching(machOHeaders(), "name /");
  Symbols allowed;
  for (const auto& [name, library] : closedList())
    if (library != "-") allowed.insert(library);
  EXPECT_EQ(names.size(), allowed.size());
  for (const auto& line : names) {
    const auto path = line.substr(5, line.find(' ', 5) - 5);
    EXPECT_TRUE(allowed.contains(path)) << line;
  }
}

TEST(PcLibrary, HasOneInitialiserAndNothingAtExit) {
  const auto table = linesOf("llvm-readelf-16 --dynamic-table " + pcLibrary);
  ASSERT_EQ(matching(table, "(INIT_ARRAYSZ)").size(), 1U);
  EXPECT_NE(matching(table, "(INIT_ARRAYSZ)")[0].find(" 8 (bytes)"), std::string::npos);
  EXPECT_TRUE(matching(table, "(INIT)").empty());
  EXPECT_TRUE(matching(table, "(FINI").empty());
}

TEST(DeviceLibrary, HasOneInitialiserAndNothingAtExit) {
  const auto headers = machOHeaders();
  bool inInitialisers = false;
  int sections = 0;
  for (const auto& line : headers) {
    if (line.find("sectname") != std::string::npos) {
      inInitialisers = line.find("__mod_init_func") != std::string::npos;
      sections += inInitialisers ? 1 : 0;
      EXPECT_EQ(line.find("__mod_term_func"), std::string::npos);
    }
    if (inInitialisers && line.find("   size ") != std::string::npos) {
      EXPECT_NE(line.find("0x0000000000000008"), std::string::npos) << line;
    }
  }
  EXPECT_EQ(sections, 1);
}

TEST(DeviceLibrary, TellsHowToUnwindItsFunctions) {
  const auto functions = matching(linesOf("llvm-objdump-16 --macho --unwind-info " + deviceLibrary), "function offset");
  EXPECT_GT(functions.size(), 200U);
}

TEST(DeviceLibrary, IsStrippedAndSmall) {
  EXPECT_LE(std::filesystem::file_size(deviceLibrary), 96U * 1024);
  EXPECT_TRUE(linesOf("llvm-nm-16 --defined-only --format=just-symbols " + deviceLibrary).empty());
}

TEST(DeviceLibrary, IsForArm64AndIos10) {
  const auto headers = machOHeaders();
  EXPECT_EQ(matching(headers, "LC_VERSION_MIN_IPHONEOS").size(), 1U);
  EXPECT_EQ(matching(headers, "version 10.0").size(), 1U);
  EXPECT_FALSE(matching(linesOf("llvm-readobj-16 --file-headers " + deviceLibrary), "Arm64").empty());
}

TEST(Libraries, ContainNoCxxRuntime) {
  for (const auto& library : {pcLibrary, deviceLibrary})
    for (const auto* symbol : {"__cxa_", "__gxx_personality", "_Unwind_", "_Znwm", "_ZdlPv", "__cxa_guard"})
      for (const auto& name : linesOf("llvm-nm-16 --format=just-symbols " + library))
        EXPECT_EQ(name.find(symbol), std::string::npos) << library << ": " << name;
}
