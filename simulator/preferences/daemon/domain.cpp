#include "simulator/preferences/daemon/domain.hpp"

#include "simulator/frameworks/foundation/property_list.hpp"

namespace sim {
namespace {

// The daemon gathers changes before it troubles the disk.
constexpr std::int64_t delay = 10'000'000'000;

}  // namespace

Domain::Domain(const std::string& name) : file_("/var/mobile/Library/Preferences/" + name + ".plist") {
  values_ = send<id>("NSMutableDictionary"_cls, "dictionaryWithContentsOfFile:"_sel, ns(file_));
  if (values_ == nullptr) values_ = make("NSMutableDictionary"_cls);
}

void Domain::change(id values, const std::vector<std::string>& removed, std::int64_t now) {
  send(values_.get(), "addEntriesFromDictionary:"_sel, values);
  for (const std::string& key : removed) send(values_.get(), "removeObjectForKey:"_sel, ns(key));
  changed_ = true;
  if (!due_) due_ = now + delay;
}

void Domain::write() {
  due_.reset();
  if (changed_) changed_ = !writeBinaryPropertyList(values(), file_);
}

}  // namespace sim
