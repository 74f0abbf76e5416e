// The result codes that travel upward through the program (32 bits, HRESULT form). Codes that come
// from the barcode library are passed up unchanged; only the entry point turns codes into exit
// statuses.
#pragma once

#include <cstdint>

namespace Diag {

using ResultCode = std::uint32_t;

inline constexpr ResultCode kSuccess = 0;
inline constexpr ResultCode kOutOfMemory = 0x8007000E;
// Also any file that can't be opened or written.
inline constexpr ResultCode kAccessDenied = 0x80070005;
// The print job couldn't be read, or the filtered one not written. Not kAccessDenied, which a
// sequence gives that names a file: the job goes on then.
inline constexpr ResultCode kJobStreamFailed = 0x8007001D;
// Unknown option, rejected value, wrong filter arguments, input file not found.
inline constexpr ResultCode kInvalidArgument = 0x80070057;
// Help, usage or version text was shown; the process ends with exit status 0.
inline constexpr ResultCode kHelpShown = 0x81000200;
// An option source is exhausted, an option lacks its argument, the job is empty, or a barcode has
// no data.
inline constexpr ResultCode kNothingLeft = 0x81000201;
// The begin of an escape or control sequence without a valid end.
inline constexpr ResultCode kUnclosedSequence = 0x8100000D;

}  // namespace Diag
