#include "simulator/frameworks/foundation/subpaths.hpp"

#include <fts.h>

#include <cerrno>
#include <memory>

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

id subpathsOfDirectory(id, SEL, id path, id* error) {
  const std::string folder = text(path);
  char* const roots[] = {const_cast<char*>(folder.c_str()), nullptr};
  // Links below the folder are listed, not followed; only the folder itself may be one.
  const std::unique_ptr<FTS, decltype(&fts_close)> walk(
      fts_open(roots, FTS_PHYSICAL | FTS_COMFOLLOW | FTS_NOCHDIR, nullptr), &fts_close);
  const FTSENT* entry = walk ? fts_read(walk.get()) : nullptr;
  int failure = obstacle(entry);
  const auto root = entry != nullptr ? entry->fts_pathlen : 0;
  // The names are owned here, not autoreleased: a large folder leaves nothing behind but the array.
  auto found = make("NSMutableArray"_cls);
  while (failure == 0 && (entry = fts_read(walk.get())) != nullptr) {
    if (entry->fts_info == FTS_DNR && entry->fts_level == FTS_ROOTLEVEL) failure = entry->fts_errno;
    // A folder has come before what it holds; here it comes again, left or found closed.
    if (entry->fts_info == FTS_DP || entry->fts_info == FTS_DNR) continue;
    const char* relative = entry->fts_path + root;
    while (*relative == '/') ++relative;
    const auto name =
        Ref<objc_object>::adopt(send<id>(send<id>("NSString"_cls, "alloc"_sel), "initWithUTF8String:"_sel, relative));
    if (name != nullptr) send(found.get(), "addObject:"_sel, name.get());
  }
  if (failure == 0) return autoreleased(found);
  if (error != nullptr) *error = cocoaError(readError(failure), path);
  return nullptr;
}

}  // namespace

void installSubpaths() {
  class_replaceMethod("NSFileManager"_cls, "subpathsOfDirectoryAtPath:error:"_sel,
                      reinterpret_cast<IMP>(&subpathsOfDirectory), methodEncoding<id, id, id*>().c_str());
}

}  // namespace sim
