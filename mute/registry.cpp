#include "mute/registry.hpp"

#include "mute/list_file.hpp"

namespace mute {
namespace {

// The property list in memory; nil when it could not be read.
constinit Slot<NSMutableDictionary> registry;

double now() { return NSDate::date()->timeIntervalSince1970(); }

// Times are compared as the 32-bit whole seconds that the list has always been read in.
std::int32_t wholeSeconds(double time) { return static_cast<std::int32_t>(static_cast<std::int64_t>(time)); }

// A record as a mutable dictionary; nil for something else, which is left where it is.
NSMutableDictionary* recordAt(const NSArray* list, NSUInteger index) {
  return as<NSMutableDictionary>(list->at(index));
}

bool isFor(const NSDictionary* record, const NSString* bundleIdentifier) {
  return bundleIdentifier->isEqual(record->objectForKey(idKey()));
}

// Records change in place: whatever kinds the reader gives, they are mutable from here on.
NSMutableArray* mutableRecords(const NSArray* stored) {
  auto* list = NSMutableArray::array();
  const NSUInteger count = stored->count();
  for (NSUInteger i = 0; i < count; ++i) {
    auto* record = as<NSDictionary>(stored->at(i));
    list->add(record != nullptr ? NSMutableDictionary::copyOf(record) : stored->at(i));
  }
  return list;
}

NSNumber* endAfter(double seconds) {
  return seconds < 0 ? NSNumber::withInt(withoutEnd) : NSNumber::withDouble(now() + seconds);
}

}  // namespace

void createRegistryFile() {
  NSFileManager* files = NSFileManager::defaultManager();
  if (files->fileExists(listFile())) return;
  constexpr int readableByAll = 0644;
  NSNumber* permissions = NSNumber::withInt(readableByAll);
  files->createFile(listFile(), nullptr, NSDictionary::with(permissions, NSFilePosixPermissions));
  NSDictionary::with(NSArray::array(), entriesKey())->writeToFileAtomically(listFile());
}

void loadRegistry() {
  const AutoreleasePool pool;
  auto* all = NSMutableDictionary::copyOf(NSMutableDictionary::withContentsOfFile(listFile()));
  if (NSArray* stored = entriesOf(all)) all->set(mutableRecords(stored), entriesKey());
  registry.set(all);
}

void registerMute(NSString* bundleIdentifier, double seconds) {
  NSMutableDictionary* all = registry.get();
  if (all == nullptr) return;
  auto* list = NSMutableArray::copyOf(entriesOf(all));
  NSDictionary* removed = nullptr;
  bool found = false;
  const NSUInteger count = list->count();
  for (NSUInteger i = 0; i < count; ++i) {
    NSMutableDictionary* record = recordAt(list, i);
    if (record == nullptr || !isFor(record, bundleIdentifier)) continue;
    found = true;
    if (seconds == 0) {
      removed = record;
    } else {
      record->set(endAfter(seconds), timeKey());
    }
  }
  if (removed != nullptr) list->removeEqual(removed);
  if (!found && seconds != 0) {
    auto* record = NSMutableDictionary::dictionary();
    record->set(bundleIdentifier, idKey());
    record->set(endAfter(seconds), timeKey());
    list->add(record);
  }
  all->set(list, entriesKey());
  all->writeToFileAtomically(listFile());
}

bool isMutedNow(NSString* bundleIdentifier) {
  const NSArray* list = entriesOf(registry.get());
  const NSUInteger count = list->count();
  for (NSUInteger i = 0; i < count; ++i) {
    NSMutableDictionary* record = recordAt(list, i);
    if (record == nullptr || !isFor(record, bundleIdentifier)) continue;
    if (isInForce(record, now())) return true;
  }
  return false;
}

bool isMuted(NCNotificationRequest* request) {
  const AutoreleasePool pool;
  const NSMutableDictionary* all = registry.get();
  if (all == nullptr) return false;
  NSString* bundleIdentifier = request->sectionIdentifier();
  const std::int32_t time = wholeSeconds(now());
  auto* list = as<NSMutableArray>(all->objectForKey(entriesKey()));
  auto* expired = NSMutableArray::array();
  bool muted = false;
  const NSUInteger count = list->count();
  for (NSUInteger i = 0; i < count; ++i) {
    NSMutableDictionary* record = recordAt(list, i);
    if (record == nullptr) continue;
    const std::int32_t end = endOf(record);
    if (isFor(record, bundleIdentifier) && (end > time || end == withoutEnd)) {
      muted = true;
    } else if (end < time && end != withoutEnd) {
      expired->add(record);
    }
  }
  // Written at each of these notifications, whether or not a record left.
  list->removeAll(expired);
  all->writeToFileAtomically(listFile());
  return muted;
}

}  // namespace mute
