// The icons on the home screen, kept in step with what is installed.
#pragma once

#include "simulator/homescreen/common/SBIconListView.hpp"
#include "simulator/homescreen/common/SBIconModel.hpp"

namespace sim {

/// The home screen's one model and its one page.
SBIconModel* iconModel();
SBIconListView* iconPage();

/// Adds and removes icons as applications and web pages came and went since the last call.
void readInstalled();
/// Lays the page out, as whenever it comes into view.
void showIcons();

/// The icon of an application, or of a web page by its title. Throws `BadRequest`.
SBIcon* requireIcon(const std::string& idOrTitle);
SBIconView* viewOf(SBIcon* icon);

/// Puts an icon of an application that is still on its way on the home screen.
void addDownloadingIcon(const std::string& bundleIdentifier);
/// Takes an icon away, and its application with it.
void removeIcon(SBIcon* icon);

}  // namespace sim
