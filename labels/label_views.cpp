#include "labels/label_views.hpp"

#include "settings/settings.hpp"

namespace labels {
namespace {

UIView* labelOf(const SBIconView* view) { return static_cast<UIView*>(view->valueForKey("_labelView"_ns)); }

void listen(SBIconView* view, SEL selector, NSString* name) {
  NSNotificationCenter::defaultCenter()->addObserver(view, selector, name);
}
void listenForLabelUpdates(SBIconView* view) {
  listen(view, "recievedIconLablelUpdate"_sel, "com.morvanel.sprigdial.isIconLabeUpdate"_ns);
}

// A view that passes through several initialisers listens several times; hearing twice does no harm.
SBIconView* listening(SBIconView* view) {
  send(view, "_sprigDial_registerNotification"_sel);
  return view;
}

}  // namespace

void layoutSubviews(SBIconView* view, SEL selector) {
  platformLayoutSubviews(view, selector);
  if (settings.enabled && settings.hideLabel) labelOf(view)->setHidden(true);
}

void recievedIconLablelUpdate(SBIconView* view, SEL) {
  // Deliberately the opposite of the setting in force: the settings pane counts on this.
  if (settings.enabled) labelOf(view)->setHidden(!settings.hideLabel);
}

void renameIconLablelUpdate(SBIconView* view, SEL) {
  if (settings.enabled) view->updateLabel();
}

void registerNotification(SBIconView* view, SEL) {
  listenForLabelUpdates(view);
  listen(view, "renameIconLablelUpdate"_sel, "com.morvanel.sprigdial.renameIconLablel"_ns);
}

SBIconView* initWithContentType(SBIconView* view, SEL selector, NSUInteger contentType) {
  // The receiver listens. An initialiser that gives another object in its place has let go of it by then; the center
  // forgets observers that go.
  kept(view);
  SBIconView* made = platformInitWithContentType(view, selector, contentType);
  if (made != nullptr) listenForLabelUpdates(view);
  return made;
}

SBIconView* initWithFrame(SBIconView* view, SEL selector, CGRect frame) {
  return listening(platformInitWithFrame(view, selector, frame));
}

SBIconView* initWithOptions(SBIconView* view, SEL selector, NSUInteger options) {
  return listening(platformInitWithOptions(view, selector, options));
}

SBIconView* initWithOptionsAndLayout(SBIconView* view, SEL selector, NSUInteger options, NSObject* layoutProvider) {
  return listening(platformInitWithOptionsAndLayout(view, selector, options, layoutProvider));
}

}  // namespace labels
