#include "tests/support/archive.hpp"

#include <archive.h>
#include <archive_entry.h>
#include <locale.h>

#include <stdexcept>

namespace test {

void writeArchive(const std::filesystem::path& file, const std::map<std::string, std::string>& files, bool marksNames) {
  // The library marks names as text where the locale says so.
  const locale_t chosen = newlocale(LC_CTYPE_MASK, marksNames ? "C.UTF-8" : "C", nullptr);
  const locale_t before = uselocale(chosen);
  archive* writer = archive_write_new();
  archive_write_set_format_zip(writer);
  int result = archive_write_open_filename(writer, file.c_str());
  for (const auto& [path, content] : files) {
    archive_entry* entry = archive_entry_new();
    archive_entry_set_pathname(entry, path.c_str());
    archive_entry_set_filetype(entry, AE_IFREG);
    archive_entry_set_perm(entry, 0644);
    archive_entry_set_size(entry, static_cast<la_int64_t>(content.size()));
    if (archive_write_header(writer, entry) != ARCHIVE_OK ||
        archive_write_data(writer, content.data(), content.size()) != static_cast<la_ssize_t>(content.size()))
      result = ARCHIVE_FATAL;
    archive_entry_free(entry);
  }
  if (archive_write_close(writer) != ARCHIVE_OK) result = ARCHIVE_FATAL;
  archive_write_free(writer);
  uselocale(before);
  freelocale(chosen);
  if (result != ARCHIVE_OK) throw std::runtime_error("cannot write " + file.string());
}

}  // namespace test
