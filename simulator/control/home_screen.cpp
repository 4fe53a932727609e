#include "simulator/control/home_screen.hpp"

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cmath>

namespace fs = std::filesystem;

namespace sim {
namespace {

using Json = nlohmann::json;

constexpr std::chrono::seconds longestAnswer{120};
constexpr std::chrono::seconds longestEnd{60};
constexpr std::string_view preferencesDomain = "com.morvanel.sprigdial";
constexpr std::string_view preferencesChanged = "com.morvanel.sprigdial.preferencechanged";

/// Decimals that lose nothing.
std::string number(double value) { return Json(value).dump(); }

Json screenMode(const HomeScreen::ScreenMode& mode) {
  Json members = Json::object();
  if (mode.mode) members["mode"] = *mode.mode;
  if (mode.autoUnlock) members["autoUnlock"] = *mode.autoUnlock;
  if (mode.source) members["source"] = *mode.source;
  return members;
}

std::string lastLines(const std::string& text) {
  constexpr std::size_t most = 4000;
  return text.size() <= most ? text : "…" + text.substr(text.find('\n', text.size() - most));
}

}  // namespace

HomeScreen::HomeScreen(Options options)
    : options_(std::move(options)),
      device_(options_.device),
      preferences_(device_.root(), options_.buildFolder, options_.environment) {
  start();
}

HomeScreen::~HomeScreen() = default;

void HomeScreen::start() {
  std::vector<std::string> command = {"/run/simulator/SpringBoard", "--generation",
                                      options_.generation == Generation::old ? "old" : "new"};
  if (options_.coreVersion) command.insert(command.end(), {"--core-version", number(*options_.coreVersion)});
  if (options_.tablet) command.emplace_back("--tablet");
  if (options_.clock) command.insert(command.end(), {"--clock", number(*options_.clock)});
  if (options_.uptime) command.insert(command.end(), {"--uptime", number(*options_.uptime)});
  if (options_.live) command.emplace_back("--live");
  if (!options_.library.empty()) command.insert(command.end(), {"--library", options_.library});
  for (const auto& method : options_.interposed) command.insert(command.end(), {"--interpose", method});
  std::map<std::string, std::string> environment = options_.environment;
  // Foundation looks at the machine's own time zone before it looks at TZ.
  if (options_.timeZone) environment["GNUSTEP_TZ"] = environment["TZ"] = *options_.timeZone;
  unread_.clear();
  if (preferences_.runs()) command.emplace_back("--resume-preferences");
  const int preferences = preferences_.connect();
  process_ =
      std::make_unique<SandboxedProcess>(device_.root(), options_.buildFolder, command, environment, preferences);
  close(preferences);
  ask("now");
}

void HomeScreen::startAnew(const std::function<void(SandboxedProcess&)>& end) {
  options_.clock = now();
  options_.uptime = ask("uptime").get<double>();
  end(*process_);
  process_.reset();
  start();
}

HomeScreen& HomeScreen::respring() {
  startAnew([](SandboxedProcess& process) { process.end(longestEnd); });
  return *this;
}

HomeScreen& HomeScreen::crash() {
  startAnew([](SandboxedProcess& process) { process.kill(); });
  return *this;
}

void HomeScreen::shutDown() {
  const std::optional<int> status = process_->end(longestEnd);
  if (!status) died("the home screen did not end");
  if (*status != 0) died("the home screen ended with status " + std::to_string(*status));
}

HomeScreen& HomeScreen::act(const std::string& verb, Json members) {
  ask(verb, std::move(members));
  return *this;
}

HomeScreen& HomeScreen::touch(std::string_view id) { return act("touch", {{"id", id}}); }

HomeScreen& HomeScreen::swipe(std::string_view id, const std::vector<TouchSample>& samples) {
  Json list = Json::array();
  for (const TouchSample& sample : samples) list.push_back(Json::array({sample.dx, sample.dy}));
  return act("swipe", {{"id", id}, {"samples", list}});
}

HomeScreen& HomeScreen::swipeUp(std::string_view id) { return swipe(id, {{0, -20}, {0, -20}, {0, -20}}); }
HomeScreen& HomeScreen::swipeDown(std::string_view id) { return swipe(id, {{0, 20}, {0, 20}, {0, 20}}); }
HomeScreen& HomeScreen::forceTouch(std::string_view id) { return act("forceTouch", {{"id", id}}); }
HomeScreen& HomeScreen::choose(std::string_view title) { return act("choose", {{"title", title}}); }
HomeScreen& HomeScreen::tap(std::string_view title) { return act("tap", {{"title", title}}); }
HomeScreen& HomeScreen::tapAndGoOn(std::string_view title) { return act("tap", {{"title", title}, {"goOn", true}}); }
HomeScreen& HomeScreen::tapLate(std::string_view title) { return act("tap", {{"title", title}, {"late", true}}); }
HomeScreen& HomeScreen::type(std::string_view text) { return act("type", {{"text", text}}); }
HomeScreen& HomeScreen::paste(std::string_view text) { return act("paste", {{"text", text}}); }
HomeScreen& HomeScreen::clear() { return act("clear"); }
HomeScreen& HomeScreen::launch(std::string_view id) { return act("launch", {{"id", id}}); }
HomeScreen& HomeScreen::home() { return act("home"); }
HomeScreen& HomeScreen::edit(bool on) { return act("edit", {{"on", on}}); }
HomeScreen& HomeScreen::lock() { return act("lock"); }
HomeScreen& HomeScreen::unlock() { return act("unlock"); }
HomeScreen& HomeScreen::screenOff(const ScreenMode& mode) { return act("screenOff", screenMode(mode)); }
HomeScreen& HomeScreen::screenOn(const ScreenMode& mode) { return act("screenOn", screenMode(mode)); }
HomeScreen& HomeScreen::powerDown() { return act("powerDown"); }

HomeScreen& HomeScreen::notify(std::string_view id, std::string_view text, const std::vector<std::string>& places) {
  return act("notify", {{"id", id}, {"text", text}, {"places", places}});
}

HomeScreen& HomeScreen::startDownload(std::string_view id) { return act("download", {{"what", "start"}, {"id", id}}); }
HomeScreen& HomeScreen::askDownload(std::string_view id) { return act("download", {{"what", "ask"}, {"id", id}}); }
HomeScreen& HomeScreen::removeDownload(std::string_view id) {
  return act("download", {{"what", "remove"}, {"id", id}});
}

Device::Application HomeScreen::install(const fs::path& archive) {
  auto installed = device_.install(archive);
  rescan();
  return installed;
}

HomeScreen& HomeScreen::setFilzaInstalled(bool installed) {
  device_.setFilzaInstalled(installed);
  return rescan();
}

HomeScreen& HomeScreen::settings(const std::vector<std::string>& assignments) {
  device_.setSettings(assignments);
  return post(preferencesChanged);
}

HomeScreen& HomeScreen::settingsThroughDaemon(const std::vector<std::string>& assignments) {
  return act("setPreferences", {{"domain", preferencesDomain}, {"values", Device::settingsIn(assignments)}})
      .post(preferencesChanged);
}

HomeScreen& HomeScreen::flush() { return act("flush"); }

HomeScreen& HomeScreen::post(std::string_view name) { return act("post", {{"name", name}}); }

HomeScreen& HomeScreen::advance(double seconds) {
  if (!std::isfinite(seconds) || seconds < 0) throw BadInput("the clock only runs forwards");
  return act("advance", {{"seconds", seconds}});
}

HomeScreen& HomeScreen::animations(bool on) { return act("animations", {{"on", on}}); }
HomeScreen& HomeScreen::setClock(double seconds) { return act("setClock", {{"seconds", seconds}}); }

HomeScreen& HomeScreen::rescan() { return act("rescan"); }

HomeScreen& HomeScreen::perform(std::string_view selector, std::optional<std::string> className) {
  return performWith(selector, {}, std::move(className));
}

HomeScreen& HomeScreen::performWith(std::string_view selector, const std::vector<std::int64_t>& arguments,
                                    std::optional<std::string> className) {
  Json members = {{"selector", selector}, {"arguments", arguments}};
  if (className) members["target"] = *className;
  return act("perform", members);
}

HomeScreen& HomeScreen::interpose(std::string_view method, Json members) {
  members["method"] = method;
  return act("interpose", std::move(members));
}

std::map<std::string, long> HomeScreen::interposedCalls() {
  return ask("platform").at("interposed").get<std::map<std::string, long>>();
}

bool HomeScreen::raises(const std::string& verb, Json members) {
  members["catching"] = true;
  return ask(verb, std::move(members)).at("raised").get<bool>();
}

Screen HomeScreen::screen() { return ask("screen").get<Screen>(); }

AlertOnScreen HomeScreen::sheet() {
  const Screen seen = screen();
  if (const AlertOnScreen* alert = seen.topAlert()) return *alert;
  throw BadInput("no sheet or alert on the screen");
}

double HomeScreen::now() { return ask("now").get<double>(); }

std::optional<HomeScreen::Pasteboard> HomeScreen::pasteboard() {
  const Json value = ask("pasteboard");
  if (value.is_null()) return std::nullopt;
  return Pasteboard{value.at("type"), value.at("text")};
}

std::optional<PropertyList> HomeScreen::preferences(std::string_view domain) {
  const Json value = ask("preferences", {{"domain", domain}});
  if (value.is_null()) return std::nullopt;
  return PropertyList::parse(value.get_ref<const std::string&>());
}

PropertyList HomeScreen::readPreferences(std::string_view domain) {
  const Json value = ask("preferences", {{"domain", domain}, {"read", true}});
  return PropertyList::parse(value.get_ref<const std::string&>()).value();
}

std::vector<HomeScreen::OpenedUrl> HomeScreen::urls() {
  std::vector<OpenedUrl> all;
  for (const Json& item : ask("urls")) all.push_back({item.at("url"), item.at("opened")});
  return all;
}

std::vector<HomeScreen::Launch> HomeScreen::launches() {
  std::vector<Launch> all;
  for (const Json& item : ask("launches")) {
    const auto text = [&](const char* name) { return item.value(name, Json()).get<std::optional<std::string>>(); };
    all.push_back({item.at("id"), text("location"), text("context"), text("settings"), text("actions")});
  }
  return all;
}

std::vector<HomeScreen::Call> HomeScreen::calls() {
  std::vector<Call> all;
  for (const Json& item : ask("calls")) {
    all.push_back({item.at("kind"), item.at("class"), item.at("selector"), item.at("encoding")});
  }
  return all;
}

HomeScreen& HomeScreen::logMessages(bool on) { return act("calls", {{"messages", on}}); }

std::vector<HomeScreen::DarwinObserver> HomeScreen::darwinObservers() {
  std::vector<DarwinObserver> all;
  for (const Json& item : ask("darwinObservers")) {
    all.push_back({item.at("name"), item.at("observer"), item.at("object"), item.at("suspension")});
  }
  return all;
}

HomeScreen::ClassDescription HomeScreen::describe(std::string_view className) {
  const Json value = ask("class", {{"name", className}});
  const auto members = [&](const char* kind) {
    std::vector<ClassDescription::Member> all;
    for (const Json& member : value.at(kind)) all.push_back({member.at("name"), member.at("type")});
    return all;
  };
  return {value.at("superclass"), value.at("protocols"), members("instanceVariables"), members("methods"),
          members("classMethods")};
}

std::map<std::string, long> HomeScreen::live() { return ask("live").get<std::map<std::string, long>>(); }

void HomeScreen::request(const std::string& verb, Json members) {
  members["verb"] = verb;
  const std::string request = members.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
  for (std::size_t sent = 0; sent < request.size();) {
    const ssize_t size = send(process_->socket(), request.data() + sent, request.size() - sent, MSG_NOSIGNAL);
    if (size < 0 && errno != EINTR) died("the home screen ended before \"" + verb + "\"");
    if (size > 0) sent += static_cast<std::size_t>(size);
  }
}

Json HomeScreen::ask(const std::string& verb, Json members) {
  request(verb, std::move(members));
  const Json answer = Json::parse(readLine(), nullptr, false);
  if (answer.is_discarded()) died("the home screen's answer to \"" + verb + "\" is not JSON");
  if (answer.contains("error")) throw BadInput(answer["error"].get<std::string>());
  seconds_ = answer.value("seconds", 0.0);
  return answer.value("value", Json());
}

void HomeScreen::killDuring(const std::string& verb, Json members, const std::function<void()>& moment) {
  request(verb, std::move(members));
  moment();
  process_->kill();
  preferences_.kill();
}

std::string HomeScreen::readLine() {
  const auto deadline = std::chrono::steady_clock::now() + longestAnswer;
  while (true) {
    if (const std::size_t end = unread_.find('\n'); end != std::string::npos) {
      std::string line = unread_.substr(0, end);
      unread_.erase(0, end + 1);
      return line;
    }
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
    pollfd waiting{process_->socket(), POLLIN, 0};
    const int ready = left.count() > 0 ? poll(&waiting, 1, static_cast<int>(left.count())) : 0;
    if (ready == 0) died("the home screen did not answer");
    if (ready < 0) died("interrupted");
    std::array<char, 65536> block;
    const ssize_t size = recv(waiting.fd, block.data(), block.size(), 0);
    if (size <= 0) died("the home screen ended");
    unread_.append(block.data(), static_cast<std::size_t>(size));
  }
}

void HomeScreen::died(const std::string& reason) {
  // A process that reports what brought it down gets the time to finish its report.
  const bool ended = process_->end(std::chrono::seconds(5)).has_value();
  if (!ended) process_->kill();
  const std::string output = lastLines(process_->output());
  throw HomeScreenDied(reason + (output.empty() ? "" : "\n" + output));
}

}  // namespace sim
