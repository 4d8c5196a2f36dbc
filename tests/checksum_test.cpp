// SPDX-License-Identifier: MIT
#include "scan/checksum.h"

#include "tests/support.h"

namespace scourwell::test {

TEST_SUITE("checksum") {
  TEST_CASE("the checksum is the exclusive or of all bytes") {
    Bench b;
    struct Row {
      std::string content;
      int sum;
    };
    std::string large(2 * Files::kBlockSize + 3, '\0');
    large[Files::kBlockSize] = '\x50';
    large.back() = '\x05';
    for (const Row& row :
         {Row{"", 0}, {"\xFF\x0F\xF0", 0}, {"\x01\x02\x04\x08\x10\x80\xFF", 0x60}, {large, 0x55}}) {
      b.m.File("C:\\x", row.content);
      std::optional<std::uint8_t> sum;
      CHECK(GetFileCheckSum(b.m.files, b.m.pump, "C:\\x", &sum).ok());
      CHECK(sum.value_or(256) == row.sum);
    }
  }

  TEST_CASE("a sum that was not finished is none") {
    Bench b;
    std::optional<std::uint8_t> sum = std::uint8_t{7};
    CHECK(GetFileCheckSum(b.m.files, b.m.pump, "C:\\x", &sum).code() == kFileNotFound);
    CHECK_FALSE(sum.has_value());
    b.m.File("C:\\x", std::string(3 * Files::kBlockSize, 'x'));
    b.m.pump.close_at = 2;
    CHECK(GetFileCheckSum(b.m.files, b.m.pump, "C:\\x", &sum).ok());
    CHECK_FALSE(sum.has_value());
    CHECK(b.m.pump.yields == 2);
  }
}

}  // namespace scourwell::test
