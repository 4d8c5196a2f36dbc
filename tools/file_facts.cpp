// SPDX-License-Identifier: MIT
#include "tools/file_facts.h"

#include "machine/version_resource.h"
#include "text/text.h"

namespace scourwell {

FileFacts FactFinder::OfCommand(std::string_view command) const {
  FileFacts facts;
  ProgramOf program = FindProgram(command, files_, folders_, system_);
  facts.path = std::move(program.path);
  facts.exists = program.exists;
  facts.remote = program.remote;
  facts.spy = spies_.OfFile(facts.path);
  std::string block;
  if (!facts.exists || !versions_.ReadBlock(facts.path, &block).ok()) return facts;
  facts.company = VersionResource(block, versions_).Text(kCompanyName).value_or("");
  return facts;
}

FileFacts FactFinder::OfFile(const std::string& path) const {
  const std::string_view trimmed = TrimBlanks(path);
  if (trimmed.empty() || trimmed.starts_with('"')) return OfCommand(trimmed);
  return OfCommand("\"" + std::string(trimmed) + "\"");
}

}  // namespace scourwell
