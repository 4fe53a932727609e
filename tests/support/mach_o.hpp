// A phone's image, read from its file.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace test {

/// What a 64-bit Mach-O file tells of itself. Reading throws `std::runtime_error` where it points outside the file.
class MachO {
 public:
  struct Section {
    std::string name;
    std::uint64_t address, size;
    std::uint32_t offset, alignment;  ///< the alignment as a power of 2
    std::uint8_t type;
  };
  struct Segment {
    std::string name;
    std::uint64_t address, size, offset, fileSize;
    std::uint32_t mostProtection, protection;  ///< read 1, write 2, execute 4
    std::vector<Section> sections;
  };
  /// A part of the file.
  struct Range {
    std::uint64_t offset, size;
  };
  /// The signature's directory of code.
  struct CodeDirectory {
    std::uint32_t flags;
    std::uint64_t signedBytes, pageSize;
    std::vector<std::string> pages;  ///< the SHA-256 of each page that is signed, in hexadecimal digits
  };

  explicit MachO(const std::filesystem::path& file);

  std::uint32_t processor = 0, processorKind = 0, fileKind = 0;
  std::uint64_t fileSize = 0;
  std::vector<std::uint32_t> commands;  ///< the kinds of the load commands, in their order
  std::vector<Segment> segments;
  std::vector<std::string> libraries;  ///< those that it needs, by the paths on a phone
  /// The library that has each symbol that it needs; "-" for one that is looked for in all.
  std::map<std::string, std::string> imports;
  std::vector<std::string> defined;             ///< the names of its own that it tells
  std::uint64_t exportsSize = 0;                ///< of the table of what it exports, in bytes
  std::optional<std::uint32_t> minimumVersion;  ///< in LC_VERSION_MIN_IPHONEOS: 0x000A0000 for 10.0
  std::optional<std::array<std::uint8_t, 16>> uuid;
  std::optional<Range> signature;
  std::optional<CodeDirectory> codeDirectory;

 private:
  void readSegment(std::uint64_t at);
  void readSymbols(std::uint64_t at);
  void readSignature(std::uint64_t at);
  template <class Value>
  Value read(std::uint64_t at) const;
  std::uint64_t big(std::uint64_t at) const;  // four bytes, the greatest first
  std::string text(std::uint64_t at, std::uint64_t most) const;

  std::string content_;
};

}  // namespace test
