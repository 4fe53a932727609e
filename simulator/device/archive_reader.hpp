// Reading archives of several forms, entry by entry.
#pragma once

#include <archive.h>
#include <archive_entry.h>
#include <locale.h>

#include <filesystem>
#include <memory>
#include <string>

namespace sim {

/// One archive, from its first entry to its last. What cannot be read, or would be unpacked to a place outside, throws
/// `BadInput`, which names the file.
class ArchiveReader {
 public:
  enum class Form {
    zip,
    ar,
    tar,  ///< as it is, or compressed
  };
  /// Reads a file.
  ArchiveReader(const std::filesystem::path& file, Form form);
  /// Reads what is in memory, part of that file.
  ArchiveReader(std::string content, std::filesystem::path file, Form form);
  ~ArchiveReader();
  ArchiveReader(const ArchiveReader&) = delete;
  ArchiveReader& operator=(const ArchiveReader&) = delete;

  /// The next entry, as long as it is the latest; null after the last.
  archive_entry* next();
  /// Where the latest entry is to go, below the folder that the archive is unpacked to: refuses absolute paths, "..",
  /// and names that a phone's file system does not take.
  std::filesystem::path path();
  /// Copies the latest entry to a writer of the same library.
  void copyTo(archive* writer);
  /// The whole content of the latest entry.
  std::string content();
  /// Throws unless the call of the library's has ended well.
  void check(archive* pointer, la_ssize_t result) const;
  /// Refuses the latest entry.
  [[noreturn]] void refuse(const std::string& reason) const;

 private:
  struct Free {
    void operator()(archive* pointer) const { archive_free(pointer); }
  };
  /// The names in archives are text in UTF-8, as on a phone, whatever the locale of whoever started the program.
  class TextNames {
   public:
    TextNames() : before_(uselocale(utf8())) {}
    ~TextNames() { uselocale(before_); }
    TextNames(const TextNames&) = delete;
    TextNames& operator=(const TextNames&) = delete;

   private:
    /// Kept, since it takes its time to come.
    static locale_t utf8() {
      static const locale_t kept = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
      return kept;
    }
    locale_t before_;
  };

  TextNames names_;
  std::filesystem::path file_;
  std::string memory_;
  std::unique_ptr<archive, Free> reader_;
  archive_entry* entry_ = nullptr;
};

}  // namespace sim
