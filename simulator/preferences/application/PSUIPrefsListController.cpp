#include "simulator/preferences/application/PSUIPrefsListController.hpp"

#include <cstdio>
#include <stdexcept>

#include "simulator/preferences/application/bundles.hpp"

namespace sim {
namespace {

id bundleKey() { return ns("lazy-bundle"); }

}  // namespace

id PSUIPrefsListController::specifiers() {
  if (list) return list;
  list = make("NSMutableArray"_cls);
  send(list.get(), "addObject:"_sel, send<id>("PSSpecifier"_cls, "emptyGroupSpecifier"_sel));
  for (const PaneEntry& entry : paneEntries()) {
    auto* row = send<PSSpecifier*>("PSSpecifier"_cls, "preferenceSpecifierNamed:target:set:get:detail:cell:edit:"_sel,
                                   ns(entry.label), static_cast<id>(this), SEL{nullptr}, SEL{nullptr}, Class{nullptr},
                                   PSCellType::link, Class{nullptr});
    row->setProperty(ns(entry.bundle), bundleKey());
    row->controllerLoadAction = "lazyLoadBundle:"_sel;
    send(list.get(), "addObject:"_sel, static_cast<id>(row));
  }
  return list;
}

void PSUIPrefsListController::lazyLoadBundle(PSSpecifier* row) {
  try {
    row->detailControllerClass = principalClass(text(row->propertyForKey(bundleKey())));
    row->controllerLoadAction = nullptr;
  } catch (const std::runtime_error& error) {
    const std::string reason = std::string("cannot be opened: ") + error.what();
    std::fprintf(stderr, "Preferences: \"%s\" %s\n", text(row->name).c_str(), reason.c_str());
    row->setProperty(ns(reason), ns("cellSubtitleText"));
    send(this, "reloadSpecifier:"_sel, row);
  }
}

void definePSUIPrefsListController() {
  using Self = PSUIPrefsListController;
  ClassBuilder<Self, PSListController>("PSUIPrefsListController", "PSListController")
      .method<&Self::specifiers>("specifiers")
      .method<&Self::lazyLoadBundle>("lazyLoadBundle:")
      .add();
}

}  // namespace sim
