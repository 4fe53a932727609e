// The form of the images that a phone maps, read from the files themselves: what its linker, its kernel and its home
// screen ask of them.
#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
#include <set>
#include <sstream>
#include <stdexcept>

#include "tests/support/closed_list.hpp"
#include "tests/support/command.hpp"
#include "tests/support/mach_o.hpp"
#include "tests/support/places.hpp"

namespace {

using test::MachO;

constexpr std::uint64_t phonesPage = 0x4000;

struct Row {
  const char* name;  ///< in the names of tests
  std::string file, symbols;
  std::uint32_t kind;  ///< of file
  std::uint64_t most;  ///< bytes
};

void PrintTo(const Row& row, std::ostream* stream) { *stream << row.name; }

constexpr std::uint32_t sharedLibrary = 6;

class DeviceImages : public testing::TestWithParam<Row> {
 protected:
  const MachO image{GetParam().file};
  const MachO::Segment& segment(const std::string& name) const {
    for (const auto& each : image.segments)
      if (each.name == name) return each;
    throw std::runtime_error("no segment " + name);
  }
  std::vector<std::string> told(const std::string& options) const {
    return linesOf("llvm-objdump-16 --macho " + options + " " + GetParam().file);
  }
};

std::vector<std::string> holding(const std::vector<std::string>& lines, const std::string& part) {
  std::vector<std::string> found;
  for (const auto& line : lines)
    if (line.find(part) != std::string::npos) found.push_back(line);
  return found;
}

}  // namespace

TEST_P(DeviceImages, IsForEveryArm64Processor) {
  constexpr std::uint32_t arm64 = 0x0100000C;
  EXPECT_EQ(image.processor, arm64);
  EXPECT_EQ(image.processorKind, 0U);
  EXPECT_EQ(image.fileKind, GetParam().kind);
}

TEST_P(DeviceImages, IsForVersion10AndLaterInTheOldLoadCommand) {
  EXPECT_EQ(image.minimumVersion, 0x000A0000U);
  constexpr std::uint32_t buildVersion = 0x32;
  for (const auto command : image.commands) EXPECT_NE(command, buildVersion);
}

TEST_P(DeviceImages, IsSmall) { EXPECT_LE(image.fileSize, GetParam().most); }

TEST_P(DeviceImages, TellsNoNameOfItsOwn) {
  EXPECT_EQ(image.defined, std::vector<std::string>());
  EXPECT_EQ(image.exportsSize, 0U);
}

TEST_P(DeviceImages, HasItsTextAtTheStartAndNotWritable) {
  ASSERT_FALSE(image.segments.empty());
  const auto& text = image.segments.front();
  EXPECT_EQ(text.name, "__TEXT");
  EXPECT_EQ(text.offset, 0U);
  EXPECT_EQ(text.address, 0U);
  constexpr std::uint32_t readAndExecute = 5;
  EXPECT_EQ(text.protection, readAndExecute);
  EXPECT_EQ(text.mostProtection, readAndExecute);
}

TEST_P(DeviceImages, HasNothingWritableThatCanBeExecuted) {
  constexpr std::uint32_t execute = 4;
  for (const auto& each : image.segments) {
    if (each.name != "__TEXT") EXPECT_EQ(each.mostProtection & execute, 0U) << each.name;
  }
}

TEST_P(DeviceImages, HasItsSegmentsInOrderAndOnWholePages) {
  std::uint64_t address = 0;
  std::uint64_t offset = 0;
  for (const auto& each : image.segments) {
    EXPECT_EQ(each.address % phonesPage, 0U) << each.name;
    EXPECT_EQ(each.offset % phonesPage, 0U) << each.name;
    EXPECT_GE(each.address, address) << each.name;
    EXPECT_EQ(each.offset, offset) << each.name;
    EXPECT_LE(each.fileSize, each.size) << each.name;
    address = each.address + each.size;
    offset = each.offset + each.fileSize;
  }
  EXPECT_EQ(image.segments.back().name, "__LINKEDIT");
  EXPECT_EQ(offset, image.fileSize);
}

TEST_P(DeviceImages, HasItsSectionsInTheirSegments) {
  for (const auto& each : image.segments) {
    std::uint64_t end = each.address;
    for (const auto& section : each.sections) {
      EXPECT_EQ(section.address % (std::uint64_t{1} << section.alignment), 0U) << section.name;
      EXPECT_GE(section.address, end) << section.name;
      end = section.address + section.size;
      constexpr std::uint8_t filledWithZeros = 1;
      if (section.type == filledWithZeros) continue;
      EXPECT_EQ(section.offset - each.offset, section.address - each.address) << section.name;
      EXPECT_LE(section.offset + section.size, each.offset + each.fileSize) << section.name;
    }
    EXPECT_LE(end, each.address + each.size) << each.name;
  }
}

TEST_P(DeviceImages, HasOneInitialiserAndNothingAtExit) {
  std::vector<std::uint64_t> initialisers;
  constexpr std::uint8_t atLoad = 9;
  constexpr std::uint8_t atExit = 10;
  for (const auto& each : image.segments)
    for (const auto& section : each.sections) {
      if (section.type == atLoad) initialisers.push_back(section.size);
      EXPECT_NE(section.type, atExit) << section.name;
    }
  EXPECT_EQ(initialisers, std::vector<std::uint64_t>{8});
}

TEST_P(DeviceImages, HasAnIdentifier) {
  ASSERT_TRUE(image.uuid);
  EXPECT_NE(*image.uuid, decltype(image.uuid)::value_type());
}

