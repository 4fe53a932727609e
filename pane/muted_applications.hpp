// The page of muted applications, to look at.
#pragma once

namespace pane {

/// Registers `SprigdialMutedApplicationsController`.
void registerMutedApplications();

}  // namespace pane
