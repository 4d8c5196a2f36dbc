// SPDX-License-Identifier: MIT
#include "tests/pack_check.h"

#include <algorithm>
#include <map>
#include <vector>

#include "engine/caption_table.h"
#include "engine/language.h"
#include "machine/counting.h"
#include "tests/pack_rules.h"
#include "tests/pack_text.h"
#include "text/text.h"
#include "widgets/access_keys.h"

namespace scourwell::test {
namespace {

constexpr char kAbout[] = "CodePage=";
constexpr std::size_t kCodePageLine = 3;
constexpr std::size_t kHeadLines = 5;
constexpr int kExclaimed = 1820;  // ends with "!..." in English only

std::string HeadOf(const std::string& name, const std::string& page) {
  return "; Scourwell language pack: " + name + " (ANSI code page " + page +
         ").\r\n; \"#\" inside a message stands for a line break.\r\n[Language Pack]\r\nCodePage=" +
         page + "\r\n[Adware Language Pack]\r\n";
}

std::vector<std::string> Split(std::string_view text, char separator) {
  std::vector<std::string> parts(1);
  for (const char c : text) {
    if (c == separator) {
      parts.emplace_back();
    } else {
      parts.back() += c;
    }
  }
  return parts;
}

// The lines of a text that ends with a line end, each with its CR.
std::vector<std::string> LinesOf(std::string_view text) {
  std::vector<std::string> lines = Split(text, '\n');
  if (lines.back().empty()) lines.pop_back();
  return lines;
}

// The code page that a pack states, or "".
std::string StatedPage(const std::vector<std::string>& lines) {
  if (lines.size() <= kCodePageLine || !lines[kCodePageLine].starts_with(kAbout)) return {};
  const std::string_view number = std::string_view(lines[kCodePageLine]).substr(sizeof kAbout - 1);
  return std::string(number.substr(0, number.find('\r')));
}

// The key that a caption names; 0 when there is none.
char32_t KeyOf(std::string_view text) {
  const std::size_t at = text.find('&');
  return at == text.npos ? 0 : KeyLetter(text, at + 1);
}

// Of a caption in wide signs: "Scan(&S)", "Scan(&S)...", "Next(&N) >".
bool HasKeyBehind(std::string_view text) {
  const std::size_t at = text.find('&');
  if (at == 0 || at + 2 >= text.size() || text[at - 1] != '(' || text[at + 2] != ')') return false;
  return text.find_first_not_of(".:> ", at + 3) == text.npos;
}

bool Has(const std::vector<int>& numbers, int number) {
  return std::find(numbers.begin(), numbers.end(), number) != numbers.end();
}

class PackCheck {
 public:
  PackCheck(const std::string& file, std::string_view content)
      : file_(file), lines_(LinesOf(content)), page_(StatedPage(lines_)), charset_("CP" + page_) {
    CheckHead();
    for (std::size_t i = 0; i < lines_.size(); ++i) CheckBytes(i);
    for (std::size_t i = kHeadLines; i < lines_.size(); ++i) TakeCaption(i);
    CheckCaptions();
    for (const PackGroup& group : kPackGroups) CheckGroup(group);
    for (const PackRow& row : kPackRows) CheckRow(row);
  }
  const std::string& faults() const { return faults_; }

 private:
  void Complain(const std::string& fault) { faults_ += file_ + ": " + fault + "\n"; }
  void Complain(int number, const std::string& fault) {
    Complain(std::to_string(number) + ": " + fault);
  }
  void ComplainOfLine(std::size_t index, const std::string& fault) {
    Complain("line " + std::to_string(index + 1) + ": " + fault);
  }

  void CheckHead() {
    const std::vector<std::string> head = LinesOf(HeadOf(file_.substr(0, file_.find('.')), page_));
    for (std::size_t i = 0; i < kHeadLines; ++i) {
      if (i >= lines_.size() || lines_[i] != head[i]) {
        ComplainOfLine(i, "not \"" + head[i].substr(0, head[i].size() - 1) + "\"");
      }
    }
    if (!charset_.known()) Complain("unknown code page " + page_);
  }

  void CheckBytes(std::size_t index) {
    const std::string& line = lines_[index];
    if (!line.ends_with('\r') || line.find('\r') + 1 != line.size()) {
      ComplainOfLine(index, "wrong line end");
    }
    const auto control = [](char c) { return c >= 0 && c < ' ' && c != '\r'; };
    if (LooksLikeUtf8(line)) {
      ComplainOfLine(index, "looks like UTF-8");
    } else if (charset_.known() && !charset_.Decode(line)) {
      ComplainOfLine(index, "a byte that code page " + page_ + " lacks");
    }
    if (std::any_of(line.begin(), line.end(), control)) {
      ComplainOfLine(index, "a control character");
    }
  }

  void TakeCaption(std::size_t index) {
    std::string line = lines_[index];
    if (line.ends_with('\r')) line.pop_back();
    const std::size_t equals = line.find('=');
    const int number = LeadingNumber(line);
    if (equals == line.npos || std::to_string(number) != line.substr(0, equals)) {
      return ComplainOfLine(index, "no caption");
    }
    if (!texts_.empty() && number < texts_.rbegin()->first) Complain(number, "out of order");
    const std::string text = line.substr(equals + 1);
    if (!texts_.emplace(number, charset_.Decode(text).value_or(text)).second) {
      Complain(number, "there twice");
    }
  }

