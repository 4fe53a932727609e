// The home screen as a person has it in the hand: everything he can do, and everything he can see.
#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "simulator/control/error.hpp"
#include "simulator/control/screen.hpp"
#include "simulator/device/device.hpp"
#include "simulator/device/files.hpp"
#include "simulator/device/sandbox.hpp"
#include "simulator/preferences/preferences_daemon.hpp"

namespace sim {

enum class Generation { old, recent };

/// A finger's way from one touch sample to the next, in points; down and right are positive.
struct TouchSample {
  double dx = 0, dy = 0;
};

/// A booted home screen. What he does reads as a sentence, since every action gives the home screen back:
/// `home.forceTouch("com.example.notes").choose("Sprigdial")`. An action that cannot be done throws `BadInput` and
/// changes nothing; `HomeScreenDied` tells that the process ended.
class HomeScreen {
 public:
  struct Options {
    Generation generation = Generation::old;
    std::optional<double> coreVersion;  ///< the core library's version; without it the generation's own
    bool tablet = false;
    std::filesystem::path device;                         ///< its folder; made when missing
    std::filesystem::path buildFolder = programFolder();  ///< where SpringBoard and Sprigdial.so are
    std::optional<double> clock;                          ///< seconds since 1970; without it the clock starts now
    std::optional<double> uptime;                         ///< seconds that the phone has been up; without it a minute
    std::optional<std::string> timeZone;                  ///< such as "Europe/Rome"; without it this process's own
    bool live = false;                                    ///< the clock runs by itself
    std::string library = "/run/simulator/Sprigdial.so";  ///< the add-on, by its path on the device; "" for none
    std::map<std::string, std::string> environment;       ///< of the process, besides the usual
    std::vector<std::string> interposed;                  ///< methods, "CLASS SELECTOR" or "+CLASS SELECTOR"
  };

  /// Boots; returns when the home screen is up.
  explicit HomeScreen(Options options);
  ~HomeScreen();

  const Options& options() const { return options_; }
  Device& device() { return device_; }

  /// Ends the process and starts a new one on the same device; the clock goes on where it stood.
  HomeScreen& respring();
  /// The process is killed and comes up again, as after a crash: nothing that it has in memory is left, while the
  /// preferences daemon goes on.
  HomeScreen& crash();
  /// Ends the process and waits for it. Throws `HomeScreenDied` when it did not end well.
  void shutDown();

  /// A finger is put on an icon and taken away, without a tap.
  HomeScreen& touch(std::string_view id);
  /// A finger drags on an icon, sample by sample.
  HomeScreen& swipe(std::string_view id, const std::vector<TouchSample>& samples);
  /// Three samples straight up, or down, each of 20 points.
  HomeScreen& swipeUp(std::string_view id);
  HomeScreen& swipeDown(std::string_view id);
  /// Opens the icon's quick-action list.
  HomeScreen& forceTouch(std::string_view id);
  /// Chooses an entry of the open quick-action list.
  HomeScreen& choose(std::string_view title);
  /// Taps a button of the topmost window's sheet or alert. As much time passes as the alert takes to come, if it still
  /// does, and to go; then the button's handler has run.
  HomeScreen& tap(std::string_view title);
  /// The same, but no time passes once the finger is lifted: the alert has still to go, before the button's handler
  /// runs.
  HomeScreen& tapLate(std::string_view title);
  /// The same as a tap, but goes on when the tap starts a program that the home screen then waits for. Until the
  /// program's end the screen can be looked at; whatever else is done waits for it.
  HomeScreen& tapAndGoOn(std::string_view title);
  /// Types over the text of the topmost alert's first text field, on the keyboard that is up.
  HomeScreen& type(std::string_view text);
  /// Pastes in the place of that text.
  HomeScreen& paste(std::string_view text);
  /// Taps the field's clear button.
  HomeScreen& clear();
  /// Taps the icon: the application opens.
  HomeScreen& launch(std::string_view id);
  /// Presses the home button.
  HomeScreen& home();
  HomeScreen& edit(bool on);
  HomeScreen& lock();
  HomeScreen& unlock();

