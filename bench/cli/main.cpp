#include "cli/application.h"

int main(int argc, char** argv) {
  return vanzet::cli::Run(argc, argv);
}
