// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace scourwell::test {

// A folder of this machine that goes with the test.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    path_ = (std::filesystem::temp_directory_path() / "scourwell-XXXXXX").string();
    if (!mkdtemp(path_.data())) std::abort();
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  const std::string& path() const { return path_; }
  // Makes the folders on the way.
  std::string Put(const std::string& name, const std::string& content = {}) const {
    const std::filesystem::path file = path_ + "/" + name;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << content;
    return file.string();
  }
  void MakeFolder(const std::string& name) const {
    std::filesystem::create_directories(path_ + "/" + name);
  }
  std::string Content(const std::string& name) const {
    std::ifstream file(path_ + "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  bool Has(const std::string& name) const {
    return std::filesystem::exists(std::filesystem::symlink_status(path_ + "/" + name));
  }

 private:
  std::string path_;
};

}  // namespace scourwell::test
