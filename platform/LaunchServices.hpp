// What is installed, as every process may ask.
#pragma once

#include "platform/Foundation.hpp"

class LSApplicationProxy : public NSObject {
 public:
  /// May be nil, or know nothing, when there is no such application.
  static LSApplicationProxy* withIdentifier(const NSString* bundleIdentifier) {
    return send<LSApplicationProxy*>("LSApplicationProxy"_cls, "applicationProxyForIdentifier:"_sel, bundleIdentifier);
  }
  /// The application's own name.
  NSString* localizedName() const { return send<NSString*>(this, "localizedName"_sel); }
};
