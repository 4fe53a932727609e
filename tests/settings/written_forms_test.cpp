// The settings file in each form that a phone reads, whoever wrote it.
#include "tests/support/phone.hpp"

namespace {

const std::string app = "com.example.test";
const std::string mark8 = "\xEF\xBB\xBF";
const std::string declaration8 = R"(<?xml version="1.0" encoding="UTF-8"?>)";
const std::string declaration16 = R"(<?xml version="1.0" encoding="UTF-16"?>)";

enum class Order { little, big };

// ASCII as UTF-16, with its mark.
std::string utf16(const std::string& ascii, Order order) {
  std::string bytes = order == Order::little ? "\xFF\xFE" : "\xFE\xFF";
  for (const char c : ascii) bytes += order == Order::little ? std::string{c, '\0'} : std::string{'\0', c};
  return bytes;
}

std::string plist(const std::string& root) { return R"(<plist version="1.0">)" + root + "</plist>"; }
const std::string off = plist("<dict><key>enabled</key><false/></dict>");
const std::string renamed = plist("<dict><key>com.example.test</key><string>New</string></dict>");

// The same form around what turns the menu off, and around a new name.
struct Form {
  std::string off, renamed;
};

using Around = std::string (*)(const std::string&);
Form xml(Around around) { return {around(off), around(renamed)}; }

const std::map<std::string, Form> forms{
    {"MarkBeforeXML", xml([](auto& root) { return mark8 + declaration8 + root; })},
    {"MarkBeforeXMLSaidToBeUTF16", xml([](auto& root) { return mark8 + declaration16 + root; })},
    {"NoDeclaration", xml([](auto& root) { return root; })},
    {"LittleEndian", xml([](auto& root) { return utf16(root, Order::little); })},
    {"BigEndian", xml([](auto& root) { return utf16(root, Order::big); })},
    {"LittleEndianDeclared", xml([](auto& root) { return utf16(declaration16 + root, Order::little); })},
    {"BigEndianDeclared", xml([](auto& root) { return utf16(declaration16 + root, Order::big); })},
    {"LittleEndianDeclaredUTF8", xml([](auto& root) { return utf16(declaration8 + root, Order::little); })},
    {"SpaceFirst", xml([](auto& root) { return " \n\t" + declaration8 + root; })},
    {"CommentFirst", xml([](auto& root) { return "<!-- <plist> -->" + declaration8 + root; })},
    {"CommentWithoutDeclaration", xml([](auto& root) { return "<!-- mine -->\n" + root; })},
    {"SecondDeclaration", xml([](auto& root) { return declaration8 + "\n" + declaration8 + root; })},
    {"ProcessingInstruction", xml([](auto& root) { return "<?by hand?>" + declaration8 + "<?again?>" + root; })},
    {"InstructionBeforeDocumentType",
     xml([](auto& root) { return " <?by hand?><!DOCTYPE plist [<!ELEMENT a (b)>]>" + root; })},
    {"LiteralText",
     {declaration8 + plist("<dict><!-- <![CDATA[ --><key><![CDATA[enabled]]></key><false/></dict>"),
      declaration8 + plist("<dict><key>com.example.test</key><string>N<![CDATA[e]]>w</string></dict>")}},
    {"NoPlistElement",
     {declaration8 + "<dict><key>enabled</key><false/></dict>",
      "<dict><key>com.example.test</key><string>New</string></dict>"}},
    {"SingleQuotes", {"{ 'enabled' = '0'; }", "{ 'com.example.test' = 'New'; }"}},
    {"NoBraces", {"enabled = 0; other = \"x\";", "com.example.test = New; other = \"x\";"}},
    {"NoBracesButComments",
     {"// one\n'enabled' = 'NO'; /* two */", "/* 'one' */ other; \"com.example.test\" = 'New';"}},
    {"OldFormInUTF16", {utf16("enabled = 0;", Order::big), utf16("{ com.example.test = New; }", Order::little)}},
    {"OldFormAfterAMark", {mark8 + "{ enabled = 0; }", mark8 + "com.example.test = 'New';"}},
};

const std::map<std::string, std::string> damaged{
    {"MarkAlone", mark8},
    {"HalfACharacter", utf16(renamed, Order::little) + "x"},
    {"UnfinishedUTF16", utf16(renamed.substr(0, renamed.size() - 9), Order::big)},
    {"UnfinishedComment", "<!-- " + renamed},
    {"UnfinishedInstruction", "<?xml " + renamed},
    {"UnfinishedDocumentType", "<!DOCTYPE plist [" + renamed},
    {"UnfinishedLiteralText", "<dict><key>com.example.test</key><string><![CDATA[New</string></dict>"},
    {"UnfinishedElement", "<dict><key>com.example.test</key><string>New</string>"},
    {"TextFirst", "text" + renamed},
    {"NoSemicolon", "com.example.test = New"},
    {"NoValue", "{ com.example.test = ; }"},
    {"NoQuoteAtTheEnd", "'com.example.test' = 'New;"},
    {"NoBraceAtTheEnd", "{ 'com.example.test' = 'New';"},
    {"SomethingBehind", "{ 'com.example.test' = 'New'; } }"},
    {"HalfAByte", "com.example.test = New; data = <012>;"},
    {"EscapeAtTheEnd", "com.example.test = 'New\\"},
    {"NoUTF8", "com.example.test = '\xff';"},
    {"WithoutEnd", "com.example.test = New; deep = " + std::string(1'000'000, '(')},
    {"WithoutEndInXML", "<plist><dict><key>com.example.test</key>" + std::string(1'000'000, '<')},
};

template <const auto& files>
class Written : public testing::TestWithParam<std::tuple<sim::Generation, std::string>> {
 protected:
  void SetUp() override { phone.install({}); }
  const auto& file() const { return files.at(std::get<1>(GetParam())); }
  test::Phone phone{std::get<0>(GetParam())};
};
class WrittenForm : public Written<forms> {};
class DamagedForm : public Written<damaged> {};
class WrittenMark : public test::Generations {
 protected:
  void SetUp() override { phone.install({}); }
};

template <const auto& files>
auto everyOne() {
  std::vector<std::string> names;
  for (const auto& [name, file] : files) names.push_back(name);
  return testing::Combine(test::bothGenerations, testing::ValuesIn(names));
}
const auto formName = [](const auto& info) {
  return std::get<1>(info.param) + (std::get<0>(info.param) == sim::Generation::old ? "Old" : "New");
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, WrittenForm, everyOne<forms>(), formName);
INSTANTIATE_TEST_SUITE_P(, DamagedForm, everyOne<damaged>(), formName);
INSTANTIATE_TEST_SUITE_P(, WrittenMark, test::bothGenerations, test::generationName);

TEST_P(WrittenForm, IsRead) {
  sim::writeFile(phone.settingsFile(), file().renamed);
  EXPECT_EQ(phone.icon(app).label, "New");
  EXPECT_TRUE(phone.openMenu(app).showsAlert());
  phone.tap("Cancel").advance(1);
  sim::writeFile(phone.settingsFile(), file().off);
  phone.respring();
  EXPECT_FALSE(phone.openMenu(app).showsAlert());
}

TEST_P(DamagedForm, CountsAsMissing) {
  sim::writeFile(phone.settingsFile(), file());
  EXPECT_EQ(phone.icon(app).label, "Test App");
  EXPECT_TRUE(phone.openMenu(app).showsAlert());
}

TEST_P(WrittenMark, OfAName) {
  const auto xmlOf = [](const std::string& name) {
    return declaration8 + plist("<dict><key>" + app + "</key><string>" + name + "</string></dict>");
  };
  for (const std::string& content :
       {xmlOf(mark8 + "New"), mark8 + xmlOf(mark8 + "New"), xmlOf("&#xFEFF;New"), xmlOf("&#0065279;New"),
        "{ " + app + " = \"" + mark8 + "New\"; }", app + " = '\\UFEFFNew';"}) {
    sim::writeFile(phone.settingsFile(), content);
    EXPECT_EQ(phone.icon(app).label, mark8 + "New") << content;
  }
}

TEST_P(WrittenMark, IsNotNamedByLiteralText) {
  sim::writeFile(
      phone.settingsFile(),
      declaration8 + plist("<dict><key>" + app + "</key><string><![CDATA[<a> & &#xFEFF;]]></string></dict>"));
  EXPECT_EQ(phone.icon(app).label, "<a> & &#xFEFF;");
}

TEST_P(WrittenMark, OfAKeyMakesItAnother) {
  for (const std::string& content :
       {declaration8 + plist("<dict><key>" + mark8 + app + "</key><string>New</string></dict>"),
        "{ '" + mark8 + app + "' = New; }", "{ \"" + mark8 + app + "\" = New; }"}) {
    sim::writeFile(phone.settingsFile(), content);
    EXPECT_EQ(phone.icon(app).label, "Test App") << content;
  }
}
