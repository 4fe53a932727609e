// Foundation, as far as the add-on uses it. Every class is used through pointers only; a message to nil
// gives nil, zero or NO. What is made new stays until the surrounding autorelease pool drains, if nobody keeps it
// longer.
#pragma once

#include "platform/objc.hpp"

class NSError;
class NSString;
class NSURL;

class NSObject : public objc_object {
 public:
  bool isKindOfClass(Class cls) const { return send<BOOL>(this, "isKindOfClass:"_sel, cls); }
  bool respondsToSelector(SEL selector) const { return send<BOOL>(this, "respondsToSelector:"_sel, selector); }
  bool isEqual(const NSObject* other) const { return send<BOOL>(this, "isEqual:"_sel, other); }
  NSString* description() const { return send<NSString*>(this, "description"_sel); }
  NSObject* valueForKey(NSString* key) const { return send<NSObject*>(this, "valueForKey:"_sel, key); }
  /// The object stays at least until then.
  void performAfterDelay(SEL selector, double seconds) const {
    send(this, "performSelector:withObject:afterDelay:"_sel, selector, static_cast<id>(nullptr), seconds);
  }
};

/// The object as a `T`, or nil when it is of another kind: for what comes from files.
template <class T>
T* as(NSObject* object) {
  return object != nullptr && object->isKindOfClass(T::cls()) ? static_cast<T*>(object) : nullptr;
}

class NSString : public NSObject {
 public:
  static Class cls() { return "NSString"_cls; }
  static NSString* text(const char* utf8) { return send<NSString*>(cls(), "stringWithUTF8String:"_sel, utf8); }
  NSUInteger length() const { return send<NSUInteger>(this, "length"_sel); }
  bool isEqualToString(const NSString* other) const { return send<BOOL>(this, "isEqualToString:"_sel, other); }
  NSString* appending(const NSString* tail) const {
    return send<NSString*>(this, "stringByAppendingString:"_sel, tail);
  }
  NSString* appendingPathComponent(const NSString* name) const {
    return send<NSString*>(this, "stringByAppendingPathComponent:"_sel, name);
  }
  bool isAbsolutePath() const { return send<BOOL>(this, "isAbsolutePath"_sel); }
  /// The index must not lie beyond the end.
  NSString* substringFromIndex(NSUInteger index) const {
    return send<NSString*>(this, "substringFromIndex:"_sel, index);
  }
  NSString* replacing(const NSString* part, const NSString* replacement) const {
    return send<NSString*>(this, "stringByReplacingOccurrencesOfString:withString:"_sel, part, replacement);
  }
};

inline void lookUp(NSString*& made, const char* text) {
  made = send<NSString*>(send<id>(NSString::cls(), "alloc"_sel), "initWithUTF8String:"_sel, text);
}

/// A text made at the first use of the literal and kept for the life of the process.
template <LiteralText Text>
[[gnu::always_inline]] inline NSString* operator""_ns() {
  return found<NSString*, Text>();
}

/// What the format "%@" writes for an object: its description, and "(null)" for nil. A text of its own: it stays when
/// the object goes.
inline NSString* formatted(NSObject* object) {
  NSString* text = kept(object->description());
  return text != nullptr ? text : "(null)"_ns;
}

class NSNumber : public NSObject {
 public:
  static Class cls() { return "NSNumber"_cls; }
  static NSNumber* withBool(bool value) { return send<NSNumber*>(cls(), "numberWithBool:"_sel, BOOL{value}); }
  static NSNumber* withInt(int value) { return send<NSNumber*>(cls(), "numberWithInt:"_sel, value); }
  static NSNumber* withUnsigned(std::uint64_t value) {
    return send<NSNumber*>(cls(), "numberWithUnsignedLongLong:"_sel, value);
  }
  static NSNumber* withDouble(double value) { return send<NSNumber*>(cls(), "numberWithDouble:"_sel, value); }
};

/// The object when it answers the conversions to numbers, as numbers and texts do and dates, data and collections do
/// not; nil otherwise.
inline NSObject* numberOrText(NSObject* object) {
  return as<NSNumber>(object) != nullptr || as<NSString>(object) != nullptr ? object : nullptr;
}

class NSArray : public NSObject {
 public:
  static Class cls() { return "NSArray"_cls; }
  static NSArray* array() { return send<NSArray*>(cls(), "array"_sel); }
  NSUInteger count() const { return send<NSUInteger>(this, "count"_sel); }
  template <class T = NSObject>
  T* at(NSUInteger index) const {
    return send<T*>(this, "objectAtIndex:"_sel, index);
  }
  bool contains(const NSObject* object) const { return send<BOOL>(this, "containsObject:"_sel, object); }
  /// The same objects, sorted by `compare:`, smallest first.
  NSArray* sorted() const { return send<NSArray*>(this, "sortedArrayUsingSelector:"_sel, "compare:"_sel); }
  /// The same, greatest first.
  NSArray* sortedDescending() const {
    return send<NSArray*>(send<NSObject*>(sorted(), "reverseObjectEnumerator"_sel), "allObjects"_sel);
  }
};

