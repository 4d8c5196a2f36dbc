// SPDX-License-Identifier: MIT
#include "refc/dump.h"

#include "refc/escape.h"
#include "refc/lines.h"
#include "refc/reference_reader.h"
#include "text/ini_text.h"

namespace scourwell::refc {
namespace {

// Texts are written in pieces, as odd bytes take many times their room.
void PutEscaped(std::string_view text, const Put& put) {
  constexpr std::size_t kPiece = 4096;
  for (std::size_t at = 0; at < text.size(); at += kPiece) put(Escaped(text.substr(at, kPiece)));
}

void PutLine(const IniLine& line, std::string_view text, const Put& put) {
  switch (line.kind) {
    case IniLine::Kind::Header:
      put("[");
      PutEscaped(line.name, put);
      put("]\n");
      return;
    case IniLine::Kind::Key:
      PutEscaped(line.name, put);
      put("=");
      WriteDescrambled(line.value, put);
      put("\n");
      return;
    case IniLine::Kind::Other:
      break;
  }
  if (text.empty()) return;
  put("; the line: ");
  PutEscaped(text, put);
  put("\n");
}

}  // namespace

void DumpReference(const std::string& content, const Put& put) {
  Findings findings;
  {
    DefinitionSet set;
    ReadReference("", content, &set, &findings);
  }
  const std::vector<Finding>& remarks = findings.Sorted();
  auto remark = remarks.begin();
  const auto put_remarks = [&](std::uint32_t line) {
    for (; remark != remarks.end() && remark->place.line <= line; ++remark) {
      put("; " + std::string(remark->rule) + ": " + remark->reason + "\n");
    }
  };
  put_remarks(0);
  for (Lines lines(content); lines.Next();) {
    put_remarks(lines.number());
    PutLine(ReadIniLine(lines.text()), lines.text(), put);
  }
  if (findings.count() > remarks.size()) {
    put("; " + std::to_string(findings.count() - remarks.size()) + " more remarks are left out\n");
  }
}

}  // namespace scourwell::refc
