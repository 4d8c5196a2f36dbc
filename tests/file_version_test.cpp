// SPDX-License-Identifier: MIT
#include "machine/file_version.h"

#include "tests/fake/version_block.h"
#include "tests/support.h"

namespace scourwell::test {
namespace {

constexpr char kPath[] = "C:\\x.exe";

struct Machine : Bench {
  FileVersion version{m.files, m.versions, captions, log};

  std::string Header(const std::string& path) {
    std::string all;
    for (const std::string& text : version.GetVerHeader(path)) all += text + "|";
    return all;
  }
  std::string Description(const std::string& content) {
    m.File(kPath, content);
    return version.GetFileDescription(kPath);
  }
};

std::string Twelve(const std::string& text) {
  std::string all;
  for (int i = 0; i < 12; ++i) all += text + "|";
  return all;
}

}  // namespace

TEST_SUITE("file_version") {
  TEST_CASE("the header has twelve texts, or says why not") {
    Machine v;
    v.m.Folder("C:\\folder");
    // Found by another name.
    v.m.versions.blocks["C:\\missing"] = VersionBlock().Text("Comments", "x").Make();
    for (const std::string path : {"C:\\folder", "C:\\missing"}) {
      CHECK(v.Header(path) == Twelve("The file \"" + path + "\" doesn't exist."));
    }
    v.m.File(kPath);
    CHECK(v.Header(kPath) == Twelve("<8629>"));
    v.m.versions.blocks[kPath] = "trash";
    CHECK(v.Header(kPath) == Twelve("<8629>"));
    VersionBlock block;
    for (std::size_t i = 0; i < kVersionFields; ++i) {
      if (i != kPrivateBuild) block.Text(std::string(kVersionFieldNames[i]), std::to_string(i));
    }
    v.m.versions.blocks[kPath] = block.Make();
    CHECK(v.Header(kPath) == "0|1|2|3|4|5|6|7|8|9|<8629>|11|");
    CHECK(v.m.Errors() == "");
  }

  TEST_CASE("description and product name are read from the bytes of a file") {
    Machine v;
    VersionBlock block;
    block.Text("CompanyName", "Evil")
        .Text("FileDescription", "A \xE9vil thing ");  // in 16-bit units or bytes
    block.Text("FileVersion", "1.0").Text("ProductName", "Thing").Text("ProductVersion", "2");
    for (const bool wide : {true, false}) {
      block.wide = wide;
      const std::string front = "MZ FileDescription front" + std::string(wide ? 3 : 101, '\0');
      CHECK(v.Description(front + block.Make() + "FileVersion") == "A \u00E9vil thing");
      CHECK(v.version.GetProductName(kPath) == "Thing");
    }
    CHECK(v.m.Errors() == "");
  }

  TEST_CASE("odd layouts of the direct readers") {
    const auto nuls = [](std::string text) {
      for (char& c : text) c = c == '_' ? '\0' : c;
      return text;
    };
    VersionBlock empty;
    empty.Text("FileDescription", "").Text("FileVersion", "1.0.0.0 and more, so that it shows");
    const auto described = [](const char* text) {
      return VersionBlock().Text("FileDescription", text).Text("FileVersion", "1").Make();
    };
    std::string unmapped = described("?");
    VersionBlock::PutWord(&unmapped, unmapped.find('?'), 0x0416);
    const std::string real = described("Real");
    struct Row {
      std::string content;
      const char* text;
    };
    for (const Row& row : std::vector<Row>{
             {"", ""},
             {"no such section FileDescription_x_FileVersion", ""},
             {"StringFileInfo without the field, FileVersion", ""},
             {nuls("StringFileInfo_FileDescription_a FileDescription_FileVersion"),
              "a FileDescription"},
             {nuls("StringFileInfo_FileDescription__ plain text_\t_FileVersion"), "plain text"},
             {"StringFileInfoFileDescriptionFileVersion", ""},
             {VersionBlock::Wide(nuls("StringFileInfo__FileDescription_\r\n text\t _FileVersion")),
              "text"},
             {"StringFileInfo" + empty.Make(), ""},
             {unmapped, "?"},
             {nuls("StringFileInfo_FileDescription_text_") + "0\1FileVersion", "text"},
             // Strings of the program itself come before its resource.
             {VersionBlock::Wide(nuls("StringFileInfo_FileDescription_Own_FileVersion_")) + real,
              "Real"},
             {VersionBlock::Wide(nuls("FileDescription_Own_")) + real + "FileDescription", "Real"},
             {nuls("StringFileInfo_FileDescription_Own_FileVersion_") + real, "Real"},
             {"StringFileInfo FileDescription never ends" + VersionBlock::Wide("StringFileInfo"),
              ""}}) {
      Machine v;
      CAPTURE(row.content);
      CHECK(v.Description(row.content) == row.text);
    }
    Machine v;
    CHECK(v.Description("StringFileInfoFileDescription" + std::string(70000, 'y') +
                        "FileVersion") == std::string(65535, 'y'));
    // Only the first 16 MB count.
    std::string large(FileVersion::kMostLoaded - 60, 'x');
    large += nuls("StringFileInfo_FileDescription_here_FileVersion_");
    CHECK(v.Description(large) == "here");
    CHECK(v.Description(std::string(20, 'x') + large) == "");
  }

  TEST_CASE("what cannot be read is on record with its positions") {
    Machine v;
    CHECK(v.Description("..StringFileInfo.FileDescription.x") == "");
    CHECK(v.version.GetProductName("C:\\none") == "");
    v.m.File(kPath).Locked();
    CHECK(v.version.GetProductName(kPath) == "");
    CHECK(v.m.Errors() ==
          "Error Description: The version information has no end, Error Number: 5, Method: "
          "GetFileDescription, strFile: C:\\x.exe, pos: 3, StartPos: 33, EndPos: 0\n"
          "Error Description: File not found, Error Number: 53, Method: GetProductName, "
          "strFile: C:\\none, pos: 0, StartPos: 0, EndPos: 0\n"
          "Error Description: Permission denied, Error Number: 70, Method: GetProductName, "
          "strFile: C:\\x.exe, pos: 0, StartPos: 0, EndPos: 0\n");
  }
}

}  // namespace scourwell::test
