#include "simulator/frameworks/foundation/file_names.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <string_view>

#include "simulator/runtime/encoding.hpp"

namespace sim {
namespace {

constexpr std::size_t longestCharacter = 4;
constexpr NSUInteger utf8 = 4;
constexpr unsigned char firstBeyondASCII = 0x80;

// Owned by the caller; nil when the bytes are no text.
Ref<objc_object> textOf(std::string_view bytes) {
  return Ref<objc_object>::adopt(send<id>(send<id>("NSString"_cls, "alloc"_sel), "initWithBytes:length:encoding:"_sel,
                                          static_cast<const void*>(bytes.data()), NSUInteger{bytes.size()}, utf8));
}

// How many bytes the first character has; 0 when the first byte belongs to none.
std::size_t firstCharacter(std::string_view bytes) {
  for (std::size_t length = 1; length <= std::min(longestCharacter, bytes.size()); ++length)
    if (textOf(bytes.substr(0, length)) != nullptr) return length;
  return 0;
}

std::string escaped(std::string_view bytes) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string result;
  while (!bytes.empty()) {
    const std::size_t length = firstCharacter(bytes);
    const auto byte = static_cast<unsigned char>(bytes.front());
    if (length == 0) result += {'%', digits[byte >> 4], digits[byte & 15]};
    else result += bytes.substr(0, length);
    bytes.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return result;
}

std::string unescaped(std::string_view name) {
  std::string result;
  for (std::size_t place = 0; place < name.size(); ++place) {
    unsigned char byte = 0;
    const char* digits = name.data() + place + 1;
    const bool escape = name[place] == '%' && place + 2 < name.size() &&
                        std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2 && byte >= firstBeyondASCII;
    result += escape ? static_cast<char>(byte) : name[place];
    if (escape) place += 2;
  }
  return result;
}

bool exists(const std::string& path) { return faccessat(AT_FDCWD, path.c_str(), F_OK, AT_SYMLINK_NOFOLLOW) == 0; }

const char* representation(id, SEL, id path) {
  const char* asWritten = send<const char*>(path, "UTF8String"_sel);
  if (asWritten == nullptr || std::string_view(asWritten).find('%') == std::string_view::npos) return asWritten;
  const std::string bytes = bytesOfPath(path);
  id kept = send<id>("NSData"_cls, "dataWithBytes:length:"_sel, static_cast<const void*>(bytes.c_str()),
                     NSUInteger{bytes.size() + 1});
  return send<const char*>(kept, "bytes"_sel);
}

id stringFrom(id, SEL, const char* path, NSUInteger length) { return autoreleased(textOfPath({path, length})); }

}  // namespace

Ref<objc_object> textOfPath(std::string_view path) {
  auto found = textOf(path);
  return found != nullptr ? found : textOf(escaped(path));
}

std::string bytesOfPath(id path) {
  std::string written = text(path);
  if (written.find('%') == std::string::npos) return written;
  std::string bytes;
  for (std::size_t start = 0; start <= written.size();) {
    const std::size_t end = std::min(written.find('/', start), written.size());
    const std::string name = written.substr(start, end - start);
    const std::string raw = bytes + unescaped(name);
    bytes = !exists(bytes + name) && exists(raw) ? raw : bytes + name;
    if (end < written.size()) bytes += '/';
    start = end + 1;
  }
  return bytes;
}

void installFileNames() {
  class_replaceMethod("NSFileManager"_cls, "fileSystemRepresentationWithPath:"_sel,
                      reinterpret_cast<IMP>(&representation), methodEncoding<const char*, id>().c_str());
  class_replaceMethod("NSFileManager"_cls, "stringWithFileSystemRepresentation:length:"_sel,
                      reinterpret_cast<IMP>(&stringFrom), methodEncoding<id, const char*, NSUInteger>().c_str());
}

}  // namespace sim
