// One person's time with phones: what he types is done, one line after the other.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <ostream>
#include <stdexcept>
#include <stop_token>
#include <string>
#include <vector>

#include "simulator/control/clock_record.hpp"
#include "simulator/control/phone.hpp"
#include "simulator/control/vocabulary.hpp"
#include "simulator/device/files.hpp"

namespace sim {

/// An `expect` or `expect-not` that does not hold.
struct ExpectationFailed : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Plays verbs: the driver's own, and those of the home-screen process.
class Session {
 public:
  struct Options {
    std::filesystem::path buildFolder = programFolder();
    std::optional<std::filesystem::path> device;  ///< booted on by default; without it every boot has a fresh one
    bool live = false;                            ///< the clock runs by itself
    std::stop_token stop;                         ///< ends all waiting
  };

  /// What the verbs print goes to `output`.
  Session(Options options, std::ostream& output);
  ~Session();

  /// Plays one line; a line without a verb does nothing. Throws `BadInput`, `ExpectationFailed`, `HomeScreenDied`.
  void play(const std::string& line);
  /// Whether it was told to quit.
  bool over() const { return over_; }
  /// Every verb, those of a group together.
  const std::vector<VerbDescription>& verbs();
  /// The verb of that name, or null.
  const VerbDescription* verb(const std::string& name);
  /// The verbs, with what they take and do.
  std::string help();
  /// What a member may be as the phone is now, as far as that can be known: icons, buttons, files, choices.
  std::vector<std::string> candidates(const MemberDescription& member, const std::string& begun);

  // For the driver's own verbs.
  const Options& options() const { return options_; }
  std::ostream& output() { return output_; }
  /// Throws `BadInput` when none is booted.
  Phone& phone();
  /// Boots another phone; the one before is kept when that fails. Without a device it gets a fresh one.
  void boot(Phone::Options options, const std::optional<std::filesystem::path>& device);
  void quit() { over_ = true; }
  /// Another home screen begins: its events are counted anew, those of its start are told at once, and no menu has come
  /// yet.
  void begin();
  /// The screen as text, with the events since the last `showScreen`.
  std::string look();
  /// The same, and what the settings application shows if it is open.
  std::string lookEverywhere();
  void showScreen();
  /// When a file of the device was changed, by the phone's clock.
  std::string changed(const std::filesystem::path& file);
  /// The application of that identifier or label. Throws `BadInput` when there is none.
  Device::Application application(const std::string& idOrLabel);

 private:
  void perform(const VerbDescription& verb, const nlohmann::json& members);
  /// After what may open a menu: tells when none came because of the one before.
  void noteMenu();
  /// What helps on after a verb was refused; empty when nothing does.
  std::string advice(const VerbDescription& verb, const nlohmann::json& members);
  std::vector<std::string> icons();
  std::vector<std::string> titles();
  std::vector<std::string> cells();
  std::vector<std::string> cellValues();

  Options options_;
  std::ostream& output_;
  std::vector<VerbDescription> verbs_;  // none until they are asked for
  bool upToDate_ = false;               // the console's device has got what was built
  std::unique_ptr<TemporaryFolder> freshDevice_;
  std::unique_ptr<Phone> phone_;
  ClockRecord clock_;
  std::size_t eventsFrom_ = 0, eventsUpTo_ = 0;  // places in the log of events
  std::optional<std::int64_t> menuCame_;         // nanoseconds that the phone had been up
  bool over_ = false;
};

}  // namespace sim
