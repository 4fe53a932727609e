#include "clipboard/clipboard.hpp"

#include "appdata/alert.hpp"
#include "appdata/container.hpp"
#include "state/target.hpp"

namespace clipboard {
namespace {

void copy(NSString* text) { UIPasteboard::generalPasteboard()->setValue(text, "public.utf8-plain-text"_ns); }

// "NAME: SCHEME:// SCHEME:// " and a line feed; nothing for a URL type without schemes. What is of another kind than an
// application declares it in counts as absent.
NSString* lineOf(NSDictionary* urlType) {
  auto* schemes = as<NSArray>(urlType->objectForKey("CFBundleURLSchemes"_ns));
  if (schemes == nullptr) return ""_ns;
  auto* name = as<NSString>(urlType->objectForKey("CFBundleURLName"_ns));
  NSString* line = (name != nullptr ? name : "Unknown Scheme"_ns)->appending(": "_ns);
  const NSUInteger count = schemes->count();
  for (NSUInteger i = 0; i < count; ++i) {
    auto* scheme = as<NSString>(schemes->at(i));
    if (scheme != nullptr) line = line->appending(scheme)->appending(":// "_ns);
  }
  return line->appending("\n"_ns);
}

NSString* listingOf(const NSArray* urlTypes) {
  NSString* listing = ""_ns;
  const NSUInteger count = urlTypes->count();
  for (NSUInteger i = 0; i < count; ++i) {
    auto* urlType = as<NSDictionary>(urlTypes->at(i));
    if (urlType != nullptr) listing = listing->appending(lineOf(urlType));
  }
  return listing;
}

// What the application declares, of whatever kind; nil when it declares nothing.
NSObject* declaredTypes() {
  NSString* bundle = bundleTextOf(targetApplication()->info());
  if (bundle == nullptr) return nullptr;
  return NSDictionary::withContentsOfFile(bundle->appending("/Info.plist"_ns))->objectForKey("CFBundleURLTypes"_ns);
}

}  // namespace

void copyBundleIdentifier() {
  if (currentBundleIdentifier) copy(currentBundleIdentifier.get());
}

void copyURLSchemes() {
  NSObject* types = declaredTypes();
  NSString* listing = listingOf(as<NSArray>(types));
  // Also an empty listing: whoever pastes next must not find the text of another application.
  if (types != nullptr) copy(listing);
  if (listing->length() > 0) return;
  presentMessage("Not Found"_ns, "This application doesn't have any URL Schemes."_ns, UIAlertActionStyle::cancel);
}

}  // namespace clipboard
