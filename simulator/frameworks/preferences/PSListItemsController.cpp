#include "simulator/frameworks/preferences/PSListItemsController.hpp"

namespace sim {
namespace {

id valueKey() { return ns("value"); }

}  // namespace

id PSListItemsController::specifiers() {
  if (list) return list;
  list = make("NSMutableArray"_cls);
  if (!specifier) return list;
  id chosen = specifier->performGetter();
  for (id value : elements(specifier->values)) {
    id title = send<id>(specifier->titles.get(), "objectForKey:"_sel, value);
    auto* item = send<PSSpecifier*>("PSSpecifier"_cls, "preferenceSpecifierNamed:target:set:get:detail:cell:edit:"_sel,
                                    title, static_cast<id>(this), SEL{nullptr}, SEL{nullptr}, Class{nullptr},
                                    PSCellType::listItem, Class{nullptr});
    item->setProperty(value, valueKey());
    if (send<BOOL>(value, "isEqual:"_sel, chosen)) item->setProperty(ns("✓"), ns("cellSubtitleText"));
    send(list.get(), "addObject:"_sel, static_cast<id>(item));
  }
  return list;
}

void PSListItemsController::listItemSelected(PSSpecifier* item) {
  specifier->performSetter(item->propertyForKey(valueKey()));
  send(parentController, "reloadSpecifier:"_sel, specifier.get());
  send(this, "reloadSpecifiers"_sel);
}

void definePSListItemsController() {
  using Self = PSListItemsController;
  ClassBuilder<Self, PSListController>("PSListItemsController", "PSListController")
      .method<&Self::specifiers>("specifiers")
      .method<&Self::listItemSelected>("listItemSelected:")
      .add();
}

}  // namespace sim
