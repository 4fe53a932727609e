// What the pane's lists have in common.
#pragma once

#include "platform/Preferences.hpp"

namespace pane {

/// The pane's folder.
inline NSString* bundlePath() { return "/Library/PreferenceBundles/SprigdialSettings.bundle"_ns; }

/// Registers a list of that name with the runtime and gives its class; nil when there is no such superclass, or a class
/// of that name already.
Class registerList(const char* name, Class superclass);

/// Answers `specifiers`: `Make` gives the rows, when they are first asked for and after each reload.
template <auto* Make>
NSArray* rows(PSListController* list, SEL) {
  Slot<NSArray>* kept = list->rows();
  if (kept == nullptr) return Make(list);
  if (!*kept) kept->set(Make(list));
  return kept->get();
}

/// A row that shows an application by its own name, or by its identifier when it is not installed, and a text.
PSSpecifier* applicationRow(PSListController* list, NSString* bundleIdentifier, NSString* text);
/// The identifier of such a row; nil for another.
NSString* applicationOf(const PSSpecifier* row);

}  // namespace pane
