#include "filter/Stream.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cassert>
#include <cerrno>
#include <cstring>

namespace Filter {
namespace {

// Reads and writes of this size keep up with cat; 4 KiB would cost a third.
constexpr std::size_t kBlock = 128 * 1024;
// Room in front of a freshly read block, so that the usual push-backs need no move.
constexpr std::size_t kFrontRoom = 4 * 1024;
// A line or sequence that is longer is written although a barcode might still come before it: a
// job without line ends must not end up in memory whole.
constexpr std::size_t kLongestHold = 64 * 1024 * 1024;

// Writes everything, or gives up silently: errors of standard output are the spooler's to see.
void WriteAll(const char* data, std::size_t size) {
  while (size > 0) {
    const ssize_t written = ::write(STDOUT_FILENO, data, size);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return;
    data += written;
    size -= static_cast<std::size_t>(written);
  }
}

}  // namespace

Stream::Stream() : input(STDIN_FILENO), buffer(kFrontRoom + kBlock) {
  cursor = limit = kFrontRoom;
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
  return static_cast<unsigned char>(buffer[cursor++]);
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
  std::copy(bytes.begin(), bytes.end(), buffer.begin() + static_cast<std::ptrdiff_t>(cursor));
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
    count = ::read(input, buffer.data() + limit, buffer.size() - limit);
  } while (count < 0 && errno == EINTR);
  ended = count <= 0;
  if (!ended) limit += static_cast<std::size_t>(count);
  return !ended;
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

void Stream::flush() {
  endHold();
  writeOutput();
}

// Moves the unread bytes so that `count` bytes fit in front of them.
void Stream::makeRoomInFront(std::size_t count) {
  const std::size_t unread = limit - cursor;
  const std::size_t front = kFrontRoom + count;
  if (buffer.size() < front + unread) buffer.resize(front + unread + kBlock);
  std::memmove(buffer.data() + front, buffer.data() + cursor, unread);
  cursor = front;
  limit = front + unread;
}

// Makes room for a read of a useful size behind the window. The buffer doubles while the window
// fills half of it, so that a long string costs linear time even if it arrives in small pieces.
void Stream::makeRoomBehind() {
  if (buffer.size() - limit >= kBlock / 2) return;
  settlePassed();
  const std::size_t unread = limit - cursor;
  if (unread > buffer.size() / 2) buffer.resize(buffer.size() * 2);
  std::memmove(buffer.data() + kFrontRoom, buffer.data() + cursor, unread);
  cursor = kFrontRoom;
  limit = kFrontRoom + unread;
}

void Stream::settlePassed() {
  if (passedBegin == passedEnd) return;
  const std::string_view passed(buffer.data() + passedBegin, passedEnd - passedBegin);
  passedBegin = passedEnd = 0;
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
  if (output.size() + bytes.size() < kBlock) {
    output += bytes;
    return;
  }
  writeOutput();
  if (bytes.size() >= kBlock / 2) {
    WriteAll(bytes.data(), bytes.size());
  } else {
    output += bytes;
  }
}

void Stream::writeOutput() {
  WriteAll(output.data(), output.size());
  output.clear();
}

}  // namespace Filter
