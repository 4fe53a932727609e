#include "simulator/frameworks/preferences/PSSpecifier.hpp"

#include <algorithm>

#include "simulator/frameworks/foundation/copying.hpp"

namespace sim {
namespace {

/// What property lists call the rows.
constexpr std::pair<const char*, PSCellType> typeNames[] = {
    {"PSGroupCell", PSCellType::group},           {"PSLinkCell", PSCellType::link},
    {"PSLinkListCell", PSCellType::linkList},     {"PSListItemCell", PSCellType::listItem},
    {"PSTitleValueCell", PSCellType::titleValue}, {"PSSliderCell", PSCellType::slider},
    {"PSSwitchCell", PSCellType::toggle},         {"PSStaticTextCell", PSCellType::staticText},
    {"PSEditTextCell", PSCellType::editText},     {"PSSegmentCell", PSCellType::segment},
    {"PSButtonCell", PSCellType::button},
};

PSCellType typeNamed(id name) {
  const std::string wanted = text(name);
  const auto* const row =
      std::find_if(std::begin(typeNames), std::end(typeNames), [&](const auto& each) { return wanted == each.first; });
  return row != std::end(typeNames) ? row->second : PSCellType::group;
}

id in(id item, const char* key) { return send<id>(item, "objectForKey:"_sel, ns(key)); }

/// The selector that the item names; none when it does not.
SEL selectorIn(id item, const char* key, SEL otherwise = nullptr) {
  id name = in(item, key);
  return name != nullptr ? sel_registerName(text(name).c_str()) : otherwise;
}

}  // namespace

PSSpecifier* PSSpecifier::init() {
  auto* self = sendSuper<PSSpecifier*>(this, "NSObject"_cls, "init"_sel);
  if (self != nullptr) self->properties = make("NSMutableDictionary"_cls);
  return self;
}

PSSpecifier* PSSpecifier::preferenceSpecifierNamed(Class cls, id name, id target, SEL set, SEL get, Class detail,
                                                   PSCellType cell, Class) {
  auto specifier = make<PSSpecifier>(cls);
  specifier->setName(name);
  specifier->target = target;
  specifier->setter = set;
  specifier->getter = get;
  specifier->detailControllerClass = detail;
  specifier->cellType = cell;
  return autoreleased(specifier);
}

PSSpecifier* PSSpecifier::emptyGroupSpecifier(Class cls) { return groupSpecifierWithName(cls, nullptr); }

PSSpecifier* PSSpecifier::groupSpecifierWithName(Class cls, id name) {
  return preferenceSpecifierNamed(cls, name, nullptr, nullptr, nullptr, nullptr, PSCellType::group, nullptr);
}

PSSpecifier* PSSpecifier::fromItem(id item, id target) {
  Class detail = nullptr;
  if (id name = in(item, "detail"); name != nullptr) detail = objc_getClass(text(name).c_str());
  auto* specifier = send<PSSpecifier*>(
      "PSSpecifier"_cls, "preferenceSpecifierNamed:target:set:get:detail:cell:edit:"_sel, in(item, "label"), target,
      selectorIn(item, "set", "setPreferenceValue:specifier:"_sel), selectorIn(item, "get", "readPreferenceValue:"_sel),
      detail, typeNamed(in(item, "cell")), Class{nullptr});
  send(specifier->properties.get(), "addEntriesFromDictionary:"_sel, item);
  specifier->buttonAction = selectorIn(item, "action");
  if (id values = in(item, "validValues"); values != nullptr) specifier->setValues(values, in(item, "validTitles"));
  return specifier;
}

void PSSpecifier::setName(id changed) { name = copied(changed); }

id PSSpecifier::propertyForKey(id key) { return send<id>(properties.get(), "objectForKey:"_sel, key); }

void PSSpecifier::setProperty(id value, id key) { send(properties.get(), "setObject:forKey:"_sel, value, key); }

id PSSpecifier::identifier() {
  for (const char* key : {"id", "key"})
    if (id known = propertyForKey(ns(key)); known != nullptr) return known;
  return name;
}

void PSSpecifier::setIdentifier(id identifier) { setProperty(identifier, ns("id")); }

void PSSpecifier::setValues(id chosen, id shown) {
  values = chosen;
  titles =
      shown == nullptr ? nullptr : send<id>("NSDictionary"_cls, "dictionaryWithObjects:forKeys:"_sel, shown, chosen);
}

id PSSpecifier::performGetter() {
  return getter != nullptr ? send<id>(target, getter, static_cast<id>(this)) : nullptr;
}

void PSSpecifier::performSetter(id value) {
  if (setter != nullptr) send(target, setter, value, static_cast<id>(this));
}

void definePSSpecifier() {
  using Self = PSSpecifier;
  ClassBuilder<Self>("PSSpecifier", "NSObject")
      .method<&Self::init>("init")
      .classMethod<&Self::preferenceSpecifierNamed>("preferenceSpecifierNamed:target:set:get:detail:cell:edit:")
      .classMethod<&Self::emptyGroupSpecifier>("emptyGroupSpecifier")
      .classMethod<&Self::groupSpecifierWithName>("groupSpecifierWithName:")
      .getter<&Self::name>("name")
      .method<&Self::setName>("setName:")
      .property<&Self::target>("target")
      .getter<&Self::cellType>("cellType")
      .getter<&Self::properties>("properties")
      .method<&Self::propertyForKey>("propertyForKey:")
      .method<&Self::setProperty>("setProperty:forKey:")
      .method<&Self::identifier>("identifier")
      .method<&Self::setIdentifier>("setIdentifier:")
      .property<&Self::buttonAction>("buttonAction")
      .property<&Self::controllerLoadAction>("controllerLoadAction")
      .property<&Self::detailControllerClass>("detailControllerClass")
      .getter<&Self::values>("values")
      .getter<&Self::titles>("titleDictionary")
      .method<&Self::setValues>("setValues:titles:")
      .method<&Self::performGetter>("performGetter")
      .method<&Self::performSetter>("performSetterWithValue:")
      .add();
}

}  // namespace sim
