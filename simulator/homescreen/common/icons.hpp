// The icons on the home screen, kept in step with what is installed.
#pragma once

#include "simulator/homescreen/common/SBIconModel.hpp"
#include "simulator/homescreen/common/SBRootFolderView.hpp"

namespace sim {

/// The home screen's one model, and what shows it.
SBIconModel* iconModel();
SBRootFolderView* rootFolder();

/// Adds and removes icons as applications and web pages came and went since the last call.
void readInstalled();
/// Lays dock and pages out, as whenever it comes into view.
void showIcons();

/// The icon of an application, or of a web page by its title. Throws `Refused`.
SBIcon* requireIcon(const std::string& idOrTitle);
/// Nil while the icon has no view yet.
SBIconView* viewOf(SBIcon* icon);

/// Puts an icon of an application that is still on its way on the home screen.
void addDownloadingIcon(const std::string& bundleIdentifier);
/// Takes an icon away, and its application with it.
void removeIcon(SBIcon* icon);

}  // namespace sim
