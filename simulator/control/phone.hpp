// A phone as a person holds it: everything he can do, and everything he can see.
#pragma once

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/control/pane.hpp"
#include "simulator/control/preferences_daemon.hpp"
#include "simulator/control/process.hpp"
#include "simulator/control/relay.hpp"
#include "simulator/control/screen.hpp"
#include "simulator/device/device.hpp"
#include "simulator/device/error.hpp"
#include "simulator/device/packages.hpp"

namespace sim {

/// A finger's way from one touch sample to the next, in points; down and right are positive.
struct TouchSample {
  double dx = 0, dy = 0;
};

/// A device, the home screen that runs on it, and the settings application as long as it is open. The home screen boots
/// when it is first asked for something: until then what it runs with may be changed. What he does reads as a sentence,
/// since every action gives the phone back: `phone.forceTouch("com.example.notes").choose("Sprigdial")`. An action that
/// cannot be done throws `BadInput` and changes nothing; `HomeScreenDied` tells that the process ended, `SettingsDied`
/// that the settings application did. Several threads may ask at once.
class Phone {
 public:
  using Options = ProcessOptions;

  /// Opens the device, or makes it when there is none.
  explicit Phone(Options options);
  ~Phone();
  Phone(const Phone&) = delete;
  Phone& operator=(const Phone&) = delete;

  /// What the home screen runs with, the next time that it boots.
  Options& options() { return options_; }
  Device& device() { return device_; }
  const Device& device() const { return device_; }

  /// Boots, unless it runs; returns when the home screen is up.
  Phone& boot();
  bool booted() const;
  /// Ends the process and starts a new one on the same device; the clock goes on where it stood.
  Phone& respring();
  /// The process is killed and comes up again, as after a crash: nothing that it has in memory is left, while the
  /// preferences daemon and the settings application go on.
  Phone& crash();
  /// Ends the settings application and the home screen, and waits for that. Throws `HomeScreenDied` or `SettingsDied`
  /// when one did not end well.
  void shutDown();

  /// A finger is put on an icon and taken away, without a tap.
  Phone& touch(std::string_view id);
  /// A finger drags on an icon, sample by sample.
  Phone& swipe(std::string_view id, const std::vector<TouchSample>& samples);
  /// Three samples straight up, or down, each of 20 points.
  Phone& swipeUp(std::string_view id);
  Phone& swipeDown(std::string_view id);
  /// Opens the icon's quick-action list.
  Phone& forceTouch(std::string_view id);
  /// Chooses an entry of the open quick-action list.
  Phone& choose(std::string_view title);
  /// Taps a button of the topmost window's sheet or alert. As much time passes as the alert takes to come, if it still
  /// does, and to go; then the button's handler has run.
  Phone& tap(std::string_view title);
  /// The same, but no time passes once the finger is lifted: the alert has still to go, before the button's handler
  /// runs.
  Phone& tapLate(std::string_view title);
  /// The same as a tap, but goes on as soon as the home screen waits for a program that the tap starts.
  Phone& tapAndGoOn(std::string_view title);
  /// Waits until the home screen waits for no program.
  Phone& finishWaiting();
  /// Types over the text of the text field that has the focus, on the keyboard that is up.
  Phone& type(std::string_view text);
  /// Pastes in the place of that text.
  Phone& paste(std::string_view text);
  /// Taps the field's clear button.
  Phone& clear();
  /// Taps the icon: the application opens.
  Phone& launch(std::string_view id);
  /// Presses the home button.
  Phone& home();
  Phone& edit(bool on);
  Phone& lock();
  Phone& unlock();

