#include "simulator/runtime/library.hpp"

#include <dlfcn.h>
#include <elf.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <string_view>

#include "simulator/runtime/call_log.hpp"

namespace sim {
namespace {

double seconds = 0;

#ifdef __aarch64__
constexpr Elf64_Half ownMachine = EM_AARCH64;
#else
constexpr Elf64_Half ownMachine = EM_X86_64;
#endif

/// A file that is open as long as this value lives.
class OpenFile {
 public:
  explicit OpenFile(const std::string& path) : descriptor_(open(path.c_str(), O_RDONLY | O_CLOEXEC)) {}
  ~OpenFile() {
    if (descriptor_ >= 0) close(descriptor_);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  template <class Value>
  bool read(Value& value, std::uint64_t at) const {
    return pread(descriptor_, &value, sizeof value, static_cast<off_t>(at)) == sizeof value;
  }
  std::uint64_t size() const {
    struct stat status {};
    return fstat(descriptor_, &status) == 0 ? static_cast<std::uint64_t>(status.st_size) : 0;
  }

 private:
  int descriptor_;
};

bool isForPhone(const OpenFile& file) {
  std::uint32_t magic = 0;
  constexpr std::uint32_t one = 0xFEEDFACF;
  constexpr std::uint32_t several = 0xBEBAFECA;
  return file.read(magic, 0) && (magic == one || magic == several);
}

/// What the dynamic linker would stumble over, or only find when it is too late.
std::string faultOf(const OpenFile& file) {
  if (isForPhone(file)) return "it is an image for a phone's processor, not for this machine's";
  Elf64_Ehdr header{};
  if (!file.read(header, 0) || std::string_view(reinterpret_cast<const char*>(header.e_ident), SELFMAG) != ELFMAG ||
      header.e_ident[EI_CLASS] != ELFCLASS64 || header.e_machine != ownMachine) {
    return "it is no image";
  }
  const std::uint64_t size = file.size();
  bool dynamic = false;
  for (std::uint64_t index = 0; index < header.e_phnum; ++index) {
    Elf64_Phdr segment{};
    if (!file.read(segment, header.e_phoff + index * sizeof segment)) return "it is damaged";
    if (segment.p_offset > size || segment.p_filesz > size - segment.p_offset) return "it is damaged";
    dynamic = dynamic || segment.p_type == PT_DYNAMIC;
  }
  return dynamic ? "" : "it is damaged";
}

/// What the dynamic linker has to say, without the path.
std::string linkerFault(const std::string& path) {
  const std::string fault = dlerror();
  return fault.starts_with(path + ": ") ? fault.substr(path.size() + 2) : fault;
}

}  // namespace

std::string mapLibrary(const std::string& path) {
  if (std::string fault = faultOf(OpenFile(path)); !fault.empty()) return fault;
  setMappingLibrary(true);
  const auto start = std::chrono::steady_clock::now();
  const void* library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  seconds += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  setMappingLibrary(false);
  return library != nullptr ? "" : linkerFault(path);
}

double mappingSeconds() { return seconds; }

}  // namespace sim
