#include "simulator/control/phone.hpp"

#include <unistd.h>

#include <chrono>
#include <cmath>
#include <utility>

namespace fs = std::filesystem;

namespace sim {
namespace {

using Json = nlohmann::json;

constexpr std::chrono::seconds longestEnd{60};
constexpr std::string_view preferencesDomain = "com.morvanel.sprigdial";
constexpr std::string_view preferencesChanged = "com.morvanel.sprigdial.preferencechanged";

Json screenMode(const Phone::ScreenMode& mode) {
  Json members = Json::object();
  if (mode.mode) members["mode"] = *mode.mode;
  if (mode.autoUnlock) members["auto-unlock"] = *mode.autoUnlock;
  if (mode.source) members["source"] = *mode.source;
  return members;
}

std::string lastLines(const std::string& text) {
  constexpr std::size_t most = 4000;
  return text.size() <= most ? text : "…" + text.substr(text.find('\n', text.size() - most));
}

}  // namespace

Phone::Phone(Options options) : options_(std::move(options)), device_(options_.device) {}

Phone::~Phone() = default;

std::shared_ptr<Process> Phone::start(Program program, const Process::Before& before) {
  check(options_);
  if (!preferences_) preferences_.emplace(device_.root(), options_.buildFolder, options_.environment);
  Process::Before known = before;
  known.preferencesRun = preferences_->runs();
  known.preferences = preferences_->connect();
  // What it says before it is known here goes nowhere.
  const auto self = std::make_shared<std::atomic<Process*>>(nullptr);
  const auto hear = [this, self](const Json& push) {
    if (push.at("push") == "relaunch") relaunchAsked_ = true;
    if (const Process* from = *self) relay_.hear(from, push);
  };
  std::shared_ptr<Process> process(new Process(program, options_, device_.root(), known, hear), [this](Process* gone) {
    relay_.leave(gone);
    delete gone;
  });
  close(known.preferences);
  *self = process.get();
  relay_.join(process.get());
  try {
    process->connection().ask({{"verb", "now"}, {"members", Json::object()}}, options_.stop);
  } catch (const ConnectionLost& lost) {
    died(program, *process, lost.what());
  }
  return process;
}

std::shared_ptr<Process> Phone::running() {
  const std::scoped_lock lock(mutex_);
  if (!process_) process_ = start(Program::homeScreen, {.uptime = uptime_});
  return process_;
}

std::shared_ptr<Process> Phone::runningSettings() {
  if (paneIsOpen()) return openSettings();
  const double clock = now();
  const auto uptime = ask("uptime").get<std::int64_t>();
  const std::scoped_lock lock(mutex_);
  if (!settings_) settings_ = start(Program::settings, {.uptime = uptime, .clock = clock});
  return settings_;
}

bool Phone::paneIsOpen() const {
  const std::scoped_lock lock(mutex_);
  return settings_ != nullptr;
}

std::shared_ptr<Process> Phone::openSettings() const {
  const std::scoped_lock lock(mutex_);
  if (!settings_) throw BadInput("the settings application is not open");
  return settings_;
}

std::shared_ptr<Process> Phone::take(Program program) {
  const std::scoped_lock lock(mutex_);
  return std::exchange(program == Program::homeScreen ? process_ : settings_, nullptr);
}

Phone& Phone::boot() {
  running();
  return *this;
}

bool Phone::booted() const {
  const std::scoped_lock lock(mutex_);
  return process_ != nullptr;
}

Phone& Phone::startAnew(const std::function<void(Process&)>& end) {
  options_.clock = now();
  uptime_ = ask("uptime").get<std::int64_t>();
  end(*take(Program::homeScreen));
  return boot();
}

Phone& Phone::respring() {
  return startAnew([](Process& process) { process.end(longestEnd); });
}

Phone& Phone::crash() {
  return startAnew([](Process& process) { process.kill(); });
}

void Phone::shutDown() {
  closePane();
  endWell(Program::homeScreen);
}

void Phone::endWell(Program program) {
  const auto process = take(program);
  if (!process) return;
  const std::optional<int> status = process->end(longestEnd);
  if (!status) died(program, *process, nameOf(program) + " did not end");
  if (*status != 0) died(program, *process, nameOf(program) + " ended with status " + std::to_string(*status));
}

Phone& Phone::actInPane(const std::string& verb, Json members) {
  askPane(verb, std::move(members));
  return *this;
}

Phone& Phone::act(const std::string& verb, Json members) {
  ask(verb, std::move(members));
  return *this;
}

Phone& Phone::touch(std::string_view id) { return act("touch", {{"id", id}}); }

Phone& Phone::swipe(std::string_view id, const std::vector<TouchSample>& samples) {
  Json list = Json::array();
  double way = 0;
  for (const TouchSample& sample : samples) {
    list.insert(list.end(), {sample.dx, sample.dy});
    way += sample.dy;
  }
  return act("swipe", {{"direction", way > 0 ? "down" : "up"}, {"id", id}, {"samples", list}});
}

Phone& Phone::swipeUp(std::string_view id) { return act("swipe", {{"direction", "up"}, {"id", id}}); }
Phone& Phone::swipeDown(std::string_view id) { return act("swipe", {{"direction", "down"}, {"id", id}}); }
Phone& Phone::forceTouch(std::string_view id) { return act("force-touch", {{"id", id}}); }
Phone& Phone::choose(std::string_view title) { return act("choose", {{"title", title}}); }
Phone& Phone::tap(std::string_view title) { return act("tap", {{"title", title}}); }
Phone& Phone::tapAndGoOn(std::string_view title) { return act("tap", {{"title", title}, {"go-on", true}}); }
Phone& Phone::finishWaiting() {
  const auto process = running();
  try {
    process->finishWaiting();
  } catch (const ConnectionLost& lost) {
    died(Program::homeScreen, *process, lost.what());
  }
  return *this;
}
Phone& Phone::tapLate(std::string_view title) { return act("tap", {{"title", title}, {"late", true}}); }
Phone& Phone::type(std::string_view text) { return act("type", {{"text", text}}); }
Phone& Phone::paste(std::string_view text) { return act("paste", {{"text", text}}); }
Phone& Phone::clear() { return act("clear"); }
Phone& Phone::launch(std::string_view id) { return act("launch", {{"id", id}}); }
Phone& Phone::home() { return act("home"); }
Phone& Phone::edit(bool on) { return act("edit", {{"on", on}}); }
Phone& Phone::lock() { return act("lock"); }
Phone& Phone::unlock() { return act("unlock"); }
Phone& Phone::screenOff(const ScreenMode& mode) { return act("screen-off", screenMode(mode)); }
Phone& Phone::screenOn(const ScreenMode& mode) { return act("screen-on", screenMode(mode)); }
Phone& Phone::powerDown() { return act("power-down"); }

Phone& Phone::notify(std::string_view id, std::string_view text, const std::vector<std::string>& places) {
  return act("notify", {{"id", id}, {"text", text}, {"places", places}});
}

Phone& Phone::startDownload(std::string_view id) { return act("download", {{"what", "start"}, {"id", id}}); }
Phone& Phone::askDownload(std::string_view id) { return act("download", {{"what", "ask"}, {"id", id}}); }
Phone& Phone::removeDownload(std::string_view id) { return act("download", {{"what", "remove"}, {"id", id}}); }

Phone& Phone::noticed() { return booted() ? rescan() : *this; }

Device::Application Phone::install(const fs::path& archive) {
  auto installed = device_.install(archive);
  noticed();
  return installed;
}

Phone& Phone::uninstall(std::string_view id) {
  device_.uninstall(id);
  return noticed();
}

Package Phone::installPackage(const fs::path& file) { return finishInstalling(sim::installPackage(device_, file)); }
Package Phone::removePackage(std::string_view name) { return finishInstalling(sim::removePackage(device_, name)); }

Package Phone::finishInstalling(Package package) {
  if (package.wantsRestart && booted()) respring();
  return package;
}

Phone& Phone::setFilzaInstalled(bool installed) {
  device_.setFilzaInstalled(installed);
  return noticed();
}

Phone& Phone::openPane(std::string_view label) {
  runningSettings();
  return actInPane("open", {{"label", label}});
}

Phone& Phone::setCell(std::string_view label, std::string_view value) {
  return actInPane("set", {{"label", label}, {"value", value}});
}

Phone& Phone::pressCell(std::string_view label) { return actInPane("press", {{"label", label}}); }
Phone& Phone::deleteCell(std::string_view label) { return actInPane("delete", {{"label", label}}); }
Phone& Phone::paneBack() { return actInPane("back"); }

Phone& Phone::closePane() {
  endWell(Program::settings);
  return tellTime();
}

Phone& Phone::crashPane() {
  openSettings()->kill();
  take(Program::settings);
  return tellTime();
}

Phone& Phone::tellTime() {
  // The preferences daemon may have learnt from nobody else when it is to write.
  if (preferences_ && preferences_->runs() && booted()) ask("preferences", {{"domain", preferencesDomain}});
  return *this;
}

PaneOnScreen Phone::pane() { return askPane("pane").get<PaneOnScreen>(); }

std::string Phone::paneOutput() { return openSettings()->output(); }

Phone& Phone::settings(const std::vector<std::string>& assignments) {
  device_.setSettings(assignments);
  return booted() ? post(preferencesChanged) : *this;
}

Phone& Phone::settingsThroughDaemon(const std::vector<std::string>& assignments) {
  return act("set-preferences", {{"domain", preferencesDomain}, {"values", Device::settingsIn(assignments)}})
      .post(preferencesChanged);
}

Phone& Phone::flush() { return act("flush"); }

Phone& Phone::post(std::string_view name) {
  const Json members = {{"name", name}};
  if (paneIsOpen()) askPane("post", members);
  return act("post", members);
}

Phone& Phone::advance(double seconds) {
  if (!std::isfinite(seconds) || seconds < 0) throw BadInput("the clock only runs forwards");
  return act("advance", {{"seconds", seconds}});
}

Phone& Phone::animations(bool on) { return act("animations", {{"on", on}}); }
Phone& Phone::setClock(double seconds) {
  const Json members = {{"seconds", seconds}};
  act("set-clock", members);
  if (paneIsOpen()) askPane("set-clock", members);
  return *this;
}

Phone& Phone::rescan() { return act("rescan"); }

Phone& Phone::perform(std::string_view selector, std::optional<std::string> className) {
  return performWith(selector, {}, std::move(className));
}

Phone& Phone::performWith(std::string_view selector, const std::vector<std::int64_t>& arguments,
                          std::optional<std::string> className) {
  Json members = {{"selector", selector}, {"arguments", arguments}};
  if (className) members["target"] = *className;
  return act("perform", members);
}

Phone& Phone::interpose(std::string_view method, Json members) {
  members["method"] = method;
  return act("interpose", std::move(members));
}

std::map<std::string, long> Phone::interposedCalls() {
  return ask("platform").at("interposed").get<std::map<std::string, long>>();
}

bool Phone::raises(const std::string& verb, Json members) {
  return exchange({{"verb", verb}, {"members", std::move(members)}, {"catching", true}}).at("raised").get<bool>();
}

Screen Phone::screen() { return ask("screen").get<Screen>(); }

std::vector<std::string> Phone::events(std::size_t since) {
  return log("events", since).get<std::vector<std::string>>();
}

AlertOnScreen Phone::sheet() {
  const Screen seen = screen();
  if (const AlertOnScreen* alert = seen.topAlert()) return *alert;
  throw BadInput("no sheet or alert on the screen");
}

double Phone::now() { return ask("now").get<double>(); }

std::optional<Phone::Pasteboard> Phone::pasteboard() {
  const Json value = ask("pasteboard");
  if (value.is_null()) return std::nullopt;
  return Pasteboard{value.at("type"), value.at("text")};
}

std::optional<PropertyList> Phone::preferences(std::string_view domain) {
  const Json value = ask("preferences", {{"domain", domain}});
  if (value.is_null()) return std::nullopt;
  return PropertyList::parse(value.get_ref<const std::string&>());
}

PropertyList Phone::readPreferences(std::string_view domain) {
  const Json value = ask("preferences", {{"domain", domain}, {"read", true}});
  return PropertyList::parse(value.get_ref<const std::string&>()).value();
}

std::vector<Phone::OpenedUrl> Phone::urls() {
  std::vector<OpenedUrl> all;
  for (const Json& item : log("urls")) all.push_back({item.at("url"), item.at("opened")});
  return all;
}

std::vector<Phone::Launch> Phone::launches() {
  std::vector<Launch> all;
  for (const Json& item : log("launches")) {
    const auto text = [&](const char* name) { return item.value(name, Json()).get<std::optional<std::string>>(); };
    all.push_back({item.at("id"), text("location"), text("context"), text("settings"), text("actions")});
  }
  return all;
}

std::vector<Phone::Call> Phone::calls() {
  std::vector<Call> all;
  for (const Json& item : log("calls")) {
    all.push_back({item.at("kind"), item.at("class"), item.at("selector"), item.at("encoding")});
  }
  return all;
}

Phone& Phone::logMessages(bool on) { return act("log-messages", {{"on", on}}); }

std::vector<Phone::DarwinObserver> Phone::darwinObservers() {
  std::vector<DarwinObserver> all;
  for (const Json& item : ask("darwin-observers")) {
    all.push_back({item.at("name"), item.at("observer"), item.at("object"), item.at("suspension")});
  }
  return all;
}

Phone::ClassDescription Phone::describe(std::string_view className) {
  const Json value = ask("class", {{"name", className}});
  const auto members = [&](const char* kind) {
    std::vector<ClassDescription::Member> all;
    for (const Json& member : value.at(kind)) all.push_back({member.at("name"), member.at("type")});
    return all;
  };
  return {value.at("superclass"), value.at("protocols"), members("instanceVariables"), members("methods"),
          members("classMethods")};
}

std::map<std::string, long> Phone::live() { return ask("live").get<std::map<std::string, long>>(); }

std::string Phone::output() { return running()->output(); }

Json Phone::request(Program program, Process& process, Json request) {
  try {
    Connection::Answer answer = process.connection().ask(std::move(request), options_.stop);
    seconds_ = answer.seconds;
    return std::move(answer.value);
  } catch (const ConnectionLost& lost) {
    // The settings application can be opened again.
    if (program == Program::settings) take(program);
    died(program, process, lost.what());
  }
}

void Phone::settle(Program program, Process& process) {
  const Program otherProgram = program == Program::homeScreen ? Program::settings : Program::homeScreen;
  std::shared_ptr<Process> other;
  {
    const std::scoped_lock lock(mutex_);
    other = otherProgram == Program::homeScreen ? process_ : settings_;
  }
  if (!other) return;
  const double seconds = seconds_;
  const Json uptime = request(program, process, {{"verb", "uptime"}, {"members", Json::object()}});
  request(otherProgram, *other, {{"verb", "catch-up"}, {"members", {{"uptime", uptime}}}});
  seconds_ = seconds;
}

Json Phone::exchange(Program program, const std::shared_ptr<Process>& process, Json asked) {
  try {
    Json value = request(program, *process, std::move(asked));
    settle(program, *process);
    return value;
  } catch (const Refusal&) {
    // Time may have passed all the same.
    settle(program, *process);
    throw;
  }
}

Json Phone::exchange(Json request) { return exchange(Program::homeScreen, running(), std::move(request)); }

Json Phone::askPane(const std::string& verb, Json members) {
  Json value = exchange(Program::settings, openSettings(), {{"verb", verb}, {"members", std::move(members)}});
  if (relaunchAsked_.exchange(false)) respring();
  return value;
}

Json Phone::ask(const std::string& verb, Json members) {
  return exchange({{"verb", verb}, {"members", std::move(members)}});
}

Json Phone::log(const std::string& verb, std::size_t since) { return ask(verb, {{"since", since}}).at("entries"); }

void Phone::killDuring(const std::string& verb, Json members, const std::function<void()>& moment) {
  const auto process = running();
  process->connection().send({{"verb", verb}, {"members", std::move(members)}});
  moment();
  process->kill();
  if (const auto settings = take(Program::settings)) settings->kill();
  preferences_->kill();
}

void Phone::died(Program program, Process& process, const std::string& reason) {
  // A process that reports what brought it down gets the time to finish its report.
  const bool ended = process.end(std::chrono::seconds(5)).has_value();
  if (!ended) process.kill();
  const std::string output = lastLines(process.output());
  const std::string report = reason + (output.empty() ? "" : "\n" + output);
  if (program == Program::homeScreen) throw HomeScreenDied(report);
  throw SettingsDied(report);
}

}  // namespace sim
