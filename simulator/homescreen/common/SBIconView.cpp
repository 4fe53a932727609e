#include "simulator/homescreen/common/SBIconView.hpp"

#include "simulator/homescreen/common/SBApplicationIcon.hpp"
#include "simulator/homescreen/common/measures.hpp"

namespace sim {
namespace {

constexpr CGFloat labelHeight = 14, labelFont = 12;
constexpr CGFloat badgeSide = 24, badgeOverlap = 14, badgeFont = 16;

CGRect pictureFrame() { return {{}, {measures().icon, measures().icon}}; }

// What the application brings along; nil for what is no application, or has no picture.
UIImage* pictureOf(SBIcon* icon) {
  if (!isKind(icon, "SBApplicationIcon"_cls)) return nullptr;
  const SBApplication* application = static_cast<SBApplicationIcon*>(icon)->application;
  const auto& bundle = application->info->application.bundlePath;
  return bundle.empty() ? nullptr : UIImage::imageWithContentsOfFile("UIImage"_cls, ns(bundle + "/Icon.png"));
}

}  // namespace

SBIconView* SBIconView::setUp() {
  const CGFloat side = measures().icon;
  auto* view = sendSuper<SBIconView*>(this, "UIView"_cls, "initWithFrame:"_sel, CGRect{{}, {side, side + labelHeight}});
  if (view == nullptr) return nullptr;
  view->iconImageView = addView<UIImageView>(view, "UIImageView"_cls, {});
  view->labelView = addLabel(view, {}, nullptr, {.fontSize = labelFont});
  view->labelView->textColor = send<UIColor*>("UIColor"_cls, "whiteColor"_sel);
  return view;
}

SBIconView* SBIconView::initWithContentType(NSUInteger) { return setUp(); }

SBIconView* SBIconView::initWithFrame(CGRect frame) {
  auto* view = send<SBIconView*>(this, "initWithConfigurationOptions:"_sel, NSUInteger{0});
  send(view, "setFrame:"_sel, frame);
  return view;
}

SBIconView* SBIconView::initWithConfigurationOptions(NSUInteger options) {
  return send<SBIconView*>(this, "initWithConfigurationOptions:listLayoutProvider:"_sel, options, id{nullptr});
}

SBIconView* SBIconView::initWithConfigurationOptionsProvider(NSUInteger, id) { return setUp(); }

void SBIconView::setIcon(SBIcon* shown) {
  icon = shown;
  iconImageView->image = pictureOf(shown);
  updateBadge();
  send(this, "_updateLabel"_sel);
}

void SBIconView::updateLabel() {
  id name = iconsKnowLocations() ? send<id>(icon, "displayNameForLocation:"_sel, NSInteger{0})
                                 : send<id>(icon, "displayName"_sel);
  send(labelView, "setText:"_sel, name);
}

id SBIconView::accessibilityLabel() { return send<id>(icon, "displayName"_sel); }

void SBIconView::layoutSubviews() {
  sendSuper(this, "UIView"_cls, "layoutSubviews"_sel);
  const CGFloat side = measures().icon;
  send(iconImageView, "setFrame:"_sel, pictureFrame());
  send(labelView, "setFrame:"_sel, CGRect{{0, side}, {side, labelHeight}});
}

void SBIconView::updateBadge() {
  if (badgeView) badgeView->removeFromSuperview();
  badgeView = nullptr;
  if (!icon->badge) return;
  const CGPoint corner{measures().icon - badgeOverlap, badgeOverlap - badgeSide};
  badgeView = addLabel(this, {corner, {badgeSide, badgeSide}}, ns(text(icon->badge)), {.fontSize = badgeFont});
  badgeView->textColor = send<UIColor*>("UIColor"_cls, "whiteColor"_sel);
  badgeView->backgroundColor =
      send<UIColor*>("UIColor"_cls, "colorWithRed:green:blue:alpha:"_sel, 1.0, 0.23, 0.19, 1.0);
  badgeView->layer()->cornerRadius = badgeSide / 2;
}

void SBIconView::removeLabel() {
  labelView->removeFromSuperview();
  labelView = nullptr;
}

void defineSBIconView(Generation generation) {
  ClassBuilder<SBIconView, UIView> builder("SBIconView", "UIView");
  builder.ivar("_iconImageView", &SBIconView::iconImageView)
      .ivar("_labelView", &SBIconView::labelView)
      .getter<&SBIconView::icon>("icon")
      .method<&SBIconView::setIcon>("setIcon:")
      .method<&SBIconView::updateLabel>("_updateLabel")
      .method<&SBIconView::accessibilityLabel>("accessibilityLabel")
      .method<&SBIconView::layoutSubviews>("layoutSubviews");
  if (generation == Generation::old) {
    builder.method<&SBIconView::initWithContentType>("initWithContentType:");
  } else {
    builder.method<&SBIconView::initWithFrame>("initWithFrame:")
        .method<&SBIconView::initWithConfigurationOptions>("initWithConfigurationOptions:")
        .method<&SBIconView::initWithConfigurationOptionsProvider>("initWithConfigurationOptions:listLayoutProvider:");
  }
  builder.add();
}

}  // namespace sim
