#include "pane/renamed_labels.hpp"

#include "pane/list.hpp"
#include "pane/store.hpp"
#include "state/generation.hpp"

namespace pane {
namespace {

// The names share their file with the settings, of which a text may be the value, too.
NSArray* settingsKeys() {
  auto* keys = NSMutableArray::array();
  const NSDictionary* root = NSDictionary::withContentsOfFile(bundlePath()->appendingPathComponent("Root.plist"_ns));
  auto* items = as<NSArray>(root->objectForKey("items"_ns));
  const NSUInteger count = items->count();
  for (NSUInteger i = 0; i < count; ++i)
    if (auto* item = as<NSDictionary>(items->at(i))) keys->add(item->objectForKey("key"_ns));
  return keys;
}

void addRestart(PSListController* list, NSMutableArray* rows) {
  PSSpecifier* head = PSSpecifier::emptyGroup();
  head->setFooter("Labels whose names were removed change when the home screen restarts."_ns);
  PSSpecifier* button = PSSpecifier::row("Restart Home Screen"_ns, list, nullptr, PSCellType::button);
  button->setAction("restartHomeScreen:"_sel);
  rows->add(head);
  rows->add(button);
}

NSArray* makeRows(PSListController* list) {
  PSSpecifier* head = PSSpecifier::emptyGroup();
  auto* rows = NSMutableArray::of(head);
  const NSDictionary* stored = NSDictionary::withContentsOfFile(settingsFile());
  const NSArray* settings = settingsKeys();
  const NSArray* keys = stored->allKeys()->sorted();
  const NSUInteger count = keys->count();
  for (NSUInteger i = 0; i < count; ++i) {
    auto* key = keys->at<NSString>(i);
    auto* name = as<NSString>(stored->objectForKey(key));
    if (name == nullptr || settings->contains(key)) continue;
    const AutoreleasePool pool;
    PSSpecifier* row = applicationRow(list, key, name);
    row->setProperty("removeName:"_ns, "deletionAction"_ns);
    rows->add(row);
  }
  head->setFooter(rows->count() > 1
                      ? "An application whose name is removed here has its own name again on the home screen."_ns
                      : "No label has been renamed. That is done from an application's menu on the home screen."_ns);
  // There a label is read when its view is made, and whenever it is renamed from its menu: nothing else makes it.
  if (!Generation::isNew()) addRestart(list, rows);
  return rows;
}

void restartHomeScreen(PSListController*, SEL, PSSpecifier*) {
  FBSSystemService::sharedService()->perform(SBSRelaunchAction::withReason("Renamed labels"_ns));
}

void removeName(PSListController* list, SEL, PSSpecifier* row) {
  NSString* bundleIdentifier = applicationOf(row);
  // Labels are read anew when the file is without the name.
  if (bundleIdentifier != nullptr && store(bundleIdentifier, nullptr))
    postDarwinNotification("com.morvanel.sprigdial.renamelable"_ns);
  // Once the row has left the screen: the file tells which names there are.
  list->performAfterDelay("reloadSpecifiers"_sel, 0);
}

}  // namespace

void registerRenamedLabels() {
  Class cls = registerList("SprigdialRenamedLabelsController", PSEditableListController::cls());
  if (cls == nullptr) return;
  addMethod(cls, "specifiers", &rows<makeRows>);
  addMethod(cls, "removeName:", &removeName);
  addMethod(cls, "restartHomeScreen:", &restartHomeScreen);
}

}  // namespace pane
