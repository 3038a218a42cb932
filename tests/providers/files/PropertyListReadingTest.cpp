#include <chrono>
#include <limits>
#include <random>

#include <gmock/gmock.h>
#include <sys/stat.h>

#include "providers/files/BoundedRead.h"
#include "providers/files/DecodingLimits.h"
#include "providers/files/LibplistFiles.h"
#include "providers/files/PropertyListCoding.h"
#include "support/TemporaryDirectory.h"

namespace touchpanel::files {
namespace {

using touchpanel::testing::TemporaryDirectory;
using namespace std::string_literals;

std::string xml(const std::string& body) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
         "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
         "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n<plist version=\"1.0\">\n" +
         body + "\n</plist>\n";
}

std::string repeated(const std::string& text, std::size_t count) {
  std::string all;
  for (std::size_t i = 0; i < count; ++i) all += text;
  return all;
}

/// Made by another implementation: TouchMode 2, Big 5e9, Minus -7, EnableTouch, Blob, Real, Text, List, a
/// date and a dictionary.
const std::string kBinary =
    "\x62\x70\x6c\x69\x73\x74\x30\x30\xda\x01\x02\x03\x04\x05\x06\x07\x08\x09\x0a\x0b\x0c\x0d\x0e\x0f\x10\x11"
    "\x12\x15\x16\x59\x54\x6f\x75\x63\x68\x4d\x6f\x64\x65\x53\x42\x69\x67\x55\x4d\x69\x6e\x75\x73\x5b\x45\x6e"
    "\x61\x62\x6c\x65\x54\x6f\x75\x63\x68\x54\x42\x6c\x6f\x62\x54\x52\x65\x61\x6c\x54\x54\x65\x78\x74\x54\x4c"
    "\x69\x73\x74\x54\x57\x68\x65\x6e\x55\x49\x6e\x6e\x65\x72\x10\x02\x13\x00\x00\x00\x01\x2a\x05\xf2\x00\x13"
    "\xff\xff\xff\xff\xff\xff\xff\xf9\x09\x42\x00\xff\x23\x3f\xe0\x00\x00\x00\x00\x00\x00\x62\x00\x68\x00\xe9"
    "\xa2\x13\x14\x10\x04\x08\x33\x41\xc1\xde\x0c\x40\x00\x00\x00\xd1\x17\x18\x51\x61\x10\x01\x08\x1d\x27\x2b"
    "\x31\x3d\x42\x47\x4c\x51\x56\x5c\x5e\x67\x70\x71\x74\x7d\x82\x85\x87\x88\x91\x94\x96\x00\x00\x00\x00\x00"
    "\x00\x01\x01\x00\x00\x00\x00\x00\x00\x00\x19\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00"
    "\x98"s;

/// A binary property list of the given objects; the first is the root. References are two bytes wide.
std::string binaryOf(const std::vector<std::string>& objects) {
  std::string file = "bplist00";
  std::string offsets;
  for (const auto& object : objects) {
    const auto offset = file.size();
    for (int shift = 24; shift >= 0; shift -= 8) offsets += static_cast<char>(offset >> shift);
    file += object;
  }
  const auto table = file.size();
  file += offsets + "\0\0\0\0\0\0\x04\x02"s;
  for (const std::uint64_t number : {objects.size(), std::size_t{0}, table})
    for (int shift = 56; shift >= 0; shift -= 8) file += static_cast<char>(number >> shift);
  return file;
}

/// References to `count` objects from `first` on, or to the same one `count` times.
std::string references(std::size_t first, std::size_t count, std::size_t step) {
  std::string all;
  for (std::size_t i = 0; i < count; ++i) {
    const auto object = first + i * step;
    all += {static_cast<char>(object >> 8), static_cast<char>(object)};
  }
  return all;
}

TEST(PropertyListCoding, ReadsXmlValuesWithTheirTypesAndLeavesOthersOut) {
  const auto decoded = decodePropertyList(
      xml("<dict><key>yes</key><true/><key>no</key><false/><key>int</key><integer>2147483647</integer>"
          "<key>long</key><integer>2147483648</integer><key>minus</key><integer>-2147483648</integer>"
          "<key>real</key><real>0.25</real><key>text</key><string>a &lt; b</string>"
          "<key>data</key><data>AAEC/w==</data><key>when</key><date>2020-01-01T00:00:00Z</date>"
          "<key>list</key><array><integer>4</integer><date>2020-01-01T00:00:00Z</date><true/></array>"
          "<key>inner</key><dict><key>a</key><string></string></dict></dict>"));
  EXPECT_EQ(decoded, (Dictionary{{"yes", true},
                                 {"no", false},
                                 {"int", std::numeric_limits<std::int32_t>::max()},
                                 {"long", std::int64_t{2147483648}},
                                 {"minus", std::numeric_limits<std::int32_t>::min()},
                                 {"real", 0.25},
                                 {"text", "a < b"},
                                 {"data", Bytes{0, 1, 2, 255}},
                                 {"list", Array{4, true}},
                                 {"inner", Dictionary{{"a", ""}}}}));
}

TEST(PropertyListCoding, ReadsABinaryListMadeElsewhere) {
  EXPECT_EQ(decodePropertyList(kBinary), (Dictionary{{"TouchMode", 2},
                                                     {"Big", std::int64_t{5000000000}},
                                                     {"Minus", -7},
                                                     {"EnableTouch", true},
                                                     {"Blob", Bytes{0, 255}},
                                                     {"Real", 0.5},
                                                     {"Text", "h\xc3\xa9"},
                                                     {"List", Array{4, false}},
                                                     {"Inner", Dictionary{{"a", 1}}}}));
}

TEST(PropertyListCoding, WritesXmlThatReadsBackTheSame) {
  Bytes blob;
  for (int i = 0; i < 116; ++i) blob.push_back(static_cast<std::uint8_t>(i * 7));
  const Dictionary contents{{"z", true},
                            {"a", false},
                            {"zero", 0},
                            {"minus", -5},
                            {"long", std::numeric_limits<std::int64_t>::min()},
                            {"real", 0.1},
                            {"text", "<&\"'> \xe2\x82\xac"},
                            {"blob", blob},
                            {"none", Bytes{}},
                            {"list", Array{1, Array{}, Dictionary{}}},
                            {"inner", Dictionary{{"k", 1}}}};
  const auto file = encodePropertyList(contents);
  EXPECT_THAT(file, ::testing::StartsWith("<?xml version=\"1.0\""));
  EXPECT_THAT(file, ::testing::ContainsRegex("<key>minus</key>[[:space:]]*<integer>-5</integer>"));
  EXPECT_EQ(decodePropertyList(file), contents);
}

/// ASCII text in UTF-16, after its byte-order mark if it has one.
std::string utf16(const std::string& text, bool littleEndian, bool mark) {
  std::string wide = mark ? littleEndian ? "\xFF\xFE" : "\xFE\xFF" : "";
  for (const char character : text)
    wide += littleEndian ? std::string{character, '\0'} : std::string{'\0', character};
  return wide;
}

TEST(PropertyListCoding, ReadsEveryEncodingOfText) {
  const auto asXml =
      xml("<dict><key>TouchMode</key><integer> +0x2 </integer><key>EnableTouch</key><true/>"
          "<key>t</key><string><!-- - -->a&#65;<![CDATA[<&]]></string>"
          "<key>Data</key><data> AAEC /w==\n</data><key>l</key><array/></dict>");
  const auto asText =
      "// by hand\n{ TouchMode = 2 ; EnableTouch=YES; \"t\" = 'a\\101<&'; /* } */\n"
      "Data = <00 0102Ff>; l = ( ) ;}\n"s;
  const Dictionary expected{
      {"TouchMode", 2}, {"EnableTouch", true}, {"t", "aA<&"}, {"Data", Bytes{0, 1, 2, 255}}, {"l", Array{}}};
  for (const auto& file : {asXml, asText}) {
    EXPECT_EQ(decodePropertyList(file), expected) << file;
    EXPECT_EQ(decodePropertyList("\xEF\xBB\xBF" + file), expected);
    for (const bool littleEndian : {true, false}) {
      auto declared = file;
      if (const auto at = declared.find("UTF-8"); at != std::string::npos) declared.replace(at, 5, "UTF-16");
      EXPECT_EQ(decodePropertyList(utf16(declared, littleEndian, true)), expected) << file;
      EXPECT_EQ(decodePropertyList(utf16(declared, littleEndian, false)), expected) << file;
    }
  }
  EXPECT_EQ(decodePropertyList(
                "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><dict><key>\xE4</key><true/></dict>"),
            (Dictionary{{"\xC3\xA4", true}}));
  EXPECT_EQ(decodePropertyList("{a=(-5,5000000000,1.5,{},\"2\\n\",);\"\\U00e4\\U20AC\\Ud83d\\Ude00\"=NO;}"),
            (Dictionary{{"a", Array{-5, std::int64_t{5000000000}, "1.5", Dictionary{}, "2\n"}},
                        {"\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80", false}}));
}

/// Most of these the decoding library would swallow, and leave out or change a value; over each key with a NUL
/// it ends the process.
TEST(PropertyListCoding, CountsWhatIsNotWellFormedAsUnreadable) {
  const auto withKey = [](const std::string& key) {
    return xml("<dict><key>" + key + "</key><true/></dict>");
  };
  const auto withBinaryKey = [](const std::string& key) {
    return binaryOf({"\xd1\x00\x01\x00\x02"s, key, "\x09"});
  };
  const auto withBinaryValue = [](const std::string& value) {
    return binaryOf({"\xd1\x00\x01\x00\x02"s, "\x51k", value});
  };
  std::vector files = {
      ""s,
      "\0"s,
      "not a property list"s,
      "{\"TouchMode\": 2}"s,
      "<plist>"s,
      xml(""),
      xml("<array><integer>1</integer></array>"),
      xml("<integer>1</integer>"),
      xml("<string>dict</string>"),
      xml("<dict/><dict/>"),
      xml("<date>2020-01-01T00:00:00Z</date><dict/>"),
      xml("<dict/>") + "x",
      xml("<plist><dict/></plist>"),
      xml("<dict/>").replace(0, 5, "<?XML"),
      "<!DOCTYPE plist [<!ENTITY a \"b\">]><plist><dict><key>&a;</key><true/></dict></plist>"s,
      "<?xml version=\"1.0\" encoding=\"IBM037\"?><dict/>"s,
      "bplist00"s,
      std::string(200, '\0'),
      binaryOf({"\x09"}),
      binaryOf({"\xa0"}),
      withKey("a\0b"s),
      withKey("&nbsp;"),
      withKey("\xC3"),
      withBinaryKey("\x53\x61\0b"s),
      withBinaryKey("\x62\0a\0\0"s),
      withBinaryKey("\x10\x05"),  // an integer
      withBinaryKey("\x51\xE4"),  // a text that is not ASCII
      withBinaryValue("\x51\xE4"),
      withBinaryValue("\x61\xD8\x00"s),  // half a character
      withBinaryValue("\x07"),
      withBinaryValue("\x70"),
      binaryOf({"\xd2\x00\x01\x00\x01\x00\x02\x00\x02"s, "\x51k", "\x09"})};
  for (const char* reference : {"&#0;", "&#x0;", "&#X000;", "&# 0;", "&#-0;", "&#x100000000;", "&#;", "&#x;"})
    files.push_back(withKey("a"s + reference + "b"));
  for (const char* items :
       {"<true/>", "<key>a</key>", "<key>a</key><key>b</key><true/>", "<key>a</key><true/><true/>",
        "<key>a</key><true/><key>a</key><true/>", "<key>a<true/></key><true/>", "x<key>a</key><true/>"})
    files.push_back(xml("<dict>"s + items + "</dict>"));
  for (const char* value : {"<integer>abc</integer>",
                            "<integer/>",
                            "<integer>1 2</integer>",
                            "<integer>9223372036854775808</integer>",
                            "<integer>0x-1</integer>",
                            "<integer>--1</integer>",
                            "<real>1,5</real>",
                            "<real/>",
                            "<true>x</true>",
                            "<data>A</data>",
                            "<data>AA=</data>",
                            "<data>!AAA</data>",
                            "<data>AA==AA==</data>",
                            "<date>today</date>",
                            "<date>2020-01-01 00:00:00Z</date>",
                            "<string><true/></string>",
                            "<array><key>a</key></array>",
                            "<TRUE/>",
                            "<number>1</number>",
                            "<plist><true/></plist>",
                            "<array>",
                            "</array>"}) {
    files.push_back(xml("<dict><key>a</key>"s + value + "</dict>"));
    files.push_back(xml("<dict><key>a</key><array>"s + value + "</array></dict>"));
  }
  for (const char* text : {"{",
                           "{a",
                           "{a=",
                           "{a=1",
                           "{a=1}",
                           "{a=1;",
                           "{a=1;}}",
                           "{a=1;} b",
                           "{a=1;a=2;}",
                           "{=1;}",
                           "{a=;}",
                           "{a=(1;}",
                           "{a=(1 2);}",
                           "{a=(,);}",
                           "{a=<0>;}",
                           "{a=<0g>;}",
                           "{a=<00;}",
                           "{a=\"b;}",
                           "{a='b\";}",
                           "{a=\"\\U12\";}",
                           "{a=\"\\Ud83d\";}",
                           "{a=\"\\Ud83dx\";}",
                           "{a=\"\\Ude00\";}",
                           "{a=\"\\000\";}",
                           "{a=\"\\200\";}",
                           "{a=\"\\",
                           "{a=1;} /*",
                           "{a=\"\xC3\";}",
                           "(1)",
                           "a = 1;"})
    files.emplace_back(text);
  files.push_back("{a=\"\0\";}"s);
  files.push_back("\xFF\xFE{"s);
  for (const auto& file : files) EXPECT_EQ(decodePropertyList(file), std::nullopt) << file;
  EXPECT_EQ(decodePropertyList(withKey("a&#x62;&#99;")), (Dictionary{{"abc", true}}));
  EXPECT_EQ(decodePropertyList(withBinaryKey("\x5f\x10\x02\x61\x62")), (Dictionary{{"ab", true}}));
}

/// Each of these, handed to the decoder unseen, costs its stack, its memory or minutes.
TEST(PropertyListCoding, RefusesSmallFilesThatUnfoldIntoHugeOnes) {
  std::vector<std::string> chain;
  std::vector<std::string> bomb;
  for (std::size_t i = 0; i < 20000; ++i) chain.push_back("\xa1" + references(i + 1, 1, 1));
  chain.push_back("\x09");
  for (std::size_t i = 0; i < 30; ++i) bomb.push_back("\xae" + references(i + 1, 14, 0));
  bomb.push_back("\x09");
  const auto copies = "\xaf\x11\x27\x00"s + references(1, 0x2700, 0);
  const auto longText = "\x5f\x12\x00\x02\x00\x00"s + std::string(0x20000, 'x');
  const std::pair<const char*, std::string> files[] = {
      {"deep arrays", xml(repeated("<array>", 30000))},
      {"deep dictionaries", xml(repeated("<dict><key>k</key>", 10000))},
      {"very many values", xml("<dict><key>k</key><array>" + repeated("<true/>", 10000) + "</array></dict>")},
      {"deep text", repeated("{a=", 30000)},
      {"very many values in a text", "{a=(" + repeated("1,", 10000) + ");}"},
      {"a chain of arrays", binaryOf(chain)},
      {"arrays of the same arrays of the same arrays", binaryOf(bomb)},
      {"thousands of copies of one long text", binaryOf({copies, longText})},
      {"an array that holds itself", binaryOf({"\xd1\x00\x01\x00\x00"s, "\x51k"s})},
      {"a count beyond the file", binaryOf({"\xdf\x13\x00\xff\xff\xff\xff\xff\xff\xff"s})},
      {"a count of no integer", binaryOf({"\xdf\x51k"s})},
  };
  for (const auto& [name, file] : files) {
    ASSERT_LE(file.size(), kMaximumFileSize) << name << " would be refused for its size alone";
    EXPECT_EQ(decodePropertyList(file), std::nullopt) << name;
  }
}

TEST(PropertyListCoding, SurvivesEveryTruncationAndThousandsOfDamages) {
  const auto text = encodePropertyList({{"TouchMode", 2},
                                        {"EnableTouch", true},
                                        {"CalibParams", Bytes(116, 0x5A)},
                                        {"List", Array{1, "two", Dictionary{{"three", 3.0}}}}});
  std::mt19937 random(20);
  const auto byHand = "{TouchMode=2;List=(1,\"t\\U00e4\",{three=<00ff>;});}"s;
  for (const std::string& whole : {text, kBinary, byHand}) {
    for (std::size_t length = 0; length < whole.size(); ++length) decodePropertyList(whole.substr(0, length));
    for (int round = 0; round < 4000; ++round) {
      auto damaged = whole;
      for (unsigned changes = 1 + random() % 4; changes > 0; --changes)
        damaged[random() % damaged.size()] = static_cast<char>(random());
      if (const auto decoded = decodePropertyList(damaged)) encodePropertyList(*decoded);
    }
  }
}

/// Lets every call of one name fail.
class FailingCalls final : public FileCalls {
 public:
  ssize_t write(int file, const void* buffer, std::size_t size) override {
    return fails("write") ? -1 : FileCalls::write(file, buffer, size);
  }
  int fsync(int file) override { return fails("fsync") ? -1 : FileCalls::fsync(file); }
  int rename(const std::string& from, const std::string& to) override {
    return fails("rename") ? -1 : FileCalls::rename(from, to);
  }
  std::string failing;
  int reason = 0;

