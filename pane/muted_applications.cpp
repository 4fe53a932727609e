#include "pane/muted_applications.hpp"

#include "mute/list_file.hpp"
#include "pane/list.hpp"

namespace pane {
namespace {

NSString* endText(const NSDictionary* record) {
  const std::int32_t end = mute::endOf(record);
  if (end == mute::withoutEnd) return "Forever"_ns;
  return NSDateFormatter::with("en_US_POSIX"_ns, "yyyy-MM-dd HH:mm"_ns)->string(NSDate::since1970(end));
}

// The home screen removes what has run out when it likes.
NSArray* makeRows(PSListController* list) {
  PSSpecifier* head = PSSpecifier::emptyGroup();
  auto* rows = NSMutableArray::of(head);
  const NSArray* records = mute::entriesOf(NSDictionary::withContentsOfFile(mute::listFile()));
  const double now = NSDate::date()->timeIntervalSince1970();
  const NSUInteger count = records->count();
  for (NSUInteger i = 0; i < count; ++i) {
    const AutoreleasePool pool;
    auto* record = as<NSDictionary>(records->at(i));
    auto* bundleIdentifier = as<NSString>(record->objectForKey(mute::idKey()));
    if (bundleIdentifier->length() == 0 || !mute::isInForce(record, now)) continue;
    rows->add(applicationRow(list, bundleIdentifier, endText(record)));
  }
  head->setFooter(rows->count() > 1
                      ? "Until when their notifications are kept away. They are unmuted from their menus."_ns
                      : "No application is muted. That is done from an application's menu on the home screen."_ns);
  return rows;
}

}  // namespace

void registerMutedApplications() {
  Class cls = registerList("SprigdialMutedApplicationsController", PSListController::cls());
  if (cls == nullptr) return;
  addMethod(cls, "specifiers", &rows<makeRows>);
}

}  // namespace pane
