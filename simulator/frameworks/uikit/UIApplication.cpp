#include "simulator/frameworks/uikit/UIApplication.hpp"

#include "platform/dispatch.hpp"

namespace sim {
namespace {

Slot<UIApplication> shared;

std::function<bool(const std::string&)>& schemeLookup() {
  static std::function<bool(const std::string&)> lookup = [](const std::string&) { return false; };
  return lookup;
}

std::vector<OpenedURL>& urls() {
  static std::vector<OpenedURL> opened;
  return opened;
}

}  // namespace

UIApplication* UIApplication::sharedApplication(Class) { return shared.get(); }

BOOL UIApplication::canOpenURL(id url) {
  id scheme = send<id>(send<id>(url, "scheme"_sel), "lowercaseString"_sel);
  return scheme != nullptr && schemeLookup()(text(scheme));
}

void UIApplication::openURL(id url, id, const BlockLiteral* completion) {
  const bool opened = send<BOOL>(this, "canOpenURL:"_sel, url);
  urls().push_back({text(send<id>(url, "absoluteString"_sel)), opened});
  dispatch::afterOnMain(0, [opened, block = BlockRef(completion)] { block(opened); });
}

UIApplication* startApplication(Class cls) {
  // An application has its screen and its device from the beginning, whoever asks for them first.
  send<id>("UIScreen"_cls, "mainScreen"_sel);
  send<id>("UIDevice"_cls, "currentDevice"_sel);
  shared.set(make<UIApplication>(cls));
  return shared.get();
}

void setURLSchemeLookup(std::function<bool(const std::string& scheme)> lookup) { schemeLookup() = std::move(lookup); }

const std::vector<OpenedURL>& openedURLs() { return urls(); }

void defineUIApplication() {
  ClassBuilder<UIApplication>("UIApplication", "NSObject")
      .classMethod<&UIApplication::sharedApplication>("sharedApplication")
      .method<&UIApplication::canOpenURL>("canOpenURL:")
      .method<&UIApplication::openURL>("openURL:options:completionHandler:")
      .add();
}

}  // namespace sim
