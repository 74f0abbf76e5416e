#include "engine/SymbologySetters.h"

#include "engine/Setter.h"
#include "settings/TypeFamilies.h"

#include <span>

namespace Engine {

using Diag::ResultCode;
using S = Settings::BarcodeSettings;

namespace {

// "auto" leaves the ratio to the library.
bool IsRatio(const S& settings) {
  return !settings.PDFratio.empty() && settings.PDFratio != "auto";
}

bool IsCarrierMessage(const S& settings) {
  return settings.MCserviceGiven || settings.MCcountryGiven || settings.MCpostalGiven;
}

bool IsAztecAppend(const S& settings) {
  return settings.ACappend == 1;
}

template <auto Function>
BCResult SwitchOn(S&, BCBarcode* handle) {
  return Function(handle, 1);
}

BCResult PassPreamble(S& settings, BCBarcode* handle) {
  return BCSet_Maxi_UsePreambleA(handle, 1, settings.MCpre.c_str());
}

// clang-format off
constexpr Setter kPdf417Setters[] = {
    {IsNotMinusOne<&S::PDFrows>,      Pass<BCSet_PDF417_Rows, &S::PDFrows>,
     "Couldn't set number of rows for PDF417."},
    {IsNotMinusOne<&S::PDFcols>,      Pass<BCSet_PDF417_Columns, &S::PDFcols>,
     "Couldn't set number of columns for PDF417."},
    {IsNotMinusOne<&S::PDFrowheight>, Pass<BCSet_PDF417_RowHeight, &S::PDFrowheight>,
     "Couldn't set row height for PDF417."},
    {IsNotMinusOne<&S::PDFecl>,       Pass<BCSet_PDF417_ECLevel, &S::PDFecl>,
     "Couldn't set error correction level for PDF417."},
    {Always,                          Pass<BCSet_PDF417_EncodingMode, &S::PDFmode>,
     "Couldn't set mode for PDF417."},
    {IsRatio,                         Pass<BCSet_PDF417_RowColRatioA, &S::PDFratio>,
     "Couldn't set row-column-ratio for PDF417."},
    {Always,                          Pass<BCSet_MPDF417_Version, &S::MPDFversion>,
     "Couldn't set version for Micro PDF417."},
    {Always,                          Pass<BCSet_MPDF417_Mode, &S::MPDFmode>,
     "Couldn't set mode for Micro PDF417."},
    {IsNotMinusOne<&S::PDFindex>,     Pass<BCSet_PDF417_SegIndex, &S::PDFindex>,
     "Couldn't set segment index for PDF417."},
    {IsNotMinusOne<&S::PDFcount>,     Pass<BCSet_PDF417_SegCount, &S::PDFcount>,
     "Couldn't set segment count for PDF417."},
    {IsNotMinusOne<&S::PDFtime>,      Pass<BCSet_PDF417_TimeStamp, &S::PDFtime>,
     "Couldn't set timestamp for PDF417."},
    {IsNotMinusOne<&S::PDFsize>,      Pass<BCSet_PDF417_FileSize, &S::PDFsize>,
     "Couldn't set filesize for PDF417."},
    {IsNotMinusOne<&S::PDFchecksum>,  Pass<BCSet_PDF417_CheckSum, &S::PDFchecksum>,
     "Couldn't set checksum for PDF417."},
    {IsNotMinusOne<&S::PDFlast>,      PassSwitch<BCSet_PDF417_SegLast, &S::PDFlast>,
     "Couldn't set last segment for PDF417."},
    {IsNotEmpty<&S::PDFid>,           Pass<BCSet_PDF417_FileIDA, &S::PDFid>,
     "Couldn't set file id for PDF417."},
    {IsNotEmpty<&S::PDFfile>,         Pass<BCSet_PDF417_FileNameA, &S::PDFfile>,
     "Couldn't set filename for PDF417."},
    {IsNotEmpty<&S::PDFsender>,       Pass<BCSet_PDF417_SenderA, &S::PDFsender>,
     "Couldn't set sender for PDF417."},
    {IsNotEmpty<&S::PDFaddr>,         Pass<BCSet_PDF417_AddresseeA, &S::PDFaddr>,
     "Couldn't set addressee for PDF417."},
};

constexpr Setter kQrCodeSetters[] = {
    {Always,             Pass<BCSet_QR_Version, &S::QRversion>,
     "Couldn't set version for QRCode."},
    {Always,             Pass<BCSet_QR_Format, &S::QRformat>,
     "Couldn't set format for QRCode."},
    {IsNotEmpty<&S::QRind>, Pass<BCSet_QR_FmtAppIndicatorA, &S::QRind>,
     "Couldn't set format application indicator for QRCode."},
    {Always,             Pass<BCSet_QR_ECLevel, &S::QRecl>,
     "Couldn't set error correction level for QRCode."},
    {Always,             Pass<BCSet_QR_Mask, &S::QRmask>,
     "Couldn't set mask pattern for QRCode."},
    {IsNotMinusOne<&S::QRsum, &S::QRindex>,
     Pass<BCSet_QR_Append, &S::QRsum, &S::QRindex, &S::QRparity>,
     "Couldn't set structured append options for QRCode."},
};

constexpr Setter kDataMatrixSetters[] = {
    {Always,                      Pass<BCSet_DM_Size, &S::DMsize>,
     "Couldn't set size for DATAMATRIX."},
    {Always,                      Pass<BCSet_DM_Format, &S::DMformat>,
     "Couldn't set format for DATAMATRIX."},
    {IsNotMinusOne<&S::DMbinary>, PassSwitch<BCSet_DM_EnforceBinaryEncoding, &S::DMbinary>,
     "Couldn't set 'enforce binary mode' for DATAMATRIX."},
    {IsNotMinusOne<&S::DMrect>,   PassSwitch<BCSet_DM_Rectangular, &S::DMrect>,
     "Couldn't set 'show as rectangle' for DATAMATRIX."},
    {IsNotMinusOne<&S::DMsum, &S::DMindex, &S::DMfile>,
     Pass<BCSet_DM_Append, &S::DMsum, &S::DMindex, &S::DMfile>,
     "Couldn't set structured append options for DATAMATRIX."},
};

constexpr Setter kAztecSetters[] = {
    {Always,                      Pass<BCSet_Aztec_Size, &S::ACsize>,
     "Couldn't set size for Aztec Code."},
    {IsNotMinusOne<&S::ACbinary>, PassSwitch<BCSet_Aztec_EnforceBinaryEncoding, &S::ACbinary>,
     "Couldn't set 'enforce binary mode' for Aztec Code."},
    {IsNotMinusOne<&S::ACrunes>,  PassSwitch<BCSet_Aztec_RuneMode, &S::ACrunes>,
     "Couldn't set 'use rune mode' for Aztec Code."},
    {Always,                      Pass<BCSet_Aztec_FormatA, &S::ACformat, &S::ACspec>,
     "Couldn't set format for Aztec Code."},
    {Always,                      Pass<BCSet_Aztec_ErrorCorrection, &S::ACecl>,
     "Couldn't set error correction level for Aztec Code."},
    {IsAztecAppend,               SwitchOn<BCSet_Aztec_AppendActive>,
     "Couldn't set structured append options for Aztec Code."},
    {IsAztecAppend,
     Pass<BCSet_Aztec_AppendDataA, &S::ACsum, &S::ACindex, &S::ACmessage>,
     "Couldn't set structured append options for Aztec Code."},
};

constexpr Setter kMaxiCodeSetters[] = {
    {IsNotMinusOne<&S::MCmode>,     Pass<BCSet_Maxi_Mode, &S::MCmode>,
     "Couldn't set mode for MaxiCode."},
    {IsNotMinusOne<&S::MCundercut>, Pass<BCSet_Maxi_UnderCut, &S::MCundercut>,
     "Couldn't set undercut for MaxiCode."},
    {IsNotMinusOne<&S::MCsum, &S::MCindex>,
     Pass<BCSet_Maxi_Append, &S::MCsum, &S::MCindex>,
     "Couldn't set structured append options for MaxiCode."},
    {IsCarrierMessage,
     Pass<BCSet_Maxi_SCMA, &S::MCservice, &S::MCcountry, &S::MCpostal>,
     "Couldn't set structured carrier message options for MaxiCode."},
    {IsNotEmpty<&S::MCpre>,         PassPreamble,
     "Couldn't set preamble for MaxiCode."},
};

constexpr Setter kCodablockFSetters[] = {
    {IsNotMinusOne<&S::CBrows>,      Pass<BCSet_CBF_Rows, &S::CBrows>,
     "Couldn't set number of rows for Codablock-F."},
    {IsNotMinusOne<&S::CBcols>,      Pass<BCSet_CBF_Columns, &S::CBcols>,
     "Couldn't set number of columns for Codablock-F."},
    {IsNotMinusOne<&S::CBrowheight>, Pass<BCSet_CBF_RowHeight, &S::CBrowheight>,
     "Couldn't set row height for Codablock-F."},
    {IsNotMinusOne<&S::CBsepheight>, Pass<BCSet_CBF_RowSeparatorHeight, &S::CBsepheight>,
     "Couldn't set row-separator height for Codablock-F."},
    {Always,                         Pass<BCSet_CBF_Format, &S::CBformat>,
     "Couldn't set format for Codablock-F."},
};

// Micro QR Code takes its error correction level through the setter of QR Code: the library has
// one for both.
constexpr Setter kMicroQrSetters[] = {
    {Always, Pass<BCSet_MQR_Version, &S::MQRversion>,
     "Couldn't set version for Micro QRCode."},
    {Always, Pass<BCSet_QR_ECLevel, &S::MQRecl>,
     "Couldn't set error correction level for Micro QRCode."},
    {Always, Pass<BCSet_MQR_Mask, &S::MQRmask>,
     "Couldn't set mask pattern for Micro QRCode."},
};
// clang-format on

struct Family {
  std::span<const int> types;
  ResultCode (*apply)(S& settings, BCBarcode* handle);
};

constexpr Family kFamilies[] = {
    {Settings::kPdf417Types, ApplyPdf417},         {Settings::kMaxiCodeTypes, ApplyMaxiCode},
    {Settings::kQrCodeTypes, ApplyQrCode},         {Settings::kDataMatrixTypes, ApplyDataMatrix},
    {Settings::kCodablockFTypes, ApplyCodablockF}, {Settings::kAztecTypes, ApplyAztec},
    {Settings::kMicroQrTypes, ApplyMicroQr},
};

}  // namespace

ResultCode ApplyPdf417(S& settings, BCBarcode* handle) {
  return ApplySetters(kPdf417Setters, settings, handle);
}

ResultCode ApplyMaxiCode(S& settings, BCBarcode* handle) {
  return ApplySetters(kMaxiCodeSetters, settings, handle);
}

ResultCode ApplyQrCode(S& settings, BCBarcode* handle) {
  return ApplySetters(kQrCodeSetters, settings, handle);
}

ResultCode ApplyDataMatrix(S& settings, BCBarcode* handle) {
  return ApplySetters(kDataMatrixSetters, settings, handle);
}

ResultCode ApplyCodablockF(S& settings, BCBarcode* handle) {
  return ApplySetters(kCodablockFSetters, settings, handle);
}

ResultCode ApplyAztec(S& settings, BCBarcode* handle) {
  return ApplySetters(kAztecSetters, settings, handle);
}

ResultCode ApplyMicroQr(S& settings, BCBarcode* handle) {
  return ApplySetters(kMicroQrSetters, settings, handle);
}

ResultCode ApplySymbology(S& settings, BCBarcode* handle) {
  for (const Family& family : kFamilies) {
    if (Settings::IsOneOf(family.types, settings.barcode)) return family.apply(settings, handle);
  }
  return Diag::kSuccess;
}

bool IsPdf417Family(int type) {
  return Settings::IsOneOf(Settings::kPdf417Types, type);
}

}  // namespace Engine
