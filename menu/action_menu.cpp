#include "menu/action_menu.hpp"

#include "appdata/alert.hpp"
#include "appdata/container.hpp"
#include "clipboard/clipboard.hpp"
#include "menu/cache_size.hpp"
#include "menu/shortcut.hpp"
#include "platform/dispatch.hpp"
#include "settings/settings.hpp"
#include "state/generation.hpp"
#include "state/target.hpp"

namespace menu {
namespace {

// The sheet now shown; it keeps a second one away until 0.8 seconds after its presentation.
constinit Slot<UIAlertController> openSheet;
// Whether the presentation of that sheet has been asked for, and not broken off by an exception.
constinit bool sheetIsUp = false;
// The badge that the target icon shows; nil when it shows none.
constinit Slot<NSObject> currentBadge;

/// What the menu knows of its application while it is built.
struct Application {
  NSString* bundleText;
  NSString* dataFolder;
  NSString* cachesFolder;
  NSString* backupFolder;
  std::uint64_t cacheBytes;
  NSURL* fileManager;
};

/// What a chosen entry gets.
struct Choice {
  MenuHost* host;
  SBIcon* icon;
};

bool exists(const NSString* path) { return NSFileManager::defaultManager()->fileExists(path); }

bool canOpen(const NSURL* url) { return UIApplication::sharedApplication()->canOpenURL(url); }

// Conditions beside the entry's setting.
bool always(const Application&) { return true; }
// The bundle's text is not decoded: the file manager could not open a path with a blank anyway.
bool bundleOpens(const Application& app) { return canOpen(app.fileManager) && exists(app.bundleText); }
bool dataOpens(const Application& app) { return canOpen(app.fileManager) && exists(app.dataFolder); }
bool hasBadge(const Application&) { return static_cast<bool>(currentBadge); }
bool hasCaches(const Application& app) { return exists(app.cachesFolder); }
bool hasData(const Application& app) { return exists(app.dataFolder); }
bool hasBackups(const Application& app) { return exists(app.backupFolder); }

// Actions.
template <LiteralText Selector>
void sendToHost(const Choice& choice) {
  send(choice.host, operator""_sel<Selector>());
}

void rename(const Choice& choice) {
  SBIconView* view = Generation::current().iconView(choice.icon);
  send(send<NSObject*>("RenameIcon"_cls, "renamerWithIcon:iconView:"_sel, choice.icon, view), "receiveTouch"_sel);
}

void copyBundleIdentifier(const Choice&) { clipboard::copyBundleIdentifier(); }
void copyURLSchemes(const Choice&) { clipboard::copyURLSchemes(); }
void nothing(const Choice&) {}

/// An entry of the menu. `setting` is null for one that cannot be switched off.
struct Entry {
  const char* title;
  bool Settings::*setting;
  bool (*isShown)(const Application& app);
  void (*choose)(const Choice& choice);
  UIAlertActionStyle style = UIAlertActionStyle::standard;
};

// The destructive entries look like the others: a menu of warnings would be read by nobody.
constexpr Entry entries[] = {
    {"Open in Filza [App]", &Settings::openFilza, bundleOpens, sendToHost<"openInFilzaApp">},
    {"Open in Filza [Data]", &Settings::openFilza, dataOpens, sendToHost<"openInFilzaData">},
    {"Rename App", &Settings::useRename, always, rename},
    {"Clear Badges", &Settings::useBadge, hasBadge, sendToHost<"clearBadges">},
    {"Set Badges", &Settings::useCustom, always, sendToHost<"setBadges">},
    {"Clear Caches", &Settings::useCache, hasCaches, sendToHost<"clearCaches">},
    {"Backup Data", &Settings::useBackUp, hasData, sendToHost<"backUpData">},
    {"Restore Data", &Settings::useRestore, hasBackups, sendToHost<"restoreData">},
    {"Delete Backup Data", &Settings::delBackUp, hasBackups, sendToHost<"deleteBackUp">},
    // An application without caches has never been used; there is nothing to reset.
    {"Remove All User Data", &Settings::useReset, hasCaches, sendToHost<"resetAppData">},
    {"Copy BundleID", &Settings::useCopyID, always, copyBundleIdentifier},
    {"Copy URL Schemes", &Settings::useCopySchemes, always, copyURLSchemes},
    {"Mute Notification", &Settings::useMute, always, sendToHost<"muteNotifications">},
    {"Open App", &Settings::openApp, always, sendToHost<"openApps">},
    {"Cancel", nullptr, always, nothing, UIAlertActionStyle::cancel},
};

NSString* titleOf(const Entry& entry, const Application& app) {
  // The one entry whose title tells more than its name.
  if (entry.setting == &Settings::useCache && settings.showSize) return cacheSizeTitle(app.cacheBytes);
  return NSString::text(entry.title);
}

void addEntries(UIAlertController* sheet, const Application& app, const Choice& choice) {
  for (const Entry& entry : entries) {
    if (entry.setting != nullptr && !(settings.*entry.setting)) continue;
    if (!entry.isShown(app)) continue;
    sheet->addAction(UIAlertAction::action(titleOf(entry, app), entry.style,
                                           [host = choice.host, icon = Ref(choice.icon), choose = entry.choose] {
                                             closeAlertWindow();
                                             choose({host, icon});
                                           }));
  }
}

NSString* versionOf(NSString* bundleText) {
  NSString* bundleFolder = bundleText->replacing("%20"_ns, " "_ns);
  NSDictionary* info = NSDictionary::withContentsOfFile(bundleFolder->appending("/Info.plist"_ns));
  NSObject* version = info->objectForKey("CFBundleShortVersionString"_ns);
  return version != nullptr ? formatted(version) : " Unknown"_ns;
}

// From here on no second menu opens. Should the platform raise before the sheet is up, nothing else would ever let go
// of it.
void hold(UIAlertController* sheet) {
  openSheet.set(sheet);
  sheetIsUp = false;
  dispatch::onNextTurn([] {
    if (!sheetIsUp) openSheet.clear();
  });
}

void presentSheet(UIAlertController* sheet) {
  presentAlert(sheet, Popover::anchoredWhereKnown, makeBlock<void()>([] {
                 constexpr std::int64_t guardTime = 800'000'000;
                 dispatch::afterOnMain(guardTime, [] { openSheet.clear(); });
               }));
  sheetIsUp = true;
}

}  // namespace

void showAlertView(MenuHost* host, SEL) {
  // Held by the pool: a touch on another icon while the menu is built changes the slot.
  NSString* bundleIdentifier = settings.enabled ? currentBundleIdentifier.get() : nullptr;
  if (bundleIdentifier == nullptr) return;
  const Choice choice{host, kept(Generation::current().icon(host, bundleIdentifier))};
  currentBadge.set(choice.icon->badgeNumberOrString());

  const SBApplication* application = applicationWith(bundleIdentifier);
  const SBApplicationInfo* info = kept(application->info());
  NSString* bundle = bundleTextOf(info);
  if (bundle == nullptr) return;
  NSString* version = versionOf(bundle);
  NSString* dataFolder = dataFolderOf(info);
  NSString* cachesFolder = dataFolder->appending("/Library/Caches"_ns);
  const std::uint64_t cacheBytes = folderSize(cachesFolder);
  NSString* backups = backupFolder(bundleIdentifier);

  if (openSheet || (forceTouchActive && !settings.useForce)) return;
  NSString* message = bundleIdentifier->appending(" Ver."_ns)->appending(version);
  auto* sheet = UIAlertController::alertController(nameOf(application), message, UIAlertControllerStyle::actionSheet);
  hold(sheet);
  addEntries(sheet, {bundle, dataFolder, cachesFolder, backups, cacheBytes, NSURL::withString("filza://"_ns)}, choice);
  presentSheet(sheet);
}

}  // namespace menu
