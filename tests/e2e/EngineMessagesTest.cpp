// What the user is told when the barcode library refuses a barcode, and what is printed of it.
#include "tests/support/Jobs.h"
#include "tests/support/Program.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <algorithm>

namespace {

using namespace Support;

const std::string kError = "ERROR: vextorin: Error: ";
const std::string kNotCreated = "Couldn't create barcode. Please check barcode settings.";
const std::string kReason = "Error code: 0x80070057 - Error Message: ";
const std::string kInvalidArgument =
    kReason + "Invalid argument. Unsupported barcode or syntax error.";
const std::string kNotFreed =
    "WARNING: vextorin: Warning: Couldn't free memory for barcode generation.\nWARNING: ";

// The two lines of one failure.
std::string Report(const std::string& sentence, const std::string& reason = kInvalidArgument) {
  return kError + sentence + "\nERROR: " + reason + '\n';
}

// Says where the sequence of the lines before it stands.
std::string Failed(const std::string& place) {
  return kError + "The barcode sequence that failed begins " + place + " of the job.\n";
}

Program::Result RunAlone(const std::string& settings, const Environment& answers = {}) {
  return Recorded(StandAlone("data=Test123 " + settings), answers).run();
}

TEST(EngineMessages, TellsSizesThatDoNotDo) {
  const std::pair<const char*, std::string> rows[] = {
      {"multiple=on width=59 height=10",
       kError + "Given width is too small. A width of at least 60 mm is required.\n"},
      {"multiple=on width=60 height=10",
       kError + "Given height is too small. A height of at least 30.5 mm is required.\n"},
      {"multiple=on width=60 height=30.5",
       Report("Couldn't create multiple barcodes. Please check barcode settings.")},
      {"memory=100", kError + "Couldn't create barcode. Size of memory for barcode creation was to "
                              "small.\nERROR: Size of memory: 200 - Required size: 300\n"},
      {"memory=200", ""},
  };
  for (const auto& [settings, errors] : rows) {
    SCOPED_TRACE(settings);
    const Program::Result result =
        RunAlone(settings, {{"VX_STANDIN_LAYOUT", "60000x30500"},
                            {"VX_STANDIN_FAIL", "BC_MultiBC_CalculateLayout=80070057"},
                            {"VX_STANDIN_NEEDED", "200,300"}});
    EXPECT_EQ(result.errors, errors);
    EXPECT_EQ(result.output, errors.empty() ? kDrawing : "");
  }
}

// Runs started during its life may have a gibibyte of memory and not more.
class LittleMemory {
 public:
  LittleMemory() {
    getrlimit(RLIMIT_AS, &before);
#ifndef __SANITIZE_ADDRESS__  // which takes all address space there is, and obeys an option instead
    const rlimit little = {kGibibyte, before.rlim_max};
    setrlimit(RLIMIT_AS, &little);
#endif
  }
  ~LittleMemory() {
    setrlimit(RLIMIT_AS, &before);
  }
  LittleMemory(const LittleMemory&) = delete;
  LittleMemory& operator=(const LittleMemory&) = delete;

