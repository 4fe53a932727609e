#include "simulator/device/archive.hpp"

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <memory>

#include "simulator/device/archive_reader.hpp"

namespace fs = std::filesystem;

namespace sim {
namespace {

struct Free {
  void operator()(archive* pointer) const { archive_free(pointer); }
};

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
void place(ArchiveReader& reader, archive_entry* entry, const fs::path& folder) {
  const fs::path path = reader.path();
  if (archive_entry_hardlink(entry) != nullptr) reader.refuse("is a hard link");
  const auto type = archive_entry_filetype(entry);
  if (type != S_IFREG && type != S_IFDIR && type != S_IFLNK) reader.refuse("is no file, folder or symbolic link");
  if (type == S_IFLNK && !staysInside(path, archive_entry_symlink(entry)))
    reader.refuse("links out of its application");
  archive_entry_set_pathname(entry, (folder / path).c_str());
  // The application has to stay readable and removable, whatever the archive says.
  archive_entry_set_perm(entry, (archive_entry_perm(entry) & 0777) | (type == S_IFDIR ? 0755 : 0644));
}

}  // namespace

void unpack(const fs::path& file, const fs::path& folder) {
  ArchiveReader reader(file, ArchiveReader::Form::zip);
  const std::unique_ptr<archive, Free> writer(archive_write_disk_new());
  // The folder itself is ours and absolute; the entries' own paths are checked before it is put before them.
  archive_write_disk_set_options(writer.get(), ARCHIVE_EXTRACT_PERM | ARCHIVE_EXTRACT_SECURE_SYMLINKS |
                                                   ARCHIVE_EXTRACT_SECURE_NODOTDOT | ARCHIVE_EXTRACT_UNLINK);
  while (archive_entry* entry = reader.next()) {
    place(reader, entry, folder);
    reader.copyTo(writer.get());
  }
  reader.check(writer.get(), archive_write_close(writer.get()));
}

}  // namespace sim
