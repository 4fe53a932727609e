#include "simulator/frameworks/uikit/transitions.hpp"

#include <algorithm>

#include "platform/dispatch.hpp"
#include "simulator/frameworks/uikit/UIViewController.hpp"
#include "simulator/runtime/clock.hpp"

namespace sim {
namespace {

constexpr std::int64_t presenting = 400'000'000;
constexpr std::int64_t dismissing = 300'000'000;
constexpr std::int64_t sliding = 350'000'000;
/// By the order of `Transition::Kind`.
constexpr std::int64_t durations[] = {presenting, dismissing, sliding, sliding};

bool animating = true;

std::vector<Transition>& running() {
  static std::vector<Transition> all;
  return all;
}

}  // namespace

const std::vector<Transition>& transitions() { return running(); }

const Transition* transitionOf(const UIViewController* controller) {
  const auto found = std::find_if(running().begin(), running().end(),
                                  [&](const Transition& each) { return each.controller.get() == controller; });
  return found != running().end() ? &*found : nullptr;
}

void beginTransition(Transition::Kind kind, UIViewController* controller, bool animated, std::function<void()> done) {
  if (!animated || !animating) {
    dispatch::afterOnMain(0, [done = std::move(done)] { done(); });
    return;
  }
  const std::int64_t duration = durations[static_cast<std::size_t>(kind)];
  running().push_back({kind, controller, clock::passed(), clock::passed() + duration});
  dispatch::afterOnMain(duration, [controller, done = std::move(done)] {
    std::erase_if(running(), [&](const Transition& each) { return each.controller.get() == controller; });
    done();
  });
}

void setAnimations(bool on) { animating = on; }

}  // namespace sim
