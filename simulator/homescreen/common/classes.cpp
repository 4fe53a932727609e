#include "simulator/homescreen/common/classes.hpp"

#include "simulator/homescreen/common/FBSSystemService.hpp"
#include "simulator/homescreen/common/SBApplicationController.hpp"
#include "simulator/homescreen/common/SBBookmarkIcon.hpp"
#include "simulator/homescreen/common/SBDownloadingIcon.hpp"
#include "simulator/homescreen/common/SBIconListView.hpp"
#include "simulator/homescreen/common/SBIconModel.hpp"
#include "simulator/homescreen/common/SBNCScreenController.hpp"
#include "simulator/homescreen/common/SBNCSoundController.hpp"
#include "simulator/homescreen/common/SBRootFolderView.hpp"
#include "simulator/homescreen/common/SBSApplicationShortcutItem.hpp"
#include "simulator/homescreen/common/SpringBoard.hpp"
#include "simulator/homescreen/common/platform_actions.hpp"
#include "simulator/homescreen/common/windows.hpp"

namespace sim {

void defineHomeScreenClasses() {
  defineSpringBoard();
  defineSystemWindows();
  defineSBApplicationInfo();
  defineSBApplication();
  defineSBApplicationController();
  defineSBIcon(homeState().generation);
  defineSBLeafIcon();
  defineSBApplicationIcon();
  defineSBBookmarkIcon();
  defineSBDownloadingIcon();
  defineSBIconModel();
  defineSBIconView(homeState().generation);
  defineSBIconListView();
  defineSBRootFolderView();
  defineSBSApplicationShortcutCustomImageIcon();
  defineSBSApplicationShortcutItem();
  defineNCNotificationRequest();
  defineSBNCScreenController();
  defineSBNCSoundController();
  defineFBSSystemService();
  platformActions().defineClasses();
}

}  // namespace sim
