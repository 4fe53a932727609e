#include "simulator/homescreen/common/icons.hpp"

#include <algorithm>
#include <set>

#include "simulator/frameworks/foundation/dictionaries.hpp"
#include "simulator/homescreen/common/SBApplicationController.hpp"
#include "simulator/homescreen/common/badge_store.hpp"
#include "simulator/homescreen/common/measures.hpp"
#include "simulator/homescreen/common/refused.hpp"
#include "simulator/homescreen/common/shared_instance.hpp"

namespace sim {
namespace {

std::string bundleIdentifierOf(SBIcon* icon) { return text(send<id>(icon, "applicationBundleID"_sel)); }

SBIcon* iconOfApplication(const std::string& bundleIdentifier) {
  return send<SBIcon*>(iconModel(), "applicationIconForBundleIdentifier:"_sel, ns(bundleIdentifier));
}

SBIcon* iconOfBookmark(const std::string& title) {
  for (SBIcon* icon : iconModel()->icons)
    if (isKind(icon, "SBBookmarkIcon"_cls) && text(send<id>(icon, "displayName"_sel)) == title) return icon;
  return nullptr;
}

bool isDownloading(SBIcon* icon) { return isKind(icon, "SBDownloadingIcon"_cls); }

// Whether the user has put the application in the dock. The dock takes no more than it has places.
bool belongsInDock(SBIcon* icon) {
  auto docked = arrayIn(dictionaryAt("/var/mobile/Library/SpringBoard/IconState.plist"), "buttonBar", "NSString"_cls);
  docked.resize(std::min(docked.size(), measures().dockColumns));
  const std::string identifier = bundleIdentifierOf(icon);
  return std::any_of(docked.begin(), docked.end(), [&](id each) { return text(each) == identifier; });
}

// The name that the application brings along, as far as it is known.
std::string ownName(const std::string& bundleIdentifier) {
  id known = SBApplicationController::shared()->applicationWithBundleIdentifier(ns(bundleIdentifier));
  return text(send<id>(send<id>(known, "info"_sel), "displayName"_sel));
}

// Adds a new icon of the class, initialised with one object.
SBIcon* addIcon(Class cls, SEL initialiser, id content) {
  auto* icon = send<SBIcon*>(send<id>(cls, "alloc"_sel), initialiser, content);
  iconModel()->icons.push_back(Ref<SBIcon>::adopt(icon));
  rootFolder()->show(icon, belongsInDock(icon));
  return icon;
}

void addApplications(const std::vector<InstalledApplication>& installed) {
  for (const auto& application : installed) {
    if (SBIcon* icon = iconOfApplication(application.bundleIdentifier); isDownloading(icon)) removeIcon(icon);
    const std::string nameBefore = ownName(application.bundleIdentifier);
    SBApplication* known = SBApplicationController::shared()->update(application);
    if (SBIcon* icon = iconOfApplication(application.bundleIdentifier); icon != nullptr) {
      if (application.name != nameBefore) send(viewOf(icon), "_updateLabel"_sel);
      continue;
    }
    SBIcon* icon = addIcon("SBApplicationIcon"_cls, "initWithApplication:"_sel, known);
    send(icon, "setBadge:"_sel, storedBadge(application.bundleIdentifier));
  }
}

void removeMissing(const std::vector<InstalledApplication>& installed, const std::vector<std::string>& bookmarks) {
  std::set<std::string> identifiers;
  for (const auto& application : installed) identifiers.insert(application.bundleIdentifier);
  const std::set<std::string> titles(bookmarks.begin(), bookmarks.end());
  const auto icons = iconModel()->icons;
  for (SBIcon* icon : icons) {
    const bool present = isDownloading(icon) ||
                         (isKind(icon, "SBBookmarkIcon"_cls) ? titles.contains(text(send<id>(icon, "displayName"_sel)))
                                                             : identifiers.contains(bundleIdentifierOf(icon)));
    if (!present) removeIcon(icon);
  }
}

}  // namespace

SBIconModel* iconModel() { return static_cast<SBIconModel*>(sharedInstance("SBIconModel"_cls)); }
SBRootFolderView* rootFolder() { return static_cast<SBRootFolderView*>(sharedInstance("SBRootFolderView"_cls)); }

void readInstalled() {
  const auto installed = installedApplications();
  const auto bookmarks = installedBookmarks();
  removeMissing(installed, bookmarks);
  addApplications(installed);
  for (const auto& title : bookmarks)
    if (iconOfBookmark(title) == nullptr) addIcon("SBBookmarkIcon"_cls, "initWithTitle:"_sel, ns(title));
  showIcons();
}

void showIcons() { rootFolder()->arrange(iconModel()->icons); }

SBIcon* requireIcon(const std::string& idOrTitle) {
  SBIcon* icon = iconOfApplication(idOrTitle);
  if (icon == nullptr) icon = iconOfBookmark(idOrTitle);
  if (icon == nullptr) throw Refused("There is no icon \"" + idOrTitle + "\" on the home screen");
  return icon;
}

SBIconView* viewOf(SBIcon* icon) { return send<SBIconView*>(rootFolder(), "iconViewForIcon:"_sel, icon); }

void addDownloadingIcon(const std::string& bundleIdentifier) {
  if (iconOfApplication(bundleIdentifier) != nullptr)
    throw Refused("\"" + bundleIdentifier + "\" is on the home screen already");
  InstalledApplication placeholder;
  placeholder.bundleIdentifier = placeholder.name = bundleIdentifier;
  addIcon("SBDownloadingIcon"_cls, "initWithApplication:"_sel, SBApplicationController::shared()->update(placeholder));
  showIcons();
}

void removeIcon(SBIcon* icon) {
  const Ref<SBIcon> kept = icon;
  const std::string identifier = bundleIdentifierOf(icon);
  rootFolder()->remove(icon);
  std::erase(iconModel()->icons, kept);
  SBApplicationController::shared()->remove(identifier);
  std::erase(homeState().switcher, identifier);
  if (homeState().frontmost == identifier) homeState().frontmost.clear();
  showIcons();
}

}  // namespace sim
