#include "pane/settings_list.hpp"

#include "pane/list.hpp"
#include "pane/store.hpp"

namespace pane {
namespace {

NSArray* makeRows(PSListController* list) {
  NSArray* loaded = list->loadRows("Root"_ns, list);
  return loaded != nullptr ? loaded : NSArray::array();
}

NSString* keyOf(const PSSpecifier* row) { return as<NSString>(row->property("key"_ns)); }

// The file may hold anything: each kind of cell shows what the home screen makes of it, as a value that the cell can
// show.

NSObject* shownBySwitch(const PSSpecifier*, NSObject* value) {
  return NSNumber::withBool(send<BOOL>(value, "boolValue"_sel));
}

// The home screen takes every number that means nothing to it for the last choice.
NSObject* shownBySegments(const PSSpecifier* row, NSObject* value) {
  NSObject* number = NSNumber::withInt(send<int>(value, "intValue"_sel));
  auto* choices = as<NSArray>(row->property("validValues"_ns));
  const NSUInteger count = choices->count();
  return count == 0 || choices->contains(number) ? number : choices->at(count - 1);
}

NSObject* shownBySlider(const PSSpecifier* row, NSObject* value) {
  const auto real = [](NSObject* object) { return double{send<float>(numberOrText(object), "floatValue"_sel)}; };
  const double shown = real(value);
  const double least = real(row->property("min"_ns));
  const double greatest = real(row->property("max"_ns));
  // The first comparison is false for what is no number at all.
  return NSNumber::withDouble(!(shown > least) ? least : shown > greatest ? greatest : shown);
}

struct Cell {
  const char* name;
  NSObject* (*shown)(const PSSpecifier* row, NSObject* value);
};
constexpr Cell cells[] = {
    {"PSSwitchCell", shownBySwitch},
    {"PSSegmentCell", shownBySegments},
    {"PSSliderCell", shownBySlider},
};

// What the row shows for a value of the file; for its default when the file has none.
NSObject* shownValue(const PSSpecifier* row, const NSString* key) {
  const NSDictionary* stored = NSDictionary::withContentsOfFile(settingsFile());
  NSObject* value = numberOrText(stored->objectForKey(key));
  if (value == nullptr) value = numberOrText(row->property("default"_ns));
  auto* kind = as<NSString>(row->property("cell"_ns));
  for (const auto& [name, shown] : cells)
    if (kind->isEqualToString(NSString::text(name))) return shown(row, value);
  return value;
}

NSObject* readPreferenceValue(PSListController*, SEL, PSSpecifier* row) {
  const NSString* key = keyOf(row);
  return key != nullptr ? shownValue(row, key) : nullptr;
}

bool isOn(NSObject* value) { return send<BOOL>(numberOrText(value), "boolValue"_sel); }

void setPreferenceValue(PSListController* list, SEL, NSObject* value, PSSpecifier* row) {
  NSString* key = keyOf(row);
  if (key == nullptr || numberOrText(value) == nullptr) return;
  const bool updatesLabels = key->isEqualToString("hideLabel"_ns) && isOn(value) != isOn(shownValue(row, key));
  if (!store(key, value)) {
    list->reloadRow(row);
    return;
  }
  // The label update sets the opposite of the setting that the home screen holds: it comes before the new one.
  if (updatesLabels) postDarwinNotification("com.morvanel.sprigdial.iconlable"_ns);
  postDarwinNotification("com.morvanel.sprigdial.preferencechanged"_ns);
}

}  // namespace

void registerSettingsList() {
  Class cls = registerList("SprigdialSettingsController", PSListController::cls());
  if (cls == nullptr) return;
  addMethod(cls, "specifiers", &rows<makeRows>);
  addMethod(cls, "readPreferenceValue:", &readPreferenceValue);
  addMethod(cls, "setPreferenceValue:specifier:", &setPreferenceValue);
}

}  // namespace pane
