// Controllers on their way onto the screen or off it.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "simulator/runtime/objc.hpp"

namespace sim {

struct UIViewController;

struct Transition {
  enum class Kind { presentation, dismissal, push, pop };
  Kind kind;
  Ref<UIViewController> controller;
  std::int64_t start, end;  ///< moments, as `clock::passed` counts
};

/// The animations that go on, in the order of their beginnings.
const std::vector<Transition>& transitions();
/// The controller's animation; null while none goes on.
const Transition* transitionOf(const UIViewController* controller);
/// Begins one: 0.4 seconds for a presentation, 0.3 for a dismissal, 0.35 for a push or a pop. `done` runs at its end;
/// without an animation at the main queue's next turn.
void beginTransition(Transition::Kind kind, UIViewController* controller, bool animated, std::function<void()> done);

/// Whether anything is animated; it is until said otherwise.
void setAnimations(bool on);

}  // namespace sim
