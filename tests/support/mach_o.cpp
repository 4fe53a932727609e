#include "tests/support/mach_o.hpp"

#include <cstring>
#include <stdexcept>

#include "simulator/device/files.hpp"

namespace test {
namespace {

constexpr std::uint32_t magic64 = 0xFEEDFACF, directoryMagic = 0xFADE0C02, superBlobMagic = 0xFADE0CC0;
constexpr std::uint64_t headerSize = 32, segmentSize = 72, sectionSize = 80, symbolSize = 16;

enum Command : std::uint32_t {
  symbolTable = 0x2,
  loadLibrary = 0xC,
  segment64 = 0x19,
  identifier = 0x1B,
  codeSignature = 0x1D,
  linkerInformation = 0x80000022,
  minimumPhone = 0x25,
};

}  // namespace

MachO::MachO(const std::filesystem::path& file) : content_(sim::readFile(file).value_or("")) {
  fileSize = content_.size();
  if (read<std::uint32_t>(0) != magic64) throw std::runtime_error(file.string() + " is no 64-bit Mach-O file");
  processor = read<std::uint32_t>(4);
  processorKind = read<std::uint32_t>(8);
  fileKind = read<std::uint32_t>(12);
  std::uint64_t symbols = 0;
  std::uint64_t at = headerSize;
  for (std::uint32_t left = read<std::uint32_t>(16); left > 0; --left, at += read<std::uint32_t>(at + 4)) {
    commands.push_back(read<std::uint32_t>(at));
    switch (commands.back()) {
      case segment64:
        readSegment(at);
        break;
      case symbolTable:
        symbols = at;
        break;
      case loadLibrary:
        libraries.push_back(text(at + read<std::uint32_t>(at + 8), 1024));
        break;
      case identifier:
        uuid = read<std::array<std::uint8_t, 16>>(at + 8);
        break;
      case minimumPhone:
        minimumVersion = read<std::uint32_t>(at + 8);
        break;
      case linkerInformation:
        exportsSize = read<std::uint32_t>(at + 44);
        break;
      case codeSignature:
        readSignature(at);
        break;
      default:
        break;
    }
  }
  if (at != headerSize + read<std::uint32_t>(20)) throw std::runtime_error("the load commands have another size");
  if (symbols != 0) readSymbols(symbols);
}

void MachO::readSegment(std::uint64_t at) {
  Segment segment{text(at + 8, 16),
                  read<std::uint64_t>(at + 24),
                  read<std::uint64_t>(at + 32),
                  read<std::uint64_t>(at + 40),
                  read<std::uint64_t>(at + 48),
                  read<std::uint32_t>(at + 56),
                  read<std::uint32_t>(at + 60),
                  {}};
  const auto count = read<std::uint32_t>(at + 64);
  for (std::uint32_t index = 0; index < count; ++index) {
    const std::uint64_t place = at + segmentSize + sectionSize * index;
    segment.sections.push_back({text(place, 16), read<std::uint64_t>(place + 32), read<std::uint64_t>(place + 40),
                                read<std::uint32_t>(place + 48), read<std::uint32_t>(place + 52),
                                read<std::uint8_t>(place + 64)});
  }
  segments.push_back(std::move(segment));
}

void MachO::readSymbols(std::uint64_t at) {
  const auto table = read<std::uint32_t>(at + 8);
  const auto count = read<std::uint32_t>(at + 12);
  const auto names = read<std::uint32_t>(at + 16);
  for (std::uint32_t index = 0; index < count; ++index) {
    const std::uint64_t symbol = table + symbolSize * index;
    const std::string name = text(names + read<std::uint32_t>(symbol), 1024);
    constexpr std::uint8_t kindMask = 0x0E;
    constexpr std::size_t inAny = 0xFE;
    if ((read<std::uint8_t>(symbol + 4) & kindMask) != 0) {
      defined.push_back(name);
      continue;
    }
    const std::size_t library = read<std::uint8_t>(symbol + 7);
    imports[name] = library == inAny ? "-" : libraries.at(library - 1);
  }
}

void MachO::readSignature(std::uint64_t at) {
  signature = Range{read<std::uint32_t>(at + 8), read<std::uint32_t>(at + 12)};
  const std::uint64_t blob = signature->offset;
  if (big(blob) != superBlobMagic) throw std::runtime_error("no signature where the load command tells");
  for (std::uint64_t index = 0; index < big(blob + 8); ++index) {
    const std::uint64_t directory = blob + big(blob + 12 + 8 * index + 4);
    if (big(directory) != directoryMagic) continue;
    CodeDirectory read{static_cast<std::uint32_t>(big(directory + 12)), big(directory + 32), 0, {}};
    const std::uint64_t hashes = directory + big(directory + 16);
    const auto digestSize = this->read<std::uint8_t>(directory + 36);
    read.pageSize = std::uint64_t{1} << this->read<std::uint8_t>(directory + 39);
    for (std::uint64_t page = 0; page < big(directory + 28); ++page) {
      std::string digits;
      for (std::uint64_t byte = 0; byte < digestSize; ++byte) {
        constexpr const char* digit = "0123456789abcdef";
        const auto value = this->read<std::uint8_t>(hashes + page * digestSize + byte);
        digits += {digit[value >> 4U], digit[value & 0xFU]};
      }
      read.pages.push_back(digits);
    }
    codeDirectory = read;
  }
}

template <class Value>
Value MachO::read(std::uint64_t at) const {
  Value value{};
  if (at > content_.size() || sizeof value > content_.size() - at) throw std::runtime_error("outside the file");
  std::memcpy(&value, content_.data() + at, sizeof value);
  return value;
}

std::uint64_t MachO::big(std::uint64_t at) const { return __builtin_bswap32(read<std::uint32_t>(at)); }

std::string MachO::text(std::uint64_t at, std::uint64_t most) const {
  if (at > content_.size()) throw std::runtime_error("outside the file");
  const std::string part = content_.substr(at, most);
  return part.substr(0, part.find('\0'));
}

}  // namespace test
