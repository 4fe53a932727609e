// What the readers of collections give can be changed as far as on a phone, and no further.
#include "tests/support/phone.hpp"

namespace {

using Json = nlohmann::ordered_json;

class Mutability : public testing::Test {
 protected:
  sim::TemporaryFolder folder;
  sim::Device device{folder.path()};

  void store(const std::string& dictionary, const std::string& array) {
    sim::writeFile(device.root() / "var/mobile/dictionary.plist", dictionary);
    sim::writeFile(device.root() / "var/mobile/array.plist", array);
  }
  void onlyMutableReadersGiveAMutableOutside() {
    const Json never = Json::array({false, false, false});
    const Json outside = Json::array({true, false, false});
    const auto expected = [](const Json& both) { return Json::array({both, both}); };
    EXPECT_EQ(Json::parse(test::runInside(device, "property-list-probe")),
              (Json{{"NSDictionary", expected(never)},
                    {"NSMutableDictionary", expected(outside)},
                    {"NSArray", expected(never)},
                    {"NSMutableArray", expected(outside)}}));
  }
};

}  // namespace

TEST_F(Mutability, OfXML) {
  const auto plist = [](const std::string& root) {
    return R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0">)" + root + "</plist>";
  };
  for (const std::string text : {"x", "\xEF\xBB\xBFx"}) {
    const std::string leaf = "<string>" + text + "</string>";
    store(plist("<dict><key>a</key><array><dict><key>b</key>" + leaf + "</dict></array></dict>"),
          plist("<array><dict><key>a</key><array>" + leaf + "</array></dict></array>"));
    onlyMutableReadersGiveAMutableOutside();
  }
}

TEST_F(Mutability, OfTheOldForm) {
  store("{ a = ({ b = x; }); }", "({ a = (x); })");
  onlyMutableReadersGiveAMutableOutside();
}

TEST_F(Mutability, OfBinaryFiles) {
  const Json dictionary{{"a", Json::array({Json{{"b", "x"}}})}};
  const Json array = Json::array({Json{{"a", Json::array({"x"})}}});
  store("", "");
  sim::PropertyList(dictionary).write(device.root() / "var/mobile/dictionary.plist", sim::PropertyList::Format::binary);
  sim::PropertyList(array).write(device.root() / "var/mobile/array.plist", sim::PropertyList::Format::binary);
  onlyMutableReadersGiveAMutableOutside();
}
