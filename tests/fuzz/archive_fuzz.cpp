// Archives, whole and in pieces, damaged at random, with checksums made right again or not: what
// is read must be bounded, what comes out must be right, and nothing else may be touched.
#include <algorithm>

#include "tests/hand_archive.h"
#include "tests/restore_support.h"

namespace scourwell::test {
namespace {

constexpr std::uint32_t kSeed = 20040306;
constexpr int kRounds = 6000;

std::string AnyPath(Dice& dice) {
  static const std::string kPaths[] = {"C:\\spy\\a",   "C:\\spy\\sub\\b",
                                       "C:\\spy\\a",   "C:\\spy\\sub\\b",
                                       "C:\\spy",      "C:\\keep\\a",
                                       "C:\\link\\x",  "C:\\spy\\..\\keep\\a",
                                       "D:\\x",        "x",
                                       "C:\\spy\\nul", "C:\\spy\\a\\below",
                                       "one.reg"};
  return dice.Pick(kPaths);
}

std::uint64_t AnyNumber(Dice& dice) {
  constexpr std::uint64_t kNumbers[] = {0,          1,          3,          4,          5,
                                        255,        65535,      0x7FFFFFFF, 0x80000000, 0xFFFFFFFF,
                                        1ull << 32, 1ull << 62, 1ull << 63, ~0ull};
  return dice.Chance(2) ? dice.Pick(kNumbers) : dice.Below(400);
}

// Every checksum is right; some fields are not.
HandArchive Lying(Dice& dice) {
  HandArchive archive;
  for (std::size_t left = dice.Below(6); left > 0; --left) {
    HandArchive::Item item;
    item.kind =
        dice.Chance(20) ? static_cast<int>(dice.Below(5)) : static_cast<int>(1 + dice.Below(3));
    item.path = item.kind == 3 ? "one.reg" : AnyPath(dice);
    if (item.kind != 2) item.content = std::string(dice.Below(30), 'c');
    item.attributes = static_cast<std::uint32_t>(AnyNumber(dice));
    item.modified = AnyNumber(dice);
    if (dice.Chance(60)) item.size = AnyNumber(dice);
    if (dice.Chance(60)) item.offset = AnyNumber(dice);
    if (dice.Chance(60)) item.stored = AnyNumber(dice);
    if (dice.Chance(60)) item.block_header = AnyNumber(dice);
    if (dice.Chance(20)) item.path_size = AnyNumber(dice);
    archive.items.push_back(std::move(item));
  }
  if (dice.Chance(20)) archive.count = AnyNumber(dice);
  if (dice.Chance(20)) archive.index_size = AnyNumber(dice);
  if (dice.Chance(20)) archive.data_size = AnyNumber(dice);
  if (dice.Chance(20)) archive.volumes = {AnyNumber(dice)}, archive.number = 2;
  return archive;
}

void Mutate(Dice& dice, std::string* bytes) {
  if (bytes->empty()) return;
  const std::size_t at = dice.Below(bytes->size());
  switch (dice.Below(4)) {
    case 0:
      bytes->resize(at);
      return;
    case 1:
      bytes->erase(at, dice.Below(9));
      return;
    case 2:
      bytes->insert(at, bytes->substr(dice.Below(bytes->size()), dice.Below(40)));
      return;
    default:
      (*bytes)[at] = static_cast<char>(dice.Below(256));
  }
}

}  // namespace

TEST_SUITE("fuzz_archive") {
  TEST_CASE("a lying archive restores what is right and touches nothing else") {
    Dice dice(kSeed);
    std::size_t restored = 0;
    int refused = 0;
    for (int round = 0; round < kRounds; ++round) {
      RestoreBench b;
      b.m.File("C:\\keep\\a", "precious").modified = ~0ull;
      b.m.Link("C:\\link", "C:\\keep");
      b.guard.refused = {"C:\\keep"};
      const std::string kept = b.Tree("C:\\keep");
      std::string bytes = Lying(dice).Make();
      if (dice.Chance(4)) Mutate(dice, &bytes);
      b.m.File(kArchivePath).content = bytes;
      refused += b.Restore().ok() ? 0 : 1;
      restored += b.result.restored;
      if (b.Tree("C:\\keep") != kept) FAIL("round ", round, ": a protected file was touched");
      for (const auto& child : b.m.files.Find("C:\\")->children) {
        constexpr std::string_view kExpected = "App Backup keep link spy spy.kept";
        if (kExpected.find(child->name) == kExpected.npos) FAIL("round ", round, child->name);
      }
      for (const char* path : {"C:\\spy\\a", "C:\\spy\\sub\\b"}) {
        const std::string content = b.m.Content(path);
        if (content.find_first_not_of('c') != content.npos) FAIL("round ", round, ": ", content);
      }
    }
    CHECK(restored > kRounds / 4);
    CHECK(refused > kRounds / 10);
  }

  TEST_CASE("damaged pieces never give wrong content") {
    Dice dice(kSeed);
    ArchiveBench b;
    const std::string contents[] = {"", std::string(700, 't'), Noise(1800)};
    b.m.File("C:\\spy\\0", contents[0]);
    b.m.File("C:\\spy\\1", contents[1]);
    b.m.File("C:\\spy\\2", contents[2]);
    ArchiveOptions options;
    options.volume_size = 600;
    REQUIRE(b.Store({"C:\\spy"}, options).ok());
    std::vector<std::pair<std::string, std::string>> pieces;
    for (const auto& child : b.m.files.Find("C:\\Backup")->children) {
      pieces.emplace_back("C:\\Backup\\" + child->name, child->content);
    }
    REQUIRE(pieces.size() >= 4);
    int right = 0;
    int wrong = 0;
    for (int round = 0; round < kRounds; ++round) {
      for (const auto& [path, content] : pieces) b.m.files.Find(path)->content = content;
      for (std::size_t left = 1 + dice.Below(3); left > 0; --left) {
        Mutate(dice, &b.m.files.Find(dice.Pick(pieces).first)->content);
      }
      ArchiveReader reader = b.Reader();
      if (!reader.Open(kArchivePath).ok()) continue;
      for (std::size_t i = 1; i < reader.items().size(); ++i) {
        const std::string text = ArchiveBench::ItemText(reader, i);
        const bool same = text == contents[i - 1];
        if (!same && !text.starts_with("(")) FAIL("round ", round, ": wrong content");
        ++(same ? right : wrong);
      }
    }
    CHECK(right > kRounds / 10);
    CHECK(wrong > kRounds / 10);
  }
}

}  // namespace scourwell::test
