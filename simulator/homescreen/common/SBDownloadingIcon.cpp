#include "simulator/homescreen/common/SBDownloadingIcon.hpp"

#include "simulator/homescreen/common/icons.hpp"

namespace sim {

void SBDownloadingIcon::uninstalledByUser() { removeIcon(this); }

void defineSBDownloadingIcon() {
  ClassBuilder<SBDownloadingIcon, SBApplicationIcon>("SBDownloadingIcon", "SBApplicationIcon")
      .method<&SBDownloadingIcon::isDownloadingIcon>("isDownloadingIcon")
      .method<&SBDownloadingIcon::uninstalledByUser>("uninstalledByUser")
      .add();
}

}  // namespace sim
