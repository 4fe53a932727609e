// A pane that was built for another system: it needs a function that no process here has.
extern "C" void functionOfAnotherSystem();

namespace {

[[gnu::constructor]] void start() { functionOfAnotherSystem(); }

}  // namespace
