#include "simulator/frameworks/preferences/PSListController.hpp"

#include <algorithm>

#include "simulator/frameworks/uikit/UIScreen.hpp"
#include "simulator/frameworks/uikit/UITableViewHeaderFooterView.hpp"

namespace sim {
namespace {

std::vector<PSSpecifier*> rowsOf(id specifiers) {
  std::vector<PSSpecifier*> rows;
  for (id each : elements(specifiers)) rows.push_back(static_cast<PSSpecifier*>(each));
  return rows;
}

/// Puts the rows into the empty table, one group below the other.
class Layout {
 public:
  explicit Layout(UITableView* table) : table_(table) {}

  void add(PSSpecifier* row) {
    if (row->cellType == PSCellType::group) {
      endGroup();
      beginGroup(row);
    } else {
      if (!inGroup_) beginGroup(nullptr);
      addCell(row);
    }
  }
  void end() {
    endGroup();
    table_->contentSize = {table_->frame.size.width, y_};
  }

 private:
  void beginGroup(PSSpecifier* group) {
    inGroup_ = true;
    y_ = addHeaderFooter(table_, y_, group != nullptr ? group->name.get() : nullptr, false);
    footer_ = group != nullptr ? group->propertyForKey(ns("footerText")) : nullptr;
  }
  void endGroup() {
    if (footer_) y_ = addHeaderFooter(table_, y_, footer_, true);
    footer_ = nullptr;
  }
  void addCell(PSSpecifier* row) {
    const auto cell = makeTableCell(row);
    id own = row->propertyForKey(ns("height"));
    const CGFloat height = own != nullptr ? send<double>(own, "doubleValue"_sel) : UITableViewCell::height;
    cell->frame = {{0, y_}, {table_->frame.size.width, height}};
    table_->attach(cell);
    y_ += height;
  }

  UITableView* table_;
  CGFloat y_ = 0;
  bool inGroup_ = false;
  Ref<objc_object> footer_;
};

}  // namespace

void PSListController::loadView() {
  table = Ref<UITableView>::adopt(
      send<UITableView*>(send<id>("UITableView"_cls, "alloc"_sel), "initWithFrame:"_sel, screenBounds()));
  send(this, "setView:"_sel, static_cast<UIView*>(table));
  send(this, "reload"_sel);
}

id PSListController::bundle() { return send<id>("NSBundle"_cls, "bundleForClass:"_sel, isa); }

id PSListController::loadSpecifiers(id plistName, id target) {
  id path = send<id>(send<id>(this, "bundle"_sel), "pathForResource:ofType:"_sel, plistName, ns("plist"));
  id plist = path != nullptr ? send<id>("NSDictionary"_cls, "dictionaryWithContentsOfFile:"_sel, path) : nullptr;
  id loaded = send<id>("NSMutableArray"_cls, "array"_sel);
  for (id item : elements(send<id>(plist, "objectForKey:"_sel, ns("items"))))
    send(loaded, "addObject:"_sel, id{PSSpecifier::fromItem(item, target)});
  if (id named = send<id>(plist, "objectForKey:"_sel, ns("title")); named != nullptr)
    send(this, "setTitle:"_sel, named);
  return loaded;
}

void PSListController::reload() {
  if (!table) return;
  const auto kept = Ref<objc_object>(send<id>(this, "specifiers"_sel));
  removeSubviews(table);
  Layout layout(table);
  for (PSSpecifier* row : rowsOf(kept)) layout.add(row);
  layout.end();
}

void PSListController::reloadSpecifiers() {
  send(this, "setSpecifiers:"_sel, id{nullptr});
  send(this, "reload"_sel);
}

void PSListController::reloadSpecifier(PSSpecifier* row) {
  if (PSTableCell* cell = cachedCellForSpecifier(row)) send(cell, "refreshCellContentsWithSpecifier:"_sel, row);
}

void PSListController::reloadSpecifierID(id identifier) {
  reloadSpecifier(send<PSSpecifier*>(this, "specifierForID:"_sel, identifier));
}

PSSpecifier* PSListController::specifierForID(id identifier) {
  for (PSSpecifier* row : rowsOf(send<id>(this, "specifiers"_sel)))
    if (send<BOOL>(send<id>(row, "identifier"_sel), "isEqual:"_sel, identifier)) return row;
  return nullptr;
}

void PSListController::removeSpecifier(PSSpecifier* row, bool) {
  id shown = send<id>(this, "specifiers"_sel);
  if (!send<BOOL>(shown, "containsObject:"_sel, static_cast<id>(row))) return;
  send(shown, "removeObjectIdenticalTo:"_sel, static_cast<id>(row));
  send(this, "reload"_sel);
}

PSTableCell* PSListController::cachedCellForSpecifier(PSSpecifier* row) {
  if (!table) return nullptr;
  for (UIView* view : table->subviews)
    if (isKind(view, "PSTableCell"_cls) && static_cast<PSTableCell*>(view)->specifier.get() == row)
      return static_cast<PSTableCell*>(view);
  return nullptr;
}

UIViewController* PSListController::controllerForSpecifier(PSSpecifier* row) {
  if (row->controllerLoadAction != nullptr) send(this, row->controllerLoadAction, static_cast<id>(row));
  if (row->detailControllerClass == nullptr) return nullptr;
  const auto controller = make<PSViewController>(row->detailControllerClass);
  send(controller.get(), "setRootController:"_sel, static_cast<id>(parentViewController));
  send(controller.get(), "setParentController:"_sel, static_cast<id>(this));
  send(controller.get(), "setSpecifier:"_sel, row);
  return autoreleased(controller);
}

void PSListController::didSelect(PSTableCell* cell) {
  const Ref<PSSpecifier> row = cell->specifier;
  switch (row->cellType) {
    case PSCellType::link:
    case PSCellType::linkList:
      if (auto* controller = send<UIViewController*>(this, "controllerForSpecifier:"_sel, row.get()))
        send(this, "pushController:animate:"_sel, controller, true);
      break;
    case PSCellType::button:
      if (row->buttonAction != nullptr) send(row->target, row->buttonAction, static_cast<id>(row.get()));
      break;
    case PSCellType::listItem:
      send(this, "listItemSelected:"_sel, row.get());
      break;
    default:
      break;
  }
}

void definePSListController() {
  using Self = PSListController;
  ClassBuilder<Self, PSViewController>("PSListController", "PSViewController")
      .ivar("_specifiers", &Self::list)
      .method<&Self::loadView>("loadView")
      .getter<&Self::table>("table")
      .method<&Self::specifiers>("specifiers")
      .method<&Self::setSpecifiers>("setSpecifiers:")
      .method<&Self::bundle>("bundle")
      .method<&Self::loadSpecifiers>("loadSpecifiersFromPlistName:target:")
      .method<&Self::reload>("reload")
      .method<&Self::reloadSpecifiers>("reloadSpecifiers")
      .method<&Self::reloadSpecifier>("reloadSpecifier:")
      .method<&Self::reloadSpecifierID>("reloadSpecifierID:")
      .method<&Self::specifierForID>("specifierForID:")
      .method<&Self::removeSpecifier>("removeSpecifier:animated:")
      .method<&Self::cachedCellForSpecifier>("cachedCellForSpecifier:")
      .method<&Self::controllerForSpecifier>("controllerForSpecifier:")
      .add();
}

}  // namespace sim
