#include "simulator/frameworks/foundation/delayed_messages.hpp"

#include <algorithm>
#include <cmath>
#include <list>

#include "platform/dispatch.hpp"
#include "simulator/runtime/encoding.hpp"
#include "simulator/runtime/objc.hpp"

namespace sim {
namespace {

/// A message on its way. Its receiver and its argument are kept until it arrives or is cancelled.
struct Message {
  Ref<objc_object> receiver;
  SEL selector;
  Ref<objc_object> argument;
  std::uint64_t number;
};

std::list<Message>& onTheirWay() {
  static std::list<Message> messages;
  return messages;
}

void deliver(std::uint64_t number) {
  auto& messages = onTheirWay();
  const auto found = std::find_if(messages.begin(), messages.end(), [&](const auto& m) { return m.number == number; });
  if (found == messages.end()) return;
  const Message message = *found;
  messages.erase(found);
  send<id>(message.receiver, message.selector, message.argument.get());
}

void performAfterDelay(id self, SEL, SEL selector, id argument, double seconds) {
  static std::uint64_t numbers = 0;
  onTheirWay().push_back({self, selector, argument, ++numbers});
  dispatch::afterOnMain(std::llround(std::max(seconds, 0.0) * 1e9), [number = numbers] { deliver(number); });
}

void performAfterDelayInModes(id self, SEL, SEL selector, id argument, double seconds, id) {
  performAfterDelay(self, nullptr, selector, argument, seconds);
}

void cancelAll(Class, SEL, id receiver) {
  std::erase_if(onTheirWay(), [&](const Message& message) { return message.receiver.get() == receiver; });
}

void cancel(Class, SEL, id receiver, SEL selector, id argument) {
  std::erase_if(onTheirWay(), [&](const Message& message) {
    return message.receiver.get() == receiver && isNamed(message.selector, selector) &&
           (message.argument.get() == argument || send<BOOL>(argument, "isEqual:"_sel, message.argument.get()));
  });
}

}  // namespace

void installDelayedMessages() {
  Class root = "NSObject"_cls;
  Class metaclass = object_getClass(reinterpret_cast<id>(root));
  const auto replace = [](Class cls, SEL selector, auto* function, const std::string& encoding) {
    class_replaceMethod(cls, selector, reinterpret_cast<IMP>(function), encoding.c_str());
  };
  replace(root, "performSelector:withObject:afterDelay:"_sel, &performAfterDelay,
          methodEncoding<void, SEL, id, double>());
  replace(root, "performSelector:withObject:afterDelay:inModes:"_sel, &performAfterDelayInModes,
          methodEncoding<void, SEL, id, double, id>());
  replace(metaclass, "cancelPreviousPerformRequestsWithTarget:"_sel, &cancelAll, methodEncoding<void, id>());
  replace(metaclass, "cancelPreviousPerformRequestsWithTarget:selector:object:"_sel, &cancel,
          methodEncoding<void, id, SEL, id>());
}

}  // namespace sim
