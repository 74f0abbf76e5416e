// Preloaded into the program: where it asks for PCL, the real library draws an EPS instead. No free
// PCL interpreter is at hand, so this is how a barcode in a PCL job is seen and read.
#include "engine/library/vextorin9.h"

BCResult BCPCLToMemoryExt(BCBarcode* b, char* buffer, uint32_t* size, const BCRect* rect, int) {
  return BCPostscriptToMemoryExt(b, buffer, size, rect, 1);
}
