// The home-screen process. It comes up as on a phone: frameworks, the home screen's classes, the add-on, and
// then the application object, whose launching builds the home screen.
#include "simulator/homescreen/common/SpringBoard.hpp"

#include <cstdio>
#include <string>
#include <vector>

#include "simulator/control/agent/start_up.hpp"
#include "simulator/control/agent/verbs.hpp"
#include "simulator/homescreen/common/classes.hpp"
#include "simulator/homescreen/common/home.hpp"
#include "simulator/runtime/add_ons.hpp"
#include "simulator/runtime/interposition.hpp"
#include "simulator/runtime/main_queue.hpp"

namespace {

struct Options : sim::StartOptions {
  std::vector<std::string> interposed;  // methods
};

void launch(const Options& options) {
  sim::defineHomeScreenClasses();
  for (const auto& method : options.interposed) sim::interpose(method);
  for (const std::string& line : sim::mapAddOns("com.apple.springboard")) {
    std::fprintf(stderr, "SpringBoard: %s\n", line.c_str());
    sim::homeState().events.push_back(line);
  }
  sim::UIApplication* springBoard = sim::startApplication("SpringBoard"_cls);
  sim::send(springBoard, "applicationDidFinishLaunching:"_sel, springBoard);
  sim::runDueWork();
}

}  // namespace

int main(int count, char** words) {
  Options options;
  auto rows = sim::optionRows(options);
  rows.push_back({"interpose", true, [&](const char* value) { options.interposed.emplace_back(value); }});
  sim::setVerbs("the home screen", sim::homeScreenVerbs());
  return sim::runProgram("SpringBoard", count, words, options, rows, [&] { launch(options); });
}
