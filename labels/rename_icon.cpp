#include "labels/rename_icon.hpp"

#include <initializer_list>

#include "appdata/alert.hpp"
#include "labels/names.hpp"
#include "state/generation.hpp"

namespace labels {
namespace {

/// The object as the runtime lays it out: NSObject's own part, then the three instance variables in order.
class RenameIcon : public NSObject {
 public:
  SBIcon*& icon() { return variable<SBIcon>("_icon"); }
  SBIconView*& iconView() { return variable<SBIconView>("_iconView"); }
  NSString*& renameTitle() { return variable<NSString>("renameTitle"); }

 private:
  template <class T>
  T*& variable(const char* name) {
    const Ivar ivar = class_getInstanceVariable("RenameIcon"_cls, name);
    return *reinterpret_cast<T**>(reinterpret_cast<char*>(this) + ivar_getOffset(ivar));
  }
};

// The latest renamer, kept alive while its dialog is up.
constinit Slot<RenameIcon> currentRenamer;
constinit Slot<UIAlertController> dialog;

template <class T>
void replace(T*& variable, T* object) {
  objc_retain(object);
  T* previous = variable;
  variable = object;
  objc_release(previous);
}

void releaseVariables(RenameIcon* self, SEL) {
  replace<SBIcon>(self->icon(), nullptr);
  replace<SBIconView>(self->iconView(), nullptr);
  replace<NSString>(self->renameTitle(), nullptr);
}

// The dialog has ended. `self` lives on while a handler of the dialog runs.
void finish(RenameIcon* self) {
  if (currentRenamer.get() == self) currentRenamer.clear();
  releaseVariables(self, nullptr);
  dialog.clear();
}

void dealloc(RenameIcon* self, SEL) {
  releaseVariables(self, nullptr);
  sendSuper(self, "NSObject"_cls, "dealloc"_sel);
}

RenameIcon* init(RenameIcon* self, SEL, SBIcon* icon, SBIconView* iconView) {
  self = sendSuper<RenameIcon*>(self, "NSObject"_cls, "init"_sel);
  if (self == nullptr) return nullptr;
  currentRenamer.set(self);
  replace(self->icon(), icon);
  replace(self->iconView(), iconView);
  return self;
}

RenameIcon* renamer(Class cls, SEL, SBIcon* icon, SBIconView* iconView) {
  auto* made = send<RenameIcon*>(send<id>(cls, "alloc"_sel), "initWithIcon:iconView:"_sel, icon, iconView);
  return static_cast<RenameIcon*>(objc_autorelease(made));
}

void receiveTouch(RenameIcon* self, SEL) {
  constexpr double untilTheMenuIsGone = 0.25;
  self->performAfterDelay("show"_sel, untilTheMenuIsGone);
}

// The dialog begins with the application's own name, not with a stored one.
NSString* systemName(SBIcon* icon) {
  constexpr NSInteger homeScreen = 0;
  ++bypassNames;
  NSString* name = icon->respondsToSelector("displayNameForLocation:"_sel)
                       ? send<NSString*>(icon, "displayNameForLocation:"_sel, homeScreen)
                       : send<NSString*>(icon, "displayName"_sel);
  --bypassNames;
  return name;
}

void show(RenameIcon* self, SEL) {
  const Ref<NSString> name = systemName(self->icon());
  dialog.set(UIAlertController::alertController("Rename App"_ns, name, UIAlertControllerStyle::alert));
  dialog->addTextField([self, name](UITextField* field) {
    field->setDelegate(self);
    field->setText(name);
    field->setClearButtonMode(UITextFieldViewMode::always);
    field->setReturnKeyType(UIReturnKeyType::done);
  });
  // The buttons keep the renamer; the dialog is found through its slot, so that nothing keeps itself alive.
  const Ref<RenameIcon> renamer = self;
  dialog->addAction(UIAlertAction::action("Apply"_ns, UIAlertActionStyle::standard, [renamer] {
    NSString* text = dialog->firstTextField()->text();
    const auto copy = Ref<NSString>::adopt(send<NSString*>(text, "copy"_sel));
    replace<NSString>(renamer->renameTitle(), copy);
    send(renamer.get(), "save"_sel);
  }));
  dialog->addAction(UIAlertAction::action("Cancel"_ns, UIAlertActionStyle::cancel, [renamer] {
    closeAlertWindow();
    finish(renamer);
  }));
  presentAlert(dialog.get());
}

void save(RenameIcon* self, SEL) {
  const Ref<RenameIcon> alive = self;
  closeAlertWindow();
  storeName(self->icon()->leafIdentifier(), self->renameTitle());
  self->iconView()->updateLabel();
  if (Generation::isNew())
    CFNotificationCenterPostNotification(CFNotificationCenterGetDarwinNotifyCenter(),
                                         "com.morvanel.sprigdial.renamelable"_ns, nullptr, nullptr, 1);
  finish(self);
}

}  // namespace

void registerRenameIcon() {
  constexpr std::uint8_t pointerAlignment = 3;
  Class cls = objc_allocateClassPair("NSObject"_cls, "RenameIcon", 0);
  if (cls == nullptr) return;
  for (const char* name : {"_icon", "_iconView", "renameTitle"})
    class_addIvar(cls, name, sizeof(id), pointerAlignment, "@");
  Protocol* protocol = objc_getProtocol("UITextFieldDelegate");
  if (protocol != nullptr) class_addProtocol(cls, protocol);

  struct Method {
    const char* selector;
    IMP implementation;
    const char* types;
  };
  const Method methods[] = {
      {"initWithIcon:iconView:", reinterpret_cast<IMP>(&init), "@@:@@"},
      {"receiveTouch", reinterpret_cast<IMP>(&receiveTouch), "v@:"},
      {"show", reinterpret_cast<IMP>(&show), "v@:"},
      {"save", reinterpret_cast<IMP>(&save), "v@:"},
      {".cxx_destruct", reinterpret_cast<IMP>(&releaseVariables), "v@:"},
      {"dealloc", reinterpret_cast<IMP>(&dealloc), "v@:"},
  };
  for (const auto& [selector, implementation, types] : methods)
    class_addMethod(cls, sel_registerName(selector), implementation, types);
  objc_registerClassPair(cls);
  class_addMethod(object_getClass(reinterpret_cast<id>(cls)), "renamerWithIcon:iconView:"_sel,
                  reinterpret_cast<IMP>(&renamer), "@@:@@");
}

}  // namespace labels
