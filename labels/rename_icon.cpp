#include "labels/rename_icon.hpp"

#include <initializer_list>

#include "appdata/alert.hpp"
#include "labels/names.hpp"
#include "platform/dispatch.hpp"
#include "state/generation.hpp"

namespace labels {
namespace {

/// The object as the runtime lays it out: NSObject's own part, then the three instance variables in order.
class RenameIcon : public NSObject {
 public:
  Slot<SBIcon>& icon() { return variable<SBIcon>("_icon"); }
  Slot<SBIconView>& iconView() { return variable<SBIconView>("_iconView"); }
  Slot<NSString>& renameTitle() { return variable<NSString>("renameTitle"); }

 private:
  template <class T>
  Slot<T>& variable(const char* name) {
    const Ivar ivar = class_getInstanceVariable("RenameIcon"_cls, name);
    return *reinterpret_cast<Slot<T>*>(reinterpret_cast<char*>(this) + ivar_getOffset(ivar));
  }
};

// The latest renamer, kept alive while its dialog is up.
constinit Slot<RenameIcon> currentRenamer;

/// The dialog that was shown last: whose it is, and the number of its window.
struct Dialog {
  Slot<RenameIcon> renamer;
  Slot<UIAlertController> controller;
  unsigned window = 0;
};
constinit Dialog dialog;

void releaseVariables(RenameIcon* self, SEL) {
  self->icon().clear();
  self->iconView().clear();
  self->renameTitle().clear();
}

// A renamer whose dialog has made way for something else leaves the window to that.
void closeDialog(const RenameIcon* self) {
  if (dialog.renamer.holds(self) && dialog.window == alertWindowNumber) closeAlertWindow();
}

void finish(RenameIcon* self) {
  if (currentRenamer.holds(self)) currentRenamer.clear();
  releaseVariables(self, nullptr);
  if (!dialog.renamer.holds(self)) return;
  dialog.renamer.clear();
  dialog.controller.clear();
}

// The runtime calls `.cxx_destruct` of itself only for classes that were compiled.
void dealloc(RenameIcon* self, SEL) {
  releaseVariables(self, nullptr);
  sendSuper(self, "NSObject"_cls, "dealloc"_sel);
}

RenameIcon* init(RenameIcon* self, SEL, SBIcon* icon, SBIconView* iconView) {
  self = sendSuper<RenameIcon*>(self, "NSObject"_cls, "init"_sel);
  if (self == nullptr) return nullptr;
  currentRenamer.set(self);
  self->icon().set(icon);
  self->iconView().set(iconView);
  return self;
}

RenameIcon* renamer(Class cls, SEL, SBIcon* icon, SBIconView* iconView) {
  return autoreleased(send<RenameIcon*>(send<id>(cls, "alloc"_sel), "initWithIcon:iconView:"_sel, icon, iconView));
}

void receiveTouch(RenameIcon* self, SEL) {
  constexpr double untilTheMenuIsGone = 0.25;
  self->performAfterDelay("show"_sel, untilTheMenuIsGone);
}

// The dialog begins with the application's own name, not with a stored one.
NSString* systemName(SBIcon* icon) {
  constexpr NSInteger homeScreen = 0;
  // Should the platform raise here, the stored names come back all the same.
  dispatch::onNextTurn([] { bypassNames = 0; });
  const int before = bypassNames++;
  NSString* name = icon->respondsToSelector("displayNameForLocation:"_sel)
                       ? send<NSString*>(icon, "displayNameForLocation:"_sel, homeScreen)
                       : send<NSString*>(icon, "displayName"_sel);
  bypassNames = before;
  return name;
}

void show(RenameIcon* self, SEL) {
  NSString* name = kept(systemName(self->icon().get()));
  auto* controller = UIAlertController::alertController("Rename App"_ns, name, UIAlertControllerStyle::alert);
  controller->addTextField([self, name](UITextField* field) {
    field->setDelegate(self);
    field->setText(name);
    field->setClearButtonMode(UITextFieldViewMode::always);
    field->setReturnKeyType(UIReturnKeyType::done);
  });
  // A button has its turn when its dialog has left the screen, and another may have come: it keeps the field of its
  // own. It does not keep the dialog: the two would keep one another for ever.
  UITextField* field = controller->firstTextField();
  controller->addAction(
      UIAlertAction::action("Apply"_ns, UIAlertActionStyle::standard, [renamer = Ref(self), field = Ref(field)] {
        renamer->renameTitle().set(autoreleased(send<NSString*>(field->text(), "copy"_sel)));
        send(renamer.get(), "save"_sel);
      }));
  controller->addAction(UIAlertAction::action("Cancel"_ns, UIAlertActionStyle::cancel, [renamer = Ref(self)] {
    closeDialog(renamer);
    finish(renamer);
  }));
  const unsigned window = presentAlert(controller);
  // All at once: a dialog that could not be shown leaves the one before its own.
  dialog.renamer.set(self);
  dialog.controller.set(controller);
  dialog.window = window;
}

void save(RenameIcon* self, SEL) {
  kept(self);
  closeDialog(self);
  storeName(self->icon()->leafIdentifier(), self->renameTitle().get());
  self->iconView()->updateLabel();
  if (Generation::isNew()) postDarwinNotification("com.morvanel.sprigdial.renamelable"_ns);
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

  addMethod(cls, "initWithIcon:iconView:", &init);
  addMethod(cls, "receiveTouch", &receiveTouch);
  addMethod(cls, "show", &show);
  addMethod(cls, "save", &save);
  addMethod(cls, ".cxx_destruct", &releaseVariables);
  addMethod(cls, "dealloc", &dealloc);
  objc_registerClassPair(cls);
  addMethod(object_getClass(reinterpret_cast<id>(cls)), "renamerWithIcon:iconView:", &renamer);
}

}  // namespace labels
