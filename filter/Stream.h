// The byte stream through which the filter reads a print job and writes the filtered job.
//
// Single bytes and strings can be read, pushed back and written; beside that the stream works in
// whole runs. Unread bytes stand in one window, [cursor, limit) of the input buffer, which grows at
// the end by reading and at the front by push-back. A run that is forwarded is not copied: it is
// remembered as [passedBegin, passedEnd) of the same buffer and written when something else must
// go out or the buffer is needed again.
//
//     | room for push-back | passed, not written | unread window | room for reading |
//                          passedBegin   passedEnd = cursor       limit
//
// While holding is on, output gathers in `held`, so that a barcode can still be put in front of it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Filter {

class Stream {
 public:
  static constexpr int kEndOfInput = -1;

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

  // The unread bytes at hand, at least one unless the input has ended. The view lives until the
  // next operation other than forward and consume.
  std::string_view window() { return peek(1); }
  // The window with at least `count` bytes, fewer only at the end of the input.
  std::string_view peek(std::size_t count) {
    while (limit - cursor < count && extend()) continue;
    return {buffer.data() + cursor, limit - cursor};
  }
  // Reads more behind the window, which keeps its bytes. False at the end of the input.
  bool extend();
  // Writes, or drops, the window's first bytes. REQUIRES: count <= size of the window.
  void forward(std::size_t count);
  void consume(std::size_t count) { cursor += count; }

  // Holding. What is held goes out before a new hold begins; a hold that exceeds its limit is
  // written and goes on empty.
  void beginHold();
  void endHold();
  bool isHolding() const { return holding; }
  // Writes the bytes, then what is held, and stops holding.
  void putBeforeHeld(std::string_view bytes);
  // Writes everything and stops holding.
  void flush();

 private:
  void makeRoomInFront(std::size_t count);
  void makeRoomBehind();
  void settlePassed();
  void emit(std::string_view bytes);
  void emitUnheld(std::string_view bytes);
  void writeOutput();

  int input;
  bool ended = false;  // the input reported its end; standard input is not asked again
  std::vector<char> buffer;
  std::size_t cursor = 0, limit = 0;
  std::size_t passedBegin = 0, passedEnd = 0;
  std::string output;  // written when it has grown to a block
  std::string held;
  bool holding = false;
};

}  // namespace Filter
