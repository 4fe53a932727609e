// Uses the platform as the add-on might, and prints, as JSON, what came of it.
#include <cstdio>
#include <map>
#include <nlohmann/json.hpp>

#include "platform/CoreFoundation.hpp"
#include "platform/hooking.hpp"
#include "simulator/frameworks/core_foundation/darwin_notifications.hpp"
#include "simulator/frameworks/foundation/foundation.hpp"
#include "simulator/frameworks/foundation/property_list.hpp"
#include "simulator/frameworks/uikit/UITextField.hpp"
#include "simulator/frameworks/uikit/uikit.hpp"
#include "simulator/runtime/blocks.hpp"
#include "simulator/runtime/call_log.hpp"
#include "simulator/runtime/class_builder.hpp"
#include "simulator/runtime/main_queue.hpp"

namespace {

using Json = nlohmann::ordered_json;

// Darwin notifications

Json delivered = Json::array();

void note(CFNotificationCenterRef, void*, CFStringRef name, const void*, const void*) {
  delivered.push_back(sim::text(asId(name)));
}

/// The center takes names for constants.
CFStringRef constant(const std::string& name) {
  static std::map<std::string, Ref<objc_object>> constants;
  return reinterpret_cast<CFStringRef>(constants.try_emplace(name, sim::ns(name)).first->second.get());
}

void post(const std::string& name) {
  CFNotificationCenterPostNotification(CFNotificationCenterGetDarwinNotifyCenter(), constant(name), nullptr, nullptr,
                                       1);
}

void postOnceMore(CFNotificationCenterRef center, void* observer, CFStringRef name, const void*, const void*) {
  note(center, observer, name, nullptr, nullptr);
  if (delivered.size() < 6) post(sim::text(asId(name)));
  delivered.push_back("posted");
}

void observe(const char* name, CFNotificationCallback callback) {
  CFNotificationCenterAddObserver(CFNotificationCenterGetDarwinNotifyCenter(), nullptr, callback, constant(name),
                                  nullptr, CFNotificationSuspensionBehavior::coalesce);
}

Json posts() {
  const AutoreleasePool pool;
  observe("one", note);
  observe("two", note);
  observe("again", postOnceMore);
  Json result = Json::array();
  for (const char* name : {"one", "two", "one", "two", "two"}) post(name);
  sim::postDarwinNotification("one");
  result.push_back(delivered);
  sim::runDueWork();
  result.push_back(std::exchange(delivered, Json::array()));
  post("one");
  sim::postDarwinNotification("again");
  sim::runDueWork();
  result.push_back(std::exchange(delivered, Json::array()));
  return result;
}

// Blocks

const Block<int()>* blockOf(int value) {
  return makeBlock<int()>([value] { return value; });
}

Json blocks() {
  Json result;
  Ref<objc_object> list = sim::make("NSMutableArray"_cls);
  Ref<objc_object> table = sim::make("NSMutableDictionary"_cls);
  {
    const AutoreleasePool pool;
    id kept = asId(blockOf(7));
    id other = asId(blockOf(8));
    sim::send(list.get(), "addObject:"_sel, kept);
    sim::send(table.get(), "setObject:forKey:"_sel, kept, sim::ns("key"));
    sim::send(list.get(), "addObject:"_sel, asId(makeBlock<int()>([] { return 9; })));
    result["equal"] = {bool(sim::send<BOOL>(kept, "isEqual:"_sel, kept)),
                       bool(sim::send<BOOL>(kept, "isEqual:"_sel, other))};
    result["hashes"] = sim::send<NSUInteger>(kept, "hash"_sel) == sim::send<NSUInteger>(kept, "hash"_sel);
    result["found"] = {sim::send<NSUInteger>(list.get(), "indexOfObject:"_sel, kept) == 0,
                       bool(sim::send<BOOL>(list.get(), "containsObject:"_sel, other))};
    result["copied"] = sim::send<id>(kept, "copy"_sel) == kept;
    sim::send(kept, "release"_sel);
    result["references"] = sim::send<NSUInteger>(kept, "retainCount"_sel);
    result["alive within the pool"] = sim::liveBlocks();
  }
  result["alive in collections"] = sim::liveBlocks();
  for (NSUInteger index = 0; index < 2; ++index) {
    const AutoreleasePool pool;
    id each = sim::send<id>(list.get(), "objectAtIndex:"_sel, index);
    result["called"].push_back(block::call<int>(each));
    result["classes"].push_back(class_getName(object_getClass(each)));
    result["blocks"].push_back(sim::isKind(each, "NSBlock"_cls));
  }
  sim::send(list.get(), "removeAllObjects"_sel);
  result["alive in one of them"] = sim::liveBlocks();
  table = Ref<objc_object>();
  result["alive at last"] = sim::liveBlocks();
  return result;
}

// Text fields

struct Delegate : sim::Object {};
Json asked = Json::array();
bool allows = true;

struct Range {
  NSUInteger location, length;
};

BOOL shouldChange(id, SEL, id field, Range range, id replacement) {
  asked.push_back({sim::text(sim::send<id>(field, "text"_sel)), range.location, range.length, sim::text(replacement)});
  return allows && sim::text(replacement) != "x";
}

BOOL shouldClear(id, SEL, id field) {
  asked.push_back("clear " + sim::text(sim::send<id>(field, "text"_sel)));
  return allows;
}

Json textFields() {
  Class cls = sim::detail::allocateClass("Delegate", "NSObject", sizeof(Delegate), sizeof(sim::Object), {});
  sim::detail::addMethod(cls, "textField:shouldChangeCharactersInRange:replacementString:",
                         reinterpret_cast<IMP>(&shouldChange), "c@:@{_NSRange=QQ}@");
  sim::detail::addMethod(cls, "textFieldShouldClear:", reinterpret_cast<IMP>(&shouldClear), "c@:@");
  const auto delegate = sim::make(cls);
  const auto field = sim::make<sim::UITextField>("UITextField"_cls);
  field->setText(sim::ns("old"));
  field->delegate = delegate.get();
  Json result;
  const auto after = [&](const char* what, const auto& action) {
    action();
    result[what] = {{"asked", std::exchange(asked, Json::array())}, {"text", sim::text(field->textOrEmpty())}};
  };
  after("typed", [&] { field->typeOver("ae\u0301xb"); });
  after("pasted", [&] { field->replaceAll(sim::ns("whole text")); });
  after("nothing typed", [&] { field->typeOver(""); });
  field->setText(sim::ns("kept"));
  allows = false;
  after("refused", [&] { field->typeOver("n"); });
  after("clearing refused", [&] { field->tapClearButton(); });
  allows = true;
  after("cleared", [&] { field->tapClearButton(); });
  field->delegate = nullptr;
  after("without a delegate", [&] { field->typeOver("xyz"); });
  for (const int mode : {0, 1, 2, 3}) {
    field->clearButtonMode = static_cast<sim::UITextFieldViewMode>(mode);
    result["clear button"].push_back(field->showsClearButton());
  }
  field->setText(nullptr);
  result["clear button"].push_back(field->showsClearButton());
  return result;
}

// Touches

/// Who is touched when one view lies over another, as that is changed and put right again.
Json touched() {
  const auto view = [] {
    return Ref<sim::UIView>::adopt(sim::send<sim::UIView*>(sim::send<id>("UIView"_cls, "alloc"_sel),
                                                           "initWithFrame:"_sel, sim::CGRect{{}, {100, 100}}));
  };
  const auto below = view(), above = view();
  sim::send(below.get(), "addSubview:"_sel, above.get());
  const auto hit = [&] {
    id who = sim::send<id>(below.get(), "hitTest:withEvent:"_sel, sim::CGPoint{50, 50}, id{nullptr});
    return who == above.get() ? "the upper" : who == below.get() ? "the lower" : "none";
  };
  Json result{{"as they are", hit()}};
  above->hidden = true;
  result["hidden"] = hit();
  above->hidden = false;
  above->userInteractionEnabled = false;
  result["without interaction"] = hit();
  above->userInteractionEnabled = true;
  above->alpha = 0;
  result["clear"] = hit();
  above->alpha = 1;
  above->frame.origin.x = 60;
  result["elsewhere"] = hit();
  below->hidden = true;
  result["in a hidden one"] = hit();
  return result;
}

// Delayed messages

Json heard = Json::array();
void hear(id, SEL, id what) { heard.push_back(sim::text(what)); }

Json delayedMessages() {
  const AutoreleasePool pool;
  Class cls = sim::detail::allocateClass("Listener", "NSObject", sizeof(Delegate), sizeof(sim::Object), {});
  sim::detail::addMethod(cls, "hear:", reinterpret_cast<IMP>(&hear), "v@:@");
  const auto first = sim::make(cls), second = sim::make(cls);
  const auto later = [&](const auto& listener, const char* what, double seconds) {
    sim::send(listener.get(), "performSelector:withObject:afterDelay:"_sel, "hear:"_sel, sim::ns(what), seconds);
  };
  later(first, "late", 0.2);
  later(first, "soon", 0.1);
  later(first, "one of two", 0.1);
  later(first, "cancelled", 0.1);
  later(second, "cancelled with all", 0.1);
  sim::send("NSObject"_cls, "cancelPreviousPerformRequestsWithTarget:selector:object:"_sel, first.get(), "hear:"_sel,
            sim::ns("cancelled"));
  sim::send("NSObject"_cls, "cancelPreviousPerformRequestsWithTarget:selector:object:"_sel, first.get(),
            "description"_sel, sim::ns("one of two"));
  sim::send("NSObject"_cls, "cancelPreviousPerformRequestsWithTarget:"_sel, second.get());
  sim::advanceClock(150'000'000);
  Json result = Json::array({std::exchange(heard, Json::array())});
  sim::advanceClock(100'000'000);
  result.push_back(std::exchange(heard, Json::array()));
  return result;
}

// Hooks

Json missingHooks() {
  IMP previous = nullptr;
  MSHookMessageEx(nullptr, "length"_sel, reinterpret_cast<IMP>(&shouldClear), &previous);
  MSHookMessageEx("NSString"_cls, "noSuchMethod"_sel, reinterpret_cast<IMP>(&shouldClear), &previous);
  Json result = Json::array();
  for (const auto& call : sim::callLog())
    if (call.kind == sim::Call::Kind::missing) result.push_back(call.className + " " + call.selector);
  result.push_back(previous == nullptr);
  return result;
}

// Property lists

/// Reads the file that a test has put there, and writes it again in both forms.
bool copyPropertyList() {
  id read = sim::send<id>("NSDictionary"_cls, "dictionaryWithContentsOfFile:"_sel, sim::ns("/var/mobile/given.plist"));
  return sim::send<BOOL>(read, "writeToFile:atomically:"_sel, sim::ns("/var/mobile/xml.plist"), BOOL{true}) &&
         sim::writeBinaryPropertyList(read, "/var/mobile/binary.plist");
}

}  // namespace

int main() {
  const AutoreleasePool pool;
  sim::installFoundationAdditions();
  sim::defineUIKit();
  const Json result{{"posts", posts()},
                    {"blocks", blocks()},
                    {"text fields", textFields()},
                    {"touched", touched()},
                    {"delayed messages", delayedMessages()},
                    {"missing hooks", missingHooks()},
                    {"copied", copyPropertyList()}};
  std::puts(result.dump().c_str());
}
