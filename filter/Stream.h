// The byte stream through which the filter reads a print job and writes the filtered job.
//
// Single bytes and strings can be read, pushed back and written; beside that the stream works in
// whole runs. Unread bytes stand in one window, [cursor, limit) of the input buffer, which grows at
// the end by reading and at the front by push-back. A run that is forwarded is not copied: it is
// remembered as [passedBegin, passedEnd) of the same buffer and written when something else must
// go out or the buffer is needed again. A little of it always waits, so that a barcode can be put
// in front of what was passed just now.
//
//     | room for push-back | history          | unread window | room for reading |
//                               | passed, not written |
//                               passedBegin    passedEnd = cursor         limit
//
// While holding is on, output gathers in `held`, and a barcode can be put in front of that.
//
// A view of the window lives until the next operation that reads or puts; whatever is kept longer
// is an offset from the cursor. Builds with assertions move the window at every read, so that a
// sanitizer meets a view that was kept too long.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace Filter {

class Stream {
 public:
  static constexpr int kEndOfInput = -1;
  // The most of what was passed that can be taken back, unless something was put behind it.
  static constexpr std::size_t kLookBack = 16 * 1024;

  Stream();
  virtual ~Stream() = default;  // leaves an open input file to the end of the process
  Stream(const Stream&) = delete;
  Stream& operator=(const Stream&) = delete;

  // Opens the named file for reading; an empty path leaves standard input. False on failure.
  bool open(const std::string& path);
  void close();

  // Byte operations. A byte is 0..255; get yields kEndOfInput at the end.
  int get();
  void unget(int byte);  // unless it is kEndOfInput, it is read next
  void ungetString(std::string_view bytes);
  void put(char byte) { putString({&byte, 1}); }
  void putString(std::string_view bytes);

  // The unread bytes at hand, at least one unless the input has ended.
  std::string_view window() { return peek(1); }
  // The window with at least `count` bytes, fewer only at the end of the input.
  std::string_view peek(std::size_t count) {
    while (limit - cursor < count && extend()) continue;
    return {buffer.get() + cursor, limit - cursor};
  }
  // Reads more behind the window, which keeps its bytes. False at the end of the input.
  bool extend();
  bool inputEnded() const { return ended; }
  // Writes, or drops, the window's first bytes. REQUIRES: count <= size of the window.
  void forward(std::size_t count);
  void consume(std::size_t count);

  // So many bytes of the job in front of the window stay at hand. REQUIRES: at most kLookBack
  void setLookBack(std::size_t size) { lookBackSize = size; }
  // The bytes of the job in front of the window, as far as they are at hand.
  std::string_view history() const { return {buffer.get() + historyBegin, cursor - historyBegin}; }
  // Up to `most` bytes of the job in front of an offset in the window, as far as they are at hand.
  std::string_view before(std::size_t offset, std::size_t most) const {
    const std::size_t size = std::min(most, cursor + offset - historyBegin);
    return {buffer.get() + cursor + offset - size, size};
  }
  // Takes passed bytes back into the window. False when they have been written already.
  bool retract(std::size_t count);
  // The place of the window's first byte in the job, from 0.
  std::uint64_t position() const { return bytesRead - (limit - cursor); }

  // Holding. What is held goes out before a new hold begins; a hold that exceeds its limit is
  // written and goes on empty.
  void beginHold();
  void endHold();
  bool isHolding() const { return holding; }
  // Writes the bytes, then what is held, and stops holding.
  void putBeforeHeld(std::string_view bytes);
  // From this place in the job on, what is passed stays back as long as that is bounded, for
  // holdFrom.
  void keepFrom(std::uint64_t place) { keptPlace = place; }
  // Holds what was passed since that place; nothing when something else was put behind it.
  void holdFrom(std::uint64_t place);
  // Writes everything and stops holding.
  void flush();

  // errno of the first read or write that failed, else 0. After a failed write the input counts as
  // ended, and nothing is written any more.
  int readError() const { return failedRead; }
  int writeError() const { return failedWrite; }

 private:
  void moveKept(std::size_t from, std::size_t kept, std::size_t to, std::size_t size);
  void makeRoomInFront(std::size_t count);
  void makeRoomBehind();
  std::size_t bytesToKeep() const;
  void settlePassed(std::size_t keep = 0);
  void emit(std::string_view bytes);
  void emitUnheld(std::string_view bytes);
  void writeOutput();
  void writeAll(std::string_view bytes);

  int input;
  bool ended = false;  // the input reported its end; standard input is not asked again
  int failedRead = 0;
  int failedWrite = 0;
  std::unique_ptr<char[]> buffer;  // not cleared: a page that nothing was read into costs nothing
  std::size_t bufferSize;
  std::size_t cursor = 0, limit = 0;
  std::size_t passedBegin = 0, passedEnd = 0;
  std::size_t historyBegin = 0;
  std::uint64_t bytesRead = 0;
  std::string output;  // small pieces, written together
  std::string held;
  bool holding = false;
  std::size_t lookBackSize = 0;
  std::uint64_t keptPlace = UINT64_MAX;
};

}  // namespace Filter
