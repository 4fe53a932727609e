// The one definition of what can be set, held against the library's own table. The library is asked: the settings probe
// prints what it reads.
#include <png.h>

#include <algorithm>
#include <set>

#include "simulator/device/property_list.hpp"
#include "tests/support/phone.hpp"
#include "tests/support/places.hpp"

namespace {

using Json = nlohmann::ordered_json;

class RootList : public testing::Test {
 protected:
  sim::TemporaryFolder folder;
  sim::Device device{folder.path()};
  const Json items = sim::PropertyList::read(test::sourceFile("pane/Root.plist")).value().value().at("items");

  Json loaded() { return Json::parse(test::runInside(device, "settings-probe")); }
  Json loadedWith(const Json& content) {
    sim::PropertyList(content).write(device.root() / std::string(sim::Device::settingsFile).substr(1));
    return loaded();
  }
  std::vector<Json> cells() const {
    std::vector<Json> found;
    for (const Json& item : items)
      if (item.contains("key")) found.push_back(item);
    return found;
  }
  std::vector<Json> cells(const std::string& kind) const {
    std::vector<Json> found;
    for (const Json& cell : cells())
      if (cell.at("cell") == kind) found.push_back(cell);
    return found;
  }
};

// Another value of the same kind.
Json other(const Json& value) {
  if (value.is_boolean()) return !value.get<bool>();
  if (value.is_number_integer()) return value.get<int>() == 0 ? 1 : 0;
  return value.get<double>() + 1;
}

std::string kindOfCell(const Json& value) {
  if (value.is_boolean()) return "PSSwitchCell";
  return value.is_number_integer() ? "PSSegmentCell" : "PSSliderCell";
}

}  // namespace

TEST_F(RootList, HasACellForEverySettingThatTheLibraryReadsAndForNothingElse) {
  const Json defaults = loaded();
  std::set<std::string> read;
  Json changed = Json::object();
  for (const auto& [key, value] : defaults.items()) changed[key] = other(value);
  // What only follows from other settings does not come from the file.
  changed["disableType"] = defaults.at("disableType");
  const Json result = loadedWith(changed);
  for (const auto& [key, value] : result.items())
    if (value != defaults.at(key) || key == "disableType") read.insert(key);
  std::multiset<std::string> offered;
  for (const Json& cell : cells()) offered.insert(cell.at("key").get<std::string>());
  EXPECT_EQ(offered, std::multiset<std::string>(read.begin(), read.end()));
}

TEST_F(RootList, ShowsEachSettingByItsKindAndWithTheLibrarysDefault) {
  const Json defaults = loaded();
  for (const Json& cell : cells()) {
    const Json& value = defaults.at(cell.at("key").get<std::string>());
    EXPECT_EQ(cell.at("default"), value) << cell;
    EXPECT_EQ(kindOfCell(cell.at("default")), kindOfCell(value)) << cell;
    EXPECT_EQ(cell.at("cell"), kindOfCell(value)) << cell;
  }
}

TEST_F(RootList, OffersValuesThatTheLibraryReadsAsTheyAre) {
  for (const Json& cell : cells("PSSegmentCell")) {
    const Json& values = cell.at("validValues");
    EXPECT_EQ(values, Json({0, 1, 2})) << cell;
    EXPECT_EQ(cell.at("validTitles").size(), values.size()) << cell;
    EXPECT_EQ(std::count(values.begin(), values.end(), cell.at("default")), 1) << cell;
    const auto key = cell.at("key").get<std::string>();
    for (const Json& value : values) EXPECT_EQ(loadedWith({{key, value}}).at(key), value);
  }
  ASSERT_EQ(cells("PSSliderCell").size(), 1U);
  for (const Json& cell : cells("PSSliderCell")) {
    EXPECT_LE(cell.at("min"), cell.at("default"));
    EXPECT_LT(cell.at("default"), cell.at("max"));
    EXPECT_EQ(cell.at("showValue"), true);
  }
}

