/* The library from plain C: the header compiles, and a barcode is made from beginning to end. */
#include "engine/library/vextorin9.h"

#include <stddef.h>
#include <string.h>

/* Makes an EAN-13 as PostScript into the buffer. The bytes written, 0 on any failure. */
uint32_t MakeEan13InC(char* buffer, uint32_t capacity) {
  const BCRect rectangle = {10000, 40000, 60000, 20000};
  const char* data = "400638133393";
  double width = 0, height = 0;
  BCBarcode* barcode = NULL;
  BCResult code = BCAlloc(&barcode);
  if (code == BC_OK) code = BCSetBCType(barcode, 13);
  if (code == BC_OK) code = BCSetTextA(barcode, data, (int)strlen(data));
  if (code == BC_OK) code = BCCreate(barcode);
  if (code == BC_OK) code = BCGetBarcodeSize(barcode, &rectangle, NULL, 2, &width, &height);
  if (code == BC_OK && (width != 50 || height != 20)) code = BC_E_MUSTFIT;
  if (code == BC_OK) code = BCPostscriptToMemoryExt(barcode, buffer, &capacity, &rectangle, 1);
  BCFree(barcode);
  return code == BC_OK ? capacity : 0;
}
