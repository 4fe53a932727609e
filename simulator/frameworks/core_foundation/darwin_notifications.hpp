// Notifications between processes, by name alone.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/CoreFoundation.hpp"

namespace sim {

/// An observer as it was registered. The center takes its name for a constant: it neither retains nor copies it.
struct DarwinObserver {
  CFStringRef name;
  const void* observer;
  const void* object;
  CFIndex suspension;
  CFNotificationCallback callback;
};

/// The observers in the order of their registration.
const std::vector<DarwinObserver>& darwinObservers();
/// Another process posts a notification: on a later turn the observers of that name are called in the order of their
/// registration. Posts of a name that is on its way already add nothing.
void postDarwinNotification(const std::string& name);
/// Supplies what tells the other processes of this one's posts. Until then nothing does.
void setDarwinCarrier(std::function<void(const std::string& name)> carry);
/// The names posted since the process began, by whomever, in their order.
const std::vector<std::string>& darwinPosts();

}  // namespace sim
