#include "appdata/archiver.hpp"

bool runArchiver(NSString* folder, NSArray* arguments) {
  // A task that cannot be launched raises, and would take the home screen with it.
  const NSFileManager* files = NSFileManager::defaultManager();
  if (!files->isExecutableFile("/usr/bin/tar"_ns) || files->isDirectory("/usr/bin/tar"_ns) ||
      !files->isExecutableFile(folder) || !files->isDirectory(folder))
    return false;
  NSTask* task = NSTask::make();
  task->setCurrentDirectoryPath(folder);
  task->setLaunchPath("/usr/bin/tar"_ns);
  task->setArguments(arguments);
  task->launch();
  task->waitUntilExit();
  return true;
}
