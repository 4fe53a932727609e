#include "settings/settings.hpp"

namespace {

/// A key of the settings file: its type, default and destination.
struct Key {
  const char* name;
  double defaultValue;
  bool Settings::*flag = nullptr;
  int Settings::*number = nullptr;
  float Settings::*real = nullptr;

  consteval Key(const char* key, bool Settings::*destination, bool otherwise)
      : name(key), defaultValue(otherwise ? 1 : 0), flag(destination) {}
  consteval Key(const char* key, int Settings::*destination, int otherwise)
      : name(key), defaultValue(otherwise), number(destination) {}
  consteval Key(const char* key, float Settings::*destination, double otherwise)
      : name(key), defaultValue(otherwise), real(destination) {}
};

// Every menu entry is on by default: a fresh install shows all that the menu can do. What changes how the home screen
// behaves otherwise is off.
constexpr Key keys[] = {
    {"enabled", &Settings::enabled, true},        {"direction", &Settings::direction, 0},
    {"slideValue", &Settings::slideValue, 1.0},   {"useForce", &Settings::useForce, false},
    {"useEditing", &Settings::useEditing, false}, {"useRename", &Settings::useRename, true},
    {"useBadge", &Settings::useBadge, true},      {"useCustom", &Settings::useCustom, true},
    {"useCopyID", &Settings::useCopyID, true},    {"useCopySchemes", &Settings::useCopySchemes, true},
    {"openFilza", &Settings::openFilza, true},    {"useCache", &Settings::useCache, true},
    {"useBackUp", &Settings::useBackUp, true},    {"useRestore", &Settings::useRestore, true},
    {"delBackUp", &Settings::delBackUp, true},    {"useReset", &Settings::useReset, true},
    {"useMute", &Settings::useMute, true},        {"openApp", &Settings::openApp, true},
    {"showSize", &Settings::showSize, true},      {"useText", &Settings::useText, false},
    {"hideLabel", &Settings::hideLabel, false},   {"disableType", &Settings::disableType, 2},
};

NSObject* defaultOf(const Key& key) {
  if (key.flag != nullptr) return NSNumber::withBool(key.defaultValue != 0);
  if (key.number != nullptr) return NSNumber::withInt(static_cast<int>(key.defaultValue));
  return NSNumber::withDouble(key.defaultValue);
}

void load(Settings& loaded, const Key& key, const NSDictionary* stored) {
  NSObject* value = numberOrText(stored->objectForKey(NSString::text(key.name)));
  if (value == nullptr) value = defaultOf(key);
  if (key.flag != nullptr) loaded.*key.flag = send<BOOL>(value, "boolValue"_sel);
  if (key.number != nullptr) loaded.*key.number = send<int>(value, "intValue"_sel);
  if (key.real != nullptr) loaded.*key.real = send<float>(value, "floatValue"_sel);
}

}  // namespace

void loadSettings() {
  const AutoreleasePool pool;
  const NSDictionary* stored = NSDictionary::withContentsOfFile(settingsFile());
  Settings loaded{};
  for (const Key& key : keys) load(loaded, key, stored);
  loaded.muteLockScreen = loaded.disableType != 0;
  loaded.muteBanners = loaded.disableType != 1;
  settings = loaded;
}

void settingsChanged(CFNotificationCenterRef, void*, CFStringRef, const void*, const void*) { loadSettings(); }
