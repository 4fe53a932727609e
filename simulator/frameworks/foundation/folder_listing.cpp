#include "simulator/frameworks/foundation/folder_listing.hpp"

#include <dirent.h>
#include <fts.h>

#include <cerrno>
#include <memory>
#include <string_view>
#include <utility>

#include "simulator/frameworks/foundation/file_names.hpp"
#include "simulator/runtime/encoding.hpp"
#include "simulator/runtime/objc.hpp"

namespace sim {
namespace {

// Foundation's codes for what cannot be read.
enum class ReadError : NSInteger { unknown = 256, noPermission = 257, noSuchFile = 260 };

ReadError readError(int error) {
  switch (error) {
    case ENOENT:
      return ReadError::noSuchFile;
    case EACCES:
      return ReadError::noPermission;
    default:
      return ReadError::unknown;
  }
}

id cocoaError(ReadError code, id path) {
  id details = send<id>("NSDictionary"_cls, "dictionaryWithObject:forKey:"_sel, path, ns("NSFilePath"));
  return send<id>("NSError"_cls, "errorWithDomain:code:userInfo:"_sel, ns("NSCocoaErrorDomain"), code, details);
}

// What keeps the first entry of a walk from being the folder to list; 0 when nothing does.
int obstacle(const FTSENT* first) {
  if (first == nullptr) return errno;
  if (first->fts_info == FTS_D) return 0;
  return first->fts_errno != 0 ? first->fts_errno : ENOTDIR;
}

// A listing is an array of names.
void addName(id listing, const char* name) { send(listing, "addObject:"_sel, textOfPath(name).get()); }

id listingOrError(Ref<objc_object> listing, int failure, id path, id* error) {
  if (failure == 0) return autoreleased(std::move(listing));
  if (error != nullptr) *error = cocoaError(readError(failure), path);
  return nullptr;
}

id contentsOfDirectory(id, SEL, id path, id* error) {
  const std::unique_ptr<DIR, decltype(&closedir)> folder(opendir(bytesOfPath(path).c_str()), &closedir);
  const int failure = folder ? 0 : errno;
  auto found = make("NSMutableArray"_cls);
  while (const dirent* entry = folder ? readdir(folder.get()) : nullptr) {
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") addName(found, entry->d_name);
  }
  return listingOrError(found, failure, path, error);
}

id subpathsOfDirectory(id, SEL, id path, id* error) {
  const std::string folder = bytesOfPath(path);
  char* const roots[] = {const_cast<char*>(folder.c_str()), nullptr};
  // Links below the folder are listed, not followed; only the folder itself may be one.
  const std::unique_ptr<FTS, decltype(&fts_close)> walk(
      fts_open(roots, FTS_PHYSICAL | FTS_COMFOLLOW | FTS_NOCHDIR, nullptr), &fts_close);
  const FTSENT* entry = walk ? fts_read(walk.get()) : nullptr;
  int failure = obstacle(entry);
  const auto root = entry != nullptr ? entry->fts_pathlen : 0;
  auto found = make("NSMutableArray"_cls);
  while (failure == 0 && (entry = fts_read(walk.get())) != nullptr) {
    if (entry->fts_info == FTS_DNR && entry->fts_level == FTS_ROOTLEVEL) failure = entry->fts_errno;
    // A folder has come before what it holds; here it comes again, left or found closed.
    if (entry->fts_info == FTS_DP || entry->fts_info == FTS_DNR) continue;
    const char* relative = entry->fts_path + root;
    while (*relative == '/') ++relative;
    addName(found, relative);
  }
  return listingOrError(found, failure, path, error);
}

}  // namespace

void installFolderListing() {
  const std::string encoding = methodEncoding<id, id, id*>();
  class_replaceMethod("NSFileManager"_cls, "contentsOfDirectoryAtPath:error:"_sel,
                      reinterpret_cast<IMP>(&contentsOfDirectory), encoding.c_str());
  class_replaceMethod("NSFileManager"_cls, "subpathsOfDirectoryAtPath:error:"_sel,
                      reinterpret_cast<IMP>(&subpathsOfDirectory), encoding.c_str());
}

}  // namespace sim
