// SPDX-License-Identifier: MIT
#include "definitions/spy_categories.h"

#include "tests/refc_support.h"

namespace scourwell::test {

TEST_SUITE("spy_categories") {
  TEST_CASE("what a source says of spies reaches the program, the narrowest line first") {
    Bench b;
    Tool tool;
    b.m.File("C:\\App\\Ini\\update.ref",
             tool.Build("categories.tsv",
                        "adware\tshows advertisements\nworm\tspreads\ntracker\trecognises\n"
                        "*\tis\tadware\nTrojan.*\tis\ttrojan horse\nTrojan.Worm*\tis\tworm\n"
                        "Trojan.Worm-B\tis\tadware\nany cookie\tis\ttracker\n"));
    ReferenceFile file(b.m.files, b.m.clock, b.log, b.settings, kAppFolder);
    SpyCategories categories;
    CHECK(categories.Of("Trojan.A", false) == "");
    for (int times = 0; times < 2; ++times) categories.Load(file);
    for (const auto& [spy, by_cookie, category] :
         Rows<const char*, bool, const char*>{{"Evilbar", false, "adware"},
                                              {"", false, "adware"},
                                              {"Trojan.A", false, "trojan horse"},
                                              {"TROJAN.worm-A", false, "worm"},
                                              {"trojan.worm-b", false, "adware"},
                                              {"Trojan.Worm-A", true, "tracker"},
                                              {"Trojan.Worm-B", true, "adware"}}) {
      CAPTURE(spy);
      CHECK(categories.Of(spy, by_cookie) == category);
    }
    CHECK(categories.TextOf("Worm") == "spreads");
    CHECK(categories.TextOf("trojan horse") == "");
    CHECK(b.m.Errors() == "");
  }

  TEST_CASE("a file without the table, or with half a line, says nothing of that") {
    Bench b;
    b.m.File("C:\\App\\Ini\\update.ref", Definitions()
                                             .Entry("CATE", {"CATES", "CATEI"}, {"*", "adware"})
                                             .Value("CATE", "1CATES", "Worm.*")
                                             .Value("CATE", "2CATEI", "worm")
                                             .Value("CATE", "4CATES", "Evil.*")
                                             .Value("CATE", "4CATEI", "worm")
                                             .Text());
    ReferenceFile file(b.m.files, b.m.clock, b.log, b.settings, kAppFolder);
    SpyCategories categories;
    categories.Load(file);
    CHECK(categories.Of("Worm.A", false) == "adware");
    CHECK(categories.Of("Evil.A", false) == "adware");  // the numbers end at the first gap
    CHECK(categories.TextOf("adware") == "");
    b.m.File("C:\\App\\Ini\\update.ref", "");
    categories.Load(file);
    CHECK(categories.Of("Worm.A", false) == "");
  }
}

}  // namespace scourwell::test
