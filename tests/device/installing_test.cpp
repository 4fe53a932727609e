// Installing application archives.
#include "tests/support/archive.hpp"
#include "tests/support/phone.hpp"

namespace {

namespace fs = std::filesystem;
using Files = std::map<std::string, std::string>;

const std::string id = "com.example.new";

std::string info(const std::string& keys) {
  return R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict><key>CFBundleIdentifier</key><string>)" +
         id + "</string>" + keys + "</dict></plist>";
}

std::string named(const std::string& name, const std::string& version) {
  return info("<key>CFBundleDisplayName</key><string>" + name +
              "</string><key>CFBundleShortVersionString</key><string>" + version + "</string>");
}

std::string utf16(const std::string& ascii) {
  std::string text = "\xff\xfe";
  for (const char each : ascii) text += {each, '\0'};
  return text;
}

class Installing : public test::Generations {
 protected:
  sim::TemporaryFolder archives;
  fs::path archive(const Files& files, bool marksNames = true) const {
    test::writeArchive(archives.path() / "new.ipa", files, marksNames);
    return archives.path() / "new.ipa";
  }
  fs::path applications() const { return phone.path("/var/containers/Bundle"); }
  std::string label() { return phone.icon(id).label; }
  void expectRefusal(const fs::path& file, const std::string& reason) {
    phone.screen();
    const auto before = test::filesBelow(phone.path("/var"));
    try {
      phone.sim::Phone::install(file);
      FAIL() << "installed " << file;
    } catch (const sim::BadInput& error) {
      const std::string said = error.what();
      EXPECT_NE(said.find(reason), std::string::npos) << said;
      EXPECT_EQ(said.find('\n'), std::string::npos) << said;
    }
    EXPECT_EQ(test::filesBelow(phone.path("/var")), before);
    EXPECT_EQ(phone.screen().icon(id), nullptr);
  }
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, Installing, test::bothGenerations, test::generationName);

TEST_P(Installing, TellsWhatItInstalled) {
  const auto installed =
      phone.sim::Phone::install(archive({{"Payload/New.app/Info.plist", named("Brand New", "2.0.1")}}));
  EXPECT_EQ(installed.id, id);
  EXPECT_EQ(installed.name, "Brand New");
  EXPECT_EQ(installed.version, "2.0.1");
  EXPECT_TRUE(fs::is_regular_file(phone.path(installed.bundle.string()) / "Info.plist"));
  EXPECT_TRUE(fs::is_directory(phone.path(installed.data.string()) / "Library/Caches"));
  EXPECT_EQ(label(), "Brand New");
  const auto found = phone.device().application(id);
  ASSERT_TRUE(found.has_value());
  EXPECT_EQ(found->bundle, installed.bundle);
  EXPECT_EQ(found->data, installed.data);
}

TEST_P(Installing, TakesNamesInAnyScript) {
  for (const bool marksNames : {true, false}) {
    const auto installed =
        phone.sim::Phone::install(archive({{"Payload/Café 日本.app/Info.plist", named("Café 日本 ☕️", "1")},
                                           {"Payload/Café 日本.app/Résumé 📄/ð.txt", "content"}},
                                          marksNames));
    EXPECT_EQ(installed.name, "Café 日本 ☕️");
    EXPECT_EQ(installed.bundle.filename(), "Café 日本.app");
    EXPECT_EQ(sim::readFile(phone.path(installed.bundle.string()) / "Résumé 📄/ð.txt"), "content");
    EXPECT_EQ(label(), "Café 日本 ☕️");
  }
}

TEST_P(Installing, ReadsTheDescriptionAsTheHomeScreenDoes) {
  const std::string ascii =
      R"(<?xml version="1.0" encoding="UTF-16"?><plist version="1.0"><dict><key>CFBundleIdentifier</key><string>)" +
      id + "</string><key>CFBundleDisplayName</key><string>Wide</string></dict></plist>";
  for (const auto& [content, name, version] : std::vector<std::array<std::string, 3>>{
           {utf16(ascii), "Wide", ""},
           {"\xef\xbb\xbf" + named("Marked", "3"), "Marked", "3"},
           {"{ CFBundleIdentifier = '" + id + "'; CFBundleName = Old; CFBundleVersion = \"17\"; }", "Old", "17"},
           {info("<key>CFBundleDisplayName</key><string></string><key>CFBundleName</key><integer>3</integer>"
                 "<key>CFBundleExecutable</key><string>runner</string>"),
            "runner", ""},
           {info(""), "Folder", ""}}) {
    const auto installed = phone.sim::Phone::install(archive({{"Payload/Folder.app/Info.plist", content}}));
    EXPECT_EQ(installed.name, name);
    EXPECT_EQ(installed.version, version);
    EXPECT_EQ(label(), name);
  }
}

TEST_P(Installing, ReplacesAnApplicationAndKeepsItsData) {
  const auto first = phone.sim::Phone::install(
      archive({{"Payload/New.app/Info.plist", named("One", "1")}, {"Payload/New.app/only the first", ""}}));
  sim::writeFile(phone.path(first.data.string()) / "Documents/mine", "kept");
  const auto second = phone.sim::Phone::install(archive({{"Payload/Newer.app/Info.plist", named("Two", "2")}}));
  EXPECT_EQ(second.data, first.data);
  EXPECT_EQ(sim::readFile(phone.path(second.data.string()) / "Documents/mine"), "kept");
  EXPECT_FALSE(fs::exists(phone.path(first.bundle.string())));
  EXPECT_EQ(label(), "Two");
  const auto all = phone.device().applications();
  EXPECT_EQ(std::count_if(all.begin(), all.end(), [](const auto& each) { return each.id == id; }), 1);
  EXPECT_EQ(std::distance(fs::directory_iterator(applications()), {}), 1) << "nothing that was only on the way";
}

TEST_P(Installing, RefusesWhatIsNoApplication) {
  const std::string plist = named("New", "1");
  expectRefusal(archives.path() / "nothing.ipa", "no such file");
  sim::writeFile(archives.path() / "text.ipa", "no archive");
  expectRefusal(archives.path() / "text.ipa", "cannot unpack");
  expectRefusal(archive({{"New.app/Info.plist", plist}}), "holds no Payload/NAME.app");
  expectRefusal(archive({{"Payload/New.app/Info.plist", plist}, {"Payload/Other.app/Info.plist", plist}}),
                "more than one");
  expectRefusal(archive({{"Payload/New.app/file", ""}}), "Info.plist");
  expectRefusal(archive({{"Payload/New.app/Info.plist", "nonsense"}}), "Info.plist");
  expectRefusal(
      archive({{"Payload/New.app/Info.plist",
                "<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>../x</string></dict></plist>"}}),
      "no usable CFBundleIdentifier");
}

TEST_P(Installing, RefusesNamesThatAreNoText) {
  expectRefusal(
      archive({{"Payload/New.app/Info.plist", named("New", "1")}, {"Payload/New.app/bad\xff\xfename", ""}}, false),
      "name is no text");
}