  /// What the old generation's cover sheet is told when the screen goes off or on.
  struct ScreenMode {
    std::optional<int> mode, autoUnlock;  ///< NO and YES, or any other byte
    std::optional<int> source;            ///< with it, by the longer method
  };
  Phone& screenOff(const ScreenMode& mode = {});
  Phone& screenOn(const ScreenMode& mode = {});
  /// Brings the power-down slider up.
  Phone& powerDown();
  /// A notification of the application arrives, at those of the places "screen", "sound", "lock screen" and
  /// "banner" that he lets it appear at.
  Phone& notify(std::string_view id, std::string_view text,
                const std::vector<std::string>& places = {"screen", "sound", "lock screen", "banner"});
  /// A downloading icon appears, is asked whether it is one, is removed by the user.
  Phone& startDownload(std::string_view id);
  Phone& askDownload(std::string_view id);
  Phone& removeDownload(std::string_view id);
  /// Installs an application archive; its icon appears. Gives what was installed.
  Device::Application install(const std::filesystem::path& archive);
  /// Takes an application away, with its data and its icon.
  Phone& uninstall(std::string_view id);
  /// Installs a package, or takes one away, as an installer on the phone does: the home screen is restarted when the
  /// package asks for it.
  Package installPackage(const std::filesystem::path& file);
  Package removePackage(std::string_view name);
  /// The file manager comes or goes.
  Phone& setFilzaInstalled(bool installed);
  /// Starts the settings application if it is not open, and taps the row of that label in its first list. It has a
  /// screen of its own, beside the home screen's.
  Phone& openPane(std::string_view label);
  /// Sets a cell of the list that it shows: a switch to "on" or "off", a segment by its title, a slider to a number, a
  /// text field to a text.
  Phone& setCell(std::string_view label, std::string_view value);
  /// Taps a link or a button, also the one beside the title and those of an alert.
  Phone& pressCell(std::string_view label);
  /// Swipes a cell away.
  Phone& deleteCell(std::string_view label);
  /// Taps the way back.
  Phone& paneBack();
  /// Ends the settings application, which need not be open. Throws `SettingsDied` when it did not end well.
  Phone& closePane();
  /// Kills it, as a crash does.
  Phone& crashPane();
  bool paneIsOpen() const;
  /// What it shows. Throws `BadInput` when it is not open.
  PaneOnScreen pane();
  /// Asks the settings application, which is open, by the protocol's words; returns the value.
  nlohmann::json askPane(const std::string& verb, nlohmann::json members = nlohmann::json::object());
  /// What its process wrote to its standard output and error.
  std::string paneOutput();
  /// Changes settings, texts KEY=VALUE, in a settings pane that writes the file itself, past the preferences daemon, so
  /// that the add-on finds them there when it is told.
  Phone& settings(const std::vector<std::string>& assignments);
  /// The same in a pane that leaves the file to the preferences daemon, which writes it when it likes.
  Phone& settingsThroughDaemon(const std::vector<std::string>& assignments);
  /// The preferences daemon writes at once what has changed.
  Phone& flush();
  /// Something else posts a Darwin notification: every process gets it.
  Phone& post(std::string_view name);
  /// Lets time pass.
  Phone& advance(double seconds);
  /// Sets the clock, in seconds since 1970, forwards or backwards. No time passes.
  Phone& setClock(double seconds);
  /// Whether sheets and alerts take their time to come and to go.
  Phone& animations(bool on);
  /// Looks for applications that came or went on the device.
  Phone& rescan();
  /// Sends a message without arguments to the menu host, or to the shared object of the class named.
  Phone& perform(std::string_view selector, std::optional<std::string> className = {});
  /// The same with arguments, six at most, each as wide as a register.
  Phone& performWith(std::string_view selector, const std::vector<std::int64_t>& arguments,
                     std::optional<std::string> className = {});

  /// Tells what becomes of an interposed method's next call: members of the verb `interpose`, "do" among them.
  Phone& interpose(std::string_view method, nlohmann::json members);
  /// How often each interposed method was called.
  std::map<std::string, long> interposedCalls();
  /// Asks as `ask` does. Whether an exception came out of it, or of what was due after it; it is caught.
  bool raises(const std::string& verb, nlohmann::json members = nlohmann::json::object());

  /// Everything he sees now.
  Screen screen();
  /// What happened since the start, but for the first `since`: "screen woken by ID", "sound for ID", "launched ID …".
  std::vector<std::string> events(std::size_t since = 0);
  /// The topmost window's sheet or alert. Throws `BadInput` when there is none.
  AlertOnScreen sheet();
  /// The clock, in seconds since 1970.
  double now();