 private:
  bool fails(const char* call) const {
    errno = reason;
    return failing == call;
  }
};

TEST(LibplistFiles, KeepsWhatItCannotReadBesideWhatItWritesOverIt) {
  TemporaryDirectory directory;
  FailingCalls calls;
  LibplistFiles files(calls);
  const auto path = directory.file("file");
  const Dictionary contents{{"TouchMode", 2}, {"ClickRange", false}};
  const auto statusOfRead = [&](const std::string& of) {
    Status status = kSuccess;
    files.read(of, status);
    return status;
  };
  EXPECT_EQ(statusOfRead(path), kErrorNotFound);
  EXPECT_EQ(files.writeAtomically(directory.file("missing/file"), contents), kErrorNotFound);
  EXPECT_EQ(files.writeAtomically(path, {}), kSuccess);
  EXPECT_EQ(files.writeAtomically(path, contents), kSuccess);
  EXPECT_EQ(files.read(path), contents);
  EXPECT_THAT(directory.names(), ::testing::ElementsAre("file"));

  constexpr char kDamaged[] = "{ TouchMode = 2";
  directory.write("file", kDamaged);
  ::chmod(path.c_str(), 0640);
  EXPECT_EQ(statusOfRead(path), kErrorUnsupported);
  const std::tuple<const char*, int, Status> failures[] = {{"write", ENOSPC, kErrorNoSpace},
                                                           {"write", EDQUOT, kErrorNoSpace},
                                                           {"fsync", EIO, kErrorInputOutput},
                                                           {"rename", EACCES, kErrorNotPermitted}};
  for (const auto& [call, reason, status] : failures) {
    calls.failing = call;
    calls.reason = reason;
    EXPECT_EQ(files.writeAtomically(path, contents), status);
    EXPECT_EQ(directory.read("file"), kDamaged) << call;
    EXPECT_THAT(directory.names(), ::testing::ElementsAre("file")) << call;
  }
  calls.failing.clear();
  EXPECT_EQ(files.writeAtomically(path, contents), kSuccess);
  EXPECT_EQ(files.read(path), contents);
  EXPECT_EQ(directory.read("file.unreadable"), kDamaged);
  EXPECT_EQ(std::filesystem::status(directory.file("file.unreadable")).permissions(),
            std::filesystem::perms{0640});
  directory.write("file", "damaged again");
  EXPECT_EQ(files.writeAtomically(path, contents), kSuccess);
  EXPECT_EQ(directory.read("file.unreadable"), kDamaged) << "an older backup is left alone";
  EXPECT_EQ(directory.read("file.unreadable.2"), "damaged again");

  std::filesystem::remove(path);
  ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
  EXPECT_EQ(files.writeAtomically(path, contents), kErrorUnsupported) << "cannot be copied";
}

/// Counts the reads, and makes each one short and interrupted first.
class HaltingReads final : public FileCalls {
 public:
  ssize_t read(int file, void* buffer, std::size_t size) override {
    if (++reads % 2 == 1) {
      errno = failure;
      return -1;
    }
    return FileCalls::read(file, buffer, std::min<std::size_t>(size, 100));
  }
  int reads = 0;
  int failure = EINTR;
};

TEST(BoundedRead, PutsShortAndInterruptedReadsTogetherAndRefusesTheRest) {
  TemporaryDirectory directory;
  HaltingReads calls;
  std::string read;
  const auto readFile = [&](const char* name, std::size_t limit = kMaximumFileSize) {
    return readBounded(directory.file(name), limit, calls, read);
  };
  directory.write("huge", "");
  std::filesystem::resize_file(directory.file("huge"), 100'000'000);
  ASSERT_EQ(::mkfifo(directory.file("fifo").c_str(), 0600), 0);
  for (const char* name : {"huge", "fifo", ""}) EXPECT_EQ(readFile(name), kErrorUnsupported) << name;
  for (const char* name : {"missing", "huge/file"}) EXPECT_EQ(readFile(name), kErrorNotFound) << name;
  EXPECT_EQ(calls.reads, 0);

  const std::string contents = repeated("0123456789", 105);
  directory.write("file", contents);
  for (const auto limit : {kMaximumFileSize, contents.size()}) {
    EXPECT_EQ(readFile("file", limit), kSuccess);
    EXPECT_EQ(read, contents);
  }
  EXPECT_EQ(readFile("file", contents.size() - 1), kErrorUnsupported);
  calls.failure = EIO;
  EXPECT_EQ(readFile("file"), kErrorInputOutput);
}

}  // namespace
}  // namespace touchpanel::files
