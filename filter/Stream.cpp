#include "filter/Stream.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cassert>
#include <cerrno>
#include <cstring>

namespace Filter {
namespace {

// Reads and writes of this size keep up with cat; 4 KiB would cost a third.
constexpr std::size_t kBlock = 128 * 1024;
// Pieces from this size on are written as they stand; copying smaller ones together costs less
// than a call for each.
constexpr std::size_t kWorthWriting = 16 * 1024;
// A line or sequence that is longer is written although a barcode might still come before it: a
// job without line ends must not end up in memory whole.
constexpr std::size_t kLongestHold = 1024 * 1024;

// Whether the call is worth repeating: it was interrupted, or the other side isn't ready, for which
// this waits.
bool Again(int file, short events) {
  if (errno == EINTR) return true;
  if (errno != EAGAIN && errno != EWOULDBLOCK) return false;
  pollfd waiting{file, events, 0};
  return ::poll(&waiting, 1, -1) >= 0 || errno == EINTR;
}

}  // namespace

Stream::Stream() : input(STDIN_FILENO), bufferSize(kLookBack + kBlock) {
  buffer = std::make_unique_for_overwrite<char[]>(bufferSize);
  cursor = limit = historyBegin = kLookBack;
}

bool Stream::open(const std::string& path) {
  if (path.empty()) return true;
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return false;
  input = file;
  ended = false;
  return true;
}

void Stream::close() {
  if (input != STDIN_FILENO) ::close(input);
  input = STDIN_FILENO;
}

int Stream::get() {
  if (cursor == limit && !extend()) return kEndOfInput;
  const char byte = buffer[cursor];
  consume(1);
  return static_cast<unsigned char>(byte);
}

void Stream::unget(int byte) {
  if (byte == kEndOfInput) return;
  const char pushed = static_cast<char>(byte);
  ungetString({&pushed, 1});
}

void Stream::ungetString(std::string_view bytes) {
  settlePassed();
  if (cursor < bytes.size()) makeRoomInFront(bytes.size());
  cursor -= bytes.size();
  historyBegin = cursor;
  std::copy(bytes.begin(), bytes.end(), buffer.get() + cursor);
}

void Stream::putString(std::string_view bytes) {
  settlePassed();
  emit(bytes);
}

bool Stream::extend() {
  if (ended) return false;
  makeRoomBehind();
  ssize_t count;
  do {
    count = ::read(input, buffer.get() + limit, bufferSize - limit);
  } while (count < 0 && Again(input, POLLIN));
  if (count < 0) failedRead = errno;
  ended = count <= 0;
  if (ended) return false;
  limit += static_cast<std::size_t>(count);
  bytesRead += static_cast<std::size_t>(count);
  return true;
}

void Stream::forward(std::size_t count) {
  assert(count <= limit - cursor);
  if (cursor != passedEnd) {
    settlePassed();
    passedBegin = cursor;
  }
  cursor += count;
  passedEnd = cursor;
}

void Stream::consume(std::size_t count) {
  assert(count <= limit - cursor);
  cursor += count;
}

bool Stream::retract(std::size_t count) {
  if (passedEnd != cursor || count > passedEnd - passedBegin || holding) return false;
  cursor -= count;
  passedEnd = cursor;
  return true;
}

void Stream::beginHold() {
  endHold();
  holding = true;
}

void Stream::endHold() {
  putBeforeHeld({});
}

void Stream::putBeforeHeld(std::string_view bytes) {
  settlePassed();
  emitUnheld(bytes);
  emitUnheld(held);
  held.clear();
  holding = false;
}

void Stream::holdFrom(std::uint64_t place) {
  const std::uint64_t size = position() - place;
  if (holding || place > position() || passedEnd != cursor || size > passedEnd - passedBegin)
    return;
  const std::string_view passed(buffer.get() + passedBegin, passedEnd - passedBegin);
  const std::size_t front = passed.size() - static_cast<std::size_t>(size);
  emitUnheld(passed.substr(0, front));
  held = passed.substr(front);
  holding = true;
  passedBegin = passedEnd = 0;
}

void Stream::flush() {
  endHold();
  writeOutput();
}

// Moves bytes of the buffer, which has at least `size` bytes then. Builds with assertions take a
// new one every time.
void Stream::moveKept(std::size_t from, std::size_t kept, std::size_t to, std::size_t size) {
#ifdef NDEBUG
  if (size <= bufferSize) {
    std::memmove(buffer.get() + to, buffer.get() + from, kept);
    return;
  }
#endif
  bufferSize = std::max(size, bufferSize);
  auto moved = std::make_unique_for_overwrite<char[]>(bufferSize);
  std::memcpy(moved.get() + to, buffer.get() + from, kept);
  buffer = std::move(moved);
}

// Moves the unread bytes so that `count` bytes fit in front of them.
void Stream::makeRoomInFront(std::size_t count) {
  const std::size_t unread = limit - cursor;
  const std::size_t front = kLookBack + count;
  moveKept(cursor, unread, front, front + unread + kBlock);
  cursor = front;
  limit = front + unread;
}

// How much of what stands in front of the window stays in the buffer.
std::size_t Stream::bytesToKeep() const {
  const std::size_t lookBack = std::min(cursor - historyBegin, lookBackSize);
  if (passedEnd != cursor || keptPlace > position()) return lookBack;
  const std::uint64_t wanted = position() - keptPlace;
  if (wanted > passedEnd - passedBegin || wanted > kLongestHold) return lookBack;
  return std::max(lookBack, static_cast<std::size_t>(wanted));
}

// Makes room for a read of a useful size behind the window. The buffer doubles while what is kept
// fills half of it, so that a long string costs linear time even if it arrives in small pieces.
void Stream::makeRoomBehind() {
#ifdef NDEBUG
  if (bufferSize - limit >= kBlock / 2) return;
#endif
  const std::size_t keep = bytesToKeep();
  settlePassed(passedEnd == cursor ? keep : 0);
  const std::size_t kept = keep + limit - cursor;
  std::size_t size = bufferSize;
  while (kept > size / 2) size *= 2;
  moveKept(cursor - keep, kept, 0, size);
  if (passedBegin != passedEnd) {
    passedBegin -= cursor - keep;
    passedEnd = keep;
  }
  historyBegin = 0;
  cursor = keep;
  limit = kept;
}

// Writes what was passed, but for its last `keep` bytes.
void Stream::settlePassed(std::size_t keep) {
  const std::size_t size = passedEnd - passedBegin;
  if (size <= keep) return;
  const std::string_view passed(buffer.get() + passedBegin, size - keep);
  passedBegin += passed.size();
  if (keep == 0) passedBegin = passedEnd = 0;
  emit(passed);
}

void Stream::emit(std::string_view bytes) {
  if (!holding) return emitUnheld(bytes);
  held += bytes;
  if (held.size() <= kLongestHold) return;
  emitUnheld(held);
  held.clear();
}

void Stream::emitUnheld(std::string_view bytes) {
  if (bytes.size() >= kWorthWriting || output.size() + bytes.size() > kBlock) writeOutput();
  if (bytes.size() >= kWorthWriting) {
    writeAll(bytes);
  } else {
    output += bytes;
  }
}

void Stream::writeOutput() {
  writeAll(output);
  output.clear();
}

void Stream::writeAll(std::string_view bytes) {
  while (!bytes.empty() && failedWrite == 0) {
    const ssize_t written = ::write(STDOUT_FILENO, bytes.data(), bytes.size());
    if (written >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(written));
    } else if (!Again(STDOUT_FILENO, POLLOUT)) {
      failedWrite = errno;
      ended = true;
    }
  }
}

}  // namespace Filter