  void CheckCaptions() {
    for (std::size_t i = 0; i < kCaptionCount; ++i) {
      const auto found = texts_.find(NumberOf(kCaptions[i].caption));
      if (found == texts_.end()) {
        Complain(NumberOf(kCaptions[i].caption), "missing");
      } else if (TrimBlanks(found->second).empty()) {
        Complain(NumberOf(kCaptions[i].caption), "empty");
      } else {
        CheckText(found->first, found->second, TrimBlanks(kCaptions[i].text));
      }
    }
    for (const auto& [number, text] : texts_) {
      if (DefaultCaption(static_cast<Caption>(number)).empty()) Complain(number, "no such caption");
    }
  }

  void CheckText(int number, const std::string& text, std::string_view english) {
    const auto count = [](std::string_view in, char c) {
      return std::count(in.begin(), in.end(), c);
    };
    if (TrimBlanks(text) != text || (text.front() == '"' && text.back() == '"')) {
      Complain(number, "blanks or quotes at its ends would be lost");
    }
    if (text.size() > kLongestCaption) Complain(number, "longer than 499 bytes");
    if (count(text, '#') != count(english, '#')) Complain(number, "other line breaks");
    if (count(text, '%') != count(english, '%')) Complain(number, "other place holders");
    const bool key = count(text, '&') == 1 && KeyOf(text) != 0;
    if (count(text, '&') != count(english, '&') || (count(english, '&') == 1 && !key)) {
      Complain(number, english.find('&') == english.npos ? "an access key that nothing shows"
                                                         : "no usable access key");
    }
    if (key && HasWideSigns(text) && !HasKeyBehind(text)) {
      Complain(number, "the access key does not stand behind it");
    }
    for (const char* end : {"...", ":", ">"}) {
      if (english.ends_with(end) != text.ends_with(end) && number != kExclaimed) {
        Complain(number, std::string("\"") + end + "\" at the end differs");
      }
    }
    if (english.find("Scourwell") != english.npos && text.find("Scourwell") == text.npos) {
      Complain(number, "the program's name is lost");
    }
    if (number == NumberOf(Caption::PluralRule)) {
      if (FormsOfRule(text) == 0) Complain(number, "no rule of counting");
    } else if (Has(kPackCounted, number)) {
      CheckForms(number, text, english);
    } else {
      CheckPatterns(number, text, english);
      CheckLength(number, text, english);
    }
  }

  // A caption may have fewer forms than the rule of its pack, and each stands where the English
  // does.
  void CheckForms(int number, const std::string& text, std::string_view english) {
    const std::vector<std::string> forms = Split(text, '|');
    if (forms.size() > FormsOfRule(Text(NumberOf(Caption::PluralRule)))) {
      Complain(number, "more forms than the rule of the pack has");
    }
    for (const std::string& form : forms) {
      if (form.empty() || TrimBlanks(form) != form) Complain(number, "a form is not clean");
      CheckLength(number, form, english);
    }
  }

  // "Text (*.txt)|*.txt|": every second part stays as it is.
  void CheckPatterns(int number, const std::string& text, std::string_view english) {
    const std::vector<std::string> is = Split(text, '|');
    const std::vector<std::string> must = Split(english, '|');
    bool same = is.size() == must.size();
    for (std::size_t i = 0; same && i < is.size(); ++i) {
      same = i % 2 ? is[i] == must[i] : is[i].empty() == must[i].empty();
      if (same && i % 2) same = is[i - 1].find("(" + is[i] + ")") != std::string::npos;
    }
    if (!same && must.size() > 1) Complain(number, "other file patterns");
    if (!same && must.size() == 1) Complain(number, "a \"|\" too many");
  }

  void CheckLength(int number, const std::string& text, std::string_view english) {
    std::size_t most = 2 * english.size() + 12;
    for (const PackBudget& budget : kPackBudgets) {
      if (Has(budget.captions, number)) most = budget.most;
    }
    if (Columns(text) > most) {
      Complain(number, "longer than the " + std::to_string(most) + " columns that have room");
    }
  }

  // As a window shows it.
  std::string Text(int number) const {
    const auto found = texts_.find(number);
    return found == texts_.end() ? std::string(DefaultCaption(static_cast<Caption>(number)))
                                 : found->second;
  }

  void CheckGroup(const PackGroup& group) {
    AccessKeys keys;
    std::map<char32_t, int> owners;
    for (const int number : group.captions) {
      const char32_t key = KeyOf(keys.Add(Text(number)));
      const auto [owner, is_new] = owners.emplace(key, number);
      if (key == 0) {
        Complain(number, std::string("no letter is left for a key in: ") + group.name);
      } else if (!is_new) {
        Complain(number, std::string("its key is that of ") + std::to_string(owner->second) +
                             " in: " + group.name);
      }
    }
  }

  // What Metrics::ButtonWidth gives with the usual font, in tenths of a pixel. Some captions have
  // their key behind them.
  void CheckRow(const PackRow& row) {
    std::size_t width = 0;
    for (const int number : row.buttons) {
      width += std::max<std::size_t>(790, 60 * Columns(AccessKeys().Add(Text(number))) + 220) + 70;
    }
    const auto room = static_cast<std::size_t>(row.width) * 10;
    if (width - 70 > room) {
      Complain(std::string("the buttons have no room in: ") + row.name + ", " +
               std::to_string((width - 70) / 10) + " pixels");
    }
  }

  std::string file_;
  std::vector<std::string> lines_;
  std::string page_;
  Charset charset_;
  std::map<int, std::string> texts_;  // in UTF-8
  std::string faults_;
};

}  // namespace

std::string FaultsOfPack(const std::string& file, std::string_view content) {
  return PackCheck(file, content).faults();
}

}  // namespace scourwell::test