 private:
  static constexpr rlim_t kGibibyte = rlim_t{1} << 30;
  rlimit before{};
};

TEST(EngineMessages, TellsThatMemoryIsNotToBeHad) {
  const std::string grown = kError +
                            "Couldn't reallocate memory for barcode. Initial memory size: 65536. "
                            "New memory size: 2147483647.\n";
  const std::string small = kError +
                            "Couldn't create barcode. Size of memory for barcode creation was to "
                            "small.\nERROR: Size of memory: 65536 - Required size: 2147483647\n";
  const std::string sequence =
      kError + "Barcode Sequence: --data=1 \n" + Failed("on page 1, at byte 3");
  const std::pair<Program, std::string> rows[] = {
      {StandAlone("data=1"), grown + small},
      {StandAlone("data=1 memory=2147483647"), kError + "Couldn't allocate memory for barcode.\n"},
      {Filter(), grown + small + sequence},
      // The end of the mute is here.
      {Filter("onerror=ignore"), small + sequence},
  };
  for (const auto& [program, errors] : rows) {
    SCOPED_TRACE(testing::PrintToString(program.settings));
    const Environment answers = {
        {"VX_STANDIN_NEEDED", "2147483647"},
        // The barcode that finds no memory is left to the library.
        {"ASAN_OPTIONS", "allocator_may_return_null=1:max_allocation_size_mb=1024:detect_leaks=0"}};
    const LittleMemory little;
    const Program::Result result = Recorded(program, answers).run("\033E$_vxrs --data=1 $_vxre");
    std::string told = result.errors;
    if (told.starts_with("==")) told.erase(0, told.find('\n') + 1);  // the sanitizer's own warning
    EXPECT_EQ(told, errors);
    EXPECT_EQ(result.status, 80);
  }
}

TEST(EngineMessages, TellsFailuresAroundABarcode) {
  const std::string asked = "Error code: 0x8007000e - Error Message: ";
  const struct {
    const char* failure;
    std::string errors;
    std::string output;
    int status;
  } rows[] = {
      // Freeing the handle that never was fails as well.
      {"BCAlloc=8007000e",
       Report("Couldn't allocate memory for barcode generation.", asked + "-") +
           Report("Couldn't set checkdigit method to 1.") + kNotFreed + kInvalidArgument + '\n',
       "", 0},
      {"BCFree=8007000e", kNotFreed + asked + "Library text .\n", kDrawing, 0},
      {"BCInitLibraryA=8007000e", kError + "Couldn't initialize library. Error code: -2147024882\n",
       "", 110},
      {"BCDeInitLibrary=8007000e",
       "WARNING: vextorin: Warning: Couldn't deinitalize library.\nWARNING: " + asked + "-\n",
       kDrawing, 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.failure);
    const Program::Result result = RunAlone("trace=warning", {{"VX_STANDIN_FAIL", row.failure}});
    EXPECT_EQ(result.errors, row.errors);
    EXPECT_EQ(result.output, row.output);
    EXPECT_EQ(result.status, row.status);
    EXPECT_EQ(FirstWith(result.calls, "BCFree(").empty(), row.status == 110);
    EXPECT_EQ(std::ranges::count(result.calls, "BCDeInitLibrary()"), row.status == 110 ? 0 : 1);
  }
}

TEST(EngineMessages, NamesTheReasonAsFarAsTheLibraryKnows) {
  const std::string plain = "Library text .";
  const struct {
    const char* code;
    const char* data;
    std::string answers;  // of the recording library
    std::string reason;
  } rows[] = {
      {"80070032", "Test123", "INVALIDPOS=4 MAXLEN=13", plain},
      {"8007000d", "Test123", "INVALIDPOS=4", "Library text '1' at position 5."},
      {"8007000d", "ab\tc", "INVALIDPOS=2", "Library text (ASCII Code 0x9) at position 3."},
      {"8007000d", "a b", "INVALIDPOS=1", "Library text (ASCII Code 0x20) at position 2."},
      {"8007000d", "a!~\x7f", "INVALIDPOS=1", "Library text '!' at position 2."},
      {"8007000d", "a!~\x7f", "INVALIDPOS=2", "Library text '~' at position 3."},
      {"8007000d", "a!~\x7f", "INVALIDPOS=3", "Library text (ASCII Code 0x7f) at position 4."},
      {"8007000d", "\xe4x", "INVALIDPOS=0", "Library text (ASCII Code 0xe4) at position 1."},
      {"8007000d", "Test123", "", plain},
      {"8007000d", "Test123", "INVALIDPOS=7", plain},  // behind the data
      {"80090004", "1", "MAXLEN=13 CHECKDIGITS=2", "Library text (needs 11 characters)."},
      {"80090004", "1", "MAXLEN=13 CHECKDIGITS=-1", "Library text (needs 13 characters)."},
      {"80090004", "1", "", plain},  // without a limit
      {"80090004", "1", "COMPOSITE=1 MAXLEN=13",
       "Error in linear component - Library text (needs 13 characters)."},
      {"8007000d", "1", "COMPOSITE=1 ERRORINCC=1 INVALIDPOS=0",
       "Error in 2D Composite Component - Library text '1' at position 1."},
      {"80070032", "1", "COMPOSITE=1 ERRORINCC=1",
       "Error in Composite Symbol - Composite Component not supported for the selected barcode "
       "type."},
      // no more than its buffer holds
      {"80070032", "1", "ERRORTEXT=" + std::string(90, 'x'), std::string(70, 'x') + '.'},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.reason);
    const std::string code = row.code;
    Environment answers = {{"VX_STANDIN_FAIL", "BCCreate=" + code}};
    for (const std::string& answer : Split(row.answers, " ")) {
      const std::size_t equals = answer.find('=');
      answers.emplace_back("VX_STANDIN_" + answer.substr(0, equals), answer.substr(equals + 1));
    }
    Program program = Recorded(StandAlone({}), answers);
    program.settings = {std::string("data=") + row.data};
    EXPECT_EQ(program.run().errors,
              Report(kNotCreated, "Error code: 0x" + code + " - Error Message: " + row.reason));
  }
}

