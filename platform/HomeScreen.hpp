// The home screen's classes, as far as the add-on calls or hooks them. Main thread only. A class that the
// running generation lacks is simply not there: messages to it give nil.
#pragma once

#include "platform/UIKit.hpp"

/// An icon on the home screen.
class SBIcon : public NSObject {
 public:
  /// Nil for an icon that is no application.
  NSString* applicationBundleID() const { return send<NSString*>(this, "applicationBundleID"_sel); }
  /// The bundle identifier of an application's icon.
  NSString* leafIdentifier() const { return send<NSString*>(this, "leafIdentifier"_sel); }
  /// Nil removes the badge.
  void setBadge(NSObject* badge) { send(this, "setBadge:"_sel, badge); }
  /// A number or a text; nil when the icon shows no badge.
  NSObject* badgeNumberOrString() const { return send<NSObject*>(this, "badgeNumberOrString"_sel); }
};

class SBIconView : public UIView {
 public:
  static Class cls() { return "SBIconView"_cls; }
  SBIcon* icon() const { return send<SBIcon*>(this, "icon"_sel); }
  /// Makes the view re-read its label.
  void updateLabel() { send(this, "_updateLabel"_sel); }
};

class SBIconModel : public NSObject {
 public:
  SBIcon* applicationIcon(const NSString* bundleIdentifier) const {
    return send<SBIcon*>(this, "applicationIconForBundleIdentifier:"_sel, bundleIdentifier);
  }
  SBIcon* leafIcon(const NSString* identifier) const {
    return send<SBIcon*>(this, "leafIconForIdentifier:"_sel, identifier);
  }
};

/// The icons' views: the old generation's map or the new one's list.
class SBIconViewMap : public NSObject {
 public:
  SBIconModel* iconModel() const { return send<SBIconModel*>(this, "iconModel"_sel); }
  /// Nil when the icon has no view there.
  SBIconView* iconView(const SBIcon* icon) const { return send<SBIconView*>(this, "iconViewForIcon:"_sel, icon); }
};

/// The object that carries the added menu methods: `SBIconController` or `SBHIconManager`.
class MenuHost : public NSObject {
 public:
  bool isEditing() const { return send<BOOL>(this, "isEditing"_sel); }
  SBIconModel* iconModel() const { return send<SBIconModel*>(this, "iconModel"_sel); }
};

class SBIconController : public MenuHost {
 public:
  static SBIconController* sharedInstance() {
    return send<SBIconController*>("SBIconController"_cls, "sharedInstance"_sel);
  }
  SBIconViewMap* homescreenIconViewMap() const { return send<SBIconViewMap*>(this, "homescreenIconViewMap"_sel); }
};

class SBApplicationInfo : public NSObject {
 public:
  /// The bundle folder's location; nil while the application is not installed.
  NSObject* installInstanceID() const { return send<NSObject*>(this, "installInstanceID"_sel); }
  NSURL* dataContainerURL() const { return send<NSURL*>(this, "dataContainerURL"_sel); }
};

class SBApplication : public NSObject {
 public:
  NSString* bundleIdentifier() const { return send<NSString*>(this, "bundleIdentifier"_sel); }
  NSString* displayName() const { return send<NSString*>(this, "displayName"_sel); }
  SBApplicationInfo* info() const { return send<SBApplicationInfo*>(this, "info"_sel); }
};

class SBApplicationController : public NSObject {
 public:
  static SBApplicationController* sharedInstance() {
    return send<SBApplicationController*>("SBApplicationController"_cls, "sharedInstance"_sel);
  }
  /// Nil for an unknown identifier.
  SBApplication* application(const NSString* bundleIdentifier) const {
    return send<SBApplication*>(this, "applicationWithBundleIdentifier:"_sel, bundleIdentifier);
  }
};

/// What asks the system to start the home screen anew.
class SBSRelaunchAction : public NSObject {
 public:
  /// The screen fades to black meanwhile. `reason` goes to the system's log.
  static SBSRelaunchAction* withReason(NSString* reason) {
    constexpr NSUInteger fadeToBlack = 1 << 2;
    return send<SBSRelaunchAction*>("SBSRelaunchAction"_cls, "actionWithReason:options:targetURL:"_sel, reason,
                                    fadeToBlack, static_cast<NSURL*>(nullptr));
  }
};

/// The system's own service for badges and more. Every process may speak to it.
class FBSSystemService : public NSObject {
 public:
  static FBSSystemService* sharedService() {
    return send<FBSSystemService*>("FBSSystemService"_cls, "sharedService"_sel);
  }
  void setBadgeValue(NSString* value, NSString* bundleIdentifier) {
    send(this, "setBadgeValue:forBundleID:"_sel, value, bundleIdentifier);
  }
  /// Does nothing without an action.
  void perform(SBSRelaunchAction* action) {
    if (action == nullptr) return;
    auto* actions = send<NSObject*>("NSSet"_cls, "setWithObject:"_sel, action);
    send(this, "sendActions:withResult:"_sel, actions, static_cast<const void*>(nullptr));
  }
};

/// The picture of a quick action.
class SBSApplicationShortcutCustomImageIcon : public NSObject {
 public:
  static SBSApplicationShortcutCustomImageIcon* withPNG(const NSData* data) {
    return autoreleased(send<SBSApplicationShortcutCustomImageIcon*>(
        send<id>("SBSApplicationShortcutCustomImageIcon"_cls, "alloc"_sel), "initWithImagePNGData:"_sel, data));
  }
};

/// An entry of an icon's quick-action list.
class SBSApplicationShortcutItem : public NSObject {
 public:
  static SBSApplicationShortcutItem* make() {
    return autoreleased(
        send<SBSApplicationShortcutItem*>(send<id>("SBSApplicationShortcutItem"_cls, "alloc"_sel), "init"_sel));
  }
  void setLocalizedTitle(const NSString* title) { send(this, "setLocalizedTitle:"_sel, title); }
  void setBundleIdentifierToLaunch(const NSString* identifier) {
    send(this, "setBundleIdentifierToLaunch:"_sel, identifier);
  }
  void setType(const NSString* type) { send(this, "setType:"_sel, type); }
  void setIcon(const SBSApplicationShortcutCustomImageIcon* icon) { send(this, "setIcon:"_sel, icon); }
  // What the applications' own entries are called and typed by is theirs to say: mostly texts.
  NSObject* localizedTitle() const { return send<NSObject*>(this, "localizedTitle"_sel); }
  NSObject* type() const { return send<NSObject*>(this, "type"_sel); }
};

/// Supplies the entries of the old generation's quick-action list.
class SBUIAppIconForceTouchControllerDataProvider : public NSObject {
 public:
  NSString* applicationBundleIdentifier() const { return send<NSString*>(this, "applicationBundleIdentifier"_sel); }
};

/// A notification on its way to the screen.
class NCNotificationRequest : public NSObject {
 public:
  /// The bundle identifier of the application that posted it.
  NSString* sectionIdentifier() const { return send<NSString*>(this, "sectionIdentifier"_sel); }
};

// Only passed through.
class SBDownloadingIcon;
class SBUIAppIconForceTouchController;
class SBUIAction;
