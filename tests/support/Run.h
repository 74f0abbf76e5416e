// Runs a program as a child, without a shell, and collects what it writes.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace Support {

using Environment = std::vector<std::pair<std::string, std::string>>;

struct Command {
  std::vector<std::string> arguments;  // the program's name or path first
  Environment environment{};           // added to this process's own
  std::string input{};                 // standard input
  // Bytes a read of standard input gets at most; 0: as the pipe gives them.
  std::size_t inputChunk = 0;
  // The child's input and output don't block, and are served with pauses.
  bool slow = false;
  std::string folder{};  // working directory; empty: this process's own
  std::chrono::seconds limit{60};
};

struct Finished {
  int status = -1;  // exit status; the negative signal number when a signal ended the child
  std::string output;
  std::string errors;
};

// A child that runs over the limit is killed and so has the status -SIGKILL.
Finished Run(const Command& command);

}  // namespace Support
