// SPDX-License-Identifier: MIT
#include "machine/version_resource.h"
#include "offline/iconv_code_pages.h"
#include "offline/little_endian.h"
#include "offline/offline_ports.h"
#include "offline/posix_files.h"
#include "offline/program_versions.h"
#include "offline/shortcut_file.h"
#include "tests/fake/version_block.h"
#include "tests/helpers.h"
#include "tests/offline/temporary_folder.h"
#include "text/unicode.h"

#include <doctest/doctest.h>

namespace scourwell::test {
namespace {

class Image {
 public:
  Image& Number(std::size_t at, std::uint32_t number, unsigned size = 4) {
    std::string bytes;
    for (unsigned i = 0; i < size; ++i) bytes += static_cast<char>(number >> (8 * i));
    return Text(at, bytes);
  }
  Image& Text(std::size_t at, std::string_view text) {
    if (bytes_.size() < at + text.size()) bytes_.resize(at + text.size());
    bytes_.replace(at, text.size(), text);
    return *this;
  }
  const std::string& bytes() const { return bytes_; }

 private:
  std::string bytes_;
};

// A program of one section, whose first resource is an icon and whose second is the version.
std::string NewProgram(const std::string& version, bool wide) {
  constexpr std::size_t kHeader = 0x80;
  constexpr std::size_t kResources = 0x400;
  constexpr std::uint32_t kAddress = 0x3000;
  constexpr std::uint32_t kBelow = 0x80000000;
  const std::size_t optional = wide ? 240 : 224;
  Image image;
  image.Text(0, "MZ").Number(0x3C, kHeader).Text(kHeader, std::string_view("PE\0\0", 4));
  image.Number(kHeader + 6, 1, 2).Number(kHeader + 20, static_cast<std::uint32_t>(optional), 2);
  image.Number(kHeader + 24, wide ? 0x20B : 0x10B, 2);
  image.Number(kHeader + 24 + (wide ? 112 : 96) + 16, kAddress);
  const std::size_t section = kHeader + 24 + optional;
  // Either size may be left out.
  image.Number(section + 8, wide ? 0 : 0x10000).Number(section + 12, kAddress);
  image.Number(section + 16, wide ? 0x10000 : 0).Number(section + 20, kResources);
  image.Number(kResources + 14, 2, 2).Number(kResources + 16, 3).Number(kResources + 20, 0);
  image.Number(kResources + 24, 16).Number(kResources + 28, kBelow | 0x30);
  image.Number(kResources + 0x30 + 14, 1, 2).Number(kResources + 0x40, 1);
  image.Number(kResources + 0x44, kBelow | 0x50);
  image.Number(kResources + 0x50 + 14, 1, 2).Number(kResources + 0x60, 0x409);
  image.Number(kResources + 0x64, 0x70);
  image.Number(kResources + 0x70, kAddress + 0x100);
  image.Number(kResources + 0x74, static_cast<std::uint32_t>(version.size()));
  return image.Text(kResources + 0x100, version).bytes();
}

std::string OldProgram(const std::string& version) {
  Image image;
  image.Text(0, "MZ").Number(0x3C, 0x40).Text(0x40, "NE").Number(0x40 + 0x24, 0x40, 2);
  image.Number(0x80, 4, 2).Number(0x82, 0x8003, 2).Number(0x84, 1, 2);
  image.Number(0x82 + 20, 0x8010, 2).Number(0x84 + 20, 1, 2);
  image.Number(0x82 + 28, 0x20, 2)
      .Number(0x82 + 30, static_cast<std::uint32_t>(version.size() / 16 + 1), 2);
  return image.Text(0x200, version + std::string(16, '\0')).bytes();
}

std::string Shortcut(const std::string& target, const std::string& arguments, bool wide) {
  Image image;
  image.Number(0, 0x4C).Number(0x14, 1u | 2u | 4u | 0x20u | (wide ? 0x80u : 0u));
  image.Number(0x4C, 4, 2).Number(0x4E, 0xAAAAAAAA);
  const std::size_t place = 0x52;
  const std::string base = wide ? BytesOf(ToUtf16(target)) + std::string(1, '\0') : target;
  const std::uint32_t head = wide ? 0x24 : 0x1C;
  const auto end = head + static_cast<std::uint32_t>(base.size()) + 1;
  image.Number(place + 4, head).Number(place + 8, 1);
  image.Number(place + (wide ? 28 : 16), head).Number(place + (wide ? 32 : 24), end);
  image.Text(place + head, base + std::string(3, '\0'));
  const std::size_t size = end + 2;
  image.Number(place, static_cast<std::uint32_t>(size));
  std::size_t at = place + size;
  for (const std::string& text : {std::string("a name"), arguments}) {
    const std::string bytes = wide ? BytesOf(ToUtf16(text)) : text;
    image.Number(at, static_cast<std::uint32_t>(wide ? bytes.size() / 2 : bytes.size()), 2);
    image.Text(at + 2, bytes);
    at += 2 + bytes.size();
  }
  return image.bytes();
}

}  // namespace

TEST_SUITE("offline_programs") {
  TEST_CASE("the version of a program is read from the file itself, and nothing of it is trusted") {
    const TemporaryFolder disk;
    PosixFiles files({{'C', disk.path()}});
    IconvCodePages pages(1252);
    ProgramVersions versions(files, pages);
    VersionBlock version;
    version.fixed.file_version_high = 0x50001;
    const std::string block = version.Text("CompanyName", "Spies \xE4nd sons").Make();
    Dice dice(7);
    for (const std::string& program :
         {NewProgram(block, false), NewProgram(block, true), OldProgram(block)}) {
      disk.Put("program.exe", program);
      std::string read;
      REQUIRE(versions.ReadBlock("C:\\PROGRAM.exe", &read).ok());
      CHECK(read.starts_with(block));
      CHECK(VersionResource(read, versions).Text(kCompanyName) == "Spies \u00E4nd sons");
      for (int round = 0; round < 200; ++round) {
        std::string bytes = program.substr(0, program.size() - dice.Below(2) * dice.Below(600));
        const std::size_t changes = dice.Below(4);
        for (std::size_t i = 0; i < changes; ++i) {
          bytes[dice.Below(0x500) % bytes.size()] = static_cast<char>(dice.Below(256));
        }
        disk.Put("program.exe", bytes);
        static_cast<void>(versions.ReadBlock("C:\\program.exe", &read));
      }
    }
    std::string read;
    for (const char* content : {"", "MZ", "a text", "MZ\xFF"}) {
      disk.Put("program.exe", content);
      CHECK(versions.ReadBlock("C:\\program.exe", &read).code() == kFileNotFound);
    }
  }

  TEST_CASE("a shortcut says where it leads, and nothing of it is trusted") {
    IconvCodePages pages(1252);
    Dice dice(8);
    for (const bool wide : {false, true}) {
      const std::string bytes =
          Shortcut(wide ? "C:\\Spy\\sp\u00FC.exe" : "C:\\Spy\\sp\xFC.exe", "/start", wide);
      const auto shortcut = ReadShortcut(bytes, pages);
      REQUIRE(shortcut);
      CHECK(shortcut->target == "C:\\Spy\\sp\u00FC.exe");
      CHECK(shortcut->arguments == "/start");
      for (std::size_t size = 0; size < bytes.size(); ++size) {
        ReadShortcut(bytes.substr(0, size), pages);
        std::string changed = bytes;
        changed[size] = static_cast<char>(dice.Below(256));
        ReadShortcut(changed, pages);
      }
    }
    const TemporaryFolder disk;
    disk.Put("far.lnk", Shortcut("C:\\x", "/start", false).replace(0x52 + 8, 1, "\2"));
    PosixFiles files({{'C', disk.path()}});
    OfflineShell shell(files, pages);
    std::string text = "?";
    CHECK(shell.ShortcutTarget("C:\\FAR.lnk", &text).ok());
    CHECK(text == "");  // on no drive
    CHECK(shell.ShortcutArguments("C:\\far.lnk", &text).ok());
    CHECK(text == "/start");
    CHECK_FALSE(shell.ShortcutTarget("C:\\none.lnk", &text).ok());
    CHECK_FALSE(ReadShortcut("a text", pages));
    CHECK_FALSE(ReadShortcut(std::string(100, 'x'), pages));
  }

  TEST_CASE("texts of a code page go there and back, with the bytes that it leaves free") {
    for (const unsigned page : {1252u, 1250u, 65001u}) {
      IconvCodePages pages(page);
      std::string all;
      for (int i = 1; i < 256; ++i) all += static_cast<char>(i);
      CAPTURE(page);
      CHECK(pages.ToFile(pages.FromFile(all)) == all);
    }
    IconvCodePages japanese(932);
    std::string text;
    CHECK(japanese.Decode(932, "\x95\x5C\x83\x5C", &text).ok());
    CHECK(text == "\u8868\u30BD");
    CHECK(japanese.Decode(12345, "x", &text).code() == kInvalidCall);
    CHECK(IconvCodePages(1252).Encode("\u0142") == std::nullopt);
  }
}

}  // namespace scourwell::test
