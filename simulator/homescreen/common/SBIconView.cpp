#include "simulator/homescreen/common/SBIconView.hpp"

namespace sim {
namespace {
constexpr CGFloat side = 60;
constexpr CGFloat labelHeight = 14;
constexpr CGRect standardFrame{{0, 0}, {side, side + labelHeight}};
}  // namespace

SBIconView* SBIconView::setUp() {
  auto* view = sendSuper<SBIconView*>(this, "UIView"_cls, "initWithFrame:"_sel, standardFrame);
  if (view == nullptr) return nullptr;
  view->iconImageView = make<UIImageView>("UIImageView"_cls);
  view->labelView = make<UILabel>("UILabel"_cls);
  send(view, "addSubview:"_sel, view->iconImageView.get());
  send(view, "addSubview:"_sel, view->labelView.get());
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
  send(iconImageView, "setFrame:"_sel, CGRect{{0, 0}, {side, side}});
  send(labelView, "setFrame:"_sel, CGRect{{0, side}, {side, labelHeight}});
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
