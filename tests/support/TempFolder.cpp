#include "tests/support/TempFolder.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace Support {

TempFolder::TempFolder() {
  std::string name = (std::filesystem::temp_directory_path() / "vextorin-test-XXXXXX").string();
  if (!mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
  folder = name;
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(folder, ignored);
}

std::string TempFolder::write(std::string_view name, std::string_view bytes) const {
  const std::string full = file(name);
  std::ofstream(full, std::ios::binary).write(bytes.data(), static_cast<long>(bytes.size()));
  return full;
}

std::string ReadFile(const std::string& name) {
  std::ifstream file(name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace Support
