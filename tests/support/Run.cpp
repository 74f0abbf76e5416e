#include "tests/support/Run.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <stdexcept>
#include <string_view>
#include <thread>
#include <utility>

extern char** environ;

namespace Support {
namespace {

using Clock = std::chrono::steady_clock;

class Descriptor {
 public:
  explicit Descriptor(int number = -1) : value(number) {}
  Descriptor(Descriptor&& other) noexcept : value(std::exchange(other.value, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(value, other.value);
    return *this;
  }
  ~Descriptor() { close(); }
  void close() {
    if (value >= 0) ::close(std::exchange(value, -1));
  }
  int get() const { return value; }

 private:
  int value;
};

// The child's end and ours of one standard stream.
struct Channel {
  Descriptor theirs, ours;
};

Channel MakeChannel(int theirEnd, bool packets) {
  std::array<int, 2> ends{};
  const int result = packets ? socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data())
                             : pipe2(ends.data(), O_CLOEXEC);
  if (result != 0) throw std::runtime_error("no pipe");
  Channel channel{Descriptor(ends[theirEnd == 0 ? 0 : 1]), Descriptor(ends[theirEnd == 0 ? 1 : 0])};
  fcntl(channel.ours.get(), F_SETFL, O_NONBLOCK);
  return channel;
}

std::vector<char*> Pointers(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

std::vector<std::string> ChildEnvironment(const Environment& added) {
  std::vector<std::string> texts;
  for (char** entry = environ; *entry; ++entry) {
    const std::string_view text = *entry;
    const auto isReplaced = [&](const auto& pair) { return text.starts_with(pair.first + '='); };
    if (std::find_if(added.begin(), added.end(), isReplaced) == added.end()) {
      texts.emplace_back(text);
    }
  }
  for (const auto& [name, value] : added) texts.push_back(name + '=' + value);
  return texts;
}

pid_t Spawn(const Command& command, const std::array<int, 3>& streams) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  for (int stream = 0; stream < 3; ++stream) {
    posix_spawn_file_actions_adddup2(&actions, streams[static_cast<std::size_t>(stream)], stream);
  }
  if (!command.folder.empty()) {
    posix_spawn_file_actions_addchdir_np(&actions, command.folder.c_str());
  }
  std::vector<std::string> arguments = command.arguments;
  std::vector<std::string> environment = ChildEnvironment(command.environment);
  pid_t child = -1;
  const int error = posix_spawnp(&child, arguments[0].c_str(), &actions, nullptr,
                                 Pointers(arguments).data(), Pointers(environment).data());
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) throw std::runtime_error("can't run " + arguments[0]);
  return child;
}

// Reads what is there; closes the descriptor at the end of the stream.
void Collect(Descriptor& from, std::string& into) {
  std::array<char, 65536> block;
  const ssize_t count = read(from.get(), block.data(), block.size());
  if (count > 0) into.append(block.data(), static_cast<std::size_t>(count));
  if (count == 0) from.close();
}

// Writes the next piece of the input; closes the descriptor after the last one.
void Feed(Descriptor& to, std::string_view& rest, std::size_t chunk) {
  const std::string_view piece = rest.substr(0, chunk == 0 ? rest.size() : chunk);
  const ssize_t count = piece.empty() ? 0 : write(to.get(), piece.data(), piece.size());
  if (count > 0) rest.remove_prefix(static_cast<std::size_t>(count));
  if (rest.empty() || (count < 0 && errno != EAGAIN)) to.close();
}

// Serves the child's streams until it has closed them; false when the time is over.
bool Serve(const Command& command, Descriptor& input, Descriptor& output, Descriptor& errors,
           Finished& finished) {
  std::string_view rest = command.input;
  if (rest.empty()) input.close();
  const Clock::time_point end = Clock::now() + command.limit;
  while (output.get() >= 0 || errors.get() >= 0) {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now());
    std::array<pollfd, 3> polls{
        {{input.get(), POLLOUT, 0}, {output.get(), POLLIN, 0}, {errors.get(), POLLIN, 0}}};
    if (left.count() <= 0 ||
        poll(polls.data(), polls.size(), static_cast<int>(left.count())) == 0) {
      return false;
    }
    if (command.slow) std::this_thread::sleep_for(std::chrono::milliseconds(10));
    if (polls[0].revents) Feed(input, rest, command.inputChunk);
    if (polls[1].revents) Collect(output, finished.output);
    if (polls[2].revents) Collect(errors, finished.errors);
  }
  return true;
}

int Wait(pid_t child) {
  int status = 0;
  while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

}  // namespace

Finished Run(const Command& command) {
  // A child that ends before it has read its input must not end the tests.
  signal(SIGPIPE, SIG_IGN);
  Channel input = MakeChannel(0, command.inputChunk > 0);
  Channel output = MakeChannel(1, false);
  Channel errors = MakeChannel(1, false);
  if (command.slow) {
    fcntl(input.theirs.get(), F_SETFL, O_NONBLOCK);
    fcntl(output.theirs.get(), F_SETFL, O_NONBLOCK);
  }
  const pid_t child =
      Spawn(command, {input.theirs.get(), output.theirs.get(), errors.theirs.get()});
  input.theirs.close();
  output.theirs.close();
  errors.theirs.close();
  Finished finished;
  if (!Serve(command, input.ours, output.ours, errors.ours, finished)) kill(child, SIGKILL);
  input.ours.close();
  finished.status = Wait(child);
  return finished;
}

}  // namespace Support
