#include "simulator/preferences/application/pane_gestures.hpp"

#include <charconv>
#include <cmath>
#include <optional>
#include <vector>

#include "simulator/control/agent/verbs.hpp"
#include "simulator/frameworks/preferences/PSEditableListController.hpp"
#include "simulator/frameworks/preferences/PSEditableTableCell.hpp"
#include "simulator/frameworks/preferences/PSSegmentTableCell.hpp"
#include "simulator/frameworks/preferences/PSSliderTableCell.hpp"
#include "simulator/frameworks/preferences/PSSwitchTableCell.hpp"
#include "simulator/frameworks/uikit/UINavigationItem.hpp"
#include "simulator/frameworks/uikit/UIScrollView.hpp"
#include "simulator/frameworks/uikit/transitions.hpp"
#include "simulator/homescreen/common/touches.hpp"
#include "simulator/preferences/application/PreferencesAppController.hpp"
#include "simulator/runtime/clock.hpp"
#include "simulator/runtime/main_queue.hpp"

namespace sim::pane {
namespace {

std::string quoted(const std::string& name) { return "\"" + name + "\""; }

std::string joined(const std::vector<std::string>& names) {
  std::string text;
  for (const auto& name : names) text += (text.empty() ? "" : ", ") + quoted(name);
  return text;
}

UINavigationController* navigation() { return settingsApplication()->navigation; }

// What moves takes no touches.
void waitUntilStill() {
  runDueWork();
  while (!transitions().empty()) advanceClock(transitions().front().end - clock::passed());
}

/// A row of the list that is shown.
struct Row {
  PSListController* list;
  PSTableCell* cell;
};

Row requireRow(const std::string& label) {
  waitUntilStill();
  UIViewController* top = navigation()->topViewController();
  if (!isKind(top, "PSListController"_cls)) throw Refused("There is no list on the screen");
  auto* list = static_cast<PSListController*>(top);
  std::vector<std::string> labels;
  std::vector<PSTableCell*> called;
  for (UIView* view : list->table->subviews) {
    if (!isKind(view, "PSTableCell"_cls)) continue;
    auto* cell = static_cast<PSTableCell*>(view);
    labels.push_back(text(cell->specifier->name));
    if (labels.back() == label) called.push_back(cell);
  }
  if (called.size() > 1) throw Refused("More cells than one are called " + quoted(label));
  if (called.empty())
    throw Refused("No cell " + quoted(label) + "; there are " + (labels.empty() ? "none" : joined(labels)));
  if (!called[0]->cellEnabled()) throw Refused(quoted(label) + " cannot be used now");
  return {list, called[0]};
}

// A finger can come down on the view.
void reach(UIView* view, const std::string& label) {
  scrollToVisible(view);
  touches::reach(view, label);
}

void tell(UIControl* control) { send(control, "sendActionsForControlEvents:"_sel, UIControlEvents::valueChanged); }

void setSwitch(PSTableCell* cell, const std::string& label, const std::string& value) {
  auto* toggle = static_cast<UISwitch*>(static_cast<PSSwitchTableCell*>(cell)->control.get());
  if (value != "on" && value != "off") throw Refused(quoted(label) + " is a switch: neither on nor off: " + value);
  if (toggle->on == (value == "on")) return;
  reach(toggle, label);
  toggle->on = !toggle->on;
  tell(toggle);
}

void setSegment(PSTableCell* cell, const std::string& label, const std::string& value) {
  auto* segments = static_cast<UISegmentedControl*>(static_cast<PSSegmentTableCell*>(cell)->control.get());
  std::vector<std::string> titles;
  for (NSUInteger i = 0; i < segments->numberOfSegments(); ++i) titles.push_back(text(segments->titleForSegment(i)));
  const auto chosen = std::find(titles.begin(), titles.end(), value);
  if (chosen == titles.end())
    throw Refused(quoted(label) + " has no segment " + quoted(value) + "; there are " + joined(titles));
  reach(segments, label);
  const auto index = chosen - titles.begin();
  if (segments->selectedSegmentIndex == index) return;
  segments->selectedSegmentIndex = index;
  tell(segments);
}

void setSlider(PSTableCell* cell, const std::string& label, const std::string& value) {
  auto* slider = static_cast<UISlider*>(static_cast<PSSliderTableCell*>(cell)->control.get());
  float number = 0;
  const char* end = value.data() + value.size();
  const auto [rest, failed] = std::from_chars(value.data(), end, number);
  if (failed != std::errc() || rest != end || !(number >= slider->minimumValue && number <= slider->maximumValue)) {
    char range[64];
    std::snprintf(range, sizeof range, "%g to %g", static_cast<double>(slider->minimumValue),
                  static_cast<double>(slider->maximumValue));
    throw Refused(quoted(label) + " is a slider from " + range + ": " + value);
  }
  reach(slider, label);
  slider->value = number;
  tell(slider);
}

void setText(PSTableCell* cell, const std::string& label, const std::string& value) {
  auto* row = static_cast<PSEditableTableCell*>(cell);
  reach(row->textField, label);
  send<BOOL>(row->textField.get(), "becomeFirstResponder"_sel);
  row->textField->typeOver(value);
  row->endEditing();
}

/// How a row of that class is set.
struct Setter {
  const char* className;
  void (*set)(PSTableCell* cell, const std::string& label, const std::string& value);
};
constexpr Setter setters[] = {{"PSSwitchTableCell", setSwitch},
                              {"PSSegmentTableCell", setSegment},
                              {"PSSliderTableCell", setSlider},
                              {"PSEditableTableCell", setText}};

// None when the row is there to be pressed, or for nothing.
const Setter* setterOf(PSTableCell* cell) {
  for (const Setter& setter : setters)
    if (isKind(cell, objc_getClass(setter.className))) return &setter;
  return nullptr;
}

/// A button beside the title.
struct BarButton {
  UINavigationButton* view;
  std::string title;
};
std::optional<BarButton> barButton(bool back) {
  for (UIView* view : navigation()->bar->subviews) {
    if (!isKind(view, "UINavigationButton"_cls)) continue;
    auto* button = static_cast<UINavigationButton*>(view);
    if (button->back == back)
      return BarButton{button, text(static_cast<UILabel*>(button->subviews.front().get())->text)};
  }
  return std::nullopt;
}

}  // namespace

void open(const std::string& label) {
  waitUntilStill();
  send<id>(navigation(), "popToRootViewControllerAnimated:"_sel, false);
  press(label);
}

void set(const std::string& label, const std::string& value) {
  const auto [list, cell] = requireRow(label);
  const Setter* setter = setterOf(cell);
  if (setter == nullptr) throw Refused(quoted(label) + " has nothing to set; it can be pressed");
  const Ref<PSTableCell> kept = cell;
  setter->set(cell, label, value);
  waitUntilStill();
}

void press(const std::string& label) {
  waitUntilStill();
  if (touches::topAlert() != nullptr) {
    verbNamed("tap").perform({{"title", label}});
    return;
  }
  if (const auto button = barButton(false); button && button->title == label) {
    reach(button->view, label);
    const Ref<UIBarButtonItem> item = navigation()->topViewController()->ownNavigationItem->rightBarButtonItem;
    send(item->target, item->action, static_cast<id>(item.get()));
  } else {
    const auto [list, cell] = requireRow(label);
    if (setterOf(cell) != nullptr) throw Refused(quoted(label) + " is not pressed but set");
    reach(cell, label);
    list->didSelect(cell);
  }
  waitUntilStill();
}

void remove(const std::string& label) {
  const auto [list, cell] = requireRow(label);
  if (!canBeDeleted(list, cell->specifier)) throw Refused(quoted(label) + " cannot be swiped away");
  reach(cell, label);
  static_cast<PSEditableListController*>(list)->commitDeletion(cell->specifier);
  waitUntilStill();
}

void back() {
  waitUntilStill();
  const auto button = barButton(true);
  if (!button) throw Refused("This is the first list: there is no way back");
  reach(button->view, button->title);
  send<id>(navigation(), "popViewControllerAnimated:"_sel, true);
  waitUntilStill();
}

}  // namespace sim::pane
