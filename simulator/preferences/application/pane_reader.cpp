#include "simulator/preferences/application/pane_reader.hpp"

#include "simulator/control/agent/view_reader.hpp"
#include "simulator/frameworks/preferences/PSEditableListController.hpp"
#include "simulator/frameworks/preferences/PSEditableTableCell.hpp"
#include "simulator/frameworks/preferences/PSSegmentTableCell.hpp"
#include "simulator/frameworks/preferences/PSSliderTableCell.hpp"
#include "simulator/frameworks/preferences/PSSwitchTableCell.hpp"
#include "simulator/frameworks/uikit/UIKeyboard.hpp"
#include "simulator/frameworks/uikit/UITableViewHeaderFooterView.hpp"
#include "simulator/preferences/application/PreferencesAppController.hpp"
#include "simulator/runtime/clock.hpp"
#include "simulator/runtime/main_queue.hpp"

namespace sim {
namespace {

std::string kindOf(PSCellType type) {
  static constexpr std::pair<PSCellType, const char*> kinds[] = {
      {PSCellType::group, "group"},     {PSCellType::link, "link"},        {PSCellType::linkList, "link list"},
      {PSCellType::listItem, "item"},   {PSCellType::titleValue, "value"}, {PSCellType::slider, "slider"},
      {PSCellType::toggle, "switch"},   {PSCellType::staticText, "text"},  {PSCellType::editText, "edit"},
      {PSCellType::segment, "segment"}, {PSCellType::button, "button"}};
  for (const auto& [known, kind] : kinds)
    if (type == known) return kind;
  return "value";
}

void readSwitch(CellOnScreen& seen, PSTableCell* cell) {
  seen.value = static_cast<UISwitch*>(static_cast<PSSwitchTableCell*>(cell)->control.get())->on ? "on" : "off";
}

void readSlider(CellOnScreen& seen, PSTableCell* cell) {
  const auto* slider = static_cast<UISlider*>(static_cast<PSSliderTableCell*>(cell)->control.get());
  char number[32];
  std::snprintf(number, sizeof number, "%g", static_cast<double>(slider->value));
  seen.value = number;
  seen.least = slider->minimumValue;
  seen.most = slider->maximumValue;
}

void readSegments(CellOnScreen& seen, PSTableCell* cell) {
  auto* segments = static_cast<UISegmentedControl*>(static_cast<PSSegmentTableCell*>(cell)->control.get());
  for (NSUInteger i = 0; i < segments->numberOfSegments(); ++i)
    seen.choices.push_back(text(segments->titleForSegment(i)));
  if (segments->selectedSegmentIndex != UISegmentedControl::none)
    seen.value = seen.choices[static_cast<std::size_t>(segments->selectedSegmentIndex)];
}

void readField(CellOnScreen& seen, PSTableCell* cell) {
  seen.value = text(static_cast<PSEditableTableCell*>(cell)->textField->text);
}

/// What only rows of that class have.
struct Detail {
  const char* className;
  void (*read)(CellOnScreen& seen, PSTableCell* cell);
};
constexpr Detail details[] = {{"PSSwitchTableCell", readSwitch},
                              {"PSSliderTableCell", readSlider},
                              {"PSSegmentTableCell", readSegments},
                              {"PSEditableTableCell", readField}};

CellOnScreen readCell(PSTableCell* cell, const PSListController* list) {
  CellOnScreen seen;
  seen.kind = kindOf(cell->specifier->cellType);
  seen.label = text(cell->specifier->name);
  if (cell->ownDetailTextLabel) seen.value = text(cell->ownDetailTextLabel->text);
  seen.enabled = cell->cellEnabled();
  seen.deletable = canBeDeleted(list, cell->specifier);
  seen.frame = readFrame(cell->onScreen());
  for (const auto& [className, read] : details)
    if (isKind(cell, objc_getClass(className))) read(seen, cell);
  return seen;
}

std::vector<CellOnScreen> readCells(const PSListController* list) {
  std::vector<CellOnScreen> cells;
  std::size_t group = 0;
  for (UIView* view : list->table->subviews) {
    if (isKind(view, "PSTableCell"_cls)) {
      cells.push_back(readCell(static_cast<PSTableCell*>(view), list));
      continue;
    }
    const auto* text = static_cast<UITableViewHeaderFooterView*>(view);
    const std::string shown = text->textLabel ? sim::text(text->textLabel->text) : "";
    if (text->isFooter) {
      cells[group].footer = shown;
      continue;
    }
    group = cells.size();
    cells.push_back({.kind = "group", .label = shown, .frame = readFrame(view->onScreen())});
  }
  return cells;
}

void readBar(PaneOnScreen& seen, const UINavigationBar* bar) {
  for (UIView* view : bar->subviews) {
    if (isKind(view, "UILabel"_cls)) {
      seen.title = text(static_cast<UILabel*>(view)->text);
      continue;
    }
    const auto* button = static_cast<UINavigationButton*>(view);
    const std::string title = text(static_cast<UILabel*>(button->subviews.front().get())->text);
    (button->back ? seen.back : seen.button) = title;
  }
}

std::string nameOf(UIWindow* window) { return isKeyboardWindow(window) ? "the keyboard" : "the settings application"; }

}  // namespace

PaneOnScreen readPane() {
  endTurn();
  PaneOnScreen seen;
  const UINavigationController* navigation = settingsApplication()->navigation;
  readBar(seen, navigation->bar);
  UIViewController* top = navigation->viewControllers.back();
  if (isKind(top, "PSListController"_cls)) seen.cells = readCells(static_cast<PSListController*>(top));
  seen.passed = seconds(clock::passed());
  for (UIWindow* window : visibleWindows()) {
    seen.tree.push_back(readWindow(window, nameOf(window)));
    if (seen.tree.back().alert) seen.alert = seen.tree.back().alert;
  }
  return seen;
}

}  // namespace sim
