// The process-wide session: a flag. It guards against calls out of order and owns nothing.
#include "library/api/Barcode.h"

#include <atomic>

namespace {
std::atomic<bool> sessionOpen = false;
}

bool Library::IsSessionOpen() {
  return sessionOpen;
}

BCResult BCInitLibraryA(const char* text) {
  if (!text) return BC_E_INVALIDARG;
  return sessionOpen.exchange(true) ? BC_E_INVALIDARG : BC_OK;
}

BCResult BCDeInitLibrary(void) {
  return sessionOpen.exchange(false) ? BC_OK : BC_E_INVALIDARG;
}
