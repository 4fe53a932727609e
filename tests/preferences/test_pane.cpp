// A pane for tests: a list whose rows stand in a property list of its bundle, and a list whose rows can be removed.
// Its values go the framework's own way, through the preferences daemon.
#include <initializer_list>

#include "platform/CoreFoundation.hpp"
#include "platform/UIKit.hpp"

namespace {

using Types = const char*;

NSObject* bundle(NSObject*, SEL) {
  return send<NSObject*>("NSBundle"_cls, "bundleWithPath:"_sel, "/Library/PreferenceBundles/TestPane.bundle"_ns);
}

Slot<NSObject>& rowsOf(NSObject* list) {
  const Ivar variable = class_getInstanceVariable("PSListController"_cls, "_specifiers");
  return *reinterpret_cast<Slot<NSObject>*>(reinterpret_cast<char*>(list) + ivar_getOffset(variable));
}

NSObject* rowsOfPropertyList(NSObject* self, SEL) {
  Slot<NSObject>& rows = rowsOf(self);
  if (!rows) rows.set(send<NSObject*>(self, "loadSpecifiersFromPlistName:target:"_sel, "Root"_ns, self));
  return rows.get();
}

void post(NSString* name) {
  CFNotificationCenterPostNotification(CFNotificationCenterGetDarwinNotifyCenter(), name, nullptr, nullptr, 1);
}

void pressed(NSObject*, SEL, NSObject*) { post("com.example.pane.pressed"_ns); }

void ask(UIViewController* self, SEL, NSObject*) {
  auto* alert = UIAlertController::alertController("Sure?"_ns, nullptr, UIAlertControllerStyle::alert);
  alert->addAction(
      UIAlertAction::action("Yes"_ns, UIAlertActionStyle::standard, [] { post("com.example.pane.sure"_ns); }));
  alert->addAction(UIAlertAction::action("No"_ns, UIAlertActionStyle::cancel, [] {}));
  self->present(alert, nullptr);
}

void raise(NSObject* self, SEL, NSObject*) { send(self, sel_registerName("noSuchMessage")); }

void later(NSObject* self, SEL, NSObject*) { self->performAfterDelay("pressed:"_sel, 5); }

NSString* applicationName(NSObject*, SEL, NSObject* row) {
  auto* identifier = send<NSObject*>(row, "propertyForKey:"_sel, "application"_ns);
  auto* proxy = send<NSObject*>("LSApplicationProxy"_cls, "applicationProxyForIdentifier:"_sel, identifier);
  return send<NSString*>(proxy, "localizedName"_sel);
}

void changed(NSObject*, SEL, NSObject*, NSObject* row) {
  post("com.example.pane."_ns->appending(send<NSString*>(row, "name"_sel)));
}

NSObject* games(NSObject* self, SEL) {
  Slot<NSObject>& rows = rowsOf(self);
  if (rows) return rows.get();
  auto* made = NSMutableArray::array();
  made->add(send<NSObject*>("PSSpecifier"_cls, "groupSpecifierWithName:"_sel, "Games"_ns));
  for (NSString* name : {"Chess"_ns, "Go"_ns, "Solitaire"_ns}) {
    constexpr NSInteger titleValue = 4;
    auto* row = send<NSObject*>("PSSpecifier"_cls, "preferenceSpecifierNamed:target:set:get:detail:cell:edit:"_sel,
                                name, self, SEL{nullptr}, "valueOf:"_sel, Class{nullptr}, titleValue, Class{nullptr});
    if (!name->isEqualToString("Solitaire"_ns))
      send(row, "setProperty:forKey:"_sel, "removeGame:"_ns, "deletionAction"_ns);
    made->add(row);
  }
  rows.set(made);
  return rows.get();
}

NSObject* valueOf(NSObject*, SEL, NSObject* row) { return send<NSString*>(row, "name"_sel)->appending(" for two"_ns); }

void removeGame(NSObject*, SEL, NSObject* row) {
  post("com.example.pane.removed."_ns->appending(send<NSString*>(row, "name"_sel)));
}

struct Method {
  const char* selector;
  IMP implementation;
  Types types;
};

template <std::size_t Count>
void registerClass(const char* name, Class superclass, const Method (&methods)[Count]) {
  Class cls = objc_allocateClassPair(superclass, name, 0);
  for (const auto& [selector, implementation, types] : methods)
    class_addMethod(cls, sel_registerName(selector), implementation, types);
  objc_registerClassPair(cls);
}

[[gnu::constructor]] void start() {
  const AutoreleasePool pool;
  const Method list[] = {
      {"bundle", reinterpret_cast<IMP>(&bundle), "@@:"},
      {"specifiers", reinterpret_cast<IMP>(&rowsOfPropertyList), "@@:"},
      {"pressed:", reinterpret_cast<IMP>(&pressed), "v@:@"},
      {"ask:", reinterpret_cast<IMP>(&ask), "v@:@"},
      {"raise:", reinterpret_cast<IMP>(&raise), "v@:@"},
      {"later:", reinterpret_cast<IMP>(&later), "v@:@"},
      {"applicationName:", reinterpret_cast<IMP>(&applicationName), "@@:@"},
      {"changed:row:", reinterpret_cast<IMP>(&changed), "v@:@@"},
  };
  registerClass("TestPaneController", "PSListController"_cls, list);
  const Method gamesList[] = {
      {"specifiers", reinterpret_cast<IMP>(&games), "@@:"},
      {"valueOf:", reinterpret_cast<IMP>(&valueOf), "@@:@"},
      {"removeGame:", reinterpret_cast<IMP>(&removeGame), "v@:@"},
  };
  registerClass("TestGamesController", "PSEditableListController"_cls, gamesList);
  registerClass("TestObject", "NSObject"_cls, gamesList);
}

}  // namespace
