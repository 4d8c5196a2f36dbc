// SPDX-License-Identifier: MIT
#include "refc/disk.h"

#include <dirent.h>

#include <algorithm>
#include <cstdio>

namespace scourwell::refc {
namespace {

constexpr long kLargest = 256l << 20;

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

struct CloseFolder {
  void operator()(DIR* folder) const { closedir(folder); }
};
using Folder = std::unique_ptr<DIR, CloseFolder>;

class RealNewFile : public Disk::NewFile {
 public:
  explicit RealNewFile(std::string path)
      : path_(std::move(path)), beside_(path_ + ".new"), file_(std::fopen(beside_.c_str(), "wb")) {
    good_ = file_ != nullptr;
  }
  ~RealNewFile() override {
    if (!file_) return;
    file_.reset();
    std::remove(beside_.c_str());
  }
  void Append(std::string_view text) override {
    good_ = good_ && std::fwrite(text.data(), 1, text.size(), file_.get()) == text.size();
  }
  bool Commit() override {
    if (!good_ || std::fflush(file_.get()) != 0) return false;
    if (std::fclose(file_.release()) != 0) good_ = false;
    if (good_ && Replace()) return true;
    std::remove(beside_.c_str());
    return false;
  }

 private:
#ifdef _WIN32
  // A rename does not replace there: the old file steps aside, and back if need be.
  bool Replace() {
    const std::string aside = path_ + ".old";
    const bool stepped = std::rename(path_.c_str(), aside.c_str()) == 0;
    if (std::rename(beside_.c_str(), path_.c_str()) == 0) {
      if (stepped) std::remove(aside.c_str());
      return true;
    }
    if (stepped) std::rename(aside.c_str(), path_.c_str());
    return false;
  }
#else
  bool Replace() { return std::rename(beside_.c_str(), path_.c_str()) == 0; }
#endif

  std::string path_;
  std::string beside_;
  File file_;
  bool good_;
};

class RealDisk : public Disk {
 public:
  bool IsFolder(const std::string& path) override {
    return Folder(opendir(path.c_str())) != nullptr;
  }
  std::vector<std::string> List(const std::string& folder) override {
    std::vector<std::string> names;
    const Folder open(opendir(folder.c_str()));
    if (!open) return names;
    while (const dirent* entry = readdir(open.get())) names.push_back(entry->d_name);
    std::sort(names.begin(), names.end());
    return names;
  }
  std::optional<std::string> Read(const std::string& path) override {
    if (IsFolder(path)) return std::nullopt;
    const File file(std::fopen(path.c_str(), "rb"));
    if (!file || std::fseek(file.get(), 0, SEEK_END) != 0) return std::nullopt;
    const long size = std::ftell(file.get());
    if (size < 0 || size > kLargest || std::fseek(file.get(), 0, SEEK_SET) != 0) {
      return std::nullopt;
    }
    std::string content(static_cast<std::size_t>(size), '\0');
    if (std::fread(content.data(), 1, content.size(), file.get()) != content.size()) {
      return std::nullopt;
    }
    return content;
  }
  std::unique_ptr<NewFile> Create(const std::string& path) override {
    return std::make_unique<RealNewFile>(path);
  }
};

}  // namespace

std::unique_ptr<Disk> MakeDisk() { return std::make_unique<RealDisk>(); }

}  // namespace scourwell::refc
