// How a process asks for the home screen to be started anew: SBSRelaunchAction, sent by FBSSystemService.
#pragma once

namespace sim {

void defineRelaunch();

}  // namespace sim
