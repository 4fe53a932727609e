#include "simulator/device/archive_reader.hpp"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <utility>

#include "simulator/device/error.hpp"

namespace fs = std::filesystem;

namespace sim {
namespace {

archive* readerOf(ArchiveReader::Form form) {
  archive* reader = archive_read_new();
  switch (form) {
    case ArchiveReader::Form::zip:
      archive_read_support_format_zip(reader);
      break;
    case ArchiveReader::Form::ar:
      archive_read_support_format_ar(reader);
      break;
    case ArchiveReader::Form::tar:
      archive_read_support_format_tar(reader);
      archive_read_support_filter_gzip(reader);
      archive_read_support_filter_xz(reader);
      break;
  }
  return reader;
}

}  // namespace

ArchiveReader::ArchiveReader(const fs::path& file, Form form) : file_(file), reader_(readerOf(form)) {
  check(reader_.get(), archive_read_open_filename(reader_.get(), file.c_str(), 1 << 16));
}

ArchiveReader::ArchiveReader(std::string content, fs::path file, Form form)
    : file_(std::move(file)), memory_(std::move(content)), reader_(readerOf(form)) {
  check(reader_.get(), archive_read_open_memory(reader_.get(), memory_.data(), memory_.size()));
}

ArchiveReader::~ArchiveReader() = default;

archive_entry* ArchiveReader::next() {
  const int result = archive_read_next_header(reader_.get(), &entry_);
  if (result == ARCHIVE_EOF) return entry_ = nullptr;
  check(reader_.get(), result);
  return entry_;
}

fs::path ArchiveReader::path() {
  const char* name = archive_entry_pathname(entry_);
  if (name == nullptr) throw BadInput("cannot unpack " + file_.string() + ": an entry without a name");
  // A phone's file system takes no other names.
  if (mbstowcs(nullptr, name, 0) == static_cast<std::size_t>(-1)) {
    throw BadInput("cannot unpack " + file_.string() + ": an entry whose name is no text");
  }
  fs::path path = fs::path(name).lexically_normal();
  if (path.is_absolute()) refuse("is an absolute path");
  for (const fs::path& part : fs::path(name)) {
    if (part == "..") refuse("leads out of the archive");
  }
  return path;
}

void ArchiveReader::copyTo(archive* writer) {
  check(writer, archive_write_header(writer, entry_));
  const void* block = nullptr;
  std::size_t size = 0;
  la_int64_t offset = 0;
  int result = ARCHIVE_OK;
  while ((result = archive_read_data_block(reader_.get(), &block, &size, &offset)) != ARCHIVE_EOF) {
    check(reader_.get(), result);
    check(writer, archive_write_data_block(writer, block, size, offset));
  }
  check(writer, archive_write_finish_entry(writer));
}

std::string ArchiveReader::content() {
  constexpr std::int64_t mostAtOnce = 1 << 24;
  std::string all;
  all.reserve(static_cast<std::size_t>(std::clamp<std::int64_t>(archive_entry_size(entry_), 0, mostAtOnce)));
  char block[1 << 16];
  la_ssize_t size = 0;
  while ((size = archive_read_data(reader_.get(), block, sizeof block)) > 0)
    all.append(block, static_cast<std::size_t>(size));
  check(reader_.get(), size);
  return all;
}

void ArchiveReader::check(archive* pointer, la_ssize_t result) const {
  // A warning while unpacking means that something of the entry was left out.
  if (result < ARCHIVE_OK) {
    const char* reason = archive_error_string(pointer);
    throw BadInput("cannot unpack " + file_.string() + ": " + (reason != nullptr ? reason : "not such an archive"));
  }
}

void ArchiveReader::refuse(const std::string& reason) const {
  const char* name = archive_entry_pathname(entry_);
  throw BadInput("cannot unpack " + file_.string() + ": \"" + (name != nullptr ? name : "") + "\" " + reason);
}

}  // namespace sim