  /// What the old generation's cover sheet is told when the screen goes off or on.
  struct ScreenMode {
    std::optional<int> mode, autoUnlock;  ///< NO and YES, or any other byte
    std::optional<int> source;            ///< with it, by the longer method
  };
  HomeScreen& screenOff(const ScreenMode& mode = {});
  HomeScreen& screenOn(const ScreenMode& mode = {});
  /// Brings the power-down slider up.
  HomeScreen& powerDown();
  /// A notification of the application arrives, at those of the places "screen", "sound", "lock screen" and
  /// "banner" that he lets it appear at.
  HomeScreen& notify(std::string_view id, std::string_view text,
                     const std::vector<std::string>& places = {"screen", "sound", "lock screen", "banner"});
  /// A downloading icon appears, is asked whether it is one, is removed by the user.
  HomeScreen& startDownload(std::string_view id);
  HomeScreen& askDownload(std::string_view id);
  HomeScreen& removeDownload(std::string_view id);
  /// Installs an application archive; its icon appears. Gives what was installed.
  Device::Application install(const std::filesystem::path& archive);
  /// The file manager comes or goes.
  HomeScreen& setFilzaInstalled(bool installed);
  /// Changes settings, texts KEY=VALUE, in a settings pane that writes the file itself, past the preferences daemon, so
  /// that the add-on finds them there when it is told.
  HomeScreen& settings(const std::vector<std::string>& assignments);
  /// The same in a pane that leaves the file to the preferences daemon, which writes it when it likes.
  HomeScreen& settingsThroughDaemon(const std::vector<std::string>& assignments);
  /// The preferences daemon writes at once what has changed.
  HomeScreen& flush();
  /// Posts a Darwin notification.
  HomeScreen& post(std::string_view name);
  /// Lets time pass.
  HomeScreen& advance(double seconds);
  /// Sets the clock, in seconds since 1970, forwards or backwards. No time passes.
  HomeScreen& setClock(double seconds);
  /// Whether sheets and alerts take their time to come and to go.
  HomeScreen& animations(bool on);
  /// Looks for applications that came or went on the device.
  HomeScreen& rescan();
  /// Sends a message without arguments to the menu host, or to the shared object of the class named.
  HomeScreen& perform(std::string_view selector, std::optional<std::string> className = {});

  /// The same with arguments, six at most, each as wide as a register.
  HomeScreen& performWith(std::string_view selector, const std::vector<std::int64_t>& arguments,
                          std::optional<std::string> className = {});

  /// Tells what becomes of an interposed method's next call: members of the verb `interpose`, "do" among them.
  HomeScreen& interpose(std::string_view method, nlohmann::json members);
  /// How often each interposed method was called.
  std::map<std::string, long> interposedCalls();
  /// Asks as `ask` does. Whether an exception came out of it, or of what was due after it; it is caught.
  bool raises(const std::string& verb, nlohmann::json members = nlohmann::json::object());

  /// Everything he sees now. The events are told once.
  Screen screen();
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
  HomeScreen& logMessages(bool on);
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
  std::string output() const { return process_->output(); }

  /// Asks the process by the protocol's words; returns the value.
  nlohmann::json ask(const std::string& verb, nlohmann::json members = nlohmann::json::object());
  /// Asks as `ask` does and, without waiting for the answer, takes the power away as soon as `moment` returns. The
  /// home screen is gone then, and so is what the preferences daemon had not written.
  void killDuring(const std::string& verb, nlohmann::json members, const std::function<void()>& moment);
  /// How long the process took for what it was asked last.
  double seconds() const { return seconds_; }

 private:
  void start();
  void startAnew(const std::function<void(SandboxedProcess&)>& end);
  HomeScreen& act(const std::string& verb, nlohmann::json members = nlohmann::json::object());
  void request(const std::string& verb, nlohmann::json members);
  std::string readLine();
  [[noreturn]] void died(const std::string& reason);

  Options options_;
  Device device_;
  PreferencesDaemon preferences_;
  std::unique_ptr<SandboxedProcess> process_;
  std::string unread_;
  double seconds_ = 0;
};

}  // namespace sim
