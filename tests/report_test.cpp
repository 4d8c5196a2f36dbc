// SPDX-License-Identifier: MIT
#include "results/report_html.h"

#include "results/removal_summary.h"
#include "scan/finding_texts.h"
#include "tests/removal_support.h"

namespace scourwell::test {
namespace {

constexpr char kReport[] = "C:\\App\\report.html";

RemovedObject Removed(const std::string& path, RemovalState state, const std::string& spy = "spy") {
  return {spy, FoundFile{path}, {state, {}}};
}

std::size_t CountOf(const std::string& text, std::string_view part) {
  std::size_t count = 0;
  for (std::size_t at = 0; (at = text.find(part, at)) != text.npos; at += part.size()) ++count;
  return count;
}

// The captions of the tests stand in angle brackets.
std::string Shown(const std::string& caption) {
  return ReplaceAll(ReplaceAll(caption, "<", "&lt;"), ">", "&gt;");
}

}  // namespace

TEST_SUITE("report") {
  TEST_CASE("what is still there comes first, and columns sort the list both ways") {
    NumberCaptions captions;
    RemovalReport report;
    report.objects = {
        Removed("C:\\b", RemovalState::Gone, "x"), Removed("C:\\c", RemovalState::Removed, "Y"),
        Removed("C:\\d", RemovalState::PendingRestart, "z"),
        Removed("C:\\A", RemovalState::Failed, "X"), Removed("C:\\e", RemovalState::Refused, "y")};
    RemovalSummary summary(captions, report);
    const auto places = [&] {
      std::string text;
      for (std::size_t i = 0; i < summary.size(); ++i) {
        text += summary.Text(i, RemovalSummary::kDetails).substr(3);
      }
      return text;
    };
    CHECK(places() == "Aedcb");
    summary.SortBy(RemovalSummary::kState);
    CHECK(places() == "bcdeA");
    summary.SortBy(RemovalSummary::kDetails);
    CHECK(places() == "Abcde");
    CHECK((summary.sort_column() == RemovalSummary::kDetails && summary.ascending()));
    summary.SortBy(RemovalSummary::kDetails);
    CHECK(places() == "edcbA");
    summary.SortBy(RemovalSummary::kSystem);  // x and X, Y and y are the same; their order stays
    CHECK(places() == "bAecd");
    const auto cell = [&](RemovalSummary::Column column) { return summary.Text(1, column); };
    CHECK(cell(RemovalSummary::kSystem) == "X");
    CHECK(cell(RemovalSummary::kState).starts_with(captions.Text(Caption::StateFailed)));
    CHECK(summary.Text(1, static_cast<RemovalSummary::Column>(0)) ==
          KindText(captions, FindingKind::File));
    CHECK(summary.Counts() ==
          "1 " + captions.Text(Caption::StateRemoved) + ", 1 " + captions.Text(Caption::StateGone) +
              ", 1 " + captions.Text(Caption::StatePendingRestart) + ", 1 " +
              captions.Text(Caption::StateRefused) + ", 1 " + captions.Text(Caption::StateFailed));
    summary.SortBy(RemovalSummary::kState);  // upwards, as another column was before
    CHECK(places() == "Aedcb");
  }

  TEST_CASE("a report has every row, its sums, and nothing of a name becomes markup") {
    Remover r;
    const std::string evil =
        "<script>alert(\"1\")</script> & 'x' \xE2\x80\xAE"
        "gpj";
    r.hits.AddSpyToListView({evil, FoundFile{"C:\\" + evil + ".exe"}});
    Finding of_user{"Bar", FoundFile{"C:\\bar.exe"}};
    of_user.user = "Anna <x>";
    r.hits.AddSpyToListView(std::move(of_user));
    r.hits.AddSpyToListView({"bar", FoundFolder{"C:\\Bar"}});
    r.hits.SetChecked(0, false);
    r.m.Folder("C:\\Bar");
    r.m.File("C:\\bar.exe", "x").Locked();
    r.settings.DeleteAfterReboot = false;
    r.Run();
    REQUIRE(r.States() == "Fr");
    CHECK(WriteReport(r.m.files, kReport, r.captions,
                      {"Program 1.0", "7-1", "today & <now>", ReportRowsOf(r.hits), ""})
              .ok());
    const std::string html = r.m.Content(kReport);
    CAPTURE(html);
    CHECK(html.find("<script") == std::string::npos);
    CHECK(html.find("\xE2\x80\xAE") == std::string::npos);  // turns the direction of writing
    CHECK(CountOf(html, "&lt;script&gt;alert(&quot;1&quot;)&lt;/script&gt; &amp; &#39;x&#39;") ==
          3);
    CHECK(html.find("today &amp; &lt;now&gt;") != std::string::npos);
    for (const char* outside : {"http:", "https:", "src=", "href=", "url(", "@import"}) {
      CHECK(html.find(outside) == std::string::npos);
    }
    // What failed, what nobody tried, what is gone.
    const auto place = [&](const char* path) {
      return html.find("<td class=\"place\">" + std::string(path));
    };
    CHECK(place("C:\\bar.exe [Anna &lt;x&gt;]") != html.npos);
    CHECK(place("C:\\bar.exe") < place("C:\\&lt;script"));
    CHECK(place("C:\\&lt;script") < place("C:\\Bar"));
    CHECK(place("C:\\Bar") != std::string::npos);
    CHECK(html.find("<td class=\"word\">" + Shown(r.captions.Text(Caption::StateNotTried)) +
                    "</td>") != html.npos);
    // Two files and a folder; two of one spy, whatever its case.
    const auto sum = [](const std::string& name, int count) {
      return "<td>" + name + "</td><td>" + std::to_string(count) + "</td>";
    };
    CHECK(html.find(sum(Shown(KindText(r.captions, FindingKind::File)), 2)) != html.npos);
    CHECK(html.find(sum(Shown(KindText(r.captions, FindingKind::Folder)), 1)) != html.npos);
    CHECK(html.find(sum("Bar", 2)) != html.npos);
    CHECK(html.ends_with("</html>\r\n"));
    // As many elements end as begin.
    for (const std::string name : {"table", "tr", "td", "th", "h1", "h2", "p", "body", "style"}) {
      CAPTURE(name);
      CHECK(CountOf(html, "<" + name + ">") + CountOf(html, "<" + name + " ") ==
            CountOf(html, "</" + name + ">"));
    }
  }

  TEST_CASE("a report that cannot be written leaves the one that was there") {
    Remover r;
    r.m.File(kReport, "an older one").Locked();
    CHECK_FALSE(WriteReport(r.m.files, kReport, r.captions, {}).ok());
    CHECK(r.m.Content(kReport) == "an older one");
    Report stopped;
    stopped.without_rows = "stopped <early>";
    CHECK(ReportHtml(r.captions, stopped).find("stopped &lt;early&gt;") != std::string::npos);
  }
}

}  // namespace scourwell::test
