// SPDX-License-Identifier: MIT
#include "tools/table_view.h"

#include <doctest/doctest.h>

#include <string>
#include <vector>

namespace scourwell::test {

TEST_SUITE("table_view") {
  struct Texts : TableModel {
    std::vector<std::vector<std::string>> rows = {
        {"beta", "x"}, {"Alpha", "y z"}, {"gamma\t", "X"}};
    std::size_t size() const override { return rows.size(); }
    int columns() const override { return 2; }
    const std::string& Cell(std::size_t row, int column) const override {
      return rows[row][static_cast<std::size_t>(column)];
    }
    std::string Identity(std::size_t row) const override { return rows[row][0]; }
  };

  TEST_CASE("filtered by words, sorted by a column, the other way at the next click") {
    Texts texts;
    TableView view(texts);
    const auto shown = [&] {
      std::string names;
      for (std::size_t i = 0; i < view.size(); ++i) names += texts.Cell(view.Row(i), 0)[0];
      return names;
    };
    CHECK(shown() == "bAg");
    view.SortBy(0);
    CHECK(shown() == "Abg");
    view.SortBy(0);
    CHECK(shown() == "gbA");
    view.SortBy(1);
    CHECK(shown() == "bgA");
    view.SetFilter("  A  z ");
    CHECK(shown() == "A");
    CHECK(view.Line(0) == "Alpha\ty z");
    CHECK(view.Find(1) == 0);
    CHECK(view.Find(0) == -1);
    view.SetFilter("none");
    CHECK(shown() == "");
    view.SetFilter("");
    texts.rows.pop_back();
    view.Update();
    CHECK(shown() == "bA");
  }

  TEST_CASE("the chosen row stays the chosen one, and no other takes its place") {
    Texts texts;
    TableView view(texts);
    view.SortBy(0);
    view.Choose(1);
    CHECK(view.Row(1) == 0);  // "beta"
    texts.rows.insert(texts.rows.begin(), {"Aaa", "x"});
    view.Update();
    CHECK(view.Chosen() == 2);
    view.SortBy(0);
    CHECK(view.Chosen() == 1);
    view.SetFilter("alpha");
    CHECK(view.Chosen() == -1);
    view.SetFilter("");
    CHECK(view.Chosen() == 1);
    texts.rows.push_back(texts.rows[1]);  // reads alike, and is another one
    view.Update();
    CHECK(view.Row(static_cast<std::size_t>(view.Chosen())) == 1);
    std::erase_if(texts.rows, [](const auto& row) { return row[0] == "beta"; });
    view.Update();
    CHECK(view.Chosen() == -1);
    texts.rows.push_back({"beta", "z"});
    view.Update();
    CHECK(view.Chosen() == -1);
  }
}

}  // namespace scourwell::test