class NSMutableArray : public NSArray {
 public:
  static Class cls() { return "NSMutableArray"_cls; }
  static NSMutableArray* array() { return send<NSMutableArray*>("NSMutableArray"_cls, "array"_sel); }
  template <class... Objects>
  static NSMutableArray* of(Objects*... objects) {
    NSMutableArray* made = array();
    (made->add(objects), ...);
    return made;
  }
  /// A mutable array of the same objects; an empty one for nil.
  static NSMutableArray* copyOf(const NSArray* other) {
    return send<NSMutableArray*>("NSMutableArray"_cls, "arrayWithArray:"_sel, other != nullptr ? other : array());
  }
  /// Nil is left out.
  void add(const NSObject* object) {
    if (object != nullptr) send(this, "addObject:"_sel, object);
  }
  /// Removes every object that is equal to this one.
  void removeEqual(const NSObject* object) { send(this, "removeObject:"_sel, object); }
  void removeAll(const NSArray* objects) { send(this, "removeObjectsInArray:"_sel, objects); }
};

class NSDictionary : public NSObject {
 public:
  static Class cls() { return "NSDictionary"_cls; }
  /// The property list at `path`, or nil when there is none that holds a dictionary.
  static NSDictionary* withContentsOfFile(const NSString* path) {
    return send<NSDictionary*>(cls(), "dictionaryWithContentsOfFile:"_sel, path);
  }
  static NSDictionary* dictionary() { return send<NSDictionary*>(cls(), "dictionary"_sel); }
  static NSDictionary* with(const NSObject* object, const NSString* key) {
    return send<NSDictionary*>(cls(), "dictionaryWithObject:forKey:"_sel, object, key);
  }
  NSArray* allKeys() const { return send<NSArray*>(this, "allKeys"_sel); }
  /// Nil when there is none.
  NSObject* objectForKey(const NSString* key) const { return send<NSObject*>(this, "objectForKey:"_sel, key); }
  bool writeToFileAtomically(const NSString* path) const {
    return send<BOOL>(this, "writeToFile:atomically:"_sel, path, BOOL{true});
  }
};

class NSMutableDictionary : public NSDictionary {
 public:
  static Class cls() { return "NSMutableDictionary"_cls; }
  static NSMutableDictionary* dictionary() { return send<NSMutableDictionary*>(cls(), "dictionary"_sel); }
  /// The property list at `path` as this class's own reader gives it; nil when there is none that holds a dictionary.
  static NSMutableDictionary* withContentsOfFile(const NSString* path) {
    return send<NSMutableDictionary*>(cls(), "dictionaryWithContentsOfFile:"_sel, path);
  }
  /// A mutable dictionary of the same entries; nil for nil.
  static NSMutableDictionary* copyOf(const NSDictionary* other) {
    return other != nullptr ? send<NSMutableDictionary*>(cls(), "dictionaryWithDictionary:"_sel, other) : nullptr;
  }
  void set(const NSObject* object, const NSString* key) { send(this, "setObject:forKey:"_sel, object, key); }
  /// The same, but nil takes the entry away. The key must not be nil.
  void setValue(const NSObject* value, const NSString* key) { send(this, "setValue:forKey:"_sel, value, key); }
};

class NSData : public NSObject {
 public:
  /// The file's bytes, or nil when it cannot be read.
  static NSData* withContentsOfFile(const NSString* path) {
    return send<NSData*>("NSData"_cls, "dataWithContentsOfFile:"_sel, path);
  }
};

class NSURL : public NSObject {
 public:
  /// Nil for a text that is no URL.
  static NSURL* withString(const NSString* text) { return send<NSURL*>("NSURL"_cls, "URLWithString:"_sel, text); }
  NSString* path() const { return send<NSString*>(this, "path"_sel); }
};

class NSNotification : public NSObject {
 public:
  NSDictionary* userInfo() const { return send<NSDictionary*>(this, "userInfo"_sel); }
};

class NSNotificationCenter : public NSObject {
 public:
  /// The process's own center; delivers before `post` returns.
  static NSNotificationCenter* defaultCenter() {
    return send<NSNotificationCenter*>("NSNotificationCenter"_cls, "defaultCenter"_sel);
  }
  void post(const NSString* name) const {
    send(this, "postNotificationName:object:"_sel, name, static_cast<id>(nullptr));
  }
  void post(const NSString* name, const NSDictionary* userInfo) const {
    send(this, "postNotificationName:object:userInfo:"_sel, name, static_cast<id>(nullptr), userInfo);
  }
  /// `observer` is not retained. It gets `selector` whoever posts the notification.
  void addObserver(const NSObject* observer, SEL selector, const NSString* name) const {
    send(this, "addObserver:selector:name:object:"_sel, observer, selector, name, static_cast<id>(nullptr));
  }
};

