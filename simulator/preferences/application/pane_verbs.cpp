#include "simulator/preferences/application/pane_verbs.hpp"

#include "simulator/preferences/application/pane_gestures.hpp"
#include "simulator/preferences/application/pane_reader.hpp"

namespace sim {
namespace {

using nlohmann::json;
using Type = MemberType;

/// A gesture on the cell of that label.
template <void (*Gesture)(const std::string&)>
json onCell(const json& members) {
  Gesture(members.at("label").get<std::string>());
  return {};
}

json set(const json& members) {
  pane::set(members.at("label").get<std::string>(), members.at("value").get<std::string>());
  return {};
}

json back(const json&) {
  pane::back();
  return {};
}

Member label() { return {"label", Type::text}; }

}  // namespace

std::vector<VerbGroup> paneVerbs() {
  return {{"gesture",
           std::vector<Verb>{
               {"open", "goes back to the first list and taps that row", {label()}, onCell<pane::open>},
               {"set",
                "sets a cell's control",
                {label(), {"value", Type::text, "of a switch on or off, of segments a title, of a slider a number"}},
                set},
               {"press",
                "taps a link or a button, also the one beside the title and those of an alert",
                {label()},
                onCell<pane::press>},
               {"delete", "swipes a cell away", {label()}, onCell<pane::remove>},
               {"back", "taps the way back", {}, back},
           } + alertGestures() +
               worldGestures()},
          {"look",
           std::vector<Verb>{
               {"pane", "everything a person sees", {}, [](const json&) { return json(readPane()); }},
           } + commonLooks()},
          {"probe", commonProbes()}};
}

}  // namespace sim