TEST_P(DeviceImages, HasItsSignatureLastAndAligned) {
  ASSERT_TRUE(image.signature);
  EXPECT_EQ(image.signature->offset % 16, 0U);
  EXPECT_EQ(image.signature->offset + image.signature->size, image.fileSize);
}

TEST_P(DeviceImages, IsSignedByNobodyAndAsItStands) {
  ASSERT_TRUE(image.codeDirectory);
  constexpr std::uint32_t adHoc = 2;
  EXPECT_EQ(image.codeDirectory->flags & adHoc, adHoc);
  EXPECT_EQ(image.codeDirectory->signedBytes, image.signature->offset);
  const auto sums = linesOf("head -c " + std::to_string(image.codeDirectory->signedBytes) + " " + GetParam().file +
                            " | split -b " + std::to_string(image.codeDirectory->pageSize) + " --filter=sha256sum");
  ASSERT_EQ(image.codeDirectory->pages.size(), sums.size());
  for (std::size_t page = 0; page < sums.size(); ++page)
    EXPECT_EQ(image.codeDirectory->pages[page], sums[page].substr(0, sums[page].find(' '))) << "page " << page;
}

TEST_P(DeviceImages, NeedsExactlyTheClosedList) {
  test::Symbols needed;
  for (const auto& [name, library] : image.imports) needed.insert(name.substr(1));
  needed.erase("yld_stub_binder");  // the dynamic linker's own, for calls bound at first use
  auto expected = test::namesOfClosedList(GetParam().symbols);
  expected.erase("objc_msgSend_stret");  // not a phone's
  EXPECT_EQ(test::withoutCLibrary(needed), expected);
}

TEST_P(DeviceImages, FindsEachSymbolInTheLibraryThatAPhoneHasItIn) {
  const auto list = test::closedList(GetParam().symbols);
  for (const auto& [name, library] : image.imports) {
    const auto row = list.find(name.substr(1));
    EXPECT_EQ(library, row != list.end() ? row->second : "/usr/lib/libSystem.B.dylib") << name;
  }
}

TEST_P(DeviceImages, LoadsNoLibraryThatItDoesNotNeed) {
  std::set<std::string> needed;
  for (const auto& [name, library] : image.imports) needed.insert(library);
  needed.erase("-");
  EXPECT_EQ(needed, std::set<std::string>(image.libraries.begin(), image.libraries.end()));
  EXPECT_EQ(needed.size(), image.libraries.size());
}

// The same, by those who know the format best.
TEST_P(DeviceImages, IsReadByOtherToolsWithoutComplaint) {
  const auto headers = told("--private-headers 2>&1");
  EXPECT_EQ(
      holding(headers, "warning").size() + holding(headers, "error").size() + holding(headers, "malformed").size(), 0U);
  EXPECT_EQ(holding(headers, "LC_VERSION_MIN_IPHONEOS").size(), 1U);
  EXPECT_EQ(holding(headers, "version 10.0").size(), 1U);
  EXPECT_EQ(holding(headers, "LC_UUID").size(), 1U);
  EXPECT_EQ(holding(headers, "LC_CODE_SIGNATURE").size(), 1U);
  EXPECT_EQ(holding(headers, "S_MOD_INIT_FUNC_POINTERS").size(), 1U);
  EXPECT_EQ(holding(headers, "past end of file").size(), 0U);
}

TEST_P(DeviceImages, BindsWhatItNeedsAtTheTimesItTells) {
  std::set<std::string> bound;
  const auto list = test::closedList(GetParam().symbols);
  for (const auto* table : {"--bind", "--lazy-bind"})
    for (const auto& line : holding(told(table), "__DATA")) {
      // segment section address type [addend] library symbol
      std::istringstream words(line);
      const std::vector<std::string> row{std::istream_iterator<std::string>(words), {}};
      const std::string name = row.back();
      const auto known = list.find(name.substr(1));
      const std::string library =
          known == list.end() ? "libSystem" : std::filesystem::path(known->second).filename().replace_extension("");
      EXPECT_EQ(row[row.size() - 2], library == "-" ? "flat-namespace" : library.substr(0, library.find('.'))) << line;
      bound.insert(name);
    }
  std::set<std::string> needed;
  for (const auto& [name, library] : image.imports) needed.insert(name);
  EXPECT_EQ(bound, needed);
}

TEST_P(DeviceImages, ExportsNothingToOtherTools) {
  EXPECT_EQ(holding(told("--exports-trie"), "_"), std::vector<std::string>());
}

TEST_P(DeviceImages, TellsHowToUnwindItsFunctions) {
  // Functions are short here.
  const auto functions = holding(told("--unwind-info"), "function offset").size();
  EXPECT_GT(functions, segment("__TEXT").sections.front().size / 256);
}

TEST_P(DeviceImages, ContainsNoCxxRuntime) {
  for (const auto* symbol : {"__cxa_", "__gxx_personality", "_Unwind_", "_Znwm", "_ZdlPv", "__cxa_guard"})
    for (const auto& [name, library] : image.imports) EXPECT_EQ(name.find(symbol), std::string::npos) << name;
}

INSTANTIATE_TEST_SUITE_P(, DeviceImages,
                         testing::Values(Row{"Library", test::deviceLibrary, "platform/symbols.txt", sharedLibrary,
                                             96UL * 1024},
                                         Row{"Pane", test::devicePane, "pane/symbols.txt", sharedLibrary, 48UL * 1024}),
                         [](const auto& info) { return std::string(info.param.name); });
