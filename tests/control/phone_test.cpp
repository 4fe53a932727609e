// What a phone runs with, and how long it runs.
#include "tests/support/phone.hpp"

#include <future>
#include "tests/support/places.hpp"

namespace {
class Phones : public test::Generations {};
}  // namespace
INSTANTIATE_TEST_SUITE_P(, Phones, test::bothGenerations, test::generationName);

TEST_P(Phones, BootWhenTheyAreFirstUsed) {
  EXPECT_FALSE(phone.booted());
  phone.options().clock = 1709820309;
  phone.settings({"direction=1"});
  EXPECT_FALSE(phone.booted()) << "the settings file is the device's";
  EXPECT_EQ(phone.now(), 1709820309);
  EXPECT_TRUE(phone.booted());
}

TEST_P(Phones, SayWhatTheyCannotRunWith) {
  phone.options().clock = 1e30;
  EXPECT_THROW(phone.boot(), sim::BadInput);
  phone.options().clock = 0;
  phone.options().folders = {{"/nowhere/at/all", "/run/extra"}};
  EXPECT_THROW(phone.boot(), sim::BadInput);
}

TEST_P(Phones, HaveFurtherFoldersMounted) {
  const sim::TemporaryFolder folder;
  sim::writeFile(folder.path() / "program", "#!/bin/sh\necho a further program was here; exec \"$@\"\n");
  std::filesystem::permissions(folder.path() / "program", std::filesystem::perms(0755));
  phone.options().folders = {{folder.path().string(), "/run/extra"}};
  phone.options().before = {"/run/extra/program"};
  phone.boot();
  EXPECT_NE(phone.output().find("a further program was here"), std::string::npos) << phone.output();
}

TEST_P(Phones, AreStartedByOtherWordsIfWanted) {
  phone.options().before = {"/bin/sh", "-c", "echo a tracer was here; exec \"$@\"", "sh"};
  phone.boot();
  EXPECT_NE(phone.output().find("a tracer was here"), std::string::npos) << phone.output();
}

TEST_P(Phones, MayBeUsedBySeveralThreads) {
  constexpr int threads = 4;
  constexpr int steps = 25;
  phone.options().clock = 1000;
  {
    std::vector<std::future<void>> all;
    for (int thread = 0; thread < threads; ++thread)
      all.push_back(std::async(std::launch::async, [&] {
        for (int step = 0; step < steps; ++step) phone.advance(1);
      }));
  }
  EXPECT_EQ(phone.now(), 1000 + threads * steps);
}

TEST_P(Phones, StayDeadUntilANewOneIsTaken) {
  phone.killDuring("screen", nlohmann::json::object(), [] {});
  EXPECT_THROW(phone.screen(), sim::HomeScreenDied);
  EXPECT_THROW(phone.lock(), sim::HomeScreenDied);
}

TEST_P(Phones, StopWaitingWhenTold) {
  std::stop_source stop;
  phone.options().stop = stop.get_token();
  phone.boot();
  stop.request_stop();
  EXPECT_THROW(phone.screen(), sim::HomeScreenDied);
}
