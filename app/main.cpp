#include "app/Application.h"
#include "app/StandardStreams.h"

int main(int argc, char** argv) {
  App::SecureStandardStreams();
  return App::RunApplication(argc, argv);
}
