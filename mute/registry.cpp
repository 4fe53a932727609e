#include "mute/registry_file.hpp"

namespace mute {

void createRegistryFile() {
  NSFileManager* files = NSFileManager::defaultManager();
  if (files->fileExists(registryFile())) return;
  constexpr int readableByAll = 0644;
  NSNumber* permissions = NSNumber::withInt(readableByAll);
  files->createFile(registryFile(), nullptr, NSDictionary::with(permissions, NSFilePosixPermissions));
  NSDictionary::with(NSArray::array(), "entries"_ns)->writeToFileAtomically(registryFile());
}

}  // namespace mute