// What a job with failing sequences comes to: the messages, and what is printed in each place.
TEST(EngineMessages, NamesFailedSequencesAndPrintsTheirMessagesUnlessErrorsAreIgnored) {
  const auto sequence = [](const std::string& options) {
    return "($_vxrs " + options + " $_vxre) show\n";
  };
  const auto blanked = [](const std::string& options) {
    return "(" + Blanks(options.size() + 14) + ") show\n";
  };
  const auto printed = [](const std::string& message) { return "(" + message + "\\n) show"; };
  const std::string one = "--data=(x)", two = "--data=2", empty = "--barcode=20",
                    wrong = "--rot=45";
  const std::string missing = "Barcode text is missing/empty.",
                    refused = "Rotation must be set to '0', '90', '180' or '270'.";
  const std::string message = "vextorin: Error: " + kNotCreated + "\\n" + kInvalidArgument;
  const std::string job = "%!PS\n" + sequence(one) + sequence(two) + sequence(empty) +
                          sequence(wrong) + sequence("--data=3");
  const auto named = [&job](const std::string& options) {
    const std::size_t string = job.find(options) - std::string("($_vxrs ").size();
    return kError + "Barcode Sequence:  " + options + " \n" +
           Failed("at byte " + std::to_string(string + 1));
  };
  const Environment failing = {{"VX_STANDIN_FAIL", "BCCreate#1=80070057,BCCreate#2=80070057"}};
  const std::string last = Wrapped(kDrawing, kRelative) + blanked("--data=3");
  const struct {
    const char* settings;
    std::string errors, output;
  } rows[] = {
      {"onerror=message",
       Report(kNotCreated) + named(one) + Report(kNotCreated) + named(two) + kError + missing +
           '\n' + named(empty) + kError + refused + '\n' + named(wrong),
       printed(message) + blanked(one) + printed(message) + blanked(two) +
           printed("vextorin: Error: " + missing) + blanked(empty) + blanked(wrong)},
      // What is missing is told even then, and so is what can't be read.
      {"onerror=ignore",
       named(one) + named(two) + kError + missing + '\n' + named(empty) + kError + refused + '\n' +
           named(wrong),
       blanked(one) + blanked(two) + printed("vextorin: Error: " + missing) + blanked(empty) +
           blanked(wrong)},
      {"onerror=ignore onnodata=ignore",
       named(one) + named(two) + named(empty) + kError + refused + '\n' + named(wrong),
       blanked(one) + blanked(two) + blanked(empty) + blanked(wrong)},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.settings);
    const Program::Result result = Recorded(Filter(row.settings), failing).run(job);
    EXPECT_EQ(result.errors, row.errors);
    EXPECT_EQ(result.output, "%!PS\n" + row.output + last);
    EXPECT_EQ(result.status, 0);
  }
}

}  // namespace
