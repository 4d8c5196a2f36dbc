// SPDX-License-Identifier: MIT
#include "platform/versions.h"

#include "machine/version_resource.h"
#include "machine/version_texts.h"
#include "tests/fake/version_block.h"
#include "tests/support.h"

namespace scourwell::test {
namespace {

constexpr char kPath[] = "C:\\x.exe";

VersionBlock Sample() {
  VersionBlock block;
  block.Text("CompanyName", "Evil Inc.").Text("OriginalFilename", "evil.exe").Text("Comments", "");
  block.fixed = {0x00010002, 0x00030004, 0x40004, 0x00050006, 0x00070008, 0x21, 3, 9};
  return block;
}

// Where the length of the node with this key stands in a UTF-16 block.
std::size_t NodeAt(const std::string& block, std::string_view key) {
  return block.find(VersionBlock::Wide(key)) - 6;
}

// The field in three letters: the text, "-" when it is not there.
std::string Read(const std::string& block, VersionField field) {
  const FakeVersions versions;
  return VersionResource(block, versions).Text(field).value_or("-");
}

}  // namespace

TEST_SUITE("versions") {
  TEST_CASE("codes read as texts") {
    CHECK(FileFlagsText(0) == "");
    CHECK(FileFlagsText(0x3F) == "Debug PreRel Patched Private Info Special ");
    CHECK(FileFlagsText(0xFFFFFFC9) == "Debug Private ");
    std::string types;
    for (std::uint32_t type = 0; type < 9; ++type) types += FileTypeText(type) + "/";
    CHECK(types == "Unknown/Executable/DLL/Driver/Font/VxD/Unknown/Lib/Unknown/");
    const auto subtypes = [](std::uint32_t type, std::uint32_t count) {
      std::string texts;
      for (std::uint32_t i = 0; i < count; ++i) texts += FileSubtypeText(type, i) + "/";
      return texts;
    };
    CHECK(subtypes(2, 2) == "//");
    CHECK(subtypes(3, 12) ==
          "Unknown/Printer drv/Keyboard drv/Language drv/Display drv/Mouse drv/Network drv/"
          "System drv/Installable/Sound drv/Comm drv/Unknown/");
    CHECK(subtypes(4, 5) == "Unknown/Raster Font/Vector Font/TrueType Font/Unknown/");
  }

  TEST_CASE("the fixed part is read whole or not at all") {
    FakeVersions versions;
    FixedFileInfo info{9, 9, 9};
    CHECK(ReadFixedVersion(versions, kPath, &info).code() == kFileNotFound);
    std::string block = Sample().Make();
    versions.blocks[kPath] = block.substr(0, 80);
    CHECK(ReadFixedVersion(versions, kPath, &info).code() == kFileNotFound);
    CHECK(info.file_version_high == 9);
    versions.blocks[kPath] = block;
    REQUIRE(ReadFixedVersion(versions, kPath, &info).ok());
    CHECK(VersionText(info.file_version_high, info.file_version_low) == "1.2.3.4");
    CHECK(VersionText(info.product_version_high, info.product_version_low) == "5.6.7.8");
    CHECK(OperatingSystemText(info.operating_system) == "NT-Win32");
    CHECK((info.flags == 0x21 && info.type == 3 && info.subtype == 9));
    VersionBlock::PutWord(&versions.blocks[kPath], 2, 51);  // the length
    CHECK_FALSE(ReadFixedVersion(versions, kPath, &info).ok());
    versions.blocks[kPath] = block;
    VersionBlock::PutWord(&versions.blocks[kPath], 40, 0);  // the signature
    CHECK_FALSE(ReadFixedVersion(versions, kPath, &info).ok());
    VersionBlock bare = Sample();
    bare.has_fixed = false;
    versions.blocks[kPath] = bare.Make();
    CHECK_FALSE(ReadFixedVersion(versions, kPath, &info).ok());
    CHECK(Read(bare.Make(), kCompanyName) == "Evil Inc.");
  }
}

TEST_SUITE("version_resource") {
  TEST_CASE("texts are found without case in both forms") {
    for (const bool wide : {true, false}) {
      CAPTURE(wide);
      VersionBlock sample = Sample();
      sample.wide = wide;
      sample.table = "040904e4";
      sample.Text("productNAME", std::string("up to\0here", 10));
      const std::string block = sample.Make();
      CHECK(Read(block, kCompanyName) == "Evil Inc.");
      CHECK(Read(block, kOriginalFileName) == "evil.exe");
      CHECK(Read(block, kProductName) == "up to");
      CHECK(Read(block, kComments) == "");
      CHECK(Read(block, kInternalName) == "-");
      CHECK(Read(block + "behind the resource", kCompanyName) == "Evil Inc.");
    }
  }

  TEST_CASE("the first translation chooses the table") {
    const auto read = [](std::uint16_t language, std::uint16_t code_page, const char* table) {
      VersionBlock block = Sample();
      block.language = language;
      block.code_page = code_page;
      block.table = table;
      return Read(block.Make(), kCompanyName);
    };
    CHECK(read(0x0C07, 1200, "0C0704B0") == "Evil Inc.");
    CHECK(read(7, 0, "00070000") == "Evil Inc.");
    CHECK(read(0x0409, 1200, "040904E4") == "-");
    CHECK(read(0x0409, 1252, "040904E") == "-");
    CHECK(read(0x0409, 1252, "040904E45") == "-");
    VersionBlock none = Sample();
    none.has_translation = false;
    CHECK(Read(none.Make(), kCompanyName) == "-");
  }

  TEST_CASE("a block that is cut, and lengths that lie, lead nowhere") {
    const std::string sound = Sample().Make();
    for (std::size_t size = 0; size + 3 < sound.size(); ++size) {
      CHECK(Read(sound.substr(0, size), kCompanyName) == "-");
    }
    struct Lie {
      const char* key;
      std::size_t offset;  // 0: the node's length, 2: its value's length, 4: its type
      std::size_t value;
      const char* text;
    };
    std::vector<Lie> lies = {{"VS_VERSION_INFO", 0, 37, "-"},
                             {"VS_VERSION_INFO", 2, 0xFFFF, "-"},
                             {"StringFileInfo", 0, 7, "-"},
                             {"StringFileInfo", 2, 0xFFFF, "-"},
                             {"CompanyName", 0, 29, "-"},              // ends in its key
                             {"CompanyName", 0, 30, ""},               // has no value
                             {"CompanyName", 0, 37, "Ev"},             // ends in a character
                             {"CompanyName", 2, 0, ""},                // as announced
                             {"CompanyName", 2, 1, "Evil Inc."},       // counts something else
                             {"CompanyName", 2, 0xFFFF, "Evil Inc."},  // its NUL ends it
                             {"CompanyName", 4, 0, "Evil Inc."},
                             {"Translation", 2, 3, "-"},
                             {"Translation", 0, 35, "-"},
                             {"Translation", 2, 0xFFFF, "Evil Inc."}};
    // A node of no length would be its own sibling.
    for (const char* key : {"VS_VERSION_INFO", "StringFileInfo", "040904E4", "CompanyName"}) {
      lies.push_back({key, 0, 0, "-"});
      lies.push_back({key, 0, 0xFFFF, "-"});
    }
    for (const Lie& lie : lies) {
      std::string block = sound;
      VersionBlock::PutWord(&block, NodeAt(block, lie.key) + lie.offset, lie.value);
      CAPTURE(std::string(lie.key));
      CAPTURE(lie.offset);
      CAPTURE(lie.value);
      CHECK(Read(block, kCompanyName) == lie.text);
    }
    // The padding of the last child counted in its own length alone.
    VersionBlock last = Sample();
    last.texts = {{"CompanyName", "Evil"}};
    std::string block = last.Make();
    const std::size_t node = NodeAt(block, "CompanyName");
    const std::size_t size = static_cast<unsigned char>(block[node]);
    VersionBlock::PutWord(&block, node, size + 3);
    CHECK(Read(block, kCompanyName) == "Evil");
    VersionBlock::PutWord(&block, node, size + 4);
    CHECK(Read(block, kCompanyName) == "-");
  }
}

}  // namespace scourwell::test
