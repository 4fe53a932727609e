#include "pane/list.hpp"

#include "platform/LaunchServices.hpp"

namespace pane {
namespace {

NSString* applicationKey() { return "bundleIdentifier"_ns; }
NSString* textKey() { return "text"_ns; }

// A class that is made at run time belongs to no bundle of itself.
NSBundle* bundle(PSListController*, SEL) { return NSBundle::withPath(bundlePath()); }

NSObject* shownText(PSListController*, SEL, PSSpecifier* row) { return row->property(textKey()); }

}  // namespace

Class registerList(const char* name, Class superclass) {
  if (superclass == nullptr) return nullptr;
  Class cls = objc_allocateClassPair(superclass, name, 0);
  if (cls == nullptr) return nullptr;
  addMethod(cls, "bundle", &bundle);
  addMethod(cls, "shownText:", &shownText);
  objc_registerClassPair(cls);
  return cls;
}

PSSpecifier* applicationRow(PSListController* list, NSString* bundleIdentifier, NSString* text) {
  NSString* name = LSApplicationProxy::withIdentifier(bundleIdentifier)->localizedName();
  if (name->length() == 0) name = bundleIdentifier;
  PSSpecifier* row = PSSpecifier::row(name, list, "shownText:"_sel, PSCellType::titleValue);
  row->setProperty(bundleIdentifier, applicationKey());
  row->setProperty(text, textKey());
  return row;
}

NSString* applicationOf(const PSSpecifier* row) { return as<NSString>(row->property(applicationKey())); }

}  // namespace pane
