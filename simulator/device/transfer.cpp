#include "simulator/device/transfer.hpp"

#include "simulator/device/error.hpp"
#include "simulator/device/files.hpp"

namespace fs = std::filesystem;

namespace sim {

void putOnDevice(const Device& device, const fs::path& from, const fs::path& onDevice) {
  if (!fs::exists(from)) throw BadInput("no such file or folder: " + from.string());
  const fs::path source = fs::canonical(from);
  fs::path target = device.resolve(onDevice);
  if (fs::is_directory(target)) target /= source.filename();
  else if (!onDevice.has_filename()) throw BadInput("no such folder: " + onDevice.string());
  if (!fs::is_directory(target.parent_path())) throw BadInput("no such folder: " + onDevice.parent_path().string());
  if (fs::is_directory(target)) throw BadInput("there is a folder of that name already: " + onDevice.string());
  if (!fs::relative(device.root(), source).string().starts_with("..")) {
    throw BadInput("the device is in it: " + from.string());
  }
  // Beside its place, so that it only has to be renamed when it is whole.
  const TemporaryFolder copied(target.parent_path());
  const fs::path copy = copied.path() / target.filename();
  fs::copy(source, copy, fs::copy_options::recursive | fs::copy_options::copy_symlinks);
  fs::rename(copy, target);
}

}  // namespace sim
