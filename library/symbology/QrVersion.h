// The 40 versions of QR Code and the four levels of error correction of each (ISO/IEC 18004).
#pragma once

#include "library/symbology/QrMessage.h"

#include <vector>

namespace Library {

enum class QrLevel { kL, kM, kQ, kH };

class QrVersion {
 public:
  static constexpr int kLast = 40;

  // REQUIRES: 1 <= versionNumber <= kLast
  QrVersion(int versionNumber, QrLevel levelOfVersion);

  int number() const { return version; }
  QrLevel level() const { return ecLevel; }
  int width() const { return 17 + 4 * version; }
  int blocks() const;
  int checkWordsPerBlock() const;
  std::size_t dataWords() const;
  const QrSegmentHeads& heads() const;

  // Rows and columns where alignment patterns have their centres.
  std::vector<int> alignment() const;

 private:
  int version;
  QrLevel ecLevel;
};

}  // namespace Library
