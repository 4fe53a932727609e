// What the platform writes into property lists, another reader finds there, and the other way round.
#include "tests/support/phone.hpp"

namespace {

namespace fs = std::filesystem;
using Format = sim::PropertyList::Format;

class PropertyLists : public testing::TestWithParam<Format> {
 protected:
  sim::TemporaryFolder folder;
  sim::Device device{folder.path()};
  fs::path file(const std::string& name) const { return device.root() / "var/mobile" / (name + ".plist"); }

  /// All that the list holds, to the last bit.
  std::string whole(const sim::PropertyList& list) const {
    list.write(folder.path() / "whole");
    return *sim::readFile(folder.path() / "whole");
  }

  /// The elements of a list, written by another program in this form, come through the platform's reader and both of
  /// its writers as they are.
  void expectToStay(const std::string& elements) {
    const auto given = sim::PropertyList::parse(R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict>)"
                                                "<key>all</key><array>" +
                                                elements + "</array></dict></plist>");
    ASSERT_TRUE(given.has_value());
    given->write(file("given"), GetParam());
    const auto probed = nlohmann::json::parse(test::runInside(device, "platform-probe"));
    ASSERT_TRUE(probed.at("copied").get<bool>());
    for (const std::string form : {"xml", "binary"}) {
      const auto copy = sim::PropertyList::read(file(form));
      ASSERT_TRUE(copy.has_value()) << form;
      EXPECT_EQ(whole(*copy), whole(*given)) << form;
    }
    EXPECT_TRUE(sim::readFile(file("binary"))->starts_with("bplist00"));
  }
};

std::string utf8(char32_t character) {
  const auto byte = [&](unsigned shift, unsigned mark) {
    return static_cast<char>(mark | (character >> shift & (mark == 0x80 ? 0x3f : 0xff)));
  };
  if (character < 0x80) return {byte(0, 0)};
  if (character < 0x800) return {byte(6, 0xc0), byte(0, 0x80)};
  if (character < 0x10000) return {byte(12, 0xe0), byte(6, 0x80), byte(0, 0x80)};
  return {byte(18, 0xf0), byte(12, 0x80), byte(6, 0x80), byte(0, 0x80)};
}

}  // namespace
INSTANTIATE_TEST_SUITE_P(, PropertyLists, testing::Values(Format::xml, Format::binary),
                         [](const auto& info) { return info.param == Format::xml ? "XML" : "Binary"; });

TEST_P(PropertyLists, KeepTextsOfAllPlanes) {
  std::string elements = "<string></string><string>&lt;&amp;&gt;\"'</string><string> \t two\nlines </string>";
  for (char32_t plane = 0; plane <= 16; ++plane)
    for (const char32_t place : {0x00e9U, 0x1234U, 0xfffdU})
      elements += "<string>a" + utf8(plane * 0x10000 + place) + "</string><string>" + utf8(plane * 0x10000 + place) +
                  "</string>";
  elements +=
      "<string>e\u0301 👩‍👩‍👧‍👦 🏳️‍🌈 שלום</string><dict><key>kéy 🗝</key><string>x</string></dict>";
  elements += "<string>" + std::string(300, 'x') + "</string><string>" + std::string(70000, 'y') + "é</string>";
  expectToStay(elements);
}

TEST_P(PropertyLists, KeepIntegersOf64Bits) {
  std::string elements;
  for (const char* number : {"0",
                             "1",
                             "-1",
                             "127",
                             "128",
                             "255",
                             "256",
                             "-128",
                             "-129",
                             "32767",
                             "32768",
                             "65535",
                             "65536",
                             "2147483647",
                             "2147483648",
                             "-2147483648",
                             "-2147483649",
                             "4294967295",
                             "4294967296",
                             "9223372036854775807",
                             "-9223372036854775808"})
    elements += std::string("<integer>") + number + "</integer>";
  expectToStay(elements);
}

TEST_P(PropertyLists, KeepReals) {
  std::string elements;
  for (const char* number : {"0.0", "1.0", "0.1", "-2.5", "0.3333333333333333", "1e+300", "5e-324",
                             "1.7976931348623157e+308", "16777217.0", "0.30000001192092896"})
    elements += std::string("<real>") + number + "</real>";
  expectToStay(elements);
}

TEST_P(PropertyLists, KeepDates) {
  std::string elements;
  for (const char* date : {"2020-02-29T12:34:56Z", "2001-01-01T00:00:00Z", "1970-01-01T00:00:00Z",
                           "1999-12-31T23:59:59Z", "2038-01-19T03:14:08Z"})
    elements += std::string("<date>") + date + "</date>";
  expectToStay(elements);
}

TEST_P(PropertyLists, KeepData) {
  expectToStay(
      "<data></data><data>AA==</data><data>AAE=</data><data>AAEC</data><data>/+/+</data>"
      "<data>AAECAwQFBgcICQoLDA0ODxAREhMUFRYXGBkaGxwdHh8gISIjJCUmJygpKissLS4vMDEyMzQ1Njc4OTo7PD0+P0BBQkNERUZHSElK"
      "S0xNTk9QUVJTVFVWV1hZWltcXV5fYGFiY2RlZmdoaWprbG1ub3BxcnN0dXZ3eHl6e3x9fn8=</data>");
}

TEST_P(PropertyLists, KeepTruthAndContainers) {
  expectToStay("<true/><false/><array/><dict/><array><array><true/></array></array><dict><key>a</key><dict/></dict>");
}
