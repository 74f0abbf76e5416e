// The program-level settings: where output goes, how the filter behaves, how diagnostics are
// routed. Filled once at start from the configuration file. Options that it does not know go on to
// the barcode settings it owns.
#pragma once

#include "settings/BarcodeSettings.h"
#include "settings/Settings.h"

#include <string>

namespace Settings {

enum StreamType : int { kStreamNotSet = 0, kStreamPostScript = 1, kStreamPcl = 2 };
enum InsertMode : int {
  kInsertNotSet = 0,
  kInsertBeforeLine = 1,
  kInsertAfterLine = 2,
  kInsertBeforeString = 3,
  kInsertAfterString = 4,
  kInsertAuto = 5,
};

class AppSettings : public Settings {
 public:
  // Chooses the configuration file: the system-wide one if it exists, else the one in the
  // program's directory.
  AppSettings();

  std::string printSettings() const override;
  void printUsage() const override;
  Diag::ResultCode readOptions(Parser::ArgumentParser& parser) override;
  virtual void printVersion() const;

  // The output format of a barcode that names none: the language of the stream, PostScript when
  // that isn't known.
  OutputFormat streamFormat() const;

  // Takes the ini file's name from the command line (`--inifile`) and reads that file. An ini file
  // that can't be opened and read is kAccessDenied, else the result of readOptions; with
  // `failurePlace` set when that is a failure.
  Diag::ResultCode load(int argc, const char* const* argv);

  int memorySize = 65536;  // bytes
  std::string outputFile;  // empty: standard output
  std::string inputFile;
  bool inputFileGiven = false;
  std::string iniFile;
  double globalXOffset = 0.0;  // millimetres
  double globalYOffset = 0.0;
  bool filter = false;
  int streamType = kStreamNotSet;
  std::string escapeBegin = "$_vxrs";
  std::string escapeEnd = "$_vxre";
  int insertMode = kInsertNotSet;
  std::string insertPattern;
  bool pclReset = false;
  bool sap = false;
  bool orvella = false;
  bool v1format = false;
  bool ignoreBarcodeError = false;
  bool ignoreNoData = false;
  bool lineByLine = false;
  bool jobFiles = true;           // sequences may name files to read
  std::string failurePlace;       // the line of the ini file that failed, as messages name it
  bool barcodeHelpShown = false;  // the help on barcode options was printed
  BarcodeSettings barcode;

 private:
  void takeIniFileName(int argc, const char* const* argv);
};

}  // namespace Settings
