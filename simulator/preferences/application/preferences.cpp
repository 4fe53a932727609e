// The settings application's process: frameworks, its own classes, and then the application object, which shows the
// first list. A pane's image is mapped when its row is tapped.
#include "simulator/frameworks/preferences/preferences.hpp"
#include "simulator/control/agent/start_up.hpp"
#include "simulator/preferences/application/PSUIPrefsListController.hpp"
#include "simulator/preferences/application/PreferencesAppController.hpp"
#include "simulator/preferences/application/pane_verbs.hpp"
#include "simulator/preferences/application/relaunch.hpp"
#include "simulator/runtime/main_queue.hpp"

namespace {

void launch() {
  sim::defineRelaunch();
  sim::definePreferences();
  sim::definePSUIPrefsListController();
  sim::definePreferencesAppController();
  sim::UIApplication* application = sim::startApplication("PreferencesAppController"_cls);
  sim::send(application, "applicationDidFinishLaunching:"_sel, static_cast<id>(application));
  sim::runDueWork();
}

}  // namespace

int main(int count, char** words) {
  sim::StartOptions options;
  sim::setVerbs("the settings application", sim::paneVerbs());
  return sim::runProgram("Preferences", count, words, options, sim::optionRows(options), launch);
}
