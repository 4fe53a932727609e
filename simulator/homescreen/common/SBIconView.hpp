// An icon's picture and label on the home screen.
#pragma once

#include "simulator/frameworks/uikit/UIImageView.hpp"
#include "simulator/frameworks/uikit/UILabel.hpp"
#include "simulator/homescreen/common/SBIcon.hpp"

namespace sim {

struct SBIconView : UIView {
  Ref<SBIcon> icon;
  // A view that no initialiser has set up has neither.
  Ref<UIImageView> iconImageView;
  Ref<UILabel> labelView;
  Ref<UILabel> badgeView;  ///< nil without a badge

  /// The old generation's initialiser.
  SBIconView* initWithContentType(NSUInteger contentType);
  // The new generation's, the last of which sets the view up.
  SBIconView* initWithFrame(CGRect frame);
  SBIconView* initWithConfigurationOptions(NSUInteger options);
  SBIconView* initWithConfigurationOptionsProvider(NSUInteger options, id listLayoutProvider);

  void setIcon(SBIcon* shown);
  /// Reads the icon's name anew.
  void updateLabel();
  /// What is spoken to a person who cannot see the icon: its name, read anew.
  id accessibilityLabel();
  void layoutSubviews();
  /// Reads the icon's badge anew.
  void updateBadge();
  /// An icon in the dock has none.
  void removeLabel();

 private:
  SBIconView* setUp();
};

void defineSBIconView(Generation generation);

}  // namespace sim