// As the library's last choice stands for every other number, so does the pane's.
TEST_F(RootList, EndsItsSegmentsWithWhatTheLibraryTakesAnyOtherNumberFor) {
  EXPECT_EQ(loadedWith({{"disableType", 7}}).at("muteBanners"), loadedWith({{"disableType", 2}}).at("muteBanners"));
  EXPECT_EQ(loadedWith({{"disableType", 7}}).at("muteLockScreen"),
            loadedWith({{"disableType", 2}}).at("muteLockScreen"));
  EXPECT_EQ(cells("PSSegmentCell").size(), 2U);
}

TEST_F(RootList, NamesEveryCellOnceAndExplainsEveryGroup) {
  std::set<std::string> labels;
  for (const Json& item : items) {
    if (item.at("cell") == "PSGroupCell") {
      EXPECT_GT(item.value("footerText", "").size(), 20U) << item;
    } else {
      EXPECT_FALSE(item.value("label", "").empty()) << item;
      EXPECT_TRUE(labels.insert(item.value("label", "")).second) << item;
    }
  }
}

TEST_F(RootList, LinksToTheTwoLists) {
  std::vector<std::string> links;
  for (const Json& item : items)
    if (item.at("cell") == "PSLinkCell")
      links.push_back(item.at("label").get<std::string>() + ": " + item.at("detail").get<std::string>());
  EXPECT_EQ(links, (std::vector<std::string>{"Renamed Labels: SprigdialRenamedLabelsController",
                                             "Muted Applications: SprigdialMutedApplicationsController"}));
}

TEST_F(RootList, IsTheFirstPageOfABundleThatTheEntryNames) {
  const auto read = [](const std::string& name) {
    return sim::PropertyList::read(test::sourceFile("pane/" + name)).value().value();
  };
  const Json info = read("Info.plist");
  EXPECT_EQ(info.at("NSPrincipalClass"), "SprigdialSettingsController");
  EXPECT_EQ(info.at("CFBundleExecutable"), "SprigdialSettings");
  const Json expected{{"bundle", "SprigdialSettings"},
                      {"cell", "PSLinkCell"},
                      {"icon", "Pane.png"},
                      {"isController", true},
                      {"label", "Sprigdial"}};
  EXPECT_EQ(nlohmann::json(read("Entry.plist")), nlohmann::json({{"entry", expected}}));
}

// Pictures

namespace {

struct Picture {
  unsigned width = 0, height = 0;
  std::vector<unsigned char> pixels;  ///< red, green, blue, opacity
};

Picture picture(const std::string& name) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  const std::string file = std::string(test::paneImages) + "/" + name + ".png";
  if (png_image_begin_read_from_file(&image, file.c_str()) == 0) throw std::runtime_error(file);
  image.format = PNG_FORMAT_RGBA;
  Picture read{image.width, image.height, std::vector<unsigned char>(PNG_IMAGE_SIZE(image))};
  if (png_image_finish_read(&image, nullptr, read.pixels.data(), 0, nullptr) == 0) throw std::runtime_error(file);
  return read;
}

}  // namespace

TEST(PaneImages, HaveTheSidesThatTheyAreShownWith) {
  const std::map<std::string, unsigned> sides{{"Sprigdial", 35}, {"Sprigdial@2x", 70}, {"Sprigdial@3x", 105},
                                              {"icon@3x", 105},  {"Pane", 29},         {"Pane@2x", 58},
                                              {"Pane@3x", 87}};
  for (const auto& [name, side] : sides) {
    EXPECT_EQ(picture(name).width, side) << name;
    EXPECT_EQ(picture(name).height, side) << name;
  }
}

TEST(PaneImages, OfTheEntryAreTemplatesOfWhichOnlyTheOpacityCounts) {
  for (const std::string name : {"Sprigdial", "Sprigdial@2x", "Sprigdial@3x", "icon@3x"}) {
    const Picture read = picture(name);
    std::size_t opaque = 0;
    for (std::size_t at = 0; at < read.pixels.size(); at += 4) {
      EXPECT_EQ(read.pixels[at] + read.pixels[at + 1] + read.pixels[at + 2], 0) << name;
      opaque += read.pixels[at + 3] > 127 ? 1 : 0;
    }
    // A drawing, neither a blank nor a block.
    EXPECT_GT(opaque, read.pixels.size() / 4 / 10) << name;
    EXPECT_LT(opaque, read.pixels.size() / 4 / 2) << name;
  }
}