  struct Pasteboard {
    std::string type, text;
  };
  std::optional<Pasteboard> pasteboard();
  /// A preferences domain as the daemon holds it; none for one that nobody has used yet.
  std::optional<PropertyList> preferences(std::string_view domain);
  /// The same as a program gets it that asks for a value: the daemon reads the file if it has not yet.
  PropertyList readPreferences(std::string_view domain);
  struct OpenedUrl {
    std::string url;
    bool opened = false;
  };
  /// The addresses that were to be opened, since the start.
  std::vector<OpenedUrl> urls();
  struct Launch {
    std::string id;
    std::optional<std::string> location, context, settings, actions;  ///< what the icon was told
  };
  std::vector<Launch> launches();
  struct Call {
    std::string kind, className, selector, encoding;
  };
  /// What the library hooked, added, observed, posted and, while messages are logged, sent.
  std::vector<Call> calls();
  Phone& logMessages(bool on);
  struct DarwinObserver {
    std::string name;
    nlohmann::json observer, object;
    int suspension = 0;
  };
  std::vector<DarwinObserver> darwinObservers();
  /// What the runtime knows of a class, superclasses not counted.
  struct ClassDescription {
    struct Member {
      std::string name, type;  ///< as the runtime encodes it
      bool operator==(const Member&) const = default;
    };
    std::string superclass;  ///< empty for a root class
    std::vector<std::string> protocols;
    std::vector<Member> instanceVariables;  ///< in their order
    std::vector<Member> methods, classMethods;
  };
  /// Throws `BadInput` when there is no such class.
  ClassDescription describe(std::string_view className);
  /// The number of live objects by class, and of blocks.
  std::map<std::string, long> live();
  /// What the process wrote to its standard output and error.
  std::string output();

  /// Asks the process by the protocol's words; returns the value.
  nlohmann::json ask(const std::string& verb, nlohmann::json members = nlohmann::json::object());
  /// Asks as `ask` does and, without waiting for the answer, takes the power away as soon as `moment` returns. The
  /// home screen is gone then, and so is what the preferences daemon had not written.
  void killDuring(const std::string& verb, nlohmann::json members, const std::function<void()>& moment);
  /// How long the process took for what it was asked last.
  double seconds() const { return seconds_; }

 private:
  std::shared_ptr<Process> running();
  /// Starts the settings application unless it runs.
  std::shared_ptr<Process> runningSettings();
  /// The settings application, if it is open. Throws `BadInput`.
  std::shared_ptr<Process> openSettings() const;
  std::shared_ptr<Process> start(Program program, const Process::Before& before);
  /// The process, which this phone counts as gone from now on; null when it does not run.
  std::shared_ptr<Process> take(Program program);
  Phone& startAnew(const std::function<void(Process&)>& end);
  Phone& act(const std::string& verb, nlohmann::json members = nlohmann::json::object());
  Phone& actInPane(const std::string& verb, nlohmann::json members = nlohmann::json::object());
  void endWell(Program program);
  /// The settings application has gone: the home screen tells the preferences daemon the time from now on.
  Phone& tellTime();
  /// What an installer does once a package has come or gone.
  Package finishInstalling(Package package);
  /// A change of the device that a home screen notices when it runs.
  Phone& noticed();
  /// The entries of a log from that place on.
  nlohmann::json log(const std::string& verb, std::size_t since = 0);
  nlohmann::json exchange(nlohmann::json request);
  nlohmann::json exchange(Program program, const std::shared_ptr<Process>& process, nlohmann::json request);
  nlohmann::json request(Program program, Process& process, nlohmann::json request);
  /// What that process did has reached the other one, if both run: posts, and the time that has passed.
  void settle(Program program, Process& process);
  [[noreturn]] void died(Program program, Process& process, const std::string& reason);

  Options options_;
  Device device_;
  std::optional<PreferencesDaemon> preferences_;  ///< from the first boot on
  NotificationRelay relay_;
  mutable std::mutex mutex_;
  std::shared_ptr<Process> process_, settings_;
  std::optional<std::int64_t> uptime_;  ///< in nanoseconds, of the home screen before
  std::atomic<double> seconds_ = 0;
  std::atomic<bool> relaunchAsked_ = false;  ///< the settings application wants the home screen to be started anew
};

}  // namespace sim
