#include "simulator/frameworks/core_foundation/darwin_notifications.hpp"

#include <set>
#include <utility>

#include "platform/dispatch.hpp"
#include "simulator/runtime/call_log.hpp"
#include "simulator/runtime/objc.hpp"

struct __CFNotificationCenter {};  // NOLINT(bugprone-reserved-identifier)

namespace sim {
namespace {

__CFNotificationCenter darwinCenter;

std::vector<DarwinObserver>& registered() {
  static std::vector<DarwinObserver> observers;
  return observers;
}

// The names whose observers are going to be called.
std::set<std::string>& pending() {
  static std::set<std::string> names;
  return names;
}

std::vector<std::string>& posts() {
  static std::vector<std::string> names;
  return names;
}

std::function<void(const std::string&)>& carrier() {
  static std::function<void(const std::string&)> carry = [](const std::string&) {};
  return carry;
}

std::string described(const void* pointer) { return pointer != nullptr ? "set" : "nil"; }

void callObservers(CFStringRef name) {
  const std::string posted = text(asId(name));
  // What an observer posts arrives on a turn of its own.
  pending().erase(posted);
  // An observer may register others.
  const auto observers = registered();
  for (const auto& observer : observers) {
    if (text(asId(observer.name)) != posted) continue;
    AutoreleasePool pool;
    // Only the name travels between processes.
    observer.callback(&darwinCenter, const_cast<void*>(observer.observer), name, nullptr, nullptr);
  }
}

/// Lets the observers be called on a later turn; posts of one name become one until then.
template <class Call>
void callLater(const std::string& name, Call call) {
  if (pending().insert(name).second) dispatch::onNextTurn(std::move(call));
}

}  // namespace

const std::vector<DarwinObserver>& darwinObservers() { return registered(); }

const std::vector<std::string>& darwinPosts() { return posts(); }

void setDarwinCarrier(std::function<void(const std::string& name)> carry) { carrier() = std::move(carry); }

void postDarwinNotification(const std::string& name) {
  posts().push_back(name);
  callLater(name, [own = Ref<objc_object>(ns(name))] { callObservers(reinterpret_cast<CFStringRef>(own.get())); });
}

}  // namespace sim

extern "C" {

CFNotificationCenterRef CFNotificationCenterGetDarwinNotifyCenter() { return &sim::darwinCenter; }

void CFNotificationCenterAddObserver(CFNotificationCenterRef, const void* observer, CFNotificationCallback callback,
                                     CFStringRef name, const void* object,
                                     CFNotificationSuspensionBehavior suspension) {
  const std::string observed = sim::text(asId(name));
  const auto behavior = static_cast<CFIndex>(suspension);
  sim::registered().push_back({name, observer, object, behavior, callback});
  sim::callLog().push_back({sim::Call::Kind::observe, "Darwin", observed,
                            "observer " + sim::described(observer) + ", object " + sim::described(object) +
                                ", suspension " + std::to_string(behavior)});
}

void CFNotificationCenterPostNotification(CFNotificationCenterRef, CFStringRef name, const void* object,
                                          const void* userInfo, std::uint8_t immediately) {
  const std::string posted = sim::text(asId(name));
  sim::posts().push_back(posted);
  sim::callLog().push_back({sim::Call::Kind::post, "Darwin", posted,
                            "object " + sim::described(object) + ", user info " + sim::described(userInfo) +
                                (immediately != 0 ? ", immediately" : "")});
  sim::carrier()(posted);
  // As it was given: a pending post keeps its name no more than an observer does.
  sim::callLater(posted, [name] { sim::callObservers(name); });
}
}
