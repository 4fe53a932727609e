#include "simulator/frameworks/preferences/PSTableCell.hpp"

#include <algorithm>

namespace sim {
namespace {

constexpr CGFloat margin = 16;

/// The classes of the rows that hold more than texts.
constexpr std::pair<PSCellType, const char*> classes[] = {
    {PSCellType::slider, "PSSliderTableCell"},
    {PSCellType::toggle, "PSSwitchTableCell"},
    {PSCellType::editText, "PSEditableTableCell"},
    {PSCellType::segment, "PSSegmentTableCell"},
};

Class classOf(PSSpecifier* row) {
  if (id own = row->propertyForKey(ns("cellClass")); own != nullptr)
    return isKind(own, "NSString"_cls) ? objc_getClass(text(own).c_str()) : reinterpret_cast<Class>(own);
  const auto* const known = std::find_if(std::begin(classes), std::end(classes),
                                         [&](const auto& each) { return each.first == row->cellType; });
  return known != std::end(classes) ? objc_getClass(known->second) : "PSTableCell"_cls;
}

/// The second text of a row that shows one: the title of its value, or the value itself.
id detailOf(PSSpecifier* row) {
  if (row->cellType == PSCellType::titleValue || row->cellType == PSCellType::linkList) {
    id value = row->performGetter();
    id title = send<id>(row->titles.get(), "objectForKey:"_sel, value);
    return title != nullptr || value == nullptr ? title : ns(text(value));
  }
  return row->propertyForKey(ns("cellSubtitleText"));
}

bool isEnabled(PSSpecifier* row) {
  id enabled = row->propertyForKey(ns("enabled"));
  return enabled == nullptr || send<BOOL>(enabled, "boolValue"_sel);
}

}  // namespace

PSTableCell* PSTableCell::initWithStyle(NSInteger, id, PSSpecifier* row) {
  auto* self = send<PSTableCell*>(this, "initWithFrame:"_sel, CGRect{});
  if (self != nullptr) self->specifier = row;
  return self;
}

void PSTableCell::refresh(PSSpecifier* row) {
  specifier = row;
  accessibilityIdentifier = row->name;
  textLabel()->setText(row->name);
  if (id detail = detailOf(row); detail != nullptr || ownDetailTextLabel) detailTextLabel()->setText(detail);
  userInteractionEnabled = isEnabled(row);
  send(this, "setNeedsLayout"_sel);
}

void PSTableCell::layoutSubviews() {
  const CGRect room = inset({{}, frame.size}, margin, 0);
  textLabel()->frame = room;
  if (!ownDetailTextLabel) return;
  textLabel()->frame.size.width = room.size.width / 2;
  ownDetailTextLabel->frame = {{margin + room.size.width / 2, 0}, {room.size.width / 2, room.size.height}};
}

Ref<PSTableCell> makeTableCell(PSSpecifier* row) {
  auto cell = Ref<PSTableCell>::adopt(send<PSTableCell*>(send<id>(classOf(row), "alloc"_sel),
                                                         "initWithStyle:reuseIdentifier:specifier:"_sel, NSInteger{0},
                                                         id{nullptr}, row));
  send(cell.get(), "refreshCellContentsWithSpecifier:"_sel, row);
  return cell;
}

void definePSTableCell() {
  ClassBuilder<PSTableCell, UITableViewCell>("PSTableCell", "UITableViewCell")
      .method<&PSTableCell::initWithStyle>("initWithStyle:reuseIdentifier:specifier:")
      .getter<&PSTableCell::specifier>("specifier")
      .method<&PSTableCell::refresh>("refreshCellContentsWithSpecifier:")
      .method<&PSTableCell::cellEnabled>("cellEnabled")
      .method<&PSTableCell::layoutSubviews>("layoutSubviews")
      .add();
}

}  // namespace sim
