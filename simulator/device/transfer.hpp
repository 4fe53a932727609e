// Putting things of this machine onto a device.
#pragma once

#include <filesystem>

#include "simulator/device/device.hpp"

namespace sim {

/// Copies a file or folder, with all that is in it, to a path of the device: into the folder that is there, else under
/// that name, in place of a file of that name. Throws `BadInput`; the device is unchanged then.
void putOnDevice(const Device& device, const std::filesystem::path& from, const std::filesystem::path& onDevice);

}  // namespace sim