extern "C" NSString* NSFilePosixPermissions;

class NSFileManager : public NSObject {
 public:
  static NSFileManager* defaultManager() { return send<NSFileManager*>("NSFileManager"_cls, "defaultManager"_sel); }
  bool fileExists(const NSString* path) const { return send<BOOL>(this, "fileExistsAtPath:"_sel, path); }
  bool isDirectory(const NSString* path) const {
    BOOL isDirectory = false;
    return send<BOOL>(this, "fileExistsAtPath:isDirectory:"_sel, path, &isDirectory) && isDirectory;
  }
  /// Also of a folder: whether it can be entered.
  bool isExecutableFile(const NSString* path) const { return send<BOOL>(this, "isExecutableFileAtPath:"_sel, path); }
  /// The names directly in the folder; nil when it cannot be read. `error`, where one is asked for, is set to the
  /// reason then and left alone otherwise.
  NSArray* contentsOfDirectory(const NSString* path, NSError** error = nullptr) const {
    return send<NSArray*>(this, "contentsOfDirectoryAtPath:error:"_sel, path, error);
  }
  /// Removes a file or a whole folder; NO when that fails.
  bool removeItem(const NSString* path) const {
    return send<BOOL>(this, "removeItemAtPath:error:"_sel, path, static_cast<id*>(nullptr));
  }
  /// Makes the folder and those above it that are missing.
  bool createDirectory(const NSString* path) const {
    return send<BOOL>(this, "createDirectoryAtPath:withIntermediateDirectories:attributes:error:"_sel, path, BOOL{true},
                      static_cast<NSDictionary*>(nullptr), static_cast<id*>(nullptr));
  }
  bool createFile(const NSString* path, const NSData* contents, const NSDictionary* attributes) const {
    return send<BOOL>(this, "createFileAtPath:contents:attributes:"_sel, path, contents, attributes);
  }
  /// Every file and folder below `path`, relative to it; nil when it cannot be read.
  NSArray* subpathsOfDirectory(const NSString* path) const {
    return send<NSArray*>(this, "subpathsOfDirectoryAtPath:error:"_sel, path, static_cast<id*>(nullptr));
  }
  /// The size in bytes of what is at `path`; 0 when its attributes cannot be read.
  std::uint64_t fileSize(const NSString* path) const {
    auto* attributes = send<NSDictionary*>(this, "attributesOfItemAtPath:error:"_sel, path, static_cast<id*>(nullptr));
    return send<std::uint64_t>(attributes, "fileSize"_sel);
  }
};

class NSBundle : public NSObject {
 public:
  /// Nil when there is no such folder.
  static NSBundle* withPath(const NSString* path) {
    return send<NSBundle*>("NSBundle"_cls, "bundleWithPath:"_sel, path);
  }
};

class NSDate : public NSObject {
 public:
  static NSDate* since1970(double seconds) {
    return send<NSDate*>("NSDate"_cls, "dateWithTimeIntervalSince1970:"_sel, seconds);
  }
  static NSDate* date() { return send<NSDate*>("NSDate"_cls, "date"_sel); }
  /// Seconds.
  double timeIntervalSince1970() const { return send<double>(this, "timeIntervalSince1970"_sel); }
};

class NSDateFormatter : public NSObject {
 public:
  /// A formatter for the device's time zone.
  static NSDateFormatter* with(const NSString* localeIdentifier, const NSString* format) {
    auto* formatter = autoreleased(send<NSDateFormatter*>("NSDateFormatter"_cls, "new"_sel));
    auto* locale = autoreleased(
        send<NSObject*>(send<id>("NSLocale"_cls, "alloc"_sel), "initWithLocaleIdentifier:"_sel, localeIdentifier));
    send(formatter, "setLocale:"_sel, locale);
    send(formatter, "setDateFormat:"_sel, format);
    return formatter;
  }
  NSString* string(const NSDate* date) const { return send<NSString*>(this, "stringFromDate:"_sel, date); }
};

class NSTask : public NSObject {
 public:
  static NSTask* make() { return autoreleased(send<NSTask*>("NSTask"_cls, "new"_sel)); }
  void setCurrentDirectoryPath(const NSString* path) { send(this, "setCurrentDirectoryPath:"_sel, path); }
  void setLaunchPath(const NSString* path) { send(this, "setLaunchPath:"_sel, path); }
  void setArguments(const NSArray* arguments) { send(this, "setArguments:"_sel, arguments); }
  /// Raises when the program or the folder is not there.
  void launch() { send(this, "launch"_sel); }
  void waitUntilExit() { send(this, "waitUntilExit"_sel); }
};
