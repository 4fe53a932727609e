#include "simulator/frameworks/foundation/property_list.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string_view>

#include "simulator/frameworks/foundation/file_names.hpp"
#include "simulator/runtime/encoding.hpp"

namespace sim {
namespace {

/// Thrown when an object has no place in a property list.
struct NotAPropertyList {};

// Writes the elements of a property list, each on lines of its own, indented by tabs.
class XMLWriter {
 public:
  void write(id object) {
    if (isKind(object, "NSString"_cls)) {
      element("string", escaped(object));
    } else if (isKind(object, "NSNumber"_cls)) {
      number(object);
    } else if (isKind(object, "NSDictionary"_cls)) {
      dictionary(object);
    } else if (isKind(object, "NSArray"_cls)) {
      list(object);
    } else if (isKind(object, "NSDate"_cls)) {
      date(object);
    } else if (isKind(object, "NSData"_cls)) {
      data(object);
    } else {
      throw NotAPropertyList();
    }
  }
  const std::string& xml() const { return xml_; }

 private:
  void line(const std::string& content) { xml_ += std::string(depth_, '\t') + content + "\n"; }

  void element(const std::string& tag, const std::string& content) {
    line("<" + tag + ">" + content + "</" + tag + ">");
  }

  static std::string escaped(id string) {
    constexpr NSUInteger utf8 = 4;
    id bytes = send<id>(string, "dataUsingEncoding:"_sel, utf8);
    if (bytes == nullptr) throw NotAPropertyList();
    std::string result;
    for (const char c : std::string_view(send<const char*>(bytes, "bytes"_sel), send<NSUInteger>(bytes, "length"_sel)))
      if (c == '&') result += "&amp;";
      else if (c == '<') result += "&lt;";
      else if (c == '>') result += "&gt;";
      else result += c;
    return result;
  }

  void number(id object) {
    if (isKind(object, "NSBoolNumber"_cls)) return line(send<BOOL>(object, "boolValue"_sel) ? "<true/>" : "<false/>");
    const char type = *send<const char*>(object, "objCType"_sel);
    if (type == 'f' || type == 'd') {
      element("real", real(send<double>(object, "doubleValue"_sel)));
    } else if (type == 'Q') {
      element("integer", std::to_string(send<unsigned long long>(object, "unsignedLongLongValue"_sel)));
    } else {
      element("integer", std::to_string(send<long long>(object, "longLongValue"_sel)));
    }
  }

  static std::string real(double value) {
    if (std::isnan(value)) return "nan";
    if (std::isinf(value)) return value > 0 ? "+infinity" : "-infinity";
    if (value == 0) return "0.0";
    char digits[32];
    std::snprintf(digits, sizeof digits, "%.17g", value);
    return digits;
  }

  void dictionary(id object) {
    auto keys = elements(send<id>(object, "allKeys"_sel));
    if (keys.empty()) return line("<dict/>");
    for (id key : keys)
      if (!isKind(key, "NSString"_cls)) throw NotAPropertyList();
    std::sort(keys.begin(), keys.end(), [](id a, id b) {
      constexpr NSUInteger literally = 2;
      return send<NSInteger>(a, "compare:options:"_sel, b, literally) < 0;
    });
    line("<dict>");
    ++depth_;
    for (id key : keys) {
      element("key", escaped(key));
      write(send<id>(object, "objectForKey:"_sel, key));
    }
    --depth_;
    line("</dict>");
  }

  void list(id object) {
    const auto members = elements(object);
    if (members.empty()) return line("<array/>");
    line("<array>");
    ++depth_;
    for (id member : members) write(member);
    --depth_;
    line("</array>");
  }

  void date(id object) {
    const auto seconds = static_cast<time_t>(std::floor(send<double>(object, "timeIntervalSince1970"_sel)));
    tm utc{};
    gmtime_r(&seconds, &utc);
    char written[64];
    std::strftime(written, sizeof written, "%Y-%m-%dT%H:%M:%SZ", &utc);
    element("date", written);
  }

  // The lines of Base64 get shorter the deeper they are indented, a tab counting as eight columns.
  void data(id object) {
    constexpr NSUInteger onOneLine = 0;
    const std::string encoded = text(send<id>(object, "base64EncodedStringWithOptions:"_sel, onOneLine));
    const std::size_t width = 76 - 8 * std::min<std::size_t>(depth_, 8);
    line("<data>");
    for (std::size_t i = 0; i < encoded.size(); i += width) line(encoded.substr(i, width));
    line("</data>");
  }

  std::string xml_;
  std::size_t depth_ = 0;
};

bool writeAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(file, bytes.data(), bytes.size());
    if (written < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

bool writeInPlace(const std::string& path, const std::string& bytes) {
  const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (file < 0) return false;
  const bool written = writeAll(file, bytes);
  return ::close(file) == 0 && written;
}

// A file that is there already keeps its own.
mode_t permissionsFor(const std::string& path, mode_t ofNewFile) {
  struct stat existing {};
  if (::stat(path.c_str(), &existing) == 0) return existing.st_mode & 07777;
  const mode_t mask = ::umask(0);
  ::umask(mask);
  return ofNewFile & ~mask;
}

bool writeAndRename(const std::string& path, std::string_view bytes, mode_t ofNewFile) {
  const auto slash = path.rfind('/');
  std::string temporary = (slash != std::string::npos ? path.substr(0, slash + 1) : "") + ".dat.nosyncXXXXXX";
  const int file = ::mkostemp(temporary.data(), O_CLOEXEC);
  if (file < 0) return false;
  const bool written = writeAll(file, bytes) && ::fchmod(file, permissionsFor(path, ofNewFile)) == 0;
  if (::close(file) == 0 && written && ::rename(temporary.c_str(), path.c_str()) == 0) return true;
  ::unlink(temporary.c_str());
  return false;
}

BOOL writeToFile(id self, SEL, id path, BOOL atomically) {
  AutoreleasePool pool;
  const auto xml = xmlPropertyList(self);
  return path != nullptr && xml &&
         (atomically ? writeAndRename(bytesOfPath(path), *xml, 0666) : writeInPlace(bytesOfPath(path), *xml));
}

}  // namespace

std::optional<std::string> xmlPropertyList(id object) try {
  XMLWriter writer;
  writer.write(object);
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
         "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
         "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
         "<plist version=\"1.0\">\n" +
         writer.xml() + "</plist>\n";
} catch (const NotAPropertyList&) {
  return std::nullopt;
}

bool writeBinaryPropertyList(id object, const std::string& path) {
  constexpr NSUInteger binaryFormat = 200;
  const AutoreleasePool pool;
  id bytes = send<id>("NSPropertyListSerialization"_cls, "dataFromPropertyList:format:errorDescription:"_sel, object,
                      binaryFormat, static_cast<id*>(nullptr));
  return bytes != nullptr &&
         writeAndRename(path, {send<const char*>(bytes, "bytes"_sel), send<NSUInteger>(bytes, "length"_sel)}, 0600);
}

void installPropertyListWriting() {
  for (Class cls : {"NSDictionary"_cls, "NSArray"_cls})
    class_replaceMethod(cls, "writeToFile:atomically:"_sel, reinterpret_cast<IMP>(&writeToFile),
                        methodEncoding<BOOL, id, BOOL>().c_str());
}

}  // namespace sim
