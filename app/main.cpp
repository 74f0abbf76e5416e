#include "app/Application.h"

int main(int argc, char** argv) {
  return App::RunApplication(argc, argv);
}
