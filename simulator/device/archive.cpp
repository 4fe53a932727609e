#include "simulator/device/archive.hpp"

#include <archive.h>
#include <archive_entry.h>
#include <locale.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <memory>
#include <string>

#include "simulator/device/error.hpp"

namespace fs = std::filesystem;

namespace sim {
namespace {

struct Free {
  void operator()(archive* pointer) const { archive_free(pointer); }
};
using Archive = std::unique_ptr<archive, Free>;

/// The names in archives are text in UTF-8, as on a phone, whatever the locale of whoever started the program.
class TextNames {
 public:
  TextNames() : utf8_(newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr)), before_(uselocale(utf8_)) {}
  ~TextNames() {
    uselocale(before_);
    freelocale(utf8_);
  }
  TextNames(const TextNames&) = delete;
  TextNames& operator=(const TextNames&) = delete;

 private:
  locale_t utf8_, before_;
};

void check(archive* pointer, int result, const fs::path& file) {
  // A warning while unpacking means that something of the entry was left out.
  if (result < ARCHIVE_OK) {
    const char* reason = archive_error_string(pointer);
    throw BadInput("cannot unpack " + file.string() + ": " + (reason != nullptr ? reason : "not a zip archive"));
  }
}

/// Whether a symbolic link at `place` (relative to the archive's top) stays in its application, Payload/NAME.app,
/// which is all that is going to be moved to its own place.
bool staysInside(const fs::path& place, const fs::path& target) {
  if (target.is_absolute()) return false;
  // ".." behind a name that is a link itself would lead elsewhere than the text says.
  const auto name = std::find_if(target.begin(), target.end(), [](const fs::path& part) { return part != ".."; });
  if (std::find(name, target.end(), "..") != target.end()) return false;
  const auto depth = std::distance(place.begin(), place.end());
  return depth > 2 && std::distance(target.begin(), name) <= depth - 3;
}

/// Refuses what has no place in an application, and gives the entry its place below `folder`.
void place(archive_entry* entry, const fs::path& folder, const fs::path& archive) {
  const char* name = archive_entry_pathname(entry);
  if (name == nullptr) throw BadInput("cannot unpack " + archive.string() + ": an entry without a name");
  // A phone's file system takes no other names.
  if (mbstowcs(nullptr, name, 0) == static_cast<std::size_t>(-1)) {
    throw BadInput("cannot unpack " + archive.string() + ": an entry whose name is no text");
  }
  const fs::path path = fs::path(name).lexically_normal();
  const auto refuse = [&](const std::string& reason) {
    throw BadInput("cannot unpack " + archive.string() + ": \"" + path.string() + "\" " + reason);
  };
  if (path.is_absolute()) refuse("is an absolute path");
  for (const fs::path& part : fs::path(name)) {
    if (part == "..") refuse("leads out of the archive");
  }
  if (archive_entry_hardlink(entry) != nullptr) refuse("is a hard link");
  const auto type = archive_entry_filetype(entry);
  if (type != S_IFREG && type != S_IFDIR && type != S_IFLNK) refuse("is no file, folder or symbolic link");
  if (type == S_IFLNK && !staysInside(path, archive_entry_symlink(entry))) refuse("links out of its application");
  archive_entry_set_pathname(entry, (folder / path).c_str());
  // The application has to stay readable and removable, whatever the archive says.
  archive_entry_set_perm(entry, (archive_entry_perm(entry) & 0777) | (type == S_IFDIR ? 0755 : 0644));
}

}  // namespace

void unpack(const fs::path& file, const fs::path& folder) {
  const TextNames names;
  const Archive reader(archive_read_new());
  archive_read_support_format_zip(reader.get());
  check(reader.get(), archive_read_open_filename(reader.get(), file.c_str(), 1 << 16), file);

  const Archive writer(archive_write_disk_new());
  // The folder itself is ours and absolute; the entries' own paths are checked before it is put before them.
  archive_write_disk_set_options(writer.get(), ARCHIVE_EXTRACT_PERM | ARCHIVE_EXTRACT_SECURE_SYMLINKS |
                                                   ARCHIVE_EXTRACT_SECURE_NODOTDOT | ARCHIVE_EXTRACT_UNLINK);
  archive_entry* entry = nullptr;
  for (int result = 0; (result = archive_read_next_header(reader.get(), &entry)) != ARCHIVE_EOF;) {
    check(reader.get(), result, file);
    place(entry, folder, file);
    check(writer.get(), archive_write_header(writer.get(), entry), file);
    const void* block = nullptr;
    std::size_t size = 0;
    la_int64_t offset = 0;
    while ((result = archive_read_data_block(reader.get(), &block, &size, &offset)) != ARCHIVE_EOF) {
      check(reader.get(), result, file);
      check(writer.get(),
            static_cast<int>(
                std::min<la_ssize_t>(archive_write_data_block(writer.get(), block, size, offset), ARCHIVE_OK)),
            file);
    }
    check(writer.get(), archive_write_finish_entry(writer.get()), file);
  }
  check(writer.get(), archive_write_close(writer.get()), file);
}

}  // namespace sim
