// The driver's end of the conversation, with a process that is played here.
#include "simulator/control/connection.hpp"

#include <gtest/gtest.h>
#include <pthread.h>
#include <signal.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <future>

namespace {

using Json = nlohmann::json;

class Conversation : public testing::Test {
 protected:
  Conversation() {
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) throw std::runtime_error("no sockets");
  }
  ~Conversation() override {
    for (const int end : ends) close(end);
  }
  Json readRequest() {
    std::string line;
    char byte = 0;
    while (read(ends[1], &byte, 1) == 1 && byte != '\n') line += byte;
    return Json::parse(line);
  }
  void say(const Json& line) {
    const std::string text = line.dump() + "\n";
    ASSERT_EQ(write(ends[1], text.data(), text.size()), static_cast<ssize_t>(text.size()));
  }
  // The process goes.
  void leave() { shutdown(ends[1], SHUT_RDWR); }

  int ends[2] = {-1, -1};
};

std::future<Json> asked(sim::Connection& connection, const std::string& verb) {
  return std::async(std::launch::async, [&connection, verb] { return connection.ask({{"verb", verb}}).value; });
}

}  // namespace

TEST_F(Conversation, EveryAskerGetsItsOwnAnswer) {
  sim::Connection connection(ends[0]);
  auto first = asked(connection, "first");
  const Json firstRequest = readRequest();
  auto second = asked(connection, "second");
  const Json secondRequest = readRequest();
  say({{"id", secondRequest["id"]}, {"value", secondRequest["verb"]}, {"seconds", 0}});
  EXPECT_EQ(second.get(), "second");
  say({{"id", firstRequest["id"]}, {"value", firstRequest["verb"]}, {"seconds", 0}});
  EXPECT_EQ(first.get(), "first");
}

TEST_F(Conversation, ManyThreadsMayAskAtOnce) {
  constexpr int threads = 8;
  constexpr int requests = 50;
  sim::Connection connection(ends[0]);
  auto process = std::async(std::launch::async, [this] {
    for (int count = 0; count < threads * requests; ++count) {
      const Json request = readRequest();
      say({{"id", request["id"]}, {"value", request["verb"]}, {"seconds", 0}});
    }
  });
  std::atomic<int> right = 0;
  {
    std::vector<std::future<void>> all;
    for (int thread = 0; thread < threads; ++thread)
      all.push_back(std::async(std::launch::async, [&, thread] {
        for (int count = 0; count < requests; ++count) {
          const std::string verb = std::to_string(thread) + "." + std::to_string(count);
          if (connection.ask({{"verb", verb}}).value == verb) ++right;
        }
      }));
  }
  process.get();
  EXPECT_EQ(right, threads * requests);
}

TEST_F(Conversation, PushesGoToTheListenerInTheirOrder) {
  std::vector<Json> heard;
  sim::Connection connection(ends[0], "the process", [&](const Json& push) { heard.push_back(push); });
  auto answer = asked(connection, "now");
  const Json request = readRequest();
  say({{"push", "ready"}, {"version", 1}});
  say({{"push", "of a kind that nobody knows"}});
  say({{"id", request["id"]}, {"value", 5}, {"seconds", 0}});
  EXPECT_EQ(answer.get(), 5);
  ASSERT_EQ(heard.size(), 2U);
  EXPECT_EQ(heard[0]["version"], 1);
}

TEST_F(Conversation, ARefusalSaysOfWhatKindItIs) {
  sim::Connection connection(ends[0]);
  auto process = std::async(std::launch::async, [this] {
    say({{"id", readRequest()["id"]}, {"error", "something lies over it"}, {"kind", "covered"}});
  });
  try {
    connection.ask({{"verb", "touch"}});
    FAIL();
  } catch (const sim::Refusal& refusal) {
    EXPECT_STREQ(refusal.what(), "something lies over it");
    EXPECT_EQ(refusal.kind, "covered");
  }
}

TEST_F(Conversation, AProcessThatGoesLeavesNobodyWaiting) {
  sim::Connection connection(ends[0]);
  auto first = asked(connection, "first");
  auto second = asked(connection, "second");
  readRequest();
  readRequest();
  leave();
  EXPECT_THROW(first.get(), sim::ConnectionLost);
  EXPECT_THROW(second.get(), sim::ConnectionLost);
  EXPECT_THROW(connection.ask({{"verb", "third"}}), sim::ConnectionLost);
}

TEST_F(Conversation, WhatIsNoMessageEndsIt) {
  sim::Connection connection(ends[0]);
  auto answer = asked(connection, "now");
  readRequest();
  say("hello");
  EXPECT_THROW(answer.get(), sim::ConnectionLost);
}

TEST_F(Conversation, SilenceEndsItButAnyLineIsASignOfLife) {
  using namespace std::chrono_literals;
  sim::Connection connection(ends[0], "the process", {}, 400ms);
  auto answer = asked(connection, "slow");
  const Json request = readRequest();
  for (int count = 0; count < 6; ++count) {
    std::this_thread::sleep_for(100ms);
    say({{"push", "alive"}});
  }
  say({{"id", request["id"]}, {"value", "done"}, {"seconds", 1}});
  EXPECT_EQ(answer.get(), "done");
  EXPECT_THROW(connection.ask({{"verb", "slower"}}), sim::ConnectionLost);
}

TEST_F(Conversation, ASignalDisturbsNothing) {
  struct sigaction action {};
  action.sa_handler = [](int) {};
  struct sigaction before {};
  sigaction(SIGUSR1, &action, &before);
  sim::Connection connection(ends[0]);
  std::promise<pthread_t> asker;
  auto answer = std::async(std::launch::async, [&] {
    asker.set_value(pthread_self());
    return connection.ask({{"verb", "slow"}}).value;
  });
  const pthread_t thread = asker.get_future().get();
  const Json request = readRequest();
  for (int count = 0; count < 20; ++count) {
    pthread_kill(thread, SIGUSR1);
    kill(getpid(), SIGUSR1);
  }
  say({{"id", request["id"]}, {"value", "done"}, {"seconds", 0}});
  EXPECT_EQ(answer.get(), "done");
  sigaction(SIGUSR1, &before, nullptr);
}

TEST_F(Conversation, AStopEndsTheWaiting) {
  sim::Connection connection(ends[0]);
  std::stop_source stop;
  auto answer = std::async(std::launch::async, [&] {
    return connection.ask({{"verb", "slow"}}, stop.get_token()).value;
  });
  readRequest();
  stop.request_stop();
  EXPECT_THROW(answer.get(), sim::ConnectionLost);
}
