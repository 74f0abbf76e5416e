// The standard streams as the program finds them at its start.
#pragma once

namespace App {

// Puts /dev/null in the place of standard descriptors that are closed, so that no file opened later
// takes it: input is open for writing and output for reading, and their use still fails. Also lets
// a write to a pipe that nobody reads fail instead of ending the process. Before anything is
// opened.
void SecureStandardStreams();

// What becomes of `exitCode` when texts were printed: the same, or, reported, kExitAccessDenied
// when standard output didn't take them.
int AfterPrinting(int exitCode);

// Reports that standard output failed with the system's error.
void ReportOutputFailure(int error);

}  // namespace App
