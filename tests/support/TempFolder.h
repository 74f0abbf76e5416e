// A folder of a test's own, removed with everything in it at the end of its life.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace Support {

class TempFolder {
 public:
  TempFolder();
  ~TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::filesystem::path& path() const { return folder; }
  // The full name of a file in the folder; the file need not exist.
  std::string file(std::string_view name) const { return (folder / name).string(); }
  // Writes a file and returns its full name.
  std::string write(std::string_view name, std::string_view bytes) const;

 private:
  std::filesystem::path folder;
};

// The bytes of a file; empty when it can't be read.
std::string ReadFile(const std::string& name);

}  // namespace Support
