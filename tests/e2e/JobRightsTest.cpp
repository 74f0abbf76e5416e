// What the author of a print job may not do: speak to the scheduler through the program's messages,
// read files that are none of his, or stop the queue with one that never ends.
#include "tests/support/Program.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

using namespace Support;

// Lines that the scheduler takes for commands, and what they become.
const std::string kCommands = "\nSTATE: +paused\r\nPPD: x\nPAGE: 1 1\nATTR: a=b";
const std::string kShown = "\\x0ASTATE: +paused\\x0D\\x0APPD: x\\x0APAGE: 1 1\\x0AATTR: a=b";

// Whether the scheduler would find nothing but messages in the log, none of them cut.
void ExpectMessagesOnly(const std::string& log) {
  for (const std::string& line : Split(log, "\n")) {
    for (const char* const command : {"STATE:", "PPD:", "PAGE:", "ATTR:"}) {
      EXPECT_FALSE(line.starts_with(command)) << line;
    }
    EXPECT_LT(line.size(), 2047u) << line;
    EXPECT_EQ(line.find_first_of("\r\x1B\x7F"), line.npos) << line;
  }
}

TEST(JobRights, TitleUserAndOptionsCannotWriteLinesOfTheLog) {
  const TempFolder folder;
  const std::string file = folder.file("log");
  const std::string ini = folder.write("ini", "filter\ntrace=verbose\nerrorfile=" + file + "\n");
  const std::string hostile = "a\tb" + kCommands + std::string(3000, '\x1B');
  const Finished finished = Support::Run({.arguments = {VEXTORIN_PROGRAM, "--inifile=" + ini,
                                                        hostile, hostile, "1", hostile, hostile}});
  ExpectMessagesOnly(finished.errors);
  ExpectMessagesOnly(ReadFile(file));
  for (const std::string place : {"argv[2]: ", "argv[3]: ", "argv[5]: ", "Input stream: "}) {
    EXPECT_NE(finished.errors.find(place + "DEBUG: a\tb" + kShown + "\\x1B\\x1B"),
              std::string::npos)
        << place;
    EXPECT_NE(ReadFile(file).find(place + "a\tb" + kShown), std::string::npos) << place;
  }
  EXPECT_NE(finished.errors.find("Input file not found: a\tb" + kShown), std::string::npos);
}

TEST(JobRights, SequencesCannotWriteLinesOfTheLogNorControlCharactersOnThePage) {
  const std::string longer = kCommands + std::string(5000, 'x');
  for (const std::string& options : {
           "--barcode=13 --data=\"12" + longer + "\"",     // can't be made
           "--barcode=20 --data=\"12" + kCommands + "\"",  // can be made
           "--width=\"x" + longer + "\"",
           "--data=1 --na" + longer,
           "word" + longer,
           "--bcfile=\"/" + longer + "\"",
           "--datafile=\"/" + longer + "\"",
       }) {
    SCOPED_TRACE(options.substr(0, 40));
    const std::string sequence = "$_vxrs " + options + " $_vxre";
    for (const std::string& job :
         {"%!PS\n1 1 moveto (" + sequence + ") show\n", "\033E" + sequence + "\n"}) {
      const Program::Result result = Filter("trace=verbose").run(job);
      EXPECT_EQ(result.status, 0);
      ExpectMessagesOnly(result.errors);
      EXPECT_NE(result.errors.find("\\x0ASTATE: +paused\\x0D"), std::string::npos);
    }
  }
  // What a barcode that can't be made leaves on the page.
  const std::string page =
      Filter("barcode=13").run("\033E$_vxrs --data=\"1\n\033E2\" $_vxre\n").output;
  EXPECT_EQ(page.find('\033', 1), page.npos) << page;
}

TEST(JobRights, FilesOfASequenceAreRegularOnesOrTheBarcodeIsMissing) {
  const TempFolder folder;
  const std::string pipe = folder.file("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const std::string rest = "(rest) show\n";
  for (const std::string& name : {pipe, std::string("/dev/zero"), std::string("/dev/stdin"),
                                  std::string("/proc/self/environ"), folder.path().string()}) {
    for (const char* const option : {" --datafile=", " --bcfile="}) {
      SCOPED_TRACE(option + name);
      Program program = Filter();
      program.environment = {{"VX_SECRET", "not for paper"}};
      const Program::Result result =
          program.run("%!PS\n($_vxrs" + (option + name) + " $_vxre) show\n" + rest);
      EXPECT_EQ(result.status, 0);
      EXPECT_TRUE(result.output.ends_with(rest)) << result.output;
      EXPECT_NE(result.errors, "");
      EXPECT_EQ((result.output + result.errors).find("not for paper"), std::string::npos);
    }
  }
}

TEST(JobRights, ReadNoFilesAtAllWhereJobfilesIsDeny) {
  const TempFolder folder;
  const std::string data = folder.write("data", "Test123");
  const std::string settings = folder.write("settings", "data=Test123\n");
  for (const std::string& option : {" --datafile=" + data, " --bcfile=" + settings}) {
    SCOPED_TRACE(option);
    const std::string job = "%!PS\n($_vxrs" + option + " $_vxre) show\n";
    const std::string drawn = "BCSetTextA(b1, \"Test123\", 7)";
    const Program::Result allowed = Recorded(Filter("jobfiles=allow")).run(job);
    EXPECT_EQ(FirstWith(allowed.calls, "BCSetTextA"), drawn);
    const Program::Result denied = Recorded(Filter("jobfiles=deny")).run(job);
    EXPECT_EQ(denied.status, 0);
    EXPECT_EQ(FirstWith(denied.calls, "BCAlloc"), "");
    const std::string name = option.substr(3, option.find('=') - 3);
    EXPECT_NE(
        denied.errors.find("A sequence may not use '" + name + "': 'jobfiles' is set to 'deny'.\n"),
        std::string::npos)
        << denied.errors;
    // The configuration's own files are the administrator's.
    Program configured = Filter("jobfiles=deny" + (" " + option.substr(3)));
    EXPECT_EQ(
        FirstWith(Recorded(configured).run("%!PS\n($_vxrs $_vxre) show\n").calls, "BCSetTextA"),
        drawn);
  }
}

}  // namespace
