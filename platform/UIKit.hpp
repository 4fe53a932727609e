// The user-interface framework, as far as the add-on uses it. Main thread only.
#pragma once

#include "platform/Foundation.hpp"
#include "platform/block.hpp"

struct CGPoint {
  CGFloat x, y;
};
struct CGSize {
  CGFloat width, height;
};
struct CGRect {
  CGPoint origin;
  CGSize size;
};

using UIWindowLevel = CGFloat;
extern "C" {
extern const UIWindowLevel UIWindowLevelNormal;
extern const UIWindowLevel UIWindowLevelAlert;
}

enum class UIAlertControllerStyle : NSInteger { actionSheet = 0, alert = 1 };
enum class UIAlertActionStyle : NSInteger { standard = 0, cancel = 1 };
enum class UIUserInterfaceIdiom : NSInteger { phone = 0, pad = 1 };
enum class UIImageRenderingMode : NSInteger { alwaysTemplate = 2 };

class UIView : public NSObject {
 public:
  CGRect bounds() const { return send<CGRect>(this, "bounds"_sel); }
  void setHidden(bool hidden) { send(this, "setHidden:"_sel, BOOL{hidden}); }
};

class UIPopoverPresentationController : public NSObject {
 public:
  void setSourceView(UIView* view) { send(this, "setSourceView:"_sel, view); }
  /// In the source view's coordinates.
  void setSourceRect(CGRect rect) { send(this, "setSourceRect:"_sel, rect); }
  /// 0 means a popover without an arrow.
  void setPermittedArrowDirections(NSUInteger directions) { send(this, "setPermittedArrowDirections:"_sel, directions); }
};

class UIViewController : public NSObject {
 public:
  static Ref<UIViewController> make() {
    return Ref<UIViewController>::adopt(send<UIViewController*>("UIViewController"_cls, "new"_sel));
  }
  UIView* view() const { return send<UIView*>(this, "view"_sel); }
  UIPopoverPresentationController* popoverPresentationController() const {
    return send<UIPopoverPresentationController*>(this, "popoverPresentationController"_sel);
  }
  /// Presents animated; `completion` runs when the presentation has ended.
  template <class Completion>
  void present(UIViewController* controller, Completion completion) {
    presentWithBlock(controller, makeBlock<void()>(completion).pointer());
  }
  /// Presents animated, with no completion.
  void present(UIViewController* controller) { presentWithBlock(controller, nullptr); }

 private:
  void presentWithBlock(UIViewController* controller, const void* completion) {
    send(this, "presentViewController:animated:completion:"_sel, controller, BOOL{true}, completion);
  }
};

class UIAlertAction : public NSObject {
 public:
  /// `handler` is called with the tapped action, or with nothing if it takes nothing.
  template <class Handler>
  static UIAlertAction* action(NSString* title, UIAlertActionStyle style, Handler handler) {
    return send<UIAlertAction*>("UIAlertAction"_cls, "actionWithTitle:style:handler:"_sel, title, style,
                                makeBlock<void(UIAlertAction*)>(handler).pointer());
  }
};

class UIAlertController : public UIViewController {
 public:
  static UIAlertController* alertController(NSString* title, NSString* message, UIAlertControllerStyle style) {
    return send<UIAlertController*>("UIAlertController"_cls, "alertControllerWithTitle:message:preferredStyle:"_sel,
                                    title, message, style);
  }
  void addAction(UIAlertAction* action) { send(this, "addAction:"_sel, action); }
};

class UIWindow : public UIView {
 public:
  static Ref<UIWindow> withFrame(CGRect frame) {
    return Ref<UIWindow>::adopt(
        send<UIWindow*>(send<id>("UIWindow"_cls, "alloc"_sel), "initWithFrame:"_sel, frame));
  }
  void setWindowLevel(UIWindowLevel level) { send(this, "setWindowLevel:"_sel, level); }
  void makeKeyAndVisible() { send(this, "makeKeyAndVisible"_sel); }
  UIViewController* rootViewController() const { return send<UIViewController*>(this, "rootViewController"_sel); }
  void setRootViewController(UIViewController* controller) { send(this, "setRootViewController:"_sel, controller); }
};

class UIScreen : public NSObject {
 public:
  static UIScreen* mainScreen() { return send<UIScreen*>("UIScreen"_cls, "mainScreen"_sel); }
  /// In points.
  CGRect bounds() const { return send<CGRect>(this, "bounds"_sel); }
};

class UIDevice : public NSObject {
 public:
  static UIDevice* currentDevice() { return send<UIDevice*>("UIDevice"_cls, "currentDevice"_sel); }
  /// Whether this is a tablet; NO where the device cannot tell.
  bool isPad() const {
    return respondsToSelector("userInterfaceIdiom"_sel) &&
           send<UIUserInterfaceIdiom>(this, "userInterfaceIdiom"_sel) == UIUserInterfaceIdiom::pad;
  }
};

class UIApplication : public NSObject {
 public:
  static UIApplication* sharedApplication() {
    return send<UIApplication*>("UIApplication"_cls, "sharedApplication"_sel);
  }
  bool canOpenURL(const NSURL* url) const { return send<BOOL>(this, "canOpenURL:"_sel, url); }
};

class UIImage : public NSObject {
 public:
  /// Nil when the file is missing or holds no image.
  static UIImage* withContentsOfFile(const NSString* path) {
    return send<UIImage*>("UIImage"_cls, "imageWithContentsOfFile:"_sel, path);
  }
  UIImage* withRenderingMode(UIImageRenderingMode mode) const {
    return send<UIImage*>(this, "imageWithRenderingMode:"_sel, mode);
  }
};

class UITouch : public NSObject {
 public:
  /// In the view's coordinates, or in the window's when `view` is nil.
  CGPoint locationIn(const UIView* view) const { return send<CGPoint>(this, "locationInView:"_sel, view); }
  CGPoint previousLocationIn(const UIView* view) const {
    return send<CGPoint>(this, "previousLocationInView:"_sel, view);
  }
};
