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
enum class UIUserInterfaceIdiom : NSInteger { pad = 1 };
enum class UIKeyboardType : NSInteger { numberPad = 4 };
enum class UITextFieldViewMode : NSInteger { always = 3 };
enum class UIReturnKeyType : NSInteger { done = 9 };
enum class NSTextAlignment : NSInteger { center = 1 };
enum class UIActivityIndicatorViewStyle : NSInteger { whiteLarge = 0 };
enum class UIImageRenderingMode : NSInteger { alwaysTemplate = 2 };

class UIColor : public NSObject {
 public:
  static UIColor* black() { return send<UIColor*>("UIColor"_cls, "blackColor"_sel); }
  static UIColor* white() { return send<UIColor*>("UIColor"_cls, "whiteColor"_sel); }
  static UIColor* clear() { return send<UIColor*>("UIColor"_cls, "clearColor"_sel); }
  UIColor* withAlpha(CGFloat alpha) const { return send<UIColor*>(this, "colorWithAlphaComponent:"_sel, alpha); }
};

class CALayer : public NSObject {
 public:
  void setCornerRadius(CGFloat radius) { send(this, "setCornerRadius:"_sel, radius); }
};

class UIView : public NSObject {
 public:
  /// A new view of that class; the frame is in the coordinates of its superview to be.
  template <class T = UIView>
  static T* make(Class cls, CGRect frame) {
    return autoreleased(send<T*>(send<id>(cls, "alloc"_sel), "initWithFrame:"_sel, frame));
  }
  /// In the superview's coordinates.
  CGRect frame() const { return send<CGRect>(this, "frame"_sel); }
  void setBackgroundColor(UIColor* color) { send(this, "setBackgroundColor:"_sel, color); }
  void setAlpha(CGFloat alpha) { send(this, "setAlpha:"_sel, alpha); }
  void setUserInteractionEnabled(bool enabled) { send(this, "setUserInteractionEnabled:"_sel, BOOL{enabled}); }
  CALayer* layer() const { return send<CALayer*>(this, "layer"_sel); }
  void addSubview(UIView* view) { send(this, "addSubview:"_sel, view); }
  /// In the view's own coordinates.
  CGRect bounds() const { return send<CGRect>(this, "bounds"_sel); }
  void setHidden(bool hidden) { send(this, "setHidden:"_sel, BOOL{hidden}); }
};

class UIPopoverPresentationController : public NSObject {
 public:
  void setSourceView(UIView* view) { send(this, "setSourceView:"_sel, view); }
  /// In the source view's coordinates.
  void setSourceRect(CGRect rect) { send(this, "setSourceRect:"_sel, rect); }
  /// 0 means a popover without an arrow.
  void setPermittedArrowDirections(NSUInteger directions) {
    send(this, "setPermittedArrowDirections:"_sel, directions);
  }
};

class UIViewController : public NSObject {
 public:
  static UIViewController* make() { return autoreleased(send<UIViewController*>("UIViewController"_cls, "new"_sel)); }
  UIView* view() const { return send<UIView*>(this, "view"_sel); }
  UIPopoverPresentationController* popoverPresentationController() const {
    return send<UIPopoverPresentationController*>(this, "popoverPresentationController"_sel);
  }
  /// Presents animated; `completion`, which may be nil, runs when the presentation has ended.
  void present(UIViewController* controller, const Block<void()>* completion) {
    send(this, "presentViewController:animated:completion:"_sel, controller, BOOL{true}, completion);
  }
};

class UITextField : public UIView {
 public:
  NSString* text() const { return send<NSString*>(this, "text"_sel); }
  void setText(NSString* text) { send(this, "setText:"_sel, text); }
  void setDelegate(NSObject* delegate) { send(this, "setDelegate:"_sel, delegate); }
  void setKeyboardType(UIKeyboardType type) { send(this, "setKeyboardType:"_sel, type); }
  void setClearButtonMode(UITextFieldViewMode mode) { send(this, "setClearButtonMode:"_sel, mode); }
  void setReturnKeyType(UIReturnKeyType type) { send(this, "setReturnKeyType:"_sel, type); }
};

class UIAlertAction : public NSObject {
 public:
  NSString* title() const { return send<NSString*>(this, "title"_sel); }
  /// `handler` is called with the tapped action.
  static UIAlertAction* action(NSString* title, UIAlertActionStyle style, const Block<void(UIAlertAction*)>* handler) {
    return send<UIAlertAction*>("UIAlertAction"_cls, "actionWithTitle:style:handler:"_sel, title, style, handler);
  }
  /// The same with a callable, which may leave the action out.
  template <class Handler>
    requires std::is_class_v<Handler>
  static UIAlertAction* action(NSString* title, UIAlertActionStyle style, Handler handler) {
    return action(title, style, makeBlock<void(UIAlertAction*)>(static_cast<Handler&&>(handler)));
  }
};

class UIAlertController : public UIViewController {
 public:
  static UIAlertController* alertController(NSString* title, NSString* message, UIAlertControllerStyle style) {
    return send<UIAlertController*>("UIAlertController"_cls, "alertControllerWithTitle:message:preferredStyle:"_sel,
                                    title, message, style);
  }
  void addAction(UIAlertAction* action) { send(this, "addAction:"_sel, action); }
  /// `configure` is called with the new field before this returns.
  template <class Configure>
  void addTextField(Configure configure) {
    send(this, "addTextFieldWithConfigurationHandler:"_sel,
         makeBlock<void(UITextField*)>(static_cast<Configure&&>(configure)));
  }
  UITextField* firstTextField() const {
    auto* fields = send<NSArray*>(this, "textFields"_sel);
    return fields->count() > 0 ? fields->at<UITextField>(0) : nullptr;
  }
};

class UIWindow : public UIView {
 public:
  static UIWindow* withFrame(CGRect frame) { return make<UIWindow>("UIWindow"_cls, frame); }
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
  /// Asks the system to open the URL, without options and without waiting.
  void openURL(const NSURL* url) const {
    send(this, "openURL:options:completionHandler:"_sel, url, NSDictionary::dictionary(),
         static_cast<const void*>(nullptr));
  }
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

class UIFont : public NSObject {
 public:
  /// In points.
  static UIFont* system(CGFloat size) { return send<UIFont*>("UIFont"_cls, "systemFontOfSize:"_sel, size); }
};

class UILabel : public UIView {
 public:
  void setText(NSString* text) { send(this, "setText:"_sel, text); }
  void setTextColor(UIColor* color) { send(this, "setTextColor:"_sel, color); }
  void setFont(UIFont* font) { send(this, "setFont:"_sel, font); }
  void setTextAlignment(NSTextAlignment alignment) { send(this, "setTextAlignment:"_sel, alignment); }
};

class UIActivityIndicatorView : public UIView {
 public:
  void setStyle(UIActivityIndicatorViewStyle style) { send(this, "setActivityIndicatorViewStyle:"_sel, style); }
  void startAnimating() { send(this, "startAnimating"_sel); }
};

class UIPasteboard : public NSObject {
 public:
  static UIPasteboard* generalPasteboard() { return send<UIPasteboard*>("UIPasteboard"_cls, "generalPasteboard"_sel); }
  void setValue(NSObject* value, NSString* type) { send(this, "setValue:forPasteboardType:"_sel, value, type); }
};
