#pragma once

#include <functional>

#include "simulator/runtime/blocks.hpp"
#include "simulator/runtime/class_builder.hpp"

namespace sim {

/// A URL that the process asked the system to open.
struct OpenedURL {
  std::string url;
  bool opened = false;  ///< whether an application took it
};

/// The process as an application.
struct UIApplication : Object {
  /// The one that `startApplication` made; nil before.
  static UIApplication* sharedApplication(Class cls);
  /// Whether an application takes URLs of that scheme; NO for nil.
  BOOL canOpenURL(id url);
  /// The completion handler is called with YES or NO at the end of the current event.
  void openURL(id url, id options, const BlockLiteral* completion);
};

/// Makes the process's one application object, of `UIApplication` or a subclass.
UIApplication* startApplication(Class cls);
/// Supplies the answer to whether an application takes URLs of a scheme (in lower case). No scheme is taken until
/// this is called.
void setURLSchemeLookup(std::function<bool(const std::string& scheme)> lookup);
/// The URLs asked for since the process began, oldest first.
const std::vector<OpenedURL>& openedURLs();

void defineUIApplication();

}  // namespace sim
